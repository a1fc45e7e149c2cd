#include "editors/entry_box.h"
#include "tests/support/fixtures.h"

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

TEST_F(EntryBoxTest, ComingBackFromAMenuOrAnotherProgramLeavesWhatIsSelected) {
    for (const auto reason : {Qt::PopupFocusReason, Qt::MenuBarFocusReason, Qt::ActiveWindowFocusReason}) {
        box->setText(u"100.0"_s);
        box->setFocus();
        box->setSelection(1, 2);
        QFocusEvent back(QEvent::FocusIn, reason);
        QCoreApplication::sendEvent(box, &back);
        EXPECT_EQ(box->selectedText(), u"00"_s) << reason;
    }
}

} // namespace kelvane::testing
