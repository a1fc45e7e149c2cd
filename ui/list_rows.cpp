#include "ui/list_rows.h"

#include <QListWidget>

#include <memory>

namespace kelvane {

QStringList rowsOf(const QListWidget& list) {
    QStringList rows;
    for (int row = 0; row < list.count(); ++row)
        rows << list.item(row)->text();
    return rows;
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
    to.addItem(taken->text());
}

} // namespace kelvane
