#include "testkit/program_fixture.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QStatusBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// What stands around the area of the main window: its place, its menu bar by keyboard, its status line.
class MainWindowFrame : public ProgramTest {
  protected:
    QString displayText(const QString& label) {
        const auto& found = control<QLabel>(program.window, label);
        return found.isVisible() ? found.text() : QString();
    }
    QMenu& menu(const QString& name) { return control<QMenu>(program.window, name); }
    /// Presses a key in whatever has the focus, and waits for a menu.
    bool opens(const QString& name, Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        return QTest::qWaitFor([&] { return menu(name).isVisible(); });
    }
    static Environment environment() {
        return {
            .dataSources = [] { return QStringList(); }, .commandLine = u"kelvane"_s, .endProcess = [] {}};
    }
    void leave(MDIFormMain& window) {
        simulatedOperator.expectBox(u"Are you sure you want to exit?"_s, u"Kelvane"_s, box::question,
                                    BoxAnswer::yes);
        window.close();
    }

    /// The next start of the program.
    WorkstationProgram next{clock, settings, session.makeConnection, links, environment()};
};

TEST_F(MainWindowFrame, SaysWhoIsLoggedInAndWhere) {
    start();
    EXPECT_EQ(displayText(u"LabelUser"_s), u"Not connected"_s);
    EXPECT_EQ(displayText(u"LabelDataSource"_s), QString());
    answerLogin(u"jdoe"_s, u"MT"_s, u"4"_s);
    typeLogin(u"jdoe"_s, u"secret"_s);
    EXPECT_EQ(displayText(u"LabelUser"_s), u"User: jdoe"_s);
    EXPECT_EQ(displayText(u"LabelDataSource"_s), u"Data source: Calibration Data"_s);
    EXPECT_EQ(program.window.windowTitle(), u"Kelvane"_s);
    choose(u"mnuLogout"_s);
    EXPECT_EQ(displayText(u"LabelUser"_s), u"Not connected"_s);
    EXPECT_EQ(displayText(u"LabelDataSource"_s), QString());
}

TEST_F(MainWindowFrame, SaysThatTheConnectionIsLost) {
    startLoggedIn(4);
    script.lost = true;
    simulatedOperator.expectReport(10054, u"MDIFormMain,mnuCalParameters.Click"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(displayText(u"LabelUser"_s), u"Not connected"_s);
}

TEST_F(MainWindowFrame, ALongNameDoesNotWidenTheWindow) {
    answerLogin(u"x"_s.repeated(300), u"MT"_s, u"4"_s);
    start();
    typeLogin(u"x"_s.repeated(300), u"secret"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(program.window.size(), QSize(665, 551));
    EXPECT_LT(program.window.minimumSizeHint().width(), 665);
}

TEST_F(MainWindowFrame, AltWithALetterOpensItsMenuFromInsideAField) {
    startLoggedIn(4);
    choose(u"mnuConfiguration"_s);
    ASSERT_TRUE(child(u"FormCalConfig"_s).isAncestorOf(QApplication::focusWidget()));
    const std::pair<Qt::Key, QString> menus[] = {
        {Qt::Key_F, u"mnuFile"_s}, {Qt::Key_C, u"mnuCalibration"_s}, {Qt::Key_P, u"mnuParameters"_s}};
    for (const auto& [key, name] : menus) {
        EXPECT_TRUE(opens(name, key, Qt::AltModifier)) << name.toStdString();
        menu(name).close();
        child(u"FormCalConfig"_s).setFocus();
    }
}

TEST_F(MainWindowFrame, TheLettersOfAMenusEntriesChooseThem) {
    startLoggedIn(4);
    ASSERT_TRUE(opens(u"mnuFile"_s, Qt::Key_F, Qt::AltModifier));
    simulatedOperator.expectBox(u"Are you sure you want to exit?"_s, u"Kelvane"_s, box::question,
                                BoxAnswer::no);
    QTest::keyClick(&menu(u"mnuFile"_s), Qt::Key_E);
    EXPECT_TRUE(simulatedOperator.hasMetAll());
}

TEST_F(MainWindowFrame, NoLetterStandsTwiceInAMenu) {
    start();
    QHash<MenuEntry, QStringList> letters;
    for (const auto& row : menuTree()) {
        const auto caption = action(row.name.toString())->text();
        const auto letter = caption.mid(caption.indexOf(u'&') + 1, 1).toUpper();
        EXPECT_TRUE(caption.contains(u'&')) << caption.toStdString();
        EXPECT_FALSE(letters[row.parent].contains(letter)) << caption.toStdString();
        letters[row.parent] << letter;
    }
}

TEST_F(MainWindowFrame, F10OpensTheFirstMenuFromInsideAField) {
    startLoggedIn(4);
    choose(u"mnuConfiguration"_s);
    EXPECT_TRUE(opens(u"mnuFile"_s, Qt::Key_F10, Qt::NoModifier));
    QTest::keyClick(&menu(u"mnuFile"_s), Qt::Key_Right);
    EXPECT_TRUE(menu(u"mnuCalibration"_s).isVisible());
    menu(u"mnuCalibration"_s).close();
}

TEST_F(MainWindowFrame, WhileTheProgressWindowIsUpNoKeyReachesTheMenus) {
    startLoggedIn(4);
    program.ui.showProgress(u"x"_s);
    QTest::keyClick(&program.window, Qt::Key_F10);
    QTest::keyClick(&program.window, Qt::Key_F, Qt::AltModifier);
    EXPECT_FALSE(menu(u"mnuFile"_s).isVisible());
    program.ui.hideProgress();
}

TEST_F(MainWindowFrame, SizeAndPlaceAreKept) {
    startLoggedIn(4);
    program.window.resize(760, 600);
    program.window.move(20, 30);
    QCoreApplication::processEvents();
    leave(program.window);
    EXPECT_EQ(settings.writes,
              (QStringList{u"MainWindow/Left=20"_s, u"MainWindow/Top=30"_s, u"MainWindow/Width=760"_s,
                           u"MainWindow/Height=600"_s, u"MainWindow/Maximized=0"_s}));
    program.window.hide();
    next.start();
    EXPECT_EQ(next.window.size(), QSize(760, 600));
    EXPECT_EQ(next.window.pos(), QPoint(20, 30));
}

TEST_F(MainWindowFrame, AMaximizedWindowComesBackMaximizedAndKnowsItsOwnSize) {
    startLoggedIn(4);
    program.window.resize(700, 560);
    QCoreApplication::processEvents();
    program.window.showMaximized();
    QCoreApplication::processEvents();
    leave(program.window);
    EXPECT_TRUE(settings.writes.contains(u"MainWindow/Width=700"_s));
    EXPECT_TRUE(settings.writes.contains(u"MainWindow/Maximized=1"_s));
    program.window.hide();
    next.start();
    EXPECT_TRUE(next.window.isMaximized());
}

TEST_F(MainWindowFrame, WhatIsNotChangedIsNotStored) {
    startLoggedIn(4);
    leave(program.window);
    EXPECT_EQ(settings.writes, QStringList());
}

TEST_F(MainWindowFrame, ADamagedPositionIsReplacedAndAnImpossibleOneMovesOntoTheScreen) {
    const auto screen = program.window.screen()->availableSize();
    const struct {
        QString left;
        QString width;
        QSize expected;
    } rows[] = {
        {u"0"_s, u"garbage"_s, {665, 551}}, {u"0"_s, u"-1"_s, {665, 551}},    {u"0"_s, u""_s, {665, 551}},
        {u"0"_s, u"1e300"_s, screen},       {u"90000"_s, u"99999"_s, screen},
    };
    for (const auto& row : rows) {
        settings.values = {{u"MainWindow/Left"_s, row.left},
                           {u"MainWindow/Top"_s, u"0"_s},
                           {u"MainWindow/Width"_s, row.width},
                           {u"MainWindow/Height"_s, u"99999"_s}};
        WorkstationProgram started(clock, settings, session.makeConnection, links, environment());
        started.start();
        EXPECT_EQ(started.window.size(), row.expected) << row.width.toStdString();
        EXPECT_TRUE(started.window.screen()->geometry().intersects(started.window.geometry()));
    }
}

} // namespace kelvane::testing
