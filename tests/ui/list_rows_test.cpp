#include "ui/list_rows.h"

#include "testkit/fixtures.h"

#include <QApplication>
#include <QDir>
#include <QListWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class ListRows : public ::testing::Test {
  protected:
    ListRows() {
        list.addItems({u"one"_s, u"two"_s, u"three"_s});
        list.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&list));
    }
    QPoint placeOf(int row) const { return list.visualItemRect(list.item(row)).center(); }
    void select(int row) { QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, placeOf(row)); }

    QListWidget list;
    QListWidget other;
    ScriptedUserInterface ui;
};

TEST_F(ListRows, AreTheTextsInTheirOrder) {
    EXPECT_EQ(rowsOf(list), (QStringList{u"one"_s, u"two"_s, u"three"_s}));
    EXPECT_EQ(rowsOf(other), QStringList());
}

TEST_F(ListRows, RefillingPutsOthersInTheirPlaceWithNoneSelected) {
    select(1);
    refill(list, {u"a"_s, u""_s, u"a"_s});
    EXPECT_EQ(rowsOf(list), (QStringList{u"a"_s, u""_s, u"a"_s}));
    EXPECT_EQ(selectedRow(list), -1);
    refill(list, {});
    EXPECT_EQ(list.count(), 0);
}

TEST_F(ListRows, TheSelectedRowIsNotTheOneThatTheFocusStandsOn) {
    EXPECT_EQ(selectedRow(list), -1);
    list.setCurrentRow(1, QItemSelectionModel::NoUpdate);
    EXPECT_EQ(selectedRow(list), -1);
    select(2);
    EXPECT_EQ(selectedRow(list), 2);
}

TEST_F(ListRows, MovingSwapsWithTheNeighbourAndTheSelectionFollows) {
    select(1);
    EXPECT_TRUE(moveSelectedRow(list, -1));
    EXPECT_EQ(rowsOf(list), (QStringList{u"two"_s, u"one"_s, u"three"_s}));
    EXPECT_EQ(selectedRow(list), 0);
    EXPECT_TRUE(moveSelectedRow(list, 1));
    EXPECT_TRUE(moveSelectedRow(list, 1));
    EXPECT_EQ(rowsOf(list), (QStringList{u"one"_s, u"three"_s, u"two"_s}));
    EXPECT_EQ(selectedRow(list), 2);
}

TEST_F(ListRows, NothingMovesBeyondTheEndsWithoutASelectionOrOnAnEmptyRow) {
    list.insertItem(1, QString());
    const auto before = rowsOf(list);
    EXPECT_FALSE(moveSelectedRow(list, 1));
    select(0);
    EXPECT_FALSE(moveSelectedRow(list, -1));
    select(3);
    EXPECT_FALSE(moveSelectedRow(list, 1));
    select(1);
    EXPECT_FALSE(moveSelectedRow(list, -1));
    EXPECT_FALSE(moveSelectedRow(list, 1));
    EXPECT_EQ(rowsOf(list), before);
    EXPECT_EQ(selectedRow(list), 1);
    EXPECT_FALSE(moveSelectedRow(other, 1));
}

TEST_F(ListRows, ATakenRowLeavesNoSelectionAndTheKeyboardOnTheNext) {
    select(1);
    EXPECT_EQ(takeRow(list, 1), u"two"_s);
    EXPECT_EQ(rowsOf(list), (QStringList{u"one"_s, u"three"_s}));
    EXPECT_EQ(selectedRow(list), -1);
    EXPECT_EQ(list.currentRow(), 1);
    EXPECT_EQ(takeRow(list, 1), u"three"_s);
    EXPECT_EQ(list.currentRow(), 0);
    EXPECT_EQ(takeRow(list, 0), u"one"_s);
    EXPECT_EQ(list.currentRow(), -1);
    EXPECT_EQ(takeRow(list, 0), u""_s);
}

TEST_F(ListRows, MovingPutsARowAtTheEndOfTheOtherList) {
    moveRow(list, 0, other);
    moveRow(list, 1, other);
    EXPECT_EQ(rowsOf(list), QStringList{u"two"_s});
    EXPECT_EQ(rowsOf(other), (QStringList{u"one"_s, u"three"_s}));
    for (const int none : {-1, 1, 100})
        moveRow(list, none, other);
    EXPECT_EQ(list.count(), 1);
    EXPECT_EQ(other.count(), 2);
}

TEST_F(ListRows, AnEmptyRowIsMovedToo) {
    list.addItem(QString());
    moveRow(list, 3, other);
    EXPECT_EQ(rowsOf(other), QStringList{u""_s});
}

TEST_F(ListRows, ARowIsChosenByADoubleClickOrReturn) {
    QList<int> chosen;
    onRowChosen(&list, ui, [&](int row) { chosen << row; });
    select(1);
    EXPECT_TRUE(chosen.isEmpty());
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, placeOf(1));
    EXPECT_EQ(chosen, QList<int>{1});
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Return);
    QTest::keyClick(&list, Qt::Key_Up);
    QTest::keyClick(&list, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(chosen, (QList<int>{1, 2, 1}));
    // Besides the rows there is nothing to choose.
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, QPoint(5, list.viewport()->height() - 5));
    list.setCurrentRow(-1);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(chosen.size(), 3);
}

TEST_F(ListRows, RepeatedReturnMovesOneRowAfterTheOther) {
    onRowChosen(&list, ui, [this](int row) { moveRow(list, row, other); });
    select(0);
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(rowsOf(other), (QStringList{u"one"_s, u"two"_s, u"three"_s}));
    EXPECT_EQ(list.count(), 0);
}

TEST_F(ListRows, DeleteIsHeardWhileTheListHasTheFocus) {
    QWidget window;
    auto* rows = new QListWidget(&window);
    auto* beside = new QListWidget(&window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    int presses = 0;
    onDelete(rows, ui, [&] { ++presses; });
    beside->setFocus();
    QTest::keyClick(beside, Qt::Key_Delete);
    EXPECT_EQ(presses, 0);
    rows->setFocus();
    QTest::keyClick(rows, Qt::Key_Delete);
    EXPECT_EQ(presses, 1);
    QTest::keyClick(rows, Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(presses, 1);
}

TEST_F(ListRows, AnErrorOfTheHandlerEndsThere) {
    onRowChosen(&list, ui, [](int) { throw makeError(ErrorNumber::pathFileAccess); });
    list.setCurrentRow(0);
    ui.expectBox(
        u"The error report could not be written to \"errors.log\" in the working folder. Please check "
        "that the folder can be written to and that the disk is not full."_s,
        u"Kelvane"_s, box::stop);
    QTest::keyClick(&list, Qt::Key_Return);
}

} // namespace kelvane::testing
