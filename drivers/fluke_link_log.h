#pragma once

#include "drivers/serial_ports.h"
#include "platform/communication_log.h"

namespace kelvane {

/// What the log of a link library needs beside the calls: the log, and the ports by whose names the library
/// is opened.
struct LinkLog {
    CommunicationLog& log;
    const SerialPorts& ports;

    /// A command begins, whose library was asked what it lacks; gives that text back. `file` is the library
    /// that is loaded.
    QString begin(const QString& missing, const QString& file) const;
    /// The link was opened at a port such as "COM1", or could not be; `words` are those for the status.
    void setOpening(const QString& port, qint16 status, const QString& words) const;
};

} // namespace kelvane
