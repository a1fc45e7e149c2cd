#pragma once

#include "demo/demo_workstation.h"

#include <QDate>

namespace kelvane::demo {

/// The torque tools, from the list to the records. `memory` is the calibrator's. Throws `Difference` on the
/// first deviation. Gives the day on which the technician was in the plant.
QDate runTorqueDay(DemoWorkstation& station, const QString& memory);

} // namespace kelvane::demo
