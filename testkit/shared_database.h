#pragma once

#include "platform/database/engine_adapter.h"
#include "testkit/open_connections.h"

namespace kelvane::testing {

/// True when this program's tests work on the shared engine: KELVANE_TEST_ENGINE is "shared". Its server, a
/// private one, stands in the folder KELVANE_TEST_SERVER.
bool usesSharedEngine();

/// Why there is no server for the tests; empty when there is one.
QString missingServer();

/// Runs a script of servers to its end, which has to be a good one.
void runServerScript(const QString& script, const QStringList& arguments);

/// A database on the tests' server, a copy of `kelvane_template_<source>`, and a data source of its own for
/// it. The copy goes with this, and with the next start of the server at the latest.
class SharedDatabase {
  public:
    /// "demo" is the demonstration database that `tests/shared_server.sh` has prepared.
    explicit SharedDatabase(const QString& source = QStringLiteral("demo"));
    ~SharedDatabase();
    SharedDatabase(const SharedDatabase&) = delete;
    SharedDatabase& operator=(const SharedDatabase&) = delete;

    /// The name of the data source.
    QString dsn() const { return dsn_; }
    QString connectionString() const { return QStringLiteral("DSN=") + dsn_; }
    /// A new connection, opened.
    std::unique_ptr<Connection> connect(const QString& user = QStringLiteral("jdoe"),
                                        const QString& password = QStringLiteral("kelvane")) const;
    /// A connection that may do everything; there is one, opened when it is first asked for.
    Connection& owner() const;
    /// Another one of its driver, without an adapter.
    std::unique_ptr<DriverLink> driver() const;
    /// Ends all connections, and lets nobody connect.
    void refuseConnections() const;
    void allowConnections() const;
    /// Ends all connections to the database at the server, but for the owner's, and waits for their end.
    void endConnections() const;

    /// Ends the server as a power failure would, and starts it again. For `CrashingServer` alone: other tests
    /// have no part in it.
    void crashServer() const;

    /// How many this program has made.
    static int count();

  private:
    QString name_;
    QString dsn_;
    mutable std::unique_ptr<Connection> owner_;
};

} // namespace kelvane::testing
