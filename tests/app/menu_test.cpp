#include "app/menu_options.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using enum MenuEntry;

namespace {

QString nameOf(MenuEntry entry) {
    return entry == none ? QString() : menuTree()[static_cast<std::size_t>(entry)].name.toString();
}

/// The entries without a menu below them that can be reached, by name, in the order of the tree.
QStringList reachable(const Menu& menu) {
    QStringList names;
    for (const auto& row : menuTree()) {
        if (!isMenu(row.entry) && menu.isReachable(row.entry))
            names << row.name.toString();
    }
    return names;
}

} // namespace

TEST(MenuTree, HoldsEachEntryWithPlaceCaptionShortcutAndDesignState) {
    struct Expected {
        QStringView name;
        QStringView parent;
        TextId id;
        QStringView caption;
        QStringView shortcut;
        bool shown;
        bool enabled;
    };
    static constexpr Expected rows[] = {
        {u"mnuFile", u"", TextId::fileMenu, u"File", u"", true, true},
        {u"mnuLogout", u"mnuFile", TextId::logOutCommand, u"Log Out", u"Ctrl+L", true, false},
        {u"mnuExit", u"mnuFile", TextId::exitCommand, u"Exit", u"Ctrl+Q", true, true},
        {u"mnuCalibration", u"", TextId::calibrationMenu, u"Calibration", u"", false, true},
        {u"mnuDownload", u"mnuCalibration", TextId::downloadProcedures, u"Download Procedures To Calibrator",
         u"F1", true, false},
        {u"mnuUpload", u"mnuCalibration", TextId::uploadTestResults, u"Upload Test Results From Calibrator",
         u"F2", true, false},
        {u"mnuPrint", u"mnuCalibration", TextId::printWorksheets, u"Print Worksheet(s)", u"Ctrl+W", true,
         false},
        {u"mnuEnter", u"mnuCalibration", TextId::enterWorksheetResults,
         u"Enter Test Results From Worksheet(s)", u"Ctrl+R", true, false},
        {u"mnuParameters", u"", TextId::parametersMenu, u"Parameters", u"", true, true},
        {u"mnuStrategies", u"mnuParameters", TextId::testStrategies, u"Test Points/Strategies", u"Ctrl+S",
         false, false},
        {u"mnuCalParameters", u"mnuParameters", TextId::calibrationParameters, u"Calibration Parameters",
         u"Ctrl+P", false, false},
        {u"mnuPrompts", u"mnuParameters", TextId::editTestMessages, u"Create/Edit Test Messages", u"Ctrl+M",
         false, false},
        {u"mnuLocal", u"mnuParameters", TextId::localConfigurationMenu, u"Local Configuration", u"", true,
         true},
        {u"mnuODBC", u"mnuLocal", TextId::databaseConnection, u"Database Connection", u"Ctrl+D", true, true},
        {u"mnuConfiguration", u"mnuLocal", TextId::calibratorConfiguration, u"Calibrator Configuration",
         u"Ctrl+O", false, false},
        {u"mnuGlobal", u"mnuParameters", TextId::globalConfigurationMenu, u"Global Configuration", u"", false,
         false},
        {u"mnuWorkEntry", u"mnuGlobal", TextId::recordConfiguration, u"Calibration Record Configuration",
         u"Ctrl+E", true, false},
        {u"mnuPredefined", u"mnuGlobal", TextId::predefinedTaskPackages, u"Predefined Task Packages",
         u"Ctrl+T", true, false},
        {u"mnuHelp", u"", TextId::helpMenu, u"Help", u"", false, true},
        {u"mnuAbout", u"mnuHelp", TextId::aboutCommand, u"About", u"Ctrl+A", true, false},
    };
    ASSERT_EQ(std::size(rows), menuEntryCount);
    for (std::size_t i = 0; i < menuEntryCount; ++i) {
        const auto& row = menuTree()[i];
        SCOPED_TRACE(row.name.toString().toStdString());
        EXPECT_EQ(static_cast<std::size_t>(row.entry), i);
        EXPECT_EQ(row.name.toString(), rows[i].name.toString());
        EXPECT_EQ(nameOf(row.parent), rows[i].parent.toString());
        EXPECT_EQ(row.caption, rows[i].id);
        EXPECT_EQ(text(row.caption), rows[i].caption.toString());
        EXPECT_EQ(row.shortcut.toString(), rows[i].shortcut.toString());
        EXPECT_EQ(row.shown, rows[i].shown);
        EXPECT_EQ(row.enabled, rows[i].enabled);
    }
}

TEST(Menu, BeforeALoginOnlyExitAndDatabaseConnectionCanBeReached) {
    EXPECT_EQ(reachable(Menu()), (QStringList{u"mnuExit"_s, u"mnuODBC"_s}));
}

TEST(Menu, AnEntryInAHiddenOrDisabledMenuCantBeReached) {
    Menu menu;
    menu.enable({mnuDownload});
    EXPECT_FALSE(menu.isReachable(mnuDownload));
    menu.show({mnuCalibration});
    EXPECT_TRUE(menu.isReachable(mnuDownload));
    menu.disable({mnuCalibration});
    EXPECT_FALSE(menu.isReachable(mnuDownload));
}

TEST(Menu, EachChangeIsSignalled) {
    Menu menu;
    int count = 0;
    menu.changed = [&] { ++count; };
    menu.show({mnuHelp});
    menu.hide({mnuHelp, mnuAbout});
    EXPECT_EQ(count, 2);
}

TEST(Menu, ALoginEnablesTheNineEntriesWhateverTheLevel) {
    Menu menu;
    enableMenuForLogin(menu);
    QStringList enabled;
    for (const auto& row : menuTree()) {
        if (menu.isEnabled(row.entry) && !row.enabled)
            enabled << row.name.toString();
        EXPECT_EQ(menu.isShown(row.entry), row.shown) << row.name.toString().toStdString();
    }
    EXPECT_EQ(enabled, (QStringList{u"mnuLogout"_s, u"mnuDownload"_s, u"mnuUpload"_s, u"mnuPrint"_s,
                                    u"mnuEnter"_s, u"mnuStrategies"_s, u"mnuCalParameters"_s, u"mnuPrompts"_s,
                                    u"mnuConfiguration"_s}));
}

class SetMenuOptions : public RecordedSession {
  protected:
    void logInWith(int level, const QString& procedit = u"3"_s) {
        script.answers.insert(select, {Row{procedit}});
        session.SessionLevel = static_cast<qint16>(level);
        enableMenuForLogin(menu);
        ModuleGlobals::SetMenuOptions(session, menu);
    }

    const QString select = u"select procedit from mt.dbconfig"_s;
    Menu menu;
};

TEST_F(SetMenuOptions, EachLevelReachesItsEntries) {
    const QStringList always{u"mnuLogout"_s, u"mnuExit"_s};
    const QStringList work{u"mnuDownload"_s, u"mnuUpload"_s};
    const QStringList editing{u"mnuStrategies"_s, u"mnuCalParameters"_s, u"mnuPrompts"_s};
    const QStringList local{u"mnuODBC"_s, u"mnuConfiguration"_s};
    const auto technician = always + work + local;
    const auto editor = always + work + editing + local + QStringList{u"mnuPredefined"_s};
    const struct {
        int level;
        QStringView procedit;
        QStringList expected;
    } rows[] = {
        {0, u"0", always + QStringList{u"mnuDownload"_s} + local},
        {1, u"1", editor},
        {1, u"2", technician},
        {2, u"3", technician},
        {3, u"3", editor},
        {4, u"3", editor},
        {4, u"5", technician},
        {5, u"6", technician},
        {5, u"5", editor},
        {5, u"4.5", editor},
        {6, u"1", always + QStringList{u"mnuODBC"_s, u"mnuWorkEntry"_s}},
        {7, u"1", technician},
        {32767, u"1", technician},
        {-1, u"-5", technician},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE("level " + std::to_string(row.level) + ", procedit " +
                     row.procedit.toString().toStdString());
        menu = Menu();
        logInWith(row.level, row.procedit.toString());
        EXPECT_EQ(reachable(menu), row.expected);
    }
}

TEST_F(SetMenuOptions, WorksheetEntriesAreHiddenAtEveryLevelAndNothingShowsThemAgain) {
    for (int level = 0; level <= 7; ++level) {
        menu = Menu();
        logInWith(level);
        EXPECT_FALSE(menu.isShown(mnuPrint)) << level;
        EXPECT_FALSE(menu.isShown(mnuEnter)) << level;
        EXPECT_TRUE(menu.isEnabled(mnuPrint)) << level;
    }
}

TEST_F(SetMenuOptions, WorksheetEntriesThatASiteWantsGoToThoseWhoDownloadAndUpload) {
    for (int level = 0; level <= 7; ++level) {
        menu = Menu();
        logInWith(level);
        showWorksheetEntries(menu);
        EXPECT_EQ(menu.isReachable(mnuPrint), menu.isReachable(mnuDownload)) << level;
        EXPECT_EQ(menu.isReachable(mnuEnter), menu.isReachable(mnuUpload)) << level;
    }
    EXPECT_TRUE(menu.isReachable(mnuPrint));
    EXPECT_TRUE(menu.isReachable(mnuEnter));
    resetMenuForLogout(menu);
    EXPECT_FALSE(menu.isShown(mnuPrint));
    EXPECT_FALSE(menu.isShown(mnuEnter));
}

TEST_F(SetMenuOptions, LevelSixHasNoCalibrationMenu) {
    logInWith(6);
    EXPECT_FALSE(menu.isShown(mnuCalibration));
    EXPECT_FALSE(menu.isShown(mnuConfiguration));
    EXPECT_FALSE(menu.isShown(mnuPredefined));
}

TEST_F(SetMenuOptions, EditorsHaveTheRecordConfigurationHiddenAndDisabled) {
    logInWith(4);
    EXPECT_TRUE(menu.isReachable(mnuPredefined));
    EXPECT_FALSE(menu.isShown(mnuWorkEntry));
    EXPECT_FALSE(menu.isEnabled(mnuWorkEntry));
}

TEST_F(SetMenuOptions, OnlyLevelsOneToFiveAskForTheLevelOfEditors) {
    for (int level = 0; level <= 7; ++level) {
        script.statements.clear();
        logInWith(level);
        const bool asks = level >= 1 && level <= 5;
        EXPECT_EQ(script.statements, asks ? QStringList{select} : QStringList()) << level;
    }
    EXPECT_TRUE(script.firstRowOnly.contains(select));
}

TEST_F(SetMenuOptions, AnErrorIsReportedAndLeavesWhatWasSetBefore) {
    script.failures.insert(select, Error{208, u"no such table"_s});
    ui.expectReport(208, u"ModuleGlobals,SetMenuOptions"_s);
    logInWith(4);
    EXPECT_TRUE(menu.isReachable(mnuDownload));
    EXPECT_FALSE(menu.isReachable(mnuStrategies));
}

TEST_F(SetMenuOptions, ANullOrMissingEditorsLevelIsReported) {
    script.answers.insert(select, {Row{std::nullopt}});
    ui.expectReport(94, u"ModuleGlobals,SetMenuOptions"_s);
    session.SessionLevel = 3;
    ModuleGlobals::SetMenuOptions(session, menu);

    script.answers.remove(select);
    ui.expectReport(3021, u"ModuleGlobals,SetMenuOptions"_s);
    ModuleGlobals::SetMenuOptions(session, menu);
}

TEST_F(SetMenuOptions, AfterLogOutTheMenuIsThatOfTheStart) {
    for (int level = 0; level <= 7; ++level) {
        menu = Menu();
        logInWith(level);
        resetMenuForLogout(menu);
        EXPECT_EQ(reachable(menu), (QStringList{u"mnuExit"_s, u"mnuODBC"_s})) << level;
    }
}

TEST_F(SetMenuOptions, LogOutDisablesAndHidesExactlyItsEntries) {
    logInWith(4);
    const Menu before = menu;
    resetMenuForLogout(menu);
    QStringList disabled;
    QStringList hidden;
    for (const auto& row : menuTree()) {
        if (before.isEnabled(row.entry) && !menu.isEnabled(row.entry))
            disabled << row.name.toString();
        if (before.isShown(row.entry) && !menu.isShown(row.entry))
            hidden << row.name.toString();
    }
    EXPECT_EQ(disabled, (QStringList{u"mnuLogout"_s, u"mnuDownload"_s, u"mnuUpload"_s, u"mnuPrint"_s,
                                     u"mnuEnter"_s, u"mnuStrategies"_s, u"mnuCalParameters"_s,
                                     u"mnuPrompts"_s, u"mnuConfiguration"_s}));
    EXPECT_EQ(hidden, (QStringList{u"mnuCalibration"_s, u"mnuStrategies"_s, u"mnuCalParameters"_s,
                                   u"mnuPrompts"_s, u"mnuConfiguration"_s, u"mnuGlobal"_s}));
}

TEST_F(SetMenuOptions, EveryLevelFollowsEveryOtherOneWithItsOwnEntries) {
    for (int first = 0; first <= 7; ++first) {
        for (int second = 0; second <= 7; ++second) {
            menu = Menu();
            logInWith(second);
            const auto alone = reachable(menu);
            menu = Menu();
            logInWith(first);
            resetMenuForLogout(menu);
            logInWith(second);
            EXPECT_EQ(reachable(menu), alone) << first << " then " << second;
        }
    }
}

} // namespace kelvane::testing
