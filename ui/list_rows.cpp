#include "ui/list_rows.h"

#include "ui/guarded.h"

#include <QListWidget>
#include <QShortcut>
#include <QTreeWidget>

#include <memory>

namespace kelvane {

QStringList rowsOf(const QListWidget& list) {
    QStringList rows;
    for (int row = 0; row < list.count(); ++row)
        rows << list.item(row)->text();
    return rows;
}

void refill(QListWidget& list, const QStringList& rows) {
    list.clear();
    list.addItems(rows);
}

int selectedRow(const QListWidget& list) {
    const auto selected = list.selectionModel()->selectedRows();
    return selected.isEmpty() ? -1 : selected.first().row();
}

bool moveSelectedRow(QListWidget& list, int direction) {
    const int row = selectedRow(list);
    const int neighbour = row + direction;
    if (row < 0 || neighbour < 0 || neighbour >= list.count() || list.item(row)->text().isEmpty())
        return false;
    list.insertItem(neighbour, list.takeItem(row));
    list.setCurrentRow(neighbour);
    return true;
}

QString takeRow(QListWidget& list, int row) {
    const std::unique_ptr<QListWidgetItem> taken(list.takeItem(row));
    if (!taken)
        return {};
    // The row that follows is not selected by itself, or a second click would take it too.
    list.setCurrentRow(-1);
    list.setCurrentRow(qMin(row, list.count() - 1), QItemSelectionModel::NoUpdate);
    return taken->text();
}

void moveRow(QListWidget& from, int row, QListWidget& to) {
    if (row >= 0 && row < from.count())
        to.addItem(takeRow(from, row));
}

namespace {

int selectedRowOf(const QListWidget& list) {
    return selectedRow(list);
}

int selectedRowOf(const QTreeWidget& list) {
    const auto selected = list.selectedItems();
    return selected.isEmpty() ? -1 : list.indexOfTopLevelItem(selected.first());
}

int currentRowOf(const QListWidget& list) {
    return list.currentRow();
}

int currentRowOf(const QTreeWidget& list) {
    return list.indexOfTopLevelItem(list.currentItem());
}

/// Calls `handler` for a key that is pressed while the list itself has the focus.
void onKey(Qt::Key key, QWidget* list, UserInterface& ui, const std::function<void()>& handler) {
    auto* pressed = new QShortcut(QKeySequence(key), list);
    pressed->setContext(Qt::WidgetShortcut);
    connectGuarded(pressed, &QShortcut::activated, list, ui, handler);
}

template <class List>
void connectRows(List* list, UserInterface& ui, const std::function<void(int row)>& chosen) {
    connectGuarded(list, &List::itemDoubleClicked, list, ui, [list, chosen] {
        if (const int row = selectedRowOf(*list); row >= 0)
            chosen(row);
    });
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        // The row with the frame of the focus, selected or not: so one after the other can be chosen.
        onKey(key, list, ui, [list, chosen] {
            if (const int row = currentRowOf(*list); row >= 0)
                chosen(row);
        });
    }
}

} // namespace

void onRowChosen(QListWidget* list, UserInterface& ui, const std::function<void(int row)>& chosen) {
    connectRows(list, ui, chosen);
}

void onRowChosen(QTreeWidget* list, UserInterface& ui, const std::function<void(int row)>& chosen) {
    connectRows(list, ui, chosen);
}

void onDelete(QListWidget* list, UserInterface& ui, const std::function<void()>& deleting) {
    onKey(Qt::Key_Delete, list, ui, deleting);
}

} // namespace kelvane
