#pragma once

#include <QLineEdit>

namespace kelvane {

/// A text box for a value of any length: when it gets the focus its first 30 characters are selected, so that
/// typing replaces the value. When the focus only comes back from another window or from the box's own menu,
/// what the user had selected stays.
class EntryBox final : public QLineEdit {
  public:
    EntryBox();
    /// Narrower than a box for texts.
    QSize sizeHint() const override;

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    void selectValue() { setSelection(0, 30); }
    bool entered_ = false;
    bool away_ = false;
};

} // namespace kelvane
