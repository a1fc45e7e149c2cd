#pragma once

#include "ui/colors.h"

#include <QProxyStyle>

namespace kelvane {

class SettingsStore;

/// The program's own style, over that of the desktop, whose shapes and measures stay: fields, lists, buttons,
/// indicators and child windows have an outline that can be seen on every ground, the one with the focus a
/// thicker one in the colour of the selection; a field that can only be read has the ground of the window;
/// rows of lists alternate; letters of desktop colours can be read; the tool tip of a field has the whole
/// text where that is cut off.
class Style final : public QProxyStyle {
    Q_OBJECT
  public:
    /// Over the style of that name, or over the desktop's.
    explicit Style(const QString& key);
    Style() = default;

    using QProxyStyle::polish;
    using QProxyStyle::unpolish;
    void polish(QPalette& palette) override;
    void polish(QWidget* widget) override;
    void unpolish(QWidget* widget) override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// The colours that the user has chosen: the setting `Colors` of the section "Looks". Those of the desktop
/// when the store can't be read.
Colors chosenColors(const SettingsStore& settings);

/// Gives the application this style, and those colours. Called once, before the first window.
void setLooks(Colors colors);

} // namespace kelvane
