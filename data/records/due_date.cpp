#include "data/records/due_date.h"

#include "data/records/record_columns.h"
#include "data/routine.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

/// The guard against a site where every day is a day off.
constexpr int maxPasses = 60;

void takeOneDay(Moment& due) {
    due = addInterval(u"d"_s, -1, due);
}

/// One pass over the days off and the holidays. Each row sees what the rows before it have left, so that a
/// Sunday and a Saturday can both count within one pass.
void moveBack(Routine& routine, Moment& due) {
    const auto daysOff = routine.select(u"select dayofweek from mt.nonworkdays");
    while (daysOff->next()) {
        const auto day = notNull(daysOff->value(0));
        if (toLowerCase(formatMoment(due, u"dddd")) == toLowerCase(day))
            takeOneDay(due);
    }
    const auto holidays = routine.select(u"select holiday from mt.holidays");
    while (holidays->next()) {
        // A holiday is a midnight: it never equals a moment that has a time of day.
        if (storedMoment(notNull(holidays->value(0))) == due)
            takeOneDay(due);
    }
}

} // namespace

Moment calcDueDate(Session& session, const QString& asset, Moment& cal_date, float& interval, QString& unit) {
    Moment result;
    Routine routine(session, u"ModuleGlobals,calcDueDate"_s);
    routine.run([&] {
        const BusyPointer busy(session.ui);
        if (!asset.isEmpty()) {
            cal_date = session.clock.moment();
            interval = toReal(numericValue(SourceColumn(session, u"I4229"_s, asset)));
            unit = SourceColumn(session, u"I4228"_s, asset);
        }
        auto due = addInterval(unit, interval, cal_date);
        if (session.SessionDbVersion > 5) {
            Moment before;
            int passes = 0;
            do {
                before = due;
                moveBack(routine, due);
                ++passes;
            } while (due != before && passes <= maxPasses);
        }
        result = due;
    });
    return result;
}

} // namespace kelvane::ModuleGlobals
