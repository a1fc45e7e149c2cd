#include "tests/end_to_end/database_trouble.h"
#include "tests/end_to_end/fluke_end_to_end.h"
#include "tests/platform/errors.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class FlukeEndToEndWithADatabaseFault : public FlukeEndToEnd {
  protected:
    void bringBack() {
        list(singleInstrument());
        download();
        carryOut(twoRuns());
    }

    DatabaseOutage outage{database};
    OtherWriter other{database};
};

TEST_F(FlukeEndToEndWithADatabaseFault, AConnectionLostBeforeTheDownloadIsReportedAndTheCalibratorLeftAlone) {
    list(singleInstrument());
    outage.begin();
    ui.expectReport(outage.number(), u"FormDockingDown,Download"_s);
    downloadList(calibrators, screen);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(takeHeard(), QStringList());
    EXPECT_EQ(screen.list, singleInstrument());
    logInAgain(outage);
    download();
    EXPECT_EQ(registered(), singleInstrument());
}

// The calibrator keeps its results, so that nothing is lost with the connection.
TEST_F(FlukeEndToEndWithADatabaseFault,
       AConnectionLostDuringAnUploadIsReportedAndTheNextUploadMakesTheRecords) {
    bringBack();
    const auto onCalibrator = held();
    expectChoice();
    expectRecord(u"PT-101"_s, [&] { outage.begin(); });
    ui.expectReport(outage.number(), u"ModuleGlobals,CreateCalRecord"_s);
    pressUpload(messages::connectionLost());
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(held(), onCalibrator);

    logInAgain(outage);
    EXPECT_EQ(registered(), singleInstrument());
    EXPECT_EQ(records(u"PT-101"_s), QStringList());
    upload(twoRuns());
    expectRecords(twoRuns());
    EXPECT_EQ(withoutRecord(), QStringList());
}

TEST_F(FlukeEndToEndWithADatabaseFault, WithoutALogTheLostConnectionEndsTheUploadAsError75) {
    bringBack();
    ASSERT_TRUE(QDir().mkdir(u"errors.log"_s));
    expectChoice();
    expectRecord(u"PT-101"_s, [&] { outage.begin(); });
    EXPECT_EQ(errorOf([&] { ModuleGlobals::UploadFromCalibrator(calibrators); }), 75);
    EXPECT_TRUE(ui.hasMetAll()) << "no box";
    EXPECT_FALSE(ui.busy);
    EXPECT_FALSE(ui.progressShown);
    ASSERT_TRUE(QDir().rmdir(u"errors.log"_s));
    logInAgain(outage);
    upload(twoRuns());
    expectRecords(twoRuns());
}

TEST_F(FlukeEndToEndWithADatabaseFault, ADownloadThatCantMakeItsPackageSaysNothingToTheCalibrator) {
    list(singleInstrument());
    other.lock();
    ui.expectReport(other.number(), u"FormDockingDown,Download"_s);
    downloadList(calibrators, screen);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_EQ(takeHeard(), QStringList());
    other.unlock();
    download();
    EXPECT_EQ(registered(), singleInstrument());
}

// The run is still there for the next upload, and in the journal.
TEST_F(FlukeEndToEndWithADatabaseFault, ARecordThatCantBeWrittenIsReportedAndComesWithTheNextUpload) {
    bringBack();
    expectChoice();
    expectRecord(u"PT-101"_s, [&] { other.lock(); });
    ui.expectReport(other.number(), u"ModuleGlobals,CreateCalRecord"_s);
    expectRecord(u"PT-101"_s, [&] { other.unlock(); });
    pressUpload();
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_EQ(records(u"PT-101"_s), QStringList{u"Y|2|5"_s}) << "the as-left run alone";
    expectChoice();
    expectRuns(singleRun());
    EXPECT_EQ(withoutRecord(), singleInstrument());
    expectRefusedRuns(twoRuns().last(1));
    pressUpload();
    EXPECT_EQ(records(u"PT-101"_s), (QStringList{u"Y|2|5"_s, u"N|2|5"_s}));
    EXPECT_EQ(withoutRecord(), QStringList());
}

} // namespace kelvane::testing
