#pragma once

#include "data/tolerances/checked_arithmetic.h"

#include <QStringView>

#include <algorithm>
#include <span>

namespace kelvane {

/// How values of a unit stand to the base unit (V, A, Ohms, bar, Hz) in which a link library takes and gives
/// them. Factor and divisor, one of them 1: the quotient by 1000 is not the product with 0.001.
struct BaseUnit {
    /// A calibrator may take values in the base unit and give them back in another, or the other way round.
    enum class Scaled { bothWays, downloadOnly, uploadOnly };

    QStringView unit;
    float times;
    float over;
    Scaled scaled = Scaled::bothWays;
};

/// The row of a unit that is scaled in this direction; null for one whose values stay as they are.
inline const BaseUnit* scaledUnit(std::span<const BaseUnit> units, QStringView unit,
                                  BaseUnit::Scaled otherWay) {
    const auto found = std::ranges::find(units, unit, &BaseUnit::unit);
    return found == units.end() || found->scaled == otherWay ? nullptr : &*found;
}

/// A value of a unit in the calibrator's base unit, computed in its own width. Error 6 for one that the width
/// can't hold.
template <class Float>
Float toBaseUnit(std::span<const BaseUnit> units, Float value, QStringView unit) {
    const auto* row = scaledUnit(units, unit, BaseUnit::Scaled::uploadOnly);
    return row ? finite(value * Float{row->times} / Float{row->over}) : value;
}

/// The reverse conversion, for results. Error 6 as above.
template <class Float>
Float fromBaseUnit(std::span<const BaseUnit> units, Float value, QStringView unit) {
    const auto* row = scaledUnit(units, unit, BaseUnit::Scaled::downloadOnly);
    return row ? finite(value * Float{row->over} / Float{row->times}) : value;
}

} // namespace kelvane
