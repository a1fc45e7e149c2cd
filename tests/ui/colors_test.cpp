#include "ui/colors.h"

#include "testkit/fixtures.h"

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
