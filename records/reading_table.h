#pragma once

#include "resources/strings.h"

class QTableView;
class QTableWidget;

namespace kelvane {

/// Sets a table up for reading: its rows are selected whole and are a line high, and Tab leaves it.
void setUpForReading(QTableView& table);
/// A table to read, with the titles of its columns and no rows yet. Ctrl+C copies its selected rows.
QTableWidget* readingTable(const QString& name, TextId accessibleName, const QStringList& titles);
/// Makes each column as wide as what it shows, but no wider than so many characters.
void fitColumns(QTableView& table, int widest);

} // namespace kelvane
