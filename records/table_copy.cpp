#include "records/table_copy.h"

#include "platform/values/csv.h"
#include "records/saved_columns.h"
#include "records/selected_rows.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QTableView>

namespace kelvane {

namespace {

constexpr CsvForm tabs{u'\t', u'.'};

} // namespace

QString copiedRows(const QAbstractItemModel& model, const QList<int>& rows, const QList<int>& columns) {
    const auto line = [&](const auto& cell) {
        QStringList cells;
        for (const int column : columns)
            cells << csvCell(cell(column).toString(), CsvCell::text, tabs);
        return csvLine(cells, tabs);
    };
    auto copied = line([&](int column) { return model.headerData(column, Qt::Horizontal); });
    for (const int row : rows)
        copied += line([&](int column) { return model.index(row, column).data(); });
    return copied;
}

void copySelectedRows(const QTableView& table) {
    const auto rows = selectedRows(table);
    if (rows.isEmpty())
        return;
    QApplication::clipboard()->setText(
        copiedRows(*table.model(), rows, shownColumns(*table.horizontalHeader())));
}

} // namespace kelvane
