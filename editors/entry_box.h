#pragma once

#include <QLineEdit>

namespace kelvane {

/// A text box for a value: when it gets the focus its first 30 characters are selected, so that typing
/// replaces the value.
class EntryBox final : public QLineEdit {
  public:
    using QLineEdit::QLineEdit;
    /// Narrower than a box for texts.
    QSize sizeHint() const override;

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    void selectValue() { setSelection(0, 30); }
    bool entered_ = false;
};

} // namespace kelvane
