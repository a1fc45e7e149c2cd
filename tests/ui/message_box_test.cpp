#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "testkit/screen_operator.h"
#include "ui/guarded.h"
#include "ui/message_box.h"
#include "ui/qt_user_interface.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr BoxStyle allStyles[] = {
    box::warning,
    box::stop,
    box::information,
    box::question,
    box::warningYesNo,
    box::warningOkCancel,
    box::warningRetryCancel,
    {BoxIcon::warning, BoxButtons::abortRetryIgnore, 1},
    {BoxIcon::none, BoxButtons::abortRetryIgnore, 3},
};

BoxAnswer press(BoxStyle style, Qt::Key key) {
    ScreenOperator simulatedOperator;
    simulatedOperator.expectBox(u"Text"_s, u"Title"_s, style,
                                [key](QMessageBox& box) { QTest::keyClick(&box, key); });
    return showMessageBox(nullptr, u"Text"_s, u"Title"_s, style);
}

} // namespace

TEST(MessageBox, ShowsTextTitleIconAndButtonsAndGivesEachAnswer) {
    const QHash<BoxButtons, QList<BoxAnswer>> answers{
        {BoxButtons::ok, {BoxAnswer::ok}},
        {BoxButtons::okCancel, {BoxAnswer::ok, BoxAnswer::cancel}},
        {BoxButtons::yesNo, {BoxAnswer::yes, BoxAnswer::no}},
        {BoxButtons::retryCancel, {BoxAnswer::retry, BoxAnswer::cancel}},
        {BoxButtons::abortRetryIgnore, {BoxAnswer::abort, BoxAnswer::retry, BoxAnswer::ignore}},
    };
    for (const auto& style : allStyles) {
        for (const auto answer : answers.value(style.buttons)) {
            ScreenOperator simulatedOperator;
            simulatedOperator.expectBox(u"A text & <b>its</b>\r\nsecond line"_s, u"A title"_s, style, answer);
            EXPECT_EQ(showMessageBox(nullptr, u"A text & <b>its</b>\r\nsecond line"_s, u"A title"_s, style),
                      answer);
        }
    }
}

TEST(MessageBox, ReturnGivesTheDefaultAnswer) {
    EXPECT_EQ(press(box::warning, Qt::Key_Return), BoxAnswer::ok);
    EXPECT_EQ(press(box::question, Qt::Key_Return), BoxAnswer::no);
    EXPECT_EQ(press(box::warningYesNo, Qt::Key_Return), BoxAnswer::no);
    EXPECT_EQ(press(box::warningOkCancel, Qt::Key_Return), BoxAnswer::ok);
    EXPECT_EQ(press(box::warningRetryCancel, Qt::Key_Return), BoxAnswer::retry);
    EXPECT_EQ(press({BoxIcon::warning, BoxButtons::abortRetryIgnore, 1}, Qt::Key_Return), BoxAnswer::abort);
}

TEST(MessageBox, EscapeGivesNoOrCancelOrTheOnlyAnswer) {
    EXPECT_EQ(press(box::stop, Qt::Key_Escape), BoxAnswer::ok);
    EXPECT_EQ(press(box::question, Qt::Key_Escape), BoxAnswer::no);
    EXPECT_EQ(press(box::warningOkCancel, Qt::Key_Escape), BoxAnswer::cancel);
    EXPECT_EQ(press(box::warningRetryCancel, Qt::Key_Escape), BoxAnswer::cancel);
}

TEST(MessageBox, EscapeAndTheFrameLeaveABoxOfThreeWaysOpen) {
    const BoxStyle style{BoxIcon::warning, BoxButtons::abortRetryIgnore, 1};
    ScreenOperator simulatedOperator;
    simulatedOperator.expectBox(u"Text"_s, u"Title"_s, style, [](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_Escape);
        box.close();
        EXPECT_TRUE(box.isVisible());
        QTest::keyClick(&box, Qt::Key_Tab);
        QTest::keyClick(box.focusWidget(), Qt::Key_Space);
    });
    const auto answer = showMessageBox(nullptr, u"Text"_s, u"Title"_s, style);
    EXPECT_TRUE(answer == BoxAnswer::retry || answer == BoxAnswer::ignore);
}

TEST(MessageBox, EveryTextOfOneSentenceIsWrappedAndNotScrolled) {
    for (const auto id :
         {TextId::confirmExit, TextId::internalErrorAdvice, TextId::databaseConnectionFailed,
          TextId::configurationDataIncomplete, TextId::resultTemplateMissing, TextId::noTestStrategiesDefined,
          TextId::outputNotMeasurable, TextId::calibratorReportedPass, TextId::requiredDataRetryAdvised,
          TextId::connectionLostAdvice, TextId::errorReportNotWritten}) {
        const auto shown = text(id);
        ScreenOperator simulatedOperator;
        simulatedOperator.expectBox(shown, u"Kelvane"_s, box::warning, [id](QMessageBox& box) {
            EXPECT_TRUE(box.findChildren<QPlainTextEdit*>().isEmpty()) << static_cast<int>(id);
            const auto* label = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
            EXPECT_GE(label->height(), label->heightForWidth(label->width())) << static_cast<int>(id);
            EXPECT_LE(box.width(), 560) << static_cast<int>(id);
            EXPECT_LE(box.height(), 220) << static_cast<int>(id);
            click(*box.buttons().first());
        });
        showMessageBox(nullptr, shown, u"Kelvane"_s, box::warning);
    }
}

TEST(MessageBox, ALongStatementLeavesTheButtonsOnTheScreenAndScrollsDownwardsOnly) {
    const auto statement = u"insert into mt.calresults "_s;
    for (const auto& longText : {statement.repeated(4000), u"x"_s.repeated(20000), u"y"_s.repeated(1500)}) {
        ScreenOperator simulatedOperator;
        simulatedOperator.expectBox(longText, u"Kelvane"_s, box::stop, [&](QMessageBox& box) {
            const auto space = box.screen()->availableGeometry();
            EXPECT_LE(box.height(), space.height());
            EXPECT_LE(box.width(), space.width());
            const auto texts = box.findChildren<QPlainTextEdit*>();
            EXPECT_EQ(texts.size(), 1);
            for (const auto* text : texts) {
                EXPECT_EQ(text->toPlainText(), longText);
                EXPECT_EQ(text->horizontalScrollBar()->maximum(), 0);
                EXPECT_EQ(text->verticalScrollBar()->value(), 0);
                EXPECT_FALSE(text->hasFocus());
            }
            click(*box.buttons().first());
        });
        showMessageBox(nullptr, longText, u"Kelvane"_s, box::stop);
    }
}

TEST(MessageBox, AReportWithAHugeStatementShowsTheErrorsOwnTextWholeAtItsTop) {
    const auto own = text(TextId::internalErrorOccurred) + u" 1054 no such column: c2399\r\n\r\n"_s +
                     text(TextId::internalErrorAdvice) + u"\r\n\r\n"_s + text(TextId::errorReportRoutine) +
                     u"ModuleGlobals,CreateCalRecord\r\n"_s + text(TextId::errorReportSql);
    const auto report = own + u"'x'"_s.repeated(300000);
    ScreenOperator simulatedOperator;
    simulatedOperator.expectBox(report, u"Kelvane"_s, box::stop, [&](QMessageBox& box) {
        auto* text = box.findChild<QPlainTextEdit*>();
        QTextCursor end(text->document());
        end.setPosition(static_cast<int>(own.size() - own.count(u'\r')));
        const auto place = text->cursorRect(end);
        EXPECT_TRUE(text->viewport()->rect().contains(place.topLeft()));
        EXPECT_TRUE(text->viewport()->rect().contains(place.bottomLeft()));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(showMessageBox(nullptr, report, u"Kelvane"_s, box::stop), BoxAnswer::ok);
}

TEST(MessageBox, ALongTextIsScrolledAndCopiedByKeyboardAndLeavesReturnAndEscapeToItsBox) {
    const auto longText = u"a line\r\n"_s.repeated(500);
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
        ScreenOperator simulatedOperator;
        simulatedOperator.expectBox(longText, u"Kelvane"_s, box::question, [&](QMessageBox& box) {
            auto* text = box.findChild<QPlainTextEdit*>();
            text->setFocus();
            QTest::keyClick(text, Qt::Key_PageDown);
            EXPECT_GT(text->verticalScrollBar()->value(), 0);
            QTest::keyClick(text, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClick(text, Qt::Key_C, Qt::ControlModifier);
            EXPECT_EQ(QGuiApplication::clipboard()->text().size(), 500 * 7);
            QTest::keyClick(text, key);
        });
        EXPECT_EQ(showMessageBox(nullptr, longText, u"Kelvane"_s, box::question), BoxAnswer::no);
    }
}

TEST(MessageBox, AWordOfAMillionLettersTakesNoLongerThanAsManyWords) {
    const auto timeOf = [](const QString& text) {
        ScreenOperator simulatedOperator;
        simulatedOperator.expectBox(text, u"Kelvane"_s, box::stop);
        QElapsedTimer timer;
        timer.start();
        showMessageBox(nullptr, text, u"Kelvane"_s, box::stop);
        return timer.nsecsElapsed();
    };
    const auto words = timeOf(u"four "_s.repeated(200000));
    EXPECT_LT(timeOf(u"x"_s.repeated(1000000)), 20 * words);
}

TEST(MessageBox, HasNothingBesideItsTitleButTheButtonThatCloses) {
    ScreenOperator simulatedOperator;
    simulatedOperator.expectBox(u"Text"_s, u"Title"_s, box::warning, [](QMessageBox& box) {
        const auto flags = box.windowFlags();
        EXPECT_TRUE(flags & Qt::CustomizeWindowHint);
        EXPECT_TRUE(flags & Qt::WindowTitleHint);
        EXPECT_TRUE(flags & Qt::WindowCloseButtonHint);
        EXPECT_FALSE(flags & Qt::WindowMinMaxButtonsHint);
        EXPECT_EQ(flags & Qt::WindowType_Mask, Qt::Dialog);
        click(*box.buttons().first());
    });
    showMessageBox(nullptr, u"Text"_s, u"Title"_s, box::warning);
}

TEST(Pointer, IsNotCountedAndABoxShowsTheNormalOne) {
    QtUserInterface ui;
    ui.setBusyPointer();
    ui.setBusyPointer();
    ASSERT_TRUE(QApplication::overrideCursor());
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    {
        ScreenOperator simulatedOperator;
        simulatedOperator.expectBox(u"Text"_s, u"Title"_s, box::warning, [](QMessageBox& box) {
            EXPECT_FALSE(QApplication::overrideCursor());
            click(*box.buttons().first());
        });
        ui.messageBox(u"Text"_s, u"Title"_s, box::warning);
    }
    EXPECT_TRUE(QApplication::overrideCursor());
    ui.setNormalPointer();
    EXPECT_FALSE(QApplication::overrideCursor());
    ui.setNormalPointer();
}

TEST(Guard, AnErrorInTheLastGuardIsShownAndNotThrownAgain) {
    QtUserInterface ui;
    ui.setBusyPointer();
    ScreenOperator simulatedOperator;
    simulatedOperator.expectBox(
        u"The error report could not be written to \"errors.log\" in the working folder. Please check "
        "that the folder can be written to and that the disk is not full."_s,
        u"Kelvane"_s, box::stop);
    runGuarded(ui, [] { throw makeError(ErrorNumber::pathFileAccess); });
    EXPECT_FALSE(QApplication::overrideCursor());
}

} // namespace kelvane::testing
