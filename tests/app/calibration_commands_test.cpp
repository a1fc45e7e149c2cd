#include "testkit/program_fixture.h"
#include "ui/form_custom_dialog.h"
#include "ui/open_windows.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString chooseCalibrator = u"Select Calibrator To Use:"_s;
const QString uploadTitle = u"Upload Test Results From Calibrator"_s;

} // namespace

/// The commands that download, upload and configure.
class CalibrationCommands : public ProgramTest {
  protected:
    void chooseDownload(const QString& calibrator) {
        simulatedOperator.expectDialog(u"Download"_s, chooseCalibrator, calibrator);
        choose(u"mnuDownload"_s);
    }
    QString shownCalibrator() {
        return control<QLabel>(child(u"FormDockingDown"_s), u"SSPanelCalibrator"_s).text();
    }
};

TEST_F(CalibrationCommands, DownloadOpensItsScreenAndAsksForTheCalibrator) {
    startLoggedIn(4);
    simulatedOperator.expectDialog(u"Download"_s, chooseCalibrator, [this](FormCustomDialog& dialog) {
        EXPECT_EQ(shownCalibrator(), QString());
        const auto& list = control<QComboBox>(dialog, u"ComboCustomDialog"_s);
        QStringList rows;
        for (int i = 0; i < list.count(); ++i)
            rows << list.itemText(i);
        EXPECT_EQ(rows, (QStringList{u"Crane TorqueStar IVc"_s, u"Fluke 702"_s, u"Fluke 743/744"_s}));
        EXPECT_EQ(list.currentText(), u"Crane TorqueStar IVc"_s);
        answerDialog(dialog, u"Fluke 743/744"_s);
    });
    pressKeys(u"F1"_s);
    EXPECT_EQ(shownCalibrator(), u"Fluke 743/744"_s);
    EXPECT_EQ(qApp->focusWidget()->objectName(), u"TextAdd"_s);
    EXPECT_EQ(openChildren(), QStringList{u"FormDockingDown"_s});
}

TEST_F(CalibrationCommands, DownloadProposesTheCalibratorOfLastTime) {
    startLoggedIn(4);
    settings.values.insert(u"Defaults/LastDownloadCalibrator"_s, u"Fluke 702"_s);
    simulatedOperator.expectDialog(u"Download"_s, chooseCalibrator, [](FormCustomDialog& dialog) {
        EXPECT_EQ(control<QComboBox>(dialog, u"ComboCustomDialog"_s).currentText(), u"Fluke 702"_s);
        QTest::keyClick(&control<QComboBox>(dialog, u"ComboCustomDialog"_s), Qt::Key_Return);
    });
    choose(u"mnuDownload"_s);
    EXPECT_EQ(shownCalibrator(), u"Fluke 702"_s);
}

TEST_F(CalibrationCommands, DownloadWithoutACalibratorClosesItsScreen) {
    startLoggedIn(4);
    expectCancelledDialog(u"Download"_s, chooseCalibrator);
    choose(u"mnuDownload"_s);
    EXPECT_TRUE(openChildren().isEmpty());
    EXPECT_FALSE(isWindowOpen(session, u"FormDockingDown"));
}

TEST_F(CalibrationCommands, DownloadWithItsScreenOpenAsksAgainAndKeepsTheRows) {
    startLoggedIn(4);
    chooseDownload(u"Fluke 702"_s);
    control<QListWidget>(child(u"FormDockingDown"_s), u"ListCal"_s).addItems({u"A-1"_s, u"A-2"_s});
    chooseDownload(u"Crane TorqueStar IVc"_s);
    EXPECT_EQ(shownCalibrator(), u"Crane TorqueStar IVc"_s);
    EXPECT_EQ(control<QListWidget>(child(u"FormDockingDown"_s), u"ListCal"_s).count(), 2);
    EXPECT_EQ(openChildren(), QStringList{u"FormDockingDown"_s});
}

TEST_F(CalibrationCommands, DownloadWhileItsQuestionIsOpenChangesNothing) {
    startLoggedIn(4);
    simulatedOperator.expectDialog(u"Download"_s, chooseCalibrator, [this](FormCustomDialog& dialog) {
        choose(u"mnuDownload"_s);
        EXPECT_NE(findChild(u"FormDockingDown"_s), nullptr);
        EXPECT_TRUE(dialog.isOpen());
        answerDialog(dialog, u"Fluke 702"_s);
    });
    choose(u"mnuDownload"_s);
    EXPECT_EQ(shownCalibrator(), u"Fluke 702"_s);
}

TEST_F(CalibrationCommands, NothingIsAddedOrDownloadedBeforeTheCalibratorIsChosen) {
    startLoggedIn(4);
    simulatedOperator.expectDialog(u"Download"_s, chooseCalibrator, [this](FormCustomDialog& dialog) {
        auto& form = child(u"FormDockingDown"_s);
        for (const auto& name : {u"CommandAdd"_s, u"CommandRemove"_s, u"CommandDownload"_s})
            EXPECT_FALSE(control<QWidget>(form, name).isEnabled());
        auto& entry = control<QLineEdit>(form, u"TextAdd"_s);
        QTest::keyClicks(&entry, u"A-1"_s);
        QTest::keyClick(&entry, Qt::Key_Return);
        EXPECT_TRUE(script.statements.isEmpty());
        answerDialog(dialog, u"Fluke 702"_s);
    });
    choose(u"mnuDownload"_s);
    EXPECT_TRUE(control<QWidget>(child(u"FormDockingDown"_s), u"CommandAdd"_s).isEnabled());
}

TEST_F(CalibrationCommands, DownloadWhileAnotherQuestionIsOpenLeavesNoScreenWithoutACalibrator) {
    startLoggedIn(4);
    simulatedOperator.expectDialog(uploadTitle, chooseCalibrator, [this](FormCustomDialog& dialog) {
        choose(u"mnuDownload"_s);
        EXPECT_EQ(findChild(u"FormDockingDown"_s), nullptr);
        cancel(dialog);
    });
    choose(u"mnuUpload"_s);
}

TEST_F(CalibrationCommands, CancellingTheQuestionAskedAgainClosesTheScreen) {
    startLoggedIn(4);
    chooseDownload(u"Fluke 702"_s);
    expectCancelledDialog(u"Download"_s, chooseCalibrator);
    choose(u"mnuDownload"_s);
    EXPECT_EQ(findChild(u"FormDockingDown"_s), nullptr);
}

TEST_F(CalibrationCommands, TheScreenRefusesToCloseWhileItsQuestionIsOpen) {
    startLoggedIn(4);
    simulatedOperator.expectDialog(u"Download"_s, chooseCalibrator, [this](FormCustomDialog& dialog) {
        child(u"FormDockingDown"_s).close();
        EXPECT_NE(findChild(u"FormDockingDown"_s), nullptr);
        answerDialog(dialog, u"Fluke 702"_s);
    });
    choose(u"mnuDownload"_s);
    child(u"FormDockingDown"_s).close();
    EXPECT_EQ(findChild(u"FormDockingDown"_s), nullptr);
}

TEST_F(CalibrationCommands, UploadRunsTheUploadCommand) {
    startLoggedIn(4);
    link3.reasonMissing = u"no library"_s;
    simulatedOperator.expectDialog(uploadTitle, chooseCalibrator, u"Fluke 743/744"_s);
    simulatedOperator.expectBox(u"no library"_s, uploadTitle, box::warning);
    pressKeys(u"F2"_s);
    EXPECT_EQ(settings.values.value(u"Defaults/LastUploadCalibrator"_s), u"Fluke 743/744"_s);
}

TEST_F(CalibrationCommands, AFluke702ShowsItsWarningOverTheProgressWindow) {
    startLoggedIn(4);
    link.steps = 5;
    link.answer(u"DPCuplStep"_s, 103, 2);
    simulatedOperator.expectDialog(uploadTitle, chooseCalibrator, u"Fluke 702"_s);
    simulatedOperator.expectBox(
        u": Don't forget that you have high voltage applied! (DPCWARN_DANGER_VOLTAGE)"_s,
        u"Download Procedures To Calibrator"_s, box::information, [this](QMessageBox& box) {
            EXPECT_EQ(child(u"FormStatusBar"_s).windowTitle(), u"Upload Task Package from Fluke 702"_s);
            click(*box.buttons().first());
        });
    simulatedOperator.expectBox(u"Upload Successful"_s, uploadTitle, box::information);
    pressKeys(u"F2"_s);
    EXPECT_EQ(openChildren(), QStringList());
}

TEST_F(CalibrationCommands, AFluke702WhoseLibraryNeverComesToAnEndCanBeLeftByTheMainWindow) {
    startLoggedIn(4);
    link.steps = 5;
    bool endless = true;
    int steps = 0;
    link.nextCount = [&](qint32 count) {
        if (++steps == 20)
            QMetaObject::invokeMethod(&program.window, &QWidget::close, Qt::QueuedConnection);
        return endless ? count : 0;
    };
    atEnd = [&] {
        ++processEnded;
        endless = false; // a real end leaves here
    };
    simulatedOperator.expectDialog(uploadTitle, chooseCalibrator, u"Fluke 702"_s);
    simulatedOperator.expectBox(u"Are you sure you want to exit?"_s, u"Kelvane"_s, box::question,
                                BoxAnswer::yes);
    simulatedOperator.expectBox(
        u"Asset Number for Calibrator NOT Found In Database! A record for the calibrator must be created before uploading results."_s,
        uploadTitle, box::warning);
    pressKeys(u"F2"_s);
    EXPECT_EQ(processEnded, 1);
    EXPECT_LT(steps, 30);
}

TEST_F(CalibrationCommands, UploadWhileAQuestionIsOpenDoesNothing) {
    startLoggedIn(4);
    simulatedOperator.expectDialog(uploadTitle, chooseCalibrator, [this](FormCustomDialog& dialog) {
        choose(u"mnuUpload"_s);
        EXPECT_TRUE(dialog.isOpen());
        cancel(dialog);
    });
    choose(u"mnuUpload"_s);
    EXPECT_FALSE(settings.values.contains(u"Defaults/LastUploadCalibrator"_s));
}

TEST_F(CalibrationCommands, TheRestOfTheProgramStaysReachableWhileAQuestionIsOpen) {
    startLoggedIn(4);
    simulatedOperator.expectDialog(uploadTitle, chooseCalibrator, [this](FormCustomDialog& dialog) {
        choose(u"mnuConfiguration"_s);
        EXPECT_TRUE(child(u"FormCalConfig"_s).isEnabled());
        child(u"FormCalConfig"_s).close();
        cancel(dialog);
    });
    choose(u"mnuUpload"_s);
}

TEST_F(CalibrationCommands, ConfigurationShowsTheCalibratorOfTheDownload) {
    startLoggedIn(4);
    chooseDownload(u"Crane TorqueStar IVc"_s);
    choose(u"mnuConfiguration"_s);
    EXPECT_EQ(control<QComboBox>(child(u"FormCalConfig"_s), u"ComboCalibrator"_s).currentText(),
              u"Crane TorqueStar IVc"_s);
}

TEST_F(CalibrationCommands, ConfigurationShownAgainIsTheSameWindow) {
    startLoggedIn(4);
    choose(u"mnuConfiguration"_s);
    choose(u"mnuODBC"_s);
    const auto* before = &child(u"FormCalConfig"_s);
    choose(u"mnuConfiguration"_s);
    EXPECT_EQ(&child(u"FormCalConfig"_s), before);
    EXPECT_EQ(program.window.area().activeSubWindow(), before);
}

} // namespace kelvane::testing
