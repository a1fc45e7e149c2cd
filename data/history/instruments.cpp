#include "data/history/instruments.h"

#include "data/history/asset_number.h"
#include "data/history/statement_parts.h"
#include "data/routine.h"
#include "data/small_routines.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

using Summary = InstrumentSummary;

struct TextColumn {
    SqlWords column;
    QString Summary::*member;
};

constexpr TextColumn textColumns[] = {
    {u"inv.mtag", &Summary::mtag},         {u"inv.i4201", &Summary::asset},
    {u"inv.i4204", &Summary::description}, {u"inv.i4202", &Summary::manufacturer},
    {u"inv.i4203", &Summary::model},       {u"inv.i4206", &Summary::serial},
    {u"inv.i4240", &Summary::group},       {u"cal.c2308", &Summary::state},
    {u"cal.c2323", &Summary::passed},
};

struct OrderColumn {
    InstrumentOrder order;
    SqlWords column;
};

constexpr OrderColumn orderColumns[] = {
    {InstrumentOrder::asset, u"inv.i4201"},        {InstrumentOrder::description, u"inv.i4204"},
    {InstrumentOrder::manufacturer, u"inv.i4202"}, {InstrumentOrder::model, u"inv.i4203"},
    {InstrumentOrder::serial, u"inv.i4206"},       {InstrumentOrder::group, u"inv.i4240"},
    {InstrumentOrder::location, u"place.l2801"},   {InstrumentOrder::lastCalibration, u"cal.c2301"},
    {InstrumentOrder::passed, u"cal.c2323"},       {InstrumentOrder::due, u"cal.c2303"},
};

/// What the text of the filter is looked for in, the asset number first.
constexpr SqlWords searchedColumns[] = {u"inv.i4201", u"inv.i4204", u"inv.i4203", u"place.l2801",
                                        u"inv.i4206"};

bool isPlain(QChar character) {
    const auto code = character.unicode();
    return (code >= u'0' && code <= u'9') || (code >= u'A' && code <= u'Z') ||
           (code >= u'a' && code <= u'z') || code == u' ' || code == u'-' || code == u'.';
}

/// A pattern that finds at least what contains the text: engines differ on escapes, and on the case of
/// letters beyond ASCII, so that these may be anything here. What it finds has to be compared then.
QString widePattern(const QString& text) {
    QString pattern(u'%');
    for (const auto character : text)
        pattern += isPlain(character) ? character : character.unicode() < 0x80 ? QChar(u'_') : QChar(u'%');
    return pattern + u'%';
}

Sql containing(const QString& text) {
    Sql condition = u"(";
    for (std::size_t at = 0; at < std::size(searchedColumns); ++at) {
        if (at > 0)
            condition += u" or ";
        condition += Sql(searchedColumns[at]) + u" like " + sqlText(widePattern(text));
    }
    return condition + u")";
}

/// A day beyond the calendar of the engines is its last or first one.
Sql dateValue(const QDate& date) {
    const auto day = std::clamp(date, QDate(100, 1, 1), QDate(9999, 12, 31));
    return sqlDate(day);
}

/// All but that of the text.
QList<Sql> conditionsOf(const InstrumentFilter& filter, const QDate& today) {
    QList<Sql> conditions;
    if (filter.dueWithinDays)
        conditions << u"cal.c2303 <= " + dateValue(today.addDays(*filter.dueWithinDays));
    if (filter.isOverdue)
        conditions << u"cal.c2303 < " + dateValue(today);
    const auto addExact = [&](SqlWords column, const QString& value) {
        if (!value.isEmpty())
            conditions << Sql(column) + u" = " + sqlText(ModuleGlobals::SQLSafe(value));
    };
    addExact(u"inv.i4240", filter.group);
    addExact(u"inv.i4203", filter.model);
    addExact(u"inv.i4204", filter.description);
    addExact(u"inv.i4201", filter.asset);
    return conditions;
}

Sql columnOf(InstrumentOrder order) {
    return std::ranges::find(orderColumns, order, &OrderColumn::order)->column;
}

Sql orderOf(const InstrumentQuery& query) {
    const auto column = columnOf(query.order);
    const Sql direction = query.isDescending ? Sql(u" desc") : Sql(u" asc");
    if (query.order == InstrumentOrder::asset)
        return u" order by " + column + direction;
    return u" order by " + nullsLast(column) + direction + u",inv.i4201 asc";
}

/// The inventory with the current records, of which some instruments may have several (`withoutOlder`).
Sql withRecords(const QString& sessionOwner) {
    const auto owner = sqlName(sessionOwner);
    return owner + u".inventory inv left outer join " + owner +
           u".calibration cal on cal.mtag = inv.mtag and cal.c2339 = '1'";
}

/// The condition that leaves the newest of several current records, or an instrument without one.
Sql withoutOlder(const QString& sessionOwner) {
    return u"not exists (select 1 from " + sqlName(sessionOwner) +
           u".calibration newer where newer.mtag = inv.mtag and newer.c2339 = '1' and newer.ctag > cal.ctag)";
}

Sql joined(const QList<Sql>& conditions) {
    Sql joined = u"";
    Sql link = u" where ";
    for (const auto& condition : conditions) {
        joined += link + condition;
        link = u" and ";
    }
    return joined;
}

bool needsRecords(const InstrumentQuery& query) {
    const auto& filter = query.filter;
    return filter.dueWithinDays || filter.isOverdue || query.order == InstrumentOrder::due ||
           query.order == InstrumentOrder::lastCalibration || query.order == InstrumentOrder::passed;
}

/// Joining what nothing is taken of would take longer than all else.
Sql tablesOf(const QString& sessionOwner, const InstrumentQuery& query) {
    const auto owner = sqlName(sessionOwner);
    auto tables = needsRecords(query) ? withRecords(sessionOwner) : owner + u".inventory inv";
    if (!query.filter.text.isEmpty() || query.order == InstrumentOrder::location)
        tables += u" left outer join (select mtag,max(l2801) as l2801 from " + owner +
                  u".location where l2815 = '1' group by mtag) place on place.mtag = inv.mtag";
    return tables;
}

/// The text of the filter has to be compared with what its pattern finds.
bool needsComparing(const InstrumentFilter& filter) {
    return !std::ranges::all_of(filter.text, isPlain);
}

/// With the columns to compare the text of the filter with, if that is needed.
Sql keysStatement(const QString& owner, const InstrumentQuery& query, const QDate& today) {
    Sql columns = u"inv.mtag,inv.i4201";
    auto conditions = conditionsOf(query.filter, today);
    if (needsRecords(query))
        conditions.prepend(withoutOlder(owner));
    if (!query.filter.text.isEmpty())
        conditions << containing(query.filter.text);
    if (needsComparing(query.filter)) {
        for (std::size_t at = 1; at < std::size(searchedColumns); ++at)
            columns += u"," + Sql(searchedColumns[at]);
    }
    return u"select " + columns + u" from " + tablesOf(owner, query) + joined(conditions) + orderOf(query);
}

/// In no order. The text of the filter has chosen the keys.
Sql blockStatement(const QString& owner, const InstrumentFilter& filter, const QDate& today,
                   const Sql& keys) {
    Sql statement = u"select ";
    for (const auto& column : textColumns)
        statement += Sql(column.column) + u",";
    const auto conditions =
        QList<Sql>{u"inv.mtag in (" + keys + u")", withoutOlder(owner)} + conditionsOf(filter, today);
    return statement + u"cal.c2301,cal.c2303,(select max(l2801) from " + sqlName(owner) +
           u".location where mtag = inv.mtag and l2815 = '1') from " + withRecords(owner) +
           joined(conditions);
}

} // namespace

std::optional<QStringList> instrumentValues(Session& session, InstrumentOrder column) {
    Routine routine(session, u"History,values"_s);
    return routine.resultOf([&] {
        QStringList values;
        const auto name = columnOf(column);
        const auto rows =
            routine.select(u"select distinct " + name + u" from " + sqlName(session.SessionOwner) +
                           u".inventory inv where " + name + u" is not null order by " + name + u" asc");
        while (rows->next())
            values << rows->value(0).value_or(QString());
        values.removeAll(QString());
        return values;
    });
}

InstrumentReader::InstrumentReader(Session& session, const InstrumentQuery& query)
    : routine_(std::make_unique<Routine>(session, u"History,instruments"_s)),
      owner_(session.SessionOwner),
      query_(query),
      today_(session.clock.moment().date) {
    hasFailed_ = !routine_->run([&] {
        readRegistrations();
        readKeys();
    });
    if (hasFailed_)
        keys_ = {};
}

InstrumentReader::~InstrumentReader() = default;

InstrumentSummary InstrumentReader::keyAt(qsizetype place) const {
    return {.mtag = storedText(keys_.mtag(place)), .asset = keys_.asset(place)};
}

QList<InstrumentSummary> InstrumentReader::read(qsizetype first, qsizetype count) {
    const auto last = std::min(first + count, size());
    auto found = readBlock(first, last - first);
    QList<InstrumentSummary> block;
    for (auto place = first; place < last; ++place) {
        const auto instrument = found.constFind(keys_.mtag(place));
        block << (instrument == found.cend() ? keyAt(place) : *instrument);
    }
    return block;
}

QList<InstrumentSummary> InstrumentReader::next(qsizetype count) {
    const auto first = next_;
    next_ = std::min(next_ + count, size());
    const auto found = readBlock(first, next_ - first);
    QList<InstrumentSummary> block;
    for (auto place = first; place < next_; ++place) {
        const auto instrument = found.constFind(keys_.mtag(place));
        if (instrument != found.cend())
            block << *instrument;
    }
    return block;
}

QHash<QString, InstrumentSummary> InstrumentReader::readBlock(qsizetype first, qsizetype count) {
    QHash<QString, InstrumentSummary> block;
    if (hasFailed_ || count <= 0)
        return block;
    Sql keys = u"";
    Sql link = u"";
    for (auto place = first; place < first + count; ++place) {
        keys += link + sqlText(ModuleGlobals::SQLSafe(keys_.mtag(place)));
        link = u",";
    }
    hasFailed_ = !routine_->run([&] {
        const auto rows = routine_->select(blockStatement(owner_, query_.filter, today_, keys));
        while (rows->next()) {
            const auto key = rows->value(0).value_or(QString());
            block.insert(key, instrumentOf(*rows));
        }
    });
    return hasFailed_ ? QHash<QString, InstrumentSummary>() : block;
}

/// Only what contains the text is kept: its pattern may find more.
void InstrumentReader::readKeys() {
    const auto& text = query_.filter.text;
    const bool isCompared = needsComparing(query_.filter);
    const auto rows = routine_->select(keysStatement(owner_, query_, today_));
    while (rows->next()) {
        const auto mtag = rows->value(0).value_or(QString());
        const auto asset = rows->value(1).value_or(QString());
        bool isFound = !isCompared || asset.contains(text, Qt::CaseInsensitive);
        for (std::size_t at = 1; at < std::size(searchedColumns) && !isFound; ++at)
            isFound = storedText(rows->value(static_cast<int>(at) + 1)).contains(text, Qt::CaseInsensitive);
        if (isFound)
            keys_.append(mtag, asset);
    }
}

/// Few instruments are out at a time, so that their registrations are read at once. One without a readable
/// date counts as the oldest.
void InstrumentReader::readRegistrations() {
    const auto rows =
        routine_->select(u"select mtag,serial_number,tech,entered_date from mt.hvm_kv_task_inuse");
    while (rows->next()) {
        const auto mtag = storedText(rows->value(0));
        InstrumentOut out;
        out.serial = storedText(rows->value(1));
        out.technician = storedText(rows->value(2));
        out.since = storedMomentOf(rows->value(3));
        registrations_[mtag] << std::move(out);
    }
    const auto isNewer = [](const InstrumentOut& left, const InstrumentOut& right) {
        const auto& [leftDate, leftTime] = left.since.moment;
        const auto& [rightDate, rightTime] = right.since.moment;
        return leftDate != rightDate ? leftDate > rightDate : leftTime > rightTime;
    };
    for (auto& registrations : registrations_)
        std::ranges::stable_sort(registrations, isNewer);
}

InstrumentSummary InstrumentReader::instrumentOf(RecordSet& row) const {
    InstrumentSummary instrument;
    int column = 0;
    for (const auto& text : textColumns) {
        const auto stored = row.value(column++);
        // The number is asked for again, as it is stored.
        const bool isKept = text.member == &Summary::asset;
        instrument.*text.member = isKept ? stored.value_or(QString()) : storedText(stored);
    }
    instrument.lastCalibration = storedMomentOf(row.value(column++));
    instrument.due = storedMomentOf(row.value(column++));
    instrument.location = storedText(row.value(column));
    if (instrument.due.hasDate())
        instrument.daysLeft = today_.daysTo(instrument.due.moment.date);
    instrument.out = registrations_.value(instrument.mtag);
    return instrument;
}

namespace {

Lookup<InstrumentSummary> instrumentStoredAs(Session& session, const QString& asset) {
    InstrumentReader reader(session, {.filter = {.asset = asset}});
    const auto found = reader.next(1);
    return lookupOf(reader.hasFailed() ? std::nullopt : std::optional(found));
}

} // namespace

Lookup<InstrumentSummary> instrumentNamed(Session& session, const QString& asset) {
    // Without one the filter would find all.
    if (asset.isEmpty())
        return {};
    const auto named = instrumentStoredAs(session, asset);
    if (!named.isAbsent())
        return named;
    const auto stored = storedAssetNumber(session, asset);
    if (!stored.found)
        return {.hasFailed = stored.hasFailed};
    return instrumentStoredAs(session, *stored.found);
}

std::optional<QString> customerOf(Session& session, const QString& mtag) {
    Routine routine(session, u"History,customer"_s);
    return routine.resultOf([&] {
        return storedText(routine.selectValue(u"select max(k4601) from " + sqlName(session.SessionOwner) +
                                              u".customers where mtag = " +
                                              sqlText(ModuleGlobals::SQLSafe(mtag))));
    });
}

} // namespace kelvane
