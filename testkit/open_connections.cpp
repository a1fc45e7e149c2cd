#include "testkit/open_connections.h"

#include "platform/database/embedded_dialect.h"
#include "platform/database/odbc_connection.h"
#include "platform/database/odbc_link.h"
#include "platform/database/shared_dialect.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class OpenConnection final : public OdbcConnection {
  public:
    OdbcLink& driver() { return link(); }
};

/// The driver below the connection when the adapter would refuse the statement; null otherwise.
DriverLink* driverFor(Connection& connection, const QString& statement) {
    auto* open = dynamic_cast<OpenConnection*>(&connection);
    if (!open)
        return nullptr;
    const bool isEmbedded = open->driver().dbmsName() == u"SQLite"_s;
    try {
        isEmbedded ? embeddedBatch(statement) : sharedBatch(statement);
        return nullptr;
    } catch (const Error&) {
        return &open->driver();
    }
}

} // namespace

ConnectionFactory openConnections() {
    return [] { return std::make_unique<OpenConnection>(); };
}

void executeAnything(Connection& connection, const QString& statement) {
    if (auto* driver = driverFor(connection, statement))
        driver->execute(statement);
    else
        connection.execute(statement);
}

QStringList queryRows(Connection& connection, const QString& query, int columns) {
    auto* driver = driverFor(connection, query);
    QStringList found;
    for (const auto rows = driver ? driver->select(query, Rows::all) : connection.select(query);
         rows->next();) {
        QStringList row;
        for (int column = 0; column < columns; ++column)
            row << rows->value(column).value_or(u"(null)"_s);
        found << row.join(u'|');
    }
    return found;
}

} // namespace kelvane::testing
