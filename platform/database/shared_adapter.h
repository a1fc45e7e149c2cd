#pragma once

#include "platform/database/engine_adapter.h"

namespace kelvane {

/// The adapter of PostgreSQL. Each owner is a schema of the database; accounts and rights are the server's
/// own. What the dialect has beyond the engine stands in the schema "dialect" of the database, and in the
/// words that `platform/database/shared_dialect.h` puts in.
///
/// Statements come from routines and stored conditions: what they have no reason to do is refused
/// (`platform/database/permissions.h`), beside what the server refuses the login. A statement or batch waits
/// for a lock of another workstation up to five seconds, and a longer one than a minute is ended by the
/// server.
class SharedAdapter final : public EngineAdapter {
  public:
    explicit SharedAdapter(WhileWaiting whileWaiting) : wait_(std::move(whileWaiting)) {}

    QString driverSettings() const override;
    /// Sets what the session needs; throws when the server's database is none of this program.
    void prepareSession(DriverLink& link, const QString& user, const QString& password) override;
    qint64 execute(DriverLink& link, const QString& statement) override;
    std::unique_ptr<RecordSet> select(DriverLink& link, const QString& statement, Rows rows) override;
    void beginTransaction(DriverLink& link) override;
    /// Throws when a statement of the transaction has failed: the server would report success and keep
    /// nothing.
    void commitTransaction(DriverLink& link) override;
    void rollBackTransaction(DriverLink& link) override;
    void lock(DriverLink& link, const QString& name) override;
    void unlock(DriverLink& link, const QString& name) override;
    void refuseWriting(DriverLink& link) override;
    bool isConnectionLoss(const Error& error) const override;

  private:
    /// Runs `statement`, of which nothing stays when it meets a lock. Within a transaction the server waits,
    /// since a failed try would end it.
    template <class Statement>
    auto run(Statement statement);

    LockWait wait_;
    bool inTransaction_ = false;
    bool failed_ = false;
};

} // namespace kelvane
