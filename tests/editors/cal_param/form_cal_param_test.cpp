#include "tests/editors/cal_param/form_cal_param_fixture.h"
#include "ui/form_custom_dialog.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(FormCalParamTest, OpensWithTheInstrumentThatItAsksFor) {
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, [this](FormCustomDialog& dialog) {
        EXPECT_TRUE(form().isVisible());
        EXPECT_EQ(form().windowTitle(), calParamTitle);
        EXPECT_FALSE(flag());
        EXPECT_EQ(script.statements, QStringList{countPoints()});
        answerDialog(dialog, u"PT-1"_s);
    });
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(script.statements, QStringList{countPoints()} << findAsset(u"PT-1"_s) << loading(u"PT-1"_s));
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
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, [&](FormCustomDialog& dialog) {
        auto& field = control<QLineEdit>(dialog, u"TextCustomDialog"_s);
        EXPECT_EQ(field.text(), QString());
        EXPECT_EQ(field.maxLength(), std::numeric_limits<int>::max());
        simulatedOperator.expectBox(u"Required Field - must provide an entry!"_s, u"Kelvane"_s, box::warning);
        QTest::keyClick(&field, Qt::Key_Return);
        simulatedOperator.expectBox(noInstrument, calParamTitle, box::warningRetryCancel, BoxAnswer::cancel);
        field.setText(long_number);
        QTest::keyClick(&field, Qt::Key_Return);
    });
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(script.statements.last(), findAsset(long_number));
    EXPECT_FALSE(isOpen());
}

TEST_F(FormCalParamTest, AnUnknownInstrumentIsAskedForAgainOrGivenUp) {
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, u"XX-9"_s);
    simulatedOperator.expectBox(noInstrument, calParamTitle, box::warningRetryCancel, BoxAnswer::retry);
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, u"xx-9"_s);
    simulatedOperator.expectBox(noInstrument, calParamTitle, box::warningRetryCancel, BoxAnswer::retry);
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, u"PT-2"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-2)"_s);
    form().close();
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, u"XX-9"_s);
    simulatedOperator.expectBox(noInstrument, calParamTitle, box::warningRetryCancel, BoxAnswer::cancel);
    choose(u"mnuCalParameters"_s);
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(flag());
}

TEST_F(FormCalParamTest, WithoutAnInstrumentItGoesAndLoadsNothing) {
    expectCancel();
    choose(u"mnuCalParameters"_s);
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(flag());
    EXPECT_EQ(script.statements, QStringList{countPoints()});
    // Its place is still kept.
    EXPECT_EQ(settings.values.value(u"Top/FormCalParam"_s), u"75"_s);
}

TEST_F(FormCalParamTest, AQuoteInTheNumberIsTheSyntaxErrorThatItIs) {
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, u"O'HARA"_s);
    simulatedOperator.expectReport(1, u"MDIFormMain,GetAsset"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(script.statements, QStringList{countPoints()});
}

TEST_F(FormCalParamTest, BlanksAroundTheNumberDoNotCount) {
    open(u"  PT-2 "_s);
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-2)"_s);
}

TEST_F(FormCalParamTest, TheCurrentInstrumentIsTheNumberAsItWasEntered) {
    script.answers.insert(findAsset(u"pt-1"_s), {Row{u"17"_s}});
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, u"pt-1"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (pt-1)"_s);
    EXPECT_EQ(script.statements.mid(2), loading(u"pt-1"_s));
}

TEST_F(FormCalParamTest, TheTablesOfTheUsersOwnerAreAsked) {
    session.SessionOwner = u"ABC"_s;
    script.answers.insert(u"select mtag from ABC.inventory where i4201 = 'PT-1'"_s, {Row{u"17"_s}});
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, u"PT-1"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(script.statements.mid(2).filter(u"ABC.inventory"_s).size(), 5);
    EXPECT_TRUE(script.statements.filter(u"MT.inventory"_s).isEmpty());
}

TEST_F(FormCalParamTest, ShowsWhatIsStored) {
    open(u"PT-1"_s);
    EXPECT_EQ(displayText(u"ComboMeasRes"_s), u"0.001"_s);
    EXPECT_EQ(displayText(u"ComboInputUnits"_s), u"psi"_s);
    EXPECT_EQ(displayText(u"ComboOutputUnits"_s), u"mA"_s);
    EXPECT_EQ(displayText(u"TextInputLow"_s), u"-15.5"_s);
    EXPECT_EQ(displayText(u"TextUnitsPos"_s), u"1.1"_s);
    EXPECT_EQ(displayText(u"TextRepetitions"_s), u"2"_s);
    EXPECT_EQ(displayText(u"ComboTSName"_s), u"THREE"_s);
    EXPECT_EQ(displayText(u"ComboTransTypeOut"_s), u"Serial"_s);
    EXPECT_EQ(displayText(u"OptionCalLoopPWROut24VDC"_s), u"on"_s);
    EXPECT_EQ(displayText(u"CheckIndicatedInput"_s), u"on"_s);
    EXPECT_EQ(displayText(u"CheckIndicatedOutput"_s), u"off"_s);
    EXPECT_EQ(displayText(u"ListPreAvail"_s), u"C,A"_s);
    EXPECT_EQ(displayText(u"ListPostAvail"_s), u"B"_s);
    EXPECT_EQ(displayText(u"ListPreDisplay"_s), u"B,D"_s);
    EXPECT_EQ(displayText(u"ListPostDisplay"_s), u"A"_s);
    EXPECT_EQ(shownSubTabs(), QStringList{u"SSTabCurrentOut"_s});
}

TEST_F(FormCalParamTest, AnInstrumentWithoutParametersStartsFromTheDefaults) {
    const CalParamFields fields;
    CalParamControls start;
    const std::unique_ptr<QWidget> untouched(makeCalParamPages(start, fields));
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
    for (auto& line : expected) {
        const auto name = line.section(u':', 0, 0);
        if (name == u"ComboTSName" || name.startsWith(u"List"))
            line = name + u": "_s;
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
    EXPECT_EQ(displayText(u"TextInputLow"_s), u"0"_s);
    EXPECT_EQ(displayText(u"TextOutputLow"_s), u"0"_s);
    EXPECT_EQ(displayText(u"TextUnitsPos"_s), u"0"_s);
    EXPECT_EQ(displayText(u"TextCJRefTempIn"_s), u"0"_s);
    EXPECT_EQ(displayText(u"TextPTPAmplitudeIn"_s), u"0"_s);
    EXPECT_EQ(displayText(u"OptionCalLoopPWROutOff"_s), u"on"_s);
    EXPECT_EQ(displayText(u"CheckIndicatedInput"_s), u"off"_s);
}

TEST_F(FormCalParamTest, AResolutionThatIsNoRowLeavesTheList) {
    store(storedRow({{2, u"0.25"_s}}));
    open(u"PT-1"_s);
    EXPECT_EQ(displayText(u"ComboMeasRes"_s), u"0.1"_s);
    pick(control<QComboBox>(form(), u"ComboMeasRes"_s), u"1000"_s);
    expectDiscard(BoxAnswer::yes);
    select(u"PT-1"_s);
    EXPECT_EQ(displayText(u"ComboMeasRes"_s), u"1000"_s);
}

TEST_F(FormCalParamTest, AStrategyThatIsGoneLeavesTheListEmpty) {
    store(storedRow({{40, u"GONE"_s}}));
    open(u"PT-1"_s);
    EXPECT_EQ(displayText(u"ComboTSName"_s), QString());
    EXPECT_EQ(control<QComboBox>(form(), u"ComboTSName"_s).count(), 2);
}

TEST_F(FormCalParamTest, SelectLoadsAnotherInstrument) {
    open(u"PT-2"_s);
    select(u"PT-1"_s);
    EXPECT_EQ(script.statements, QStringList{findAsset(u"PT-1"_s)} << loading(u"PT-1"_s));
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-1)"_s);
    EXPECT_EQ(displayText(u"TextInputLow"_s), u"-15.5"_s);
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
    EXPECT_EQ(displayText(u"TextInputHigh"_s), u"250"_s);
    EXPECT_TRUE(script.statements.isEmpty());
    expectDiscard(BoxAnswer::yes);
    select(u"PT-1"_s);
    EXPECT_EQ(displayText(u"TextInputHigh"_s), u"100"_s);
}

TEST_F(FormCalParamTest, CancellingSelectLoadsTheCurrentInstrumentAgainAndDropsItsEdits) {
    open(u"PT-1"_s);
    type(u"TextInputHigh"_s, u"250"_s);
    expectDiscard(BoxAnswer::yes);
    expectCancel();
    press(u"CommandSelect"_s);
    EXPECT_EQ(script.statements, loading(u"PT-1"_s));
    EXPECT_EQ(displayText(u"TextInputHigh"_s), u"100"_s);
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-1)"_s);
}

TEST_F(FormCalParamTest, GivingUpAnUnknownInstrumentInSelectReloadsToo) {
    open(u"PT-1"_s);
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, u"XX-9"_s);
    simulatedOperator.expectBox(noInstrument, calParamTitle, box::warningRetryCancel, BoxAnswer::cancel);
    press(u"CommandSelect"_s);
    EXPECT_EQ(script.statements, QStringList{findAsset(u"XX-9"_s)} << loading(u"PT-1"_s));
    EXPECT_EQ(form().windowTitle(), u"Calibration Parameters (PT-1)"_s);
}

TEST_F(FormCalParamTest, WhileItsQuestionIsOpenNothingElseRunsAndItStays) {
    open(u"PT-1"_s);
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, [this](FormCustomDialog& dialog) {
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

TEST_F(FormCalParamTest, ClosesWithoutAQuestionWhenNothingChanged) {
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
    EXPECT_EQ(displayText(u"ComboParityOut"_s), u"Odd"_s);
    expectDiscard(BoxAnswer::yes);
    form().close();
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(flag());
}

TEST_F(FormCalParamTest, AnUndoneChangeIsNone) {
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
    EXPECT_EQ(displayText(u"ListPreDisplay"_s), u"D,B"_s);
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

TEST_F(FormCalParamTest, OddTextsAreShownAsTheyAre) {
    const auto name = u"поверка '<b>\" 校正 &x"_s;
    script.answers.insert(selectStrategies(), {Row{name}});
    script.answers.insert(selectDisplayed(u"PST"_s, u"PT-1"_s), {Row{name}});
    store(storedRow({{40, name}}));
    open(u"PT-1"_s);
    EXPECT_EQ(displayText(u"ComboTSName"_s), name);
    EXPECT_EQ(displayText(u"ListPostDisplay"_s), name);
}

} // namespace kelvane::testing
