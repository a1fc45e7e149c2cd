#include "data/history/instruments.h"

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
    {u"inv.i4240", &Summary::group},       {u"place.l2801", &Summary::location},
    {u"cal.c2308", &Summary::state},       {u"cal.c2323", &Summary::passed},
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

/// What the text of the filter is looked for in.
constexpr SqlWords searchedColumns[] = {u"inv.i4201", u"inv.i4204", u"inv.i4203", u"place.l2801",
                                        u"inv.i4206"};

bool isPlain(QChar character) {
    const auto code = character.unicode();
    return (code >= u'0' && code <= u'9') || (code >= u'A' && code <= u'Z') ||
           (code >= u'a' && code <= u'z') || code == u' ' || code == u'-' || code == u'.';
}

/// A pattern that finds at least what contains the text: engines differ on escapes, and on the case of
/// letters beyond ASCII, so that these may be anything here. The reader compares what is found once more.
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
    return sqlText(formatMoment({day, QTime(0, 0)}, u"YYYY-MM-DD"));
}

QList<Sql> conditionsOf(const InstrumentFilter& filter, const QDate& today) {
    QList<Sql> conditions;
    if (!filter.text.isEmpty())
        conditions << containing(filter.text);
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

/// Engines differ on the place of nulls: here they are last.
Sql orderOf(const InstrumentQuery& query) {
    const auto* found = std::ranges::find(orderColumns, query.order, &OrderColumn::order);
    const Sql column = found->column;
    const Sql direction = query.isDescending ? Sql(u" desc") : Sql(u" asc");
    if (query.order == InstrumentOrder::asset)
        return u" order by " + column + direction;
    return u" order by case when " + column + u" is null then 1 else 0 end," + column + direction +
           u",inv.i4201 asc";
}

Sql statementOf(const QString& sessionOwner, const InstrumentQuery& query, const QDate& today) {
    const auto owner = sqlName(sessionOwner);
    Sql statement = u"select ";
    for (const auto& column : textColumns)
        statement += Sql(column.column) + u",";
    statement += u"cal.c2301,cal.c2303 from " + owner +
                 u".inventory inv left outer join (select mtag,max(ctag) as ctag from " + owner +
                 u".calibration where c2339 = '1' group by mtag) marked on marked.mtag = inv.mtag left outer "
                 "join " +
                 owner +
                 u".calibration cal on cal.ctag = marked.ctag left outer join (select mtag,max(l2801) "
                 "as l2801 from " +
                 owner + u".location where l2815 = '1' group by mtag) place on place.mtag = inv.mtag";
    Sql link = u" where ";
    for (const auto& condition : conditionsOf(query.filter, today)) {
        statement += link + condition;
        link = u" and ";
    }
    return statement + orderOf(query);
}

} // namespace

InstrumentReader::InstrumentReader(Session& session, const InstrumentQuery& query)
    : routine_(std::make_unique<Routine>(session, u"History,instruments"_s)),
      today_(session.clock.moment().date),
      text_(query.filter.text) {
    hasFailed_ = !routine_->run([&] {
        readRegistrations();
        rows_ = routine_->select(statementOf(session.SessionOwner, query, today_));
    });
}

InstrumentReader::~InstrumentReader() = default;

QList<InstrumentSummary> InstrumentReader::next(qsizetype count) {
    QList<InstrumentSummary> block;
    const bool isRead = routine_->run([&] {
        while (rows_ && block.size() < count) {
            if (!rows_->next()) {
                rows_.reset();
                return;
            }
            auto instrument = instrumentOfRow();
            if (isContained(instrument))
                block << std::move(instrument);
        }
    });
    if (!isRead) {
        hasFailed_ = true;
        rows_.reset();
    }
    return block;
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

InstrumentSummary InstrumentReader::instrumentOfRow() {
    InstrumentSummary instrument;
    int column = 0;
    for (const auto& text : textColumns)
        instrument.*text.member = storedText(rows_->value(column++));
    instrument.lastCalibration = storedMomentOf(rows_->value(column++));
    instrument.due = storedMomentOf(rows_->value(column));
    if (instrument.due.hasDate())
        instrument.daysLeft = today_.daysTo(instrument.due.moment.date);
    instrument.out = registrations_.value(instrument.mtag);
    return instrument;
}

bool InstrumentReader::isContained(const InstrumentSummary& instrument) const {
    const auto contains = [&](const QString& value) { return value.contains(text_, Qt::CaseInsensitive); };
    return text_.isEmpty() || contains(instrument.asset) || contains(instrument.description) ||
           contains(instrument.model) || contains(instrument.location) || contains(instrument.serial);
}

} // namespace kelvane
