#pragma once

#include "platform/engine_adapter.h"

namespace kelvane {

/// The adapter of SQLite. The data source names one file, which holds the accounts; every other "*.db" file
/// in its folder is an owner of that name and is attached when the connection opens.
class EmbeddedAdapter final : public EngineAdapter {
  public:
    /// Proves every file to be a database that can be written, checks the login, sets what the session needs.
    void opened(DriverLink& link, const QString& user, const QString& password) override;
    qint64 execute(DriverLink& link, const QString& statement) override;
    std::unique_ptr<RecordSet> select(DriverLink& link, const QString& statement, Rows rows) override;
    void beginTransaction(DriverLink& link) override;
    void commitTransaction(DriverLink& link) override;
    void rollBackTransaction(DriverLink& link) override;
    bool meansLost(const Error& error) const override;

  private:
    bool inTransaction_ = false;
};

} // namespace kelvane
