#include "ui/wrapping_row.h"

namespace kelvane {

WrappingRow::~WrappingRow() {
    qDeleteAll(items_);
}

QLayoutItem* WrappingRow::takeAt(int index) {
    return index >= 0 && index < items_.size() ? items_.takeAt(index) : nullptr;
}

QList<QRect> WrappingRow::placesIn(int width) const {
    QList<QRect> places;
    QPoint next;
    int rowHeight = 0;
    for (const auto* item : items_) {
        const auto size = item->sizeHint();
        if (next.x() > 0 && next.x() + size.width() > width) {
            next = {0, next.y() + rowHeight + spacing()};
            rowHeight = 0;
        }
        places << QRect(next, size);
        next.rx() += size.width() + spacing();
        rowHeight = qMax(rowHeight, size.height());
    }
    return places;
}

int WrappingRow::heightForWidth(int width) const {
    QRect whole;
    for (const auto& place : placesIn(width))
        whole |= place;
    return whole.height();
}

QSize WrappingRow::sizeHint() const {
    QRect whole;
    for (const auto& place : placesIn(QLAYOUTSIZE_MAX))
        whole |= place;
    return whole.size();
}

QSize WrappingRow::minimumSize() const {
    QSize least;
    for (const auto* item : items_)
        least = least.expandedTo(item->sizeHint());
    return least;
}

void WrappingRow::setGeometry(const QRect& area) {
    QLayout::setGeometry(area);
    const auto places = placesIn(area.width());
    for (qsizetype at = 0; at < places.size(); ++at)
        items_[at]->setGeometry(places[at].translated(area.topLeft()));
}

} // namespace kelvane
