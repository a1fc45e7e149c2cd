#include "ui/open_windows.h"

#include "testkit/program_fixture.h"
#include "ui/qt_user_interface.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// A window of its own beside the workstation.
class ShownWindow : public ProgramTest {
  protected:
    ShownWindow() {
        startLoggedIn(4);
        window.setWindowTitle(u"Report"_s);
    }
    QWidget window;
};

} // namespace

TEST_F(ShownWindow, IsFoundByItsTitleWhileItIsOnTheScreen) {
    EXPECT_EQ(shownWindow(u"Report"), nullptr);
    window.show();
    EXPECT_EQ(shownWindow(u"Report"), &window);
    EXPECT_EQ(shownWindow(u"report"), nullptr);
    EXPECT_EQ(shownWindow(u"Repor"), nullptr);
    window.showMinimized();
    EXPECT_EQ(shownWindow(u"Report"), &window);
    window.close();
    EXPECT_EQ(shownWindow(u"Report"), nullptr);
}

TEST_F(ShownWindow, IsNoChildWindow) {
    choose(u"mnuODBC"_s);
    auto& screen = child(u"FormODBC"_s);
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(shownWindow(screen.windowTitle()), nullptr);
    EXPECT_EQ(shownWindow(program.window.windowTitle()), &program.window);
}

TEST_F(ShownWindow, ComesForwardAlsoFromAnIcon) {
    for (const bool minimised : {false, true}) {
        window.setWindowState(minimised ? Qt::WindowMinimized : Qt::WindowNoState);
        window.show();
        program.window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&program.window));
        bringWindowForward(u"Report");
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        EXPECT_FALSE(window.isMinimized());
    }
    window.close();
    bringWindowForward(u"Report");
    EXPECT_FALSE(window.isVisible());
}

TEST_F(ShownWindow, IsWaitedForUntilItHasGone) {
    program.ui.waitForWindow(u"Report"_s);
    window.show();
    QStringList handled;
    const auto later = [&](const std::function<void()>& action) {
        QMetaObject::invokeMethod(&window, action, Qt::QueuedConnection);
    };
    later([&] {
        handled << u"shown"_s;
        later([&] {
            handled << u"closed"_s;
            window.close();
        });
    });
    program.ui.waitForWindow(u"Report"_s);
    EXPECT_EQ(handled, (QStringList{u"shown"_s, u"closed"_s}));
}

} // namespace kelvane::testing
