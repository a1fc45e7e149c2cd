#pragma once

#include <QLayout>

namespace kelvane {

/// A row of controls that goes on in a further row where there is no room for all of them.
class WrappingRow final : public QLayout {
    Q_OBJECT
  public:
    WrappingRow() = default;
    ~WrappingRow() override;

    void addItem(QLayoutItem* item) override { items_ << item; }
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override { return items_.value(index); }
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    /// All controls in one row.
    QSize sizeHint() const override;
    /// That of the widest control.
    QSize minimumSize() const override;
    void setGeometry(const QRect& area) override;

  private:
    /// Where each control stands in that width.
    QList<QRect> placesIn(int width) const;

    QList<QLayoutItem*> items_;
};

} // namespace kelvane
