#include "platform/database/engine_adapter.h"

#include "platform/database/embedded_adapter.h"
#include "platform/database/shared_adapter.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// A site's own server: it takes the dialect as it stands, and the login was its own.
class VerbatimAdapter final : public EngineAdapter {
  public:
    void prepareSession(DriverLink&, const QString&, const QString&) override {}
    qint64 execute(DriverLink& link, const QString& statement) override {
        link.execute(statement);
        // Which statement of a batch a driver counts the rows of is its own affair.
        return -1;
    }
    std::unique_ptr<RecordSet> select(DriverLink& link, const QString& statement, Rows rows) override {
        return link.select(statement, rows);
    }
    bool isConnectionLoss(const Error& error) const override {
        // The server was shut down, crashed, or can't take connections now.
        return error.sqlState == "57P01"_L1 || error.sqlState == "57P02"_L1 || error.sqlState == "57P03"_L1;
    }
};

} // namespace

std::unique_ptr<EngineAdapter> engineAdapterFor(const QString& dbmsName, WhileWaiting whileWaiting) {
    if (dbmsName == "SQLite"_L1)
        return std::make_unique<EmbeddedAdapter>(std::move(whileWaiting));
    if (dbmsName == "PostgreSQL"_L1)
        return std::make_unique<SharedAdapter>(std::move(whileWaiting));
    return std::make_unique<VerbatimAdapter>();
}

QString settingsOfDriver(const QString& driver) {
    if (driver.contains("sqlite"_L1, Qt::CaseInsensitive))
        return EmbeddedAdapter({}).driverSettings();
    if (driver.contains("psqlodbc"_L1, Qt::CaseInsensitive) ||
        driver.contains("postgresql"_L1, Qt::CaseInsensitive))
        return SharedAdapter({}).driverSettings();
    return {};
}

} // namespace kelvane
