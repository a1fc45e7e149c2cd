#include "editors/open_cal_param.h"
#include "tests/editors/cal_param/form_cal_param_fixture.h"
#include "ui/form_custom_dialog.h"

#include <QComboBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(FormCalParamTest, AStrategyAddedInItsEditorCanBeChosenAtOnce) {
    open(u"PT-1"_s);
    choose(u"mnuStrategies"_s);
    auto& strategies = child(u"FormStrategies"_s);
    simulatedOperator.expectDialog(u"Add new test strategy"_s,
                                   u"Enter a name for the new test strategy (30 chars max!):"_s, u"NEW"_s);
    click(control<QPushButton>(strategies, u"CommandAdd"_s));
    EXPECT_EQ(displayText(u"ComboTSName"_s), u"THREE"_s);
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
    simulatedOperator.expectDialog(
        u"Add Test Message"_s, u"Enter a name for the new test message: (30 characters max)"_s, u"FRESH"_s);
    click(control<QPushButton>(child(u"FormTestMess"_s), u"CommandCreate"_s));
    EXPECT_EQ(displayText(u"ListPreAvail"_s), u"C,A,FRESH"_s);
    EXPECT_EQ(displayText(u"ListPostAvail"_s), u"B,FRESH"_s);
}

TEST_F(FormCalParamTest, WithoutAnInstrumentTheOtherEditorsDoNotKnowIt) {
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, [this](FormCustomDialog& dialog) {
        choose(u"mnuStrategies"_s);
        EXPECT_EQ(control<QComboBox>(child(u"FormStrategies"_s), u"ComboTSNames"_s).currentText(), u"FIVE"_s);
        answerDialog(dialog, u"PT-1"_s);
    });
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(displayText(u"ComboTSName"_s), u"THREE"_s);
}

TEST_F(FormCalParamTest, TheOtherEditorsKeepItsListsInStep) {
    open(u"PT-1"_s);
    auto& opened = dynamic_cast<OpenCalParam&>(form());
    EXPECT_EQ(opened.strategy(), u"THREE"_s);
    opened.addStrategy(u"NEW"_s);
    opened.addMessage(u"FRESH"_s);
    EXPECT_EQ(opened.strategy(), u"THREE"_s);
    EXPECT_GE(control<QComboBox>(form(), u"ComboTSName"_s).findText(u"NEW"_s), 0);
    EXPECT_EQ(displayText(u"ListPreAvail"_s), u"C,A,FRESH"_s);
    EXPECT_EQ(displayText(u"ListPostAvail"_s), u"B,FRESH"_s);
    // None of it is a change.
    form().close();
    EXPECT_FALSE(isOpen());
}

TEST_F(FormCalParamTest, AStrategyRenamedInItsEditorIsRenamedHereAndIsNoChange) {
    script.answers.insert(u"select tp_name from mt.hvm_kv_proc_points where tp_name = 'THREE'"_s,
                          {Row{u"THREE"_s}});
    open(u"PT-1"_s);
    auto& list = control<QComboBox>(form(), u"ComboTSName"_s);
    choose(u"mnuStrategies"_s);
    auto& strategies = child(u"FormStrategies"_s);
    simulatedOperator.expectDialog(u"Rename Test Strategy"_s, u"Enter new test stragegy name:"_s, u"DREI"_s);
    click(control<QPushButton>(strategies, u"CommandRename"_s));
    EXPECT_EQ(displayText(u"ComboTSName"_s), u"DREI"_s);
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(list.findText(u"THREE"_s), -1);
    form().close();
    EXPECT_FALSE(isOpen());
}

TEST_F(FormCalParamTest, ARenamedStrategyLeavesTheChangesOfAnInstrumentAsTheyAre) {
    open(u"PT-1"_s);
    auto& opened = dynamic_cast<OpenCalParam&>(form());
    // One that another one absorbs.
    opened.renameStrategy(u"THREE"_s, u"FIVE"_s);
    EXPECT_EQ(opened.strategy(), u"FIVE"_s);
    EXPECT_EQ(control<QComboBox>(form(), u"ComboTSName"_s).count(), 1);
    // One that is not listed, and one that keeps its name.
    opened.renameStrategy(u"SEVEN"_s, u"EIGHT"_s);
    opened.renameStrategy(u"FIVE"_s, u"FIVE"_s);
    EXPECT_EQ(opened.strategy(), u"FIVE"_s);
    EXPECT_EQ(control<QComboBox>(form(), u"ComboTSName"_s).count(), 1);
    type(u"TextThresholdOut"_s, u"12.5"_s);
    opened.renameStrategy(u"FIVE"_s, u"SIX"_s);
    EXPECT_EQ(opened.strategy(), u"SIX"_s);
    expectDiscard(BoxAnswer::no);
    form().close();
    EXPECT_TRUE(isOpen());
}

TEST_F(FormCalParamTest, ARenameThatFailsLeavesItsStrategy) {
    script.answers.insert(u"select tp_name from mt.hvm_kv_proc_points where tp_name = 'THREE'"_s,
                          {Row{u"THREE"_s}});
    open(u"PT-1"_s);
    choose(u"mnuStrategies"_s);
    auto& strategies = child(u"FormStrategies"_s);
    script.failures.insert(
        u"update mt.hvm_kv_tag_config set tp_name = 'DREI' where tp_name = 'THREE';commit"_s,
        Error{208, u"no such table"_s});
    simulatedOperator.expectDialog(u"Rename Test Strategy"_s, u"Enter new test stragegy name:"_s, u"DREI"_s);
    simulatedOperator.expectReport(208, u"FormStrategies,CommandRename"_s);
    click(control<QPushButton>(strategies, u"CommandRename"_s));
    EXPECT_EQ(displayText(u"ComboTSName"_s), u"THREE"_s);
}

TEST_F(FormCalParamTest, TheFirstStrategyThatIsAddedIsNotChosenByItself) {
    script.answers.insert(selectStrategies(), {});
    open(u"PT-2"_s);
    dynamic_cast<OpenCalParam&>(form()).addStrategy(u"NEW"_s);
    EXPECT_EQ(displayText(u"ComboTSName"_s), QString());
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
    simulatedOperator.expectBox(
        u"One or more windows are still open! Please close open windows before logging out..."_s,
        u"Kelvane"_s, box::warning);
    choose(u"mnuLogout"_s);
    EXPECT_TRUE(session.SessionConnected);
    form().close();
    choose(u"mnuLogout"_s);
    EXPECT_FALSE(session.SessionConnected);
}

} // namespace kelvane::testing
