#pragma once

#include "testkit/embedded_database.h"
#include "testkit/shared_database.h"

#include <functional>

namespace kelvane::testing {

/// The demonstration database for a test that runs on each engine: a copy of its own, on the shared engine
/// when `usesSharedEngine`, on the embedded one otherwise. The suites that use it are those that their
/// program registers for both engines (`kelvane_test`); in another one it is a failure.
class TestDatabase {
  public:
    /// `embeddedSettings` are those of an embedded database's data source.
    explicit TestDatabase(const QHash<QString, QString>& embeddedSettings = {});

    /// The name of the data source.
    QString dsn() const { return shared_ ? shared_->dsn() : embedded_->dsn(); }
    QString connectionString() const { return QStringLiteral("DSN=") + dsn(); }
    /// A new connection, opened.
    std::unique_ptr<Connection> connect(const QString& user = QStringLiteral("jdoe"),
                                        const QString& password = QStringLiteral("kelvane")) const;

    /// Carries out a statement of a test, whatever the login's rights are: on the shared engine as the owner
    /// of the database, on the embedded one through `connection`.
    void execute(Connection& connection, const QString& statement) const;
    /// The same on another workstation.
    void executeElsewhere(const QString& statement) const;
    /// Gives the technicians and editors of owner MT a right that their level lacks, such as "update on
    /// mt.inventory". The embedded engine knows no rights.
    void grant(const QString& right) const;
    /// The rows of a query, as `queryRows` gives them.
    QStringList rows(Connection& connection, const QString& query, int columns = 1) const;

    /// What ends all connections at the server, but for the owner's; nothing for the embedded engine, which
    /// has no server.
    std::function<void()> connectionEnd() const;

    /// What sorts the rows of a table as they were inserted.
    QString rowOrder() const { return isShared() ? QStringLiteral("ctid") : QStringLiteral("rowid"); }
    /// The columns of a table of the owner MT, sorted.
    QStringList columnsOf(Connection& connection, const QString& table) const;
    /// What the engine's driver makes of a value of a real column: "25.0" or "25".
    QString realText(double value) const;
    /// The number with which the engine refuses a row that its table does not take.
    int refusedRow() const { return isShared() ? 1 : 19; }

    bool isShared() const { return shared_ != nullptr; }
    /// The database in the form of its engine; for tests that ask which it is.
    const EmbeddedDatabase& embedded() const { return *embedded_; }
    const SharedDatabase& shared() const { return *shared_; }

  private:
    std::unique_ptr<EmbeddedDatabase> embedded_;
    std::unique_ptr<SharedDatabase> shared_;
};

} // namespace kelvane::testing
