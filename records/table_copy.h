#pragma once

#include <QList>
#include <QString>

class QAbstractItemModel;
class QTableView;

namespace kelvane {

/// Rows as they are shown, under the titles of these columns: cells with a tab between them and between
/// quotes where they need it, lines that end with CR LF.
QString copiedRows(const QAbstractItemModel& model, const QList<int>& rows, const QList<int>& columns);

/// Puts the selected rows of a table, with the columns that it shows from left to right, on the clipboard;
/// without a selection the clipboard stays as it is.
void copySelectedRows(const QTableView& table);

} // namespace kelvane
