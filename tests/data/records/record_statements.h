#pragma once

#include <QString>

namespace kelvane::testing {

// Statements that several routines of the record send.
extern const QString daysOffQuery;
extern const QString holidaysQuery;
extern const QString worksheetQuery;
/// Asks for the kind of a column.
QString typeQuery(const QString& column);

} // namespace kelvane::testing
