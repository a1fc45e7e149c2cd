#include "tests/editors/strategies/strategies_fixture.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

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
