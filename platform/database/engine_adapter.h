#pragma once

#include "platform/database/connection.h"
#include "platform/database/lock_wait.h"

#include <QStringList>

namespace kelvane {

/// What an engine adapter may ask of the plain driver connection below it.
class DriverLink {
  public:
    virtual ~DriverLink() = default;
    /// Gives the number of rows that the statement has changed; -1 where the driver does not report it.
    virtual qint64 execute(const QString& statement) = 0;
    virtual std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) = 0;
};

/// What stands between a statement's text and an engine's driver. It changes only what the engine would not
/// take or would take otherwise; what it does not understand it passes on.
class EngineAdapter {
  public:
    virtual ~EngineAdapter() = default;
    /// Settings of the engine's driver beyond those of the data source, as the end of a connection string
    /// such as ";Timeout=50"; empty for any other engine.
    virtual QString driverSettings() const { return {}; }
    /// Called once the driver has connected: settings of the session, and the login where the engine has no
    /// accounts.
    virtual void prepareSession(DriverLink& link, const QString& user, const QString& password) = 0;
    /// An error that leaves the connection unusable is thrown with `connectionLost`.
    /// Gives the number of rows as `Connection::execute` does.
    virtual qint64 execute(DriverLink& link, const QString& statement) = 0;
    virtual std::unique_ptr<RecordSet> select(DriverLink& link, const QString& statement, Rows rows) = 0;
    /// A transaction around statements that would commit each by itself; engines that keep the commits of the
    /// texts do nothing here.
    virtual void beginTransaction(DriverLink&) {}
    virtual void commitTransaction(DriverLink&) {}
    virtual void rollBackTransaction(DriverLink&) {}
    /// A lock among the workstations of the database, as `Connection::lock` has it.
    virtual void lock(DriverLink&, const QString& /*name*/) {}
    virtual void unlock(DriverLink&, const QString& /*name*/) {}
    /// Makes the engine refuse what writes, as `Connection::refuseWriting` has it.
    virtual void refuseWriting(DriverLink&) {}
    /// Native error codes and SQLSTATEs that mean that the connection is gone, beyond class 08.
    virtual bool isConnectionLoss(const Error& error) const = 0;
};

/// The adapter for a driver that calls its engine `dbmsName`: "SQLite" gets the embedded one, "PostgreSQL"
/// the shared one, any other the verbatim one.
std::unique_ptr<EngineAdapter> engineAdapterFor(const QString& dbmsName, WhileWaiting whileWaiting = {});

/// What `driverSettings` of the adapter will be, as far as the driver's name or file tells it: they then
/// count from the first connection on. Empty for an unknown driver.
QString settingsOfDriver(const QString& driver);

} // namespace kelvane
