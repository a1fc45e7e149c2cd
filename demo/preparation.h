#pragma once

#include "demo/demo_workstation.h"

namespace kelvane::demo {

/// Prepares procedures: a strategy, a test message, the calibration parameters of a transmitter that has
/// none, and a task package that names it. Every screen is closed again.
inline const QString procedureWriter = QStringLiteral("cnguyen");
void prepareTransmitter(DemoWorkstation& station);

/// The transmitter is calibrated with a Fluke 702, on a day of its own; what was prepared is found again in
/// the calibrator and in the record.
void calibratePrepared(DemoWorkstation& station, const QString& memory, const QDate& day);

} // namespace kelvane::demo
