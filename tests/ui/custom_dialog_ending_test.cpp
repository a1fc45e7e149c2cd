#include "tests/ui/custom_dialog_fixture.h"
#include "ui/open_windows.h"

#include <QApplication>
#include <QMdiArea>
#include <QMessageBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString cancelQuestion = u"Do you really want to cancel?"_s;

} // namespace

TEST_F(CustomDialogTest, CancellingNeedsASecondConfirmation) {
    for (const auto way : {0, 1, 2, 3}) {
        meet([&](FormCustomDialog& dialog, Controls controls) {
            const auto cancel = [&] {
                switch (way) {
                case 0:
                    click(controls.cancel);
                    break;
                case 1:
                    QTest::keyClick(&controls.field, Qt::Key_Escape);
                    break;
                case 2:
                    dialog.close(); // by its frame
                    break;
                default:
                    QTest::keyClick(&controls.field, Qt::Key_F4, Qt::ControlModifier);
                }
            };
            simulatedOperator.expectBox(cancelQuestion, title, box::warningYesNo, BoxAnswer::no);
            cancel();
            EXPECT_TRUE(dialog.isOpen());
            EXPECT_TRUE(controls.field.hasFocus());
            simulatedOperator.expectBox(cancelQuestion, title, box::warningYesNo, BoxAnswer::yes);
            cancel();
        });
        EXPECT_EQ(ask(textQuestion()), u"*CANCEL*"_s) << way;
        EXPECT_FALSE(isWindowOpen(session, u"FormCustomDialog")) << way;
    }
}

TEST_F(CustomDialogTest, NoToCancellingGivesTheFocusBackToTheList) {
    meet([this](FormCustomDialog&, Controls controls) {
        simulatedOperator.expectBox(cancelQuestion, title, box::warningYesNo, BoxAnswer::no);
        click(controls.cancel);
        EXPECT_TRUE(controls.list.hasFocus());
        click(controls.ok);
    });
    EXPECT_EQ(ask(listQuestion({u"one"_s})), u"one"_s);
}

TEST_F(CustomDialogTest, TheWordCancelTypedIsReturnedAsItStands) {
    meet([](FormCustomDialog& dialog, Controls) { answerDialog(dialog, u"*CANCEL*"_s); });
    EXPECT_EQ(ask(textQuestion()), u"*CANCEL*"_s);
}

TEST_F(CustomDialogTest, ASecondQuestionWhileOneIsOpenIsCancelledAtOnce) {
    meet([this](FormCustomDialog& dialog, Controls) {
        EXPECT_EQ(ask(textQuestion()), u"*CANCEL*"_s);
        EXPECT_TRUE(dialog.isOpen());
        EXPECT_EQ(openChildren(), QStringList{u"FormCustomDialog"_s});
        answerDialog(dialog, u"first"_s);
    });
    EXPECT_EQ(ask(textQuestion()), u"first"_s);
}

TEST_F(CustomDialogTest, KeepsItsFlagWhileItIsOpenAndItsPosition) {
    meet([this](FormCustomDialog& dialog, Controls) {
        EXPECT_TRUE(isWindowOpen(session, u"FormCustomDialog"));
        dialog.move(40, 60);
        answerDialog(dialog, u"x"_s);
    });
    ask(textQuestion());
    EXPECT_FALSE(isWindowOpen(session, u"FormCustomDialog"));
    EXPECT_EQ(settings.writes, (QStringList{u"Left/FormCustomDialog=600"_s, u"Top/FormCustomDialog=900"_s}));
    meet([](FormCustomDialog& dialog, Controls) {
        EXPECT_EQ(dialog.pos(), QPoint(40, 60));
        answerDialog(dialog, u"x"_s);
    });
    ask(textQuestion());
}

TEST_F(CustomDialogTest, ThePointerIsNormalWhileItWaits) {
    program.ui.setBusyPointer();
    meet([](FormCustomDialog& dialog, Controls) {
        EXPECT_FALSE(QApplication::overrideCursor());
        answerDialog(dialog, u"x"_s);
    });
    ask(textQuestion());
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(CustomDialogTest, LogOutRefusesWhileItIsOpen) {
    meet([this](FormCustomDialog& dialog, Controls) {
        simulatedOperator.expectBox(
            u"One or more windows are still open! Please close open windows before logging out..."_s, title,
            box::warning);
        choose(u"mnuLogout"_s);
        EXPECT_TRUE(session.SessionConnected);
        answerDialog(dialog, u"x"_s);
    });
    EXPECT_EQ(ask(textQuestion()), u"x"_s);
}

TEST_F(CustomDialogTest, ClosingTheMainWindowMeanwhileAsksWhetherToExit) {
    meet([this](FormCustomDialog& dialog, Controls) {
        simulatedOperator.expectBox(u"Are you sure you want to exit?"_s, title, box::question, BoxAnswer::no);
        program.window.close();
        EXPECT_TRUE(program.window.isVisible());
        EXPECT_EQ(processEnded, 0);
        simulatedOperator.expectBox(u"Are you sure you want to exit?"_s, title, box::question,
                                    BoxAnswer::yes);
        program.window.close();
        EXPECT_EQ(processEnded, 1);
        answerDialog(dialog, u"x"_s);
    });
    EXPECT_EQ(ask(textQuestion()), u"x"_s);
}

TEST_F(CustomDialogTest, AnEventLoopThatEndsCancelsIt) {
    meet([](FormCustomDialog&, Controls) { QCoreApplication::exit(); });
    QString answer;
    QMetaObject::invokeMethod(
        &program.window, [&] { answer = ask(textQuestion()); }, Qt::QueuedConnection);
    QCoreApplication::exec();
    EXPECT_EQ(answer, u"*CANCEL*"_s);
    EXPECT_FALSE(isWindowOpen(session, u"FormCustomDialog"));
}

} // namespace kelvane::testing
