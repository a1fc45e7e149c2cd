// Results that were entered from paper worksheets and have no record, and what is made of them.
#include "data/journal/journal.h"
#include "testkit/faulty_connection.h"
#include "testkit/logged_in_session.h"
#include "testkit/overheard_connection.h"
#include "testkit/quiet_operator.h"
#include "tests/worksheets/scripted_entry_screen.h"
#include "workflow/unfinished_results.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Who enters the worksheet of PT-101 and makes its record, however often he is asked. A box that asks for
/// another try is answered with the first button a few times.
class WorksheetOperator final : public QuietOperator {
  public:
    QString askOneField(const DialogQuestion& question) override {
        asked << question.prompt;
        if (question.prompt.startsWith(u"Enter instrument"_s))
            return instrumentQuestions-- > 0 ? u"PT-101"_s : cancelled;
        if (question.prompt == u"Enter standard used:"_s)
            return standards.isEmpty() ? QString() : standards.takeFirst();
        if (question.prompt.startsWith(u"Date of"_s))
            return date;
        if (question.prompt.startsWith(u"Time of"_s))
            return time;
        if (question.prompt.endsWith(u"Ambient Temperature (C)"_s))
            return u"21.5"_s;
        return question.defaultText;
    }
    BoxAnswer messageBox(const QString& text, const QString& title, BoxStyle style) override {
        boxes << text;
        QuietOperator::messageBox(text, title, style);
        return style.buttons == BoxButtons::ok ? BoxAnswer::ok : BoxAnswer::cancel;
    }

    int instrumentQuestions = 3;
    QStringList standards;
    QString date;
    QString time;
    QStringList asked;
    QStringList boxes;
};

struct WithWorksheetOperator {
    WorksheetOperator ui;
};

/// The end of the program in the middle of its work.
struct Killed {};

} // namespace

/// Worksheets of PT-101 at a site with a short dictionary, a minute apart.
class UnfinishedWorksheet : public ::testing::Test,
                            protected WithWorksheetOperator,
                            protected LoggedInSession {
  protected:
    using End = MakeRecordOutcome::End;

    UnfinishedWorksheet() : LoggedInSession(ui) {
        execute(u"delete from mt.customiz where fldnum like '23%' and fldnum not in "
                "('2301','2333','2307','2323','2302','2331','2303','2312','2326')"_s);
        execute(u"delete from mt.hvm_kv_worksheetfields where fldnum <> '2312'"_s);
        useMoment(0);
    }

    void useMoment(int number) {
        moment = QDateTime(QDate(2026, 3, 18), QTime(0, 0)).addSecs(60 * number);
        clock.set(moment);
        ui.date = moment.toString(u"MM/dd/yyyy"_s);
        ui.time = moment.toString(u"HH:mm"_s);
        // What the copies of the record write.
        execute(
            u"update mt.inventory set i4230 = null, i4231 = null, i4224 = 'RECALLED' where mtag = '1401'"_s);
    }
    void enter() {
        screen = {};
        ui.instrumentQuestions = 3;
        ui.standards = QStringList{u"PM-100"_s, u"DMM-01"_s};
        entry.startDataEntry();
    }
    void enterAndSave() {
        enter();
        entry.addStandards(); // where an error kept them from being asked for
        entry.save();
    }
    /// Before the next statement that begins like this the program ends, or it is refused; none for an empty
    /// text.
    void stopAt(const QString& beginning, bool kill) {
        if (!overheard_) {
            overheard_ = true;
            session.SharedConnection = std::make_unique<OverheardConnection>(
                std::move(session.SharedConnection), [this](const QString& statement) { take(statement); });
        }
        beginning_ = beginning;
        kill_ = kill;
    }
    /// An entry whose preparation failed at the check of a standard.
    void enterUnprepared() {
        stopAt(u"select i4209,"_s, false);
        enterAndSave();
        ASSERT_TRUE(beginning_.isEmpty());
        ASSERT_EQ(unfinishedResults(session).size(), 1);
    }

    MakeRecordOutcome make(int row = 0) {
        return makeRecordOf(session, unfinishedResults(session).value(row).id);
    }
    void expectMade() {
        const auto outcome = make();
        EXPECT_EQ(outcome.end, End::made) << outcome.message.toStdString();
        expectWhole();
    }
    QString atMoment() const {
        return u" where mtag = '1401' and c2301 = '%1' and c2333 = '%2'"_s.arg(
            moment.toString(u"yyyy-MM-dd"_s), moment.toString(u"HH:mm:00"_s));
    }
    /// There is one record of the moment, with its standards and copies, and no line.
    void expectWhole() {
        EXPECT_TRUE(unfinishedResults(session).isEmpty());
        ASSERT_EQ(rows(u"select c2307 || c2323 || c2312 || cdsrc from mt.calibration"_s + atMoment()),
                  QStringList{u"jdoeY21.5KVN"_s});
        const auto ctag = value(u"select ctag from mt.calibration"_s + atMoment());
        EXPECT_EQ(values(u"select c2430 from mt.standards where ctag = "_s + ctag),
                  (QStringList{u"1203"_s, u"1205"_s}));
        EXPECT_EQ(value(u"select count(*) from mt.calresults where ctag = "_s + ctag), u"0"_s);
        EXPECT_EQ(rows(u"select i4230,i4231,i4224 from mt.inventory where mtag = '1401'"_s, 3),
                  QStringList{u"2026-03-18|2027-03-18|(null)"_s});
    }
    bool hasRecord() { return !rows(u"select ctag from mt.calibration"_s + atMoment()).isEmpty(); }

    QDateTime moment;
    ScriptedEntryScreen screen;
    WorksheetEntry entry{session, screen};
    QStringList statements;

  private:
    void take(const QString& statement) {
        statements << statement;
        if (beginning_.isEmpty() || !statement.startsWith(beginning_))
            return;
        beginning_.clear();
        if (kill_)
            throw Killed{};
        throw Error{1, u"refused"_s};
    }

    bool overheard_ = false;
    QString beginning_;
    bool kill_ = false;
};

TEST_F(UnfinishedWorksheet, IsListedWithWhatWasEntered) {
    enterUnprepared();
    const auto result = unfinishedResults(session).first();
    EXPECT_EQ(result.asset, u"PT-101"_s);
    EXPECT_EQ(result.date, u"2026-03-18 00:00:00"_s);
    EXPECT_EQ(result.calibrator, u"Paper worksheet"_s);
    EXPECT_EQ(result.why, u"An error was reported before the record was begun. There is no record."_s);
    EXPECT_EQ(result.readings.first(), u"Calibration Date: 03/18/2026"_s);
    EXPECT_TRUE(result.readings.contains(u"Ambient Temperature (C): 21.5"_s));
}

TEST_F(UnfinishedWorksheet, UnpreparedBecomesTheRecordThatItWouldHaveBeen) {
    enterUnprepared();
    EXPECT_FALSE(hasRecord());
    ui.asked.clear();
    expectMade();
    EXPECT_EQ(ui.asked, QStringList{u"Please enter information for: Ambient Temperature (C)"_s})
        << "date and time are known";
}

TEST_F(UnfinishedWorksheet, OfAProgramThatEndedBeforeDuringAndAfterItsStatementsIsMadeOnce) {
    int number = 0;
    for (const auto& beginning :
         {u"select fldnum from mt.hvm"_s, u"select c2301 from"_s, u"insert into MT.calibration"_s,
          u"select scopy"_s, u"select fldnum,dcopy"_s, u"update MT.inventory set I4230"_s,
          u"insert into mt.standards"_s, u"update MT.inventory set I4224"_s}) {
        SCOPED_TRACE(beginning.toStdString());
        useMoment(++number);
        enter();
        stopAt(beginning, true);
        EXPECT_THROW(entry.save(), Killed);
        stopAt({}, false);
        ASSERT_EQ(unfinishedResults(session).size(), 1);
        statements.clear();
        const bool begun = hasRecord();
        expectMade();
        EXPECT_EQ(statements.filter(u"insert into MT.calibration"_s).size(), begun ? 0 : 1);
        EXPECT_TRUE(statements.filter(u"delete "_s).isEmpty());
    }
}

TEST_F(UnfinishedWorksheet, OfAProgramThatEndedAfterTheLastStatementGetsNothingMore) {
    enterAndSave();
    expectWhole();
    const auto path = Journal(session).path();
    auto lines = folder.read(path).trimmed().split(u'\n');
    lines.removeLast(); // the end of the entry
    folder.write(path, lines.join(u'\n').toUtf8() + '\n');
    stopAt({}, false);
    expectMade();
    EXPECT_TRUE(statements.filter(u"insert "_s).isEmpty());
}

TEST_F(UnfinishedWorksheet, ThatWasNotBegunLeavesAnotherRecordOfItsMomentAlone) {
    enterAndSave(); // what somebody has made of the same sheet
    expectWhole();
    enter();
    screen.listed = QStringList{u"PM-030"_s};
    stopAt(u"insert into MT.calibration"_s, true);
    entry.save(); // refused
    EXPECT_TRUE(unfinishedResults(session).isEmpty());
    enter();
    screen.listed = QStringList{u"PM-030"_s};
    stopAt(u"select fldnum from mt.hvm"_s, true);
    EXPECT_THROW(entry.save(), Killed);
    stopAt({}, false);
    const auto outcome = make();
    EXPECT_EQ(outcome.end, End::unfinished);
    EXPECT_EQ(outcome.message,
              u"A calibration record for this UUT with the same calibration date and time already exists! "
              "Aborting calibration record creation for this UUT."_s);
    ASSERT_EQ(unfinishedResults(session).size(), 1);
    discardResult(session, unfinishedResults(session).first().id);
    expectWhole();
}

TEST_F(UnfinishedWorksheet, OfASiteWithoutTimesIsNotTakenForAnotherOfItsDay) {
    execute(u"delete from mt.customiz where fldnum = '2333'"_s);
    const auto ofTheDay =
        u" from mt.calibration where mtag = '1401' and c2301 = '2026-03-18' and c2333 is null order by ctag"_s;
    enterAndSave();
    enter();
    screen.listed = QStringList{u"PM-030"_s};
    stopAt(u"insert into MT.calibration"_s, false);
    entry.save();
    ASSERT_EQ(unfinishedResults(session).size(), 1);
    EXPECT_EQ(make().end, End::made);
    const auto records = rows(u"select ctag"_s + ofTheDay);
    ASSERT_EQ(records.size(), 2);
    EXPECT_EQ(value(u"select count(*) from mt.standards where ctag = "_s + records[0]), u"2"_s);
    EXPECT_EQ(value(u"select count(*) from mt.standards where ctag = "_s + records[1]), u"1"_s);
}

TEST_F(UnfinishedWorksheet, OfAStandardWhoseNameHasAQuoteIsCompleted) {
    enter();
    screen.listed << u"O'Neil"_s;
    entry.save();
    EXPECT_EQ(make().end, End::made);
    EXPECT_EQ(values(u"select c2430 from mt.standards where ctag = (select max(ctag) from mt.calibration)"_s),
              (QStringList{u"(null)"_s, u"1203"_s, u"1205"_s}));
}

TEST_F(UnfinishedWorksheet, AsksForTheDateWhereNoneWasEntered) {
    execute(
        u"update mt.customiz set sdefault = null, idefault = null, sreq = 'N', ireq = 'N' where fldnum in "
        "('2301', '2333')"_s);
    enterAndSave();
    ASSERT_EQ(unfinishedResults(session).size(), 1);
    EXPECT_EQ(unfinishedResults(session).first().date, QString());
    EXPECT_FALSE(hasRecord());
    useMoment(75);
    const auto outcome = make();
    EXPECT_EQ(outcome.end, End::made) << outcome.message.toStdString();
    EXPECT_TRUE(ui.asked.contains(u"Date of the calibration of PT-101:"_s));
    EXPECT_EQ(
        value(u"select c2301 from mt.calibration where ctag = (select max(ctag) from mt.calibration)"_s),
        u"2026-03-18"_s);
}

TEST_F(UnfinishedWorksheet, HasTheEnteredValuesEvenWhereTheDictionaryHasOthersNow) {
    execute(u"update mt.customiz set sdefault = 'first' where fldnum = '2326'"_s);
    enterUnprepared();
    execute(u"update mt.customiz set sdefault = 'second' where fldnum = '2326'"_s);
    expectMade();
    EXPECT_EQ(value(u"select c2326 from mt.calibration"_s + atMoment()), u"first"_s);
}

TEST_F(UnfinishedWorksheet, OfADictionaryThatCouldNotBeReadTakesItsDefaultsOfNow) {
    execute(u"update mt.customiz set sdefault = 'carried' where fldnum = '2326'"_s);
    stopAt(u"select count(ctag)"_s, false); // the first calibration has other defaults
    enterAndSave();
    stopAt({}, false);
    ASSERT_EQ(unfinishedResults(session).size(), 1);
    expectMade();
    EXPECT_EQ(value(u"select c2326 from mt.calibration"_s + atMoment()), u"carried"_s);
}

TEST_F(UnfinishedWorksheet, EndsWithTheRecordThatIsEnteredAnew) {
    enterUnprepared();
    stopAt({}, false);
    enterAndSave();
    expectWhole();
}

TEST_F(UnfinishedWorksheet, OfAnotherOwnerOrInstrumentIsKept) {
    enterUnprepared();
    session.SessionOwner = u"ABC"_s;
    EXPECT_EQ(
        make().message,
        u"These results belong to the owner MT. Please log in as one of its users to make the record."_s);
    session.SessionOwner = u"MT"_s;
    execute(u"update mt.inventory set i4201 = 'PT-999' where mtag = '1401'"_s);
    EXPECT_EQ(make().message,
              u"The inventory no longer has PT-101 as the instrument that was calibrated. The "
              "results are kept."_s);
    execute(u"update mt.inventory set i4201 = 'PT-101' where mtag = '1401'"_s);
    expectMade();
}

/// Every statement of an entry, of its record and of Make Record fails once, in each way.
class WorksheetFaults : public UnfinishedWorksheet, public ::testing::WithParamInterface<PlannedFault::Kind> {
  protected:
    WorksheetFaults() {
        session.SharedConnection =
            std::make_unique<FaultyConnection>(std::move(session.SharedConnection), fault);
        fault.kind = GetParam();
    }
    void planFault(int step) {
        fault.failAt = step;
        fault.count = 0;
        fault.reached = false;
    }
    void reconnect() {
        fault.failAt = -1;
        fault.lost = false;
        logIn();
    }
    /// Without faults; an entry that is a record still needs two presses where the first one has begun it.
    void finishAll() {
        for (int press = 0; press < 2 && !unfinishedResults(session).isEmpty(); ++press)
            make();
        if (!hasRecord())
            enterAndSave();
        expectWhole();
    }

    PlannedFault fault;
};

TEST_P(WorksheetFaults, OfTheEntryEndInOneWholeRecord) {
    for (int step = 0;; ++step) {
        SCOPED_TRACE(step);
        useMoment(step);
        planFault(step);
        enterAndSave();
        const bool reached = fault.reached;
        reconnect();
        EXPECT_EQ(screen.offered > 0, !unfinishedResults(session).isEmpty());
        finishAll();
        if (!reached) {
            EXPECT_GT(step, 30);
            break;
        }
        ASSERT_FALSE(HasFailure());
    }
}

TEST_P(WorksheetFaults, OfMakeRecordEndInOneWholeRecord) {
    for (int step = 0;; ++step) {
        SCOPED_TRACE(step);
        useMoment(step);
        enter();
        stopAt(u"select fldnum from mt.hvm"_s, true);
        EXPECT_THROW(entry.save(), Killed);
        planFault(step);
        const auto outcome = make();
        const bool reached = fault.reached;
        reconnect();
        EXPECT_EQ(outcome.end == End::unfinished, !unfinishedResults(session).isEmpty());
        finishAll();
        if (!reached) {
            EXPECT_GT(step, 30);
            break;
        }
        ASSERT_FALSE(HasFailure());
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, WorksheetFaults,
                         ::testing::Values(PlannedFault::Kind::refused, PlannedFault::Kind::answerLost,
                                           PlannedFault::Kind::connectionLost),
                         [](const auto& tested) {
                             switch (tested.param) {
                             case PlannedFault::Kind::refused:
                                 return "refused";
                             case PlannedFault::Kind::answerLost:
                                 return "answerLost";
                             case PlannedFault::Kind::connectionLost:
                                 break;
                             }
                             return "connectionLost";
                         });

} // namespace kelvane::testing
