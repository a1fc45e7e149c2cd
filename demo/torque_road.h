#pragma once

#include "demo/desk.h"

#include <QDate>

namespace kelvane::demo {

/// The torque tools, from the list to the records. `memory` is the calibrator's. Throws `Difference` as soon
/// as something is not as it has to be. Gives the day on which the technician was in the plant.
QDate goTorqueRoad(Desk& desk, const QString& memory);

} // namespace kelvane::demo
