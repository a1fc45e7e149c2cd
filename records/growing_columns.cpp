#include "records/growing_columns.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QStyle>
#include <QTableView>

#include <algorithm>
#include <utility>

namespace kelvane {

GrowingColumns::GrowingColumns(QTableView& table, int widest)
    : QObject(&table), table_(table), widest_(widest) {
    QObject::connect(table.horizontalHeader(), &QHeaderView::sectionResized, this,
                     [this](int, int before, int now) {
                         // A column that is hidden or shown again has none before or after.
                         if (!isGrowing_ && before > 0 && now > 0)
                             areKept_ = true;
                     });
}

void GrowingColumns::grow() {
    if (areKept_)
        return;
    const auto& header = *table_.horizontalHeader();
    if (!std::exchange(hasGrown_, true)) {
        const QScopedValueRollback growing(isGrowing_, true);
        for (int column = 0; column < header.count(); ++column)
            table_.setColumnWidth(column, header.minimumSectionSize());
    }
    // A table keeps its own hint to itself.
    const QAbstractItemView& cells = table_;
    for (int column = 0; column < header.count(); ++column)
        widen(column, std::max(cells.sizeHintForColumn(column), header.sectionSizeHint(column)));
}

void GrowingColumns::growFor(int column, const QString& text) {
    // As the table leaves around the text of a cell.
    const int around =
        2 * (table_.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &table_) + 1) + 2;
    widen(column, table_.fontMetrics().horizontalAdvance(text) + around);
}

void GrowingColumns::widen(int column, int width) {
    auto* header = table_.horizontalHeader();
    if (areKept_ || header->isSectionHidden(column))
        return;
    const QScopedValueRollback growing(isGrowing_, true);
    const int most = widest_ * table_.fontMetrics().averageCharWidth();
    header->resizeSection(column, std::max(header->sectionSize(column), std::min(width, most)));
}

} // namespace kelvane
