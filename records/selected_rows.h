#pragma once

#include <QList>

#include <optional>

class QAbstractItemView;

namespace kelvane {

/// The rows of a view of which something is selected, from the top, each once. The selection's own
/// `selectedRows` looks at each cell, which takes seconds for all rows of a large site.
QList<int> selectedRows(const QAbstractItemView& view);
/// The row that a key is for which opens one: the selected row, or the current one while none is selected.
/// Nothing while several are.
std::optional<int> rowToOpen(const QAbstractItemView& view);
/// Selects these rows of a view, given from the top, and no others.
void selectRows(QAbstractItemView& view, const QList<int>& rows);

} // namespace kelvane
