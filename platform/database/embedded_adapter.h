#pragma once

#include "platform/database/embedded_files.h"
#include "platform/database/embedded_locks.h"
#include "platform/database/engine_adapter.h"

namespace kelvane {

/// The adapter of SQLite. The data source names one file, which holds the accounts; every other "*.db" file
/// in its folder is an owner of that name and is attached when the connection opens.
///
/// Statements come from routines and stored conditions: what they have no reason to do is refused
/// (`platform/database/permissions.h`). A login, statement or batch waits for a lock of another
/// workstation, up to five seconds; so does a lock that a routine takes (`Connection::lock`). A file that was
/// removed or replaced while it is in use ends the connection with the next statement.
class EmbeddedAdapter final : public EngineAdapter {
  public:
    explicit EmbeddedAdapter(WhileWaiting whileWaiting) : wait_(std::move(whileWaiting)) {}

    QString driverSettings() const override;
    /// Checks that every file is a database that can be written, checks the login, sets what the session
    /// needs.
    void prepareSession(DriverLink& link, const QString& user, const QString& password) override;
    qint64 execute(DriverLink& link, const QString& statement) override;
    std::unique_ptr<RecordSet> select(DriverLink& link, const QString& statement, Rows rows) override;
    void beginTransaction(DriverLink& link) override;
    void commitTransaction(DriverLink& link) override;
    void rollBackTransaction(DriverLink& link) override;
    void lock(DriverLink& link, const QString& name) override;
    /// Also on a lost connection: a lock that nobody needs keeps nobody waiting.
    void unlock(DriverLink& link, const QString& name) override;
    void refuseWriting(DriverLink& link) override;
    bool isConnectionLoss(const Error& error) const override;

  private:
    /// Runs `statement`, which has done nothing as long as another workstation holds its lock.
    template <class Statement>
    auto retryWhileBusy(Statement statement) const;
    void attach(DriverLink& link, const QString& file);
    qint64 executeTogether(DriverLink& link, const QStringList& statements) const;
    qint64 executeEach(DriverLink& link, const QStringList& statements) const;
    /// Throws the error of a lost connection when a file is no longer the one that was opened. An open
    /// transaction ends before: its locks on the other files would stay.
    void requireFiles(DriverLink& link);

    LockWait wait_;
    DatabaseFiles files_;
    QString mainFile_;
    EmbeddedLocks locks_;
    bool inTransaction_ = false;
};

} // namespace kelvane
