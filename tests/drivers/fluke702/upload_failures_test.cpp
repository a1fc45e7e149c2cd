#include "resources/strings.h"
#include "resources/text_id.h"
#include "tests/drivers/fluke702/upload_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString noError = u"No Error (DPCERR_NONE)"_s;
const QString unknownError = u"Unknown Error"_s;

/// What the field table's loop leaves in the counter, in words.
const QString wordsOf101 = u"Setting measure function to VDC (DPCWARN_BAD_INPUT)"_s;

QList<Dpclnk::Status> everyStatus() {
    QList<Dpclnk::Status> list{-32768, -1, 1, 99, 106, 1999, 2027, 32767};
    for (Dpclnk::Status status = 100; status <= 105; ++status)
        list << status;
    for (Dpclnk::Status status = 2000; status <= 2026; ++status)
        list << status;
    return list;
}

bool readsRuns(const QString& operation) {
    return operation == u"STAgetPressure" || operation == u"MEMrDir" || operation == u"MEMasflInfo" ||
           operation == u"MEMbaseState" || operation == u"MEMtagidInfo" || operation == u"MEMcalResult" ||
           operation == u"MEMcalResultEntry";
}

} // namespace

class FlukeUploadFailures : public FlukeUpload {
  protected:
    /// From now on the n-th call that reads a run gives that status.
    void failAtRead(int n, Dpclnk::Status status) {
        link.onCall = [this, n, status, count = 0](const QString& name) mutable {
            if (readsRuns(name) && ++count == n)
                link.answer(name, status, 1);
        };
    }
};

TEST_F(FlukeUploadFailures, AnyStatusOfAnyReadEndsTheUploadInSuccessWithTheWordsForTheCounter) {
    addGoodRun();
    const struct {
        QString operation;
        QString words;
        QString name;
    } rows[] = {
        {u"MEMrDir"_s, noError, {}},
        {u"MEMasflInfo"_s, noError, {}},
        {u"MEMbaseState"_s, noError, {}},
        {u"MEMtagidInfo"_s, noError, {}},
        {u"MEMcalResult"_s, noError, u"PT-101"_s},
        {u"MEMcalResultEntry"_s, noError, u"PT-101"_s},
        {u"STAgetPressure"_s, wordsOf101, u"PT-101"_s},
    };
    for (const auto& row : rows) {
        for (const auto status : everyStatus()) {
            if (row.operation == u"MEMtagidInfo" && status == 2026)
                continue;
            link.calls.clear();
            link.answer(row.operation, status, 1);
            expectFailureBox(row.words, row.name);
            EXPECT_EQ(upload(), QString()) << row.operation.toStdString() << ' ' << status;
            EXPECT_TRUE(link.calls.last().startsWith(row.operation + u'(')) << "no call follows";
        }
    }
    EXPECT_EQ(verdicts(), QStringList());
}

TEST_F(FlukeUploadFailures, EachReadInTurnGivesItsOwnWordsAndLeavesTheRecordsBefore) {
    // PT-101 has the calibrator as its one standard in use, PT-102 has none; two points each.
    ModuleGlobals::AddInUse(session, u"6841207"_s, u"1401"_s, u"asmith"_s);
    execute(u"delete from mt.hvm_kv_proc_points where tp_name = 'ROUND' and test_point_pct = 0"_s);
    struct Expected {
        QString words;
        QString name;
        int records;
    };
    QList<Expected> expected;
    const auto add = [&](int count, const QString& words, const QString& name, int records) {
        for (int i = 0; i < count; ++i)
            expected << Expected{words, name, records};
    };
    // The first run: header, form, state and tag, then its count; nothing has been counted yet.
    add(4, noError, {}, 0);
    add(1, noError, u"PT-101"_s, 0);
    add(7, noError, u"PT-101"_s, 0);
    add(7, unknownError, u"PT-101"_s, 0); // entry 1
    add(1, {}, {}, 3);                    // the looks for a later run: their status doesn't matter
    add(1, {}, {}, 3);
    add(1, wordsOf101, u"PT-101"_s, 0);
    // The second run: one standard has been counted last.
    add(4, unknownError, u"PT-101"_s, 1);
    add(1, unknownError, u"PT-102"_s, 1);
    add(7, noError, u"PT-102"_s, 1); // entry 0
    add(7, unknownError, u"PT-102"_s, 1);
    add(1, {}, {}, 3);
    add(1, wordsOf101, u"PT-102"_s, 1);
    // The third: no standard has been counted.
    add(4, noError, u"PT-102"_s, 2);
    add(1, noError, u"PT-101"_s, 2);
    for (int n = 1; n <= expected.size(); ++n) {
        link.runs.clear();
        for (const auto& tag : {u"PT-101"_s, u"PT-102"_s, u"PT-101"_s}) {
            auto& run = store(tag, {at(50, 50), at(100, 100)});
            run.hour = static_cast<qint16>(n / 20);
            run.minute = static_cast<qint16>(n % 20 * 3 + link.runs.size() - 1);
            run.second = 1;
        }
        failAtRead(n, 2021);
        const auto& failure = expected[n - 1];
        if (!failure.words.isEmpty())
            expectFailureBox(failure.words, failure.name);
        const auto before = verdicts().size();
        EXPECT_EQ(upload(), QString()) << "read " << n;
        EXPECT_EQ(verdicts().size() - before, failure.records) << "read " << n;
    }
}

TEST_F(FlukeUploadFailures, EntriesOneHundredToOneHundredAndFiveShowTheWarningsOfTheirNumbers) {
    configure(u"1401"_s, u"repetitions = 40"_s);
    addGoodRun();
    const struct {
        int entry;
        QString words;
    } rows[] = {
        {99, unknownError},
        {100, u"Turning off loop power (DPCWARN_BAD_LOOP)"_s},
        {101, wordsOf101},
        {102, u"Turning off the source (DPCWARN_BAD_OUTPUT)"_s},
        {103, u"Don't forget that you have high voltage applied! (DPCWARN_DANGER_VOLTAGE)"_s},
        {104, u"Turning off loop power and setting measure function to VDC (DPCWARN_BAD_INPUT_LOOP)"_s},
        {105, u"Turning off source and loop power (DPCWARN_BAD_OUTPUT_LOOP)"_s},
        {106, unknownError},
    };
    for (const auto& row : rows) {
        link.answer(u"MEMcalResultEntry"_s, 2014, row.entry * 7 + 1);
        expectFailureBox(row.words, u"PT-101"_s);
        EXPECT_EQ(upload(), QString()) << row.entry;
    }
}

TEST_F(FlukeUploadFailures, TheNumberOfPointsIsLeftByARunBeforeOnlyUntilItsFieldsAreFilled) {
    // Two standards in use leave 2, whatever the points were.
    ModuleGlobals::AddInUse(session, u"6841207"_s, u"1401"_s, u"asmith"_s);
    execute(u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag, entered_date, mtag) "
            "select '1209', entered_date, mtag from mt.hvm_kv_task_standards_inuse"_s);
    configure(u"1401"_s, u"repetitions = 34"_s); // 102 entries
    store(u"PT-101"_s, {});
    addGoodRun(u"PT-102"_s);
    link.answer(u"MEMrDir"_s, 2014, 2);
    expectFailureBox(unknownError, u"PT-101"_s);
    EXPECT_EQ(upload(), QString());
}

TEST_F(FlukeUploadFailures, ARunWithoutATagIsNamedByNothing) {
    addGoodRun();
    addGoodRun(QString());
    addGoodRun();
    link.answer(u"MEMrDir"_s, 2014, 3);
    expectFailureBox(noError, {});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts().size(), 1);
}

TEST_F(FlukeUploadFailures, ACutTagIsNamedByItsWholeAsset) {
    const auto asset = u"PRESSURE-TRANSMITTER-UNIT-1-HDR-007"_s;
    execute(u"update mt.inventory set i4201 = '"_s + asset + u"' where mtag = '1401'"_s);
    addGoodRun(asset.left(29));
    link.answer(u"MEMcalResult"_s, 2014);
    expectFailureBox(noError, asset);
    EXPECT_EQ(upload(), QString());
}

TEST_F(FlukeUploadFailures, AnIncompleteRunEndsTheUploadAtItsFirstMissingEntry) {
    addGoodRun();
    addGoodRun(u"PT-102"_s).entries.removeLast();
    addGoodRun();
    link.answer(u"MEMcalResultEntry"_s, 2014, 3 * 7 + 2 * 7 + 1);
    expectFailureBox(unknownError, u"PT-102"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1401"_s});
    EXPECT_EQ(lines().size(), 3);
}

TEST_F(FlukeUploadFailures, TheNextUploadLosesNothingAndDoublesNothing) {
    addGoodRun();
    addGoodRun(u"PT-102"_s);
    link.answer(u"MEMcalResult"_s, 2014, 2);
    expectFailureBox(noError, u"PT-102"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1401"_s});
    expectRefusal();
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), (QStringList{u"1401"_s, u"1402"_s}));
}

TEST_F(FlukeUploadFailures, TheStatusesOfClearingAndCountingDoNotMatter) {
    addGoodRun();
    link.answer(u"MEMclear"_s, 2013);
    link.answer(u"MEMstats"_s, 2013);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts().size(), 1);
}

TEST_F(FlukeUploadFailures, ALinkThatFailsHasReadNothing) {
    addGoodRun();
    link.answer(u"DPCopen"_s, 2019, 1);
    EXPECT_EQ(upload(), u"Communications with calibrator failed! (DPCERR_COMM_NOT_CONNECTED)"_s);
    EXPECT_EQ(link.calls.first(), u"MEMclear()"_s);
    EXPECT_EQ(link.callsOf(u"MEMstats"_s), QStringList());
    EXPECT_EQ(verdicts(), QStringList());
}

TEST_F(FlukeUploadFailures, AWarningDuringATransferIsShownAndWhatHasComeIsRead) {
    addGoodRun();
    link.steps = 3;
    link.answer(u"DPCuplStep"_s, 100, 2);
    expectFailureBox(u"Turning off loop power (DPCWARN_BAD_LOOP)"_s, {});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(link.callsOf(u"DPCuplStep"_s).size(), 2);
    EXPECT_EQ(verdicts().size(), 1);
}

TEST_F(FlukeUploadFailures, AWarningBeforeTheCalibratorIsKnownLeavesItsRecordsWithoutStandards) {
    addGoodRun().pressureModule = u"71204"_s;
    link.answer(u"DPCopen"_s, 100, 1);
    expectFailureBox(u"Turning off loop power (DPCWARN_BAD_LOOP)"_s, {});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts().size(), 1);
    EXPECT_EQ(standards(), QStringList()) << "the first row is empty, which ends the list";
}

TEST_F(FlukeUploadFailures, ACalibratorWithoutARecordHasItsWordsAndReadsNothing) {
    link.serial = u"0000000"_s;
    addGoodRun();
    EXPECT_EQ(upload(),
              u"Asset Number for Calibrator NOT Found In Database! A record for the calibrator must "
              "be created before uploading results."_s);
    EXPECT_EQ(link.callsOf(u"MEMstats"_s), QStringList());
}

TEST_F(FlukeUploadFailures, ANegativeCountIsAnEmptyCalibrator) {
    addGoodRun();
    link.storedRuns = -1;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(link.callsOf(u"MEMrDir"_s), QStringList());
}

TEST_F(FlukeUploadFailures, ACountAboveWhatIsThereReadsHeadersOfZeros) {
    addGoodRun();
    link.storedRuns = 3;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts().size(), 1);
    EXPECT_EQ(link.callsOf(u"MEMrDir"_s).size(), 1 + 2 * (1 + 4 + 3));
}

TEST_F(FlukeUploadFailures, ALostDatabaseEndsTheUploadAfterTheCurrentRunWithItsReadingsKept) {
    addGoodRun();
    addGoodRun(u"PT-102"_s);
    link.onCall = [this](const QString& name) {
        if (name == u"MEMcalResult")
            sharedConnection(session).close();
    };
    for (const auto& reported : {u"GetTestPointList"_s, u"GetCalParams"_s, u"TranslateSpanTestTolSingle"_s,
                                 u"GetInUseData"_s, u"AssetfromSerial"_s, u"GetInUseData"_s})
        ui.expectReport(3709, u"ModuleGlobals,"_s + reported);
    EXPECT_EQ(upload(), text(TextId::connectionLostAdvice));
    const auto left = Journal(session).unfinished();
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(left[0].asset, u"PT-101"_s);
    EXPECT_EQ(left[0].readings.size(), 3) << "as many as the run holds, though the points are unknown";
    EXPECT_FALSE(left[0].prepared);
}

TEST_F(FlukeUploadFailures, ATagWithAQuoteEndsInReportsAndTheNextRunIsRead) {
    addGoodRun(u"LT-10'COL"_s);
    addGoodRun(u"PT-102"_s);
    const struct {
        int number;
        QString routine;
    } reports[] = {
        {1, u"FirstCal"_s},     {1, u"SourceColumn"_s},
        {1, u"SourceColumn"_s}, {1, u"SourceColumn"_s},
        {1, u"GetCalParams"_s}, {1, u"GetTestPointList"_s},
        {1, u"GetCalParams"_s}, {11, u"TranslateSpanTestTolSingle"_s},
        {1, u"GetInUseData"_s},
    };
    for (const auto& report : reports)
        ui.expectReport(report.number, u"ModuleGlobals,"_s + report.routine);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1402"_s});
    EXPECT_EQ(Journal(session).unfinished().size(), 1);
}

} // namespace kelvane::testing
