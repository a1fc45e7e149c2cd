#include "records/colors.h"

#include <QGuiApplication>
#include <QPalette>

#include <gtest/gtest.h>

#include <cmath>

namespace kelvane::testing {

namespace {

/// The relative luminance of a colour, from 0 to 1.
double luminance(const QColor& color) {
    const auto part = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

double contrast(const QColor& letters, const QColor& ground) {
    const double one = luminance(letters) + 0.05;
    const double other = luminance(ground) + 0.05;
    return one > other ? one / other : other / one;
}

} // namespace

TEST(ListColors, CanBeReadOnLightAndDarkGround) {
    const auto before = QGuiApplication::palette();
    for (const auto& ground : {QColor(255, 255, 255), QColor(240, 240, 240), QColor(30, 30, 32)}) {
        auto palette = before;
        palette.setColor(QPalette::Base, ground);
        QGuiApplication::setPalette(palette);
        EXPECT_GE(contrast(alarmColor(), ground), 4.5) << ground.name().toStdString();
        EXPECT_GE(contrast(nearColor(), ground), 4.5) << ground.name().toStdString();
        EXPECT_NE(alarmColor(), nearColor());
    }
    QGuiApplication::setPalette(before);
}

} // namespace kelvane::testing
