#include "app/frame_start.h"

#include "platform/version.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/letters_of_size.h"
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
#include <QStyle>
#include <QTest>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using enum MenuEntry;

namespace {

/// What a step shows: the caption of an entry, with its keys.
QString stepOf(MenuEntry entry) {
    const auto& row = menuTree()[static_cast<std::size_t>(entry)];
    return text(row.caption) + u' ' + row.shortcut.toString();
}

/// The highest contrast of the pixels of a picture to what lies under them.
double highestContrast(const QImage& picture, const QColor& ground) {
    double highest = 1;
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height(); ++y)
            highest = std::max(highest, contrast(picture.pixelColor(x, y), ground));
    }
    return highest;
}

} // namespace

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
    const QString loggedIn = text(TextId::frameLoggedIn).arg(u"jdoe"_s, u"Calibration Data"_s);
    const QString lost = text(TextId::frameConnectionLost).arg(u"Calibration Data"_s);
    void lose() {
        session.SessionConnected = false;
        program.ui.showSessionState();
    }
};

TEST_F(FrameStarts, BeforeLoginShowsMarkVersionAndTheFirstSteps) {
    start();
    EXPECT_TRUE(frame().isVisible());
    EXPECT_EQ(shown(u"LabelProgram"_s), u"Kelvane"_s);
    EXPECT_EQ(shown(u"LabelVersion"_s), text(TextId::frameVersion).arg(programVersion()));
    EXPECT_EQ(shown(u"LabelFrameUser"_s), text(TextId::frameLoggedOut));
    EXPECT_EQ(shown(u"LabelFrameWarning"_s), QString());
    EXPECT_EQ(shown(u"LabelMenuKey"_s), text(TextId::frameKeys).arg(u"F10"_s));
    EXPECT_EQ(steps(), (QStringList{text(TextId::loginTitle), stepOf(mnuODBC)}));
}

TEST_F(FrameStarts, ALoginAndALogOutChangeItAtOnce) {
    startLoggedIn(1);
    EXPECT_EQ(shown(u"LabelFrameUser"_s), loggedIn);
    EXPECT_EQ(steps(), (QStringList{stepOf(mnuDownload), stepOf(mnuUpload), stepOf(mnuConfiguration),
                                    stepOf(mnuODBC), stepOf(mnuLogout)}));
    choose(u"mnuLogout"_s);
    EXPECT_EQ(shown(u"LabelFrameUser"_s), text(TextId::frameLoggedOut));
    EXPECT_EQ(steps(), (QStringList{text(TextId::loginTitle), stepOf(mnuODBC)}));
}

TEST_F(FrameStarts, ALossShowsAndTheFirstStepConnectsAgain) {
    startLoggedIn(4);
    lose();
    EXPECT_EQ(shown(u"LabelFrameWarning"_s), lost);
    EXPECT_EQ(steps(), (QStringList{text(TextId::connectAgain), stepOf(mnuODBC), stepOf(mnuLogout)}));
    click(step(1));
    auto& password = control<QLineEdit>(child(u"FormConnect"_s), u"TextPassword"_s);
    EXPECT_EQ(steps().first(), text(TextId::loginTitle));
    QTest::keyClicks(&password, u"secret"_s);
    QTest::keyClick(&password, Qt::Key_Return);
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_EQ(shown(u"LabelFrameWarning"_s), QString());
    EXPECT_EQ(steps().first(), stepOf(mnuDownload));
}

TEST_F(FrameStarts, ALossThatAStatementFindsShowsAtOnce) {
    startLoggedIn(4);
    script.lost = true;
    simulatedOperator.expectReport(10054, u"MDIFormMain,mnuCalParameters.Click"_s);
    choose(u"mnuCalParameters"_s);
    EXPECT_EQ(shown(u"LabelFrameWarning"_s), lost);
    EXPECT_EQ(steps().first(), text(TextId::connectAgain));
}

TEST_F(FrameStarts, GivingTheLoginUpAfterALossOffersItAgain) {
    startLoggedIn(4);
    lose();
    click(step(1));
    EXPECT_EQ(steps().first(), text(TextId::loginTitle));
    click(control<QPushButton>(child(u"FormConnect"_s), u"CommandCancel"_s));
    EXPECT_EQ(steps().first(), text(TextId::connectAgain));
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
    child(u"FormCalConfig"_s).close();
    for (int pressed = 0; pressed < 10 && !step(1).hasFocus(); ++pressed)
        QTest::keyClick(focused(), Qt::Key_Tab);
    EXPECT_TRUE(step(1).hasFocus());
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
    auto poorLinks = ownPalette(Colors::dark);
    poorLinks.setColor(QPalette::Link, Qt::blue);
    QApplication::style()->polish(poorLinks);
    for (const auto& palette : {ownPalette(Colors::light), ownPalette(Colors::dark), poorLinks}) {
        QApplication::setPalette(palette);
        QCoreApplication::processEvents();
        const auto ground = palette.color(QPalette::Base);
        const auto whole = program.window.area().grab().toImage();
        EXPECT_EQ(whole.pixelColor(2, whole.height() - 3), ground);
        for (const auto* part : frame().findChildren<QLabel*>()) {
            if (part->isVisible()) {
                EXPECT_GE(highestContrast(frame().grab(part->geometry()).toImage(), ground), 4.5)
                    << part->objectName().toStdString();
            }
        }
        EXPECT_GE(highestContrast(step(1).grab().toImage(), ground), 4.5);
    }
}

TEST_F(FrameStarts, AScreenReaderHearsEachStepAndItsKeys) {
    startLoggedIn(1);
    auto* spoken = QAccessible::queryAccessibleInterface(&step(1));
    ASSERT_TRUE(spoken);
    EXPECT_EQ(spoken->role(), QAccessible::Button);
    EXPECT_EQ(spoken->text(QAccessible::Name), text(TextId::downloadProcedures));
    EXPECT_EQ(spoken->text(QAccessible::Description), u"F1"_s);
}

/// The letters of usual desktops, in points.
class FrameStartsInLetters : public FrameStarts, public ::testing::WithParamInterface<int> {
  protected:
    /// Nothing of it is cut off, or outside the area, or under `login`.
    void expectWhole(const QRect& login) {
        QCoreApplication::processEvents();
        const auto area = program.window.area().viewport()->rect();
        for (const auto* part : frame().findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (!part->isVisible())
                continue;
            EXPECT_FALSE(part->geometry().intersects(login)) << part->objectName().toStdString();
            EXPECT_TRUE(area.contains(part->geometry())) << part->objectName().toStdString();
            EXPECT_GE(part->width(), part->sizeHint().width()) << part->objectName().toStdString();
            EXPECT_GE(part->height(), part->sizeHint().height()) << part->objectName().toStdString();
        }
    }

    LettersOfSize letters{GetParam()};
};

TEST_P(FrameStartsInLetters, FitTheGivenWindowBesideTheLogin) {
    start();
    expectWhole(child(u"FormConnect"_s).geometry());
}

TEST_P(FrameStartsInLetters, FitTheGivenWindowWithAllSteps) {
    startLoggedIn(4);
    expectWhole({});
    lose();
    expectWhole({});
}

INSTANTIATE_TEST_SUITE_P(Sizes, FrameStartsInLetters, ::testing::Values(9, 11, 14));

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
    EXPECT_EQ(steps().last(), text(TextId::logOutCommand) + u" Strg+L"_s);
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
