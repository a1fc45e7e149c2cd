#include "data/records/field_dictionary.h"

#include "data/assets/assets.h"
#include "data/records/record_columns.h"
#include "data/routine.h"
#include "platform/user_interface.h"
#include "platform/values/numbers.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

/// The columns of the dictionary query, in its order. Before database version 6 there is no `dcopy` (the
/// query then repeats `scopy` in its place) and no `tooltip`.
enum DictionaryColumn {
    nameColumn,
    titleColumn,
    idefaultColumn,
    ireqColumn,
    sreqColumn,
    sdefaultColumn,
    scopyColumn,
    dcopyColumn,
    validationColumn,
    datalenColumn,
    tooltipColumn,
    dictionaryColumns,
};

using DictionaryRow = std::array<std::optional<QString>, dictionaryColumns>;

bool isExtended(const Session& session) {
    return session.SessionDbVersion > 5;
}

Sql dictionaryQuery(bool extended) {
    if (extended)
        return u"select datacol,title,idefault,ireq,sreq,sdefault,scopy,dcopy,validation,datalen,tooltip "
               "from mt.customiz where fldnum like '23%' and (suppressed <> 'Y' or fldnum = '2331' or fldnum "
               "= '2302' or fldnum = '2308' or fldnum = '2303' or fldnum = '2301' or fldnum = '2307') order "
               "by row,nextfld asc";
    return u"select fldnum,title,idefault,ireq,sreq,sdefault,scopy,scopy blank,validation,datalen from "
           "mt.customiz where fldnum like '23%' and (suppressed <> 'Y' or fldnum = '2331' or fldnum = '2302' "
           "or fldnum = '2308' or fldnum = '2303' or fldnum = '2301' or fldnum = '2307') and fldnum not like "
           "'239%' order by row,nextfld asc";
}

DictionaryRow readRow(RecordSet& rows, bool extended) {
    DictionaryRow entry;
    const int count = extended ? dictionaryColumns : tooltipColumn;
    for (int column = 0; column < count; ++column)
        entry[static_cast<std::size_t>(column)] = rows.value(column);
    return entry;
}

bool reads(const std::optional<QString>& value, QStringView word) {
    return value && value->compare(word, Qt::CaseInsensitive) == 0;
}

/// The initial pair counts for a first calibration, the subsequent pair for later ones; the other pair's
/// default fills a gap.
void fillDefaults(CalField& field, const DictionaryRow& entry, bool first) {
    const auto& requirement = entry[first ? ireqColumn : sreqColumn];
    if (requirement)
        field.required = reads(requirement, u"N") ? u"N"_s : u"Y"_s;
    for (const auto column : {first ? idefaultColumn : sdefaultColumn, sdefaultColumn, idefaultColumn}) {
        if (field.default_text.isEmpty() && entry[column])
            field.default_text = *entry[column];
    }
}

void fillCopies(CalField& field, const DictionaryRow& entry, bool extended) {
    if (reads(entry[scopyColumn], u"ON"))
        field.copy_from = entry[nameColumn].value_or(QString());
    else if (entry[scopyColumn] && *entry[scopyColumn] != "OFF"_L1)
        field.copy_from = *entry[scopyColumn];
    if (extended && entry[dcopyColumn] && *entry[dcopyColumn] != "OFF"_L1)
        field.copy_to = *entry[dcopyColumn];
}

void fillField(CalField& field, const DictionaryRow& entry, bool extended, bool first) {
    field = {};
    const auto name = notNull(entry[nameColumn]);
    field.column = extended ? name : u'C' + name;
    field.title = entry[titleColumn].value_or(QString());
    fillDefaults(field, entry, first);
    fillCopies(field, entry, extended);
    field.has_list = reads(entry[validationColumn], u"SIMPLE") || reads(entry[validationColumn], u"LINKED");
    if (entry[datalenColumn])
        field.max_length = roundToShort(numericValue(*entry[datalenColumn]));
    field.tooltip = entry[tooltipColumn].value_or(QString());
}

void readDictionary(Session& session, CalRecord& record, Routine& routine, bool first) {
    constexpr qint16 lengthOfDate = 10;
    const bool extended = isExtended(session);
    const auto rows = routine.select(dictionaryQuery(extended));
    for (int row = 0; rows->next(); ++row) {
        auto& field = record.CalFieldTable[row];
        fillField(field, readRow(*rows, extended), extended, first);
        field.field_type = FieldType(session, field.column);
        if (FieldKind{field.field_type} == FieldKind::date)
            field.max_length = std::max(field.max_length, lengthOfDate);
    }
}

/// A default that stands for a value of the moment or of the session.
struct Token {
    QStringView token;
    QString (*value)(const Session&);
};

constexpr Token tokens[] = {
    {u"99/99/99", [](const Session& s) { return formatMoment(s.clock.moment(), s.SessionDateFormat); }},
    {u"99:99", [](const Session& s) { return formatMoment(s.clock.moment(), u"HH:NN"); }},
    {u"U_SEG", [](const Session& s) { return s.SessionOwner; }},
    {u"U_NAM", [](const Session& s) { return s.SessionUser; }},
    {u"\"", [](const Session&) { return QString(); }},
    {u"U_WRK", [](const Session&) { return QString(); }},
};

QString valueOfDefault(const Session& session, const QString& default_text) {
    for (const auto& token : tokens) {
        if (default_text.compare(token.token, Qt::CaseInsensitive) == 0)
            return token.value(session);
    }
    return default_text;
}

void fillValues(Session& session, CalRecord& record, const QString& asset) {
    const int count = calFieldCount(record);
    for (int row = 0; row < count; ++row) {
        auto& field = record.CalFieldTable[row];
        if (!field.default_text.isEmpty())
            field.value = valueOfDefault(session, field.default_text);
    }
    for (int row = 0; row < count; ++row) {
        const auto source = record.CalFieldTable[row].copy_from;
        if (source.isEmpty())
            continue;
        const auto value = SourceColumn(session, source, asset);
        if (!value.isEmpty())
            record.CalFieldTable[row].value = value;
    }
}

void markWorksheetFields(CalRecord& record, Routine& routine) {
    const auto numbers = routine.select(worksheetFieldsQuery);
    while (numbers->next()) {
        if (const auto row = calFieldRow(record, notNull(numbers->value(0))))
            record.CalFieldTable[*row].on_worksheet = true;
    }
}

} // namespace

int calFieldCount(const CalRecord& record) {
    const auto& table = record.CalFieldTable;
    int count = 0;
    while (count <= table.last && !table[count].column.isEmpty())
        ++count;
    return count;
}

std::optional<int> calFieldRow(const CalRecord& record, const QString& number) {
    const int count = calFieldCount(record);
    for (int row = 0; row < count && !number.isEmpty(); ++row) {
        if (record.CalFieldTable[row].column.endsWith(number, Qt::CaseInsensitive))
            return row;
    }
    return {};
}

void SetCalDataFields(Session& session, CalRecord& record, const QString& asset) {
    Routine routine(session, u"ModuleGlobals,SetCalDataFields"_s);
    routine.run([&] {
        record.CalFieldTable.erase();
        readDictionary(session, record, routine, FirstCal(session, asset));
        fillValues(session, record, asset);
        markWorksheetFields(record, routine);
    });
}

bool FirstCal(Session& session, const QString& asset) {
    bool result = false;
    Routine routine(session, u"ModuleGlobals,FirstCal"_s);
    routine.run([&] {
        const auto rows = routine.select(u"select count(ctag) from " + sqlName(session.SessionOwner) +
                                             u".calibration where mtag = " + mtagOf(session, asset),
                                         Rows::first);
        rows->next();
        result = numericValue(notNull(rows->value(0))) == 0;
    });
    return result;
}

} // namespace kelvane::ModuleGlobals
