#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/download_fixture.h"
#include "tests/drivers/fluke74x/upload_fixture.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class Fluke74xUploadFailures : public Fluke74xUpload {
  protected:
    /// Reports of an error in these routines of the data.
    void expectReports(int number, const QStringList& routines) {
        for (const auto& reporting : routines)
            ui.expectReport(number, u"ModuleGlobals,"_s + reporting);
    }
    QString uploadWith(const CallAt& call, qint16 status) {
        link.calls.clear();
        link.answer(call.operation, status, call.occasion);
        return upload();
    }
};

TEST_F(Fluke74xUploadFailures, AStatusOfTheNextGroupConcernsNoAssetYet) {
    addGoodRun();
    addGoodRun(u"PT-102"_s);
    link.answer(u"MEM3natoms"_s, 100, 2);
    expectFailureBox({}, {});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts().size(), 2);
}

TEST_F(Fluke74xUploadFailures, TheNextUploadLosesNothingAndDoublesNothing) {
    addGoodRun();
    addGoodRun(u"PT-102"_s);
    EXPECT_EQ(uploadWith({u"MEM3instrCalResultInfo"_s, 2}, 2014),
              u"The Requested Object/Item Has No Data (DPC3ERR_NO_DATA)"_s);
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1401"_s});
    expectRefusal();
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), (QStringList{u"1401"_s, u"1402"_s}));
}

TEST_F(Fluke74xUploadFailures, ALinkThatFailsHasReadNothing) {
    addGoodRun();
    for (const auto& operation :
         {u"DPC3close"_s, u"DPC3open"_s, u"DPC3get74X"_s, u"DPC3mapStart"_s, u"DPC3uplStart"_s}) {
        EXPECT_EQ(uploadWith({operation, 1}, 2010),
                  u"Communications with calibrator failed! (DPC3ERR_COMM_NOT_CONNECTED)"_s);
        EXPECT_EQ(link.calls.first(), u"MEM3clear()"_s);
        EXPECT_EQ(link.callsOf(u"MEM3ngroups"_s), QStringList());
    }
    EXPECT_EQ(verdicts(), QStringList());
}

TEST_F(Fluke74xUploadFailures, AWarningDuringATransferIsShownAndAllIsRead) {
    addGoodRun();
    link.steps = 3;
    link.answer(u"DPC3uplStep"_s, 100, 4);
    expectFailureBox({}, {});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(link.callsOf(u"DPC3uplStep"_s).size(), 6) << "two passes";
    EXPECT_EQ(verdicts().size(), 1);
}

TEST_F(Fluke74xUploadFailures, ACalibratorWithoutARecordHasItsWordsAndReadsNothing) {
    link.serial = u"0000000"_s;
    addGoodRun();
    EXPECT_EQ(upload(),
              u"Asset Number for Calibrator NOT Found In Database! A record for the calibrator must "
              "be created before uploading results."_s);
    EXPECT_EQ(link.callsOf(u"MEM3ngroups"_s), QStringList());
}

// Runs of which no record can be made.

TEST_F(Fluke74xUploadFailures, ADateThatDoesNotExistIsReportedAndTheNextRunIsRead) {
    const Dpclnk3::RunTime times[] = {
        {2, 30, 2026, 8, 0, 0},  {2, 29, 2026, 8, 0, 0},  {13, 5, 2026, 8, 0, 0}, {0, 0, 0, 0, 0, 0},
        {3, 18, 2026, 24, 0, 0}, {3, 18, 2026, 8, 60, 0}, {3, 18, 2026, 8, 0, -1}};
    for (const auto& time : times) {
        addGoodRun().time = time;
        ui.expectReport(13, routine);
    }
    addGoodRun(u"PT-102"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1402"_s});
    const auto left = Journal(session).unfinished();
    ASSERT_EQ(left.size(), 7);
    EXPECT_EQ(left[0].date + left[0].time, QString());
    EXPECT_EQ(left[0].readings.size(), 3);
    EXPECT_EQ(left[0].readings[1], u"2: applied 50, read 50 (in the calibrator's units)"_s);
    EXPECT_EQ(left[0].asset, u"PT-101"_s);
    EXPECT_EQ(left[0].serial, u"7112044"_s);
    EXPECT_EQ(left[0].calibrator, u"Fluke 743/744"_s);
    EXPECT_EQ(left[0].driver, u"fluke74x"_s);
}

TEST_F(Fluke74xUploadFailures, ReadingsThatAreNoNumbersAreReportedAndTheNextRunIsRead) {
    const float values[] = {std::nanf(""), std::numeric_limits<float>::infinity(),
                            -std::numeric_limits<float>::infinity()};
    for (const float value : values) {
        addGroup();
        addRun({at(0, value), at(50, 50), at(100, 100)});
        addGoodRun(u"PT-102"_s);
        ui.expectReport(6, routine);
    }
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), QStringList(3, u"1402"_s))
        << "nothing that could not be judged is recorded";
    const auto left = Journal(session).unfinished();
    ASSERT_EQ(left.size(), 3);
    EXPECT_EQ(left[0].readings[0], u"1: applied 0, read nan (in the calibrator's units)"_s);
    EXPECT_EQ(left[2].readings[0], u"1: applied 0, read -inf (in the calibrator's units)"_s);
    EXPECT_FALSE(left[0].prepared);
    EXPECT_EQ(left[2].date + u' ' + left[2].time, u"2026-03-18 08:04:30"_s);
}

TEST_F(Fluke74xUploadFailures, AnInstrumentWithoutRepetitionsIsReportedAndKeptInTheJournal) {
    configure(u"1401"_s, u"repetitions = 0"_s);
    addBadRun();
    addGoodRun(u"PT-102"_s);
    ui.expectReport(11, routine);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1402"_s});
    const auto left = Journal(session).unfinished();
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(left[0].asset, u"PT-101"_s);
    EXPECT_EQ(left[0].readings.size(), 3);
    EXPECT_FALSE(left[0].prepared);
}

TEST_F(Fluke74xUploadFailures, ALaterRunBehindOneThatCouldNotBeJudgedIsAsLeftAllTheSame) {
    addGroup();
    addRun({at(0, std::nanf("")), at(50, 50), at(100, 100)});
    addRun(good()).time.hour = 12;
    ui.expectReport(6, routine);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList{u"AS-LEFT Y 0 0"_s});
}

TEST_F(Fluke74xUploadFailures, AnUnknownOrEmptyTagIsReportedAndKeptInTheJournal) {
    for (const auto& tag : {u"NOBODY"_s, QString(), u"   "_s}) {
        link.groups.clear();
        addGoodRun(tag);
        addGoodRun(u"PT-102"_s);
        const auto before = verdicts().size();
        const auto unfinished = Journal(session).unfinished().size();
        ui.expectReport(11, routine);
        EXPECT_EQ(upload(), QString());
        EXPECT_EQ(verdicts().size() - before, 1) << tag.toStdString();
        const auto left = Journal(session).unfinished();
        ASSERT_EQ(left.size() - unfinished, 1) << tag.toStdString();
        EXPECT_EQ(left.last().asset, tag.trimmed());
        EXPECT_EQ(left.last().readings.size(), 3);
        EXPECT_FALSE(left.last().prepared);
    }
}

TEST_F(Fluke74xUploadFailures, ATagWithAQuoteEndsInReportsAndTheNextRunIsRead) {
    addGoodRun(u"LT-10'COL"_s);
    addGoodRun(u"PT-102"_s);
    expectReports(1, {u"FirstCal"_s, u"SourceColumn"_s, u"SourceColumn"_s, u"SourceColumn"_s,
                      u"GetCalParams"_s, u"GetCalParams"_s});
    ui.expectReport(11, u"ModuleGlobals,TranslateSpanTestTolSingle"_s);
    expectReports(1, {u"GetInUseData"_s});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1402"_s});
    EXPECT_EQ(Journal(session).unfinished().size(), 1);
}

TEST_F(Fluke74xUploadFailures, ALostDatabaseEndsTheUploadAfterTheCurrentRunWithItsReadingsKept) {
    addGoodRun();
    addGoodRun(u"PT-102"_s);
    link.onCall = [this](const QString& name) {
        if (name == u"MEM3instrTagInfo")
            sharedConnection(session).close();
    };
    expectReports(3709, {u"FirstCal"_s, u"SetCalDataFields"_s, u"GetCalParams"_s, u"GetCalParams"_s,
                         u"TranslateSpanTestTolSingle"_s, u"GetInUseData"_s, u"GetInUseData"_s});
    EXPECT_EQ(upload(), text(TextId::connectionLostAdvice));
    const auto left = Journal(session).unfinished();
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(left[0].asset, u"PT-101"_s);
    EXPECT_EQ(left[0].readings.size(), 3);
    EXPECT_FALSE(left[0].prepared);
}

} // namespace kelvane::testing
