#include "data/assets/in_use.h"

#include "data/routine.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

const auto assetOfSerial = u"select i4201 from MT.inventory where i4206 = '702-1'"_s;
const auto keyOfAsset = u"select mtag from MT.inventory where i4201 = 'CAL-702'"_s;
const auto dataOfPair = u"select serial_number,entered_date,mtag,tech from mt.hvm_kv_task_inuse where "
                        "serial_number = '702-1' and mtag = '4711'"_s;
const auto standardsOfAsset =
    u"select i4201 from MT.inventory where mtag in (select standard_mtag from mt.hvm_kv_task_standards_inuse "
    "where mtag = (select mtag from MT.inventory where i4201 = 'PT-1'))"_s;

class InUse : public RecordedSession {
  protected:
    /// The calibrator with serial number 702-1 is the asset CAL-702 with the key 99.
    void answerCalibrator() {
        script.answers[assetOfSerial] = {{u"CAL-702"_s}};
        script.answers[keyOfAsset] = {{u"99"_s}};
    }
};

} // namespace

TEST_F(InUse, RegisteringWritesTheInstrumentAndTheCalibratorAsItsStandard) {
    answerCalibrator();
    AddInUse(session, u"702-1"_s, u"4711"_s, u"jdoe"_s);
    EXPECT_EQ(
        script.statements,
        (QStringList{
            assetOfSerial,
            keyOfAsset,
            u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('702-1',now(*),'4711','jdoe');commit"_s,
            u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values ('99',now(*),'4711');commit"_s,
        }));
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
}

TEST_F(InUse, AnEmptyTechnicianIsStoredAsNull) {
    answerCalibrator();
    AddInUse(session, u"702-1"_s, u"4711"_s, {});
    EXPECT_EQ(
        script.statements.at(2),
        u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('702-1',now(*),'4711',NULL);commit"_s);
}

TEST_F(InUse, AnUnknownCalibratorIsRegisteredWithAnEmptyKey) {
    AddInUse(session, u"702-1"_s, u"4711"_s, u"jdoe"_s);
    EXPECT_EQ(script.statements.at(1), u"select mtag from MT.inventory where i4201 = ''"_s);
    EXPECT_EQ(
        script.statements.at(3),
        u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values ('',now(*),'4711');commit"_s);
}

TEST_F(InUse, AFailedFirstInsertLeavesTheSecondOut) {
    answerCalibrator();
    script.failures
        [u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('702-1',now(*),'4711','O-B');commit"_s] =
        Error{-131, u"Syntax error"_s};
    ui.expectReport(-131, u"ModuleGlobals,AddInUse"_s);
    AddInUse(session, u"702-1"_s, u"4711"_s, u"O-B"_s);
    EXPECT_EQ(script.statements.size(), 3);
    EXPECT_FALSE(ui.busy);
}

TEST_F(InUse, AFailedQueryIsReportedByItselfAndTheRegistrationGoesOn) {
    script.failures[assetOfSerial] = Error{-210, u"Locked"_s};
    ui.expectReport(-210, u"ModuleGlobals,AssetfromSerial"_s);
    AddInUse(session, u"702-1"_s, u"4711"_s, u"jdoe"_s);
    EXPECT_EQ(script.statements.size(), 4);
}

TEST_F(InUse, ClearingForgetsTheCalibratorAndEverythingOlderThanThirtyDays) {
    answerCalibrator();
    ClearInUse(session, u"702-1"_s);
    EXPECT_EQ(
        script.statements,
        (QStringList{
            assetOfSerial,
            keyOfAsset,
            u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = '702-1';commit"_s,
            u"delete from mt.hvm_kv_task_standards_inuse where entered_date < now(*) - 30 or standard_mtag = '99';commit"_s,
        }));
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
}

TEST_F(InUse, AFailedClearingStopsAndIsReported) {
    answerCalibrator();
    script.failures
        [u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = '702-1';commit"_s] =
        Error{-210, u"Locked"_s};
    ui.expectReport(-210, u"ModuleGlobals,ClearInUse"_s);
    ClearInUse(session, u"702-1"_s);
    EXPECT_EQ(script.statements.size(), 3);
    EXPECT_FALSE(ui.busy);
}

TEST_F(InUse, TheDataOfAPairSayWhenAndWhoAndLeaveTheKeysToTheCaller) {
    script.answers[dataOfPair] = {{u"702-1"_s, u"2026-03-11 14:05:09"_s, u"4711"_s, u"asmith"_s}};
    const auto data = GetInUseData(session, u"702-1"_s, u"4711"_s);
    EXPECT_EQ(data.tech, u"asmith"_s);
    EXPECT_EQ(data.entered_date, (Moment{QDate(2026, 3, 11), QTime(14, 5, 9)}));
    EXPECT_EQ(data.serial_number, QString());
    EXPECT_EQ(data.mtag, QString());
    EXPECT_EQ(script.firstRowOnly, QStringList{dataOfPair});
}

TEST_F(InUse, AMomentWithAFractionOfASecondIsReadWhateverTheSessionsDateFormat) {
    for (const auto& format : {u"MM/DD/YYYY"_s, u"DD/MM/YYYY"_s, u"YYYY/MM/DD"_s, QString()}) {
        session.SessionDateFormat = format;
        script.answers[dataOfPair] = {{u"702-1"_s, u"2026-03-11 14:05:09.254000"_s, u"4711"_s, std::nullopt}};
        EXPECT_EQ(GetInUseData(session, u"702-1"_s, u"4711"_s).entered_date,
                  (Moment{QDate(2026, 3, 11), QTime(14, 5, 9)}))
            << format.toStdString();
    }
}

TEST_F(InUse, APairThatIsNotRegisteredGivesEmptyValuesAndNoError) {
    const auto data = GetInUseData(session, u"702-1"_s, u"4711"_s);
    EXPECT_EQ(data.tech, QString());
    EXPECT_TRUE(data.entered_date.isEmpty());
}

TEST_F(InUse, NullsOfAPairStayEmpty) {
    script.answers[dataOfPair] = {{u"702-1"_s, std::nullopt, u"4711"_s, std::nullopt}};
    const auto data = GetInUseData(session, u"702-1"_s, u"4711"_s);
    EXPECT_EQ(data.tech, QString());
    EXPECT_TRUE(data.entered_date.isEmpty());
}

TEST_F(InUse, AMomentThatIsNoneIsReported) {
    script.answers[dataOfPair] = {{u"702-1"_s, u"soon"_s, u"4711"_s, u"asmith"_s}};
    ui.expectReport(13, u"ModuleGlobals,GetInUseData"_s);
    EXPECT_EQ(GetInUseData(session, u"702-1"_s, u"4711"_s).tech, u"asmith"_s);
}

TEST_F(InUse, TheStandardsOfAnInstrumentAreListedInTheirOrder) {
    script.answers[standardsOfAsset] = {{u"STD-2"_s}, {u"STD-1"_s}};
    EXPECT_EQ(GetStandardsInUse(session, u"PT-1"_s), (QStringList{u"STD-2"_s, u"STD-1"_s}));
    EXPECT_EQ(script.statements, QStringList{standardsOfAsset});
}

TEST_F(InUse, TheListHolds51StandardsAndReportsTheNext) {
    auto& rows = script.answers[standardsOfAsset];
    for (int i = 0; i < 51; ++i)
        rows << Row{u"STD-%1"_s.arg(i)};
    const auto standards = GetStandardsInUse(session, u"PT-1"_s);
    ASSERT_EQ(standards.size(), 51);
    EXPECT_EQ(standards[50], u"STD-50"_s);
    rows << Row{u"STD-51"_s};
    ui.expectReport(9, u"ModuleGlobals,GetInUseData"_s);
    EXPECT_EQ(GetStandardsInUse(session, u"PT-1"_s), standards) << "what was read";
}

TEST_F(InUse, AStandardWithoutAssetNumberIsReported) {
    script.answers[standardsOfAsset] = {{u"STD-1"_s}, {std::nullopt}};
    ui.expectReport(94, u"ModuleGlobals,GetInUseData"_s);
    EXPECT_EQ(GetStandardsInUse(session, u"PT-1"_s), QStringList{u"STD-1"_s}) << "what was read";
}

namespace {

const auto lastStandardOfAsset =
    u"select i4201 from MT.inventory where mtag = (select standard_mtag from mt.hvm_kv_last_standards_used "
    "where mtag = (select mtag from MT.inventory where i4201 = 'PT-1'))"_s;

} // namespace

TEST_F(InUse, StandardsOfAnInstrumentAreWrittenAndForgottenByTheirAssetNumbers) {
    Routine routine(session, u"Test,Standards"_s);
    addStandardInUse(session, routine, u"STD-1"_s, u"PT-1"_s);
    clearStandardsInUse(session, routine, u"PT-1"_s);
    addLastStandard(session, routine, u"STD-1"_s, u"PT-1"_s);
    forgetLastStandard(session, routine, u"PT-1"_s);
    const auto standard = u"(select mtag from MT.inventory where i4201 = 'STD-1')"_s;
    const auto asset = u"(select mtag from MT.inventory where i4201 = 'PT-1')"_s;
    EXPECT_EQ(
        script.statements,
        (QStringList{
            u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values (%1,now(*),%2);commit"_s
                .arg(standard, asset),
            u"delete from mt.hvm_kv_task_standards_inuse where mtag = %1;commit"_s.arg(asset),
            u"insert into mt.hvm_kv_last_standards_used (standard_mtag,entered_date,mtag) values (%1,now(*),%2);commit"_s
                .arg(standard, asset),
            u"delete from mt.hvm_kv_last_standards_used where mtag = %1;commit"_s.arg(asset)}));
}

TEST_F(InUse, TheLastStandardOfAnInstrumentIsEmptyWhenItIsNotKnown) {
    Routine routine(session, u"Test,Standards"_s);
    EXPECT_EQ(lastStandard(session, routine, u"PT-1"_s), QString());
    script.answers[lastStandardOfAsset] = {{u"STD-1"_s}};
    EXPECT_EQ(lastStandard(session, routine, u"PT-1"_s), u"STD-1"_s);
    EXPECT_EQ(script.firstRowOnly, (QStringList{lastStandardOfAsset, lastStandardOfAsset}));
    script.answers[lastStandardOfAsset] = {{std::nullopt}};
    EXPECT_THROW(lastStandard(session, routine, u"PT-1"_s), Error);
}

namespace {

const QStringList sweep{
    u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 90;commit"_s,
    u"delete from mt.hvm_kv_task_standards_inuse where entered_date < now(*) - 90;commit"_s,
    u"delete from mt.hvm_kv_task_assets where tptag in (select tptag from mt.hvm_kv_task_packages where created_on < now(*) - 90);commit"_s,
    u"delete from mt.hvm_kv_task_packages where created_on < now(*) - 90;commit"_s,
    u"delete from mt.hvm_kv_task_assets where tptag not in (select tptag from mt.hvm_kv_task_packages)"_s,
};

} // namespace

TEST_F(InUse, TheSweepRunsItsFiveStatementsOfWhichTheLastHasNoCommit) {
    ClearSystemTables(session);
    EXPECT_EQ(script.statements, sweep);
}

TEST_F(InUse, AFailedStepOfTheSweepEndsItWithAReport) {
    for (qsizetype failed = 0; failed < sweep.size(); ++failed) {
        script.statements.clear();
        script.failures = {{sweep.at(failed), Error{-210, u"Locked"_s}}};
        ui.expectReport(-210, u"ModuleGlobals,ClearSystemTables"_s);
        ClearSystemTables(session);
        EXPECT_EQ(script.statements, sweep.first(failed + 1));
    }
}

} // namespace kelvane::testing
