#pragma once

#include "resources/strings.h"

#include <QPushButton>

namespace kelvane {

/// A square button with an arrow in the colour of the palette, for moving a row of a list.
class ArrowButton final : public QPushButton {
  public:
    enum class Way { up, down };
    explicit ArrowButton(Way way);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Way way_;
};

/// An arrow button with its name; what it does is its tool-tip and what a screen reader says.
ArrowButton* arrowButton(const QString& name, ArrowButton::Way way, TextId toolTip);

} // namespace kelvane
