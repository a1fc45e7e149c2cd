#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/forwarding_connection.h"
#include "testkit/program_fixture.h"
#include "ui/child_window.h"
#include "ui/open_windows.h"

#include <QAction>
#include <QDir>
#include <QIcon>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString title = u"Kelvane"_s;
const QString noTemplate = u"Warning - Cal Result template file not found! Calibration results will not be "
                           u"saved to the database during "
                           "this session. Please locate the missing template file and copy to the Kelvane "
                           "directory or to the MET/CAL "
                           "directory and restart Kelvane."_s;
const QString stillOpen =
    u"One or more windows are still open! Please close open windows before logging out..."_s;
const QString exitQuestion = u"Are you sure you want to exit?"_s;

/// The child windows that log out asks to be closed.
constexpr QStringView childWindows[] = {
    u"FormCalParam",        u"FormDockingDown",       u"FormCalConfig",
    u"FormConnect",         u"FormCustomDialog",      u"FormODBC",
    u"FormStatusBar",       u"FormStrategies",        u"FormTestMess",
    u"FormWorkConfig",      u"FormWorkEntry",         u"FormWorksheetPrint",
    u"FormPredefinedTasks", u"FormUnfinishedResults",
};

/// The shortcuts of the program with their entries.
struct Shortcut {
    QString keys;
    QString entry;
};
QList<Shortcut> shortcuts() {
    QList<Shortcut> all;
    for (const auto& row : menuTree()) {
        if (!row.shortcut.isEmpty())
            all << Shortcut{row.shortcut.toString(), row.name.toString()};
    }
    return all;
}

} // namespace

class MainWindow : public ProgramTest {
  protected:
    /// The entries whose shortcuts work now.
    QStringList liveShortcuts() {
        QStringList fired;
        QList<QMetaObject::Connection> watching;
        for (const auto& shortcut : shortcuts()) {
            // Only whether it fires is of interest here, not what it does.
            action(shortcut.entry)->disconnect(&program.window);
            watching << QObject::connect(action(shortcut.entry), &QAction::triggered, &program.window,
                                         [&fired, name = shortcut.entry] { fired << name; });
        }
        for (const auto& shortcut : shortcuts())
            pressKeys(shortcut.keys);
        for (const auto& spy : watching)
            QObject::disconnect(spy);
        return fired;
    }
};

TEST_F(MainWindow, OpensWithTitleIconSizeAndTheLoginScreen) {
    start();
    EXPECT_EQ(program.window.objectName(), u"MDIFormMain"_s);
    EXPECT_EQ(program.window.windowTitle(), title);
    EXPECT_FALSE(program.window.windowIcon().pixmap(32, 32).isNull());
    EXPECT_EQ(program.window.size(), QSize(665, 551));
    EXPECT_EQ(openChildren(), QStringList{u"FormConnect"_s});
    EXPECT_TRUE(isWindowOpen(session, u"FormConnect"));
    EXPECT_EQ(session.ResultTemplateLine, u"FN NM AP"_s);
}

TEST_F(MainWindow, ShowsEachCaptionInItsMenuWithItsShortcut) {
    start();
    for (const auto& row : menuTree()) {
        SCOPED_TRACE(row.name.toString().toStdString());
        auto* entry = action(row.name.toString());
        // Without the mark of its letter.
        EXPECT_EQ(entry->text().remove(u'&'), text(row.caption));
        EXPECT_EQ(entry->shortcut().toString(), row.shortcut.toString());
        EXPECT_EQ(entry->isVisible(), row.shown);
        const auto parent =
            row.parent == MenuEntry::none
                ? program.window.menuBar()->actions()
                : program.window
                      .findChild<QMenu*>(menuTree()[static_cast<std::size_t>(row.parent)].name.toString())
                      ->actions();
        EXPECT_TRUE(parent.contains(entry));
    }
}

TEST_F(MainWindow, AMissingTemplateIsWarnedOfTwiceOverTheEmptyFrame) {
    QFile::remove(u"rslt_db.frm"_s);
    qputenv("windir", folder.path().toLocal8Bit());
    folder.write(u"metcal.ini"_s, "[Startup]\n");
    for (int i = 0; i < 2; ++i) {
        simulatedOperator.expectBox(noTemplate, title, box::warning, [this](QMessageBox& box) {
            EXPECT_TRUE(program.window.isVisible());
            EXPECT_TRUE(openChildren().isEmpty());
            click(*box.buttons().first());
        });
    }
    start();
    EXPECT_EQ(openChildren(), QStringList{u"FormConnect"_s});
    qunsetenv("windir");
}

/// A working folder in which no error report can be written.
class UnwritableReport : public MainWindow {
  protected:
    UnwritableReport() { QDir().mkdir(u"errors.log"_s); }
    ~UnwritableReport() override { qunsetenv("windir"); }
    void expectUnwritable() {
        simulatedOperator.expectBox(text(TextId::errorReportNotWritten), title, box::stop);
    }
    void loseTheTemplate() {
        QFile::remove(u"rslt_db.frm"_s);
        qputenv("windir", QFile::encodeName(folder.path() + u"/nowhere"_s));
    }
};

TEST_F(UnwritableReport, OfTheStartUpDoesNotKeepTheLoginScreenAway) {
    loseTheTemplate();
    expectUnwritable();
    start();
    EXPECT_EQ(openChildren(), QStringList{u"FormConnect"_s});
}

TEST_F(UnwritableReport, AtLogOutDoesNotKeepTheLoginScreenAway) {
    startLoggedIn(4);
    loseTheTemplate();
    expectUnwritable();
    choose(u"mnuLogout"_s);
    EXPECT_EQ(openChildren(), QStringList{u"FormConnect"_s});
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_FALSE(action(u"mnuDownload"_s)->isEnabled());
}

TEST_F(UnwritableReport, OfClosingTheConnectionDoesNotKeepTheLoginScreenAway) {
    startLoggedIn(4);
    class Unclosable final : public ForwardingConnection {
      public:
        using ForwardingConnection::ForwardingConnection;
        void close() override { throw Error{1, u"it does not close"_s}; }
    };
    session.SharedConnection = std::make_unique<Unclosable>(std::make_unique<RecordingConnection>(script));
    expectUnwritable();
    choose(u"mnuLogout"_s);
    EXPECT_EQ(openChildren(), QStringList{u"FormConnect"_s});
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_FALSE(action(u"mnuDownload"_s)->isEnabled());
}

TEST_F(UnwritableReport, OfUnreadableSettingsDoesNotKeepTheLoginScreenAway) {
    IniSettingsStore unreadable(folder.path());
    WorkstationProgram other(
        clock, unreadable, session.makeConnection, links,
        {.dataSources = [] { return QStringList(); }, .commandLine = u"kelvane"_s, .endProcess = [] {}});
    // The main window's place, the name of the last user, and the login screen's place.
    expectUnwritable();
    expectUnwritable();
    expectUnwritable();
    other.start();
    EXPECT_TRUE(isWindowOpen(other.session, u"FormConnect"));
    EXPECT_TRUE(other.window.findChild<QWidget*>(u"FormConnect"_s)->isVisible());
}

TEST_F(MainWindow, TheCommandLineSetsItsFlag) {
    start();
    EXPECT_FALSE(session.CommandLineFlag);
    WorkstationProgram other(clock, settings, session.makeConnection, links,
                             {.dataSources = [] { return QStringList(); },
                              .commandLine = u"kelvane --port COM1=/dev/x kfdj"_s,
                              .endProcess = [] {}});
    other.start();
    EXPECT_TRUE(other.session.CommandLineFlag);
}

TEST_F(MainWindow, BeforeALoginOnlyExitAndDatabaseConnectionHaveAShortcut) {
    start();
    EXPECT_EQ(liveShortcuts(), (QStringList{u"mnuExit"_s, u"mnuODBC"_s}));
}

class MainWindowAtLevel : public MainWindow, public ::testing::WithParamInterface<int> {};

TEST_P(MainWindowAtLevel, ShortcutsOfHiddenOrDisabledEntriesDoNothing) {
    startLoggedIn(GetParam());
    QStringList expected;
    for (const auto& row : menuTree()) {
        if (!row.shortcut.isEmpty() && program.window.menu().isReachable(row.entry))
            expected << row.name.toString();
    }
    EXPECT_TRUE(expected.contains(u"mnuLogout"_s));
    EXPECT_EQ(liveShortcuts(), expected);
}

TEST_P(MainWindowAtLevel, TheMenuShowsWhatTheLevelMayReach) {
    startLoggedIn(GetParam());
    const auto& menu = program.window.menu();
    for (const auto& row : menuTree()) {
        const auto* entry = action(row.name.toString());
        EXPECT_EQ(entry->isVisible(), menu.isShown(row.entry)) << row.name.toString().toStdString();
        EXPECT_EQ(entry->isEnabled(), menu.isShown(row.entry) && menu.isEnabled(row.entry))
            << row.name.toString().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Levels, MainWindowAtLevel, ::testing::Values(0, 1, 2, 3, 4, 5, 6, 7));

TEST_F(MainWindow, AfterAnAbortedLoginTheHiddenEntriesStayDisabled) {
    answerLogin(u"jdoe"_s, u"MT"_s, u"4"_s);
    start();
    simulatedOperator.expectBox(
        u"Database connection Failed! Check username/password and network connection and try again..."_s,
        title, box::stop);
    typeLogin(u"nobody"_s, u"secret"_s);
    EXPECT_TRUE(action(u"mnuPrint"_s)->isEnabled());
    EXPECT_EQ(liveShortcuts(), (QStringList{u"mnuLogout"_s, u"mnuExit"_s, u"mnuODBC"_s}));
}

TEST_F(MainWindow, ShortcutsWorkFromInsideATextField) {
    startLoggedIn(4);
    simulatedOperator.expectDialog(u"Download"_s, u"Select Calibrator To Use:"_s, u"Crane TorqueStar IVc"_s);
    choose(u"mnuDownload"_s);
    ASSERT_EQ(qApp->focusWidget()->objectName(), u"TextAdd"_s);
    EXPECT_EQ(liveShortcuts(), (QStringList{u"mnuLogout"_s, u"mnuExit"_s, u"mnuDownload"_s, u"mnuUpload"_s,
                                            u"mnuStrategies"_s, u"mnuCalParameters"_s, u"mnuPrompts"_s,
                                            u"mnuODBC"_s, u"mnuConfiguration"_s, u"mnuPredefined"_s}));
}

TEST_F(MainWindow, BehindAWindowThatClosesComesTheOneUsedBeforeIt) {
    startLoggedIn(4);
    choose(u"mnuPrompts"_s);
    choose(u"mnuODBC"_s);
    choose(u"mnuConfiguration"_s);
    choose(u"mnuPrompts"_s);
    auto& closing = child(u"FormTestMess"_s);
    ASSERT_EQ(program.window.area().activeSubWindow(), &closing);
    closing.close();
    EXPECT_EQ(program.window.area().activeSubWindow(), &child(u"FormCalConfig"_s));
}

TEST_F(MainWindow, LogOutRefusesWhileAnyWindowIsOpen) {
    startLoggedIn(4);
    for (const auto& name : childWindows) {
        const ChildWindow open(session, name.toString(), {.width = 3000, .height = 3000});
        simulatedOperator.expectBox(stillOpen, title, box::warning);
        choose(u"mnuLogout"_s);
        EXPECT_TRUE(session.SessionConnected);
        EXPECT_TRUE(script.open);
    }
    EXPECT_TRUE(action(u"mnuDownload"_s)->isEnabled());
}

TEST_F(MainWindow, LogOutGoesBackToTheLoginAndReadsTheTemplateAgain) {
    startLoggedIn(4);
    folder.write(u"rslt_db.frm"_s, "subst$(FN,\" psi\",\" PSIG\")\nanother body\n");
    choose(u"mnuLogout"_s);
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_FALSE(script.open);
    EXPECT_EQ(session.SharedConnection, nullptr);
    EXPECT_EQ(session.ResultTemplateLine, u"ANOTHER BODY"_s);
    EXPECT_EQ(session.SubstTable[0].code, u"FN"_s);
    EXPECT_EQ(openChildren(), QStringList{u"FormConnect"_s});
    EXPECT_EQ(liveShortcuts(), (QStringList{u"mnuExit"_s, u"mnuODBC"_s}));
}

TEST_F(MainWindow, AfterLogOutAnotherUserLogsIn) {
    startLoggedIn(6);
    EXPECT_TRUE(action(u"mnuWorkEntry"_s)->isEnabled());
    choose(u"mnuLogout"_s);
    answerLogin(u"smith"_s, u"STD"_s, u"1"_s);
    typeLogin(u"smith"_s, u"secret"_s);
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_EQ(session.SessionOwner, u"STD"_s);
    EXPECT_TRUE(action(u"mnuCalibration"_s)->isVisible());
    EXPECT_FALSE(action(u"mnuGlobal"_s)->isVisible());
}

TEST_F(MainWindow, LogOutOfALostSessionLeavesTheConnectionToTheNextLogin) {
    startLoggedIn(4);
    script.lost = true;
    session.SessionConnected = false;
    choose(u"mnuLogout"_s);
    EXPECT_EQ(openChildren(), QStringList{u"FormConnect"_s});
    typeLogin(u"jdoe"_s, u"secret"_s);
    EXPECT_TRUE(session.SessionConnected);
}

TEST_F(MainWindow, EachWayToExitAsksWithNoAsTheDefault) {
    startLoggedIn(4);
    const std::function<void()> ways[] = {
        [&] { choose(u"mnuExit"_s); },
        [&] { pressKeys(u"Ctrl+Q"_s); },
        [&] { program.window.close(); },
    };
    int ended = 0;
    for (const auto& leave : ways) {
        simulatedOperator.expectBox(exitQuestion, title, box::question,
                                    [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        leave();
        EXPECT_EQ(processEnded, ended);
        EXPECT_TRUE(program.window.isVisible());
        simulatedOperator.expectBox(exitQuestion, title, box::question, BoxAnswer::yes);
        leave();
        EXPECT_EQ(processEnded, ++ended);
    }
}

TEST_F(MainWindow, OnYesTheProcessEndsWithTheWindowsStillOpen) {
    startLoggedIn(4);
    choose(u"mnuConfiguration"_s);
    settings.writes.clear();
    simulatedOperator.expectBox(exitQuestion, title, box::question, BoxAnswer::yes);
    program.window.close();
    EXPECT_EQ(processEnded, 1);
    EXPECT_TRUE(child(u"FormCalConfig"_s).isVisible());
    EXPECT_TRUE(settings.writes.isEmpty());
}

TEST_F(MainWindow, OnYesTheConnectionIsClosedBeforeTheProcessEnds) {
    startLoggedIn(4);
    bool openAtEnd = true;
    atEnd = [&] { openAtEnd = script.open; };
    simulatedOperator.expectBox(exitQuestion, title, box::question, BoxAnswer::yes);
    program.window.close();
    EXPECT_FALSE(openAtEnd);
}

} // namespace kelvane::testing
