#include "data/records/record_columns.h"

#include "data/assets/assets.h"
#include "data/routine.h"
#include "platform/values/texts.h"

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
    const auto upper = toUpperCase(name);
    const auto* domain = std::find_if(std::begin(domains), std::end(domains),
                                      [&](const Domain& candidate) { return candidate.name == upper; });
    return domain == std::end(domains) ? FieldKind::free : domain->kind;
}

enum class Use { readAndWrite, readOnly };

/// Where a column lives: by the first two characters of its name, or of its bare field number.
struct Place {
    QLatin1StringView beginning;
    SqlWords table;
    /// What a bare field number gets in front to become a column.
    QLatin1StringView prefix;
    /// The column that is '1' in the current row; empty when the table has one row for each asset.
    SqlWords marker;
    Use use = Use::readAndWrite;

    bool isInventory() const { return table.view() == u"inventory"; }
    bool hasMarker() const { return !marker.view().isEmpty(); }
};

constexpr SqlWords inventory = u"inventory";

constexpr Place places[] = {
    {"42"_L1, inventory, "I"_L1, u""},
    {"23"_L1, u"calibration", "C"_L1, u"C2339"},
    {"28"_L1, u"location", "L"_L1, u"L2815"},
    {"32"_L1, u"repair", "R"_L1, u"R3246"},
    {"46"_L1, u"customers", "K"_L1, u""},
    {"I4"_L1, inventory, ""_L1, u""},
    {"C2"_L1, u"calibration", ""_L1, u"C2339"},
    {"L2"_L1, u"location", ""_L1, u"L2815"},
    {"R3"_L1, u"repair", ""_L1, u"R3246"},
    {"K4"_L1, u"customers", ""_L1, u""},
    {"MT"_L1, inventory, ""_L1, u"", Use::readOnly},
};

const Place* placeOf(const QString& column) {
    const auto beginning = toUpperCase(column.left(2));
    const auto* place = std::find_if(std::begin(places), std::end(places), [&](const Place& candidate) {
        return candidate.beginning == beginning;
    });
    return place == std::end(places) ? nullptr : place;
}

Sql selectColumn(const Session& session, const Place& place, const QString& name, const QString& asset) {
    const auto from = u"select " + sqlName(name) + u" from " + sqlName(session.SessionOwner) + u"." +
                      place.table + u" where ";
    if (place.isInventory())
        return from + u"i4201 = " + sqlText(asset);
    const auto query = from + u"mtag = " + mtagOf(session, asset);
    return place.hasMarker() ? query + u" and " + place.marker + u" = '1'" : query;
}

struct Separator {
    QChar sign;
    SqlWords words;
};

/// An asset number that stands unquoted. Names with single signs between them can't change what is around
/// them.
Sql unquotedAsset(const QString& asset) {
    static constexpr Separator separators[] = {{u'-', u"-"}, {u' ', u" "}, {u'.', u"."}, {u'/', u"/"}};
    Sql whole = u"";
    qsizetype from = 0;
    for (qsizetype at = 0; at < asset.size(); ++at) {
        for (const auto& separator : separators) {
            if (separator.sign != asset[at])
                continue;
            whole += sqlName(asset.sliced(from, at - from)) + separator.words;
            from = at + 1;
        }
    }
    return whole + sqlName(asset.sliced(from));
}

/// A table other than `inventory` gets a quote in front of the inner select, and without a marker no commit:
/// the server refuses the statement and nothing is changed. That quote ends where the asset's own would
/// begin, so the asset stands unquoted.
Sql updateColumn(const Session& session, const Place& place, const QString& name, const QString& asset,
                 const Sql& value) {
    const auto owner = sqlName(session.SessionOwner);
    const auto change =
        u"update " + owner + u"." + place.table + u" set " + sqlName(name) + u" = " + value + u" where ";
    if (place.isInventory())
        return change + u"i4201 = " + sqlText(asset) + u";commit";
    const auto statement = change + u"mtag = '(select mtag from " + owner + u".inventory where i4201 = '" +
                           unquotedAsset(asset) + u"')";
    return place.hasMarker() ? statement + u" and " + place.marker + u" = '1';commit" : statement;
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
        return formatMoment(requireDatePart(moment), form.date);
    // The day plays no part in the time that is written.
    return formatMoment({QDate(2000, 1, 1), moment.time}, form.time);
}

} // namespace

FieldForm screenForm(const Session& session) {
    return {session.SessionDateFormat, u"HH:NN"};
}

Moment requireDate(const Session& session, const QString& value) {
    return requireDatePart(requireMoment(value, session.SessionDateFormat));
}

QString fieldText(const Session& session, const QString& value, qint16 field_type, const FieldForm& form) {
    if (!isDateOrTime(value, field_type))
        return value;
    return momentText(requireMoment(value, session.SessionDateFormat), field_type, form);
}

qint16 FieldType(Session& session, const QString& column) {
    const bool isTime = std::any_of(std::begin(timeColumns), std::end(timeColumns), [&](QStringView text) {
        return column.compare(text, Qt::CaseInsensitive) == 0;
    });
    auto kind = isTime ? FieldKind::time : FieldKind::free;
    Routine routine(session, u"ModuleGlobals,FieldType"_s);
    routine.run([&] {
        if (isTime)
            return;
        const auto domain = routine.selectValue(
            u"select domain_name from sys.sysdomain where domain_id = (select max(domain_id) from "
            "sys.syscolumn where column_name = " +
            sqlText(column) + u")");
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
            isNull(value) ? Sql(u"NULL") : sqlText(fieldText(session, value, type, statementForm));
        routine.execute(updateColumn(session, *place, name, asset, written));
    });
}

} // namespace kelvane::ModuleGlobals
