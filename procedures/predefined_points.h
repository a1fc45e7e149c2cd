#pragma once

#include <QStringList>

namespace kelvane {

/// The texts of the rows that offer pre-defined test points, in their order; the first is blank.
QStringList predefinedRows();
/// The points of that row, counted from 0, in order, as they go into a strategy. Empty for the blank row and
/// for what is no row.
QStringList predefinedPoints(int row);

} // namespace kelvane
