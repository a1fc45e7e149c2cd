#pragma once

#include "drivers/fluke_mode.h"

namespace kelvane::Module74xInterface {

/// A side of an instrument in the words of the Fluke 743 and 744; `TempUnits` is "Celsius" or "Fahrenheit".
using Mode74x = FlukeMode;

/// The calibrator's mode for a unit text and, for temperatures, a sensor's name and its number of wires,
/// which is not checked.
Mode74x get74xmode(const QString& units, const QString& sensor, qint16 wires);

} // namespace kelvane::Module74xInterface
