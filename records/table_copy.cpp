#include "records/table_copy.h"

#include "platform/values/csv.h"
#include "records/saved_columns.h"
#include "records/selected_rows.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QShortcut>
#include <QTableView>

namespace kelvane {

namespace {

constexpr CsvForm tabs{u'\t', u'.'};

} // namespace

QString copiedRows(const QAbstractItemModel& model, const QList<int>& rows, const QList<int>& columns,
                   const CellText& cellText) {
    const auto line = [&](const auto& cell) {
        QStringList cells;
        for (const int column : columns)
            cells << csvCell(cell(column), CsvCell::text, tabs);
        return csvLine(cells, tabs);
    };
    auto copied = line([&](int column) { return model.headerData(column, Qt::Horizontal).toString(); });
    for (const int row : rows)
        copied += line([&](int column) {
            return cellText ? cellText(row, column) : model.index(row, column).data().toString();
        });
    return copied;
}

void copySelectedRows(const QTableView& table) {
    const auto rows = selectedRows(table);
    if (rows.isEmpty())
        return;
    QApplication::clipboard()->setText(
        copiedRows(*table.model(), rows, shownColumns(*table.horizontalHeader())));
}

void bindCopying(QTableView& table) {
    auto* shortcut = new QShortcut(QKeySequence::Copy, &table);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(shortcut, &QShortcut::activated, &table, [&table] { copySelectedRows(table); });
}

} // namespace kelvane
