#include "tests/database/demo_session.h"

#include "platform/odbc_connection.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

DemoSession::DemoSession() : session({ui, clock, settings}, odbcConnections()) {
    const auto now = QDateTime::currentDateTime();
    clock.set(now.date().year(), now.date().month(), now.date().day(), now.time().hour(), now.time().minute(),
              now.time().second());
    session.SessionDateFormat = u"MM/DD/YYYY"_s;
    session.SessionDbVersion = 6;
}

void DemoSession::logIn(const QString& user) {
    sharedConnection(session).open(database.connectionString(), user, u"kelvane"_s);
    session.SessionUser = user;
    session.SessionOwner = u"MT"_s;
    session.SessionLevel = 6;
    session.SessionConnected = true;
    session.BCalP = value(u"select b_cal_p from mt.dbconfig"_s) == u"1";
    if (user != u"MT") {
        session.SessionOwner = value(u"select i4240 from mt.userlist where mtuser = '"_s + user + u'\'');
        session.SessionLevel =
            value(u"select mtlevel from mt.userlist where mtuser = '"_s + user + u'\'').toShort();
    }
}

QStringList DemoSession::configuredAssets() {
    return rows(u"select i4201 from "_s + session.SessionOwner +
                u".inventory where mtag in (select mtag from mt.hvm_kv_tag_config) order by i4201"_s);
}

} // namespace kelvane::testing
