#pragma once

#include "benchmarks/site.h"
#include "drivers/torquestar/qt_serial_port.h"

#include <QProcess>

namespace kelvane::bench {

/// A lab with 47 torque tools "TWB-01" … "TWB-47", alike, each with its transducer; a database of its own,
/// and a simulated calibrator in a process of its own.
class TorqueSite : public Site {
  public:
    struct Programs {
        QString simulator;
        QString technician;
        QString database;
    };

    /// `line`: how the simulator keeps the line's pace.
    TorqueSite(const Programs& programs, const QStringList& line);
    ~TorqueSite();

    /// Makes a task package of the first tools and gives its tag; their standards are registered.
    QString packageOf(int tools);
    /// The technician takes each tool's readings.
    void carryOut(int tools);

    QtSerialPort port;

  private:
    Programs programs_;
    QProcess simulator_;
};

} // namespace kelvane::bench
