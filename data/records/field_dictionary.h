#pragma once

#include "data/records/cal_record.h"
#include "platform/database/sql.h"

namespace kelvane::ModuleGlobals {

/// Fills `CalFieldTable` from the site's field dictionary, with defaults and values carried forward for the
/// asset.
void SetCalDataFields(Session& session, CalRecord& record, const QString& asset);

/// 0 text, 1 date, 2 number, 3 time.
qint16 FieldType(Session& session, const QString& column);

/// The current value of a named column (or bare field number) for an asset, as text for a screen; empty for
/// an unknown beginning, a null or no row.
QString SourceColumn(Session& session, const QString& column, const QString& asset);

/// Stores a value into a named column of an asset; an empty value or "NULL" is stored as null. Copies to a
/// table other than `inventory` end in the error report: the statement is refused by the server.
void DestColumn(Session& session, const QString& column, const QString& asset, const QString& value);

/// True when the asset has no calibration record yet.
bool FirstCal(Session& session, const QString& asset);

/// The rows of `CalFieldTable` in use: those before the first empty `column`.
int calFieldCount(const CalRecord& record);
/// The first row of `CalFieldTable` whose `column` ends in this field number.
std::optional<int> calFieldRow(const CalRecord& record, const QString& number);
/// The field numbers that a worksheet asks for, in their order.
inline constexpr SqlWords worksheetFieldsQuery =
    u"select fldnum from mt.hvm_kv_worksheetfields order by sequence asc";

/// How dates and times of fields are written.
struct FieldForm {
    QStringView date;
    QStringView time;
};
/// As in statements.
inline constexpr FieldForm statementForm{u"YYYY-MM-DD", u"HH:NN:SS"};
/// As on screens; it reads the session, which must outlive it.
FieldForm screenForm(const Session& session);
/// The value of a date field; error 13 when it is no date, as a time alone is none.
Moment requireDate(const Session& session, const QString& value);
/// `value` in that form when it belongs to a date or a time field, as it stands otherwise or when it is
/// empty. Error 13 when it is no date or time.
QString fieldText(const Session& session, const QString& value, qint16 field_type, const FieldForm& form);

} // namespace kelvane::ModuleGlobals
