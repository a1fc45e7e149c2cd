#pragma once

#include "data/history/standard_use.h"

#include <QAbstractTableModel>

namespace kelvane {

/// The calibrations with a standard, under the titles of `standardUseColumns`, in the order that the user
/// chooses. Rows without a value of the column that orders them come last in either direction.
class StandardUseModel final : public QAbstractTableModel {
    Q_OBJECT
  public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Shows these, in the order of the column that was chosen last.
    void show(const QList<StandardUse>& uses);
    const StandardUse& use(int row) const { return uses_.at(row); }
    /// All of them, as they are shown.
    const QList<StandardUse>& uses() const { return uses_; }
    /// The column with the dates.
    static int dateColumn();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

  private:
    void arrange();

    QList<StandardUse> uses_;
    int column_ = dateColumn();
    bool isDescending_ = true;
};

} // namespace kelvane
