#pragma once

#include <QtGlobal>

namespace kelvane {

/// Reports are measured and painted in units of 1/1200 inch, whatever the device: lines break, and pages end,
/// at the same place everywhere.
constexpr double unitsPerInch = 1200;

constexpr double unitsOfMillimetres(double millimetres) {
    return millimetres / 25.4 * unitsPerInch;
}

/// Whole units, as fonts take them.
constexpr int unitsOfPoints(double points) {
    return qRound(points / 72 * unitsPerInch);
}

} // namespace kelvane
