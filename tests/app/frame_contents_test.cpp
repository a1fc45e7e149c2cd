#include "app/frame_contents.h"

#include "app/menu_options.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using enum MenuEntry;

class FrameContentsOfASession : public RecordedSession {
  protected:
    FrameContentsOfASession() {
        session.SessionConnected = false;
        session.SessionUser = u"jdoe"_s;
        session.SessionDataSource = u"Calibration Data"_s;
        script.answers.insert(u"select procedit from mt.dbconfig"_s, {Row{u"3"_s}});
    }
    void logIn(int level) {
        session.SessionConnected = true;
        session.SessionLevel = static_cast<qint16>(level);
        enableMenuForLogin(menu);
        ModuleGlobals::SetMenuOptions(session, menu);
    }
    FrameContents contents(std::optional<TextId> login = {}) {
        return frameContents(session, menu, login, [this](MenuEntry entry) { return works(entry); });
    }
    QList<MenuEntry> steps() {
        QList<MenuEntry> entries;
        for (const auto& step : contents().steps)
            entries << step.entry;
        return entries;
    }

    Menu menu;
    std::function<bool(MenuEntry)> works = [](MenuEntry) { return true; };
};

TEST_F(FrameContentsOfASession, BeforeLoginAreTheLoginAndTheChoiceOfADatabase) {
    EXPECT_EQ(contents(TextId::loginTitle),
              (FrameContents{u"Not logged in"_s,
                             {},
                             {{none, u"Connect to MET Database"_s, {}},
                              {mnuODBC, u"Database Connection"_s, u"Ctrl+D"_s}}}));
}

TEST_F(FrameContentsOfASession, SayWhoIsLoggedInAndWhereAndTheStepsOfTheLevelInTheirOrder) {
    const std::pair<int, QList<MenuEntry>> levels[] = {
        {0, {mnuDownload, mnuConfiguration, mnuODBC, mnuLogout}},
        {1, {mnuDownload, mnuUpload, mnuConfiguration, mnuODBC, mnuLogout}},
        {4, {mnuDownload, mnuUpload, mnuStrategies, mnuCalParameters, mnuPrompts, mnuPredefined}},
        {6, {mnuWorkEntry, mnuODBC, mnuLogout}},
        {7, {mnuDownload, mnuUpload, mnuConfiguration, mnuODBC, mnuLogout}},
    };
    for (const auto& [level, expected] : levels) {
        menu = Menu();
        logIn(level);
        EXPECT_EQ(contents().user, u"jdoe on Calibration Data"_s);
        EXPECT_EQ(contents().warning, QString());
        EXPECT_EQ(steps(), expected) << level;
    }
}

TEST_F(FrameContentsOfASession, HaveCaptionsAndKeysOfTheMenu) {
    logIn(1);
    EXPECT_EQ(contents().steps.first(),
              (FrameStep{mnuDownload, u"Download Procedures To Calibrator"_s, u"F1"_s}));
}

TEST_F(FrameContentsOfASession, NameNoEntryThatIsHidden) {
    for (int level = 0; level <= 7; ++level) {
        menu = Menu();
        logIn(level);
        const auto shown = steps();
        for (const auto entry : shown)
            EXPECT_TRUE(menu.isReachable(entry)) << level;
    }
}

TEST_F(FrameContentsOfASession, WithWorksheetsTheirCommandsComeBehindTheCalibrators) {
    logIn(4);
    showWorksheetEntries(menu);
    EXPECT_EQ(steps(), (QList{mnuDownload, mnuUpload, mnuPrint, mnuEnter, mnuStrategies, mnuCalParameters}));
}

TEST_F(FrameContentsOfASession, AfterALossSaySoAndLeaveWhatWorksWithoutTheDatabase) {
    logIn(4);
    session.SessionConnected = false;
    works = [](MenuEntry entry) { return entry == mnuODBC || entry == mnuLogout; };
    const auto shown = contents(TextId::connectAgain);
    EXPECT_EQ(shown.user, u"jdoe on Calibration Data"_s);
    EXPECT_EQ(shown.warning, u"The connection to Calibration Data is lost."_s);
    EXPECT_EQ(shown.steps, (QList<FrameStep>{{none, u"Connect Again"_s, {}},
                                             {mnuODBC, u"Database Connection"_s, u"Ctrl+D"_s},
                                             {mnuLogout, u"Log Out"_s, u"Ctrl+L"_s}}));
}

TEST_F(FrameContentsOfASession, AfterLogOutAreThoseFromBefore) {
    const auto before = contents();
    logIn(4);
    EXPECT_NE(contents(), before);
    session.SessionConnected = false;
    resetMenuForLogout(menu);
    EXPECT_EQ(contents(), before);
}

} // namespace kelvane::testing
