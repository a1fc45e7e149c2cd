#include "drivers/worksheet_results.h"

#include "data/records/field_dictionary.h"
#include "data/records/record_columns.h"
#include "drivers/instrument_work.h"
#include "drivers/new_record.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr auto fieldsKey = "fields"_L1;
constexpr auto standardsKey = "standards"_L1;
constexpr auto dictionaryReadKey = "dictionaryRead"_L1;

constexpr QStringView dateColumn = u"C2301";
constexpr QStringView timeColumn = u"C2333";

/// A date or a time as in statements, which every session reads alike; anything else as it stands.
QString statementText(const Session& session, const QString& value, qint16 field_type) {
    const auto moment = momentOf(value, session.SessionDateFormat);
    const bool isDate = FieldKind{field_type} == FieldKind::date;
    if (!moment || (isDate && !moment->date.isValid()))
        return value;
    return ModuleGlobals::fieldText(session, value, field_type, ModuleGlobals::statementForm);
}

QString momentIn(const Session& session, const CalRecord& record, QStringView column, FieldKind kind) {
    const auto value = fieldValue(record, column).value_or(QString());
    return statementText(session, value, static_cast<qint16>(kind));
}

/// Values that were made of an incomplete dictionary, and not by the operator, are worth nothing.
void putIn(CalField& field, const QString& value, bool isDictionaryRead) {
    const bool isEntered = !value.isEmpty() && value != field.default_text;
    if (isDictionaryRead || isEntered)
        field.value = value;
}

void restoreFields(CalRecord& record, const QJsonObject& raw) {
    const bool isDictionaryRead = raw[dictionaryReadKey].toBool();
    const auto entered = raw[fieldsKey].toArray();
    const int rows = ModuleGlobals::calFieldCount(record);
    for (int row = 0; row < rows; ++row) {
        auto& field = record.CalFieldTable[row];
        for (const auto& value : entered) {
            if (field.column.compare(value[0].toString(), Qt::CaseInsensitive) == 0)
                putIn(field, value[1].toString(), isDictionaryRead);
        }
    }
}

/// The date and time of the entry hold where the operator has settled others since.
void restoreMoment(const Session& session, CalRecord& record, const JournalEntry& entry) {
    if (momentIn(session, record, dateColumn, FieldKind::date) != entry.date) {
        const FieldValue date{dateColumn, entry.date};
        fillFields(record, {&date, 1});
    }
    if (momentIn(session, record, timeColumn, FieldKind::time) != entry.time) {
        const FieldValue time{timeColumn, entry.time};
        fillFields(record, {&time, 1});
    }
}

} // namespace

void takeWorksheet(const Session& session, const CalRecord& record, bool isDictionaryRead,
                   JournalEntry& entry) {
    entry.driver = worksheetWord.toString();
    entry.calibrator = text(TextId::paperWorksheet);
    entry.date = momentIn(session, record, dateColumn, FieldKind::date);
    entry.time = momentIn(session, record, timeColumn, FieldKind::time);
    QJsonArray fields;
    for (int row = 0; row < ModuleGlobals::calFieldCount(record); ++row) {
        const auto& field = record.CalFieldTable[row];
        fields << QJsonArray{field.column, statementText(session, field.value, field.field_type)};
        entry.readings << field.title + u": "_s + field.value;
    }
    // An entry without a line would count as one of which nothing is known.
    if (entry.readings.isEmpty())
        entry.readings << text(TextId::assetCalibrated) + u": "_s + entry.asset;
    entry.raw = {{fieldsKey, fields},
                 {standardsKey, QJsonArray::fromStringList(entriesOf(record.RecordStandards))},
                 {dictionaryReadKey, isDictionaryRead}};
}

QString judgeWorksheetAgain(Session& session, JournalEntry& entry, CalRecord& record) {
    ModuleGlobals::SetCalDataFields(session, record, entry.asset);
    restoreFields(record, entry.raw);
    restoreMoment(session, record, entry);
    record.RecordResults.erase();
    record.RecordStandards.erase();
    const auto standards = entry.raw[standardsKey].toArray();
    for (int row = 0; row < standards.size(); ++row)
        record.RecordStandards[row] = standards[row].toString();
    return {};
}

} // namespace kelvane
