// Runs of the Fluke 743 and 744 whose preparation failed and whose records are made later.

#include "data/assets/in_use.h"
#include "data/journal/journal.h"
#include "testkit/scripted_params.h"
#include "tests/drivers/fluke74x/upload_fixture.h"
#include "tests/workflow/unfinished_results_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class Fluke74xResultsWithoutRecord : public UnfinishedResultsOf<Fluke74xUpload> {
  protected:
    /// Two runs of PT-101, of which only the first passes, by a technician without a name, with a module on
    /// each side. The instrument is in use, with a multimeter as its standard.
    void addTwoRuns() {
        ModuleGlobals::AddInUse(session, link.serial, u"1401"_s, u"asmith"_s);
        execute(
            u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag, entered_date, mtag) "
            "select '1209', entered_date, mtag from mt.hvm_kv_task_standards_inuse where mtag = '1401'"_s);
        addGroup();
        for (auto steps : {good(), bad()}) {
            steps[0].buckets << textBucket(u"spserial"_s, u"71118"_s)
                             << textBucket(u"mpserial"_s, u"71204"_s);
            addRun(steps);
            lastTag().technician = u"None"_s;
        }
    }
    /// Uploads what there is while the parameters of PT-101 can't be read: no record is made.
    void uploadWithoutParameters(int runs) {
        for (int run = 0; run < runs; ++run) {
            ui.expectReport(1, u"ModuleGlobals,GetCalParams"_s);
            ui.expectReport(1, u"ModuleGlobals,GetCalParams"_s);
            ui.expectReport(11, u"ModuleGlobals,TranslateSpanTestTolSingle"_s);
        }
        uploadWithout(calParamsStatement(u"MT"_s, u"PT-101"_s));
    }
    void uploadWithout(const QString& beginning) {
        spoil(beginning);
        EXPECT_EQ(upload(), QString());
        spoil({});
        EXPECT_EQ(verdicts(), QStringList());
    }
    void expectRecordsOfTwoRuns() {
        const auto left = Journal(session).unfinished();
        ASSERT_EQ(left.size(), 2);
        for (const auto& entry : left) {
            EXPECT_EQ(entry.driver, u"fluke74x"_s);
            EXPECT_EQ(entry.asset, u"PT-101"_s);
            EXPECT_FALSE(entry.prepared);
        }
        expectMade();
        expectMade();
        EXPECT_TRUE(unfinishedResults(session).isEmpty());
        EXPECT_EQ(verdicts(), (QStringList{u"AS-FOUND Y 0 0"_s, u"AS-LEFT N 1 0"_s}));
        EXPECT_EQ(records(u"c2333"_s), (QStringList{u"08:00:30"_s, u"08:04:30"_s}))
            << "the later one is moved by as many minutes as it has steps";
        EXPECT_EQ(records(u"c2307"_s), QStringList(2, u"asmith"_s));
        const QStringList used{u"1205"_s, u"1206"_s, u"1103"_s, u"1209"_s};
        EXPECT_EQ(standards(), used + used);
        EXPECT_EQ(lines().size(), 6);
        expectSameAsUndisturbed();
    }
};

TEST_F(Fluke74xResultsWithoutRecord, ForWantOfParametersBecomeTheRecordsOfAnUndisturbedUpload) {
    addTwoRuns();
    uploadWithoutParameters(2);
    expectRecordsOfTwoRuns();
}

TEST_F(Fluke74xResultsWithoutRecord, ForWantOfTheRegistryBecomeTheRecordsOfAnUndisturbedUpload) {
    addTwoRuns();
    ui.expectReport(1, u"ModuleGlobals,GetInUseData"_s);
    ui.expectReport(1, u"ModuleGlobals,GetInUseData"_s);
    uploadWithout(u"select serial_number,entered_date"_s);
    expectRecordsOfTwoRuns();
}

TEST_F(Fluke74xResultsWithoutRecord, ForWantOfRepetitionsBecomeTheRecordsOfAnUndisturbedUpload) {
    addTwoRuns();
    configure(u"1401"_s, u"repetitions = 0"_s);
    ui.expectReport(11, routine);
    ui.expectReport(11, routine);
    EXPECT_EQ(upload(), QString());
    configure(u"1401"_s, u"repetitions = 1"_s);
    expectRecordsOfTwoRuns();
}

TEST_F(Fluke74xResultsWithoutRecord, TheTagsOwnTechnicianStays) {
    addGoodRun();
    ModuleGlobals::AddInUse(session, link.serial, u"1401"_s, u"asmith"_s);
    uploadWithoutParameters(1);
    expectMade();
    EXPECT_EQ(records(u"c2307"_s), QStringList{u"Joe Doe"_s});
    expectSameAsUndisturbed();
}

TEST_F(Fluke74xResultsWithoutRecord, OfAnUnfinishedReadingStayInTheJournal) {
    addGroup();
    addRun(QList<StoredStep>(102, at(50, 50)));
    ui.expectReport(9, routine);
    EXPECT_EQ(upload(), QString());
    for (int attempt = 0; attempt < 2; ++attempt)
        expectKept(u"PT-101: the calibrator has stored 102 readings, and 101 of them could be read. The "
                   "results are kept."_s);
    EXPECT_EQ(verdicts(), QStringList());
}

TEST_F(Fluke74xResultsWithoutRecord, StepsLeftOverGiveNoPoint) {
    configure(u"1401"_s, u"repetitions = 3"_s);
    addGroup();
    addRun(QList<StoredStep>(6, at(50, 50)) << at(50, 60, 10));
    uploadWithoutParameters(1);
    expectMade();
    EXPECT_EQ(lines(), (QStringList{u"1 50.000V 50.000V PASS"_s, u"2 50.000V 50.000V PASS"_s}));
    EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 0"_s});
    expectSameAsUndisturbed();
}

TEST_F(Fluke74xResultsWithoutRecord, FewerStepsThanRepetitionsMakeARecordWithoutLinesThatSaysPassed) {
    configure(u"1401"_s, u"repetitions = 3"_s);
    addGroup();
    addRun({at(50, 60, 10), at(50, 60, 10)});
    uploadWithoutParameters(1);
    expectMade();
    EXPECT_EQ(lines(), QStringList());
    EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 0"_s});
    expectSameAsUndisturbed();
}

TEST_F(Fluke74xResultsWithoutRecord, OfATagOfTwentyNineCharactersAreFoundBySerialNumber) {
    const auto longAsset = u"PRESSURE-TRANSMITTER-UNIT-1-HDR-007"_s;
    const auto cutTag = longAsset.left(29);
    execute(u"update mt.inventory set i4201 = '"_s + longAsset + u"' where mtag = '1401'"_s);
    addGoodRun(cutTag);
    ui.expectReport(11, routine); // no instrument of that number
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(unfinishedResults(session).value(0).asset, cutTag);
    expectMade(0, cutTag); // under the name that the list has
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1401"_s});
    EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 0"_s});
    EXPECT_EQ(lines().size(), 3);
}

} // namespace kelvane::testing
