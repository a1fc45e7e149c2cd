#include "worksheets/worksheet_list.h"

#include "testkit/fixtures.h"
#include "tests/worksheets/scripted_worksheet_screen.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString title = u"Print Worksheet(s)"_s;
const QString invalid = u"Must enter a valid instrument number!"_s;
const QString incomplete =
    u"This instrument does not have complete configuration data! Either the calibration "
    "parameters for this instrument have not yet been set, or the test strategy has not "
    "been set or has been removed."_s;
const QString routine = u"FormWorksheetPrint,CommandAdd"_s;

/// `asset` as it stands between the quotes of the statement.
QString selectInstrument(const QString& asset, const QString& owner = u"MT"_s) {
    return u"select i4201 from %1.inventory where i4201 = '%2'"_s.arg(owner, asset);
}

QString selectConfiguration(const QString& asset, const QString& owner = u"MT"_s) {
    return u"select mtag from mt.hvm_kv_tag_config where mtag = (select mtag from %1.inventory where i4201 = '%2')"_s
        .arg(owner, asset);
}

class WorksheetList : public RecordedSession {
  protected:
    void add(const QString& entry) {
        script.statements.clear();
        screen.events.clear();
        ui.events.clear();
        addToWorksheetList(session, screen, entry);
    }
    void know(const QString& asset) {
        script.answers.insert(selectInstrument(asset), {{asset}});
        script.answers.insert(selectConfiguration(asset), {{u"17"_s}});
    }
    /// A box that comes with the normal pointer.
    void expectWarning(const QString& message) {
        ui.expectBox(message, title, box::warning);
        ui.onBox = [this] { EXPECT_FALSE(ui.busy); };
    }

    ScriptedWorksheetScreen screen;
};

} // namespace

TEST_F(WorksheetList, TakesAnInstrumentThatHasItsConfiguration) {
    know(u"A-1"_s);
    add(u"A-1"_s);
    EXPECT_EQ(script.statements, (QStringList{selectInstrument(u"A-1"_s), selectConfiguration(u"A-1"_s)}));
    EXPECT_EQ(screen.list, QStringList{u"A-1"_s});
    EXPECT_EQ(screen.events, (QStringList{u"empty"_s, u"focus"_s}));
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
}

TEST_F(WorksheetList, AnEmptyEntryDoesNothing) {
    add(QString());
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(screen.events, QStringList());
    EXPECT_EQ(ui.events, QStringList());
}

TEST_F(WorksheetList, AnUnknownEntryGetsAWarningAndStays) {
    for (const auto& entry : {u"nobody"_s, u" "_s}) {
        expectWarning(invalid);
        add(entry);
        EXPECT_EQ(script.statements, QStringList{selectInstrument(entry)});
        EXPECT_EQ(screen.list, QStringList());
        EXPECT_EQ(screen.events, QStringList{u"focus"_s});
        EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
    }
}

TEST_F(WorksheetList, AnInstrumentWithoutItsConfigurationGetsAWarningAndStays) {
    script.answers.insert(selectInstrument(u"bare"_s), {{u"bare"_s}});
    expectWarning(incomplete);
    add(u"bare"_s);
    EXPECT_EQ(script.statements, (QStringList{selectInstrument(u"bare"_s), selectConfiguration(u"bare"_s)}));
    EXPECT_EQ(screen.list, QStringList());
    EXPECT_EQ(screen.events, QStringList{u"focus"_s});
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
}

TEST_F(WorksheetList, ListsAnyTextAsTypedAndDoublesItsQuotesInTheStatements) {
    const struct {
        QString entry;
        QString sent;
    } cases[] = {
        {u"O'Brien"_s, u"O''Brien"_s},
        {u"a''b'"_s, u"a''''b''"_s},
        {u"'"_s, u"''"_s},
        {u"x'; delete from mt.hvm_kv_task_packages; select '1"_s,
         u"x''; delete from mt.hvm_kv_task_packages; select ''1"_s},
        {u" A-1"_s, u" A-1"_s},
        {u"A 1 "_s, u"A 1 "_s},
        {u"  "_s, u"  "_s},
        {u"Größe-1"_s, u"Größe-1"_s},
        {u"Ω 校正 Датчик"_s, u"Ω 校正 Датчик"_s},
        {u"\U0001F321"_s, u"\U0001F321"_s},
        {u"%1 \\ \" ; -- /*"_s, u"%1 \\ \" ; -- /*"_s},
        {u"x"_s.repeated(10000), u"x"_s.repeated(10000)},
        {u"'"_s.repeated(10000), u"''"_s.repeated(10000)},
    };
    for (const auto& testCase : cases) {
        know(testCase.sent);
        add(testCase.entry);
        EXPECT_EQ(script.statements,
                  (QStringList{selectInstrument(testCase.sent), selectConfiguration(testCase.sent)}));
        EXPECT_EQ(screen.list.last(), testCase.entry);
    }
    EXPECT_EQ(screen.list.size(), std::ssize(cases));
}

TEST_F(WorksheetList, LooksUnderTheSessionsOwner) {
    session.SessionOwner = u"ABC"_s;
    script.answers.insert(selectInstrument(u"A-1"_s, u"ABC"_s), {{u"A-1"_s}});
    script.answers.insert(selectConfiguration(u"A-1"_s, u"ABC"_s), {{u"17"_s}});
    add(u"A-1"_s);
    EXPECT_EQ(screen.list, QStringList{u"A-1"_s});
}

TEST_F(WorksheetList, AListedInstrumentIsListedAgain) {
    know(u"A-1"_s);
    add(u"A-1"_s);
    add(u"A-1"_s);
    EXPECT_EQ(screen.list, (QStringList{u"A-1"_s, u"A-1"_s}));
}

TEST_F(WorksheetList, AnErrorOfAnAdditionIsReportedAndTheEntryStays) {
    know(u"A-1"_s);
    for (const auto& statement : {selectInstrument(u"A-1"_s), selectConfiguration(u"A-1"_s)}) {
        script.failures = {{statement, Error{42, u"refused"_s}}};
        ui.expectReport(42, routine);
        ui.onBox = [this] { EXPECT_FALSE(ui.busy); };
        add(u"A-1"_s);
        EXPECT_EQ(script.statements.last(), statement);
        EXPECT_EQ(screen.list, QStringList());
        EXPECT_EQ(screen.events, QStringList{u"focus"_s});
        EXPECT_FALSE(ui.busy);
    }
    EXPECT_TRUE(session.SessionConnected);
}

TEST_F(WorksheetList, ALostConnectionEndsTheAdditionWithItsReport) {
    script.lost = true;
    ui.expectReport(10054, routine);
    add(u"A-1"_s);
    EXPECT_EQ(script.statements.size(), 1);
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_FALSE(ui.busy);
}

TEST_F(WorksheetList, RemoveTakesTheSelectedRowAndSendsNothing) {
    const struct {
        int row;
        QStringList left;
    } cases[] = {{-1, {u"A"_s, u"B"_s, u"C"_s}},
                 {3, {u"A"_s, u"B"_s, u"C"_s}},
                 {0, {u"B"_s, u"C"_s}},
                 {1, {u"A"_s, u"C"_s}},
                 {2, {u"A"_s, u"B"_s}}};
    for (const auto& testCase : cases) {
        screen.list = {u"A"_s, u"B"_s, u"C"_s};
        removeFromWorksheetList(screen, testCase.row);
        EXPECT_EQ(screen.list, testCase.left) << testCase.row;
    }
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(WorksheetList, NoStandardIsAskedForWhileTheListIsEmpty) {
    checkStandardForWorksheets(session, screen);
    ui.questionOpen = true;
    checkStandardForWorksheets(session, screen);
    EXPECT_EQ(ui.broughtForward, 0);
    EXPECT_EQ(ui.events, QStringList());
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(WorksheetList, AnyTextIsTakenForAStandardButNone) {
    screen.list = {u"A-1"_s};
    ui.expectDialog(u"Check A Standard"_s, u"Enter a standard to check:"_s, cancelled,
                    [](const DialogQuestion& question) {
                        EXPECT_TRUE(question.required);
                        EXPECT_FALSE(question.fromList);
                        EXPECT_EQ(question.maxLength, 0);
                        EXPECT_EQ(question.fieldType, 0);
                        EXPECT_EQ(question.defaultText, QString());
                    });
    checkStandardForWorksheets(session, screen);
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(WorksheetList, AnotherQuestionIsBroughtForwardInsteadOfTheStandards) {
    screen.list = {u"A-1"_s};
    ui.questionOpen = true;
    checkStandardForWorksheets(session, screen);
    EXPECT_EQ(ui.broughtForward, 1);
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(WorksheetList, AnErrorWhileAStandardIsCheckedIsReportedAndTheNextRowIsTried) {
    screen.list = {u"A-1"_s, u"A-2"_s, u"A-3"_s};
    script.lost = true;
    ui.expectDialog(u"Check A Standard"_s, u"Enter a standard to check:"_s, u"S-1"_s);
    for (qsizetype row = 0; row < screen.list.size(); ++row)
        ui.expectReport(10054, u"ModuleGlobals,CheckStandard"_s);
    checkStandardForWorksheets(session, screen);
    EXPECT_EQ(script.statements.size(), 3);
    EXPECT_FALSE(ui.busy);
}

} // namespace kelvane::testing
