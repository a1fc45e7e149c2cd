#pragma once

#include <QCheckBox>
#include <QRadioButton>

namespace kelvane {

/// A check box whose empty indicator can be seen in dark palettes too.
class CheckBox final : public QCheckBox {
  public:
    using QCheckBox::QCheckBox;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The same for a radio button.
class RadioButton final : public QRadioButton {
  public:
    using QRadioButton::QRadioButton;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace kelvane
