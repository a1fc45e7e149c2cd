#include "data/session_values.h"

#include "data/routine.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"

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

DatabaseValues databaseValuesOf(const Session& session) {
    return {session.SessionOwner,
            session.SessionLevel,
            session.SessionDateFormat,
            session.SessionDbVersion,
            session.BCal4225,
            session.BCal4224,
            session.BCalP};
}

void setDatabaseValues(Session& session, const DatabaseValues& values) {
    session.SessionOwner = values.owner;
    session.SessionLevel = values.level;
    session.SessionDateFormat = values.dateFormat;
    session.SessionDbVersion = values.version;
    session.BCal4225 = values.bCal4225;
    session.BCal4224 = values.bCal4224;
    session.BCalP = values.bCalP;
}

void readSessionValues(Session& session, const QString& user) {
    readUser(session, user);
    readSite(session);
}

double levelOfProcedureEditors(Routine& routine) {
    const auto rows = routine.select(u"select procedit from mt.dbconfig", Rows::first);
    rows->next();
    return numericValue(notNull(rows->value(0)));
}

bool mayEditProcedures(Routine& routine, qint16 level) {
    return level >= 1 && level <= 5 && levelOfProcedureEditors(routine) <= level;
}

} // namespace kelvane
