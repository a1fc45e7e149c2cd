#include "ui/colors.h"

#include <algorithm>
#include <cmath>

namespace kelvane {

namespace {

/// A colour of both palettes, and what it is on a control that is disabled.
struct ColorRow {
    QPalette::ColorRole role;
    QRgb light;
    QRgb lightDisabled;
    QRgb dark;
    QRgb darkDisabled;
};

constexpr ColorRow colorRows[] = {
    {QPalette::Window, 0xfff0f1f3, 0xfff0f1f3, 0xff2b2d30, 0xff2b2d30},
    {QPalette::WindowText, 0xff1b1d20, 0xff74777b, 0xfff0f0f0, 0xff9a9da2},
    {QPalette::Base, 0xffffffff, 0xfff0f1f3, 0xff1e1f22, 0xff2b2d30},
    {QPalette::AlternateBase, 0xffe9f0f9, 0xffe9ebee, 0xff282b30, 0xff303236},
    {QPalette::Text, 0xff1b1d20, 0xff74777b, 0xfff0f0f0, 0xff9a9da2},
    {QPalette::PlaceholderText, 0xff5c6066, 0xff74777b, 0xffa9adb3, 0xff9a9da2},
    {QPalette::Button, 0xffe4e6e9, 0xffeaecee, 0xff303236, 0xff2e3033},
    {QPalette::ButtonText, 0xff1b1d20, 0xff74777b, 0xfff0f0f0, 0xff9a9da2},
    {QPalette::BrightText, 0xffb3261e, 0xff74777b, 0xffff9b90, 0xff9a9da2},
    {QPalette::Light, 0xffffffff, 0xffffffff, 0xff5a5d62, 0xff5a5d62},
    {QPalette::Midlight, 0xfff7f8f9, 0xfff7f8f9, 0xff45484d, 0xff45484d},
    {QPalette::Mid, 0xffb9bcc1, 0xffb9bcc1, 0xff222427, 0xff222427},
    {QPalette::Dark, 0xff9ea2a8, 0xff9ea2a8, 0xff17181a, 0xff17181a},
    {QPalette::Shadow, 0xff6c7075, 0xff6c7075, 0xff0b0c0d, 0xff0b0c0d},
    {QPalette::Highlight, 0xff1f5fa8, 0xffcfd3d8, 0xff2f6db8, 0xff44484e},
    {QPalette::HighlightedText, 0xffffffff, 0xff62656a, 0xffffffff, 0xffa9acb1},
    {QPalette::Link, 0xff0b57a4, 0xff74777b, 0xff8ab8f0, 0xff9a9da2},
    {QPalette::LinkVisited, 0xff6a3d9a, 0xff74777b, 0xffc7a6e8, 0xff9a9da2},
    {QPalette::ToolTipBase, 0xfffffbe8, 0xfffffbe8, 0xff3f434a, 0xff3f434a},
    {QPalette::ToolTipText, 0xff1b1d20, 0xff1b1d20, 0xfff0f0f0, 0xfff0f0f0},
};

/// The relative luminance of the web content accessibility guidelines.
double luminance(const QColor& color) {
    const auto part = [](float value) {
        return value <= 0.03928F ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

} // namespace

Colors colorsNamed(QStringView name) {
    constexpr std::pair<QLatin1StringView, Colors> names[] = {{QLatin1StringView("light"), Colors::light},
                                                              {QLatin1StringView("dark"), Colors::dark}};
    const auto trimmed = name.trimmed();
    for (const auto& [known, colors] : names) {
        if (trimmed.compare(known, Qt::CaseInsensitive) == 0)
            return colors;
    }
    return Colors::desktop;
}

QPalette ownPalette(Colors colors) {
    const bool isDark = colors == Colors::dark;
    QPalette palette;
    for (const auto& row : colorRows) {
        palette.setColor(row.role, QColor::fromRgb(isDark ? row.dark : row.light));
        palette.setColor(QPalette::Disabled, row.role,
                         QColor::fromRgb(isDark ? row.darkDisabled : row.lightDisabled));
    }
    return palette;
}

double contrast(const QColor& left, const QColor& right) {
    const double first = luminance(left) + 0.05;
    const double second = luminance(right) + 0.05;
    return std::max(first / second, second / first);
}

QColor mixed(const QColor& first, const QColor& second, double share) {
    const auto part = [share](int from, int to) { return static_cast<int>(from + (to - from) * share); };
    return QColor(part(first.red(), second.red()), part(first.green(), second.green()),
                  part(first.blue(), second.blue()));
}

QColor readableOn(const QList<QColor>& grounds, const QColor& wanted, double least) {
    const auto lowest = [&grounds](const QColor& color) {
        double found = 21;
        for (const auto& ground : grounds)
            found = std::min(found, contrast(color, ground));
        return found;
    };
    const auto end = QColor(lowest(Qt::black) >= lowest(Qt::white) ? Qt::black : Qt::white);
    constexpr int steps = 10;
    for (int step = 0; step < steps; ++step) {
        if (const auto color = mixed(wanted, end, static_cast<double>(step) / steps); lowest(color) >= least)
            return color;
    }
    return end;
}

} // namespace kelvane
