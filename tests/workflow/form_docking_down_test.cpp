#include "data/assets/assets.h"
#include "data/parameters/cal_params.h"
#include "testkit/program_screen.h"
#include "ui/form_custom_dialog.h"
#include "ui/list_rows.h"
#include "ui/open_windows.h"
#include "workflow/form_docking_down.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString title = u"Download Procedures To Calibrator"_s;
const QString torqueStar = u"Crane TorqueStar IVc"_s;
const QString externalStandard = u"External Standard Required"_s;
const QString standardPrompt = u"Standard to be used for this calibration:"_s;

} // namespace

/// The screen over a database that knows the instruments, configured for a serial transducer.
class FormDockingDownTest : public ProgramScreen {
  protected:
    FormDockingDownTest() : ProgramScreen(u"FormDockingDown"_s, u"mnuDownload"_s) {
        startLoggedIn(4);
        for (const auto& asset : {u"A-1"_s, u"A-2"_s}) {
            script.answers.insert(u"select mtag from MT.inventory where i4201 = '"_s + asset + u"'"_s,
                                  {Row{u"17"_s}});
            script.answers.insert(u"select mtag from mt.hvm_kv_tag_config where mtag = "_s +
                                      ModuleGlobals::mtagOf(session, asset).text(),
                                  {Row{u"17"_s}});
            script.answers.insert(ModuleGlobals::selectTestPointPct(session, asset).text(), {Row{u"50"_s}});
            ModuleGlobals::GetCalParams(session, asset);
            // Whatever column is read: a serial transducer, which the torque calibrator takes as it is.
            script.answers.insert(script.statements.last(), {Row(100, u"Serial"_s)});
        }
        script.statements.clear();
    }

    void open(const QString& calibrator) {
        simulatedOperator.expectDialog(u"Download"_s, u"Select Calibrator To Use:"_s, calibrator);
        choose(u"mnuDownload"_s);
    }
    /// Opens the screen for a calibrator without a driver, which takes everything.
    void openForAnyInstrument() {
        open(u"Fluke 702"_s);
        dynamic_cast<FormDockingDown&>(form()).takeCalibrator(u"Any"_s);
    }
    QLineEdit& entry() { return controlNamed<QLineEdit>(u"TextAdd"_s); }
    QListWidget& list() { return controlNamed<QListWidget>(u"ListCal"_s); }
    void add(const QString& asset) {
        QTest::keyClicks(&entry(), asset);
        QTest::keyClick(&entry(), Qt::Key_Return);
    }
    QStringList rows() { return rowsOf(list()); }
    bool buttonsEnabled() {
        return button(u"CommandAdd"_s).isEnabled() && button(u"CommandRemove"_s).isEnabled() &&
               button(u"CommandDownload"_s).isEnabled();
    }
    bool anyButtonEnabled() {
        return button(u"CommandAdd"_s).isEnabled() || button(u"CommandRemove"_s).isEnabled() ||
               button(u"CommandDownload"_s).isEnabled();
    }
    static QString forgetStandards(const QString& asset) {
        return u"delete from mt.hvm_kv_task_standards_inuse where mtag = (select mtag from MT.inventory "
               u"where i4201 = "
               "'"_s +
               asset + u"');commit"_s;
    }
};

TEST_F(FormDockingDownTest, HasItsSizePlaceTextsAndFocus) {
    open(torqueStar);
    EXPECT_EQ(form().geometry(), QRect(7, 5, 404, 191));
    EXPECT_EQ(form().windowTitle(), u"Download"_s);
    const struct {
        QString name;
        QString text;
        QString toolTip;
    } texts[] = {
        {u"Label1"_s, u"Calibrator:"_s, {}},
        {u"SSPanelCalibrator"_s, torqueStar, u"Calibrator that will be used"_s},
        {u"Label2"_s, u"Instrument or Task Package to Add to List:"_s, {}},
        {u"TextAdd"_s, {}, u"Enter instrument to be calibrated"_s},
        {u"CommandAdd"_s, u"Add"_s, u"Add instrument to list to be downloaded to calibrator"_s},
        {u"Label3"_s, u"Instruments to be Calibrated:"_s, {}},
        {u"ListCal"_s, {}, u"Instruments that will be downloaded to calibrator"_s},
        {u"CommandRemove"_s, u"Remove Instrument"_s, u"Remove an instrument from the download list"_s},
        {u"CommandDownload"_s, u"Download"_s, u"Download instrument list to calibrator"_s},
    };
    for (const auto& text : texts) {
        auto& shown = control<QWidget>(form(), text.name);
        EXPECT_EQ(shown.property("text").toString(), text.text) << text.name.toStdString();
        EXPECT_EQ(shown.toolTip(), text.toolTip) << text.name.toStdString();
    }
    EXPECT_TRUE(entry().hasFocus());
}

TEST_F(FormDockingDownTest, ReturnAddsAnInstrumentAndIsReadyForTheNext) {
    openForAnyInstrument();
    add(u"A-1"_s);
    EXPECT_EQ(rows(), QStringList{u"A-1"_s});
    EXPECT_TRUE(entry().text().isEmpty());
    EXPECT_TRUE(entry().hasFocus());
    EXPECT_TRUE(buttonsEnabled());
    EXPECT_FALSE(QApplication::overrideCursor());
    add(u"A-2"_s);
    EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-2"_s}));
}

TEST_F(FormDockingDownTest, TheAddButtonAddsToo) {
    openForAnyInstrument();
    QTest::keyClicks(&entry(), u"A-1"_s);
    press(u"CommandAdd"_s);
    EXPECT_EQ(rows(), QStringList{u"A-1"_s});
    EXPECT_TRUE(entry().hasFocus());
}

TEST_F(FormDockingDownTest, ReturnInTheListAddsWhatIsTyped) {
    openForAnyInstrument();
    QTest::keyClicks(&entry(), u"A-1"_s);
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(rows(), QStringList{u"A-1"_s});
}

TEST_F(FormDockingDownTest, WhileAnotherQuestionIsOpenNothingIsAddedAndTheRememberedStandardStays) {
    open(torqueStar);
    QTest::keyClicks(&entry(), u"A-1"_s);
    simulatedOperator.expectDialog(
        u"Upload Test Results From Calibrator"_s, u"Select Calibrator To Use:"_s,
        [this](FormCustomDialog& dialog) {
            for (const auto& add :
                 {std::function<void()>([this] { press(u"CommandAdd"_s); }), std::function<void()>([this] {
                      entry().setFocus();
                      QTest::keyClick(&entry(), Qt::Key_Return);
                  })}) {
                program.window.area().setActiveSubWindow(&form());
                add();
                EXPECT_EQ(program.window.area().activeSubWindow(), &dialog);
            }
            EXPECT_TRUE(script.statements.isEmpty());
            EXPECT_EQ(entry().text(), u"A-1"_s);
            EXPECT_TRUE(rows().isEmpty());
            EXPECT_TRUE(buttonsEnabled());
            cancel(dialog);
        });
    choose(u"mnuUpload"_s);
    EXPECT_EQ(entry().text(), u"A-1"_s);
    EXPECT_TRUE(script.statements.isEmpty());
}

TEST_F(FormDockingDownTest, AnEmptyEntryDoesNothing) {
    openForAnyInstrument();
    QTest::keyClick(&entry(), Qt::Key_Return);
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_TRUE(script.statements.isEmpty());
}

TEST_F(FormDockingDownTest, AnUnknownInstrumentIsReportedAndTheEntryCleared) {
    openForAnyInstrument();
    simulatedOperator.expectBox(u"Must enter a valid instrument number!"_s, title, box::warning);
    add(u"X-9"_s);
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_TRUE(entry().text().isEmpty());
    EXPECT_TRUE(entry().hasFocus());
}

TEST_F(FormDockingDownTest, AListedInstrumentIsReportedInAnyCase) {
    openForAnyInstrument();
    add(u"A-1"_s);
    simulatedOperator.expectBox(u"Instrument already listed!"_s, title, box::warning);
    add(u"a-1"_s);
    EXPECT_EQ(rows(), QStringList{u"A-1"_s});
}

TEST_F(FormDockingDownTest, WhileTheStandardIsAskedForTheButtonsAreDisabledAndTheScreenStays) {
    open(torqueStar);
    simulatedOperator.expectDialog(
        u"A-1: "_s + externalStandard, standardPrompt, [this](FormCustomDialog& dialog) {
            EXPECT_FALSE(anyButtonEnabled());
            form().close();
            EXPECT_NE(findChild(u"FormDockingDown"_s), nullptr);
            // The menu entry only brings the screen forward: its question is open.
            choose(u"mnuDownload"_s);
            EXPECT_TRUE(dialog.isOpen());
            EXPECT_EQ(control<QLabel>(form(), u"SSPanelCalibrator"_s).text(), torqueStar);
            // Nor does Return in the screen enter the running command.
            QTest::keyClick(&entry(), Qt::Key_Return);
            cancel(dialog);
        });
    add(u"A-1"_s);
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_TRUE(buttonsEnabled());
    EXPECT_TRUE(entry().text().isEmpty());
    EXPECT_TRUE(entry().hasFocus());
    form().close();
    EXPECT_EQ(findChild(u"FormDockingDown"_s), nullptr);
}

TEST_F(FormDockingDownTest, LogOutRefusesAndExitAsksWhileTheStandardIsAskedFor) {
    open(torqueStar);
    simulatedOperator.expectDialog(
        u"A-1: "_s + externalStandard, standardPrompt, [this](FormCustomDialog& dialog) {
            simulatedOperator.expectBox(
                u"One or more windows are still open! Please close open windows before logging out..."_s,
                u"Kelvane"_s, box::warning);
            choose(u"mnuLogout"_s);
            simulatedOperator.expectBox(u"Are you sure you want to exit?"_s, u"Kelvane"_s, box::question,
                                        BoxAnswer::no);
            program.window.close();
            cancel(dialog);
        });
    add(u"A-1"_s);
    EXPECT_TRUE(session.SessionConnected);
}

TEST_F(FormDockingDownTest, RemoveTakesTheSelectedRowAndItsStandards) {
    openForAnyInstrument();
    add(u"A-1"_s);
    add(u"A-2"_s);
    script.statements.clear();
    list().setCurrentRow(0);
    press(u"CommandRemove"_s);
    EXPECT_EQ(rows(), QStringList{u"A-2"_s});
    EXPECT_EQ(script.statements, QStringList{forgetStandards(u"A-1"_s)});
    EXPECT_TRUE(entry().hasFocus());
}

TEST_F(FormDockingDownTest, AfterRemovingNoOtherRowIsSelected) {
    openForAnyInstrument();
    add(u"A-1"_s);
    add(u"A-2"_s);
    list().setCurrentRow(0);
    press(u"CommandRemove"_s);
    script.statements.clear();
    press(u"CommandRemove"_s);
    EXPECT_EQ(rows(), QStringList{u"A-2"_s});
    EXPECT_TRUE(script.statements.isEmpty());
}

TEST_F(FormDockingDownTest, TheDeleteKeyRemovesTheSelectedRow) {
    openForAnyInstrument();
    add(u"A-1"_s);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().visualItemRect(list().item(0)).center());
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(FormDockingDownTest, ARemovalThatFailsIsReportedAndTheRowStays) {
    openForAnyInstrument();
    add(u"A-1"_s);
    script.failures.insert(forgetStandards(u"A-1"_s), Error{547, u"locked"_s});
    list().setCurrentRow(0);
    simulatedOperator.expectReport(547, u"FormDockingDown,CommandRemove"_s);
    press(u"CommandRemove"_s);
    EXPECT_EQ(rows(), QStringList{u"A-1"_s});
    EXPECT_TRUE(buttonsEnabled());
}

TEST_F(FormDockingDownTest, AGoodDownloadReportsSuccessStoresTheCalibratorAndCloses) {
    openForAnyInstrument();
    add(u"A-1"_s);
    simulatedOperator.expectBox(u"Download Successful"_s, title, box::information);
    press(u"CommandDownload"_s);
    EXPECT_EQ(findChild(u"FormDockingDown"_s), nullptr);
    EXPECT_FALSE(isWindowOpen(session, u"FormDockingDown"));
    EXPECT_EQ(settings.values.value(u"Defaults/LastDownloadCalibrator"_s), u"Any"_s);
    EXPECT_EQ(settings.values.value(u"Left/FormDockingDown"_s), u"105"_s);
}

TEST_F(FormDockingDownTest, TheWordDownloadStartsItInAnyCase) {
    openForAnyInstrument();
    add(u"A-1"_s);
    simulatedOperator.expectBox(u"Download Successful"_s, title, box::information);
    add(u"dOWNLOAD"_s);
    EXPECT_EQ(findChild(u"FormDockingDown"_s), nullptr);
}

TEST_F(FormDockingDownTest, AFailedDownloadKeepsScreenAndListForAnotherTry) {
    openForAnyInstrument();
    add(u"A-1"_s);
    dynamic_cast<FormDockingDown&>(form()).takeCalibrator(u"Fluke 743/744"_s);
    link3.reasonMissing = u"no library"_s;
    for (int attempt = 0; attempt < 2; ++attempt) {
        simulatedOperator.expectBox(u"no library"_s, title, box::warning);
        press(u"CommandDownload"_s);
        EXPECT_EQ(rows(), QStringList{u"A-1"_s});
        EXPECT_TRUE(buttonsEnabled());
    }
    EXPECT_FALSE(settings.values.contains(u"Defaults/LastDownloadCalibrator"_s));
}

TEST_F(FormDockingDownTest, AnEmptyListIsNotDownloaded) {
    openForAnyInstrument();
    press(u"CommandDownload"_s);
    EXPECT_TRUE(script.statements.isEmpty());
    EXPECT_NE(findChild(u"FormDockingDown"_s), nullptr);
}

TEST_F(FormDockingDownTest, ALostConnectionIsReportedAndTheButtonsComeBack) {
    openForAnyInstrument();
    add(u"A-1"_s);
    script.lost = true;
    simulatedOperator.expectReport(10054, u"FormDockingDown,Download"_s);
    press(u"CommandDownload"_s);
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_TRUE(buttonsEnabled());
    EXPECT_EQ(rows(), QStringList{u"A-1"_s});
}

} // namespace kelvane::testing
