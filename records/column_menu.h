#pragma once

#include <QMenu>

#include <functional>

class QHeaderView;

namespace kelvane {

/// The menu of a table's columns, for the keyboard too: which of them are shown, and by which one the rows
/// are sorted. The last column that is shown stays.
class ColumnMenu final : public QMenu {
    Q_OBJECT
  public:
    /// What the menu does to the order of the rows.
    struct Sorting {
        std::function<bool(int column)> isPossible;
        std::function<void(int column, bool isDescending)> sort;
    };

    ColumnMenu(QHeaderView& header, Sorting sorting, QWidget* parent);

  private:
    void fill();
    void fillShown();
    void fillOrder();
    QString title(int column) const;

    QHeaderView& header_;
    Sorting sorting_;
    QMenu* order_;
};

} // namespace kelvane
