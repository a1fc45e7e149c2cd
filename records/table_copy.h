#pragma once

#include <QList>
#include <QString>

#include <functional>

class QAbstractItemModel;
class QTableView;

namespace kelvane {

/// What a table shows in a cell. Without one it is what its model has there.
using CellText = std::function<QString(int row, int column)>;

/// Rows as they are shown, under the titles of these columns: cells with a tab between them and between
/// quotes where they need it, lines that end with CR LF.
QString copiedRows(const QAbstractItemModel& model, const QList<int>& rows, const QList<int>& columns,
                   const CellText& cellText = {});

/// Puts the selected rows of a table, with the columns that it shows from left to right, on the clipboard;
/// without a selection the clipboard stays as it is.
void copySelectedRows(const QTableView& table);
/// Lets Ctrl+C in a table do so; by itself it would copy one cell.
void bindCopying(QTableView& table);

} // namespace kelvane
