#include "tests/editors/strategies/strategies_fixture.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString adding = u"FormStrategies,CommandAdd"_s;
const QString renaming = u"FormStrategies,CommandRename"_s;
const QString deleting = u"FormStrategies,CommandDeleteTS"_s;
const QString sureToDelete = u"Are you sure you want to delete the selected test strategy?"_s;
const QString stillUsed = u"This test strategy is still being used!"_s;
/// What can be used while a new strategy is edited.
const QStringList editingNew{u"CommandSave"_s,    u"ComboPreDef"_s,        u"CommandAddTP"_s,
                             u"CommandModify"_s,  u"CommandDeletePoint"_s, u"CommandMoveUp"_s,
                             u"CommandMoveDown"_s};

QString countUses(const QString& name) {
    return u"select count(tp_name) from mt.hvm_kv_tag_config where tp_name = '"_s + name + u"'"_s;
}

QStringList renameOf(const QString& from, const QString& to) {
    return {u"update mt.hvm_kv_proc_points set tp_name = '"_s + to + u"' where tp_name = '"_s + from +
                u"';commit"_s,
            u"update mt.hvm_kv_tag_config set tp_name = '"_s + to + u"' where tp_name = '"_s + from +
                u"';commit"_s};
}

} // namespace

TEST_F(StrategiesTest, AddAsksForANameOfThirtyCharactersWithTheListsEmptyAndDisabled) {
    open();
    expectNameDialog(u"NEW"_s, [this](const DialogQuestion& question) {
        EXPECT_TRUE(question.required);
        EXPECT_FALSE(question.fromList);
        EXPECT_EQ(question.maxLength, 30);
        EXPECT_EQ(question.fieldType, 0);
        EXPECT_EQ(question.defaultText, u""_s);
        EXPECT_EQ(screen.points(), QStringList());
        EXPECT_FALSE(screen.names().isEnabled());
        EXPECT_FALSE(screen.predefined().isEnabled());
    });
    screen.press(u"CommandAdd"_s);
    EXPECT_EQ(statements(), QStringList{selectName(u"NEW"_s)});
    EXPECT_EQ(screen.allNames(), (QStringList{u"FIVE"_s, u"UP DOWN"_s, u"NEW"_s}));
    EXPECT_EQ(screen.name(), u"NEW"_s);
    EXPECT_EQ(screen.points(), QStringList());
}

TEST_F(StrategiesTest, ANewStrategyIsEditedWithoutAddRenameDeleteAndCancel) {
    open();
    add(u"NEW"_s);
    EXPECT_EQ(screen.enabled(), editingNew);
    EXPECT_TRUE(screen.predefined().hasFocus());
}

TEST_F(StrategiesTest, ANewStrategyKeepsCancelWhenItWasEnabled) {
    open();
    addPoint(u"110"_s);
    add(u"NEW"_s);
    EXPECT_TRUE(screen.button(u"CommandCancel"_s).isEnabled());
}

TEST_F(StrategiesTest, AddIsThereWithoutAnyStrategyToo) {
    script.answers.clear();
    open();
    add(u"NEW"_s);
    EXPECT_EQ(screen.name(), u"NEW"_s);
    EXPECT_EQ(screen.enabled(), editingNew);
}

TEST_F(StrategiesTest, AnAddedStrategyGoesIntoTheOpenParameterEditorAtOnce) {
    calParam = &standIn;
    open();
    add(u"O'NEW"_s);
    EXPECT_EQ(standIn.added, QStringList{u"O'NEW"_s});
}

TEST_F(StrategiesTest, ANameThatExistsIsRefusedAndAskedAgain) {
    calParam = &standIn;
    open();
    expectNameDialog(u"FIVE"_s);
    ui.expectBox(u"Test Strategy Already Exists!"_s, u"Add new test strategy"_s, box::warning);
    expectNameDialog(u"UP DOWN"_s);
    ui.expectBox(u"Test Strategy Already Exists!"_s, u"Add new test strategy"_s, box::warning);
    expectNameDialog(u"NEW"_s);
    screen.press(u"CommandAdd"_s);
    EXPECT_EQ(statements(),
              (QStringList{selectName(u"FIVE"_s), selectName(u"UP DOWN"_s), selectName(u"NEW"_s)}));
    EXPECT_EQ(standIn.added, QStringList{u"NEW"_s});
}

TEST_F(StrategiesTest, CancelledAddReloadsWhatWasShownAndDropsUnsavedChanges) {
    open();
    screen.choose(screen.names(), u"UP DOWN"_s);
    addPoint(u"110"_s);
    statements();
    add(u"*CANCEL*"_s);
    EXPECT_EQ(statements(), loadOf(u"UP DOWN"_s));
    EXPECT_EQ(screen.name(), u"UP DOWN"_s);
    EXPECT_EQ(screen.points(), (QStringList{u"0"_s, u"100"_s, u"0"_s}));
    EXPECT_TRUE(screen.names().isEnabled());
    EXPECT_TRUE(screen.button(u"CommandAdd"_s).isEnabled());
    EXPECT_TRUE(screen.button(u"CommandSave"_s).isEnabled());
    EXPECT_TRUE(screen.button(u"CommandAdd"_s).hasFocus());
}

TEST_F(StrategiesTest, AFailureOfAddIsReportedAndGivesThePointsBack) {
    open();
    addPoint(u"110"_s);
    const auto before = screen.points();
    script.failures.insert(selectName(u"NEW"_s), refused);
    expectNameDialog(u"NEW"_s);
    ui.expectReport(547, adding);
    screen.press(u"CommandAdd"_s);
    EXPECT_EQ(screen.name(), u"FIVE"_s);
    EXPECT_EQ(screen.points(), before);
    EXPECT_TRUE(screen.names().isEnabled());
    EXPECT_TRUE(screen.button(u"CommandAdd"_s).isEnabled());
    EXPECT_TRUE(standIn.added.isEmpty());
}

TEST_F(StrategiesTest, ACancelledAddThatCantReloadGivesThePointsBack) {
    open();
    addPoint(u"110"_s);
    const auto before = screen.points();
    script.failures.insert(selectNames(), refused);
    expectNameDialog(u"*CANCEL*"_s);
    ui.expectReport(547, loading);
    screen.press(u"CommandAdd"_s);
    EXPECT_EQ(screen.points(), before);
    EXPECT_TRUE(screen.names().isEnabled());
}

TEST_F(StrategiesTest, RenameMovesThePointsAndTheInstrumentsToTheNewName) {
    open();
    expectRenameDialog(u"SIX"_s, [this](const DialogQuestion& question) {
        EXPECT_TRUE(question.required);
        EXPECT_EQ(question.maxLength, 30);
        EXPECT_EQ(question.fieldType, 0);
        EXPECT_EQ(question.defaultText, u""_s);
        EXPECT_EQ(screen.enabled(), QStringList());
        know(u"SIX"_s, {u"6"_s});
        forget(u"FIVE"_s);
        ui.events.clear();
    });
    screen.press(u"CommandRename"_s);
    EXPECT_EQ(statements(), renameOf(u"FIVE"_s, u"SIX"_s) + loadOf(u"SIX"_s));
    EXPECT_EQ(screen.name(), u"SIX"_s);
    EXPECT_EQ(screen.points(), QStringList{u"6"_s});
    EXPECT_EQ(screen.enabled(), idle);
    EXPECT_TRUE(screen.button(u"CommandRename"_s).hasFocus());
    // Before the three of the loading that follows.
    EXPECT_EQ(ui.events.count(u"busy"_s), 4);
    EXPECT_FALSE(ui.busy);
}

TEST_F(StrategiesTest, RenameOntoAnExistingNameMergesTheTwoSilently) {
    open();
    expectRenameDialog(u"UP DOWN"_s);
    screen.press(u"CommandRename"_s);
    EXPECT_EQ(statements(), renameOf(u"FIVE"_s, u"UP DOWN"_s) + loadOf(u"UP DOWN"_s));
}

TEST_F(StrategiesTest, RenameDoublesQuotesInBothNames) {
    know(u"A''S"_s, {u"10"_s});
    open();
    EXPECT_EQ(screen.name(), u"A'S"_s);
    expectRenameDialog(u"B'T"_s);
    screen.press(u"CommandRename"_s);
    EXPECT_EQ(statements().mid(0, 2), renameOf(u"A''S"_s, u"B''T"_s));
}

TEST_F(StrategiesTest, CancelledRenameChangesNothingButDisablesSaveAndCancel) {
    open();
    addPoint(u"110"_s);
    expectRenameDialog(u"*CANCEL*"_s);
    screen.press(u"CommandRename"_s);
    EXPECT_TRUE(statements().isEmpty());
    EXPECT_EQ(screen.points().last(), u"110"_s);
    EXPECT_EQ(screen.enabled(), idle);
}

TEST_F(StrategiesTest, AFailureOfRenameIsReportedAndNothingFollowsIt) {
    open();
    addPoint(u"110"_s);
    const auto before = screen.points();
    const auto updates = renameOf(u"FIVE"_s, u"SIX"_s);
    for (int failing = 0; failing < 2; ++failing) {
        script.failures = {{updates[failing], refused}};
        expectRenameDialog(u"SIX"_s);
        ui.expectReport(547, renaming);
        screen.press(u"CommandRename"_s);
        EXPECT_EQ(statements(), updates.mid(0, failing + 1));
        EXPECT_EQ(screen.name(), u"FIVE"_s);
        EXPECT_EQ(screen.points(), before);
        EXPECT_EQ(screen.enabled(), idle);
        EXPECT_FALSE(ui.busy);
    }
}

TEST_F(StrategiesTest, DeleteAsksAndThenShowsTheFirst) {
    open();
    screen.choose(screen.names(), u"UP DOWN"_s);
    statements();
    script.answers[countUses(u"UP DOWN"_s)] = {Row{u"0"_s}};
    ui.expectBox(sureToDelete, u"Kelvane"_s, box::question, BoxAnswer::yes);
    ui.onBox = [this] { EXPECT_EQ(screen.enabled(), QStringList{u"ComboTSNames"_s}); };
    screen.press(u"CommandDeleteTS"_s);
    ui.onBox = {};
    EXPECT_EQ(statements(),
              (QStringList{countUses(u"UP DOWN"_s), deletePoints(u"UP DOWN"_s)} + loadOf(u""_s, u"FIVE"_s)));
    EXPECT_EQ(screen.name(), u"FIVE"_s);
    EXPECT_EQ(screen.enabled(), idle);
    EXPECT_TRUE(screen.button(u"CommandDeleteTS"_s).hasFocus());
}

TEST_F(StrategiesTest, DeletingTheLastStrategyLeavesOnlyAdd) {
    forget(u"UP DOWN"_s);
    open();
    script.answers[countUses(u"FIVE"_s)] = {Row{u"0"_s}};
    ui.expectBox(sureToDelete, u"Kelvane"_s, box::question, BoxAnswer::yes);
    ui.onBox = [this] { forget(u"FIVE"_s); };
    screen.press(u"CommandDeleteTS"_s);
    ui.onBox = {};
    EXPECT_EQ(screen.enabled(), (QStringList{u"ComboTSNames"_s, u"CommandAdd"_s}));
    EXPECT_EQ(screen.points(), QStringList());
    EXPECT_TRUE(screen.button(u"CommandAdd"_s).hasFocus());
}

TEST_F(StrategiesTest, NoToDeletingKeepsTheStrategyButDisablesSaveAndCancel) {
    open();
    addPoint(u"110"_s);
    script.answers[countUses(u"FIVE"_s)] = {Row{u"0"_s}};
    ui.expectBox(sureToDelete, u"Kelvane"_s, box::question, BoxAnswer::no);
    screen.press(u"CommandDeleteTS"_s);
    EXPECT_EQ(statements(), QStringList{countUses(u"FIVE"_s)});
    EXPECT_EQ(screen.points().last(), u"110"_s);
    EXPECT_EQ(screen.enabled(), idle);
}

TEST_F(StrategiesTest, AStrategyOfEvenOneInstrumentIsNotDeleted) {
    open();
    for (const auto& uses : {u"1"_s, u"250"_s}) {
        script.answers[countUses(u"FIVE"_s)] = {Row{uses}};
        ui.expectBox(stillUsed, u"Kelvane"_s, box::warning);
        screen.press(u"CommandDeleteTS"_s);
        EXPECT_EQ(statements(), QStringList{countUses(u"FIVE"_s)});
        EXPECT_EQ(screen.name(), u"FIVE"_s);
        EXPECT_EQ(screen.enabled(), idle);
    }
}

TEST_F(StrategiesTest, DeleteWithoutAStrategyDoesNothing) {
    script.answers.clear();
    open();
    screen.button(u"CommandDeleteTS"_s).setEnabled(true);
    screen.press(u"CommandDeleteTS"_s);
    EXPECT_TRUE(statements().isEmpty());
}

TEST_F(StrategiesTest, DeleteDoublesAQuoteInTheName) {
    know(u"A''S"_s, {u"10"_s});
    open();
    script.answers[countUses(u"A''S"_s)] = {Row{u"0"_s}};
    ui.expectBox(sureToDelete, u"Kelvane"_s, box::question, BoxAnswer::yes);
    screen.press(u"CommandDeleteTS"_s);
    EXPECT_EQ(statements().mid(0, 2), (QStringList{countUses(u"A''S"_s), deletePoints(u"A''S"_s)}));
}

TEST_F(StrategiesTest, AFailureOfDeleteIsReportedAndTheStrategyStays) {
    open();
    addPoint(u"110"_s);
    const auto before = screen.points();
    script.answers[countUses(u"FIVE"_s)] = {Row{u"0"_s}};
    script.failures = {{countUses(u"FIVE"_s), refused}};
    ui.expectReport(547, deleting);
    screen.press(u"CommandDeleteTS"_s);
    EXPECT_EQ(statements(), QStringList{countUses(u"FIVE"_s)});
    script.failures = {{deletePoints(u"FIVE"_s), refused}};
    ui.expectBox(sureToDelete, u"Kelvane"_s, box::question, BoxAnswer::yes);
    ui.expectReport(547, deleting);
    screen.press(u"CommandDeleteTS"_s);
    EXPECT_EQ(screen.name(), u"FIVE"_s);
    EXPECT_EQ(screen.points(), before);
    EXPECT_EQ(screen.enabled(), idle);
}

TEST_F(StrategiesTest, ACountThatDoesNotComeDeletesNothing) {
    open();
    ui.expectReport(3021, deleting);
    screen.press(u"CommandDeleteTS"_s);
    script.answers[countUses(u"FIVE"_s)] = {Row{std::nullopt}};
    ui.expectReport(94, deleting);
    screen.press(u"CommandDeleteTS"_s);
    EXPECT_EQ(statements(), (QStringList{countUses(u"FIVE"_s), countUses(u"FIVE"_s)}));
}

TEST_F(StrategiesTest, AnErrorReportThatCantBeWrittenLeavesTheScreenInUse) {
    open();
    addPoint(u"110"_s);
    QDir().mkdir(u"errors.log"_s);
    script.failures.insert(renameOf(u"FIVE"_s, u"SIX"_s)[0], refused);
    expectRenameDialog(u"SIX"_s);
    ui.expectBox(
        u"The error report could not be written to \"errors.log\" in the working folder. Please check "
        "that the folder can be written to and that the disk is not full."_s,
        u"Kelvane"_s, box::stop);
    screen.press(u"CommandRename"_s);
    EXPECT_EQ(screen.enabled(), idle);
    EXPECT_EQ(screen.points().last(), u"110"_s);
    addPoint(u"120"_s);
    EXPECT_TRUE(screen.button(u"CommandSave"_s).isEnabled());
}

TEST_F(StrategiesTest, NothingElseRunsAndTheScreenStaysWhileAQuestionIsOpen) {
    open();
    addPoint(u"110"_s);
    const auto before = screen.points();
    screen.select(5);
    expectModifyDialog(u"120"_s, [this](const DialogQuestion&) {
        for (const auto& name : {u"CommandAdd"_s, u"CommandRename"_s, u"CommandDeleteTS"_s, u"CommandSave"_s,
                                 u"CommandAddTP"_s, u"CommandModify"_s, u"CommandDeletePoint"_s,
                                 u"CommandMoveUp"_s, u"CommandMoveDown"_s, u"CommandCancel"_s})
            screen.press(name);
        screen.doubleClick(0);
        EXPECT_FALSE(screen.names().isEnabled());
        EXPECT_FALSE(screen.predefined().isEnabled());
        screen.close();
        EXPECT_TRUE(screen.isOpen());
    });
    screen.press(u"CommandModify"_s);
    // The row that was selected when it was asked.
    EXPECT_EQ(screen.points(), before.mid(0, 5) + QStringList{u"120"_s});
    EXPECT_TRUE(screen.names().isEnabled());
    EXPECT_TRUE(statements().isEmpty());
}

} // namespace kelvane::testing
