#pragma once

#include "benchmarks/bench_database.h"
#include "benchmarks/require.h"
#include "benchmarks/watched.h"
#include "data/session.h"
#include "platform/settings_store.h"
#include "testkit/quiet_operator.h"

#include <QTemporaryDir>

namespace kelvane::bench {

/// A workstation that is logged in to a copy of a database, and keeps the statements that it fires.
class Site {
  public:
    /// `databaseFrom` is as for `BenchDatabase`.
    explicit Site(const QString& databaseFrom);

    /// Makes instruments that are like another one but for their number, key and serial number, which are
    /// these names.
    void copyInstrument(const QString& like, const QStringList& names);
    /// Makes a task package of the instruments and gives its tag.
    QString makePackage(const QStringList& names);
    /// Ends the program when a failure was shown to the operator.
    void requireNoErrors() const;

    QTemporaryDir folder;
    testing::QuietOperator ui;
    SystemClock clock;
    IniSettingsStore settings;
    BenchDatabase database;
    WatchedConnection::Log log;
    Session session;
};

/// Plain ODBC that fires the statements of a site again, on a database of the site's kind.
class Replay {
  public:
    explicit Replay(const BenchDatabase& database);
    /// Fires them in their order, as the engine gets them; gives the seconds.
    double run(const WatchedConnection::Log& log);

  private:
    const BenchDatabase& database_;
    std::unique_ptr<PlainOdbc> plain_;
};

} // namespace kelvane::bench
