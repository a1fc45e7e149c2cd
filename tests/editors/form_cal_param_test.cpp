#include "editors/form_cal_param.h"
#include "tests/data/scripted_params.h"
#include "tests/editors/cal_param_hands.h"
#include "tests/support/program_fixture.h"
#include "ui/form_custom_dialog.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString title = u"Calibration Parameters"_s;
const QString enterInstrument = u"Enter instrument number:"_s;
const QString noInstrument = u"Must enter a valid instrument number!"_s;
const QString discard = u"Are you sure you want to discard any changes made since last save?"_s;
const QString countPoints = u"select count(tp_name) from mt.hvm_kv_proc_points"_s;
const QString selectStrategies =
    u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc"_s;

QString findAsset(const QString& asset) {
    return u"select mtag from MT.inventory where i4201 = '"_s + asset + u"'"_s;
}

QString displayed(const QString& type, const QString& asset) {
    return u"select pname from mt.hvm_kv_proc_prompts where prompt_type = '"_s + type +
           u"' and mtag = (select mtag from MT.inventory where i4201 = '"_s + asset + u"')"_s;
}

QString selectDisplayed(const QString& type, const QString& asset) {
    return displayed(type, asset) + u" order by prompt_seq asc"_s;
}

QString selectAvailable(const QString& type, const QString& asset) {
    return u"select pname from mt.hvm_kv_prompts where pname not in ("_s + displayed(type, asset) + u')';
}

/// The statements that load an instrument, in their order.
QStringList loading(const QString& asset) {
    return {selectStrategies,
            calParamsStatement(u"MT"_s, asset),
            selectAvailable(u"PRE"_s, asset),
            selectAvailable(u"PST"_s, asset),
            selectDisplayed(u"PRE"_s, asset),
            selectDisplayed(u"PST"_s, asset)};
}

/// A stored row with these columns, by their place, changed.
Row storedRow(std::initializer_list<std::pair<int, std::optional<QString>>> changes = {}) {
    auto row = calParamsRow();
    row[2] = u"0.001"_s;
    row[40] = u"THREE"_s;
    for (const auto& [place, value] : changes)
        row[place] = value;
    return row;
}

} // namespace

/// The workstation over a database that knows the strategies FIVE and THREE and three instruments: PT-1 has
/// parameters and messages, PT-2 and PT-3 have none.
class FormCalParamTest : public ProgramTest {
  protected:
    FormCalParamTest() {
        startLoggedIn(4);
        script.answers.insert(countPoints, {Row{u"8"_s}});
        script.answers.insert(selectStrategies, {Row{u"FIVE"_s}, Row{u"THREE"_s}});
        for (const auto& asset : {u"PT-1"_s, u"PT-2"_s, u"PT-3"_s})
            script.answers.insert(findAsset(asset), {Row{u"17"_s}});
        store(storedRow());
        script.answers.insert(selectAvailable(u"PRE"_s, u"PT-1"_s), {Row{u"C"_s}, Row{u"A"_s}});
        script.answers.insert(selectAvailable(u"PST"_s, u"PT-1"_s), {Row{u"B"_s}});
        script.answers.insert(selectDisplayed(u"PRE"_s, u"PT-1"_s), {Row{u"B"_s}, Row{u"D"_s}});
        script.answers.insert(selectDisplayed(u"PST"_s, u"PT-1"_s), {Row{u"A"_s}});
    }
    /// What the database holds of PT-1.
    void store(const Row& row) { script.answers.insert(calParamsStatement(u"MT"_s, u"PT-1"_s), {row}); }

    void open(const QString& asset) {
        person.expectDialog(title, enterInstrument, asset);
        choose(u"mnuCalParameters"_s);
        script.statements.clear();
    }
    void expectCancel() {
        person.expectDialog(title, enterInstrument, [this](FormCustomDialog& dialog) { cancel(dialog); });
    }
    void cancel(FormCustomDialog& dialog) {
        person.expectBox(u"Do you really want to cancel?"_s, u"Kelvane"_s, box::warningYesNo, BoxAnswer::yes);
        dialog.close();
    }
    void expectDiscard(BoxAnswer answer) {
        person.expectBox(discard, u"Kelvane"_s, box::warningYesNo, answer);
    }
    ChildWindow& form() { return child(u"FormCalParam"_s); }
    bool isOpen() { return findChild(u"FormCalParam"_s) != nullptr; }
    bool flag() { return session.openFlag(ChildForm::FormCalParam); }
    QString shown(const QString& name) { return shownBy(form(), name); }
    void type(const QString& name, const QString& value) {
        auto& box = control<QLineEdit>(form(), name);
        bringUp(box);
        control<QPushButton>(form(), u"CommandSave"_s).setFocus();
        box.setFocus();
        QTest::keyClicks(&box, value);
        EXPECT_EQ(box.text(), value);
    }
    void press(const QString& name) { click(control<QPushButton>(form(), name)); }
    /// Chooses another instrument through its button; `then` expects what comes behind the question.
    void select(const QString& asset, const std::function<void()>& then = {}) {
        person.expectDialog(title, enterInstrument, asset);
        if (then)
            then();
        press(u"CommandSelect"_s);
    }
    QStringList shownSubTabs() {
        QStringList names;
        for (const auto* tabs : form().findChildren<QTabWidget*>()) {
            if (!tabs->isHidden() && tabs->objectName() != u"SSTab1"_s)
                names << tabs->objectName();
        }
        names.sort();
        return names;
    }
};

TEST_F(FormCalParamTest, OpensWithTheInstrumentThatItAsksFor) {
    person.expectDialog(title, enterInstrument, [this](FormCustomDialog& dialog) {
        EXPECT_TRUE(form().isVisible());
        EXPECT_EQ(form().windowTitle(), title);
        EXPECT_FALSE(flag());
        EXPECT_EQ(script.statements, QStringList{countPoints});
        answerDialog(dialog, u"PT-1"_s);
    });
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(script.statements, QStringList{countPoints} << findAsset(u"PT-1"_s) << loading(u"PT-1"_s));
    EXPECT_EQ(script.firstRowOnly.mid(script.firstRowOnly.size() - 2),
              (QStringList{findAsset(u"PT-1"_s), calParamsStatement(u"MT"_s, u"PT-1"_s)}));
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-1)"_s);
    EXPECT_TRUE(flag());
    EXPECT_FALSE(QApplication::overrideCursor());
    EXPECT_EQ(qApp->focusWidget()->objectName(), u"ComboTSName"_s);
}

TEST_F(FormCalParamTest, HasItsSizeAndItsPlace) {
    program.window.resize(1000, 800);
    open(u"PT-2"_s);
    EXPECT_EQ(form().geometry(), QRect(7, 5, 664, 474));
}

TEST_F(FormCalParamTest, StandsWhereItWasAndKeepsWhereItIs) {
    program.window.resize(1000, 800);
    settings.values.insert(u"Left/FormCalParam"_s, u"1500"_s);
    settings.values.insert(u"Top/FormCalParam"_s, u"750"_s);
    open(u"PT-2"_s);
    EXPECT_EQ(form().pos(), QPoint(100, 50));
    form().move(20, 30);
    settings.writes.clear();
    form().close();
    EXPECT_EQ(settings.writes, (QStringList{u"Left/FormCalParam=300"_s, u"Top/FormCalParam=450"_s}));
    EXPECT_FALSE(flag());
}

TEST_F(FormCalParamTest, TheQuestionForTheInstrumentIsRequiredFreeAndOfAnyLength) {
    const auto long_number = u"9"_s.repeated(40000);
    person.expectDialog(title, enterInstrument, [&](FormCustomDialog& dialog) {
        auto& field = control<QLineEdit>(dialog, u"TextCustomDialog"_s);
        EXPECT_EQ(field.text(), QString());
        EXPECT_EQ(field.maxLength(), std::numeric_limits<int>::max());
        person.expectBox(u"Required Field - must provide an entry!"_s, u"Kelvane"_s, box::warning);
        QTest::keyClick(&field, Qt::Key_Return);
        person.expectBox(noInstrument, title, box::warningRetryCancel, BoxAnswer::cancel);
        field.setText(long_number);
        QTest::keyClick(&field, Qt::Key_Return);
    });
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(script.statements.last(), findAsset(long_number));
    EXPECT_FALSE(isOpen());
}

TEST_F(FormCalParamTest, AnUnknownInstrumentIsAskedForAgainOrGivenUp) {
    person.expectDialog(title, enterInstrument, u"XX-9"_s);
    person.expectBox(noInstrument, title, box::warningRetryCancel, BoxAnswer::retry);
    person.expectDialog(title, enterInstrument, u"xx-9"_s);
    person.expectBox(noInstrument, title, box::warningRetryCancel, BoxAnswer::retry);
    person.expectDialog(title, enterInstrument, u"PT-2"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-2)"_s);
    form().close();
    person.expectDialog(title, enterInstrument, u"XX-9"_s);
    person.expectBox(noInstrument, title, box::warningRetryCancel, BoxAnswer::cancel);
    choose(u"mnuCalParameters"_s);
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(flag());
}

TEST_F(FormCalParamTest, WithoutAnInstrumentItGoesAndLoadsNothing) {
    expectCancel();
    choose(u"mnuCalParameters"_s);
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(flag());
    EXPECT_EQ(script.statements, QStringList{countPoints});
    // Its place is kept all the same.
    EXPECT_EQ(settings.values.value(u"Top/FormCalParam"_s), u"75"_s);
}

TEST_F(FormCalParamTest, AQuoteInTheNumberGoesIntoTheStatementAsItIs) {
    script.failures.insert(findAsset(u"O'HARA"_s), Error{102, u"syntax error"_s});
    person.expectDialog(title, enterInstrument, u"O'HARA"_s);
    person.expectReport(102, u"MDIFormMain,GetAsset"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_FALSE(isOpen());
}

TEST_F(FormCalParamTest, BlanksAroundTheNumberDoNotCount) {
    open(u"  PT-2 "_s);
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-2)"_s);
}

TEST_F(FormCalParamTest, TheCurrentInstrumentIsTheNumberAsItWasEntered) {
    script.answers.insert(findAsset(u"pt-1"_s), {Row{u"17"_s}});
    person.expectDialog(title, enterInstrument, u"pt-1"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (pt-1)"_s);
    EXPECT_EQ(script.statements.mid(2), loading(u"pt-1"_s));
}

TEST_F(FormCalParamTest, TheTablesOfTheUsersOwnerAreAsked) {
    session.SessionOwner = u"ABC"_s;
    script.answers.insert(u"select mtag from ABC.inventory where i4201 = 'PT-1'"_s, {Row{u"17"_s}});
    person.expectDialog(title, enterInstrument, u"PT-1"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(script.statements.mid(2).filter(u"ABC.inventory"_s).size(), 5);
    EXPECT_TRUE(script.statements.filter(u"MT.inventory"_s).isEmpty());
}

TEST_F(FormCalParamTest, ShowsWhatIsStored) {
    open(u"PT-1"_s);
    EXPECT_EQ(shown(u"ComboMeasRes"_s), u"0.001"_s);
    EXPECT_EQ(shown(u"ComboInputUnits"_s), u"psi"_s);
    EXPECT_EQ(shown(u"ComboOutputUnits"_s), u"mA"_s);
    EXPECT_EQ(shown(u"TextInputLow"_s), u"-15.5"_s);
    EXPECT_EQ(shown(u"TextUnitsPos"_s), u"1.1"_s);
    EXPECT_EQ(shown(u"TextRepetitions"_s), u"2"_s);
    EXPECT_EQ(shown(u"ComboTSName"_s), u"THREE"_s);
    EXPECT_EQ(shown(u"ComboTransTypeOut"_s), u"Serial"_s);
    EXPECT_EQ(shown(u"OptionCalLoopPWROut24VDC"_s), u"on"_s);
    EXPECT_EQ(shown(u"CheckIndicatedInput"_s), u"on"_s);
    EXPECT_EQ(shown(u"CheckIndicatedOutput"_s), u"off"_s);
    EXPECT_EQ(shown(u"ListPreAvail"_s), u"C,A"_s);
    EXPECT_EQ(shown(u"ListPostAvail"_s), u"B"_s);
    EXPECT_EQ(shown(u"ListPreDisplay"_s), u"B,D"_s);
    EXPECT_EQ(shown(u"ListPostDisplay"_s), u"A"_s);
    EXPECT_EQ(shownSubTabs(), QStringList{u"SSTabCurrentOut"_s});
}

TEST_F(FormCalParamTest, AnInstrumentWithoutParametersStartsFromTheDefaults) {
    CalParamControls start;
    const std::unique_ptr<QWidget> untouched(makeCalParamPages(start));
    open(u"PT-2"_s);
    EXPECT_EQ(allShown(form()), allShown(*untouched));
    EXPECT_TRUE(shownSubTabs().isEmpty());
    EXPECT_FALSE(control<QLineEdit>(form(), u"TextDipOut"_s).isEnabled());
    EXPECT_TRUE(flag());
}

TEST_F(FormCalParamTest, AnInstrumentWithoutParametersStartsFromTheOneBeforeExceptStrategyAndMessages) {
    open(u"PT-1"_s);
    auto expected = allShown(form());
    select(u"PT-2"_s);
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-2)"_s);
    for (auto& one : expected) {
        const auto name = one.section(u':', 0, 0);
        if (name == u"ComboTSName" || name.startsWith(u"List"))
            one = name + u": "_s;
    }
    EXPECT_EQ(allShown(form()), expected);
    EXPECT_EQ(shownSubTabs(), QStringList{u"SSTabCurrentOut"_s});
    // It counts as unchanged.
    form().close();
    EXPECT_FALSE(isOpen());
}

TEST_F(FormCalParamTest, NullsReadAsZeroAndOff) {
    store(storedRow({{6, std::nullopt},
                     {8, std::nullopt},
                     {18, std::nullopt},
                     {21, std::nullopt},
                     {43, std::nullopt},
                     {44, std::nullopt},
                     {46, std::nullopt}}));
    open(u"PT-1"_s);
    EXPECT_EQ(shown(u"TextInputLow"_s), u"0"_s);
    EXPECT_EQ(shown(u"TextOutputLow"_s), u"0"_s);
    EXPECT_EQ(shown(u"TextUnitsPos"_s), u"0"_s);
    EXPECT_EQ(shown(u"TextCJRefTempIn"_s), u"0"_s);
    EXPECT_EQ(shown(u"TextPTPAmplitudeIn"_s), u"0"_s);
    EXPECT_EQ(shown(u"OptionCalLoopPWROutOff"_s), u"on"_s);
    EXPECT_EQ(shown(u"CheckIndicatedInput"_s), u"off"_s);
}

TEST_F(FormCalParamTest, ANullBeforeTheKeyIsReportedAndTheScreenKeepsWhatItShows) {
    store(storedRow({{5, std::nullopt}}));
    person.expectDialog(title, enterInstrument, u"PT-1"_s);
    person.expectReport(94, u"ModuleGlobals,GetCalParams"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(shown(u"TextInputLow"_s), u"0.0"_s);
    EXPECT_EQ(shown(u"ListPreDisplay"_s), u"B,D"_s);
    EXPECT_TRUE(flag());
}

TEST_F(FormCalParamTest, ANullBehindTheKeyIsReportedAndWhatWasReadIsShown) {
    store(storedRow({{37, std::nullopt}}));
    person.expectDialog(title, enterInstrument, u"PT-1"_s);
    person.expectReport(94, u"ModuleGlobals,GetCalParams"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(shown(u"TextInputLow"_s), u"-15.5"_s);
    EXPECT_EQ(shown(u"TextThresholdOut"_s), u"0"_s);
    EXPECT_EQ(shown(u"ComboTSName"_s), QString());
}

TEST_F(FormCalParamTest, AResolutionThatIsNoRowLeavesTheList) {
    store(storedRow({{2, u"0.25"_s}}));
    open(u"PT-1"_s);
    EXPECT_EQ(shown(u"ComboMeasRes"_s), u"0.1"_s);
    pick(control<QComboBox>(form(), u"ComboMeasRes"_s), u"1000"_s);
    expectDiscard(BoxAnswer::yes);
    select(u"PT-1"_s);
    EXPECT_EQ(shown(u"ComboMeasRes"_s), u"1000"_s);
}

TEST_F(FormCalParamTest, AStrategyThatIsGoneLeavesTheListEmpty) {
    store(storedRow({{40, u"GONE"_s}}));
    open(u"PT-1"_s);
    EXPECT_EQ(shown(u"ComboTSName"_s), QString());
    EXPECT_EQ(control<QComboBox>(form(), u"ComboTSName"_s).count(), 2);
}

TEST_F(FormCalParamTest, SelectLoadsAnotherInstrument) {
    open(u"PT-2"_s);
    select(u"PT-1"_s);
    EXPECT_EQ(script.statements, QStringList{findAsset(u"PT-1"_s)} << loading(u"PT-1"_s));
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-1)"_s);
    EXPECT_EQ(shown(u"TextInputLow"_s), u"-15.5"_s);
    EXPECT_EQ(control<QComboBox>(form(), u"ComboTSName"_s).count(), 2);
    EXPECT_TRUE(flag());
    // What was loaded is unchanged.
    form().close();
    EXPECT_FALSE(isOpen());
}

TEST_F(FormCalParamTest, SelectAsksBeforeChangesGo) {
    open(u"PT-1"_s);
    type(u"TextInputHigh"_s, u"250"_s);
    expectDiscard(BoxAnswer::no);
    press(u"CommandSelect"_s);
    EXPECT_EQ(shown(u"TextInputHigh"_s), u"250"_s);
    EXPECT_TRUE(script.statements.isEmpty());
    expectDiscard(BoxAnswer::yes);
    select(u"PT-1"_s);
    EXPECT_EQ(shown(u"TextInputHigh"_s), u"100"_s);
}

TEST_F(FormCalParamTest, CancellingSelectLoadsTheCurrentInstrumentAgainAndDropsItsEdits) {
    open(u"PT-1"_s);
    type(u"TextInputHigh"_s, u"250"_s);
    expectDiscard(BoxAnswer::yes);
    expectCancel();
    press(u"CommandSelect"_s);
    EXPECT_EQ(script.statements, loading(u"PT-1"_s));
    EXPECT_EQ(shown(u"TextInputHigh"_s), u"100"_s);
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-1)"_s);
}

TEST_F(FormCalParamTest, GivingUpAnUnknownInstrumentInSelectReloadsToo) {
    open(u"PT-1"_s);
    person.expectDialog(title, enterInstrument, u"XX-9"_s);
    person.expectBox(noInstrument, title, box::warningRetryCancel, BoxAnswer::cancel);
    press(u"CommandSelect"_s);
    EXPECT_EQ(script.statements, QStringList{findAsset(u"XX-9"_s)} << loading(u"PT-1"_s));
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-1)"_s);
}

TEST_F(FormCalParamTest, WhileItsQuestionIsOpenNothingElseRunsAndItStays) {
    open(u"PT-1"_s);
    person.expectDialog(title, enterInstrument, [this](FormCustomDialog& dialog) {
        for (const auto& name : {u"CommandSelect"_s, u"CommandSave"_s, u"CommandClone"_s})
            click(control<QPushButton>(form(), name));
        form().close();
        EXPECT_TRUE(isOpen());
        EXPECT_TRUE(dialog.isOpen());
        EXPECT_TRUE(script.statements.isEmpty());
        answerDialog(dialog, u"PT-2"_s);
    });
    press(u"CommandSelect"_s);
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-2)"_s);
    form().close();
    EXPECT_FALSE(isOpen());
}

TEST_F(FormCalParamTest, ClosesWithoutAWordWhenNothingChanged) {
    open(u"PT-1"_s);
    form().close();
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(flag());
    EXPECT_TRUE(script.statements.isEmpty());
}

TEST_F(FormCalParamTest, ClosingWithChangesAsks) {
    open(u"PT-1"_s);
    pick(control<QComboBox>(form(), u"ComboParityOut"_s), u"Odd"_s);
    expectDiscard(BoxAnswer::no);
    form().close();
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(flag());
    EXPECT_EQ(shown(u"ComboParityOut"_s), u"Odd"_s);
    expectDiscard(BoxAnswer::yes);
    form().close();
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(flag());
}

TEST_F(FormCalParamTest, AChangeThatIsTakenBackIsNone) {
    open(u"PT-1"_s);
    type(u"TextInputHigh"_s, u"250"_s);
    type(u"TextInputHigh"_s, u"100"_s);
    form().close();
    EXPECT_FALSE(isOpen());
}

TEST_F(FormCalParamTest, MovingAMessageIsNoChange) {
    open(u"PT-1"_s);
    auto& list = control<QListWidget>(form(), u"ListPreDisplay"_s);
    list.insertItem(0, list.takeItem(1));
    EXPECT_EQ(shown(u"ListPreDisplay"_s), u"D,B"_s);
    form().close();
    EXPECT_FALSE(isOpen());
}

TEST_F(FormCalParamTest, AddingAMessageIsAChange) {
    open(u"PT-1"_s);
    control<QListWidget>(form(), u"ListPreDisplay"_s).addItem(u"E"_s);
    expectDiscard(BoxAnswer::no);
    form().close();
    EXPECT_TRUE(isOpen());
}

TEST_F(FormCalParamTest, WithoutASavedSumNoChangeIsAskedAbout) {
    script.failures.insert(selectStrategies, Error{208, u"no such table"_s});
    person.expectDialog(title, enterInstrument, u"PT-1"_s);
    person.expectReport(208, u"FormCalParam,LoadControls"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_TRUE(flag());
    type(u"TextInputHigh"_s, u"250"_s);
    // Neither by Select ...
    select(u"PT-2"_s, [this] { person.expectReport(208, u"FormCalParam,LoadControls"_s); });
    // ... nor at the end.
    form().close();
    EXPECT_FALSE(isOpen());
}

TEST_F(FormCalParamTest, AReportThatCanNotBeWrittenLeavesItOpenWithItsInstrument) {
    QDir().mkdir(u"errors.log"_s);
    script.failures.insert(selectStrategies, Error{208, u"no such table"_s});
    person.expectDialog(title, enterInstrument, u"PT-1"_s);
    person.expectBox(
        u"The error report could not be written to \"errors.log\" in the working folder. Please check "
        "that the folder can be written to and that the disk is not full."_s,
        u"Kelvane"_s, box::stop);
    choose(u"mnuCalParameters"_s);
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(flag());
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-1)"_s);
    script.failures.clear();
    select(u"PT-1"_s);
    EXPECT_EQ(shown(u"TextInputLow"_s), u"-15.5"_s);
}

TEST_F(FormCalParamTest, AnErrorInEachStatementIsReportedAndTheOthersGoOn) {
    const struct {
        QString statement;
        QString routine;
        /// What is run nevertheless.
        QStringList statements;
    } rows[] = {
        {selectStrategies, u"FormCalParam,LoadControls"_s, loading(u"PT-1"_s).mid(0, 1)},
        {calParamsStatement(u"MT"_s, u"PT-1"_s), u"ModuleGlobals,GetCalParams"_s, loading(u"PT-1"_s)},
        {selectAvailable(u"PRE"_s, u"PT-1"_s), u"FormCalParam,LoadPrompts"_s, loading(u"PT-1"_s).mid(0, 3)},
        {selectAvailable(u"PST"_s, u"PT-1"_s), u"FormCalParam,LoadPrompts"_s, loading(u"PT-1"_s).mid(0, 4)},
        {selectDisplayed(u"PRE"_s, u"PT-1"_s), u"FormCalParam,LoadPrompts"_s, loading(u"PT-1"_s).mid(0, 5)},
        {selectDisplayed(u"PST"_s, u"PT-1"_s), u"FormCalParam,LoadPrompts"_s, loading(u"PT-1"_s)},
    };
    open(u"PT-2"_s);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.statement.toStdString());
        script.failures.insert(row.statement, Error{208, u"no such table"_s});
        script.statements.clear();
        select(u"PT-1"_s, [&] { person.expectReport(208, row.routine); });
        EXPECT_EQ(script.statements.mid(1), row.statements);
        EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-1)"_s);
        EXPECT_FALSE(QApplication::overrideCursor());
        script.failures.clear();
        select(u"PT-2"_s);
    }
    EXPECT_TRUE(folder.read(u"errors.log"_s).contains(selectDisplayed(u"PST"_s, u"PT-1"_s)));
}

TEST_F(FormCalParamTest, AConnectionLostInAnyStatementKeepsTheScreenAndWhatIsTyped) {
    const auto statements = loading(u"PT-1"_s);
    const auto all = QStringList{findAsset(u"PT-1"_s)} + statements;
    for (const auto& statement : all) {
        SCOPED_TRACE(statement.toStdString());
        open(u"PT-2"_s);
        type(u"TextThresholdOut"_s, u"12.5"_s);
        expectDiscard(BoxAnswer::yes);
        script.failures.insert(statement, Error{10054, u"Connection lost"_s, u"08S01"_s, true});
        person.expectDialog(title, enterInstrument, u"PT-1"_s);
        if (statement == findAsset(u"PT-1"_s)) {
            person.expectReport(10054, u"MDIFormMain,GetAsset"_s);
            person.expectReport(10054, u"FormCalParam,LoadControls"_s);
        } else if (statement == statements[0]) {
            person.expectReport(10054, u"FormCalParam,LoadControls"_s);
        } else {
            if (statement == statements[1])
                person.expectReport(10054, u"ModuleGlobals,GetCalParams"_s);
            person.expectReport(10054, u"FormCalParam,LoadPrompts"_s);
        }
        press(u"CommandSelect"_s);
        EXPECT_FALSE(session.SessionConnected);
        EXPECT_TRUE(isOpen());
        // What the database did not give leaves the screen as it is.
        const bool recordCame = statements.indexOf(statement) > 1;
        EXPECT_EQ(shown(u"TextThresholdOut"_s), recordCame ? u"2.75"_s : u"12.5"_s);
        script.failures.clear();
        script.lost = false;
        session.SessionConnected = true;
        if (statements.indexOf(statement) < 1)
            expectDiscard(BoxAnswer::yes);
        form().close();
        EXPECT_FALSE(isOpen());
    }
}

TEST_F(FormCalParamTest, AMessageWithoutANameIsReported) {
    script.answers.insert(selectDisplayed(u"PRE"_s, u"PT-1"_s), {Row{u"B"_s}, Row{std::nullopt}});
    person.expectDialog(title, enterInstrument, u"PT-1"_s);
    person.expectReport(94, u"FormCalParam,LoadPrompts"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(shown(u"ListPreAvail"_s), u"C,A"_s);
    EXPECT_EQ(shown(u"ListPreDisplay"_s), u"B"_s) << "what was read before it";
    EXPECT_EQ(shown(u"ListPostDisplay"_s), QString());
}

TEST_F(FormCalParamTest, AStrategyWithoutANameIsReported) {
    script.answers.insert(selectStrategies, {Row{u"FIVE"_s}, Row{std::nullopt}});
    person.expectDialog(title, enterInstrument, u"PT-1"_s);
    person.expectReport(94, u"FormCalParam,LoadControls"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(control<QComboBox>(form(), u"ComboTSName"_s).count(), 1);
    EXPECT_EQ(shown(u"ComboTSName"_s), QString());
}

TEST_F(FormCalParamTest, AfterALoadThatFailedNothingOfTheInstrumentBeforeCanBeSaved) {
    open(u"PT-1"_s);
    script.failures.insert(selectStrategies, Error{208, u"no such table"_s});
    select(u"PT-2"_s, [this] { person.expectReport(208, u"FormCalParam,LoadControls"_s); });
    person.expectBox(u"Must specify a test strategy!"_s, title, box::warning);
    press(u"CommandSave"_s);
    EXPECT_EQ(script.statements.last(), selectStrategies);
}

TEST_F(FormCalParamTest, AfterMessagesThatFailedNoListShowsThoseOfTheInstrumentBefore) {
    open(u"PT-1"_s);
    script.failures.insert(selectAvailable(u"PST"_s, u"PT-2"_s), Error{208, u"no such table"_s});
    select(u"PT-2"_s, [this] { person.expectReport(208, u"FormCalParam,LoadPrompts"_s); });
    for (const auto& name :
         {u"ListPreAvail"_s, u"ListPostAvail"_s, u"ListPreDisplay"_s, u"ListPostDisplay"_s})
        EXPECT_EQ(shown(name), QString()) << name.toStdString();
}

TEST_F(FormCalParamTest, EachUnitShowsItsSubTabsOnItsOwnSide) {
    const struct {
        QStringList units;
        QString input;
        QString output;
    } classes[] = {
        {{u"C"_s, u"F"_s}, u"SSTabInTemp"_s, u"SSTabOutTemp"_s},
        {{u"mA"_s, u"uA"_s, u"A"_s}, {}, u"SSTabCurrentOut"_s},
        {{u"Hz"_s, u"KHz"_s, u"MHz"_s}, u"SSTabInAmplitude"_s, u"SSTabOutAmplitude"_s},
        {{u"in/oz"_s, u"in/lb"_s, u"ft/lb"_s, u"N/cm"_s, u"N/m"_s, u"Kg/cm"_s, u"Kg/m"_s, u"Klb/ft"_s,
          u"KN/m"_s},
         {},
         u"SSTabTorqueOut"_s},
        {{u"psi"_s, u"psig"_s, u"inHg"_s, u"inH2O"_s, u"mmHg"_s, u"kPa"_s, u"bar"_s, u"mbar"_s}, {}, {}},
        {{u"V"_s, u"mV"_s, u"uV"_s}, {}, {}},
        {{u"Ohms"_s, u"KOhms"_s, u"Mohms"_s}, {}, {}},
        {{u"VAC"_s, u"mVAC"_s, u"%"_s}, {}, {}},
    };
    open(u"PT-2"_s);
    auto& input = control<QComboBox>(form(), u"ComboInputUnits"_s);
    auto& output = control<QComboBox>(form(), u"ComboOutputUnits"_s);
    int units = 0;
    for (const auto& one : classes) {
        for (const auto& unit : one.units) {
            SCOPED_TRACE(unit.toStdString());
            pick(output, u"V"_s);
            pick(input, unit);
            EXPECT_EQ(shownSubTabs(), one.input.isEmpty() ? QStringList() : QStringList{one.input});
            pick(input, u"V"_s);
            pick(output, unit);
            EXPECT_EQ(shownSubTabs(), one.output.isEmpty() ? QStringList() : QStringList{one.output});
            ++units;
        }
    }
    EXPECT_EQ(units, input.count());
}

TEST_F(FormCalParamTest, BothSidesShowTheirSubTabsTogether) {
    open(u"PT-2"_s);
    pick(control<QComboBox>(form(), u"ComboInputUnits"_s), u"KHz"_s);
    pick(control<QComboBox>(form(), u"ComboOutputUnits"_s), u"F"_s);
    EXPECT_EQ(shownSubTabs(), (QStringList{u"SSTabInAmplitude"_s, u"SSTabOutTemp"_s}));
}

TEST_F(FormCalParamTest, SubTabsOfStoredUnitsAreShownAtOnce) {
    store(storedRow({{3, u"C"_s}, {4, u"N/m"_s}}));
    open(u"PT-1"_s);
    EXPECT_EQ(shownSubTabs(), (QStringList{u"SSTabInTemp"_s, u"SSTabTorqueOut"_s}));
    // Stored as a serial transducer.
    const auto& torque = control<QTabWidget>(form(), u"SSTabTorqueOut"_s);
    EXPECT_FALSE(torque.isTabEnabled(1));
    EXPECT_TRUE(torque.isTabEnabled(2));
}

TEST_F(FormCalParamTest, HiddenControlsKeepTheirValues) {
    open(u"PT-2"_s);
    pick(control<QComboBox>(form(), u"ComboInputUnits"_s), u"C"_s);
    pick(control<QComboBox>(form(), u"ComboSensTypeIn"_s), u"TC J"_s);
    pick(control<QComboBox>(form(), u"ComboInputUnits"_s), u"psi"_s);
    EXPECT_EQ(shown(u"ComboSensTypeIn"_s), u"TC J"_s);
}

TEST_F(FormCalParamTest, ASerialTransducerHasTheDigitalPageAndTheOthersTheAnalogOne) {
    open(u"PT-2"_s);
    const auto& torque = control<QTabWidget>(form(), u"SSTabTorqueOut"_s);
    auto& transducers = control<QComboBox>(form(), u"ComboTransTypeOut"_s);
    for (const auto& unit : {u"ft/lb"_s, u"psi"_s}) {
        // Whether the sub-tabs are shown or not.
        pick(control<QComboBox>(form(), u"ComboOutputUnits"_s), unit);
        for (const auto& transducer : {u"Serial"_s, u"High Output"_s, u"Industry Standard"_s, u"UTA"_s}) {
            pick(transducers, transducer);
            const bool serial = transducer == u"Serial"_s;
            EXPECT_TRUE(torque.isTabEnabled(0));
            EXPECT_EQ(torque.isTabEnabled(1), !serial) << transducer.toStdString();
            EXPECT_EQ(torque.isTabEnabled(2), serial) << transducer.toStdString();
        }
    }
}

TEST_F(FormCalParamTest, TheClickDipTorqueIsEnabledInItsModeOnly) {
    open(u"PT-2"_s);
    for (const auto& mode : {u"Click Dip"_s, u"Impulse"_s, u"Click Dip"_s, u"Peak"_s}) {
        pick(control<QComboBox>(form(), u"ComboMeasurementModeOut"_s), mode);
        const bool enabled = mode == u"Click Dip"_s;
        EXPECT_EQ(control<QLineEdit>(form(), u"TextDipOut"_s).isEnabled(), enabled) << mode.toStdString();
        EXPECT_EQ(control<QLabel>(form(), u"LabelDipOut"_s).isEnabled(), enabled) << mode.toStdString();
        EXPECT_TRUE(control<QLineEdit>(form(), u"TextThresholdOut"_s).isEnabled());
    }
}

TEST_F(FormCalParamTest, ChoosingTheTransducerLeavesTheFocusInItsSubTab) {
    open(u"PT-2"_s);
    pick(control<QComboBox>(form(), u"ComboOutputUnits"_s), u"ft/lb"_s);
    auto& transducers = control<QComboBox>(form(), u"ComboTransTypeOut"_s);
    bringUp(transducers);
    transducers.setFocus();
    QTest::keyClick(&transducers, Qt::Key_Up);
    EXPECT_EQ(transducers.currentText(), u"Serial"_s);
    EXPECT_TRUE(transducers.hasFocus());
}

TEST_F(FormCalParamTest, TabGoesThroughEachPageAsItIsReadAndThenToTheButtons) {
    open(u"PT-2"_s);
    pick(control<QComboBox>(form(), u"ComboInputUnits"_s), u"C"_s);
    pick(control<QComboBox>(form(), u"ComboOutputUnits"_s), u"ft/lb"_s);
    const QStringList buttons{u"CommandSave"_s, u"CommandSelect"_s, u"CommandClone"_s};
    const QStringList pages[] = {
        {u"ComboTSName"_s, u"ListPreDisplay"_s, u"CommandPreUp"_s, u"CommandPreDown"_s, u"ListPreAvail"_s,
         u"ListPostDisplay"_s, u"CommandPostUp"_s, u"CommandPostDown"_s, u"ListPostAvail"_s},
        {u"TextInputLow"_s, u"TextInputHigh"_s, u"ComboInputUnits"_s, u"CheckIndicatedInput"_s,
         u"ComboMeasRes"_s, u"TextRepetitions"_s, u"SSTabInTemp"_s, u"ComboTempScaleIn"_s},
        {u"TextOutputLow"_s, u"TextOutputHigh"_s, u"ComboOutputUnits"_s, u"CheckIndicatedOutput"_s,
         u"SSTabTorqueOut"_s, u"ComboTransTypeOut"_s, u"ComboMeasurementModeOut"_s, u"TextThresholdOut"_s},
        {u"TextFSPos"_s, u"TextFSNeg"_s, u"TextSpanPos"_s, u"TextSpanNeg"_s, u"TextReadPos"_s,
         u"TextReadNeg"_s, u"TextLSDPos"_s, u"TextLSDNeg"_s, u"TextUnitsPos"_s, u"TextUnitsNeg"_s},
    };
    auto& tabs = control<QTabWidget>(form(), u"SSTab1"_s);
    for (int page = 0; page < tabs.count(); ++page) {
        SCOPED_TRACE(page);
        tabs.setCurrentIndex(page);
        tabs.tabBar()->setFocus();
        QStringList way;
        do {
            QTest::keyClick(qApp->focusWidget(), Qt::Key_Tab);
            auto* reached = qApp->focusWidget();
            // A row of tabs has no name of its own.
            way << (qobject_cast<QTabBar*>(reached) ? reached->parentWidget() : reached)->objectName();
        } while (way.last() != u"SSTab1"_s && way.size() < 30);
        EXPECT_EQ(way, pages[page] + buttons + QStringList{u"SSTab1"_s});
    }
}

TEST_F(FormCalParamTest, EverySubTabFitsWithoutTheWindowGrowing) {
    open(u"PT-2"_s);
    const auto size = form().size();
    for (const auto& unit : {u"C"_s, u"Hz"_s, u"ft/lb"_s, u"mA"_s}) {
        pick(control<QComboBox>(form(), u"ComboInputUnits"_s), unit);
        pick(control<QComboBox>(form(), u"ComboOutputUnits"_s), unit);
        QCoreApplication::processEvents();
        EXPECT_EQ(form().size(), size);
    }
}

TEST_F(FormCalParamTest, AStrategyAddedInItsEditorCanBeChosenAtOnce) {
    open(u"PT-1"_s);
    choose(u"mnuStrategies"_s);
    auto& strategies = child(u"FormStrategies"_s);
    person.expectDialog(u"Add new test strategy"_s,
                        u"Enter a name for the new test strategy (30 chars max!):"_s, u"NEW"_s);
    click(control<QPushButton>(strategies, u"CommandAdd"_s));
    EXPECT_EQ(shown(u"ComboTSName"_s), u"THREE"_s);
    pick(control<QComboBox>(form(), u"ComboTSName"_s), u"NEW"_s);
}

TEST_F(FormCalParamTest, TheStrategyEditorOpensWithItsStrategy) {
    script.answers.insert(u"select tp_name from mt.hvm_kv_proc_points where tp_name = 'THREE'"_s,
                          {Row{u"THREE"_s}});
    open(u"PT-1"_s);
    choose(u"mnuStrategies"_s);
    EXPECT_EQ(control<QComboBox>(child(u"FormStrategies"_s), u"ComboTSNames"_s).currentText(), u"THREE"_s);
}

TEST_F(FormCalParamTest, AMessageAddedInItsEditorIsAvailableAtOnce) {
    open(u"PT-1"_s);
    choose(u"mnuPrompts"_s);
    person.expectDialog(u"Add Test Message"_s,
                        u"Enter a name for the new test message: (30 characters max)"_s, u"FRESH"_s);
    click(control<QPushButton>(child(u"FormTestMess"_s), u"CommandCreate"_s));
    EXPECT_EQ(shown(u"ListPreAvail"_s), u"C,A,FRESH"_s);
    EXPECT_EQ(shown(u"ListPostAvail"_s), u"B,FRESH"_s);
}

TEST_F(FormCalParamTest, WithoutAnInstrumentTheOtherEditorsDoNotKnowIt) {
    person.expectDialog(title, enterInstrument, [this](FormCustomDialog& dialog) {
        choose(u"mnuStrategies"_s);
        EXPECT_EQ(control<QComboBox>(child(u"FormStrategies"_s), u"ComboTSNames"_s).currentText(), u"FIVE"_s);
        answerDialog(dialog, u"PT-1"_s);
    });
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(shown(u"ComboTSName"_s), u"THREE"_s);
}

TEST_F(FormCalParamTest, TheOtherEditorsKeepItsListsInStep) {
    open(u"PT-1"_s);
    auto& opened = dynamic_cast<OpenCalParam&>(form());
    EXPECT_EQ(opened.strategy(), u"THREE"_s);
    opened.addStrategy(u"NEW"_s);
    opened.addMessage(u"FRESH"_s);
    EXPECT_EQ(opened.strategy(), u"THREE"_s);
    EXPECT_GE(control<QComboBox>(form(), u"ComboTSName"_s).findText(u"NEW"_s), 0);
    EXPECT_EQ(shown(u"ListPreAvail"_s), u"C,A,FRESH"_s);
    EXPECT_EQ(shown(u"ListPostAvail"_s), u"B,FRESH"_s);
    // None of it is a change.
    form().close();
    EXPECT_FALSE(isOpen());
}

TEST_F(FormCalParamTest, TheFirstStrategyThatIsAddedIsNotChosenByItself) {
    script.answers.insert(selectStrategies, {});
    open(u"PT-2"_s);
    dynamic_cast<OpenCalParam&>(form()).addStrategy(u"NEW"_s);
    EXPECT_EQ(shown(u"ComboTSName"_s), QString());
}

TEST_F(FormCalParamTest, NoControlDependsOnTheLevel) {
    open(u"PT-1"_s);
    const auto enabled = [this] {
        QStringList names;
        for (const auto& name : valueControls(form())) {
            if (control<QWidget>(form(), name).isEnabled())
                names << name;
        }
        return names;
    };
    const auto before = enabled();
    for (const auto level : std::initializer_list<qint16>{1, 2, 3, 5, 6}) {
        session.SessionLevel = level;
        select(u"PT-1"_s);
        EXPECT_EQ(enabled(), before) << level;
    }
}

TEST_F(FormCalParamTest, LogOutIsRefusedWhileItIsOpen) {
    open(u"PT-1"_s);
    person.expectBox(u"One or more windows are still open! Please close open windows before logging out..."_s,
                     u"Kelvane"_s, box::warning);
    choose(u"mnuLogout"_s);
    EXPECT_TRUE(session.SessionConnected);
    form().close();
    choose(u"mnuLogout"_s);
    EXPECT_FALSE(session.SessionConnected);
}

TEST_F(FormCalParamTest, OddTextsAreShownAsTheyAre) {
    const auto name = u"поверка '<b>\" 校正 &x"_s;
    script.answers.insert(selectStrategies, {Row{name}});
    script.answers.insert(selectDisplayed(u"PST"_s, u"PT-1"_s), {Row{name}});
    store(storedRow({{40, name}}));
    open(u"PT-1"_s);
    EXPECT_EQ(shown(u"ComboTSName"_s), name);
    EXPECT_EQ(shown(u"ListPostDisplay"_s), name);
}

} // namespace kelvane::testing
