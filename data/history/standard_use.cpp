#include "data/history/standard_use.h"

#include "data/assets/assets.h"
#include "data/history/asset_number.h"
#include "data/history/statement_parts.h"
#include "data/routine.h"
#include "data/small_routines.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// A calibration may name a standard more than once.
Sql statementOf(const Session& session, const QString& standard, const QDate& since) {
    const auto owner = sqlName(session.SessionOwner);
    Sql statement = u"select inv.i4201,inv.i4204,cal.c2301,cal.c2308,cal.c2323,cal.c2333,cal.ctag,cal.mtag";
    statement += u" from (select distinct mtag,ctag from mt.standards where c2430 = " +
                 ModuleGlobals::mtagOf(session, ModuleGlobals::SQLSafe(standard)) + u") used";
    statement += u" inner join " + owner + u".calibration cal";
    statement += u" on cal.ctag = used.ctag and cal.mtag = used.mtag";
    statement += u" left outer join " + owner + u".inventory inv on inv.mtag = cal.mtag";
    statement += u" where cal.c2301 >= " + sqlDate(since) + u" or cal.c2301 is null";
    statement += u" order by " + nullsLast(u"cal.c2301") + u" desc," + nullsLast(u"cal.c2333") + u" desc";
    return statement + u",inv.i4201 asc,cal.ctag desc";
}

Sql standardsWhere(const Session& session, const Sql& condition) {
    return u"select i4201,i4204,i4206 from " + sqlName(session.SessionOwner) + u".inventory where " +
           condition + u" order by i4201 asc";
}

QList<Standard> standards(Routine& routine, const Sql& statement) {
    QList<Standard> found;
    const auto rows = routine.select(statement);
    while (rows->next())
        found << Standard{rows->value(0).value_or(QString()), storedText(rows->value(1)),
                          storedText(rows->value(2))};
    return found;
}

} // namespace

std::optional<QList<Standard>> usedStandards(Session& session) {
    Routine routine(session, u"History,usedStandards"_s);
    return routine.resultOf([&] {
        return standards(routine, standardsWhere(session, u"mtag in (select c2430 from mt.standards)"));
    });
}

Lookup<Standard> standardOf(Session& session, const QString& asset) {
    Routine routine(session, u"History,standardOf"_s);
    return lookupOf(routine.resultOf([&] {
        const auto exact =
            standards(routine, standardsWhere(session, u"i4201 = " + sqlText(ModuleGlobals::SQLSafe(asset))));
        return exact.isEmpty() ? standards(routine, standardsWhere(session, isNumberButForBlanks(asset)))
                               : exact;
    }));
}

std::optional<QList<StandardUse>> usesOfStandard(Session& session, const QString& standard,
                                                 const QDate& since) {
    Routine routine(session, u"History,standardUse"_s);
    return routine.resultOf([&] {
        QList<StandardUse> uses;
        const auto rows = routine.select(statementOf(session, standard, since));
        while (rows->next()) {
            StandardUse use;
            use.asset = rows->value(0).value_or(QString());
            use.description = storedText(rows->value(1));
            use.date = storedMomentOf(rows->value(2));
            use.state = storedText(rows->value(3));
            use.passed = storedText(rows->value(4));
            use.time = storedMomentOf(rows->value(5));
            use.ctag = storedText(rows->value(6));
            use.mtag = storedText(rows->value(7));
            uses << use;
        }
        return uses;
    });
}

} // namespace kelvane
