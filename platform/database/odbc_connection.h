#pragma once

#include "platform/database/connection.h"
#include "platform/database/engine_adapter.h"

namespace kelvane {

class OdbcLink;

/// A connection over a driver, through the adapter of its engine.
class OdbcConnection : public Connection {
  public:
    /// `whileWaiting` runs while a statement waits for another workstation.
    explicit OdbcConnection(WhileWaiting whileWaiting = {});
    ~OdbcConnection() override;

    void open(const QString& connectionString, const QString& user, const QString& password) override;
    void close() override;
    bool isOpen() const override;
    bool isLost() const override;
    qint64 execute(const QString& statement) override;
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override;
    void beginTransaction() override;
    void commitTransaction() override;
    void rollBackTransaction() override;
    void lock(const QString& name) override;
    void unlock(const QString& name) override;
    void refuseWriting() override;

  protected:
    /// The driver's connection below the adapter. Error 3709 while it is closed.
    OdbcLink& link() const;

  private:
    template <class Step>
    void run(Step step);

    WhileWaiting whileWaiting_;
    std::unique_ptr<EngineAdapter> adapter_;
    std::unique_ptr<OdbcLink> link_;
};

/// The factory of real connections over ODBC; the engine adapter is chosen from what the driver says of
/// itself.
ConnectionFactory odbcConnections(WhileWaiting whileWaiting = {});

/// The names of the data sources that the ODBC driver manager knows, in its order; empty when it gives no
/// environment.
QStringList odbcDataSources();

} // namespace kelvane
