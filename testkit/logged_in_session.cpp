#include "testkit/logged_in_session.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

LoggedInSession::LoggedInSession(UserInterface& ui, const QString& user, ConnectionFactory connections)
    : session({ui, clock, settings}, std::move(connections)) {
    session.SessionDataSource = database.dsn();
    session.SessionDateFormat = u"MM/DD/YYYY"_s;
    session.SessionDbVersion = 6;
    logIn(user);
}

void LoggedInSession::logIn(const QString& user) {
    auto& connection = sharedConnection(session);
    if (connection.isOpen())
        connection.close();
    connection.open(database.connectionString(), user, u"kelvane"_s);
    session.SessionConnected = true;
    session.SessionUser = user;
    session.BCalP = value(u"select b_cal_p from mt.dbconfig"_s) == u"1";
    session.SessionOwner = u"MT"_s;
    session.SessionLevel = 6;
    if (user != u"MT") {
        session.SessionOwner = value(u"select i4240 from mt.userlist where mtuser = '"_s + user + u'\'');
        session.SessionLevel =
            value(u"select mtlevel from mt.userlist where mtuser = '"_s + user + u'\'').toShort();
    }
}

void LoggedInSession::execute(const QString& statement) {
    database.execute(sharedConnection(session), statement);
}

QStringList LoggedInSession::rows(const QString& query, int columns) {
    return database.rows(sharedConnection(session), query, columns);
}

QString LoggedInSession::value(const QString& query) {
    const auto found = rows(query);
    EXPECT_EQ(found.size(), 1) << query.toStdString();
    return found.value(0);
}

QStringList LoggedInSession::values(const QString& query) {
    auto found = rows(query);
    found.sort();
    return found;
}

QString LoggedInSession::daysAgo(int days) const {
    return clock.now().addDays(-days).toString(u"yyyy-MM-dd HH:mm:ss"_s);
}

} // namespace kelvane::testing
