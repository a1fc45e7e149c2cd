#pragma once

#include "data/session.h"
#include "drivers/torquestar/qt_serial_port.h"
#include "testkit/fixtures.h"

namespace kelvane::testing {

/// What a workstation without windows is made of: session and line, over a database and a calibrator that are
/// there. The result template is that of the current folder.
class ConnectedWorkstation {
  public:
    /// `source` is the name of the data source, `device` that of the line.
    ConnectedWorkstation(UserInterface& ui, const Clock& clock, const QString& source, const QString& device,
                         ConnectionFactory connections);

    /// The start of the program, and the login.
    void start();
    /// As jdoe, with all that a login does. Throws the error that stopped it.
    void logIn();

    MemorySettings settings;
    Session session;
    QtSerialPort line;
};

} // namespace kelvane::testing
