#pragma once

#include "drivers/torquestar/qt_serial_port.h"
#include "testkit/fixtures.h"
#include "tests/drivers/torquestar/pseudo_terminal.h"

#include <ctime>

namespace kelvane::testing {

inline double processorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// The real port on a pseudo terminal.
class RealPort : public RecordedSession {
  protected:
    RealPort() { settings.setValue(QStringLiteral("Ports"), QStringLiteral("COM1"), line.device()); }

    void open() {
        port.setSettings(QStringLiteral("9600,N,8,1"));
        port.setPortOpen(true);
    }

    /// All that comes, up to so many bytes.
    QByteArray receive(qsizetype count) {
        QByteArray bytes;
        for (int i = 0; i < 500 && bytes.size() < count; ++i)
            bytes += port.input();
        return bytes;
    }

    PseudoTerminal line;
    QtSerialPort port{settings};
};

} // namespace kelvane::testing
