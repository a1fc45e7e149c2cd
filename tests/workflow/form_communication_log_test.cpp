#include "workflow/form_communication_log.h"

#include "platform/error.h"
#include "resources/strings.h"
#include "testkit/fixtures.h"
#include "testkit/program_screen.h"
#include "testkit/screen_window.h"
#include "testkit/scripted_serial_port.h"
#include "ui/open_windows.h"
#include "workflow/form_cal_config.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString torqueStar = u"Crane TorqueStar IVc"_s;
const QString fluke702 = u"Fluke 702"_s;

} // namespace

/// The drivers over links under the test's control, and a list of devices.
class CommunicationOfTest : public RecordedSession {
  protected:
    CommunicationLog& log() { return calibrators.log(torqueStar); }
    void switchLog(const QString& calibrator, const QString& value = u"1"_s) {
        settings.setValue(logSection, calibrator, value);
        calibrators.log(calibrator).readSwitch();
    }

    ScriptedSerialPort port;
    RecordedLink link;
    RecordedLink3 link3;
    QList<SerialDevice> connected{
        {.path = u"/dev/ttyUSB0"_s, .maker = u"FTDI"_s, .serialNumber = u"A50285BI"_s}};
    /// How often the devices were looked for.
    int looks = 0;
    Calibrators calibrators{session,
                            {port,
                             link,
                             link3,
                             {[this] {
                                  ++looks;
                                  return connected;
                              },
                              folder.path()},
                             folder.path() + u"/logs"_s}};
};

class CommunicationLogWindow : public CommunicationOfTest, public EditorScreen<FormCommunicationLog> {
  protected:
    CommunicationLogWindow() {
        switchLog(torqueStar);
        open(session, calibrators, torqueStar);
    }

    QPlainTextEdit& view() { return controlNamed<QPlainTextEdit>(u"TextLog"_s); }
    /// What is shown, without date, time and calibrator.
    QStringList shown() {
        QStringList words;
        for (const auto& line : view().toPlainText().split(u'\n', Qt::SkipEmptyParts))
            words << line.section(u"] "_s, 1);
        return words;
    }
    QString labelled(const QString& name) { return controlNamed<QLabel>(name).text(); }
    QString outcome() { return labelled(u"LabelOutcome"_s); }
    /// Types a text to search for, and presses Return.
    void search(const QString& words) {
        auto& field = controlNamed<QLineEdit>(u"TextSearch"_s);
        field.selectAll();
        QTest::keyClicks(&field, words);
        QTest::keyClick(&field, Qt::Key_Return);
    }
    QString found() { return view().textCursor().selectedText(); }
    int foundLine() { return view().textCursor().blockNumber(); }
    /// Types a name into the dialog of the save, or gives it up without one; gives the name that it proposed.
    QString save(const QString& path) {
        QString proposed;
        QTimer::singleShot(0, &area(), [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            auto& name = *dialog->findChild<QLineEdit*>();
            proposed = name.text();
            name.setText(path);
            QTest::keyClick(&name, path.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
        });
        press(u"CommandSave"_s);
        return proposed;
    }
};

TEST_F(CommunicationLogWindow, ShowsWhatIsThereAndFollowsWhatComes) {
    EXPECT_EQ(form().windowTitle(), u"Communication Log: Crane TorqueStar IVc"_s);
    EXPECT_EQ(shown(), QStringList());
    log().write(u"one"_s);
    log().write(u"two"_s);
    EXPECT_EQ(shown(), (QStringList{u"one"_s, u"two"_s})) << "at once, in the middle of an exchange";
    EXPECT_EQ(labelled(u"LabelFile"_s), u"File: "_s + folder.path() + u"/logs/crane-torquestar-ivc.log"_s);

    close();
    open(session, calibrators, torqueStar);
    EXPECT_EQ(shown(), (QStringList{u"one"_s, u"two"_s}));
}

TEST_F(CommunicationLogWindow, FollowsWhatAnotherProgramWrites) {
    log().write(u"ours"_s);
    CommunicationLog theirs(session, torqueStar, folder.path() + u"/logs"_s);
    theirs.readSwitch();
    theirs.write(u"theirs"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown().size() == 2; }, 20000));
    EXPECT_EQ(shown(), (QStringList{u"ours"_s, u"theirs"_s}));
}

TEST_F(CommunicationLogWindow, FollowsIntoTheNextFile) {
    log().write(u"before"_s);
    ASSERT_TRUE(QFile::rename(log().path(), log().path() + u".1"_s));
    log().write(u"after"_s);
    EXPECT_EQ(shown(), (QStringList{u"before"_s, u"after"_s}));
}

TEST_F(CommunicationLogWindow, PausesAndContinuesWithWhatHasComeMeanwhile) {
    log().write(u"one"_s);
    press(u"CommandPause"_s);
    EXPECT_EQ(button(u"CommandPause"_s).text(), u"Continue"_s);
    log().write(u"two"_s);
    EXPECT_EQ(shown(), QStringList{u"one"_s});
    press(u"CommandPause"_s);
    EXPECT_EQ(button(u"CommandPause"_s).text(), u"Pause"_s);
    EXPECT_EQ(shown(), (QStringList{u"one"_s, u"two"_s}));
    log().write(u"three"_s);
    EXPECT_EQ(shown().last(), u"three"_s);
}

TEST_F(CommunicationLogWindow, SearchesOnFromTheLastPlaceAndAgainFromTheBeginning) {
    for (const auto& words : {u"sent T0A"_s, u"received"_s, u"sent t0a again"_s})
        log().write(words);
    search(u"T0A"_s);
    const int first = foundLine();
    EXPECT_EQ(found().toUpper(), u"T0A"_s);
    press(u"CommandNext"_s);
    EXPECT_NE(foundLine(), first);
    press(u"CommandNext"_s);
    EXPECT_EQ(foundLine(), first);
    EXPECT_EQ(outcome(), QString());
}

TEST_F(CommunicationLogWindow, SaysWhatItDoesNotFindAndStaysWhereItIs) {
    log().write(u"sent T0A"_s);
    search(u"T0A"_s);
    search(u"T9Z"_s);
    EXPECT_EQ(outcome(), u"Not found: T9Z"_s);
    EXPECT_EQ(found(), u"T0A"_s);
    search(u"T0A"_s);
    EXPECT_EQ(outcome(), QString());
    controlNamed<QLineEdit>(u"TextSearch"_s).clear();
    press(u"CommandNext"_s);
    EXPECT_EQ(outcome(), QString());
}

TEST_F(CommunicationLogWindow, StaysAtAPlaceThatWasScrolledTo) {
    for (int i = 0; i < 200; ++i)
        log().write(u"line"_s);
    auto& bar = *view().verticalScrollBar();
    EXPECT_EQ(bar.value(), bar.maximum()) << "the end is in view";
    bar.setValue(10);
    log().write(u"line"_s);
    EXPECT_EQ(bar.value(), 10);
}

TEST_F(CommunicationLogWindow, SavesWhatItShows) {
    log().write(u"sent 54 | T"_s);
    log().write(u"Ω"_s);
    EXPECT_EQ(save(folder.path() + u"/saved"_s), u"crane-torquestar-ivc.txt"_s) << "the proposed name";
    EXPECT_EQ(folder.read(u"saved.txt"_s), folder.read(u"logs/crane-torquestar-ivc.log"_s));
    EXPECT_EQ(outcome(), u"Saved: "_s + folder.path() + u"/saved.txt"_s);
}

TEST_F(CommunicationLogWindow, SaysWhyItWasNotSaved) {
    save(folder.path() + u"/no such folder/a.txt"_s);
    EXPECT_TRUE(outcome().endsWith(u"a.txt could not be written: No such file or directory"_s))
        << outcome().toStdString();
    save({});
    EXPECT_EQ(outcome().count(u"could not be written"_s), 1) << "given up, nothing is said anew";
}

TEST_F(CommunicationLogWindow, ShowsTheEndOfALargeLogAndKeepsWithinItsMemory) {
    close();
    QByteArray lines;
    for (int i = 0; lines.size() < 6'000'000; ++i)
        lines += "2026-11-22 10:00:00.000 [Crane TorqueStar IVc] line " + QByteArray::number(i) + '\n';
    lines += "2026-11-22 10:00:00.000 [Crane TorqueStar IVc] " + QByteArray(100'000, 'x') + '\n';
    log().write(u"x"_s);
    folder.write(u"logs/crane-torquestar-ivc.log"_s, lines);
    open(session, calibrators, torqueStar);
    EXPECT_LE(view().document()->blockCount(), 10'000);
    EXPECT_LT(view().toPlainText().size(), 1'100'000);
    const auto last = shown().last();
    EXPECT_TRUE(last.startsWith(u"xxx"_s));
    EXPECT_LE(last.size(), 2001);
    for (int i = 0; i < 15'000; ++i)
        log().write(u"a line of this program"_s);
    EXPECT_LE(view().document()->blockCount(), 10'000);
    EXPECT_EQ(shown().last(), u"a line of this program"_s);
}

TEST_F(CommunicationLogWindow, NamesThePortItsDeviceAndHowItWasOpened) {
    const auto device = u"COM1 is /dev/ttyUSB0, maker FTDI, serial number A50285BI. "_s;
    EXPECT_EQ(labelled(u"LabelPort"_s), device + u"COM1 (/dev/ttyUSB0) was not opened yet."_s);
    log().setOpening({u"It is busy."_s});
    EXPECT_EQ(labelled(u"LabelPort"_s), device + u"It is busy."_s);
    log().setOpening({});
    EXPECT_EQ(labelled(u"LabelPort"_s), device + u"COM1 (/dev/ttyUSB0) was opened."_s);
    settings.setValue(torqueStar, u"BaudRate"_s, u"9600"_s);
    settings.setValue(torqueStar, u"Port"_s, u"COM2"_s);
    connected.clear();
    EXPECT_TRUE(QTest::qWaitFor([&] { return labelled(u"LabelPort"_s) == u"There is no device for COM2."_s; },
                                20000));
}

TEST_F(CommunicationLogWindow, ShowsThePortThatTheDriverOpens) {
    const struct {
        QString calibrator, baudRate, port, shown;
    } rows[] = {
        {torqueStar, {}, u"COM3"_s, u"COM1"_s},         {torqueStar, u"9600"_s, u"COM3"_s, u"COM3"_s},
        {torqueStar, u"9600"_s, {}, u"COM0"_s},         {fluke702, {}, u"COM3"_s, u"COM3"_s},
        {fluke702, u"9600"_s, {}, u"COM1"_s},           {u"Fluke 743/744"_s, {}, {}, u"COM1"_s},
        {u"Fluke 743/744"_s, {}, u"COM4"_s, u"COM4"_s},
    };
    connected.clear();
    for (const auto& row : rows) {
        close();
        settings.setValue(row.calibrator, u"BaudRate"_s, row.baudRate);
        settings.setValue(row.calibrator, u"Port"_s, row.port);
        open(session, calibrators, row.calibrator);
        EXPECT_EQ(labelled(u"LabelPort"_s), u"There is no device for %1."_s.arg(row.shown))
            << row.calibrator.toStdString();
    }
}

TEST_F(CommunicationLogWindow, DoesNotLookAtThePortWhileADriverCommunicates) {
    int ticks = 0;
    for (auto* timer : form().findChildren<QTimer*>(Qt::FindDirectChildrenOnly)) {
        const bool isOfPort = timer->interval() == 3000;
        timer->setInterval(1);
        if (isOfPort)
            QObject::connect(timer, &QTimer::timeout, &form(), [&ticks] { ++ticks; });
    }
    const auto runTimers = [&] {
        const int before = ticks;
        EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > before + 2; }, 20000));
    };
    calibrators.communicating = true;
    const int before = looks;
    runTimers();
    EXPECT_EQ(looks, before);
    log().setOpening({u"It is busy."_s});
    EXPECT_TRUE(labelled(u"LabelPort"_s).endsWith(u"It is busy."_s)) << "what has changed is shown at once";
    calibrators.communicating = false;
    runTimers();
    EXPECT_GT(looks, before + 2);
}

TEST_F(CommunicationLogWindow, MarksTheLinesThatItPassesOverAfterAPause) {
    log().write(u"first"_s);
    press(u"CommandPause"_s);
    for (int i = 0; i < 30; ++i)
        log().write(QString(50'000, u'x'));
    log().write(u"last"_s);
    press(u"CommandPause"_s);
    EXPECT_EQ(view().toPlainText().split(u'\n').at(1), u"…"_s);
    EXPECT_EQ(shown().last(), u"last"_s);
}

TEST_F(CommunicationLogWindow, DoesNotReportSettingsThatCanNotBeRead) {
    close();
    class Unreadable final : public SettingsStore {
        QString value(const QString&, const QString&) const override {
            throw makeError(ErrorNumber::pathFileAccess);
        }
        void setValue(const QString&, const QString&, const QString&) override {}
    } unreadable;
    const Workstation other{ui, clock, unreadable};
    Session session2(other, nullptr);
    Calibrators calibrators2(session2, {port, link, link3, {[this] { return connected; }, folder.path()}});
    // Only the place of the window is asked for in the common way, and reported.
    for (int asked = 0; asked < 4; ++asked)
        ui.expectReport(75, u"ModuleGlobals,GetRegSetting"_s);
    open(session2, calibrators2, torqueStar);
    EXPECT_EQ(labelled(u"LabelPort"_s), u"Path/File access error"_s);
    close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_F(CommunicationLogWindow, SaysWhetherTheCommunicationIsLogged) {
    switchLog(torqueStar, u"0"_s);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return labelled(u"LabelFile"_s) == u"The communication of this calibrator is not logged."_s; },
        20000));
}

TEST_F(CommunicationLogWindow, ChangesToAnotherCalibratorAndIsNoLongerToldOfTheFirst) {
    switchLog(fluke702);
    log().write(u"torque"_s);
    press(u"CommandPause"_s);
    calibrators.log(fluke702).write(u"fluke"_s);
    form().setCalibrator(fluke702);
    EXPECT_EQ(form().windowTitle(), u"Communication Log: Fluke 702"_s);
    EXPECT_EQ(shown(), QStringList{u"fluke"_s});
    EXPECT_EQ(button(u"CommandPause"_s).text(), u"Pause"_s);
    log().write(u"torque"_s);
    calibrators.log(fluke702).write(u"more"_s);
    EXPECT_EQ(shown(), (QStringList{u"fluke"_s, u"more"_s}));
}

TEST_F(CommunicationLogWindow, IsNotToldOfAnythingOnceItHasClosed) {
    QTest::keyClick(&controlNamed<QLineEdit>(u"TextSearch"_s), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(isOpen());
    EXPECT_NO_THROW(log().write(u"one"_s));
    EXPECT_NO_THROW(log().setOpening({}));
}

/// The screen of the configuration over the same drivers.
class LogOfConfiguration : public CommunicationOfTest, public EditorScreen<FormCalConfig> {
  protected:
    LogOfConfiguration() { open(session, calibrators, torqueStar); }
    QCheckBox& box() { return controlNamed<QCheckBox>(u"CheckLog"_s); }
    QList<FormCommunicationLog*> windows() { return area().findChildren<FormCommunicationLog*>(); }
};

TEST_F(LogOfConfiguration, IsSwitchedOnAndOffForTheCalibratorThatIsShown) {
    settings.writes.clear();
    EXPECT_FALSE(box().isChecked());
    toggle(box());
    EXPECT_EQ(settings.writes, QStringList{u"Log/Crane TorqueStar IVc=1"_s});
    EXPECT_TRUE(box().isChecked());
    choose(controlNamed<QComboBox>(u"ComboCalibrator"_s), fluke702);
    EXPECT_FALSE(box().isChecked());
    choose(controlNamed<QComboBox>(u"ComboCalibrator"_s), torqueStar);
    EXPECT_TRUE(box().isChecked());
    toggle(box());
    EXPECT_EQ(settings.writes.last(), u"Log/Crane TorqueStar IVc=0"_s);
    EXPECT_FALSE(log().isOn()) << "a command takes it over when it begins";
}

TEST_F(LogOfConfiguration, ShowsTheDeviceOfEachPortAsTheToolTipOfItsRow) {
    auto& ports = controlNamed<QComboBox>(u"ComboPort"_s);
    const auto tip = [&](int row) { return ports.itemData(row, Qt::ToolTipRole).toString(); };
    ports.showPopup();
    EXPECT_EQ(tip(0), u"COM1: /dev/ttyUSB0, maker FTDI, serial number A50285BI"_s);
    EXPECT_EQ(tip(1), u"COM2: There is no device for COM2."_s);
    ports.hidePopup();
    connected.prepend({.path = u"/dev/ttyS0"_s});
    ports.showPopup();
    EXPECT_EQ(tip(0), u"COM1: /dev/ttyS0"_s) << "one that was connected since is found";
    EXPECT_TRUE(tip(1).startsWith(u"COM2: /dev/ttyUSB0"_s));
    ports.hidePopup();
    EXPECT_EQ(ports.toolTip(), u"Local communications port connected to the calibrator"_s);
}

TEST_F(LogOfConfiguration, OpensInOneWindowForTheCalibratorThatIsShown) {
    press(u"ButtonCommunicationLog"_s);
    ASSERT_EQ(windows().size(), 1);
    EXPECT_EQ(windows().first()->windowTitle(), u"Communication Log: Crane TorqueStar IVc"_s);
    choose(controlNamed<QComboBox>(u"ComboCalibrator"_s), fluke702);
    press(u"ButtonCommunicationLog"_s);
    ASSERT_EQ(windows().size(), 1);
    EXPECT_EQ(windows().first()->windowTitle(), u"Communication Log: Fluke 702"_s);
}

/// The whole program with the window.
class LogInTheProgram : public ProgramScreen {
  protected:
    LogInTheProgram() : ProgramScreen(u"FormCalConfig"_s, u"mnuConfiguration"_s) { startLoggedIn(4); }
};

TEST_F(LogInTheProgram, MayStayOpenWhenAUserLogsOut) {
    open();
    press(u"ButtonCommunicationLog"_s);
    EXPECT_FALSE(isWindowOpen(session, u"FormCommunicationLog"));
    form().close();
    choose(u"mnuLogout"_s);
    EXPECT_NE(findChild(u"FormConnect"_s), nullptr) << "without a question";
    EXPECT_NE(findChild(u"FormCommunicationLog"_s), nullptr);
}

TEST_F(LogInTheProgram, DoesNotReplaceTheWarningOfAnotherOpenWindow) {
    open();
    press(u"ButtonCommunicationLog"_s);
    simulatedOperator.expectBox(text(TextId::windowsOpenAtLogOut), u"Kelvane"_s, box::warning);
    choose(u"mnuLogout"_s);
    EXPECT_EQ(findChild(u"FormConnect"_s), nullptr);
}

} // namespace kelvane::testing
