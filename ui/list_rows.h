#pragma once

#include <QStringList>

#include <functional>

class QListWidget;
class QTreeWidget;

namespace kelvane {

class UserInterface;

/// The texts of all rows, in order.
QStringList rowsOf(const QListWidget& list);
/// Replaces all rows by these; none is selected.
void refill(QListWidget& list, const QStringList& rows);
/// The selected row, -1 without one.
int selectedRow(const QListWidget& list);
/// Swaps the selected row with the one above (-1) or below (1) it; the selection follows. False, with
/// nothing moved, when no row is selected, there is no neighbour, or the row is empty.
bool moveSelectedRow(QListWidget& list, int direction);
/// Takes a row out of the list and gives its text, empty when there is no such row. Nothing stays selected,
/// but the keyboard stands on the row that follows.
QString takeRow(QListWidget& list, int row);
/// Takes a row out of one list and puts its text at the end of another.
void moveRow(QListWidget& from, int row, QListWidget& to);
/// Calls `chosen` with the row that the user double-clicks, or stands on when Return is pressed.
void onRowChosen(QListWidget* list, UserInterface& ui, const std::function<void(int row)>& chosen);
void onRowChosen(QTreeWidget* list, UserInterface& ui, const std::function<void(int row)>& chosen);
/// Calls `deleting` when Delete is pressed while the list has the focus.
void onDelete(QListWidget* list, UserInterface& ui, const std::function<void()>& deleting);

} // namespace kelvane
