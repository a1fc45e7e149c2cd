#include "records/column_menu.h"

#include "resources/strings.h"
#include "resources/text_id.h"

#include <QActionGroup>
#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace kelvane {

ColumnMenu::ColumnMenu(QHeaderView& header, Sorting sorting, QWidget* parent)
    : QMenu(parent), header_(header), sorting_(std::move(sorting)), order_(new QMenu(this)) {
    setObjectName(u"MenuColumns"_s);
    order_->setObjectName(u"MenuSortBy"_s);
    order_->setTitle(text(TextId::recordsSortBy));
    QObject::connect(this, &QMenu::aboutToShow, this, [this] { fill(); });
}

QString ColumnMenu::title(int column) const {
    return header_.model()
        ->headerData(column, Qt::Horizontal, Qt::DisplayRole)
        .toString()
        .replace(u'&', u"&&"_s);
}

void ColumnMenu::fill() {
    clear();
    order_->clear();
    fillShown();
    addSeparator();
    addMenu(order_);
    fillOrder();
}

void ColumnMenu::fillShown() {
    for (int place = 0; place < header_.count(); ++place) {
        const int column = header_.logicalIndex(place);
        auto* shown = addAction(title(column));
        shown->setCheckable(true);
        shown->setChecked(!header_.isSectionHidden(column));
        shown->setEnabled(!shown->isChecked() || header_.count() - header_.hiddenSectionCount() > 1);
        QObject::connect(shown, &QAction::toggled, this, [this, column](bool isShown) {
            header_.setSectionHidden(column, !isShown);
            // One that was narrowed to nothing comes back to be seen.
            if (isShown && header_.sectionSize(column) < header_.minimumSectionSize())
                header_.resizeSection(column, header_.defaultSectionSize());
        });
    }
}

void ColumnMenu::fillOrder() {
    const bool isDescending = header_.sortIndicatorOrder() == Qt::DescendingOrder;
    auto* columns = new QActionGroup(order_);
    for (int column = 0; column < header_.count(); ++column) {
        if (!sorting_.isPossible(column))
            continue;
        auto* order = order_->addAction(title(column));
        order->setCheckable(true);
        order->setChecked(column == header_.sortIndicatorSection());
        columns->addAction(order);
        QObject::connect(order, &QAction::triggered, this,
                         [this, column, isDescending] { sorting_.sort(column, isDescending); });
    }
    order_->addSeparator();
    auto* descending = order_->addAction(text(TextId::recordsDescending));
    descending->setCheckable(true);
    descending->setChecked(isDescending);
    QObject::connect(descending, &QAction::toggled, this,
                     [this](bool isOn) { sorting_.sort(header_.sortIndicatorSection(), isOn); });
}

} // namespace kelvane
