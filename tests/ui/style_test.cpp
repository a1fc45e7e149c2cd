#include "ui/style.h"

#include "platform/error.h"
#include "testkit/fixtures.h"
#include "ui/text_box.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QTest>
#include <QTextDocumentFragment>
#include <QToolTip>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

QPalette grey(const QColor& ground, const QColor& letters) {
    QPalette palette(ground, ground);
    palette.setColor(QPalette::WindowText, letters);
    palette.setColor(QPalette::Text, letters);
    palette.setColor(QPalette::Base,
                     ground.lightness() < 128 ? QColor(ground.darker(130).rgb()) : QColor(Qt::white));
    return palette;
}

/// The palettes of the program, and two of desktops.
QList<QPalette> palettes() {
    return {ownPalette(Colors::light), ownPalette(Colors::dark), grey(QColor(239, 239, 239), Qt::black),
            grey(QColor(45, 45, 48), Qt::white)};
}

/// The highest contrast to `ground` of the pixels on the way.
double highestContrast(const QImage& picture, QPoint from, QPoint step, int count, const QColor& ground) {
    const auto scale = picture.devicePixelRatio();
    double highest = 1;
    for (int i = 0; i < count; ++i, from += step)
        highest = std::max(highest, contrast(picture.pixelColor(static_cast<int>((from.x() + 0.5) * scale),
                                                                static_cast<int>((from.y() + 0.5) * scale)),
                                             ground));
    return highest;
}

/// The text of the tool tip that comes up over a widget.
QString tipOver(QWidget& widget) {
    QToolTip::hideText();
    const QPoint place(5, 5);
    QHelpEvent event(QEvent::ToolTip, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &event);
    return QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText();
}

} // namespace

/// A window with one control of each kind, under the style over each base that is here.
class Styles : public ::testing::TestWithParam<QString> {
  protected:
    Styles() {
        QApplication::setStyle(new Style(GetParam()));
        for (auto* control : controls())
            column.addWidget(control);
        tabs.addTab(u"General"_s);
        flat.setFlat(true);
        list.addItems({u"PT-1001"_s, u"PT-1002"_s});
        tree.setHeaderLabels({u"Instrument"_s});
        combo.addItems({u"one"_s, u"two"_s});
        window.resize(300, 600);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    ~Styles() override { QApplication::setStyle(new Style); }

    QList<QWidget*> controls() {
        return {&other, &field, &button, &flat, &combo, &box, &option, &list, &tree, &text, &tabs};
    }
    /// Those with an outline around the whole of them.
    QList<QWidget*> outlined() { return {&field, &button, &combo, &list, &tree, &text}; }
    QImage pictureOf(QWidget& control) {
        QCoreApplication::processEvents();
        return window.grab(QRect(control.mapTo(&window, QPoint(0, 0)), control.size())).toImage();
    }
    void focus(QWidget& control) {
        control.setFocus();
        EXPECT_TRUE(control.hasFocus());
    }

    QWidget window;
    QVBoxLayout column{&window};
    QLineEdit other;
    QLineEdit field{u"20.00"_s};
    QPushButton button{u"Save"_s};
    QPushButton flat{u"Kelvane"_s};
    QComboBox combo;
    QCheckBox box{u"Indicated Input"_s};
    QRadioButton option{u"Internal"_s};
    QListWidget list;
    QTreeWidget tree;
    TextBox text;
    QTabBar tabs;
};

TEST_P(Styles, FieldsListsAndButtonsHaveAnOutlineOnEveryGround) {
    for (const auto& palette : palettes()) {
        window.setPalette(palette);
        focus(other);
        for (auto* control : outlined()) {
            const auto picture = pictureOf(*control);
            const auto ground = palette.color(QPalette::Window);
            const auto middle = control->height() / 2;
            EXPECT_GE(highestContrast(picture, {0, middle}, {1, 0}, 3, ground), 2.9)
                << control->metaObject()->className();
            EXPECT_GE(highestContrast(picture, {control->width() / 2, 0}, {0, 1}, 3, ground), 2.9)
                << control->metaObject()->className();
        }
    }
}

TEST_P(Styles, ChildWindowsHaveAnOutlineOnTheGroundBehindThem) {
    for (const auto& palette : palettes()) {
        QMdiArea area;
        area.setPalette(palette);
        auto* child = area.addSubWindow(new QWidget);
        area.resize(400, 300);
        child->resize(200, 150);
        area.show();
        const auto picture = child->grab().toImage();
        const auto ground = palette.color(QPalette::Base);
        const int right = child->width() - 1;
        const int bottom = child->height() - 1;
        EXPECT_GE(highestContrast(picture, {0, bottom - 20}, {1, 0}, 2, ground), 2.9);
        EXPECT_GE(highestContrast(picture, {right, bottom - 20}, {-1, 0}, 2, ground), 2.9);
        EXPECT_GE(highestContrast(picture, {right / 2, bottom}, {0, -1}, 2, ground), 2.9);
    }
}

TEST_P(Styles, TheFocusShowsAroundEachControl) {
    for (const auto& palette : palettes()) {
        window.setPalette(palette);
        for (auto* control : controls()) {
            if (control == &other)
                continue;
            focus(other);
            const auto without = pictureOf(*control);
            focus(*control);
            EXPECT_NE(pictureOf(*control), without) << control->metaObject()->className();
        }
        // A flat button has an outline only with the focus.
        const auto marked = outlined() << &flat;
        for (auto* control : marked) {
            focus(*control);
            // Two pixels thick, just inside.
            const auto picture = pictureOf(*control);
            const auto middle = control->height() / 2;
            for (const auto& ground : {palette.color(QPalette::Window), palette.color(QPalette::Base)}) {
                EXPECT_GE(highestContrast(picture, {0, middle}, {1, 0}, 1, ground), 2.9)
                    << control->metaObject()->className();
                EXPECT_GE(highestContrast(picture, {1, middle}, {1, 0}, 1, ground), 2.9)
                    << control->metaObject()->className();
            }
        }
    }
}

TEST_P(Styles, EmptyIndicatorsCanBeSeenOnEveryGround) {
    for (const auto& palette : palettes()) {
        window.setPalette(palette);
        focus(other);
        const std::pair<QAbstractButton*, QStyle::SubElement> indicators[] = {
            {&box, QStyle::SE_CheckBoxIndicator}, {&option, QStyle::SE_RadioButtonIndicator}};
        for (const auto& [control, element] : indicators) {
            QStyleOptionButton shown;
            shown.initFrom(control);
            const auto rect = control->style()->subElementRect(element, &shown, control);
            EXPECT_GE(highestContrast(pictureOf(*control), {rect.left(), rect.center().y()}, {1, 0},
                                      rect.width() / 2, palette.color(QPalette::Window)),
                      2.9);
        }
    }
}

TEST_P(Styles, DisabledAndReadOnlyFieldsDifferFromThoseThatCanBeChanged) {
    for (const auto& palette : palettes()) {
        window.setPalette(palette);
        focus(other);
        const auto inside = [&](QWidget& control) {
            return pictureOf(control).pixelColor(control.width() - 12, control.height() - 6);
        };
        for (auto* control :
             {static_cast<QWidget*>(&field), static_cast<QWidget*>(&list), static_cast<QWidget*>(&text)}) {
            EXPECT_EQ(inside(*control), palette.color(QPalette::Base)) << control->metaObject()->className();
            control->setEnabled(false);
            EXPECT_EQ(inside(*control), palette.color(QPalette::Window))
                << control->metaObject()->className();
            control->setEnabled(true);
        }
        field.setReadOnly(true);
        text.setReadOnly(true);
        EXPECT_EQ(inside(field), palette.color(QPalette::Window));
        EXPECT_EQ(inside(text), palette.color(QPalette::Window));
        field.setReadOnly(false);
        text.setReadOnly(false);
        EXPECT_EQ(inside(text), palette.color(QPalette::Base));
        for (auto* control : outlined()) {
            const auto usable = pictureOf(*control);
            control->setEnabled(false);
            EXPECT_NE(pictureOf(*control), usable) << control->metaObject()->className();
            control->setEnabled(true);
        }
    }
}

TEST_P(Styles, RowsOfListsAlternate) {
    EXPECT_TRUE(tree.alternatingRowColors());
    EXPECT_FALSE(tree.header()->alternatingRowColors());
    EXPECT_FALSE(combo.view()->alternatingRowColors());
    for (const auto colors : {Colors::light, Colors::dark}) {
        window.setPalette(ownPalette(colors));
        focus(other);
        const auto picture = list.viewport()->grab().toImage();
        const auto ground = [&](int row) {
            const auto place = list.visualItemRect(list.item(row));
            return picture.pixelColor(list.viewport()->width() - 3, place.center().y());
        };
        EXPECT_NE(ground(0), ground(1));
    }
}

TEST_P(Styles, RowsCanBeReadWhateverTheDesktopTakesForThem) {
    auto palette = grey(QColor(239, 239, 239), Qt::black);
    for (const auto& alternate : {QColor(92, 91, 90), QColor(Qt::white)}) {
        palette.setColor(QPalette::AlternateBase, alternate);
        QApplication::style()->polish(palette);
        window.setPalette(palette);
        focus(other);
        const auto place = list.visualItemRect(list.item(1));
        const auto ground =
            list.viewport()->grab().toImage().pixelColor(place.right() - 3, place.center().y());
        EXPECT_GE(contrast(ground, Qt::black), 4.5);
        EXPECT_NE(ground, palette.color(QPalette::Base));
    }
}

TEST_P(Styles, ATextThatDoesNotFitIntoItsFieldIsTheToolTip) {
    field.setToolTip(u"Lower limit"_s);
    EXPECT_EQ(tipOver(field), u"Lower limit"_s);
    const auto longText = u"a <b>long</b> text "_s.repeated(10).trimmed();
    field.setText(longText);
    EXPECT_EQ(tipOver(field), longText + u"\nLower limit"_s);
    // One that only just does not fit: frame and margin take some of the width.
    QString nearlyFits;
    while (field.fontMetrics().horizontalAdvance(nearlyFits) < field.width() - 20)
        nearlyFits += u"i "_s;
    while (field.fontMetrics().horizontalAdvance(nearlyFits + u'i') <= field.width())
        nearlyFits += u'i';
    field.setText(nearlyFits);
    EXPECT_EQ(tipOver(field), nearlyFits + u"\nLower limit"_s);
    field.setEchoMode(QLineEdit::Password);
    EXPECT_EQ(tipOver(field), u"Lower limit"_s) << "no password is shown";
}

TEST_P(Styles, APasswordIsShownAsStars) {
    field.setEchoMode(QLineEdit::Password);
    field.setText(u"abc"_s);
    EXPECT_EQ(field.displayText(), u"***"_s);
}

INSTANTIATE_TEST_SUITE_P(Bases, Styles, ::testing::Values(u"Fusion"_s, u"Windows"_s),
                         [](const auto& tested) { return tested.param.toStdString(); });

TEST(ButtonPictures, AreAsHighAsTheLettersBesideThem) {
    QPushButton button(u"Save"_s);
    for (const int size : {9, 14, 28}) {
        button.setFont(QFont(button.font().family(), size));
        EXPECT_EQ(button.iconSize().height(), button.fontMetrics().ascent()) << size;
    }
}

namespace {

/// A store that can't be read.
class UnreadableSettings final : public SettingsStore {
  public:
    QString value(const QString&, const QString&) const override {
        throw makeError(ErrorNumber::pathFileAccess);
    }
    void setValue(const QString&, const QString&, const QString&) override {}
};

} // namespace

TEST(Looks, ASettingChoosesTheColors) {
    MemorySettings settings;
    EXPECT_EQ(chosenColors(settings), Colors::desktop);
    settings.values.insert(u"Looks/Colors"_s, u"dark"_s);
    EXPECT_EQ(chosenColors(settings), Colors::dark);
    EXPECT_EQ(chosenColors(UnreadableSettings()), Colors::desktop);
}

TEST(Looks, OwnColorsAreThoseOfTheApplicationAndOfItsToolTips) {
    const auto before = QApplication::palette();
    const auto tipsBefore = QToolTip::palette();
    const auto undo = qScopeGuard([&] {
        QApplication::setPalette(before);
        QToolTip::setPalette(tipsBefore);
    });
    setLooks(Colors::desktop);
    for (const auto group : {QPalette::Active, QPalette::Disabled}) {
        const auto& palette = QApplication::palette();
        EXPECT_GE(contrast(palette.color(group, QPalette::Text), palette.color(group, QPalette::Window)), 3);
        EXPECT_GE(contrast(palette.color(QPalette::Highlight), palette.color(QPalette::HighlightedText)),
                  4.5);
    }
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), before.color(QPalette::Window));
    for (const auto colors : {Colors::light, Colors::dark}) {
        setLooks(colors);
        EXPECT_TRUE(qobject_cast<Style*>(QApplication::style()));
        EXPECT_EQ(QApplication::palette().color(QPalette::Window),
                  ownPalette(colors).color(QPalette::Window));
        EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipBase),
                  ownPalette(colors).color(QPalette::ToolTipBase));
    }
}

} // namespace kelvane::testing
