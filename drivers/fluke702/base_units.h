#pragma once

#include <QString>

namespace kelvane::Module702Interface {

/// A value of a unit in the calibrator's base unit (V, A, Ohms, bar, Hz), in 32 bits. Values of a unit that
/// is a base unit, or that the calibrator takes as it is, stay. Error 6 for one that 32 bits can't hold.
float toBaseUnit(float value, const QString& unit);

/// The way back, for results. Values in "KHz", "MHz" and "mbar" stay in the base unit. Error 6 as above.
float fromBaseUnit(float value, const QString& unit);

} // namespace kelvane::Module702Interface
