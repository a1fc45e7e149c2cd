#include "testkit/program_fixture.h"
#include "ui/form_custom_dialog.h"
#include "ui/open_windows.h"
#include "ui/qt_user_interface.h"

#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class ProgressTest : public ProgramTest {
  protected:
    ProgressTest() {
        startLoggedIn(4);
        choose(u"mnuODBC"_s);
        settings.writes.clear();
    }
    ChildWindow& bar() { return child(u"FormStatusBar"_s); }
};

TEST_F(ProgressTest, ShowsCaptionActionAndPercentage) {
    program.ui.showProgress(u"Calibration Record Creation"_s);
    program.ui.setProgressText(u"Downloading..."_s);
    program.ui.setProgressValue(42);
    EXPECT_EQ(bar().windowTitle(), u"Calibration Record Creation"_s);
    EXPECT_EQ(bar().pos(), QPoint(7, 5));
    auto& status = control<QLabel>(bar(), u"LabelStatus"_s);
    auto& progress = control<QProgressBar>(bar(), u"ProgressBar"_s);
    EXPECT_EQ(status.text(), u"Downloading..."_s);
    EXPECT_EQ(status.toolTip(), u"Action being performed"_s);
    EXPECT_EQ(progress.value(), 42);
    EXPECT_EQ(progress.toolTip(), u"Status of action being performed"_s);
    EXPECT_EQ(progress.minimum(), 0);
    EXPECT_EQ(progress.maximum(), 100);
    EXPECT_TRUE(isWindowOpen(session, u"FormStatusBar"));
    program.ui.hideProgress();
    EXPECT_FALSE(isWindowOpen(session, u"FormStatusBar"));
}

TEST_F(ProgressTest, PercentagesBeyondTheRangeAreCut) {
    program.ui.showProgress(u"x"_s);
    auto& progress = control<QProgressBar>(bar(), u"ProgressBar"_s);
    program.ui.setProgressValue(250);
    EXPECT_EQ(progress.value(), 100);
    program.ui.setProgressValue(-3);
    EXPECT_EQ(progress.value(), 0);
    program.ui.hideProgress();
}

TEST_F(ProgressTest, DisablesTheOtherWindowsAndTheMenuWhileItIsUp) {
    program.ui.showProgress(u"x"_s);
    EXPECT_FALSE(child(u"FormODBC"_s).isEnabled());
    EXPECT_FALSE(program.window.menuBar()->isEnabled());
    EXPECT_TRUE(bar().isEnabled());
    pressKeys(u"Ctrl+O"_s);
    EXPECT_EQ(findChild(u"FormCalConfig"_s), nullptr);
    program.ui.hideProgress();
    EXPECT_TRUE(child(u"FormODBC"_s).isEnabled());
    EXPECT_TRUE(program.window.menuBar()->isEnabled());
    pressKeys(u"Ctrl+O"_s);
    EXPECT_NE(findChild(u"FormCalConfig"_s), nullptr);
}

TEST_F(ProgressTest, TheUserCantCloseIt) {
    program.ui.showProgress(u"x"_s);
    bar().close();
    QTest::keyClick(&bar(), Qt::Key_F4, Qt::ControlModifier);
    EXPECT_TRUE(bar().isVisible());
    program.ui.hideProgress();
}

TEST_F(ProgressTest, HasNoButtonThatWouldDoNothing) {
    program.ui.showProgress(u"x"_s);
    QCoreApplication::processEvents();
    const auto picture = bar().grab().toImage();
    // The title bar's right end is plain: each line of it has one colour.
    const int height = bar().widget()->y();
    const int right = picture.width() - 8;
    for (int y = height / 4; y < height * 3 / 4; ++y) {
        for (int x = right - 24; x < right; ++x)
            EXPECT_EQ(picture.pixel(x, y), picture.pixel(right, y)) << x << ' ' << y;
    }
    program.ui.hideProgress();
}

TEST_F(ProgressTest, AQuestionAskedMeanwhileCanBeAnswered) {
    program.ui.showProgress(u"x"_s);
    simulatedOperator.expectDialog(u"Caption"_s, u"Prompt"_s, u"entry"_s);
    EXPECT_EQ(program.ui.askOneField({.caption = u"Caption"_s, .prompt = u"Prompt"_s}), u"entry"_s);
    EXPECT_FALSE(child(u"FormODBC"_s).isEnabled());
    program.ui.hideProgress();
    EXPECT_TRUE(child(u"FormODBC"_s).isEnabled());
}

TEST_F(ProgressTest, ShownTwiceItIsOneWindow) {
    program.ui.showProgress(u"first"_s);
    program.ui.showProgress(u"second"_s);
    EXPECT_EQ(bar().windowTitle(), u"second"_s);
    EXPECT_EQ(openChildren().count(u"FormStatusBar"_s), 1);
    program.ui.hideProgress();
    EXPECT_TRUE(child(u"FormODBC"_s).isEnabled());
}

TEST_F(ProgressTest, CanBeShownAgain) {
    program.ui.showProgress(u"first"_s);
    program.ui.hideProgress();
    program.ui.showProgress(u"second"_s);
    EXPECT_TRUE(bar().isVisible());
    EXPECT_EQ(control<QProgressBar>(bar(), u"ProgressBar"_s).value(), 0);
    program.ui.hideProgress();
}

TEST_F(ProgressTest, WithoutItsWindowTheOtherCallsDoNothing) {
    program.ui.setProgressText(u"x"_s);
    program.ui.setProgressValue(5);
    program.ui.hideProgress();
    EXPECT_EQ(openChildren(), QStringList{u"FormODBC"_s});
}

TEST_F(ProgressTest, StoresItsPositionWhenItGoes) {
    program.ui.showProgress(u"x"_s);
    bar().move(100, 20);
    program.ui.hideProgress();
    EXPECT_EQ(settings.writes, (QStringList{u"Left/FormStatusBar=1500"_s, u"Top/FormStatusBar=300"_s}));
}

TEST(QtUserInterface, BeforeThereIsAWindowAQuestionIsCancelledAndNoProgressShown) {
    QtUserInterface ui;
    EXPECT_EQ(ui.askOneField({.caption = u"x"_s, .prompt = u"y"_s}), u"*CANCEL*"_s);
    ui.showProgress(u"x"_s);
    ui.hideProgress();
}

} // namespace kelvane::testing
