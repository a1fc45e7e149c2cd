#pragma once

#include "simulators/fluke702/codes.h"
#include "simulators/fluke702/memory.h"

namespace kelvane::simulators::fluke702 {

// The settings of a state, one at a time. What is refused leaves the state as it was.

Code setTemperatureUnits(State& state, const QString& units);
Code setColdJunction(State& state, const QString& mode, float temperature);
Code setTemperatureStandard(State& state, const QString& standard);
Code setPressureUnits(State& state, const QString& units);
/// A sensor is read only in a mode that needs one, a value only in a frequency.
Code setSource(State& state, const QString& mode, const QString& sensor, float value, float amplitude);
Code setMeasure(State& state, const QString& mode, const QString& sensor);
/// A range beyond the widest is the widest.
Code setRange(State& state, qint16 automatic, float top);
Code setLoopPower(State& state, const QString& power);
/// Its ends may lie one percent beyond what the calibrator sources.
Code setSourceScale(State& state, float high, float low);
Code setMeasureScale(State& state, float high, float low);
Code setTolerance(State& state, float percent);

/// Whether the calibrator can source and measure this at the same time.
Code checkCombination(const State& state);

} // namespace kelvane::simulators::fluke702
