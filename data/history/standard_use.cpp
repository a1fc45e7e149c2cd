#include "data/history/standard_use.h"

#include "data/assets/assets.h"
#include "data/routine.h"
#include "data/small_routines.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

Sql statementOf(const Session& session, const QString& standard, const QDate& since) {
    const auto owner = sqlName(session.SessionOwner);
    return u"select inv.i4201,inv.i4204,cal.c2301,cal.c2308,cal.c2323,cal.c2333,cal.ctag from (select "
           u"distinct "
           "mtag,ctag from mt.standards where c2430 = " +
           ModuleGlobals::mtagOf(session, ModuleGlobals::SQLSafe(standard)) + u") used inner join " + owner +
           u".calibration cal on cal.ctag = used.ctag and cal.mtag = used.mtag left outer join " + owner +
           u".inventory inv on inv.mtag = cal.mtag where cal.c2301 >= " +
           sqlText(formatMoment({since, QTime(0, 0)}, u"YYYY-MM-DD")) +
           u" or cal.c2301 is null order by case when cal.c2301 is null then 1 else 0 end,cal.c2301 "
           u"desc,case "
           "when cal.c2333 is null then 1 else 0 end,cal.c2333 desc,inv.i4201 asc,cal.ctag desc";
}

} // namespace

std::optional<QList<StandardUse>> usesOfStandard(Session& session, const QString& standard,
                                                 const QDate& since) {
    Routine routine(session, u"History,standardUse"_s);
    return routine.resultOf([&] {
        QList<StandardUse> uses;
        const auto rows = routine.select(statementOf(session, standard, since));
        while (rows->next()) {
            StandardUse use;
            use.asset = storedText(rows->value(0));
            use.description = storedText(rows->value(1));
            use.date = storedMomentOf(rows->value(2));
            use.state = storedText(rows->value(3));
            use.passed = storedText(rows->value(4));
            use.time = storedMomentOf(rows->value(5));
            use.ctag = storedText(rows->value(6));
            uses << use;
        }
        return uses;
    });
}

} // namespace kelvane
