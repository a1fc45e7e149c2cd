#include "records/reading_table.h"

#include "records/table_copy.h"
#include "ui/controls.h"

#include <QHeaderView>
#include <QTableWidget>

#include <algorithm>

namespace kelvane {

namespace {

constexpr int aroundLine = 6; // pixels

} // namespace

void setUpForReading(QTableView& table) {
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setTabKeyNavigation(false);
    table.setAlternatingRowColors(true);
    table.setWordWrap(false);
    table.verticalHeader()->hide();
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + aroundLine);
    table.horizontalHeader()->setHighlightSections(false);
}

QTableWidget* readingTable(const QString& name, TextId accessibleName, const QStringList& titles) {
    auto* table =
        nameControl(new QTableWidget(0, static_cast<int>(titles.size())), name, text(accessibleName));
    table->setHorizontalHeaderLabels(titles);
    setUpForReading(*table);
    bindCopying(*table);
    return table;
}

void fitColumns(QTableView& table, int widest) {
    table.resizeColumnsToContents();
    auto* header = table.horizontalHeader();
    const int pixels = widest * table.fontMetrics().averageCharWidth();
    for (int column = 0; column < header->count(); ++column)
        header->resizeSection(column, std::min(header->sectionSize(column), pixels));
}

} // namespace kelvane
