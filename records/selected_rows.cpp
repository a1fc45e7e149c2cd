#include "records/selected_rows.h"

#include <QAbstractItemView>

#include <algorithm>

namespace kelvane {

QList<int> selectedRows(const QAbstractItemView& view) {
    QList<int> rows;
    const auto selection = view.selectionModel()->selection();
    for (const auto& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows << row;
    }
    std::ranges::sort(rows);
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

std::optional<int> rowToOpen(const QAbstractItemView& view) {
    const auto selected = selectedRows(view);
    const auto current = view.currentIndex();
    if (selected.isEmpty() && current.isValid())
        return current.row();
    return selected.size() == 1 ? std::optional(selected.constFirst()) : std::nullopt;
}

void selectRows(QAbstractItemView& view, const QList<int>& rows) {
    const auto& model = *view.model();
    const int lastColumn = model.columnCount() - 1;
    QItemSelection selection;
    // A range for each row would take seconds for all rows of a large site.
    for (qsizetype first = 0, next = 0; first < rows.size(); first = next) {
        for (next = first + 1; next < rows.size() && rows[next] == rows[next - 1] + 1;)
            ++next;
        selection.select(model.index(rows[first], 0), model.index(rows[next - 1], lastColumn));
    }
    view.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

} // namespace kelvane
