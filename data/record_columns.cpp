#include "data/assets.h"
#include "data/field_dictionary.h"
#include "data/routine.h"
#include "platform/texts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

/// The columns that the catalogue need not be asked about.
constexpr QStringView timeColumns[] = {u"C2333", u"C2334"};

struct Domain {
    QStringView name;
    FieldKind kind;
};

/// The server's type names; every other one counts as text.
constexpr Domain domains[] = {
    {u"DATE", FieldKind::date},          {u"TIMESTAMP", FieldKind::date}, {u"TIME", FieldKind::time},
    {u"CHAR", FieldKind::free},          {u"VARCHAR", FieldKind::free},   {u"LONG VARCHAR", FieldKind::free},
    {u"SMALLINT", FieldKind::number},    {u"INTEGER", FieldKind::number}, {u"NUMERIC", FieldKind::number},
    {u"FLOAT", FieldKind::number},       {u"DOUBLE", FieldKind::number},  {u"BINARY", FieldKind::number},
    {u"LONG BINARY", FieldKind::number}, {u"TINYINT", FieldKind::number},
};

FieldKind kindOfDomain(const QString& name) {
    const auto upper = upperCased(name);
    const auto* domain = std::find_if(std::begin(domains), std::end(domains),
                                      [&](const Domain& one) { return one.name == upper; });
    return domain == std::end(domains) ? FieldKind::free : domain->kind;
}

enum class Use { readAndWrite, readOnly };

/// Where a column lives: by the first two characters of its name, or of its bare field number.
struct Place {
    QLatin1StringView beginning;
    QLatin1StringView table;
    /// What a bare field number gets in front to become a column.
    QLatin1StringView prefix;
    /// The column that is '1' in the current row; empty when the table has one row for each asset.
    QLatin1StringView marker;
    Use use = Use::readAndWrite;
};

constexpr QLatin1StringView inventory = "inventory"_L1;

constexpr Place places[] = {
    {"42"_L1, inventory, "I"_L1, ""_L1},
    {"23"_L1, "calibration"_L1, "C"_L1, "C2339"_L1},
    {"28"_L1, "location"_L1, "L"_L1, "L2815"_L1},
    {"32"_L1, "repair"_L1, "R"_L1, "R3246"_L1},
    {"46"_L1, "customers"_L1, "K"_L1, ""_L1},
    {"I4"_L1, inventory, ""_L1, ""_L1},
    {"C2"_L1, "calibration"_L1, ""_L1, "C2339"_L1},
    {"L2"_L1, "location"_L1, ""_L1, "L2815"_L1},
    {"R3"_L1, "repair"_L1, ""_L1, "R3246"_L1},
    {"K4"_L1, "customers"_L1, ""_L1, ""_L1},
    {"MT"_L1, inventory, ""_L1, ""_L1, Use::readOnly},
};

const Place* placeOf(const QString& column) {
    const auto beginning = upperCased(column.left(2));
    const auto* place = std::find_if(std::begin(places), std::end(places),
                                     [&](const Place& one) { return one.beginning == beginning; });
    return place == std::end(places) ? nullptr : place;
}

QString selectColumn(const Session& session, const Place& place, const QString& name, const QString& asset) {
    const QString from =
        u"select "_s + name + u" from "_s + session.SessionOwner + u'.' + place.table + u" where "_s;
    if (place.table == inventory)
        return from + u"i4201 = '"_s + asset + u'\'';
    const QString query = from + u"mtag = "_s + mtagOf(session, asset);
    return place.marker.isEmpty() ? query : query + u" and "_s + place.marker + u" = '1'"_s;
}

/// A table other than `inventory` gets a quote in front of the inner select, and without a marker no commit:
/// the server refuses the statement and nothing is changed.
QString updateColumn(const Session& session, const Place& place, const QString& name, const QString& asset,
                     const QString& value) {
    const QString change = u"update "_s + session.SessionOwner + u'.' + place.table + u" set "_s + name +
                           u" = "_s + value + u" where "_s;
    if (place.table == inventory)
        return change + u"i4201 = '"_s + asset + u"';commit"_s;
    const QString statement = change + u"mtag = '"_s + mtagOf(session, asset);
    return place.marker.isEmpty() ? statement : statement + u" and "_s + place.marker + u" = '1';commit"_s;
}

bool isNull(const QString& value) {
    return value.isEmpty() || value.compare("NULL"_L1, Qt::CaseInsensitive) == 0;
}

bool isDateOrTime(const QString& value, qint16 field_type) {
    const FieldKind kind{field_type};
    return !value.isEmpty() && (kind == FieldKind::date || kind == FieldKind::time);
}

/// The moment of a date or a time field in that form.
QString momentText(const Moment& moment, qint16 field_type, const FieldForm& form) {
    if (FieldKind{field_type} == FieldKind::date)
        return formatMoment(dated(moment), form.date);
    // The day plays no part in the time that is written.
    return formatMoment({QDate(2000, 1, 1), moment.time}, form.time);
}

} // namespace

FieldForm screenForm(const Session& session) {
    return {session.SessionDateFormat, u"HH:NN"};
}

Moment requireDate(const Session& session, const QString& value) {
    return dated(requireMoment(value, session.SessionDateFormat));
}

QString fieldText(const Session& session, const QString& value, qint16 field_type, const FieldForm& form) {
    if (!isDateOrTime(value, field_type))
        return value;
    return momentText(requireMoment(value, session.SessionDateFormat), field_type, form);
}

qint16 FieldType(Session& session, const QString& column) {
    const bool isTime = std::any_of(std::begin(timeColumns), std::end(timeColumns), [&](QStringView one) {
        return column.compare(one, Qt::CaseInsensitive) == 0;
    });
    auto kind = isTime ? FieldKind::time : FieldKind::free;
    Routine routine(session, u"ModuleGlobals,FieldType"_s);
    routine.run([&] {
        if (isTime)
            return;
        const auto domain = routine.selectValue(
            u"select domain_name from sys.sysdomain where domain_id = (select max(domain_id) from "
            "sys.syscolumn where column_name = '"_s +
            column + u"')"_s);
        kind = kindOfDomain(domain.value_or(QString()));
    });
    return static_cast<qint16>(kind);
}

QString SourceColumn(Session& session, const QString& column, const QString& asset) {
    QString result;
    Routine routine(session, u"ModuleGlobals,SourceColumn"_s);
    routine.run([&] {
        const auto* place = placeOf(column);
        if (!place)
            return;
        const QString name = place->prefix + column;
        const auto value =
            routine.selectValue(selectColumn(session, *place, name, asset)).value_or(QString());
        const auto type = FieldType(session, name);
        result =
            isDateOrTime(value, type) ? momentText(storedMoment(value), type, screenForm(session)) : value;
    });
    return result;
}

void DestColumn(Session& session, const QString& column, const QString& asset, const QString& value) {
    Routine routine(session, u"ModuleGlobals,DestColumn"_s);
    routine.run([&] {
        const auto* place = placeOf(column);
        if (!place || place->use == Use::readOnly)
            return;
        const QString name = place->prefix + column;
        const auto type = value.isEmpty() ? qint16{0} : FieldType(session, name);
        const auto written =
            isNull(value) ? u"NULL"_s : u'\'' + fieldText(session, value, type, statementForm) + u'\'';
        routine.execute(updateColumn(session, *place, name, asset, written));
    });
}

} // namespace kelvane::ModuleGlobals
