#pragma once

#include <QObject>

class QTableView;

namespace kelvane {

/// Widths of columns that grow with what comes into sight, up to so many characters, until somebody sets one
/// by hand: from then on all stay. It belongs to the table.
class GrowingColumns final : public QObject {
  public:
    GrowingColumns(QTableView& table, int widest);

    /// Makes each column wide enough for what is in sight; the first time as wide as that needs.
    void grow();
    /// Makes a column wide enough for a text that may be out of sight.
    void growFor(int column, const QString& text);
    /// The widths are those of somebody's hand.
    void keep() { areKept_ = true; }
    bool areKept() const { return areKept_; }

  private:
    void widen(int column, int width);

    QTableView& table_;
    int widest_;
    bool isGrowing_ = false;
    bool hasGrown_ = false;
    bool areKept_ = false;
};

} // namespace kelvane
