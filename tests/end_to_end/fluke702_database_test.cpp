#include "tests/end_to_end/database_trouble.h"
#include "tests/end_to_end/fluke702_end_to_end.h"
#include "tests/platform/errors.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class Fluke702EndToEndWithADatabaseFault : public Fluke702EndToEnd {
  protected:
    void bringBack() {
        list(oneInstrument());
        download();
        carryOut(twoRuns());
    }

    WreckableFile mt{database.file(u"mt.db"_s)};
    OtherWriter other{database.file(u"mt.db"_s)};
};

TEST_F(Fluke702EndToEndWithADatabaseFault,
       AConnectionLostBeforeTheDownloadIsReportedAndTheCalibratorLeftAlone) {
    list(oneInstrument());
    mt.wreck();
    ui.expectReport(notADatabase, u"FormDockingDown,Download"_s);
    downloadList(calibrators, screen);
    EXPECT_TRUE(ui.allCame());
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(takeHeard(), QStringList());
    EXPECT_EQ(screen.list, oneInstrument());
    logInAgain(mt);
    download();
    EXPECT_EQ(registered(), oneInstrument());
}

// The calibrator keeps its results, so that nothing is lost with the connection.
TEST_F(Fluke702EndToEndWithADatabaseFault,
       AConnectionLostInMidUploadIsReportedAndTheNextUploadMakesTheRecords) {
    bringBack();
    const auto onCalibrator = held();
    expectChoice();
    expectRecord(u"PT-101"_s, [&] { mt.wreck(); });
    ui.expectReport(notADatabase, u"ModuleGlobals,CreateCalRecord"_s);
    pressUpload(told::connectionLost);
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(held(), onCalibrator);

    logInAgain(mt);
    EXPECT_EQ(registered(), oneInstrument());
    EXPECT_EQ(records(u"PT-101"_s), QStringList());
    upload(twoRuns());
    expectRecords(twoRuns());
    EXPECT_EQ(withoutRecord(), QStringList());
}

TEST_F(Fluke702EndToEndWithADatabaseFault, WithoutALogTheLostConnectionEndsTheUploadAsError75) {
    bringBack();
    ASSERT_TRUE(QDir().mkdir(u"errors.log"_s));
    expectChoice();
    expectRecord(u"PT-101"_s, [&] { mt.wreck(); });
    EXPECT_EQ(errorOf([&] { ModuleGlobals::UploadFromCalibrator(calibrators); }), 75);
    EXPECT_TRUE(ui.allCame()) << "no box";
    EXPECT_FALSE(ui.busy);
    EXPECT_FALSE(ui.progressShown);
    ASSERT_TRUE(QDir().rmdir(u"errors.log"_s));
    logInAgain(mt);
    upload(twoRuns());
    expectRecords(twoRuns());
}

TEST_F(Fluke702EndToEndWithADatabaseFault, ADownloadThatCantMakeItsPackageSaysNothingToTheCalibrator) {
    list(oneInstrument());
    other.lock();
    ui.expectReport(busy, u"FormDockingDown,Download"_s);
    downloadList(calibrators, screen);
    EXPECT_TRUE(ui.allCame());
    EXPECT_EQ(takeHeard(), QStringList());
    other.unlock();
    download();
    EXPECT_EQ(registered(), oneInstrument());
}

// The run is still there for the next upload, and in the journal.
TEST_F(Fluke702EndToEndWithADatabaseFault, ARecordThatCantBeWrittenIsReportedAndComesWithTheNextUpload) {
    bringBack();
    expectChoice();
    expectRecord(u"PT-101"_s, [&] { other.lock(); });
    ui.expectReport(busy, u"ModuleGlobals,CreateCalRecord"_s);
    expectRecord(u"PT-101"_s, [&] { other.unlock(); });
    pressUpload();
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_EQ(records(u"PT-101"_s), QStringList{u"Y|2|5"_s}) << "the as-left run alone";
    expectChoice();
    expectRuns(oneRun());
    EXPECT_EQ(withoutRecord(), oneInstrument());
    expectRefusedRuns(twoRuns().last(1));
    pressUpload();
    EXPECT_EQ(records(u"PT-101"_s), (QStringList{u"Y|2|5"_s, u"N|2|5"_s}));
    EXPECT_EQ(withoutRecord(), QStringList());
}

} // namespace kelvane::testing
