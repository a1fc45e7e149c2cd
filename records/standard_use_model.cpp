#include "records/standard_use_model.h"

#include "records/colors.h"
#include "records/lists.h"
#include "ui/whole_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const ListColumn<StandardUse>& columnAt(int column) {
    return standardUseColumns()[static_cast<std::size_t>(column)];
}

/// What a row is ordered by.
struct SortKey {
    /// Of a column of numbers.
    double number = 0;
    QString text = {};
    qsizetype row = 0;
};

SortKey keyOf(const StandardUse& use, int column) {
    const auto& shown = columnAt(column);
    const auto value = shown.value(use);
    switch (shown.title) {
    case TextId::listRecord:
        return {.number = value.toDouble(), .text = value};
    case TextId::listDate:
        // Those of one day in the order of their times.
        return {.text = value.isEmpty() ? value : value + u' ' + timeText(use.time)};
    default:
        return {.text = value.toUpper()};
    }
}

} // namespace

int StandardUseModel::dateColumn() {
    const auto found =
        std::ranges::find(standardUseColumns(), TextId::listDate, &ListColumn<StandardUse>::title);
    return static_cast<int>(found - standardUseColumns().begin());
}

void StandardUseModel::show(const QList<StandardUse>& uses) {
    beginResetModel();
    uses_ = uses;
    arrange();
    endResetModel();
}

void StandardUseModel::arrange() {
    QList<SortKey> keys;
    keys.reserve(uses_.size());
    for (const auto& use : std::as_const(uses_)) {
        keys << keyOf(use, column_);
        keys.last().row = keys.size() - 1;
    }
    std::ranges::stable_sort(keys, [this](const SortKey& left, const SortKey& right) {
        if (left.text.isEmpty() || right.text.isEmpty())
            return !left.text.isEmpty() && right.text.isEmpty();
        const auto& first = isDescending_ ? right : left;
        const auto& second = isDescending_ ? left : right;
        return first.number != second.number ? first.number < second.number : first.text < second.text;
    });
    QList<StandardUse> arranged;
    arranged.reserve(uses_.size());
    for (const auto& key : std::as_const(keys))
        arranged << uses_.at(key.row);
    uses_ = arranged;
}

int StandardUseModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(uses_.size());
}

int StandardUseModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(standardUseColumns().size());
}

QVariant StandardUseModel::data(const QModelIndex& index, int role) const {
    const auto& use = uses_.at(index.row());
    const auto& column = columnAt(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return column.value(use);
    case Qt::ToolTipRole:
        return wholeTextTip(column.value(use));
    case Qt::ForegroundRole:
        return column.title == TextId::listResult && use.passed == u"N" ? QVariant(alarmColor()) : QVariant();
    default:
        return {};
    }
}

QVariant StandardUseModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    if (role == Qt::DisplayRole)
        return text(columnAt(section).title);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    return {};
}

void StandardUseModel::sort(int column, Qt::SortOrder order) {
    if (column < 0 || column >= columnCount())
        return;
    column_ = column;
    isDescending_ = order == Qt::DescendingOrder;
    show(QList(uses_));
}

} // namespace kelvane
