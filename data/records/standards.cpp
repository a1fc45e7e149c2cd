#include "data/records/standards.h"

#include "data/routine.h"
#include "data/small_routines.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

/// The two instruments, and where each is looked for: the standard in a schema of its own.
struct Pair {
    QString standard;
    QString instrument;
    QString standardOwner;
    QString owner;
};

Sql qualification(const Pair& pair) {
    const auto owner = sqlName(pair.owner);
    const auto standardOwner = sqlName(pair.standardOwner);
    const auto current = [&](SqlWords column) {
        return u"(select " + Sql(column) + u" from " + standardOwner + u".calibration where c2339 = 1 and " +
               standardOwner + u".calibration.mtag = " + owner + u".inventory.mtag)";
    };
    return u"select i4209," + current(u"c2303") + u"," + current(u"c2334") + u",(select i4209 trace from " +
           owner + u".inventory where i4201 = " + sqlText(pair.instrument) +
           u"),(select allow_ooc_stds from mt.hvm_kv_sysconfig),(select allow_poor_trace_stds from "
           "mt.hvm_kv_sysconfig) from " +
           standardOwner + u".inventory where i4201 = " + sqlText(SQLSafe(pair.standard));
}

Sql traceDistance(const Pair& pair) {
    const auto place = [](const QString& owner, const QString& asset) {
        return u"locate(tracecodes,(select i4209 from " + sqlName(owner) + u".inventory where i4201 = " +
               sqlText(asset) + u"))";
    };
    return u"select sum(" + place(pair.owner, pair.instrument) + u" - " +
           place(pair.standardOwner, pair.standard) + u" - trace_delta) from mt.dbconfig";
}

/// Whether the due moment has come. Without a due time a standard expires at noon.
bool isDue(const Session& session, const QString& date, const std::optional<QString>& time) {
    const Moment due{requireDatePart(storedMoment(date)).date,
                     storedMoment(time.value_or(u"12:00:00"_s)).time};
    return minutesBetween(session.clock.moment(), due) <= 0;
}

StandardVerdict verdictOf(const Session& session, Routine& routine, const Pair& pair) {
    const auto rows = routine.select(qualification(pair), Rows::first);
    if (!rows->next() || !rows->value(0))
        return standardUnknown;
    const auto dueDate = rows->value(1);
    const auto dueTime = rows->value(2);
    if (!rows->value(3))
        return instrumentWithoutTrace;
    // The switches differ: overdue standards are refused by an explicit "N" only, low ranks by a null too.
    const auto allowOverdue = toUpperCase(rows->value(4).value_or(u"Y"_s));
    const auto allowLowRank = toUpperCase(rows->value(5).value_or(u"N"_s));
    if (allowOverdue == u"N" && dueDate && isDue(session, *dueDate, dueTime))
        return standardOverdue;
    if (allowLowRank == u"N") {
        const auto distance = routine.selectValue(traceDistance(pair));
        if (distance && numericValue(*distance) < 0)
            return standardRankTooLow;
    }
    return standardUsable;
}

} // namespace

qint16 CheckStandard(Session& session, const QString& standard, const QString& instrument) {
    if (standard.isEmpty() || instrument.isEmpty())
        return standardUnknown;
    qint16 code = standardUsable;
    Routine routine(session, u"ModuleGlobals,CheckStandard"_s);
    routine.run([&] {
        const BusyPointer busy(session.ui);
        const auto& owner = session.SessionOwner;
        const auto standardOwner = toUpperCase(owner) == u"MT" ? owner : u"STD"_s;
        code = verdictOf(session, routine, {standard, instrument, standardOwner, owner});
    });
    return code;
}

} // namespace kelvane::ModuleGlobals
