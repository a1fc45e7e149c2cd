#include "app/frame_start.h"

#include "platform/version.h"
#include "testkit/program_fixture.h"
#include "testkit/screen_controls.h"
#include "ui/colors.h"
#include "ui/status_line.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollBar>
#include <QTest>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// What stands behind the child windows, in each state of the program.
class FrameStarts : public ProgramTest {
  protected:
    FrameStart& frame() { return control<FrameStart>(program.window, u"FrameStart"_s); }
    QString shown(const QString& label) {
        const auto& found = control<QLabel>(frame(), label);
        return found.isVisible() ? found.text() : QString();
    }
    /// The steps on the screen, each with its keys, from top to bottom.
    QStringList steps() {
        QStringList found;
        for (int number = 1; number <= 6; ++number) {
            const auto* button = frame().findChild<QPushButton*>(u"CommandStep%1"_s.arg(number));
            if (button && button->isVisible())
                found << (button->text() + u' ' + shown(u"LabelKeys%1"_s.arg(number))).trimmed();
        }
        return found;
    }
    QPushButton& step(int number) { return control<QPushButton>(frame(), u"CommandStep%1"_s.arg(number)); }
    void lose() {
        session.SessionConnected = false;
        program.ui.showSessionState();
    }
};

TEST_F(FrameStarts, BeforeLoginShowsMarkVersionAndTheFirstSteps) {
    start();
    EXPECT_TRUE(frame().isVisible());
    EXPECT_EQ(shown(u"LabelProgram"_s), u"Kelvane"_s);
    EXPECT_EQ(shown(u"LabelVersion"_s), u"Version "_s + programVersion());
    EXPECT_EQ(shown(u"LabelFrameUser"_s), u"Not logged in"_s);
    EXPECT_EQ(shown(u"LabelFrameWarning"_s), QString());
    EXPECT_EQ(shown(u"LabelMenuKey"_s), u"F10 opens the menu"_s);
    EXPECT_EQ(steps(), (QStringList{u"Connect to MET Database"_s, u"Database Connection Ctrl+D"_s}));
}

TEST_F(FrameStarts, ALoginAndALogOutChangeItAtOnce) {
    startLoggedIn(1);
    EXPECT_EQ(shown(u"LabelFrameUser"_s), u"jdoe on Calibration Data"_s);
    EXPECT_EQ(steps(),
              (QStringList{u"Download Procedures To Calibrator F1"_s,
                           u"Upload Test Results From Calibrator F2"_s, u"Calibrator Configuration Ctrl+O"_s,
                           u"Database Connection Ctrl+D"_s, u"Log Out Ctrl+L"_s}));
    choose(u"mnuLogout"_s);
    EXPECT_EQ(shown(u"LabelFrameUser"_s), u"Not logged in"_s);
    EXPECT_EQ(steps(), (QStringList{u"Connect to MET Database"_s, u"Database Connection Ctrl+D"_s}));
}

TEST_F(FrameStarts, ALossShowsAndTheFirstStepConnectsAgain) {
    startLoggedIn(4);
    lose();
    EXPECT_EQ(shown(u"LabelFrameWarning"_s), u"The connection to Calibration Data is lost."_s);
    EXPECT_EQ(steps(),
              (QStringList{u"Connect Again"_s, u"Database Connection Ctrl+D"_s, u"Log Out Ctrl+L"_s}));
    click(step(1));
    auto& password = control<QLineEdit>(child(u"FormConnect"_s), u"TextPassword"_s);
    EXPECT_EQ(steps().first(), u"Connect to MET Database"_s);
    QTest::keyClicks(&password, u"secret"_s);
    QTest::keyClick(&password, Qt::Key_Return);
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_EQ(shown(u"LabelFrameWarning"_s), QString());
    EXPECT_EQ(steps().first(), u"Download Procedures To Calibrator F1"_s);
}

TEST_F(FrameStarts, AClickOnAStepCarriesItsCommandOut) {
    startLoggedIn(1);
    click(step(3));
    EXPECT_EQ(openChildren(), QStringList{u"FormCalConfig"_s});
    child(u"FormCalConfig"_s).close();
    click(step(5));
    EXPECT_EQ(openChildren(), QStringList{u"FormConnect"_s});
}

TEST_F(FrameStarts, TheLoginStepBringsTheLoginForward) {
    start();
    choose(u"mnuODBC"_s);
    child(u"FormODBC"_s).move(200, 200);
    child(u"FormConnect"_s).move(0, 0);
    ASSERT_FALSE(child(u"FormConnect"_s).isAncestorOf(QApplication::focusWidget()));
    step(1).click();
    EXPECT_TRUE(child(u"FormConnect"_s).isAncestorOf(QApplication::focusWidget()));
}

TEST_F(FrameStarts, TabAndReturnTakeAStepAndALoginDoesNotFocusOne) {
    startLoggedIn(1);
    const auto focused = [this] {
        auto* found = QApplication::focusWidget();
        return found ? found : &program.window;
    };
    EXPECT_FALSE(frame().isAncestorOf(focused()));
    for (int pressed = 0; pressed < 10 && !step(3).hasFocus(); ++pressed)
        QTest::keyClick(focused(), Qt::Key_Tab);
    ASSERT_TRUE(step(3).hasFocus());
    QTest::keyClick(&step(3), Qt::Key_Return);
    EXPECT_EQ(openChildren(), QStringList{u"FormCalConfig"_s});
    // The child window keeps the focus inside.
    for (int pressed = 0; pressed < 30; ++pressed) {
        QTest::keyClick(focused(), Qt::Key_Tab);
        EXPECT_TRUE(child(u"FormCalConfig"_s).isAncestorOf(focused()));
    }
}

TEST_F(FrameStarts, WhileTheProgressWindowIsUpNoStepCanBeTaken) {
    startLoggedIn(1);
    program.ui.showProgress(u"x"_s);
    EXPECT_FALSE(step(3).isEnabled());
    click(step(3));
    EXPECT_EQ(openChildren(), QStringList{u"FormStatusBar"_s});
    program.ui.hideProgress();
    EXPECT_TRUE(step(3).isEnabled());
}

TEST_F(FrameStarts, LiesBehindAllWindowsAndFillsTheAreaHoweverItIsResizedAndScrolled) {
    startLoggedIn(4);
    auto* viewport = program.window.area().viewport();
    choose(u"mnuConfiguration"_s);
    auto& config = child(u"FormCalConfig"_s);
    for (const auto& size : {QSize(900, 700), QSize(300, 260)}) {
        program.window.resize(size);
        QCoreApplication::processEvents();
        EXPECT_EQ(frame().geometry(), viewport->rect());
    }
    auto* down = program.window.area().verticalScrollBar();
    ASSERT_GT(down->maximum(), 0);
    down->setValue(down->maximum());
    EXPECT_EQ(frame().geometry(), viewport->rect());
    // Children are kept in the order in which they lie over each other.
    EXPECT_EQ(viewport->children().indexOf(&frame()), 0);
    EXPECT_GT(viewport->children().indexOf(&config), 0);
    EXPECT_EQ(program.window.area().subWindowList(), QList<QMdiSubWindow*>{&config});
}

TEST_F(FrameStarts, FollowsThePaletteAndCanBeReadInIt) {
    const auto before = QApplication::palette();
    const auto undo = qScopeGuard([&] { QApplication::setPalette(before); });
    startLoggedIn(4);
    for (const auto colors : {Colors::light, Colors::dark}) {
        QApplication::setPalette(ownPalette(colors));
        QCoreApplication::processEvents();
        const auto ground = ownPalette(colors).color(QPalette::Base);
        const auto whole = program.window.area().grab().toImage();
        EXPECT_EQ(whole.pixelColor(2, whole.height() - 3), ground);
        const auto picture = step(1).grab().toImage();
        double highest = 1;
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height(); ++y)
                highest = std::max(highest, contrast(picture.pixelColor(x, y), ground));
        }
        EXPECT_GE(highest, 4.5);
    }
}

TEST_F(FrameStarts, AScreenReaderHearsEachStepAndItsKeys) {
    startLoggedIn(1);
    auto* spoken = QAccessible::queryAccessibleInterface(&step(1));
    ASSERT_TRUE(spoken);
    EXPECT_EQ(spoken->role(), QAccessible::Button);
    EXPECT_EQ(spoken->text(QAccessible::Name), u"Download Procedures To Calibrator"_s);
    EXPECT_EQ(spoken->text(QAccessible::Description), u"F1"_s);
}

TEST_F(FrameStarts, FitsTheGivenWindowBesideTheLogin) {
    start();
    const auto login = child(u"FormConnect"_s).geometry();
    auto* viewport = program.window.area().viewport();
    for (const auto* part : frame().findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!part->isVisible())
            continue;
        EXPECT_FALSE(part->geometry().intersects(login)) << part->objectName().toStdString();
        EXPECT_TRUE(viewport->rect().contains(part->geometry())) << part->objectName().toStdString();
        EXPECT_GE(part->width(), part->sizeHint().width()) << part->objectName().toStdString();
    }
}

/// Calls the control key as German keyboards do.
class GermanKeys final : public QTranslator {
  public:
    QString translate(const char* context, const char* text, const char*, int) const override {
        const bool isControl = qstrcmp(context, "QShortcut") == 0 && qstrcmp(text, "Ctrl") == 0;
        return isControl ? u"Strg"_s : QString();
    }
    bool isEmpty() const override { return false; }
};

TEST_F(FrameStarts, KeysAreNamedAsTheMenuNamesThem) {
    GermanKeys translator;
    QCoreApplication::installTranslator(&translator);
    const auto undo = qScopeGuard([&] { QCoreApplication::removeTranslator(&translator); });
    startLoggedIn(1);
    EXPECT_EQ(steps().last(), u"Log Out Strg+L"_s);
    EXPECT_EQ(action(u"mnuLogout"_s)->shortcut().toString(QKeySequence::NativeText), u"Strg+L"_s);
}

TEST_F(FrameStarts, TheSameContentsAreNotLaidOutAgain) {
    startLoggedIn(1);
    auto* first = &step(1);
    first->setAccessibleName(u"as it was"_s);
    program.window.statusLine().refresh();
    EXPECT_EQ(first->accessibleName(), u"as it was"_s);
}

} // namespace kelvane::testing
