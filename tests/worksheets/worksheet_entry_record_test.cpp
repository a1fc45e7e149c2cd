// CommandSave: the journal, the record, and what keeps it from being made.
#include "data/journal/journal.h"
#include "tests/worksheets/entry_fixture.h"
#include "worksheets/worksheet_entry.h"

#include <QDir>
#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class RecordOfAWorksheet : public EntryFixture {
  protected:
    RecordOfAWorksheet() {
        setDictionary(
            {{.column = u"C2301"_s, .title = u"Date"_s, .defaultText = u"99/99/99"_s, .isDate = true},
             {.column = u"C2333"_s, .title = u"Time"_s, .defaultText = u"99:99"_s},
             {.column = u"C2312"_s, .title = u"Temperature"_s}});
    }
    QList<JournalEntry> unfinished() const { return Journal(session).unfinished(); }
    QString journal() const { return folder.read(Journal(session).path()); }
    /// The operator can begin another record, and only that.
    void expectEnded(int offered = 0) {
        EXPECT_EQ(screen.instrument, QString());
        EXPECT_EQ(screen.ended, 1);
        EXPECT_EQ(screen.offered, offered);
    }
    void expectUnprepared() {
        save();
        EXPECT_FALSE(hasRecord());
        ASSERT_EQ(unfinished().size(), 1);
        EXPECT_FALSE(unfinished()[0].prepared);
        EXPECT_EQ(unfinished()[0].why,
                  u"An error was reported before the record was begun. There is no record."_s);
        expectEnded(1);
    }
    void expectWhole() {
        save();
        EXPECT_TRUE(hasRecord());
        EXPECT_TRUE(unfinished().isEmpty());
        expectEnded();
    }
    static QString standardInsert(const QString& name) {
        return u"insert into mt.standards (c2430,mtag,ctag) values ((select mtag from MT.inventory where "
               u"i4201 = "
               "'%1'),'7',(select ctag from MT.calibration where mtag = '7' and c2339 = 1));commit"_s.arg(
                   name);
    }
};

TEST_F(RecordOfAWorksheet, IsInTheJournalBeforeItIsMadeAndHasEndedAfterIt) {
    setDictionary({{.column = u"C2301"_s, .title = u"Date"_s, .defaultText = u"99/99/99"_s, .isDate = true},
                   {.column = u"C2333"_s, .title = u"Time"_s, .defaultText = u"99:99"_s},
                   {.column = u"C2312"_s, .title = u"Temperature"_s}},
                  {u"2312"_s});
    ask.instrument(u"PT-1"_s);
    ask.field(u"PT-1"_s, u"Temperature"_s, u"21"_s);
    ask.standard(u"S-1"_s);
    ask.noMoreStandards();
    start();
    ask.field(u"PT-1"_s, u"Temperature"_s, u"22"_s, [this](const DialogQuestion&) {
        EXPECT_FALSE(hasRecord());
        ASSERT_EQ(unfinished().size(), 1);
        const auto noted = unfinished()[0];
        EXPECT_EQ(noted.driver, u"worksheet"_s);
        EXPECT_EQ(noted.calibrator, u"Paper worksheet"_s);
        EXPECT_EQ(noted.serial, QString());
        EXPECT_EQ(noted.asset, u"PT-1"_s);
        EXPECT_EQ(noted.mtag, u"7"_s);
        EXPECT_EQ(noted.date, u"2026-03-18"_s);
        EXPECT_EQ(noted.time, u"09:30:00"_s);
        EXPECT_EQ(noted.readings,
                  (QStringList{u"Date: 03/18/2026"_s, u"Time: 09:30"_s, u"Temperature: 21"_s}));
        EXPECT_EQ(noted.lines, QStringList());
        EXPECT_EQ(noted.standards, QStringList{u"S-1"_s});
        EXPECT_TRUE(noted.prepared);
        EXPECT_FALSE(noted.begun);
        EXPECT_EQ(noted.why, u"The program ended before the record was complete."_s);
    });
    expectWhole();
    EXPECT_EQ(sent(u"insert into MT.calibration"_s),
              QStringList{u"insert into MT.calibration (C2301,C2333,C2312,mtag,cdsrc) values "
                          "('2026-03-18','09:30:00','22','7','KVN');commit"_s});
    EXPECT_EQ(sent(u"insert into mt.standards"_s), QStringList{standardInsert(u"S-1"_s)});
    EXPECT_TRUE(sent(u"insert into mt.calresults"_s).isEmpty());
    EXPECT_TRUE(journal().contains(u"\"state\":\"done\""_s));
    EXPECT_TRUE(journal().contains(u"\"begun\":true"_s));
}

TEST_F(RecordOfAWorksheet, OfNoInstrumentIsNotMadeAndNothingIsStored) {
    screen.listed = QStringList{u"S-1"_s};
    save();
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_FALSE(QFile::exists(Journal(session).path()));
    expectEnded();
}

TEST_F(RecordOfAWorksheet, TakesTheStandardsThatAreKeptForTheNextOne) {
    enter({u"S-1"_s});
    save();
    EXPECT_EQ(screen.listed, QStringList{u"S-1"_s});
    ask.instrument(u"PT-2"_s);
    start();
    save();
    EXPECT_EQ(sent(u"insert into mt.standards"_s).size(), 2);
    EXPECT_TRUE(sent(u"insert into mt.standards"_s)[1].contains(u"'8'"_s));
    EXPECT_EQ(screen.ended, 2);
}

TEST_F(RecordOfAWorksheet, HasNoStandardThatWasTakenOffTheList) {
    enter({u"S-1"_s, u"S-2"_s});
    screen.listed.removeFirst();
    expectWhole();
    EXPECT_EQ(sent(u"insert into mt.standards"_s), QStringList{standardInsert(u"S-2"_s)});
}

TEST_F(RecordOfAWorksheet, HasAHundredAndOneStandardsAtMost) {
    ask.instrument(u"PT-1"_s);
    ask.noMoreStandards();
    start();
    for (int number = 0; number < 105; ++number)
        screen.listed << u"S%1"_s.arg(number);
    expectWhole();
    const auto written = sent(u"insert into mt.standards"_s);
    ASSERT_EQ(written.size(), 101);
    EXPECT_EQ(written.last(), standardInsert(u"S100"_s));
}

TEST_F(RecordOfAWorksheet, DropsLaterCopiesOfAStandard) {
    addStandard(u"s-1"_s);
    enter({u"S-1"_s, u"s-1"_s});
    expectWhole();
    EXPECT_EQ(sent(u"insert into mt.standards"_s).size(), 1);
}

TEST_F(RecordOfAWorksheet, GetsWhatWasChangedInTheList) {
    enter();
    ask.field(u"PT-1"_s, u"Temperature"_s, u"19'"_s);
    entry.changeField(2);
    expectWhole();
    EXPECT_TRUE(sent(u"insert into MT.calibration"_s)[0].contains(u",'19''',"_s));
}

TEST_F(RecordOfAWorksheet, OfTheSameMomentIsRefusedInABoxAndEndsTheEntry) {
    enter();
    script.answers.insert(
        u"select c2301 from MT.calibration where c2301 = '2026-03-18' and c2333 = '09:30:00' "
        "and mtag = '7'"_s,
        {Row{u"2026-03-18"_s}});
    ui.expectBox(u"A calibration record for this UUT with the same calibration date and time already exists! "
                 "Aborting calibration record creation for this UUT."_s,
                 u"Calibration Record Creation"_s, box::stop);
    save();
    EXPECT_FALSE(hasRecord());
    EXPECT_TRUE(unfinished().isEmpty());
    EXPECT_TRUE(journal().contains(u"\"state\":\"refused\""_s));
    expectEnded();
}

TEST_F(RecordOfAWorksheet, WithoutARequiredFieldIsRefusedInABox) {
    setDictionary(
        {{.column = u"C2301"_s, .title = u"Date"_s, .defaultText = u"99/99/99"_s, .isDate = true},
         {.column = u"C2312"_s, .title = u"Temperature"_s, .required = u"Y"_s, .defaultText = u"20"_s}},
        {u"2312"_s});
    ask.instrument(u"PT-1"_s);
    ask.field(u"PT-1"_s, u"Temperature"_s, u"20"_s);
    ask.noMoreStandards();
    start();
    ask.cancelledField(u"PT-1"_s, u"Temperature"_s);
    ui.expectBox(
        u"Warning: Failure to provide required data during calibration record creation will abort the "
        "creation process for this calibration record! It is advised that you retry input of required "
        "field data, otherwise, the calibration record WILL NOT be created."_s,
        u"Calibration Record Creation"_s, box::warningRetryCancel, BoxAnswer::cancel);
    ui.expectBox(u"Unable to create calibration record because required information was not provided."_s,
                 u"Calibration Record Creation"_s, box::stop);
    save();
    EXPECT_FALSE(hasRecord());
    EXPECT_TRUE(unfinished().isEmpty());
    expectEnded();
}

TEST_F(RecordOfAWorksheet, WithAnEmptyDateIsTheErrorOfItsMakingAndStaysInTheJournal) {
    setDictionary({{.column = u"C2301"_s, .title = u"Date"_s, .isDate = true}});
    enter();
    ui.expectReport(13, u"ModuleGlobals,CreateCalRecord"_s);
    save();
    EXPECT_FALSE(hasRecord());
    ASSERT_EQ(unfinished().size(), 1);
    EXPECT_EQ(unfinished()[0].date, QString());
    expectEnded(1);
}

TEST_F(RecordOfAWorksheet, WithAnEmptyTimeIsTheErrorOfItsMakingAndStaysInTheJournal) {
    setDictionary({{.column = u"C2301"_s, .title = u"Date"_s, .defaultText = u"99/99/99"_s, .isDate = true},
                   {.column = u"C2333"_s, .title = u"Time"_s}});
    enter();
    ui.expectReport(13, u"ModuleGlobals,CreateCalRecord"_s);
    save();
    EXPECT_FALSE(hasRecord());
    ASSERT_EQ(unfinished().size(), 1);
    expectEnded(1);
}

TEST_F(RecordOfAWorksheet, WithADateThatIsNoneIsTheSame) {
    setDictionary({{.column = u"C2301"_s, .title = u"Date"_s, .defaultText = u"02/30/2026"_s, .isDate = true},
                   {.column = u"C2333"_s, .title = u"Time"_s, .defaultText = u"25:00"_s}});
    enter();
    ui.expectReport(13, u"ModuleGlobals,CreateCalRecord"_s);
    save();
    ASSERT_EQ(unfinished().size(), 1);
    EXPECT_EQ(unfinished()[0].date, u"02/30/2026"_s);
    EXPECT_EQ(unfinished()[0].time, u"25:00"_s);
    expectEnded(1);
}

TEST_F(RecordOfAWorksheet, IsNotMadeAfterAReportOfItsDictionary) {
    script.failures[typeQuery(u"C2312"_s)] = serverError();
    ask.instrument(u"PT-1"_s);
    ui.expectReport(-158, u"ModuleGlobals,FieldType"_s);
    ask.noMoreStandards();
    start();
    expectUnprepared();
    EXPECT_EQ(unfinished()[0].fields.size(), 0);
    EXPECT_EQ(unfinished()[0].readings.size(), 3);
    EXPECT_FALSE(unfinished()[0].raw["dictionaryRead"_L1].toBool());
}

TEST_F(RecordOfAWorksheet, IsNotMadeAfterAReportOfTheEntryItself) {
    script.failures[worksheetQuery] = serverError();
    ask.instrument(u"PT-1"_s);
    ui.expectReport(-158, u"ModuleGlobals,SetCalDataFields"_s);
    ui.expectReport(-158, u"FormWorkEntry,StartDataEntry"_s);
    start();
    expectUnprepared();
}

TEST_F(RecordOfAWorksheet, IsNotMadeAfterAReportOfAStandardsCheck) {
    script.failures[standardQuery(u"S-1"_s, u"PT-1"_s)] = serverError();
    ask.instrument(u"PT-1"_s);
    ask.standard(u"S-1"_s);
    ui.expectReport(-158, u"ModuleGlobals,CheckStandard"_s);
    ask.noMoreStandards();
    start();
    EXPECT_EQ(screen.listed, QStringList{u"S-1"_s});
    expectUnprepared();
    EXPECT_EQ(unfinished()[0].standards, QStringList{u"S-1"_s});
    EXPECT_TRUE(unfinished()[0].raw["dictionaryRead"_L1].toBool());
}

TEST_F(RecordOfAWorksheet, IsNotMadeAfterAReportOfAStandardThatTheButtonAdded) {
    enter();
    script.failures[keyQuery(u"S-1"_s)] = serverError();
    ask.standard(u"S-1"_s);
    ui.expectReport(-158, u"ModuleGlobals,CheckAsset"_s);
    ask.warning(u"Standard does not exist!"_s, standardsTitle);
    ask.noMoreStandards();
    entry.addStandards();
    expectUnprepared();
}

TEST_F(RecordOfAWorksheet, IsNotMadeAfterAReportOfAChangedField) {
    enter();
    ask.field(u"PT-1"_s, u"Date"_s, u"no date"_s);
    ui.expectReport(13, u"ModuleGlobals,PromptUser"_s);
    entry.changeField(0);
    EXPECT_EQ(screen.rows().first(), u"Date=03/18/2026"_s);
    expectUnprepared();
}

TEST_F(RecordOfAWorksheet, IsMadeAfterAReportOfAnEarlierInstrument) {
    script.failures[keyQuery(u"X-1"_s)] = serverError();
    ask.instrument(u"X-1"_s);
    ui.expectReport(-158, u"ModuleGlobals,CheckAsset"_s);
    ask.warning(u"Must enter a valid instrument number!"_s, entryTitle);
    ask.instrument(u"PT-1"_s);
    ask.noMoreStandards();
    start();
    expectWhole();
}

TEST_F(RecordOfAWorksheet, IsMadeWhateverAnotherScreenReportsWhileAQuestionIsOpen) {
    const auto report = [this](const DialogQuestion&) { ++session.reportCount; };
    setDictionary({{.column = u"C2301"_s, .title = u"Date"_s, .defaultText = u"99/99/99"_s, .isDate = true},
                   {.column = u"C2333"_s, .title = u"Time"_s, .defaultText = u"99:99"_s},
                   {.column = u"C2312"_s, .title = u"Temperature"_s, .required = u"Y"_s}});
    ask.instrument(u"PT-1"_s, report);
    ask.field(u"PT-1"_s, u"Temperature"_s, u"21"_s, report);
    ask.standard(u"S-1"_s, report);
    ask.standard({}, report);
    start();
    ask.field(u"PT-1"_s, u"Temperature"_s, u"22"_s, report);
    entry.changeField(2);
    ++session.reportCount; // and between its routines
    expectWhole();
}

TEST_F(RecordOfAWorksheet, IsNotMadeAfterItsOwnReportWhileAnotherScreenReportedToo) {
    ask.instrument(u"PT-1"_s);
    ask.noMoreStandards();
    start();
    ask.field(u"PT-1"_s, u"Date"_s, u"no date"_s, [this](const DialogQuestion&) { ++session.reportCount; });
    ui.expectReport(13, u"ModuleGlobals,PromptUser"_s);
    entry.changeField(0);
    expectUnprepared();
}

TEST_F(RecordOfAWorksheet, StaysInTheJournalAfterAnErrorOfItsMaking) {
    enter();
    const auto query = u"select scopy,fldnum from mt.customiz where scopy like '23%' and scopy <> '2340'"_s;
    script.failures[query] = serverError();
    ui.expectReport(-158, u"ModuleGlobals,CreateCalRecord"_s);
    save();
    EXPECT_TRUE(hasRecord());
    ASSERT_EQ(unfinished().size(), 1);
    EXPECT_TRUE(unfinished()[0].begun);
    EXPECT_EQ(unfinished()[0].why,
              u"An error was reported while the record was being made. It may be incomplete."_s);
    expectEnded(1);
}

TEST_F(RecordOfAWorksheet, WithoutAJournalIsNotMadeAndTheOperatorIsToldWhy) {
    enter();
    const auto path = Journal(session).path();
    ASSERT_TRUE(QDir().mkdir(path));
    ui.expectBox(u"What was entered for PT-1 could not be written to the disk:\r\nPath/File access error: "
                 u"\"%1\" (Is a "
                 "directory)\r\n\r\nNo calibration record was made."_s.arg(path),
                 u"Calibration Record Creation"_s, box::stop);
    save();
    EXPECT_FALSE(hasRecord());
    expectEnded();
}

TEST_F(RecordOfAWorksheet, WithALostConnectionStaysInTheJournalAndTheOperatorIsTold) {
    enter();
    const auto lost = Error{10054, u"lost"_s, u"08S01"_s, true};
    script.failures[keyQuery(u"PT-1"_s)] = lost;
    ui.expectReport(10054, u"ModuleGlobals,CheckAsset"_s);
    ui.expectBox(
        u"This workstation is no longer connected to the database. Please select FILE,LOG OUT from the "
        "menu, or CTRL-L to log out and reconnect."_s,
        u"Calibration Record Creation"_s, box::stop);
    save();
    EXPECT_FALSE(hasRecord());
    EXPECT_EQ(unfinished().size(), 1);
    expectEnded(1);
}

TEST_F(RecordOfAWorksheet, WithAConnectionLostInItsPreparationStaysToo) {
    script.failures[standardQuery(u"S-1"_s, u"PT-1"_s)] = Error{10054, u"lost"_s, u"08S01"_s, true};
    ask.instrument(u"PT-1"_s);
    ask.standard(u"S-1"_s);
    ui.expectReport(10054, u"ModuleGlobals,CheckStandard"_s);
    ask.noMoreStandards();
    start();
    ui.expectBox(
        u"This workstation is no longer connected to the database. Please select FILE,LOG OUT from the "
        "menu, or CTRL-L to log out and reconnect."_s,
        u"Calibration Record Creation"_s, box::stop);
    expectUnprepared();
}

TEST_F(RecordOfAWorksheet, OfAnEntryWithoutAnyFieldKeepsTheInstrumentAsItsReading) {
    setDictionary({});
    script.failures[standardQuery(u"S-1"_s, u"PT-1"_s)] = serverError();
    ask.instrument(u"PT-1"_s);
    ask.standard(u"S-1"_s);
    ui.expectReport(-158, u"ModuleGlobals,CheckStandard"_s);
    ask.noMoreStandards();
    start();
    expectUnprepared();
    EXPECT_EQ(unfinished()[0].readings, QStringList{u"Asset Calibrated: PT-1"_s});
}

TEST_F(RecordOfAWorksheet, EndsOnTheScreenEvenWhenTheReportCantBeWritten) {
    enter();
    script.failures
        [u"select c2301 from MT.calibration where c2301 = '2026-03-18' and c2333 = '09:30:00' and mtag "
         "= '7'"_s] = serverError();
    ASSERT_TRUE(QDir().mkdir(u"errors.log"_s));
    EXPECT_THROW(entry.save(), Error);
    EXPECT_EQ(unfinished().size(), 1);
    expectEnded(1);
}

} // namespace kelvane::testing
