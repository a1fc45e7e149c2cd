#pragma once

#include "demo/desk.h"

namespace kelvane::demo {

/// Who prepares procedures, and what he makes: a strategy, a test message, the calibration parameters of a
/// transmitter that has none, and a task package that names it. Every screen is closed again.
inline const QString procedureWriter = QStringLiteral("cnguyen");
void prepareTransmitter(Desk& desk);

/// The transmitter goes the road with a Fluke 702, on a day of its own; what was prepared is found again in
/// the calibrator and in the record.
void calibratePrepared(Desk& desk, const QString& memory, const QDate& day);

} // namespace kelvane::demo
