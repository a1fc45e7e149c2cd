#include "ui/indicators.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

namespace kelvane {

namespace {

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

/// Halfway between the letters and what lies under them.
QColor outlineColor(const QPalette& palette) {
    const auto ground = palette.color(QPalette::Window);
    const auto letters = palette.color(QPalette::WindowText);
    return QColor((ground.red() + letters.red()) / 2, (ground.green() + letters.green()) / 2,
                  (ground.blue() + letters.blue()) / 2);
}

/// Styles make the outline of an indicator darker than what lies under it, which is invisible on a dark
/// ground.
void outline(QAbstractButton& button, QStyle::SubElement indicator) {
    if (!isDark(button.palette()))
        return;
    QStyleOptionButton option;
    option.initFrom(&button);
    const QRectF rect = button.style()->subElementRect(indicator, &option, &button);
    const auto line = rect.adjusted(0.5, 0.5, -0.5, -0.5);
    QPainter painter(&button);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(outlineColor(button.palette()));
    if (indicator == QStyle::SE_RadioButtonIndicator)
        painter.drawEllipse(line);
    else
        painter.drawRect(line);
}

} // namespace

void CheckBox::paintEvent(QPaintEvent* event) {
    QCheckBox::paintEvent(event);
    outline(*this, QStyle::SE_CheckBoxIndicator);
}

void RadioButton::paintEvent(QPaintEvent* event) {
    QRadioButton::paintEvent(event);
    outline(*this, QStyle::SE_RadioButtonIndicator);
}

} // namespace kelvane
