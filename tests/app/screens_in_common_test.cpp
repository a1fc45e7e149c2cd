// What all screens share.
#include "app/first_start.h"
#include "resources/languages.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/letters_of_size.h"
#include "tests/app/screens.h"
#include "ui/status_line.h"
#include "ui/style.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMenu>
#include <QMessageBox>
#include <QScreen>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Everything that can be read or used inside a screen.
QList<QWidget*> visibleControls(const ChildWindow& screen) {
    QList<QWidget*> controls;
    for (auto* widget : screen.widget()->findChildren<QWidget*>()) {
        if (widget->isVisible() && !widget->objectName().isEmpty() &&
            !widget->objectName().startsWith(u"qt_"))
            controls << widget;
    }
    return controls;
}

bool takesFocus(const QWidget* control) {
    return control->isEnabled() && (control->focusPolicy() & Qt::TabFocus) != 0;
}

QPoint placeIn(const ChildWindow& screen, const QWidget* control) {
    return control->mapTo(screen.widget(), QPoint(0, 0));
}

/// True for a text that can be typed into a field but is not seen whole there.
bool isTooNarrow(const QLineEdit& field) {
    constexpr int frameAndMargins = 8;
    return !field.isReadOnly() &&
           field.fontMetrics().horizontalAdvance(field.displayText()) + frameAndMargins > field.width();
}

/// What a text needs at least, against what it has.
bool isCutOff(const QWidget* control) {
    if (const auto* text = qobject_cast<const QLabel*>(control)) {
        const auto inside = text->contentsRect().size();
        return text->wordWrap() ? text->heightForWidth(text->width()) > text->height()
                                : text->sizeHint().width() > text->width() ||
                                      text->fontMetrics().height() > inside.height();
    }
    if (qobject_cast<const QAbstractButton*>(control) || qobject_cast<const QGroupBox*>(control)) {
        // Texts that wrap need less height where they have more width.
        const int height = control->hasHeightForWidth() ? control->heightForWidth(control->width())
                                                        : control->sizeHint().height();
        return control->sizeHint().width() > control->width() || height > control->height();
    }
    if (const auto* field = qobject_cast<const QLineEdit*>(control); field && isTooNarrow(*field))
        return true;
    if (qobject_cast<const QLineEdit*>(control) || qobject_cast<const QComboBox*>(control))
        return control->minimumSizeHint().width() > control->width() ||
               control->sizeHint().height() > control->height();
    return false;
}

/// What a control has, and what it needs.
std::string placeOf(const QWidget* control) {
    return u"%1 has %2 x %3, needs %4 x %5"_s.arg(control->objectName())
        .arg(control->width())
        .arg(control->height())
        .arg(control->sizeHint().width())
        .arg(control->sizeHint().height())
        .toStdString();
}

/// Puts a palette on for a while.
class StyledScreen {
  public:
    explicit StyledScreen(const QPalette& palette) : before_(QApplication::palette()) {
        QApplication::setPalette(palette);
    }
    ~StyledScreen() { QApplication::setPalette(before_); }

  private:
    QPalette before_;
};

double shareOfLight(const QImage& picture) {
    int light = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            light += qGray(picture.pixel(x, y)) > 127 ? 1 : 0;
    }
    return static_cast<double>(light) / (picture.width() * picture.height());
}

void savePicture(const QPixmap& picture, const QString& name) {
    const QDir folder(QCoreApplication::applicationDirPath() + u"/../pictures"_s);
    ASSERT_TRUE(folder.mkpath(u"."_s));
    const auto scale = picture.devicePixelRatio() > 1 ? u"-double"_s : QString();
    const auto language = shownLanguage() == ownLanguage ? QString() : u'-' + shownLanguage();
    ASSERT_TRUE(picture.save(folder.filePath(name + language + scale + u".png"_s)));
}

} // namespace

/// Nothing is cut off, and the screen lies inside the main window, as far as the display has room for that.
void Screens::expectRoomAndPicture(ChildWindow& screen, const QString& suffix) {
    const auto most = program.window.screen()->availableSize();
    EXPECT_TRUE(program.window.area().viewport()->rect().contains(screen.geometry()) ||
                program.window.width() == most.width() || program.window.height() == most.height() ||
                most.width() < program.window.width())
        << screen.width() << " x " << screen.height() << " in " << program.window.area().width() << " x "
        << program.window.area().height();
    for (const auto* control : visibleControls(screen)) {
        // An empty panel may have less space than its size hint.
        if (!qobject_cast<const QGroupBox*>(control)) {
            EXPECT_FALSE(isCutOff(control)) << placeOf(control);
        }
    }
    savePicture(program.window.grab(), QString::fromLatin1(GetParam().name) + suffix);
}

TEST_P(Screens, TabGoesThroughTheControlsAsTheyAreRead) {
    lookAt([](ChildWindow& screen) {
        QList<QWidget*> order;
        auto* const first = screen.focusWidget();
        auto* widget = first;
        do {
            if (widget && screen.widget()->isAncestorOf(widget) && widget->isVisible() &&
                takesFocus(widget) && !widget->objectName().startsWith(u"qt_"))
                order << widget;
            widget = widget ? widget->nextInFocusChain() : nullptr;
        } while (widget && widget != first);
        // Columns are read from left to right, and each from top to bottom.
        for (qsizetype i = 1; i < order.size(); ++i) {
            const auto before = placeIn(screen, order[i - 1]);
            const auto after = placeIn(screen, order[i]);
            EXPECT_TRUE(after.y() > before.y() || after.x() > before.x())
                << order[i - 1]->objectName().toStdString() << " comes before "
                << order[i]->objectName().toStdString();
        }
    });
}

TEST_P(Screens, EveryControlHasItsNames) {
    lookAt([](ChildWindow& screen) {
        QStringList names;
        for (const auto* control : visibleControls(screen)) {
            EXPECT_FALSE(names.contains(control->objectName()))
                << control->objectName().toStdString() << " stands twice";
            names << control->objectName();
            EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
            if (takesFocus(control)) {
                EXPECT_FALSE(control->toolTip().isEmpty()) << control->objectName().toStdString();
            }
        }
        EXPECT_FALSE(names.isEmpty());
    });
}

TEST_P(Screens, TheFocusIsInsideFromTheStart) {
    lookAt([](ChildWindow& screen) {
        const auto controls = visibleControls(screen);
        const bool anyTakesIt = std::any_of(controls.cbegin(), controls.cend(), takesFocus);
        EXPECT_TRUE(!anyTakesIt || screen.isAncestorOf(QApplication::focusWidget()));
    });
}

TEST_P(Screens, NothingIsCutOff) {
    lookAt([this](ChildWindow& screen) {
        for (const auto* control : visibleControls(screen)) {
            EXPECT_FALSE(isCutOff(control)) << placeOf(control);
            EXPECT_TRUE(screen.widget()->rect().contains(QRect(placeIn(screen, control), control->size())))
                << control->objectName().toStdString();
        }
        EXPECT_TRUE(program.window.area().viewport()->rect().contains(screen.geometry()));
    });
}

TEST_P(Screens, NoTextIsShownAsAMissingOne) {
    lookAt([](ChildWindow& screen) {
        EXPECT_FALSE(screen.windowTitle().isEmpty());
        for (const auto* control : visibleControls(screen)) {
            for (const auto& shown :
                 {control->toolTip(), control->property("text").toString(), control->accessibleName()})
                EXPECT_FALSE(shown.startsWith(u'#')) << shown.toStdString();
        }
    });
}

TEST_P(Screens, FollowsLightAndDarkPalettesAndLeavesItsPicture) {
    QApplication::setStyle(new Style(u"Fusion"_s));
    const auto name = QString::fromLatin1(GetParam().name);
    lookAt([&](ChildWindow& screen) {
        {
            const StyledScreen light(ownPalette(Colors::light));
            QCoreApplication::processEvents();
            EXPECT_GT(shareOfLight(screen.widget()->grab().toImage()), 0.8);
            savePicture(program.window.grab(), name);
        }
        const StyledScreen dark(ownPalette(Colors::dark));
        QCoreApplication::processEvents();
        EXPECT_LT(shareOfLight(screen.widget()->grab().toImage()), 0.2);
        savePicture(program.window.grab(), name + u"-dark"_s);
    });
}

TEST_P(Screens, EveryListAndDropDownShowsItsRowsWhole) {
    lookAt([](ChildWindow& screen) {
        const auto longRow = u"C2318 : Approved By "_s.repeated(20);
        for (auto* list : screen.findChildren<QListWidget*>()) {
            const auto before = list->count();
            list->addItem(longRow);
            list->doItemsLayout();
            EXPECT_GE(list->visualItemRect(list->item(before)).width(),
                      list->fontMetrics().horizontalAdvance(longRow))
                << list->objectName().toStdString();
            delete list->takeItem(before);
        }
        for (auto* list : screen.findChildren<QComboBox*>()) {
            if (!list->isVisible() || !list->isEnabled() || list->isEditable() || list->count() == 0)
                continue;
            list->showPopup();
            EXPECT_GE(list->view()->viewport()->width(), list->view()->sizeHintForColumn(0))
                << list->objectName().toStdString();
            list->hidePopup();
        }
    });
}

TEST_P(Screens, FitsTheMainWindowWithTheFontsOfUsualDesktops) {
    const LettersOfSize desktop(11);
    lookAt([this](ChildWindow& screen) { expectRoomAndPicture(screen, u"-11"_s); });
}

TEST_P(Screens, FitsTheMainWindowWithLargeLetters) {
    const LettersOfSize desktop(14);
    lookAt([this](ChildWindow& screen) { expectRoomAndPicture(screen, u"-14"_s); });
}

INSTANTIATE_TEST_SUITE_P(All, Screens, ::testing::ValuesIn(allScreens()),
                         [](const auto& tested) { return std::string(tested.param.name); });

class PicturesOfTheRest : public ProgramTest {
  protected:
    PicturesOfTheRest() : ProgramTest(true) {}

    /// Nothing in the window is cut off, in light and dark colours.
    static void expectRoomAndPictures(QWidget& window, const QString& name) {
        for (const auto colors : {Colors::light, Colors::dark}) {
            const StyledScreen styled(ownPalette(colors));
            QCoreApplication::processEvents();
            for (const auto* control : window.findChildren<QWidget*>()) {
                if (control->isVisible() && !control->objectName().isEmpty()) {
                    EXPECT_FALSE(isCutOff(control)) << placeOf(control);
                }
            }
            savePicture(window.grab(), colors == Colors::dark ? name + u"-dark"_s : name);
        }
    }
};

TEST_F(PicturesOfTheRest, TheFrameWithoutWindows) {
    startLoggedIn(1);
    expectRoomAndPictures(program.window, u"frame"_s);
    session.SessionConnected = false;
    program.ui.showSessionState();
    expectRoomAndPictures(program.window, u"frame-lost"_s);
}

TEST_F(PicturesOfTheRest, AboutBox) {
    start();
    bool looked = false;
    simulatedOperator.expectWindow(text(TextId::aboutTitle), [&](QWidget& box) {
        expectRoomAndPictures(box, u"about"_s);
        looked = true;
        box.close();
    });
    click(program.window.statusLine().aboutButton());
    EXPECT_TRUE(QTest::qWaitFor([&] { return looked; }));
}

TEST_F(PicturesOfTheRest, FirstStart) {
    FirstStart dialog(u"kelvane-admin"_s, u"guide.md"_s, [](const QString&) { return true; });
    dialog.show();
    expectRoomAndPictures(dialog, u"first-start"_s);
}

TEST_F(PicturesOfTheRest, MenuAndBoxes) {
    startLoggedIn(4);
    for (const auto& name : {u"mnuCalibration"_s, u"mnuParameters"_s}) {
        auto* menu = program.window.findChild<QMenu*>(name);
        menu->popup(program.window.mapToGlobal(QPoint(20, 20)));
        EXPECT_TRUE(menu->isVisible());
        savePicture(menu->grab(), name);
        menu->close();
    }
    simulatedOperator.expectBox(text(TextId::confirmExit), u"Kelvane"_s, box::question,
                                [](QMessageBox& shown) {
                                    savePicture(shown.grab(), u"box-question"_s);
                                    QTest::keyClick(&shown, Qt::Key_Escape);
                                });
    program.window.close();
    const auto report = u"a statement "_s.repeated(3000);
    simulatedOperator.expectBox(report, u"Kelvane"_s, box::stop, [](QMessageBox& shown) {
        savePicture(shown.grab(), u"box-long"_s);
        QTest::keyClick(&shown, Qt::Key_Return);
    });
    program.ui.messageBox(report, u"Kelvane"_s, box::stop);
}

} // namespace kelvane::testing
