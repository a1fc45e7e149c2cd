#include "ui/arrow_button.h"

#include "ui/controls.h"

#include <QPainter>
#include <QStyleOption>

namespace kelvane {

ArrowButton::ArrowButton(Way way) : way_(way) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ArrowButton::sizeHint() const {
    const int side = QPushButton::sizeHint().height();
    return {side, side};
}

void ArrowButton::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    QStyleOption arrow;
    arrow.initFrom(this);
    const int inset = qMin(width(), height()) / 4;
    arrow.rect = rect().adjusted(inset, inset, -inset, -inset);
    QPainter painter(this);
    style()->drawPrimitive(way_ == Way::up ? QStyle::PE_IndicatorArrowUp : QStyle::PE_IndicatorArrowDown,
                           &arrow, &painter, this);
}

ArrowButton* arrowButton(const QString& name, ArrowButton::Way way, TextId toolTip) {
    return nameControl(new ArrowButton(way), name, text(toolTip), toolTip);
}

} // namespace kelvane
