#include "tests/worksheets/form_worksheet_print_fixture.h"
#include "ui/form_custom_dialog.h"

#include <QApplication>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(FormWorksheetPrintTest, WhileTheReportIsOpenAllButPrintingGoesOn) {
    openWithRows();
    print([this] {
        EXPECT_EQ(enabledOf(commands), commands.first(3));
        press(u"CommandPrint"_s);
        EXPECT_EQ(reports.requests.size(), 1);
        add(u"A-3"_s);
        select(list(), u"A-1"_s);
        press(u"CommandRemove"_s);
        EXPECT_EQ(rows(), (QStringList{u"A-2"_s, u"A-3"_s}));
        simulatedOperator.expectDialog(checking, standardPrompt, u"S-9"_s);
        simulatedOperator.expectBox(u"Standard does not exist!"_s, checking, box::warning);
        press(u"CommandChkStandard"_s);
        EXPECT_EQ(enabledOf(commands), commands.first(3));
        choose(u"mnuODBC"_s);
        EXPECT_NE(findChild(u"FormODBC"_s), nullptr);
        EXPECT_EQ(removals(), QStringList());
    });
    EXPECT_EQ(removals().size(), 1);
    EXPECT_EQ(enabledOf(commands), commands);
    EXPECT_EQ(rows(), (QStringList{u"A-2"_s, u"A-3"_s}));
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(FormWorksheetPrintTest, AQuestionThatOutlivesTheReportEndsBeforeThePrint) {
    openWithRows();
    print([this] {
        simulatedOperator.expectDialog(checking, standardPrompt, [this](FormCustomDialog& dialog) {
            preview.close();
            QCoreApplication::processEvents();
            EXPECT_EQ(removals(), QStringList());
            form().close();
            EXPECT_TRUE(isOpen());
            cancel(dialog);
        });
        press(u"CommandChkStandard"_s);
        EXPECT_EQ(enabledOf(commands), commands.first(3));
    });
    EXPECT_EQ(removals().size(), 1);
    EXPECT_EQ(enabledOf(commands), commands);
}

TEST_F(FormWorksheetPrintTest, PrintingAgainShowsTheListAgain) {
    openWithRows();
    print([] {});
    print([] {});
    EXPECT_EQ(reports.requests.size(), 2);
    EXPECT_EQ(removals().size(), 2);
    EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-2"_s}));
}

TEST_F(FormWorksheetPrintTest, PrintingByKeyboardPutsTheFocusIntoTheEntry) {
    openWithRows();
    choose(u"mnuODBC"_s);
    program.window.area().setActiveSubWindow(&form());
    whileOpen([] {});
    button(u"CommandPrint"_s).setFocus();
    pressKeys(u"Space"_s);
    EXPECT_EQ(reports.requests.size(), 1);
    EXPECT_EQ(form().focusWidget(), &entry());
}

TEST_F(FormWorksheetPrintTest, ClosingBringsTheReportForwardWhileItIsOpen) {
    openWithRows();
    print([this] {
        for (const bool minimised : {false, true}) {
            preview.setWindowState(minimised ? Qt::WindowMinimized : Qt::WindowNoState);
            program.window.activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(&program.window));
            form().close();
            EXPECT_TRUE(isOpen());
            EXPECT_TRUE(QTest::qWaitForWindowActive(&preview));
            EXPECT_FALSE(preview.isMinimized());
        }
    });
    form().close();
    EXPECT_FALSE(isOpen());
}

TEST_F(FormWorksheetPrintTest, LeavingTheProgramClosesTheReportAndRemovesItsRowsFirst) {
    openWithRows();
    QStringList removedBefore;
    atEnd = [&] {
        ++processEnded;
        removedBefore = removals();
    };
    print([this] {
        simulatedOperator.expectBox(u"Are you sure you want to exit?"_s, u"Kelvane"_s, box::question,
                                    BoxAnswer::yes);
        program.window.close();
        EXPECT_FALSE(preview.isVisible());
        EXPECT_EQ(processEnded, 0);
    });
    EXPECT_EQ(processEnded, 1);
    EXPECT_EQ(removedBefore.size(), 1);
    EXPECT_FALSE(script.open);
}

TEST_F(FormWorksheetPrintTest, LeavingUnderAnOpenQuestionEndsTheProgramAtOnce) {
    openWithRows();
    print([this] {
        simulatedOperator.expectDialog(checking, standardPrompt, [this](FormCustomDialog& dialog) {
            simulatedOperator.expectBox(u"Are you sure you want to exit?"_s, u"Kelvane"_s, box::question,
                                        BoxAnswer::yes);
            program.window.close();
            EXPECT_EQ(processEnded, 1);
            cancel(dialog);
        });
        press(u"CommandChkStandard"_s);
    });
    EXPECT_EQ(removals().size(), 1);
}

TEST_F(FormWorksheetPrintTest, AnyWindowOfThatTitleProlongsTheWait) {
    openWithRows();
    QWidget earlier;
    earlier.setWindowTitle(preview.windowTitle());
    earlier.show();
    whileOpen([this, &earlier] {
        QMetaObject::invokeMethod(
            &earlier,
            [this, &earlier] {
                EXPECT_FALSE(preview.isVisible());
                EXPECT_EQ(removals(), QStringList());
                EXPECT_EQ(enabledOf(commands), commands.first(3));
                earlier.close();
            },
            Qt::QueuedConnection);
    });
    press(u"CommandPrint"_s);
    EXPECT_FALSE(earlier.isVisible());
    EXPECT_EQ(removals().size(), 1);
    EXPECT_EQ(enabledOf(commands), commands);
}

TEST_F(FormWorksheetPrintTest, LogOutRefusesAndExitAsksWhileTheReportIsOpen) {
    openWithRows();
    print([this] {
        simulatedOperator.expectBox(
            u"One or more windows are still open! Please close open windows before logging out..."_s,
            u"Kelvane"_s, box::warning);
        choose(u"mnuLogout"_s);
        simulatedOperator.expectBox(u"Are you sure you want to exit?"_s, u"Kelvane"_s, box::question,
                                    BoxAnswer::no);
        program.window.close();
    });
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_EQ(removals().size(), 1);
    EXPECT_EQ(processEnded, 0);
}

TEST_F(FormWorksheetPrintTest, ThePackageIsRemovedWhenTheScreenIsGoneBeforeTheReport) {
    openWithRows();
    const QPointer screen(&form());
    whileOpen([&screen] { delete screen; });
    button(u"CommandPrint"_s).click();
    EXPECT_TRUE(screen.isNull());
    EXPECT_EQ(removals().size(), 1);
}

TEST_F(FormWorksheetPrintTest, AReportThatDoesNotStartShowsItsReason) {
    openWithRows();
    reports.onRun = {};
    reports.result = 5;
    reports.errorText = u"kvwrksht.rpt, line 12: no such font"_s;
    simulatedOperator.expectBox(reports.errorText, u"Calibration Worksheet Printing Error"_s, box::stop);
    press(u"CommandPrint"_s);
    EXPECT_EQ(removals().size(), 1);
    EXPECT_EQ(enabledOf(commands), commands);
    EXPECT_EQ(rows().size(), 2);
}

TEST_F(FormWorksheetPrintTest, ALostConnectionIsReportedAndTheButtonsComeBack) {
    openWithRows();
    script.lost = true;
    for (int report = 0; report < 2; ++report)
        simulatedOperator.expectReport(10054, u"FormWorksheetPrint,CommandPrint"_s);
    press(u"CommandPrint"_s);
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_TRUE(reports.requests.isEmpty());
    EXPECT_EQ(enabledOf(commands), commands);
    simulatedOperator.expectReport(10054, u"FormWorksheetPrint,CommandAdd"_s);
    add(u"A-3"_s);
    EXPECT_EQ(entry().text(), u"A-3"_s);
}

} // namespace kelvane::testing
