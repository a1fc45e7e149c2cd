#include "testkit/program_fixture.h"
#include "ui/form_custom_dialog.h"
#include "ui/open_windows.h"

#include <QAction>
#include <QLabel>
#include <QMdiArea>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString connectionLost = u"This workstation is no longer connected to the database. Please select "
                               u"FILE,LOG OUT from the menu, or CTRL-L "
                               "to log out and reconnect."_s;
const QString chooseCalibrator = u"Select Calibrator To Use:"_s;
const QString uploadTitle = u"Upload Test Results From Calibrator"_s;
const QString countPoints = u"select count(tp_name) from mt.hvm_kv_proc_points"_s;
const QString enterInstrument = u"Enter instrument number:"_s;
const QString noStrategies =
    u"Cannot configure calibration parameters without any test strategies defined!"_s;

} // namespace

class MenuCommands : public ProgramTest {
  protected:
    /// Opens the calibration parameters of the instrument A-1.
    void chooseInstrument() {
        script.answers.insert(u"select mtag from MT.inventory where i4201 = 'A-1'"_s, {Row{u"17"_s}});
        simulatedOperator.expectDialog(u"Calibration Parameters"_s, enterInstrument, u"A-1"_s);
        choose(u"mnuCalParameters"_s);
    }
};

TEST_F(MenuCommands, WithoutTheConnectionAllButThreeOnlySayThatItIsLost) {
    startLoggedIn(4);
    session.SessionConnected = false;
    for (const auto& entry : {u"mnuDownload"_s, u"mnuUpload"_s, u"mnuPrint"_s, u"mnuEnter"_s,
                              u"mnuStrategies"_s, u"mnuCalParameters"_s, u"mnuPrompts"_s,
                              u"mnuConfiguration"_s, u"mnuWorkEntry"_s, u"mnuPredefined"_s}) {
        SCOPED_TRACE(entry.toStdString());
        simulatedOperator.expectBox(connectionLost, u"Connection To Database Lost!"_s, box::warning);
        action(entry)->setEnabled(true);
        choose(entry);
        EXPECT_TRUE(openChildren().isEmpty());
        EXPECT_TRUE(simulatedOperator.hasMetAll());
    }
    EXPECT_TRUE(script.statements.isEmpty());
    choose(u"mnuODBC"_s);
    EXPECT_EQ(openChildren(), QStringList{u"FormODBC"_s});
}

TEST_F(MenuCommands, StrategiesOpensItsScreenOnce) {
    startLoggedIn(4);
    pressKeys(u"Ctrl+S"_s);
    const auto* before = &child(u"FormStrategies"_s);
    choose(u"mnuODBC"_s);
    choose(u"mnuStrategies"_s);
    EXPECT_EQ(&child(u"FormStrategies"_s), before);
    EXPECT_EQ(program.window.area().activeSubWindow(), before);
    EXPECT_TRUE(isWindowOpen(session, u"FormStrategies"));
}

TEST_F(MenuCommands, RecordConfigurationOpensItsScreenOnce) {
    startLoggedIn(6);
    script.answers.insert(u"select count(fldnum) from mt.hvm_kv_worksheetfields"_s, {Row{u"0"_s}});
    pressKeys(u"Ctrl+E"_s);
    const auto* before = &child(u"FormWorkConfig"_s);
    choose(u"mnuODBC"_s);
    choose(u"mnuWorkEntry"_s);
    EXPECT_EQ(&child(u"FormWorkConfig"_s), before);
    EXPECT_EQ(program.window.area().activeSubWindow(), before);
    EXPECT_TRUE(isWindowOpen(session, u"FormWorkConfig"));
}

TEST_F(MenuCommands, AboutHasNoCommand) {
    startLoggedIn(4);
    action(u"mnuAbout"_s)->setEnabled(true);
    choose(u"mnuAbout"_s);
    EXPECT_TRUE(openChildren().isEmpty());
}

TEST_F(MenuCommands, CalibrationParametersOpensWithoutAMessageWhenThereAreStrategies) {
    startLoggedIn(4);
    script.answers.insert(countPoints, {Row{u"12"_s}});
    chooseInstrument();
    EXPECT_EQ(script.statements.first(), countPoints);
    EXPECT_EQ(openChildren(), QStringList{u"FormCalParam"_s});
}

TEST_F(MenuCommands, CalibrationParametersWarnsWithoutStrategiesAndStillOpens) {
    startLoggedIn(4);
    script.answers.insert(countPoints, {Row{u"0"_s}});
    simulatedOperator.expectBox(noStrategies, u"Calibration Parameters"_s, box::warning);
    chooseInstrument();
    EXPECT_EQ(openChildren(), QStringList{u"FormCalParam"_s});
}

TEST_F(MenuCommands, CalibrationParametersWithoutAnInstrumentClosesItsScreen) {
    startLoggedIn(4);
    script.answers.insert(countPoints, {Row{u"12"_s}});
    simulatedOperator.expectDialog(
        u"Calibration Parameters"_s, enterInstrument, [this](FormCustomDialog& dialog) {
            EXPECT_EQ(child(u"FormCalParam"_s).windowTitle(), u"Calibration Parameters"_s);
            cancel(dialog);
        });
    choose(u"mnuCalParameters"_s);
    EXPECT_TRUE(openChildren().isEmpty());
}

TEST_F(MenuCommands, CalibrationParametersThatAreOpenOnlyComeForward) {
    startLoggedIn(4);
    script.answers.insert(countPoints, {Row{u"12"_s}});
    chooseInstrument();
    choose(u"mnuConfiguration"_s);
    const auto* before = &child(u"FormCalParam"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(&child(u"FormCalParam"_s), before);
    EXPECT_EQ(program.window.area().activeSubWindow(), before);
}

TEST_F(MenuCommands, CalibrationParametersWhileItsQuestionIsOpenChangesNothing) {
    startLoggedIn(4);
    script.answers.insert(countPoints, {Row{u"12"_s}});
    script.answers.insert(u"select mtag from MT.inventory where i4201 = 'A-1'"_s, {Row{u"17"_s}});
    simulatedOperator.expectDialog(u"Calibration Parameters"_s, enterInstrument,
                                   [this](FormCustomDialog& dialog) {
                                       choose(u"mnuCalParameters"_s);
                                       child(u"FormCalParam"_s).close();
                                       EXPECT_NE(findChild(u"FormCalParam"_s), nullptr);
                                       EXPECT_TRUE(dialog.isOpen());
                                       answerDialog(dialog, u"A-1"_s);
                                   });
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(child(u"FormCalParam"_s).windowTitle(), u"Calibration Parameters (A-1)"_s);
}

TEST_F(MenuCommands, CalibrationParametersWhileAnotherQuestionIsOpenLeavesNoScreenWithoutAnInstrument) {
    startLoggedIn(4);
    script.answers.insert(countPoints, {Row{u"12"_s}});
    simulatedOperator.expectDialog(uploadTitle, chooseCalibrator, [this](FormCustomDialog& dialog) {
        choose(u"mnuCalParameters"_s);
        EXPECT_EQ(findChild(u"FormCalParam"_s), nullptr);
        cancel(dialog);
    });
    choose(u"mnuUpload"_s);
}

TEST_F(MenuCommands, AQuestionThatIsOpenComesToTheFrontAndNoOtherCommandWithOneBegins) {
    startLoggedIn(4);
    simulatedOperator.expectDialog(uploadTitle, chooseCalibrator, [this](FormCustomDialog& dialog) {
        for (const auto& entry : {u"mnuDownload"_s, u"mnuUpload"_s, u"mnuCalParameters"_s}) {
            choose(u"mnuConfiguration"_s);
            EXPECT_NE(program.window.area().activeSubWindow(), &dialog);
            choose(entry);
            EXPECT_EQ(program.window.area().activeSubWindow(), &dialog) << entry.toStdString();
        }
        EXPECT_EQ(openChildren(), (QStringList{u"FormCustomDialog"_s, u"FormCalConfig"_s}));
        EXPECT_TRUE(script.statements.isEmpty());
        answerDialog(dialog, u"Fluke 743/744"_s);
    });
    link3.reasonMissing = u"no library"_s;
    simulatedOperator.expectBox(u"no library"_s, uploadTitle, box::warning);
    choose(u"mnuUpload"_s);
}

TEST_F(MenuCommands, CalibrationParametersReportsAnErrorUnderItsSuffixedName) {
    startLoggedIn(4);
    script.failures.insert(countPoints, Error{208, u"no such table"_s});
    simulatedOperator.expectReport(208, u"MDIFormMain,mnuCalParameters.Click"_s);
    choose(u"mnuCalParameters"_s);
}

TEST_F(MenuCommands, ACommandThatMeetsALostConnectionReportsItAndTheNextOneSaysWhatToDo) {
    startLoggedIn(4);
    script.lost = true;
    simulatedOperator.expectReport(10054, u"MDIFormMain,mnuCalParameters.Click"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_FALSE(session.SessionConnected);
    simulatedOperator.expectBox(connectionLost, u"Connection To Database Lost!"_s, box::warning);
    choose(u"mnuCalParameters"_s);
    // Log out and a new login bring it back.
    choose(u"mnuLogout"_s);
    typeLogin(u"jdoe"_s, u"secret"_s);
    EXPECT_TRUE(session.SessionConnected);
}

TEST_F(MenuCommands, AReportThatCantBeWrittenIsShownAndTheProgramGoesOn) {
    startLoggedIn(4);
    QDir().mkdir(u"errors.log"_s);
    script.failures.insert(countPoints, Error{208, u"no such table"_s});
    simulatedOperator.expectBox(
        u"The error report could not be written to \"errors.log\" in the working folder. Please check "
        "that the folder can be written to and that the disk is not full."_s,
        u"Kelvane"_s, box::stop);
    choose(u"mnuCalParameters"_s);
    script.failures.clear();
    script.answers.insert(countPoints, {Row{u"1"_s}});
    chooseInstrument();
    EXPECT_EQ(openChildren(), QStringList{u"FormCalParam"_s});
}

} // namespace kelvane::testing
