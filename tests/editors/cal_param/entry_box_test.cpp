#include "editors/cal_param/entry_box.h"
#include "testkit/fixtures.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString longText = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghij"_s;

} // namespace

/// A box with another one above it, which has the focus at first.
class EntryBoxTest : public ::testing::Test {
  protected:
    EntryBoxTest() : above(new QLineEdit), box(new EntryBox) {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(above);
        column->addWidget(box);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        above->setFocus();
    }
    QWidget window;
    QLineEdit* above;
    EntryBox* box;
};

TEST_F(EntryBoxTest, TypingReplacesTheValue) {
    box->setText(u"100.0"_s);
    QTest::keyClick(above, Qt::Key_Tab);
    ASSERT_TRUE(box->hasFocus());
    QTest::keyClicks(box, u"42"_s);
    EXPECT_EQ(box->text(), u"42"_s);
}

TEST_F(EntryBoxTest, WhatStandsBehindThe30thCharacterStays) {
    box->setText(longText);
    QTest::keyClick(above, Qt::Key_Tab);
    EXPECT_EQ(box->selectedText(), longText.left(30));
    QTest::keyClicks(box, u"x"_s);
    EXPECT_EQ(box->text(), u"xefghij"_s);
}

TEST_F(EntryBoxTest, AnEmptyBoxHasNothingToSelect) {
    box->setFocus();
    EXPECT_FALSE(box->hasSelectedText());
}

TEST_F(EntryBoxTest, TheClickThatBringsTheFocusKeepsTheSelectionAndTheNextPlacesTheCursor) {
    box->setText(u"100.0"_s);
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    EXPECT_EQ(box->selectedText(), u"100.0"_s);
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    EXPECT_FALSE(box->hasSelectedText());
    EXPECT_LT(box->cursorPosition(), 3);
}

TEST_F(EntryBoxTest, ComingBackFromItsMenuOrAnotherProgramLeavesWhatIsSelected) {
    for (const auto reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
        box->setText(u"100.0"_s);
        box->setFocus();
        box->setSelection(1, 2);
        QFocusEvent away(QEvent::FocusOut, reason);
        QCoreApplication::sendEvent(box, &away);
        QFocusEvent back(QEvent::FocusIn, reason);
        QCoreApplication::sendEvent(box, &back);
        EXPECT_EQ(box->selectedText(), u"00"_s) << reason;
    }
}

TEST_F(EntryBoxTest, ComingBackFromTheMenuBarSelectsTheValueAgain) {
    box->setText(u"100.0"_s);
    box->setFocus();
    box->setSelection(1, 2);
    for (const auto type : {QEvent::FocusOut, QEvent::FocusIn}) {
        QFocusEvent event(type, Qt::MenuBarFocusReason);
        QCoreApplication::sendEvent(box, &event);
    }
    EXPECT_EQ(box->selectedText(), u"100.0"_s);
}

TEST_F(EntryBoxTest, TheFocusThatItGetsWhileAnotherWindowIsActiveIsNoComingBack) {
    box->setText(u"100.0"_s);
    for (int time = 0; time < 2; ++time) {
        // As a message box does it, whose activity goes back to the window after the focus was set.
        QWidget other;
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        box->setFocus();
        EXPECT_FALSE(box->hasFocus());
        other.hide();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        ASSERT_TRUE(box->hasFocus());
        EXPECT_EQ(box->selectedText(), u"100.0"_s);
        above->setFocus();
    }
}

TEST_F(EntryBoxTest, AMillionPastedCharactersAreNotCut) {
    const auto pasted = u"0123456789"_s.repeated(100000);
    QGuiApplication::clipboard()->setText(pasted);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box->text().size(), pasted.size());
}

} // namespace kelvane::testing
