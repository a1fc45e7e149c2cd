#include "ui/colors.h"

#include "testkit/fixtures.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr double readable = 4.5;
constexpr double readableWhileDisabled = 3;

/// Letters, and what lies under them.
struct Pair {
    QPalette::ColorRole letters;
    QPalette::ColorRole ground;
};

constexpr Pair pairs[] = {
    {QPalette::WindowText, QPalette::Window},
    {QPalette::Text, QPalette::Base},
    {QPalette::Text, QPalette::AlternateBase},
    {QPalette::Text, QPalette::Window},
    {QPalette::ButtonText, QPalette::Button},
    {QPalette::HighlightedText, QPalette::Highlight},
    {QPalette::Link, QPalette::Base},
    {QPalette::Link, QPalette::Window},
    {QPalette::LinkVisited, QPalette::Base},
    {QPalette::LinkVisited, QPalette::Window},
    {QPalette::ToolTipText, QPalette::ToolTipBase},
    {QPalette::PlaceholderText, QPalette::Base},
    {QPalette::BrightText, QPalette::Base},
    {QPalette::BrightText, QPalette::Window},
    {QPalette::PlaceholderText, QPalette::AlternateBase},
};

double contrastOf(const QPalette& palette, QPalette::ColorGroup group, const Pair& pair) {
    return contrast(palette.color(group, pair.letters), palette.color(group, pair.ground));
}

} // namespace

TEST(OwnPalettes, AllLettersCanBeReadOnTheirGround) {
    for (const auto colors : {Colors::light, Colors::dark}) {
        const auto palette = ownPalette(colors);
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            for (const auto& pair : pairs)
                EXPECT_GE(contrastOf(palette, group, pair), readable)
                    << static_cast<int>(colors) << ' ' << pair.letters << " on " << pair.ground;
        }
    }
}

TEST(OwnPalettes, DisabledLettersCanBeReadAndAreTold) {
    for (const auto colors : {Colors::light, Colors::dark}) {
        const auto palette = ownPalette(colors);
        for (const auto& pair : pairs) {
            const auto disabled = contrastOf(palette, QPalette::Disabled, pair);
            EXPECT_GE(disabled, readableWhileDisabled)
                << static_cast<int>(colors) << ' ' << pair.letters << " on " << pair.ground;
        }
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::Base})
            EXPECT_NE(palette.color(QPalette::Disabled, role), palette.color(QPalette::Active, role));
    }
}

namespace {

/// What desktops have: plain, grey in grey, dark with links that can't be read, and all in one colour.
QList<QPalette> desktopPalettes() {
    QPalette plain(QColor(239, 239, 239));
    plain.setColor(QPalette::Highlight, QColor(48, 140, 198));
    plain.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        plain.setColor(QPalette::Disabled, role, QColor(190, 190, 190));
    QPalette greyInGrey(QColor(227, 227, 227));
    greyInGrey.setColor(QPalette::Base, QColor(196, 196, 196));
    greyInGrey.setColor(QPalette::AlternateBase, QColor(143, 143, 143));
    greyInGrey.setColor(QPalette::Text, QColor(92, 91, 90));
    QPalette dark(QColor(45, 45, 48));
    dark.setColor(QPalette::Base, QColor(30, 30, 32));
    dark.setColor(QPalette::AlternateBase, QColor(30, 30, 32));
    dark.setColor(QPalette::Link, Qt::blue);
    const QPalette oneColor(Qt::red, Qt::red, Qt::red, Qt::red, Qt::red, Qt::red, Qt::red, Qt::red, Qt::red);
    return {plain, greyInGrey, dark, oneColor};
}

} // namespace

TEST(ReadablePalettes, HaveLettersThatCanBeReadOnTheirGround) {
    constexpr QPalette::ColorRole notChanged[] = {QPalette::PlaceholderText, QPalette::BrightText};
    for (int number = 0; auto palette : desktopPalettes()) {
        makeReadable(palette);
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const double least = group == QPalette::Disabled ? readableWhileDisabled : readable;
            for (const auto& pair : pairs) {
                if (std::ranges::find(notChanged, pair.letters) == std::end(notChanged)) {
                    EXPECT_GE(contrastOf(palette, group, pair), least)
                        << number << ' ' << group << ' ' << pair.letters << " on " << pair.ground;
                }
            }
            const auto rows = contrastOf(palette, group, {QPalette::AlternateBase, QPalette::Base});
            EXPECT_GT(rows, 1) << number;
            EXPECT_LT(rows, 1.5) << number;
        }
        ++number;
    }
}

TEST(ReadablePalettes, KeepTheColorsThatCanBeRead) {
    for (const auto colors : {Colors::light, Colors::dark}) {
        auto palette = ownPalette(colors);
        makeReadable(palette);
        EXPECT_EQ(palette, ownPalette(colors));
    }
    auto plain = desktopPalettes().first();
    makeReadable(plain);
    EXPECT_EQ(plain.color(QPalette::Window), QColor(239, 239, 239));
    EXPECT_EQ(plain.color(QPalette::Text), QColor(Qt::black));
    // A little darker, and still that blue.
    EXPECT_NEAR(plain.color(QPalette::Highlight).hue(), QColor(48, 140, 198).hue(), 3);
    EXPECT_GT(plain.color(QPalette::Highlight).blue(), 150);
}

TEST(OwnPalettes, EveryRoleIsGivenAndTheyAreLightAndDark) {
    const auto light = ownPalette(Colors::light);
    const auto dark = ownPalette(Colors::dark);
    EXPECT_GT(light.color(QPalette::Window).lightness(), light.color(QPalette::WindowText).lightness());
    EXPECT_LT(dark.color(QPalette::Window).lightness(), dark.color(QPalette::WindowText).lightness());
    for (const auto& palette : {light, dark}) {
        for (int role = 0; role < QPalette::NColorRoles; ++role) {
            if (role != QPalette::NoRole) {
                EXPECT_TRUE(palette.isBrushSet(QPalette::Active, static_cast<QPalette::ColorRole>(role)))
                    << role;
            }
        }
        EXPECT_NE(palette.color(QPalette::AlternateBase), palette.color(QPalette::Base));
    }
}

TEST(ColorsSettings, AnUnknownNameIsTheDesktops) {
    const std::pair<QString, Colors> rows[] = {
        {u"light"_s, Colors::light},     {u"dark"_s, Colors::dark}, {u" Dark "_s, Colors::dark},
        {u"desktop"_s, Colors::desktop}, {{}, Colors::desktop},     {u"purple"_s, Colors::desktop},
        {u"darkish"_s, Colors::desktop},
    };
    for (const auto& [name, expected] : rows)
        EXPECT_EQ(colorsNamed(name), expected) << name.toStdString();
}

TEST(Contrasts, AreThoseOfTheGuidelines) {
    EXPECT_DOUBLE_EQ(contrast(Qt::black, Qt::white), 21);
    EXPECT_DOUBLE_EQ(contrast(Qt::white, Qt::black), 21);
    EXPECT_DOUBLE_EQ(contrast(Qt::red, Qt::red), 1);
    EXPECT_NEAR(contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
    EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

TEST(ReadableColors, KeepTheWantedOneWhereItDoesAndMoveAwayFromTheGroundOtherwise) {
    const QColor blue(31, 95, 168);
    EXPECT_EQ(readableOn({Qt::white}, blue, 3), blue);
    const auto onDark = readableOn({QColor(30, 31, 34), QColor(43, 45, 48)}, blue, 3);
    EXPECT_NE(onDark, blue);
    EXPECT_GE(contrast(onDark, QColor(43, 45, 48)), 3);
    EXPECT_GT(onDark.blue(), onDark.red());
    EXPECT_EQ(readableOn({Qt::black, Qt::white}, blue, 21), QColor(Qt::black));
}

} // namespace kelvane::testing
