#include "ui/indicators.h"

#include "testkit/fixtures.h"

#include <QApplication>
#include <QImage>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

double lightOf(const QColor& color) {
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

double contrast(const QColor& left, const QColor& right) {
    const double first = lightOf(left) + 0.05;
    const double second = lightOf(right) + 0.05;
    return std::max(first / second, second / first);
}

/// The highest contrast that the empty indicator of a button has with the ground beside it.
double contrastOf(QAbstractButton& button, QStyle::SubElement indicator) {
    button.resize(button.sizeHint());
    QStyleOptionButton option;
    option.initFrom(&button);
    const auto rect = button.style()->subElementRect(indicator, &option, &button);
    const auto picture = button.grab().toImage();
    const double scale = picture.devicePixelRatio();
    const auto at = [&](double x, double y) {
        return picture.pixelColor(static_cast<int>(x * scale), static_cast<int>(y * scale));
    };
    const auto ground = button.palette().color(QPalette::Window);
    double highest = 1;
    for (int x = rect.left(); x < rect.center().x(); ++x)
        highest = std::max(highest, contrast(at(x + 0.5, rect.center().y()), ground));
    return highest;
}

} // namespace

/// In a dark palette, over a light one and with each state that a user can meet.
class Indicators : public ::testing::Test {
  protected:
    Indicators() {
        QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
        for (auto* palette : {&dark, &light})
            palette->setColor(QPalette::WindowText, palette == &dark ? QColor(Qt::white) : QColor(Qt::black));
    }
    QPalette dark{QColor(45, 45, 48), QColor(40, 40, 42)};
    QPalette light{QColor(239, 239, 239), QColor(239, 239, 239)};
};

TEST_F(Indicators, AnEmptyCheckBoxCanBeSeenOnEveryGround) {
    for (const auto& palette : {dark, light}) {
        CheckBox box(u"Indicated Input"_s);
        box.setPalette(palette);
        box.setAutoFillBackground(true);
        EXPECT_GE(contrastOf(box, QStyle::SE_CheckBoxIndicator), 1.5);
    }
    CheckBox box(u"Indicated Input"_s);
    box.setPalette(dark);
    box.setAutoFillBackground(true);
    EXPECT_GE(contrastOf(box, QStyle::SE_CheckBoxIndicator), 3);
}

TEST_F(Indicators, AnUnchosenOptionCanBeSeenOnADarkGround) {
    RadioButton option(u"Internal"_s);
    option.setPalette(dark);
    option.setAutoFillBackground(true);
    EXPECT_GE(contrastOf(option, QStyle::SE_RadioButtonIndicator), 3);
}

TEST_F(Indicators, ALightPaletteKeepsTheStylesOwnIndicators) {
    for (const bool ticked : {false, true}) {
        CheckBox box(u"Indicated Input"_s);
        QCheckBox plain(u"Indicated Input"_s);
        for (auto* shown : {static_cast<QCheckBox*>(&box), &plain}) {
            shown->setPalette(light);
            shown->setAutoFillBackground(true);
            shown->setChecked(ticked);
        }
        EXPECT_EQ(box.grab().toImage(), plain.grab().toImage());
    }
}

} // namespace kelvane::testing
