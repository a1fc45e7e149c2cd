#pragma once

#include "benchmarks/plain_odbc.h"
#include "platform/database/connection.h"
#include "testkit/embedded_database.h"
#include "testkit/shared_database.h"

#include <memory>

namespace kelvane::bench {

/// A database for a benchmark, a copy of its own, on the shared engine when `testing::usesSharedEngine`, on
/// the embedded one otherwise.
class BenchDatabase {
  public:
    /// `source` is what to copy: a folder of the embedded engine, a prepared database of the tests' server;
    /// when empty, the demonstration database.
    explicit BenchDatabase(const QString& source = {});
    ~BenchDatabase();
    BenchDatabase(const BenchDatabase&) = delete;
    BenchDatabase& operator=(const BenchDatabase&) = delete;

    bool isShared() const { return shared_ != nullptr; }
    QString connectionString() const { return QStringLiteral("DSN=") + dsn(); }
    QString dsn() const { return shared_ ? shared_->dsn() : embedded_->dsn(); }
    /// A new connection of a technician.
    std::unique_ptr<Connection> connect() const;
    /// A new connection that may write everything.
    std::unique_ptr<Connection> connectAsOwner() const;
    /// Plain ODBC that finds every owner's tables; of a technician, with the driver settings of ours.
    std::unique_ptr<PlainOdbc> connectPlainly() const;
    QString plainConnectionString() const;

    struct EngineText {
        QString statement;
        Rows rows;
    };
    /// What the engine gets for a statement.
    QList<EngineText> engineTexts(const QString& statement, Rows rows) const;
    /// The present moment, as the engine has it.
    QString presentMoment() const;

    /// The name under which this database, as it is now, can be copied until it goes. Nothing may be
    /// connected to it.
    QString source();

  private:
    std::unique_ptr<testing::EmbeddedDatabase> embedded_;
    std::unique_ptr<testing::SharedDatabase> shared_;
    /// On the shared engine, where what is kept as a source is administrated from.
    std::unique_ptr<testing::SharedDatabase> administration_;
    QString source_;
};

} // namespace kelvane::bench
