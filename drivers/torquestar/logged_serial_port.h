#pragma once

#include "drivers/serial_ports.h"
#include "drivers/torquestar/serial_port.h"
#include "platform/communication_log.h"

#include <memory>

namespace kelvane {

/// The serial port, with a log of what goes over it and of how it was opened. It looks into the settings
/// whether to log when the number of the port is set, with which each exchange begins. Looks at a line on
/// which nothing has come are not logged.
///
/// The reason why the port can't be opened also says who else has the device, where that is known.
std::unique_ptr<SerialPort> loggedSerialPort(SerialPort& real, CommunicationLog& log,
                                             const SerialPorts& ports);

/// Bytes as the log shows them: in hexadecimal digits, and as text with the names of control characters, such
/// as "02 54 30 | <STX>T0".
QString loggedBytes(const QByteArray& bytes);

} // namespace kelvane
