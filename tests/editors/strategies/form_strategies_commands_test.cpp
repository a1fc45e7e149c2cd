#include "tests/editors/strategies/strategies_fixture.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString loading = u"FormStrategies,LoadStrategyList"_s;
const QString adding = u"FormStrategies,CommandAdd"_s;
const QString renaming = u"FormStrategies,CommandRename"_s;
const QString deleting = u"FormStrategies,CommandDeleteTS"_s;
const QString saving = u"FormStrategies,CommandSave"_s;
const QString sureToDelete = u"Are you sure you want to delete the selected test strategy?"_s;
const QString stillUsed = u"This test strategy is still being used!"_s;
/// What can be used while a new strategy is edited.
const QStringList editingNew{u"CommandSave"_s,    u"ComboPreDef"_s,        u"CommandAddTP"_s,
                             u"CommandModify"_s,  u"CommandDeletePoint"_s, u"CommandMoveUp"_s,
                             u"CommandMoveDown"_s};
const Error refused{547, u"The statement is refused."_s};

QString countUses(const QString& name) {
    return u"select count(tp_name) from mt.hvm_kv_tag_config where tp_name = '"_s + name + u"'"_s;
}

QString deletePoints(const QString& name) {
    return u"delete from mt.hvm_kv_proc_points where tp_name = '"_s + name + u"';commit"_s;
}

QString selectStored(const QString& name) {
    return u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = '"_s + name + u"'"_s;
}

QString insertPoint(const QString& name, int sequence, const QString& point) {
    return u"insert into mt.hvm_kv_proc_points (tp_name,test_point_seq,test_point_pct) values ('"_s + name +
           u"','"_s + QString::number(sequence) + u"','"_s + point + u"');commit"_s;
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

TEST_F(StrategiesTest, SaveReplacesThePointsByPositionsFromZero) {
    open();
    screen.choose(screen.predefined(), u"3 Points Up (0-50-100%)"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(
        statements(),
        (QStringList{selectStored(u"FIVE"_s), deletePoints(u"FIVE"_s), insertPoint(u"FIVE"_s, 0, u"0.00"_s),
                     insertPoint(u"FIVE"_s, 1, u"50.00"_s), insertPoint(u"FIVE"_s, 2, u"100.00"_s)} +
         loadOf(u"FIVE"_s)));
    EXPECT_TRUE(script.firstRowOnly.contains(selectStored(u"FIVE"_s)));
}

TEST_F(StrategiesTest, SaveOfANewStrategyDeletesNothing) {
    open();
    add(u"NEW"_s);
    statements();
    addPoint(u"-5"_s);
    addPoint(u"1e3"_s);
    addPoint(u"-5"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements(),
              (QStringList{selectStored(u"NEW"_s), insertPoint(u"NEW"_s, 0, u"-5"_s),
                           insertPoint(u"NEW"_s, 1, u"1e3"_s), insertPoint(u"NEW"_s, 2, u"-5"_s)} +
               loadOf(u"NEW"_s, u"FIVE"_s)));
}

TEST_F(StrategiesTest, SaveLeavesItselfEnabledDisablesCancelAndEnablesAdd) {
    open();
    add(u"NEW"_s);
    addPoint(u"10"_s);
    know(u"NEW"_s, {u"10"_s});
    screen.press(u"CommandSave"_s);
    auto expected = idle;
    expected.insert(4, u"CommandSave"_s);
    EXPECT_EQ(screen.enabled(), expected);
    EXPECT_EQ(screen.name(), u"NEW"_s);
    screen.close();
    EXPECT_FALSE(screen.isOpen());
}

TEST_F(StrategiesTest, TheBlankPredefinedRowSavedRemovesTheStrategy) {
    open();
    screen.choose(screen.predefined(), u" "_s);
    forget(u"UP DOWN"_s);
    statements();
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements(),
              (QStringList{selectStored(u"FIVE"_s), deletePoints(u"FIVE"_s)} + loadOf(u"FIVE"_s)));
    // With the last one gone only a new one can be made, and a second save has nothing to write.
    script.answers.clear();
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(screen.enabled(), (QStringList{u"ComboTSNames"_s, u"CommandAdd"_s, u"CommandSave"_s}));
    statements();
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements(), (QStringList{selectStored(u""_s)} + loadOf(u""_s)));
}

TEST_F(StrategiesTest, SaveTakesTheNameAsItStandsSoThatOneWithAQuoteFailsAndIsReported) {
    open();
    add(u"A'S"_s);
    EXPECT_EQ(statements(), QStringList{selectName(u"A''S"_s)});
    addPoint(u"10"_s);
    ui.expectReport(1, saving);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements(), QStringList());
    EXPECT_EQ(screen.name(), u"A'S"_s);
    EXPECT_EQ(screen.points(), QStringList{u"10"_s});
}

TEST_F(StrategiesTest, AFailureOfEachStatementOfASaveEndsItThereAndTheScreenKeepsWhatWasTyped) {
    open();
    addPoint(u"110"_s);
    const auto typed = screen.points();
    QStringList whole{selectStored(u"FIVE"_s), deletePoints(u"FIVE"_s)};
    for (int i = 0; i < typed.size(); ++i)
        whole << insertPoint(u"FIVE"_s, i, typed[i]);
    for (int failing = 0; failing < whole.size(); ++failing) {
        SCOPED_TRACE(whole[failing].toStdString());
        script.failures = {{whole[failing], refused}};
        ui.expectReport(547, saving);
        screen.press(u"CommandSave"_s);
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_EQ(statements(), whole.mid(0, failing + 1));
        EXPECT_EQ(screen.name(), u"FIVE"_s);
        EXPECT_EQ(screen.points(), typed);
        EXPECT_TRUE(screen.button(u"CommandSave"_s).isEnabled());
        EXPECT_TRUE(screen.button(u"CommandCancel"_s).isEnabled());
    }
    // What is not stored counts as a change still.
    ui.expectBox(discard, u"Kelvane"_s, box::warningYesNo, BoxAnswer::no);
    screen.close();
    script.failures.clear();
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements(), whole + loadOf(u"FIVE"_s));
}

TEST_F(StrategiesTest, AConnectionLostInTheMiddleOfASaveIsReportedOnceAndThePointsStay) {
    open();
    addPoint(u"110"_s);
    const auto typed = screen.points();
    script.failures.insert(insertPoint(u"FIVE"_s, 2, u"50"_s), Error{10054, u"Gone"_s, u"08S01"_s, true});
    ui.expectReport(10054, saving);
    screen.press(u"CommandSave"_s);
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(screen.points(), typed);
    EXPECT_FALSE(ui.busy);
}

TEST_F(StrategiesTest, ASaveThatCantReloadKeepsThePoints) {
    open();
    addPoint(u"110"_s);
    const auto typed = screen.points();
    script.failures.insert(selectPoints(u"FIVE"_s), refused);
    ui.expectReport(547, loading);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(screen.points(), typed);
    EXPECT_EQ(screen.name(), u"FIVE"_s);
}

TEST_F(StrategiesTest, CancelAsksAndYesBringsBackWhatIsStored) {
    open();
    screen.choose(screen.names(), u"UP DOWN"_s);
    addPoint(u"110"_s);
    screen.choose(screen.predefined(), u"1 Point (0%)"_s);
    statements();
    ui.expectBox(discard, u"Kelvane"_s, box::question, BoxAnswer::no);
    screen.press(u"CommandCancel"_s);
    EXPECT_TRUE(statements().isEmpty());
    EXPECT_EQ(screen.points(), QStringList{u"0.00"_s});
    EXPECT_TRUE(screen.button(u"CommandSave"_s).isEnabled());
    ui.expectBox(discard, u"Kelvane"_s, box::question, BoxAnswer::yes);
    screen.press(u"CommandCancel"_s);
    EXPECT_EQ(statements(), loadOf(u"UP DOWN"_s));
    EXPECT_EQ(screen.points(), (QStringList{u"0"_s, u"100"_s, u"0"_s}));
    EXPECT_EQ(screen.predefined().currentText(), u" "_s);
    EXPECT_FALSE(screen.button(u"CommandSave"_s).isEnabled());
    EXPECT_TRUE(screen.button(u"CommandCancel"_s).isEnabled());
}

TEST_F(StrategiesTest, CancelOfAStrategyNeverSavedDropsItsNameAndShowsTheFirst) {
    open();
    add(u"NEW"_s);
    addPoint(u"10"_s);
    statements();
    ui.expectBox(discard, u"Kelvane"_s, box::question, BoxAnswer::yes);
    screen.press(u"CommandCancel"_s);
    EXPECT_EQ(statements(), loadOf(u"NEW"_s, u"FIVE"_s));
    EXPECT_EQ(screen.allNames(), (QStringList{u"FIVE"_s, u"UP DOWN"_s}));
    EXPECT_EQ(screen.name(), u"FIVE"_s);
    EXPECT_TRUE(screen.button(u"CommandAdd"_s).isEnabled());
}

TEST_F(StrategiesTest, APointIsAddedAsTypedWhateverItsValue) {
    open();
    expectPointDialog(u"1,000.5"_s, [](const DialogQuestion& question) {
        EXPECT_TRUE(question.required);
        EXPECT_FALSE(question.fromList);
        EXPECT_EQ(question.maxLength, 0);
        EXPECT_EQ(question.fieldType, 2);
        EXPECT_EQ(question.defaultText, u"0.0"_s);
    });
    screen.press(u"CommandAddTP"_s);
    for (const auto& point : {u"-12.50"_s, u"+3"_s, u".5"_s, u"5."_s, u"1e3"_s, u"250"_s, u"25"_s})
        addPoint(point);
    EXPECT_EQ(screen.points().mid(5), (QStringList{u"1,000.5"_s, u"-12.50"_s, u"+3"_s, u".5"_s, u"5."_s,
                                                   u"1e3"_s, u"250"_s, u"25"_s}));
    EXPECT_TRUE(screen.button(u"CommandSave"_s).isEnabled());
    EXPECT_TRUE(screen.button(u"CommandCancel"_s).isEnabled());
    EXPECT_TRUE(statements().isEmpty());
}

TEST_F(StrategiesTest, AnAddedPointIsInSightBelowALongList) {
    open();
    screen.choose(screen.predefined(), u"11 Points Up/Down (0-10-20-30...20-10-0%)"_s);
    addPoint(u"110"_s);
    const auto& list = screen.list();
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualItemRect(list.item(list.count() - 1))));
}

TEST_F(StrategiesTest, WhatIsNoNumberIsAskedForAgainOnRetryAndGivenUpOnCancel) {
    open();
    const auto noPercentage = u"Test points must be expressed as a percentage!"_s;
    for (const auto& entry :
         {u"abc"_s, u"12 V"_s, u"1e400"_s, u"NaN"_s, u"1.2.3"_s, u"'5'"_s, u"50%"_s, u"٥٠"_s, u"5\n0"_s}) {
        SCOPED_TRACE(entry.toStdString());
        expectPointDialog(entry);
        ui.expectBox(noPercentage, u"Kelvane"_s, box::warningRetryCancel, BoxAnswer::retry);
        expectPointDialog(entry,
                          [](const DialogQuestion& question) { EXPECT_EQ(question.defaultText, u"0.0"_s); });
        ui.expectBox(noPercentage, u"Kelvane"_s, box::warningRetryCancel, BoxAnswer::cancel);
        screen.press(u"CommandAddTP"_s);
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_EQ(screen.points().size(), 5);
        EXPECT_EQ(screen.enabled(), idle);
    }
    expectPointDialog(u"abc"_s);
    ui.expectBox(noPercentage, u"Kelvane"_s, box::warningRetryCancel, BoxAnswer::retry);
    expectPointDialog(u"60"_s);
    screen.press(u"CommandAddTP"_s);
    EXPECT_EQ(screen.points().last(), u"60"_s);
}

TEST_F(StrategiesTest, ACancelledPointChangesNothing) {
    open();
    addPoint(u"*CANCEL*"_s);
    screen.select(1);
    expectModifyDialog(u"*CANCEL*"_s);
    screen.press(u"CommandModify"_s);
    EXPECT_EQ(screen.points(), (QStringList{u"0"_s, u"25"_s, u"50"_s, u"75"_s, u"100"_s}));
    EXPECT_EQ(screen.enabled(), idle);
}

TEST_F(StrategiesTest, ModifyReplacesTheSelectedPoint) {
    open();
    screen.select(2);
    expectModifyDialog(u"55.5"_s, [](const DialogQuestion& question) {
        EXPECT_EQ(question.fieldType, 2);
        EXPECT_EQ(question.maxLength, 0);
        EXPECT_EQ(question.defaultText, u"50"_s);
    });
    screen.press(u"CommandModify"_s);
    EXPECT_EQ(screen.points(), (QStringList{u"0"_s, u"25"_s, u"55.5"_s, u"75"_s, u"100"_s}));
    EXPECT_EQ(screen.selected(), 2);
    EXPECT_TRUE(screen.button(u"CommandSave"_s).isEnabled());
    EXPECT_TRUE(screen.button(u"CommandCancel"_s).isEnabled());
}

TEST_F(StrategiesTest, ADoubleClickAndReturnOnAPointModifyIt) {
    open();
    expectModifyDialog(u"80"_s);
    screen.doubleClick(3);
    expectModifyDialog(u"90"_s);
    QTest::keyClick(&screen.list(), Qt::Key_Return);
    EXPECT_EQ(screen.points(), (QStringList{u"0"_s, u"25"_s, u"50"_s, u"90"_s, u"100"_s}));
}

TEST_F(StrategiesTest, PointButtonsWithoutASelectedRowDoNothing) {
    open();
    for (const auto& name :
         {u"CommandModify"_s, u"CommandDeletePoint"_s, u"CommandMoveUp"_s, u"CommandMoveDown"_s})
        screen.press(name);
    QTest::keyClick(&screen.list(), Qt::Key_Delete);
    QTest::keyClick(&screen.list(), Qt::Key_Return);
    EXPECT_EQ(screen.points().size(), 5);
    EXPECT_EQ(screen.enabled(), idle);
}

TEST_F(StrategiesTest, DeletePointTakesTheSelectedRowWithoutAQuestionAndSelectsNoOther) {
    open();
    screen.select(1);
    screen.press(u"CommandDeletePoint"_s);
    EXPECT_EQ(screen.points(), (QStringList{u"0"_s, u"50"_s, u"75"_s, u"100"_s}));
    EXPECT_EQ(screen.selected(), -1);
    EXPECT_TRUE(screen.button(u"CommandSave"_s).isEnabled());
    EXPECT_TRUE(screen.button(u"CommandCancel"_s).isEnabled());
    screen.press(u"CommandDeletePoint"_s);
    EXPECT_EQ(screen.points().size(), 4);
    screen.select(3);
    QTest::keyClick(&screen.list(), Qt::Key_Delete);
    EXPECT_EQ(screen.points(), (QStringList{u"0"_s, u"50"_s, u"75"_s}));
    // The keyboard stays where it was.
    expectModifyDialog(u"80"_s);
    QTest::keyClick(&screen.list(), Qt::Key_Return);
    EXPECT_EQ(screen.points(), (QStringList{u"0"_s, u"50"_s, u"80"_s}));
}

TEST_F(StrategiesTest, MoveButtonsSwapTheSelectedPointWithItsNeighbourAndFollowIt) {
    open();
    screen.select(3);
    screen.press(u"CommandMoveUp"_s);
    EXPECT_EQ(screen.points(), (QStringList{u"0"_s, u"25"_s, u"75"_s, u"50"_s, u"100"_s}));
    EXPECT_EQ(screen.selected(), 2);
    EXPECT_TRUE(screen.button(u"CommandSave"_s).isEnabled());
    EXPECT_TRUE(screen.button(u"CommandCancel"_s).isEnabled());
    screen.press(u"CommandMoveDown"_s);
    screen.press(u"CommandMoveDown"_s);
    EXPECT_EQ(screen.points(), (QStringList{u"0"_s, u"25"_s, u"50"_s, u"100"_s, u"75"_s}));
    EXPECT_EQ(screen.selected(), 4);
}

TEST_F(StrategiesTest, MovesBeyondTheEndsAndOfAnEmptyRowDoNothing) {
    script.answers[selectPoints(u"FIVE"_s)] = {Row{u"1"_s}, Row{u""_s}, Row{u"3"_s}};
    open();
    screen.select(0);
    screen.press(u"CommandMoveUp"_s);
    screen.select(2);
    screen.press(u"CommandMoveDown"_s);
    screen.select(1);
    screen.press(u"CommandMoveUp"_s);
    screen.press(u"CommandMoveDown"_s);
    EXPECT_EQ(screen.points(), (QStringList{u"1"_s, u""_s, u"3"_s}));
    EXPECT_EQ(screen.enabled(), idle);
}

TEST_F(StrategiesTest, MovedPointsAreSavedInTheirNewOrder) {
    open();
    screen.choose(screen.predefined(), u"2 Points Up (0-100%)"_s);
    screen.select(1);
    screen.press(u"CommandMoveUp"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(statements().mid(2, 2),
              (QStringList{insertPoint(u"FIVE"_s, 0, u"100.00"_s), insertPoint(u"FIVE"_s, 1, u"0.00"_s)}));
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

TEST_F(StrategiesTest, BlanksForANameOrAPointCancelTheQuestion) {
    open();
    expectRenameDialog(u"  "_s);
    screen.press(u"CommandRename"_s);
    EXPECT_EQ(statements(), QStringList());
    expectPointDialog(QString());
    screen.press(u"CommandAddTP"_s);
    screen.select(0);
    expectModifyDialog(u" "_s);
    screen.press(u"CommandModify"_s);
    EXPECT_EQ(screen.points(), (QStringList{u"0"_s, u"25"_s, u"50"_s, u"75"_s, u"100"_s}));
    expectNameDialog(u"   "_s);
    screen.press(u"CommandAdd"_s);
    EXPECT_EQ(screen.name(), u"FIVE"_s);
    EXPECT_EQ(screen.allNames().size(), 2);
}

} // namespace kelvane::testing
