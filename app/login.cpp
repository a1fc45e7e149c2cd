#include "app/login.h"

#include "app/menu_options.h"
#include "data/assets/in_use.h"
#include "data/routine.h"
#include "platform/error_report.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"

#include <QScopeGuard>

#include <array>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// Group and level of the user. The database owner needs no row in the user list.
void readUser(Session& session, const QString& name) {
    const auto user = sqlText(name);
    const auto query = u"select (select i4240 from mt.userlist where mtuser = " + user +
                       u"),(select mtlevel  from mt.userlist where mtuser = " + user + u")";
    const auto rows = sharedConnection(session).select(requireIntact(query), Rows::first);
    if (toUpperCase(name) == u"MT") {
        session.SessionOwner = u"MT"_s;
        session.SessionLevel = 6;
        return;
    }
    rows->next();
    session.SessionOwner = notNull(rows->value(0));
    session.SessionLevel = roundToShort(numericValue(notNull(rows->value(1))));
}

/// The date form of a code; a code that is not known leaves it as it was.
void takeDateCode(Session& session, double code) {
    static constexpr std::array<QStringView, 3> formats{u"MM/DD/YYYY", u"DD/MM/YYYY", u"YYYY/MM/DD"};
    for (std::size_t i = 0; i < formats.size(); ++i) {
        if (code == static_cast<double>(i))
            session.SessionDateFormat = formats[i].toString();
    }
}

/// 0 and 1 set a flag; any other value leaves it as it was.
void takeFlag(bool& flag, double value) {
    if (value == 0 || value == 1)
        flag = value == 1;
}

void readSite(Session& session) {
    const auto rows = sharedConnection(session).select(
        u"select datecode,version,b_cal_4225,b_cal_4224,b_cal_p from mt.dbconfig"_s, Rows::first);
    rows->next();
    std::array<std::optional<QString>, 5> row;
    for (int column = 0; column < 5; ++column)
        row[static_cast<std::size_t>(column)] = rows->value(column);
    const auto number = [&](std::size_t column) { return numericValue(notNull(row[column])); };

    takeDateCode(session, number(0));
    takeFlag(session.BCal4225, number(2));
    takeFlag(session.BCal4224, number(3));
    takeFlag(session.BCalP, number(4));
    session.SessionDbVersion = roundToShort(number(1));
}

} // namespace

QString chosenDataSource(const Session& session) {
    const auto stored = ModuleGlobals::GetRegSetting(session, u"Workstation"_s, u"ODBC"_s);
    return stored.isEmpty() ? u"Calibration Data"_s : stored;
}

void logIn(Session& session, Menu& menu, const QString& username, const QString& password) {
    const auto name = trimBlanks(username);
    session.SessionDataSource = chosenDataSource(session);
    sharedConnection(session).open(u"DSN="_s + session.SessionDataSource, name, trimBlanks(password));
    ModuleGlobals::SaveRegSetting(session, u"Defaults"_s, u"Username"_s, username);
    session.SessionPassword = trimBlanks(password);
    session.SessionUser = name;
    session.SessionConnected = true;
    enableMenuForLogin(menu);
    readUser(session, name);
    readSite(session);
    ModuleGlobals::SetMenuOptions(session, menu);
    ModuleGlobals::ClearSystemTables(session);
}

void closeConnection(Session& session) {
    try {
        if (session.SharedConnection)
            session.SharedConnection->close();
    } catch (const Error&) {
        // The engine brings its files in order at the next open.
    }
}

void disconnectSession(Session& session) {
    if (!session.SessionConnected)
        return;
    // Released in any case: a connection that can't even be closed is of no more use.
    const auto released = qScopeGuard([&session] {
        session.SharedConnection.reset();
        session.SessionConnected = false;
    });
    Routine routine(session, u"MDIFormMain,mnuLogout"_s);
    routine.run([&session] { sharedConnection(session).close(); });
}

} // namespace kelvane
