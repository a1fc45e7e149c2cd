#pragma once

#include <QStringList>

namespace kelvane {

/// The texts of the rows that offer pre-defined test points, in their order; the first is blank.
QStringList predefinedRows();
/// The points of the row of that text, in order, as they go into a strategy. Empty for the blank row and for
/// a text that is no row.
QStringList predefinedPoints(const QString& row);

} // namespace kelvane
