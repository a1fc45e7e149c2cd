#include "tests/support/database_session.h"

#include "platform/odbc_connection.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

DatabaseSession::DatabaseSession()
    : database(QString::fromUtf8(KELVANE_TEST_DATABASE)), session({ui, clock, settings}, odbcConnections()) {
    sharedConnection(session).open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
    session.SessionDataSource = database.dsn();
    session.SessionDateFormat = u"MM/DD/YYYY"_s;
    session.SessionDbVersion = 6;
    session.SessionConnected = true;
    session.SessionLevel = 1;
    become(u"jdoe"_s, u"MT"_s);
}

void DatabaseSession::become(const QString& user, const QString& owner) {
    session.SessionUser = user;
    session.SessionOwner = owner;
}

void DatabaseSession::execute(const QString& statement) {
    sharedConnection(session).execute(statement);
}

QStringList DatabaseSession::values(const QString& query) {
    QStringList found;
    for (const auto rows = sharedConnection(session).select(query); rows->next();)
        found << rows->value(0).value_or(u"(null)"_s);
    found.sort();
    return found;
}

QString DatabaseSession::daysAgo(int days) const {
    return clock.now().addDays(-days).toString(u"yyyy-MM-dd HH:mm:ss"_s);
}

} // namespace kelvane::testing
