#pragma once

#include "drivers/serial_ports.h"
#include "platform/communication_log.h"

namespace kelvane {

/// The port's name and its device, or why there is none: "COM1: /dev/ttyUSB0, maker FTDI, serial number
/// A50285BI".
QString portDescription(const SerialPorts& ports, int number);

/// Why there is no device behind port COM`number`, for a user.
QString noDeviceReason(const SerialPorts& ports, int number);

/// Who else has a device, and whether this user may open it: a sentence for each, none when nothing is to be
/// said.
QStringList deviceObstacles(const QString& device);

/// What is known of a calibrator's port, in sentences: which device it is, whether it could be opened and why
/// not, and who else has it.
QString portState(const SerialPorts& ports, int number, const std::optional<LineOpening>& opening);

} // namespace kelvane
