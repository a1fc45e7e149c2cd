#pragma once

#include "benchmarks/watched.h"
#include "data/session.h"
#include "drivers/torquestar/qt_serial_port.h"
#include "platform/settings_store.h"
#include "tests/support/embedded_database.h"
#include "tests/support/quiet_operator.h"

#include <QProcess>
#include <QTemporaryDir>

namespace kelvane::bench {

/// A lab with 47 torque tools "TWB-01" … "TWB-47", alike, each with its transducer; a database of its own,
/// and a simulated calibrator in a process of its own.
class TorqueSite {
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
    QString makePackage(int tools);
    /// The technician takes each tool's readings.
    void carryOut(int tools);
    /// Plain ODBC fires the same statements, as the engine gets them; gives the seconds.
    double replayPlainly(const QStringList& statements, const QList<Rows>& rows);

    QString calibrator;
    testing::QuietOperator ui;
    SystemClock clock;
    QTemporaryDir folder;
    IniSettingsStore settings;
    testing::EmbeddedDatabase database;
    WatchedConnection::Log log;
    Session session;
    QtSerialPort port;

  private:
    void makeTools();

    Programs programs_;
    QProcess simulator_;
};

} // namespace kelvane::bench
