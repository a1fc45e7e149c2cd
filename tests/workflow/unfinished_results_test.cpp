#include "workflow/unfinished_results.h"

#include "data/assets/in_use.h"
#include "data/journal/journal.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "tests/drivers/fluke702/upload_fixture.h"
#include "tests/platform/errors.h"
#include "tests/workflow/unfinished_results_fixture.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString kept = u" The results are kept."_s;

} // namespace

class ResultsWithoutRecord : public UnfinishedResultsOf<FlukeUpload> {
  protected:
    /// Uploads one run of PT-101, whose record is spoilt before the statement that begins like this.
    void uploadSpoilt(const QString& beginning) {
        addGoodRun();
        spoil(beginning);
        ui.expectReport(1, u"ModuleGlobals,CreateCalRecord"_s);
        EXPECT_EQ(upload(), QString());
        spoil({});
    }
    void expectOneWholeRecord() {
        EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 0"_s});
        EXPECT_EQ(lines(), wholeLines);
        EXPECT_EQ(standards().size(), 1);
        EXPECT_TRUE(unfinishedResults(session).isEmpty());
    }
    void change(const QString& key, const QJsonValue& value) {
        auto entry = Journal(session).unfinished().first();
        if (key == u"date"_s)
            entry.date = value.toString();
        if (key == u"time"_s)
            entry.time = value.toString();
        if (key == u"owner"_s)
            entry.owner = value.toString();
        if (key == u"driver"_s)
            entry.driver = value.toString();
        Journal(session).replace(entry);
    }

    const QStringList wholeLines{u"1 0.000V 0.000V PASS"_s, u"2 50.000V 50.000V PASS"_s,
                                 u"3 100.000V 100.000V PASS"_s};
};

TEST_F(ResultsWithoutRecord, AreListedWithAllThatDistinguishesThem) {
    EXPECT_TRUE(unfinishedResults(session).isEmpty());
    uploadSpoilt(u"insert into MT.calibration"_s);
    const auto results = unfinishedResults(session);
    ASSERT_EQ(results.size(), 1);
    EXPECT_EQ(results[0].asset, u"PT-101"_s);
    EXPECT_EQ(results[0].date, u"2026-03-18 08:00:30"_s);
    EXPECT_EQ(results[0].calibrator, u"Fluke 702"_s);
    EXPECT_EQ(results[0].why,
              u"An error was reported while the record was being made. It may be incomplete."_s);
    ASSERT_EQ(results[0].readings.size(), 3);
    EXPECT_EQ(results[0].readings[1].simplified(), u"2 50.000V 50.000V PASS"_s);
}

TEST_F(ResultsWithoutRecord, AreThoseOfTheirDataSourceAlone) {
    uploadSpoilt(u"insert into MT.calibration"_s);
    session.SessionDataSource = u"another"_s;
    EXPECT_TRUE(unfinishedResults(session).isEmpty());
}

TEST_F(ResultsWithoutRecord, NothingBegunIsMadeOnTheWayOfANewRecord) {
    uploadSpoilt(u"insert into MT.calibration"_s);
    EXPECT_EQ(verdicts(), QStringList());
    expectMade();
    expectOneWholeRecord();
    EXPECT_EQ(records(u"c2307 || c2320 || cdsrc"_s), QStringList{u"Joe DoeROUNDKVN"_s});
}

TEST_F(ResultsWithoutRecord, WhatWasBegunIsCompletedAndNothingIsDoubledOrDeleted) {
    for (const auto& beginning :
         {u"select scopy,fldnum"_s, u"select fldnum,dcopy"_s, u"insert into mt.standards"_s,
          u"insert into mt.calresults (c2501,c2502,mtag,ctag) values ('  1"_s,
          u"insert into mt.calresults (c2501,c2502,mtag,ctag) values ('  3"_s}) {
        SCOPED_TRACE(beginning.toStdString());
        deleteRecords();
        link.runs.clear();
        uploadSpoilt(beginning);
        ASSERT_EQ(verdicts().size(), 1) << "begun";
        EXPECT_LT(lines().size(), 3);
        statements.clear();
        expectMade();
        expectOneWholeRecord();
        EXPECT_TRUE(statements.filter(u"delete "_s).isEmpty());
        EXPECT_TRUE(statements.filter(u"insert into MT.calibration"_s).isEmpty());
    }
}

TEST_F(ResultsWithoutRecord, OfAnInstrumentThatAnotherWorkstationRecordsAreMadeAfterwards) {
    const auto other = database.connect();
    other->lock(u"mt.1401"_s);
    addGoodRun();
    ui.expectReport(70, u"ModuleGlobals,CreateCalRecord"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList()) << "nothing was written";
    ASSERT_EQ(unfinishedResults(session).size(), 1);
    ui.expectReport(70, u"Journal,MakeRecord"_s);
    expectKept(u"There is no complete record of PT-101 yet."_s + kept);
    other->unlock(u"mt.1401"_s);
    expectMade();
    expectOneWholeRecord();
    EXPECT_EQ(errorOf([&] { other->lock(u"mt.1401"_s); }), 0) << "it is given back";
}

TEST_F(ResultsWithoutRecord, ABegunRecordOfAnInstrumentThatAnotherWorkstationRecordsIsCompletedAfterwards) {
    uploadSpoilt(u"insert into mt.calresults"_s);
    const auto other = database.connect();
    other->lock(u"mt.1401"_s);
    ui.expectReport(70, u"Journal,MakeRecord"_s);
    expectKept(u"There is no complete record of PT-101 yet."_s + kept);
    EXPECT_EQ(lines(), QStringList());
    other->unlock(u"mt.1401"_s);
    expectMade();
    expectOneWholeRecord();
    EXPECT_EQ(errorOf([&] { other->lock(u"mt.1401"_s); }), 0) << "it is given back";
}

TEST_F(ResultsWithoutRecord, ARecordThatIsWholeAlreadyGetsNothingButItsCopies) {
    execute(u"update mt.inventory set i4224 = 'RECALLED' where mtag = '1401'"_s);
    addGoodRun();
    spoil(u"update MT.inventory set I4224"_s);
    ui.expectReport(1, u"ModuleGlobals,DestColumn"_s);
    EXPECT_EQ(upload(), QString());
    spoil({});
    statements.clear();
    expectMade();
    expectOneWholeRecord();
    EXPECT_TRUE(statements.filter(u"insert "_s).isEmpty());
    EXPECT_EQ(value(u"select count(*) from mt.inventory where mtag = '1401' and i4224 is null"_s), u"1"_s);
}

TEST_F(ResultsWithoutRecord, ARecordThatIsNoLongerTheCurrentOneIsNotCopied) {
    uploadSpoilt(u"insert into mt.calresults"_s);
    link.runs.clear();
    addGoodRun().hour = 20;
    EXPECT_EQ(upload(), QString());
    execute(u"update mt.inventory set i4224 = 'RECALLED' where mtag = '1401'"_s);
    statements.clear();
    expectMade();
    EXPECT_EQ(lines(), wholeLines + wholeLines);
    EXPECT_TRUE(statements.filter(u"update "_s).isEmpty());
}

TEST_F(ResultsWithoutRecord, ADictionaryWhoseCopyTheServerRefusesDoesNotKeepTheRecordFromBeingDone) {
    execute(u"update mt.customiz set scopy = '2329' where fldnum = '2326'"_s);
    addGoodRun();
    ui.expectReport(1, u"ModuleGlobals,DestColumn"_s);
    EXPECT_EQ(upload(), QString());
    ui.expectReport(1, u"ModuleGlobals,DestColumn"_s);
    expectMade();
    expectOneWholeRecord();
}

TEST_F(ResultsWithoutRecord, ARecordOfTheSameMomentWithOtherResultsIsLeftAlone) {
    uploadSpoilt(u"insert into mt.calresults"_s);
    execute(u"insert into mt.calresults (c2501, c2502, mtag, ctag) values ('other', '1', '1401', %1)"_s.arg(
        firstRecord));
    const auto before = lines();
    expectKept(u"There is a record of PT-101 of this date and time with other results. It was left as it is, "
               "and the results are kept."_s);
    EXPECT_EQ(lines(), before);
}

TEST_F(ResultsWithoutRecord, AFailedPreparationIsJudgedFromItsRawReadings) {
    addGoodRun();
    auto& bad = store(u"PT-101"_s, {at(0, 0), at(50, 50), at(100, 90, -0.1F)}, 2);
    bad.pressureModule = u"71204"_s;
    ModuleGlobals::AddInUse(session, link.serial, u"1401"_s, u"asmith"_s);
    spoil(u"select serial_number,entered_date"_s);
    ui.expectReport(1, u"ModuleGlobals,GetInUseData"_s);
    ui.expectReport(1, u"ModuleGlobals,GetInUseData"_s);
    EXPECT_EQ(upload(), QString());
    spoil({});
    EXPECT_EQ(verdicts(), QStringList());
    EXPECT_EQ(unfinishedResults(session)[0].readings[1],
              u"2: applied 50, read 50 (in the calibrator's units)"_s);
    expectMade();
    expectMade();
    EXPECT_EQ(verdicts(), (QStringList{u"AS-FOUND Y 0 0"_s, u"AS-LEFT N 1 0"_s}));
    expectSameAsUndisturbed();
}

TEST_F(ResultsWithoutRecord, JudgeAgainByTheParametersOfNow) {
    uploadSpoilt(u"insert into MT.calibration"_s);
    link.runs.clear();
    configure(u"1401"_s, u"output_low = 10, output_high = 110"_s);
    expectMade();
    EXPECT_EQ(verdicts(), QStringList{u"AS-FOUND N 3 0"_s});
}

TEST_F(ResultsWithoutRecord, ADateThatIsNoneIsAskedForAndFoundAgain) {
    auto& run = addGoodRun();
    run.month = 2;
    run.day = 30;
    ui.expectReport(13, routine);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(unfinishedResults(session)[0].date, QString());
    const auto title = u"Make Record"_s;
    const auto askDate = u"Date of the calibration of PT-101:"_s;
    const auto askTime = u"Time of the calibration of PT-101:"_s;
    const auto isOf = [](FieldKind kind) {
        return [kind](const DialogQuestion& question) {
            EXPECT_TRUE(question.required);
            EXPECT_EQ(question.fieldType, static_cast<qint16>(kind));
        };
    };
    ui.expectDialog(title, askDate, cancelled, isOf(FieldKind::date));
    expectKept(u"No date or time was given."_s + kept);
    ui.expectDialog(title, askDate, u"03/01/2026"_s);
    ui.expectDialog(title, askTime, cancelled, isOf(FieldKind::time));
    expectKept(u"No date or time was given."_s + kept);
    ui.expectDialog(title, askDate, u"03/01/2026"_s);
    ui.expectDialog(title, askTime, u"14:30"_s);
    spoil(u"insert into mt.calresults"_s);
    ui.expectReport(1, u"ModuleGlobals,CreateCalRecord"_s);
    expectKept(u"There is no complete record of PT-101 yet."_s + kept);
    spoil({});
    EXPECT_EQ(unfinishedResults(session)[0].date, u"2026-03-01 14:30:00"_s);
    expectMade(); // without a question
    expectOneWholeRecord();
    EXPECT_EQ(records(u"c2301 || ' ' || c2333"_s), QStringList{u"2026-03-01 14:30:00"_s});
}

TEST_F(ResultsWithoutRecord, ARefusalLeavesTheEntryUnlessItsOwnRecordIsThere) {
    uploadSpoilt(u"insert into MT.calibration"_s);
    // Another program's record of the same moment, which is no record of this program.
    execute(
        u"insert into mt.calibration (mtag, c2301, c2333, cdsrc) values ('1401', '2026-03-18', '08:00:30', 'MTC')"_s);
    expectKept(text(TextId::recordAlreadyExists));
    EXPECT_EQ(verdicts().size(), 1);
}

TEST_F(ResultsWithoutRecord, TheRecordIsSearchedUnderTheOperatorsOtherDate) {
    uploadSpoilt(u"insert into MT.calibration"_s);
    execute(u"insert into mt.hvm_kv_worksheetfields (fldnum, sequence) values ('2301', 1)"_s);
    const auto ask = [this] {
        ui.expectDialog(u"Calibration Record Data (PT-101)"_s,
                        u"Please enter information for: Calibration Date"_s, u"03/20/2026"_s);
    };
    ask();
    spoil(u"insert into mt.calresults"_s);
    ui.expectReport(1, u"ModuleGlobals,CreateCalRecord"_s);
    expectKept(u"There is no complete record of PT-101 yet."_s + kept);
    spoil({});
    expectMade(); // completes what was begun under that date
    expectOneWholeRecord();
    EXPECT_EQ(records(u"c2301"_s), QStringList{u"2026-03-20"_s});
}

TEST_F(ResultsWithoutRecord, ATimeThatTheOperatorHasEmptiedMakesNoRecordUntilHeLeavesIt) {
    execute(u"update mt.customiz set ireq = 'N', sreq = 'N' where fldnum = '2333'"_s);
    uploadSpoilt(u"insert into MT.calibration"_s);
    spoil({});
    execute(u"insert into mt.hvm_kv_worksheetfields (fldnum, sequence) values ('2333', 1)"_s);
    const auto caption = u"Calibration Record Data (PT-101)"_s;
    const auto prompt = u"Please enter information for: Calibration Time"_s;
    ui.expectDialog(caption, prompt, QString());
    ui.expectReport(13, u"ModuleGlobals,CreateCalRecord"_s);
    expectKept(u"There is no complete record of PT-101 yet."_s + kept);
    EXPECT_EQ(records(u"c2301"_s), QStringList());
    ui.expectDialog(caption, prompt, u"10:20"_s);
    expectMade();
    expectOneWholeRecord();
    EXPECT_EQ(records(u"c2333"_s), QStringList{u"10:20:00"_s});
}

TEST_F(ResultsWithoutRecord, AChangedStrategyIsReportedAndTheResultsAreKept) {
    uploadSpoilt(u"insert into MT.calibration"_s);
    configure(u"1401"_s, u"repetitions = 2"_s);
    expectKept(
        u"The test strategy or the repetitions of PT-101 have been changed: there are 3 readings, and 6 "
        "are asked for now."_s +
        kept);
    configure(u"1401"_s, u"repetitions = 1"_s);
    expectMade();
}

TEST_F(ResultsWithoutRecord, ANumberThatBelongsToAnotherInstrumentNowGetsNoRecord) {
    uploadSpoilt(u"insert into MT.calibration"_s);
    execute(u"update mt.inventory set i4201 = 'PT-101-OLD' where mtag = '1401'"_s);
    const auto message =
        u"The inventory no longer has PT-101 as the instrument that was calibrated."_s + kept;
    expectKept(message);
    execute(u"update mt.inventory set i4201 = 'PT-101' where mtag = '1402'"_s);
    expectKept(message);
    EXPECT_EQ(verdicts(), QStringList());
}

TEST_F(ResultsWithoutRecord, AnotherOwnersResultsAreKeptForHim) {
    uploadSpoilt(u"insert into MT.calibration"_s);
    change(u"owner"_s, u"ABC"_s);
    expectKept(
        u"These results belong to the owner ABC. Please log in as one of its users to make the record."_s);
}

TEST_F(ResultsWithoutRecord, ADriverThatThisProgramDoesNotHaveIsReported) {
    uploadSpoilt(u"insert into MT.calibration"_s);
    change(u"driver"_s, u"fluke99"_s);
    expectKept(text(TextId::entryDriverUnknown));
}

TEST_F(ResultsWithoutRecord, AnErrorOrALostConnectionKeepsThem) {
    uploadSpoilt(u"insert into MT.calibration"_s);
    for (const auto& beginning :
         {u"select ctag,c2339"_s, u"select repetitions from"_s, u"insert into MT.cal"_s}) {
        spoil(beginning);
        ui.expectReport(1, beginning.startsWith(u"select ctag"_s)  ? u"Journal,MakeRecord"_s
                           : beginning.startsWith(u"select rep"_s) ? u"ModuleGlobals,GetTestPointList"_s
                                                                   : u"ModuleGlobals,CreateCalRecord"_s);
        const auto outcome = make();
        EXPECT_EQ(outcome.end, End::unfinished) << beginning.toStdString();
        EXPECT_TRUE(outcome.message.endsWith(kept)) << outcome.message.toStdString();
    }
    spoil({});
    sharedConnection(session).close();
    ui.expectReport(3709, u"ModuleGlobals,CheckAsset"_s);
    const auto outcome = make();
    EXPECT_EQ(outcome.message,
              u"The connection to the database is lost. The results are kept; please log in again."_s);
    logIn();
    expectMade();
    expectOneWholeRecord();
}

TEST_F(ResultsWithoutRecord, AJournalThatCantBeWrittenStopsTheNewRecord) {
    uploadSpoilt(u"insert into MT.calibration"_s);
    const auto id = unfinishedResults(session)[0].id;
    ASSERT_TRUE(QDir().mkdir(Journal(session).path() + u".lock"_s)); // nobody gets the lock
    ui.expectReport(75, u"Journal,MakeRecord"_s);
    EXPECT_EQ(makeRecordOf(session, id).end, End::unfinished);
    EXPECT_EQ(verdicts(), QStringList());
}

TEST_F(ResultsWithoutRecord, AnOlderEntryOfTheSameRunEndsWithIt) {
    uploadSpoilt(u"insert into MT.calibration"_s);
    spoil(u"insert into mt.calresults"_s);
    ui.expectReport(1, u"ModuleGlobals,CreateCalRecord"_s);
    EXPECT_EQ(upload(), QString());
    spoil({});
    EXPECT_EQ(unfinishedResults(session).size(), 2);
    expectMade(1);
    expectOneWholeRecord();
}

TEST_F(ResultsWithoutRecord, TheNextUploadEndsThemToo) {
    uploadSpoilt(u"insert into MT.calibration"_s);
    EXPECT_EQ(upload(), QString());
    expectOneWholeRecord();
}

TEST_F(ResultsWithoutRecord, ADiscardedOneIsNotListedAnyMoreAndItsReadingsStayInTheFile) {
    uploadSpoilt(u"insert into MT.calibration"_s);
    const auto id = unfinishedResults(session)[0].id;
    EXPECT_TRUE(discardResult(session, id));
    EXPECT_TRUE(unfinishedResults(session).isEmpty());
    EXPECT_TRUE(folder.read(Journal(session).path()).contains(u"\"entries\""_s));
    const auto outcome = makeRecordOf(session, id);
    EXPECT_EQ(outcome.end, End::unfinished);
    EXPECT_EQ(outcome.message,
              u"These results are not in the journal any more: they have been ended elsewhere."_s);
    EXPECT_EQ(verdicts(), QStringList());
}

TEST_F(ResultsWithoutRecord, AJournalThatCantBeReadIsReportedOnceAndIsEmpty) {
    ASSERT_TRUE(QDir().mkdir(Journal(session).path()));
    ui.expectReport(75, u"Journal,Unfinished"_s);
    EXPECT_TRUE(unfinishedResults(session).isEmpty());
    EXPECT_TRUE(unfinishedResults(session).isEmpty());
    ui.expectReport(75, u"Journal,Change"_s);
    EXPECT_FALSE(discardResult(session, u"any"_s));
    ASSERT_TRUE(QDir().rmdir(Journal(session).path()));
    EXPECT_TRUE(unfinishedResults(session).isEmpty());
    ASSERT_TRUE(QDir().mkdir(Journal(session).path()));
    ASSERT_TRUE(QFile::remove(u"errors.log"_s));
    ASSERT_TRUE(QDir().mkdir(u"errors.log"_s));
    EXPECT_TRUE(unfinishedResults(session).isEmpty()) << "without a log there is no report either";
}

} // namespace kelvane::testing
