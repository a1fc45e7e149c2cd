#include "ui/text_box.h"

#include "testkit/fixtures.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QFocusEvent>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(TextBoxTest, KeepsEveryCharacterAndEndsLinesInCarriageReturnAndLineFeed) {
    const struct {
        QString given;
        QString kept;
    } texts[] = {
        {{}, {}},
        {u"one line"_s, u"one line"_s},
        {u"one\r\ntwo"_s, u"one\r\ntwo"_s},
        {u"one\ntwo"_s, u"one\r\ntwo"_s},
        {u"one\rtwo"_s, u"one\r\ntwo"_s},
        {u"\r\n"_s, u"\r\n"_s},
        {u"ends\r\n\r\n"_s, u"ends\r\n\r\n"_s},
        {u"no\u00a0break \t tab "_s, u"no\u00a0break \t tab "_s},
        {u"Ω 校正 \U0001F527"_s, u"Ω 校正 \U0001F527"_s},
    };
    for (const auto& text : texts) {
        TextBox box;
        box.setText(text.given);
        EXPECT_EQ(box.text(), text.kept);
    }
}

TEST(TextBoxTest, ShiftAndReturnEndTheLineLikeReturnAlone) {
    TextBox box;
    box.setText(u"one"_s);
    QTest::keyClick(&box, Qt::Key_End);
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClicks(&box, u"two"_s);
    QTest::keyClick(&box, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&box, u"three"_s);
    EXPECT_EQ(box.text(), u"one\r\ntwo\r\nthree"_s);
}

TEST(TextBoxTest, TheSameTextIsNoChange) {
    TextBox box;
    int changes = 0;
    QObject::connect(&box, &TextBox::textChanged, &box, [&] { ++changes; });
    box.setText({});
    EXPECT_EQ(changes, 0);
    box.setText(u"one\r\ntwo"_s);
    box.setText(u"one\r\ntwo"_s);
    EXPECT_EQ(changes, 1);
}

TEST(TextBoxTest, TheLinesThatItIsMadeForNeedNoScrollBar) {
    for (const int lines : {1, 2, 5}) {
        TextBox box;
        box.setLines(lines);
        box.resize(200, box.height());
        box.setText(u"x\r\n"_s.repeated(lines - 1) + u'x');
        box.show();
        QCoreApplication::processEvents();
        EXPECT_FALSE(box.verticalScrollBar()->isVisible()) << lines;
        box.setText(u"x\r\n"_s.repeated(lines) + u'x');
        QCoreApplication::processEvents();
        EXPECT_TRUE(box.verticalScrollBar()->isVisible()) << lines;
    }
}

TEST(TextBoxTest, AWordWithoutAnEndWrapsAnywhereAndWordsAsAWhole) {
    TextBox box;
    box.resize(300, 200);
    box.setText(u"Close the valve. "_s.repeated(100));
    EXPECT_EQ(box.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
    box.textCursor().insertText(u"x"_s.repeated(600));
    EXPECT_EQ(box.wordWrapMode(), QTextOption::WrapAnywhere);
    box.undo();
    EXPECT_EQ(box.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

TEST(TextBoxTest, APastedWordOfAMillionLettersTakesNoLongerThanAsManyWords) {
    const auto timeOf = [](const QString& pasted) {
        TextBox box;
        box.resize(300, 200);
        box.show();
        QCoreApplication::processEvents();
        QGuiApplication::clipboard()->setText(pasted);
        QElapsedTimer timer;
        timer.start();
        box.paste();
        QCoreApplication::processEvents();
        const auto time = timer.nsecsElapsed();
        EXPECT_EQ(box.text(), pasted);
        return time;
    };
    const auto words = timeOf(u"four "_s.repeated(200000));
    // With the square of its length it would be a thousand times as much.
    EXPECT_LT(timeOf(u"x"_s.repeated(1000000)), 20 * words);
}

TEST(TextBoxTest, IsEnteredFromAnotherControlOnly) {
    TextBox box;
    int entered = 0;
    QObject::connect(&box, &TextBox::entered, &box, [&] { ++entered; });
    const struct {
        Qt::FocusReason reason;
        int times;
    } reasons[] = {
        {Qt::MouseFocusReason, 1},        {Qt::TabFocusReason, 1},     {Qt::BacktabFocusReason, 1},
        {Qt::ShortcutFocusReason, 1},     {Qt::OtherFocusReason, 1},   {Qt::PopupFocusReason, 0},
        {Qt::ActiveWindowFocusReason, 0}, {Qt::MenuBarFocusReason, 0},
    };
    for (const auto& reason : reasons) {
        entered = 0;
        QFocusEvent event(QEvent::FocusIn, reason.reason);
        QApplication::sendEvent(&box, &event);
        EXPECT_EQ(entered, reason.times) << reason.reason;
    }
}

} // namespace kelvane::testing
