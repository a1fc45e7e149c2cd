#pragma once

#include <QColor>
#include <QList>
#include <QPalette>
#include <QStringView>

namespace kelvane {

/// Whose colours the program has: those of the desktop, or its own.
enum class Colors { desktop, light, dark };

/// The least contrast of letters to what lies under them.
constexpr double leastLetterContrast = 4.5;
/// That of outlines, and of the letters on disabled controls.
constexpr double leastContrast = 3;

/// What a setting names; anything unknown, and nothing, counts as the desktop's.
Colors colorsNamed(QStringView name);

/// The program's own palette, light or dark.
QPalette ownPalette(Colors colors);

/// Changes the colours of a palette, as little as needed, so that letters can be read on their grounds, those
/// that are selected, too, and every second row of a list can be told from its neighbours.
void makeReadable(QPalette& palette);

/// The contrast of two colours by their relative luminance: from 1, for the same, to 21, for black and white.
double contrast(const QColor& left, const QColor& right);

/// The colour nearest to `wanted`, on the way to black or white, that has at least that contrast with all of
/// `grounds`; black or white where no colour has.
QColor readableOn(const QList<QColor>& grounds, const QColor& wanted, double least);

/// `share` of the second colour, from 0 to 1, in the first one.
QColor mixed(const QColor& first, const QColor& second, double share);

} // namespace kelvane
