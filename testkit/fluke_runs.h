#pragma once

#include "testkit/field_runs.h"

namespace kelvane::demo {

// What every Fluke carries out alike; `calibrator` is its asset number.

/// A pressure transmitter that fails, is adjusted, and passes.
FieldRun pressureTransmitterAsFound(const QString& calibrator);
FieldRun pressureTransmitterAsLeft(const QString& calibrator);
/// A resistance thermometer with three readings a point: one of them is out of tolerance and their mean is
/// not.
FieldRun thermometerReadThrice(const QString& calibrator);
/// A tolerance that grows with the reading.
FieldRun resistanceTransmitter(const QString& calibrator);
/// Its scale is read by the user.
FieldRun loopIndicator(const QString& calibrator);

} // namespace kelvane::demo
