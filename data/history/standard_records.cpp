#include "data/history/standard_records.h"

#include "data/assets/assets.h"
#include "data/small_routines.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"

#include <tuple>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const QTime noon(12, 0);
const QTime midnight(0, 0);

/// The time of a moment, or another one where it has none.
QTime timeOr(const StoredMoment& stored, const QTime& otherwise) {
    return stored.moment.time.isValid() ? stored.moment.time : otherwise;
}

/// All standards with their records, if any: a standard without one gives a row without a key.
Sql recordsStatement(const Session& session, const QString& standardOwner, const QString& asset) {
    const auto ofInstrument = ModuleGlobals::mtagOf(session, ModuleGlobals::SQLSafe(asset));
    const auto standards = u"select i4201 from " + sqlName(session.SessionOwner) +
                           u".inventory where mtag in (select c2430 from mt.standards where mtag = " +
                           ofInstrument + u")";
    return u"select inv.i4201,cal.ctag,cal.c2301,cal.c2303,cal.c2323,cal.c2333,cal.c2334,cal.c2306 from " +
           sqlName(standardOwner) + u".inventory inv left outer join " + sqlName(standardOwner) +
           u".calibration cal on cal.mtag = inv.mtag where inv.i4201 in (" + standards + u")";
}

} // namespace

StandardRecords::StandardRecords(const Session& session, Routine& routine, const QString& asset) {
    const auto& owner = session.SessionOwner;
    if (toUpperCase(owner) != u"MT")
        read(session, routine, u"STD"_s, asset);
    read(session, routine, owner, asset);
}

void StandardRecords::read(const Session& session, Routine& routine, const QString& standardOwner,
                           const QString& asset) {
    QHash<QString, QList<Record>> found;
    const auto rows = routine.select(recordsStatement(session, standardOwner, asset));
    while (rows->next()) {
        auto& records = found[toUpperCase(storedText(rows->value(0)))];
        const auto ctag = rows->value(1);
        if (!ctag)
            continue;
        Record record;
        record.ctag = numericValue(*ctag);
        record.date = storedMomentOf(rows->value(2));
        record.due = storedMomentOf(rows->value(3));
        record.hasFailed = storedText(rows->value(4)) == u"N";
        record.time = storedMomentOf(rows->value(5));
        record.dueTime = storedMomentOf(rows->value(6));
        record.number = standardOwner + u'-' + storedText(ctag);
        record.laboratory = storedText(rows->value(7));
        records << record;
    }
    for (auto standard = found.cbegin(); standard != found.cend(); ++standard) {
        if (!records_.contains(standard.key()))
            records_.insert(standard.key(), standard.value());
    }
}

const StandardRecords::Record* StandardRecords::recordAt(const QString& standard, const Moment& at) const {
    const auto found = records_.constFind(toUpperCase(withoutBlanksAtEnd(standard)));
    if (found == records_.cend())
        return nullptr;
    const Record* current = nullptr;
    const auto order = [](const Record& record) {
        return std::tuple(record.date.moment.date, timeOr(record.time, midnight), record.ctag);
    };
    for (const auto& record : *found) {
        const auto& date = record.date.moment.date;
        const bool isThere =
            date.isValid() && std::pair(date, timeOr(record.time, midnight)) <= std::pair(at.date, at.time);
        if (isThere && (current == nullptr || order(*current) < order(record)))
            current = &record;
    }
    return current;
}

void StandardRecords::describe(UsedStandard& standard, const Moment& at) const {
    const Moment moment{at.date, at.time.isValid() ? at.time : noon};
    const auto* record = recordAt(standard.asset, moment);
    if (record == nullptr)
        return;
    standard.record = record->number;
    standard.laboratory = record->laboratory;
    standard.calibrated = record->date;
    standard.due = record->due;
    const Moment due{record->due.moment.date, timeOr(record->dueTime, noon)};
    if (record->hasFailed)
        standard.state = StandardState::notPassed;
    else if (!due.date.isValid())
        standard.state = StandardState::withoutDueDate;
    else
        standard.state =
            minutesBetween(moment, due) > 0 ? StandardState::inCalibration : StandardState::overdue;
}

} // namespace kelvane
