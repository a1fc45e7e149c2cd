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

} // namespace kelvane
