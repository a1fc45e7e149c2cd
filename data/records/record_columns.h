#pragma once

#include "data/session.h"

namespace kelvane::ModuleGlobals {

/// 0 text, 1 date, 2 number, 3 time.
qint16 FieldType(Session& session, const QString& column);

/// The current value of a named column (or bare field number) for an asset, as text for a screen; empty for
/// an unknown beginning, a null or no row.
QString SourceColumn(Session& session, const QString& column, const QString& asset);

/// Stores a value into a named column of an asset; an empty value or "NULL" is stored as null. Copies to a
/// table other than `inventory` end in the error report: the statement is refused by the server.
void DestColumn(Session& session, const QString& column, const QString& asset, const QString& value);

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
