#include "ui/colors.h"

#include <algorithm>
#include <array>
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

/// Letters, and what they may lie on.
struct LetterRow {
    QPalette::ColorRole letters;
    std::array<QPalette::ColorRole, 3> grounds;
};

constexpr auto none = QPalette::NoRole;

constexpr LetterRow letterRows[] = {
    {QPalette::WindowText, {QPalette::Window, none, none}},
    {QPalette::Text, {QPalette::Base, QPalette::AlternateBase, QPalette::Window}},
    {QPalette::ButtonText, {QPalette::Button, none, none}},
    {QPalette::Link, {QPalette::Base, QPalette::Window, none}},
    {QPalette::LinkVisited, {QPalette::Base, QPalette::Window, none}},
    {QPalette::ToolTipText, {QPalette::ToolTipBase, none, none}},
    // Here the ground gives way: letters in another colour would no longer say "selected".
    {QPalette::Highlight, {QPalette::HighlightedText, none, none}},
};

/// Rows differ by a shade; a strong one would look like a selection.
constexpr double mostRowContrast = 1.5;

double lowestContrast(const QColor& color, const QList<QColor>& grounds) {
    double lowest = 21;
    for (const auto& ground : grounds)
        lowest = std::min(lowest, contrast(color, ground));
    return lowest;
}

/// Changes a colour of a palette unless it can be read on others of it.
void setReadable(QPalette& palette, QPalette::ColorGroup group, const LetterRow& row, double least) {
    QList<QColor> grounds;
    for (const auto ground : row.grounds) {
        if (ground != none)
            grounds << palette.color(group, ground);
    }
    const auto letters = palette.color(group, row.letters);
    if (lowestContrast(letters, grounds) < least)
        palette.setColor(group, row.letters, readableOn(grounds, letters, least));
}

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

void makeReadable(QPalette& palette) {
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const double least = group == QPalette::Disabled ? leastContrast : leastLetterContrast;
        const auto ground = palette.color(group, QPalette::Base);
        const auto letters = readableOn({ground}, palette.color(group, QPalette::Text), least);
        const auto alternate = palette.color(group, QPalette::AlternateBase);
        if (alternate == ground || contrast(ground, alternate) > mostRowContrast ||
            contrast(letters, alternate) < least)
            palette.setColor(group, QPalette::AlternateBase, mixed(ground, letters, 0.06));
        for (const auto& row : letterRows)
            setReadable(palette, group, row, least);
    }
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
    const bool isBlackBest = lowestContrast(Qt::black, grounds) >= lowestContrast(Qt::white, grounds);
    const QColor end(isBlackBest ? Qt::black : Qt::white);
    constexpr int steps = 20;
    for (int step = 0; step < steps; ++step) {
        const auto color = mixed(wanted, end, static_cast<double>(step) / steps);
        if (lowestContrast(color, grounds) >= least)
            return color;
    }
    return end;
}

} // namespace kelvane
