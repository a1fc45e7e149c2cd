#pragma once

#include <QStringList>

class QListWidget;

namespace kelvane {

/// The texts of all rows, in order.
QStringList rowsOf(const QListWidget& list);
/// The selected row, -1 without one.
int selectedRow(const QListWidget& list);
/// Swaps the selected row with the one above (-1) or below (1) it; the selection follows. False, with
/// nothing moved, when no row is selected, there is no neighbour, or the row is empty.
bool moveSelectedRow(QListWidget& list, int direction);
/// Takes a row out of one list and puts its text at the end of another. Nothing stays selected in `from`.
void handOver(QListWidget& from, int row, QListWidget& to);

} // namespace kelvane
