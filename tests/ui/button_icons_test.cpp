#include "ui/button_icons.h"

#include "testkit/fixtures.h"
#include "ui/colors.h"

#include <QApplication>
#include <QIcon>
#include <QImage>
#include <QScopeGuard>

namespace kelvane::testing {

namespace {

constexpr ButtonIcon allIcons[] = {ButtonIcon::accept,  ButtonIcon::cancel, ButtonIcon::add,
                                   ButtonIcon::remove,  ButtonIcon::save,   ButtonIcon::print,
                                   ButtonIcon::download};

QImage pictureOf(ButtonIcon icon, QIcon::Mode mode = QIcon::Normal, int side = 16, double scale = 1) {
    return buttonIcon(icon).pixmap(QSize(side, side), scale, mode).toImage();
}

/// The highest contrast of the lines to the ground of buttons.
double contrastOf(const QImage& picture, const QPalette& palette, QPalette::ColorGroup group) {
    double highest = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const auto pixel = picture.pixelColor(x, y);
            if (pixel.alphaF() > 0.9F)
                highest = std::max(highest, contrast(pixel, palette.color(group, QPalette::Button)));
        }
    }
    return highest;
}

} // namespace

TEST(ButtonIcons, AreSeenInLightAndDarkAndFainterWhileDisabled) {
    const auto before = QApplication::palette();
    const auto undo = qScopeGuard([&] { QApplication::setPalette(before); });
    for (const auto colors : {Colors::light, Colors::dark}) {
        const auto palette = ownPalette(colors);
        QApplication::setPalette(palette);
        for (const auto icon : allIcons) {
            const auto usable = contrastOf(pictureOf(icon), palette, QPalette::Active);
            const auto disabled = contrastOf(pictureOf(icon, QIcon::Disabled), palette, QPalette::Disabled);
            EXPECT_GE(usable, 4.5) << static_cast<int>(icon);
            EXPECT_GE(disabled, 3) << static_cast<int>(icon);
            EXPECT_LT(disabled, usable) << static_cast<int>(icon);
        }
    }
}

TEST(ButtonIcons, NoTwoAreTheSame) {
    for (const auto icon : allIcons) {
        for (const auto other : allIcons)
            EXPECT_EQ(pictureOf(icon) == pictureOf(other), icon == other);
    }
}

TEST(ButtonIcons, AreDrawnForTheResolutionOfTheDisplay) {
    const auto picture = pictureOf(ButtonIcon::save, QIcon::Normal, 16, 2);
    EXPECT_EQ(picture.size(), QSize(32, 32));
    EXPECT_NE(picture, pictureOf(ButtonIcon::save).scaled(32, 32));
}

} // namespace kelvane::testing
