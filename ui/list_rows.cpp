#include "ui/list_rows.h"

#include "ui/guarded.h"

#include <QListWidget>
#include <QShortcut>

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

void handOver(QListWidget& from, int row, QListWidget& to) {
    const std::unique_ptr<QListWidgetItem> taken(from.takeItem(row));
    if (!taken)
        return;
    from.setCurrentRow(-1);
    from.setCurrentRow(qMin(row, from.count() - 1), QItemSelectionModel::NoUpdate);
    to.addItem(taken->text());
}

void onRowChosen(QListWidget* list, UserInterface& ui, const std::function<void(int row)>& chosen) {
    const auto choose = [list, chosen] {
        if (const int row = selectedRow(*list); row >= 0)
            chosen(row);
    };
    onSignal(list, &QListWidget::itemDoubleClicked, list, ui, choose);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* pressed = new QShortcut(QKeySequence(key), list);
        pressed->setContext(Qt::WidgetShortcut);
        onSignal(pressed, &QShortcut::activated, list, ui, choose);
    }
}

} // namespace kelvane
