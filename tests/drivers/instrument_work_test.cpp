#include "drivers/instrument_work.h"

#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString routine = u"Module702Interface,Fluke702_upload"_s;
// What the record asks the operator for.
const QString worksheetQuery = u"select fldnum from mt.hvm_kv_worksheetfields order by sequence asc"_s;
const QString recordExists =
    u"select c2301 from MT.calibration where c2301 = '2026-03-18' and c2333 = '08:15:30' and mtag = '7'"_s;

} // namespace

/// PT-1 (key 7) during the making of a record that asks the operator for the field C2307.
class WorkOnAnInstrument : public RecordedSession {
  protected:
    WorkOnAnInstrument() {
        script.answers.insert(u"select mtag from MT.inventory where i4201 = 'PT-1'"_s, {{u"7"_s}});
        addField(u"C2301"_s, u"2026-03-18"_s, 1);
        addField(u"C2333"_s, u"08:15:30"_s, 3);
        addField(u"C2303"_s, u"2026-03-19"_s, 1);
        addField(u"C2307"_s, {});
    }

    /// Prepares the instrument and has its record made; `step` is a step of the driver.
    RecordOutcome work(const std::function<void()>& step = [] {}) {
        InstrumentWork work(session, routine);
        work.record = record;
        if (hasLine)
            work.record.RecordResults[0] = u"line"_s;
        work.record.RecordStandards[0] = u"F702-01"_s;
        work.attempt(step);
        work.entry.driver = u"fluke702"_s;
        work.entry.serial = u"6841207"_s;
        work.entry.asset = u"PT-1"_s;
        work.entry.mtag = u"7"_s;
        work.entry.date = u"2026-03-18"_s;
        work.entry.time = u"08:15:30"_s;
        work.entry.raw = {{"points"_L1, u"50"_s}};
        work.entry.readings = readings;
        const auto outcome = work.finish();
        EXPECT_TRUE(ui.hasMetAll());
        return outcome;
    }
    /// The operator is asked for a field, and this happens meanwhile.
    void askFor(const QString& column, const QString& answer, const std::function<void()>& meanwhile = {}) {
        script.answers.insert(worksheetQuery, {{column}});
        ui.expectDialog(u"Calibration Record Data (PT-1)"_s, u"Please enter information for: "_s, answer,
                        [meanwhile](const DialogQuestion&) {
                            if (meanwhile)
                                meanwhile();
                        });
    }
    QList<JournalEntry> unfinished() const { return Journal(session).unfinished(); }
    bool hasRecord() const { return !script.statements.filter(u"insert into MT.calibration"_s).isEmpty(); }
    static Error serverError() { return {-158, u"Value out of range"_s}; }
    QString insert() const { return script.statements.filter(u"insert into MT.calibration"_s).value(0); }

    using End = RecordOutcome::End;
    QStringList readings{u"1: 50"_s};
    bool hasLine = true;
    CalRecord record;

  private:
    void addField(const QString& column, const QString& value, qint16 type = 0) {
        auto& field = record.CalFieldTable[fields_++];
        field.column = column;
        field.value = value;
        field.field_type = type;
    }
    int fields_ = 0;
};

TEST_F(WorkOnAnInstrument, IsInTheJournalBeforeTheRecordIsMadeAndHasEndedAfterIt) {
    askFor(u"2307"_s, u"Joe"_s, [&] {
        EXPECT_FALSE(hasRecord());
        const auto entries = unfinished();
        ASSERT_EQ(entries.size(), 1);
        EXPECT_EQ(entries[0].asset, u"PT-1"_s);
        EXPECT_EQ(entries[0].lines, QStringList{u"line"_s});
        EXPECT_EQ(entries[0].standards, QStringList{u"F702-01"_s});
        EXPECT_EQ(entries[0].fields.size(), 4);
        EXPECT_TRUE(entries[0].prepared);
        EXPECT_EQ(entries[0].why, u"The program ended before the record was complete."_s);
    });
    const auto outcome = work();
    EXPECT_EQ(outcome.end, End::made);
    EXPECT_EQ(outcome.failure, QString());
    EXPECT_TRUE(hasRecord());
    EXPECT_TRUE(unfinished().isEmpty());
}

TEST_F(WorkOnAnInstrument, ItsBeginningIsNotedOnlyWhereNoLineShowsWhoseRecordItIs) {
    work();
    EXPECT_FALSE(folder.read(Journal(session).path()).contains(u"\"begun\":true"_s));
    hasLine = false;
    script.failures[insert()] = serverError();
    ui.expectReport(-158, u"ModuleGlobals,CreateCalRecord"_s);
    EXPECT_EQ(work().end, End::unfinished);
    EXPECT_TRUE(unfinished().last().begun);
}

TEST_F(WorkOnAnInstrument, AnErrorBeforeItMeansNoRecordEither) {
    InstrumentWork work(session, routine);
    work.setUnprepared();
    EXPECT_FALSE(work.isPrepared());
    work.entry.asset = u"PT-1"_s;
    EXPECT_EQ(work.finish().end, End::unprepared);
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_FALSE(unfinished()[0].prepared);
}

TEST_F(WorkOnAnInstrument, NoStatementMoreIsSentThanForTheRecord) {
    work();
    for (const auto& statement : std::as_const(script.statements))
        EXPECT_FALSE(statement.contains(u"select ctag,c2339"_s)) << statement.toStdString();
}

TEST_F(WorkOnAnInstrument, AReportDuringThePreparationMeansNoRecordAndKeepsTheReadings) {
    ui.expectReport(6, routine);
    const auto outcome = work([] { throw makeError(ErrorNumber::overflow); });
    EXPECT_EQ(outcome.end, End::unprepared);
    EXPECT_EQ(outcome.failure, QString()) << "the next instrument goes on";
    EXPECT_EQ(script.statements, QStringList());
    ASSERT_EQ(unfinished().size(), 1);
    EXPECT_EQ(unfinished()[0].lines, QStringList());
    EXPECT_EQ(unfinished()[0].raw.value("points"_L1).toString(), u"50"_s);
    EXPECT_EQ(unfinished()[0].why,
              u"An error was reported before the record was begun. There is no record."_s);
}

TEST_F(WorkOnAnInstrument, AJournalThatCantBeWrittenEndsTheUploadBeforeTheRecord) {
    ASSERT_TRUE(QDir().mkdir(Journal(session).path()));
    const auto outcome = work();
    EXPECT_EQ(outcome.end, End::unprepared);
    EXPECT_TRUE(outcome.failure.startsWith(u"The results of PT-1 could not be written to the disk:"_s));
    EXPECT_TRUE(outcome.failure.contains(Journal(session).path()));
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(WorkOnAnInstrument, ALostConnectionEndsTheUploadWithTheEntryUnfinished) {
    const auto lost = u"This workstation is no longer connected to the database."_s;
    ui.expectReport(10054, routine);
    auto outcome = work([] { throw Error{10054, u"lost"_s, u"08S01"_s, true}; });
    EXPECT_EQ(outcome.end, End::unprepared);
    EXPECT_TRUE(outcome.failure.startsWith(lost));
    EXPECT_EQ(unfinished().size(), 1);

    session.SessionConnected = true;
    script.failures[recordExists] = Error{10054, u"lost"_s, u"08S01"_s, true};
    ui.expectReport(10054, u"ModuleGlobals,CreateCalRecord"_s);
    outcome = work();
    EXPECT_EQ(outcome.end, End::unfinished);
    EXPECT_TRUE(outcome.failure.startsWith(lost));
    EXPECT_EQ(unfinished().size(), 2);
}

TEST_F(WorkOnAnInstrument, AReportWhileTheRecordIsMadeLeavesItUnfinishedAndTheUploadGoesOn) {
    work();
    const auto statement = insert();
    script.failures[statement] = serverError();
    ui.expectReport(-158, u"ModuleGlobals,CreateCalRecord"_s);
    const auto outcome = work();
    EXPECT_EQ(outcome.end, End::unfinished);
    EXPECT_EQ(outcome.failure, QString());
    ASSERT_EQ(unfinished().size(), 1);
    EXPECT_EQ(unfinished()[0].why,
              u"An error was reported while the record was being made. It may be incomplete."_s);
}

TEST_F(WorkOnAnInstrument, AReportInTheQueriesOfTheRecordMeansNoRecordAndNoQuestions) {
    const auto key = u"select mtag from MT.inventory where i4201 = 'PT-1'"_s;
    script.failures[key] = serverError();
    script.answers.insert(worksheetQuery, {{u"2307"_s}});
    ui.expectReport(-158, u"ModuleGlobals,CheckAsset"_s);
    EXPECT_EQ(work().end, End::unprepared) << "the calibrator keeps it";
    EXPECT_FALSE(hasRecord()) << "it would be a record of nobody";
    EXPECT_EQ(unfinished().size(), 1);
}

TEST_F(WorkOnAnInstrument, AReportWhileTheOperatorIsAskedMeansNoRecord) {
    record.CalFieldTable[3].has_list = true;
    script.answers.insert(worksheetQuery, {{u"2307"_s}});
    script.failures[u"select val from mt.valfield where fldnum = '2307' order by val asc"_s] = serverError();
    ui.expectReport(-158, u"ModuleGlobals,PromptUser"_s);
    EXPECT_EQ(work().end, End::unprepared);
    EXPECT_FALSE(hasRecord());
}

TEST_F(WorkOnAnInstrument, ThatAnotherWorkstationIsRecordingHasNoRecordYet) {
    const auto lock = u"lock mt.7"_s;
    script.failures[lock] = lockHeldElsewhere(u"mt.7"_s);
    ui.expectReport(70, u"ModuleGlobals,CreateCalRecord"_s);
    EXPECT_EQ(work().end, End::unprepared) << "the calibrator keeps it";
    EXPECT_FALSE(hasRecord());
    ASSERT_EQ(unfinished().size(), 1);
    EXPECT_EQ(unfinished()[0].why,
              u"An error was reported before the record was begun. There is no record."_s);
    EXPECT_EQ(unfinished()[0].lines, QStringList{u"line"_s});
    EXPECT_EQ(script.transactions, QStringList{lock});

    script.failures.remove(lock);
    script.transactions.clear();
    EXPECT_EQ(work().end, End::made);
    EXPECT_EQ(script.transactions, (QStringList{lock, u"unlock mt.7"_s}));
    EXPECT_TRUE(unfinished().isEmpty());
}

TEST_F(WorkOnAnInstrument, ARefusalIsShownAndEndsTheEntry) {
    script.answers.insert(recordExists, {{u"2026-03-18"_s}});
    ui.expectBox(text(TextId::recordAlreadyExists), u"Calibration Record Creation"_s, box::stop);
    EXPECT_EQ(work().end, End::refused);
    EXPECT_TRUE(unfinished().isEmpty());
    EXPECT_TRUE(folder.read(Journal(session).path()).contains(u"\"state\":\"refused\""_s));
}

TEST_F(WorkOnAnInstrument, ARecordThatTheOperatorGivesUpIsRefused) {
    record.CalFieldTable[3].required = u"Y"_s;
    askFor(u"2307"_s, cancelled);
    ui.expectBox(text(TextId::fieldEntryRequired), u"Calibration Record Data"_s, box::warningOkCancel,
                 BoxAnswer::cancel);
    ui.expectBox(text(TextId::requiredDataRetryAdvised), u"Calibration Record Creation"_s,
                 box::warningRetryCancel, BoxAnswer::cancel);
    ui.expectBox(text(TextId::requiredDataNotProvided), u"Calibration Record Creation"_s, box::stop);
    EXPECT_EQ(work().end, End::refused);
    EXPECT_TRUE(unfinished().isEmpty());
}

TEST_F(WorkOnAnInstrument, TheOperatorsOwnDateIsInTheJournalBeforeTheRecordIsWritten) {
    askFor(u"2301"_s, u"03/20/2026"_s);
    work();
    script.failures[insert()] = serverError();
    record.CalFieldTable[0].value = u"2026-03-18"_s;
    askFor(u"2301"_s, u"03/20/2026"_s);
    ui.expectReport(-158, u"ModuleGlobals,CreateCalRecord"_s);
    work();
    ASSERT_EQ(unfinished().size(), 1);
    EXPECT_EQ(unfinished()[0].date, u"2026-03-20"_s);
    EXPECT_EQ(unfinished()[0].time, u"08:15:30"_s);
}

TEST_F(WorkOnAnInstrument, ADateThatTheJournalDoesNotTakeIsReportedAndNothingIsWritten) {
    askFor(u"2301"_s, u"03/20/2026"_s, [&] {
        const auto path = Journal(session).path();
        ASSERT_TRUE(QFile::rename(path, u"aside"_s));
        ASSERT_TRUE(QDir().mkdir(path));
    });
    ui.expectReport(75, u"ModuleGlobals,CreateCalRecord"_s);
    ui.expectReport(75, u"Journal,Change"_s); // nor why it is unfinished
    EXPECT_EQ(work().end, End::unfinished);
    EXPECT_FALSE(hasRecord());
}

TEST_F(WorkOnAnInstrument, ADoneEntryEndsTheOlderOnesOfTheSameResultsAndNoOthers) {
    ui.expectReport(6, routine);
    work([] { throw makeError(ErrorNumber::overflow); });
    readings.clear(); // the same, of which nothing could be read
    ui.expectReport(6, routine);
    work([] { throw makeError(ErrorNumber::overflow); });
    JournalEntry other{.driver = u"fluke702"_s,
                       .serial = u"6841207"_s,
                       .asset = u"PT-1"_s,
                       .mtag = u"7"_s,
                       .date = u"2026-03-18"_s,
                       .time = u"09:00:00"_s,
                       .readings = {u"1: 1"_s}};
    const auto otherTime = Journal(session).add(other);
    other.asset = u"PT-2"_s;
    other.time = u"08:15:30"_s;
    const auto otherAsset = Journal(session).add(other);
    other.asset = u"PT-1"_s;
    other.driver = u"worksheet"_s; // the same calibration, on paper
    other.serial.clear();
    const auto otherKind = Journal(session).add(other);
    readings = QStringList{u"1: 50"_s};
    EXPECT_EQ(work().end, End::made);
    QStringList left;
    for (const auto& entry : unfinished())
        left << entry.id;
    EXPECT_EQ(left, (QStringList{otherTime, otherAsset, otherKind}));
}

TEST_F(WorkOnAnInstrument, AnEndThatTheJournalDoesNotTakeIsReportedAndTheEntryStaysUnfinished) {
    const auto path = Journal(session).path();
    askFor(u"2307"_s, u"Joe"_s, [&] {
        ASSERT_TRUE(QFile::rename(path, u"aside"_s));
        ASSERT_TRUE(QDir().mkdir(path));
    });
    ui.expectReport(75, u"Journal,Change"_s);
    EXPECT_EQ(work().end, End::made);
    ASSERT_TRUE(QDir().rmdir(path));
    ASSERT_TRUE(QFile::rename(u"aside"_s, path));
    EXPECT_EQ(unfinished().size(), 1);
}

} // namespace kelvane::testing
