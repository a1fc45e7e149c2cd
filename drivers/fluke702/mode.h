#pragma once

#include "drivers/fluke_mode.h"

namespace kelvane::Module702Interface {

/// A side of an instrument in the words of the Fluke 702; `TempUnits` is "celsius" or "fahrenheit".
using Mode702 = FlukeMode;

/// The calibrator's mode for a unit text and, for temperatures, a sensor's name and its number of wires.
Mode702 get702mode(const QString& units, const QString& sensor, qint16 wires);

} // namespace kelvane::Module702Interface
