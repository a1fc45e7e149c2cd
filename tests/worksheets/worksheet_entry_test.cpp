// What is asked and shown; the record of it is in worksheet_entry_record_test.cpp.
#include "worksheets/worksheet_entry.h"

#include "tests/worksheets/entry_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class WorksheetEntryOfAnInstrument : public EntryFixture {
  protected:
    WorksheetEntryOfAnInstrument() {
        setDictionary({{.column = u"C2301"_s,
                        .title = u"Date"_s,
                        .required = u"Y"_s,
                        .defaultText = u"99/99/99"_s,
                        .isDate = true},
                       {.column = u"C2333"_s, .title = u"Time"_s, .defaultText = u"99:99"_s},
                       {.column = u"C2312"_s, .title = u"Temperature"_s, .required = u"Y"_s},
                       {.column = u"C2326"_s, .title = u"Remarks"_s}},
                      {u"2312"_s});
    }
};

TEST_F(WorksheetEntryOfAnInstrument, AsksForInstrumentFieldsAndStandardsInTheirOrder) {
    ask.instrument(u"PT-1"_s, [this](const DialogQuestion& question) {
        EXPECT_TRUE(question.required);
        EXPECT_FALSE(question.fromList);
        EXPECT_EQ(question.maxLength, 60);
        EXPECT_EQ(question.fieldType, 0);
        EXPECT_EQ(question.defaultText, QString());
        EXPECT_EQ(script.statements, QStringList());
    });
    ask.field(u"PT-1"_s, u"Temperature"_s, u"21"_s, [this](const DialogQuestion& question) {
        EXPECT_TRUE(question.required);
        EXPECT_EQ(screen.instrument, u"PT-1"_s);
        EXPECT_EQ(screen.rows(), QStringList());
        // Once for the marks of the fields, once for the questions.
        EXPECT_EQ(script.statements.count(worksheetQuery), 2);
    });
    ask.field(u"PT-1"_s, u"Temperature"_s, u"22"_s, [this](const DialogQuestion& question) {
        EXPECT_EQ(question.defaultText, u"21"_s);
        EXPECT_EQ(screen.rows(), (QStringList{u"Temperature=21"_s, u"Date=03/18/2026"_s, u"Time=09:30"_s}));
    });
    ask.standard(u"S-1"_s, [](const DialogQuestion& question) {
        EXPECT_FALSE(question.required);
        EXPECT_FALSE(question.fromList);
        EXPECT_EQ(question.maxLength, 60);
        EXPECT_EQ(question.defaultText, QString());
    });
    ask.standard(u"S-2"_s,
                 [this](const DialogQuestion&) { EXPECT_EQ(screen.listed, QStringList{u"S-1"_s}); });
    ask.noMoreStandards();
    start();
    EXPECT_EQ(screen.rows(), (QStringList{u"Temperature=21"_s, u"Date=03/18/2026"_s, u"Time=09:30"_s,
                                          u"Temperature=22"_s, u"Remarks="_s}))
        << "a field that the worksheet asks for stands twice";
    EXPECT_EQ(screen.listed, (QStringList{u"S-1"_s, u"S-2"_s}));
    EXPECT_EQ(script.statements.first(), keyQuery(u"PT-1"_s));
    EXPECT_EQ(script.statements.mid(script.statements.size() - 6),
              (QStringList{keyQuery(u"S-1"_s), standardQuery(u"S-1"_s, u"PT-1"_s),
                           rankQuery(u"S-1"_s, u"PT-1"_s), keyQuery(u"S-2"_s),
                           standardQuery(u"S-2"_s, u"PT-1"_s), rankQuery(u"S-2"_s, u"PT-1"_s)}));
    EXPECT_EQ(screen.ended + screen.offered, 0);
}

TEST_F(WorksheetEntryOfAnInstrument, AsksAgainForAnUnknownInstrument) {
    ask.instrument(u"X-9"_s);
    ask.warning(u"Must enter a valid instrument number!"_s, entryTitle);
    ask.instrument(u"PT-1"_s, [this](const DialogQuestion&) { EXPECT_EQ(screen.instrument, QString()); });
    ask.field(u"PT-1"_s, u"Temperature"_s, u"21"_s);
    ask.field(u"PT-1"_s, u"Temperature"_s, u"21"_s);
    ask.noMoreStandards();
    start();
    EXPECT_EQ(screen.instrument, u"PT-1"_s);
}

TEST_F(WorksheetEntryOfAnInstrument, CancelledAtTheInstrumentLeavesTheScreenEmptyAndKeepsTheStandards) {
    screen.instrument = u"PT-2"_s;
    screen.addField(u"Old"_s, u"value"_s);
    screen.listed = QStringList{u"S-1"_s};
    ask.instrument(cancelled);
    start();
    EXPECT_EQ(screen.instrument, QString());
    EXPECT_EQ(screen.rows(), QStringList());
    EXPECT_EQ(screen.listed, QStringList{u"S-1"_s});
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(WorksheetEntryOfAnInstrument, AnInstrumentOfBlanksGivesUp) {
    ask.instrument(u"   "_s);
    start();
    EXPECT_EQ(screen.instrument, QString());
}

TEST_F(WorksheetEntryOfAnInstrument, CancelledAfterAFieldWasGivenUpEmptiesTheFieldTableToo) {
    ask.instrument(u"PT-1"_s);
    ask.cancelledField(u"PT-1"_s, u"Temperature"_s);
    ask.instrument(cancelled, [this](const DialogQuestion&) { EXPECT_EQ(screen.instrument, u"PT-1"_s); });
    start();
    screen.addField(u"Remarks"_s, u""_s);
    entry.changeField(0); // nothing knows this field any more: no question
}

TEST_F(WorksheetEntryOfAnInstrument, AWorksheetFieldThatIsGivenUpStartsAgainWithTheInstrument) {
    ask.instrument(u"PT-1"_s);
    ask.cancelledField(u"PT-1"_s, u"Temperature"_s);
    ask.instrument(u"PT-2"_s);
    ask.field(u"PT-2"_s, u"Temperature"_s, u"5"_s,
              [](const DialogQuestion& question) { EXPECT_EQ(question.defaultText, QString()); });
    ask.field(u"PT-2"_s, u"Temperature"_s, u"6"_s);
    ask.noMoreStandards();
    start();
    EXPECT_EQ(screen.instrument, u"PT-2"_s);
    EXPECT_EQ(screen.rows().first(), u"Temperature=5"_s);
}

TEST_F(WorksheetEntryOfAnInstrument, ARequiredFieldThatIsGivenUpAtItsSecondQuestionStartsAgainToo) {
    ask.instrument(u"PT-1"_s);
    ask.field(u"PT-1"_s, u"Temperature"_s, u"21"_s);
    ask.cancelledField(u"PT-1"_s, u"Temperature"_s);
    ask.instrument(u"PT-1"_s);
    ask.field(u"PT-1"_s, u"Temperature"_s, u"7"_s, [](const DialogQuestion& question) {
        EXPECT_EQ(question.defaultText, QString()) << "the dictionary was read again";
    });
    ask.field(u"PT-1"_s, u"Temperature"_s, u"8"_s);
    ask.noMoreStandards();
    start();
    EXPECT_EQ(screen.rows(), (QStringList{u"Temperature=7"_s, u"Date=03/18/2026"_s, u"Time=09:30"_s,
                                          u"Temperature=8"_s, u"Remarks="_s}));
}

TEST_F(WorksheetEntryOfAnInstrument, WorksheetFieldsComeInTheirOwnOrderAndUnknownNumbersArePassedOver) {
    setDictionary({{.column = u"C2312"_s, .title = u"Temperature"_s},
                   {.column = u"C2326"_s, .title = u"Remarks"_s},
                   {.column = u"X_2329"_s, .title = u"Condition"_s}},
                  {u"2326"_s, u"2399"_s, u"2329"_s, u"2312"_s});
    ask.instrument(u"PT-1"_s);
    ask.field(u"PT-1"_s, u"Remarks"_s, u"a"_s);
    ask.field(u"PT-1"_s, u"Condition"_s, u"b"_s);
    ask.field(u"PT-1"_s, u"Temperature"_s, u"c"_s);
    ask.noMoreStandards();
    start();
    EXPECT_EQ(screen.rows(), (QStringList{u"Remarks=a"_s, u"Condition=b"_s, u"Temperature=c"_s,
                                          u"Temperature=c"_s, u"Remarks=a"_s, u"Condition=b"_s}));
}

TEST_F(WorksheetEntryOfAnInstrument, AFieldThatIsEmptiedGetsItsDefaultBack) {
    setDictionary({{.column = u"C2312"_s, .title = u"Temperature"_s, .defaultText = u"20"_s}}, {u"2312"_s});
    ask.instrument(u"PT-1"_s);
    ask.field(u"PT-1"_s, u"Temperature"_s, {});
    ask.noMoreStandards();
    start();
    EXPECT_EQ(screen.rows(), (QStringList{u"Temperature="_s, u"Temperature=20"_s}));
}

TEST_F(WorksheetEntryOfAnInstrument, DefaultsThatAreTokensAreCopiedAsTheyAreWritten) {
    setDictionary({{.column = u"C2317"_s, .title = u"Owner"_s, .defaultText = u"U_SEG"_s},
                   {.column = u"C2318"_s, .title = u"Approved"_s, .defaultText = u"U_WRK"_s},
                   {.column = u"C2319"_s, .title = u"Note"_s, .defaultText = u"\""_s}},
                  {u"2317"_s});
    ask.instrument(u"PT-1"_s);
    ask.field(u"PT-1"_s, u"Owner"_s, {},
              [](const DialogQuestion& question) { EXPECT_EQ(question.defaultText, u"MT"_s); });
    ask.noMoreStandards();
    start();
    EXPECT_EQ(screen.rows(), (QStringList{u"Owner="_s, u"Owner=U_SEG"_s, u"Approved=U_WRK"_s, u"Note=\""_s}));
}

TEST_F(WorksheetEntryOfAnInstrument, ARequiredFieldWithADefaultIsNotAskedFor) {
    setDictionary(
        {{.column = u"C2308"_s, .title = u"State"_s, .required = u"Y"_s, .defaultText = u"FOUND-LEFT"_s}});
    enter();
    EXPECT_EQ(screen.rows(), QStringList{u"State=FOUND-LEFT"_s});
}

TEST_F(WorksheetEntryOfAnInstrument, AnInstrumentWithoutFieldsIsAskedForItsStandardsOnly) {
    setDictionary({});
    enter({u"S-1"_s});
    EXPECT_EQ(screen.rows(), QStringList());
    EXPECT_EQ(screen.listed, QStringList{u"S-1"_s});
}

TEST_F(WorksheetEntryOfAnInstrument, TheWalkTakesAllOfAHundredAndOneFields) {
    QList<DictionaryField> fields;
    for (int number = 0; number <= 100; ++number)
        fields << DictionaryField{.column = u"C2%1"_s.arg(number, 3, 10, QLatin1Char('0')),
                                  .title = u"Field %1"_s.arg(number),
                                  .defaultText = QString::number(number)};
    setDictionary(fields, {u"2100"_s});
    ask.instrument(u"PT-1"_s);
    ask.field(u"PT-1"_s, u"Field 100"_s, u"last"_s);
    ask.noMoreStandards();
    start();
    EXPECT_EQ(screen.fields.size(), 102);
    EXPECT_EQ(screen.rows().first(), u"Field 100=last"_s);
    EXPECT_EQ(screen.rows().last(), u"Field 100=last"_s);
}

TEST_F(WorksheetEntryOfAnInstrument, AnErrorOfItsOwnQueryIsReportedAndEndsIt) {
    setDictionary({{.column = u"C2312"_s, .title = u"Temperature"_s}}, {});
    script.answers.insert(worksheetQuery, {Row{std::nullopt}}); // invalid use of null
    ask.instrument(u"PT-1"_s);
    ui.expectReport(94, u"ModuleGlobals,SetCalDataFields"_s);
    ui.expectReport(94, u"FormWorkEntry,StartDataEntry"_s);
    start();
    EXPECT_EQ(screen.instrument, u"PT-1"_s);
    EXPECT_EQ(screen.rows(), QStringList());
    EXPECT_EQ(screen.listed, QStringList());
}

TEST_F(WorksheetEntryOfAnInstrument, LongAndForeignTextsAreShownAsTheyAre) {
    setDictionary({{.column = u"C2312"_s, .title = u"Temperature"_s},
                   {.column = u"C2326"_s, .title = u"Ре́марка \"'<b>"_s}},
                  {u"2312"_s, u"2326"_s});
    const auto longText = u"x"_s.repeated(10000);
    ask.instrument(u"PT-1"_s);
    ask.field(u"PT-1"_s, u"Temperature"_s, longText);
    ask.field(u"PT-1"_s, u"Ре́марка \"'<b>"_s, u"測定 O'Neil \""_s);
    ask.noMoreStandards();
    start();
    EXPECT_EQ(screen.rows().mid(2),
              (QStringList{u"Temperature="_s + longText, u"Ре́марка \"'<b>=測定 O'Neil \""_s}));
}

class StandardsOfAnEntry : public EntryFixture {
  protected:
    StandardsOfAnEntry() { setDictionary({}); }
};

TEST_F(StandardsOfAnEntry, AnUnknownOneIsWarnedAboutAndListedAllTheSame) {
    ask.instrument(u"PT-1"_s);
    ask.standard(u"NONE-1"_s);
    ask.warning(u"Standard does not exist!"_s, standardsTitle);
    ask.noMoreStandards();
    start();
    EXPECT_EQ(screen.listed, QStringList{u"NONE-1"_s});
    EXPECT_TRUE(sent(standardQuery(u"NONE-1"_s, u"PT-1"_s)).isEmpty()) << "it is not checked any further";
}

TEST_F(StandardsOfAnEntry, OneOfTooLowARankIsWarnedAboutWithTheInstrumentAndListed) {
    script.answers.insert(rankQuery(u"S-1"_s, u"PT-1"_s), {Row{u"-1"_s}});
    ask.instrument(u"PT-1"_s);
    ask.standard(u"S-1"_s);
    ask.warning(u"Standard is not of a high enough trace level to calibrate: PT-1"_s, standardsTitle);
    ask.noMoreStandards();
    start();
    EXPECT_EQ(screen.listed, QStringList{u"S-1"_s});
}

TEST_F(StandardsOfAnEntry, AnOverdueOneIsWarnedAboutAndListed) {
    addStandard(u"S-1"_s, u"A"_s, u"2026-03-17"_s);
    ask.instrument(u"PT-1"_s);
    ask.standard(u"S-1"_s);
    ask.warning(u"Standard is overdue for calibration!"_s, standardsTitle);
    ask.noMoreStandards();
    start();
    EXPECT_EQ(screen.listed, QStringList{u"S-1"_s});
}

TEST_F(StandardsOfAnEntry, WithoutATraceCodeOfItsOwnOrOfTheInstrumentItIsListedWithoutAWord) {
    addStandard(u"S-1"_s, {});
    addStandard(u"S-2"_s, u"A"_s, {}, std::nullopt);
    enter({u"S-1"_s, u"S-2"_s});
    EXPECT_EQ(screen.listed, (QStringList{u"S-1"_s, u"S-2"_s}));
}

TEST_F(StandardsOfAnEntry, TheSameOnceMoreIsWarnedAboutAfterItsCheckAndNotListed) {
    addStandard(u"S-1"_s, u"A"_s, u"2026-03-17"_s);
    ask.instrument(u"PT-1"_s);
    for (int time = 0; time < 2; ++time) {
        ask.standard(u"S-1"_s);
        ask.warning(u"Standard is overdue for calibration!"_s, standardsTitle);
    }
    ask.warning(u"Standard already listed!"_s, standardsTitle);
    ask.noMoreStandards();
    start();
    EXPECT_EQ(screen.listed, QStringList{u"S-1"_s});
}

TEST_F(StandardsOfAnEntry, InOtherLettersItIsAnotherOne) {
    addStandard(u"s-1"_s);
    enter({u"S-1"_s, u"s-1"_s});
    EXPECT_EQ(screen.listed, (QStringList{u"S-1"_s, u"s-1"_s}));
}

TEST_F(StandardsOfAnEntry, EndWithACancelledQuestion) {
    ask.instrument(u"PT-1"_s);
    ask.standard(u"S-1"_s);
    ask.standard(cancelled);
    start();
    EXPECT_EQ(screen.listed, QStringList{u"S-1"_s});
}

TEST_F(StandardsOfAnEntry, AreNotAskedForWhileOneIsListed) {
    screen.listed = QStringList{u"S-1"_s};
    ask.instrument(u"PT-1"_s);
    start();
    entry.addStandards();
    EXPECT_EQ(screen.listed, QStringList{u"S-1"_s});
}

TEST_F(StandardsOfAnEntry, AreAskedForByTheButtonOnceTheListIsEmpty) {
    enter({u"S-1"_s});
    screen.listed.clear();
    ask.standard(u"S-2"_s);
    ask.noMoreStandards();
    entry.addStandards();
    EXPECT_EQ(screen.listed, QStringList{u"S-2"_s});
    EXPECT_EQ(sent(standardQuery(u"S-2"_s, u"PT-1"_s)).size(), 1);
}

TEST_F(StandardsOfAnEntry, AreLookedUpUnderTheOwnerOfTheSessionEvenWhereTheyAreAnothers) {
    session.SessionOwner = u"ABC"_s;
    const auto ofOwner = u"select mtag from ABC.inventory where i4201 = '%1'"_s;
    script.answers.insert(ofOwner.arg(u"PT-1"_s), {Row{u"7"_s}});
    script.answers.insert(
        u"select count(ctag) from ABC.calibration where mtag = (%1)"_s.arg(ofOwner.arg(u"PT-1"_s)),
        {Row{u"1"_s}});
    ask.instrument(u"PT-1"_s);
    ask.standard(u"STD-1"_s);
    ask.warning(u"Standard does not exist!"_s, standardsTitle);
    ask.noMoreStandards();
    start();
    EXPECT_EQ(script.statements.last(), ofOwner.arg(u"STD-1"_s)) << "nothing is looked for in STD";
    EXPECT_EQ(screen.listed, QStringList{u"STD-1"_s});
}

class ChangedField : public EntryFixture {
  protected:
    ChangedField() {
        setDictionary({{.column = u"C2312"_s, .title = u"Temperature"_s},
                       {.column = u"C2326"_s, .title = u"Remarks"_s},
                       {.column = u"C2329"_s, .title = u"Remarks"_s}},
                      {u"2312"_s});
        ask.instrument(u"PT-1"_s);
        ask.field(u"PT-1"_s, u"Temperature"_s, u"21"_s);
        ask.noMoreStandards();
        start();
    }
};

TEST_F(ChangedField, GetsTheNewValueInItsRowAlone) {
    ask.field(u"PT-1"_s, u"Temperature"_s, u"22"_s,
              [](const DialogQuestion& question) { EXPECT_EQ(question.defaultText, u"21"_s); });
    entry.changeField(1);
    EXPECT_EQ(screen.rows(),
              (QStringList{u"Temperature=21"_s, u"Temperature=22"_s, u"Remarks="_s, u"Remarks="_s}));
}

TEST_F(ChangedField, StaysWhenItIsGivenUp) {
    ask.cancelledField(u"PT-1"_s, u"Temperature"_s);
    entry.changeField(0);
    EXPECT_EQ(screen.rows().first(), u"Temperature=21"_s);
}

TEST_F(ChangedField, IsTheFirstOneOfItsTitle) {
    ask.field(u"PT-1"_s, u"Remarks"_s, u"a"_s);
    entry.changeField(3);
    EXPECT_EQ(screen.rows().last(), u"Remarks=a"_s);
    ask.field(u"PT-1"_s, u"Remarks"_s, u"b"_s,
              [](const DialogQuestion& question) { EXPECT_EQ(question.defaultText, u"a"_s); });
    entry.changeField(2);
    EXPECT_EQ(screen.rows().mid(2), (QStringList{u"Remarks=b"_s, u"Remarks=a"_s}));
}

TEST_F(ChangedField, WithoutItsTitleInTheDictionaryIsNotAskedFor) {
    screen.addField(u"Unknown"_s, {});
    entry.changeField(4);
    EXPECT_EQ(screen.rows().last(), u"Unknown="_s);
}

TEST_F(ChangedField, AfterTheRecordIsAskedForWithoutAnInstrument) {
    screen.instrument.clear();
    ask.field({}, u"Temperature"_s, u"1"_s);
    entry.changeField(0);
    EXPECT_EQ(screen.rows().first(), u"Temperature=1"_s);
}

} // namespace kelvane::testing
