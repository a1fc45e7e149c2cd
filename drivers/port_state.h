#pragma once

#include "drivers/serial_ports.h"
#include "platform/communication_log.h"

namespace kelvane {

/// The port's name and its device, or why there is none: "COM1: /dev/ttyUSB0, maker FTDI, serial number
/// A50285BI".
QString portDescription(const SerialPorts& ports, int number);
/// The same in the words of a log, which are alike in every language.
QString loggedPort(const SerialPorts& ports, int number);

/// Why there is no device behind port COM`number`, for a user.
QString noDeviceReason(const SerialPorts& ports, int number);

/// Who else has a device, and whether this user may open it: a sentence for each, none when nothing is to be
/// said.
QStringList deviceObstacles(const QString& device);

/// An attempt to open port COM`number`, which succeeds unless there is a refusal. Its device stays empty when
/// the settings can't be read.
LineOpening openingOf(const SerialPorts& ports, int number, const QString& refusal = {});

/// What is known of a calibrator's port, in sentences: which device it is, whether it could be opened and why
/// not, and who else has it. A last opening of another port or device says nothing of this one.
QString portState(const SerialPorts& ports, int number, const std::optional<LineOpening>& last);

} // namespace kelvane
