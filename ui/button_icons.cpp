#include "ui/button_icons.h"

#include <QApplication>
#include <QIcon>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace kelvane {

namespace {

/// The lines are given on a square of this side.
constexpr double side = 16;
constexpr double thickness = 2;

struct IconLine {
    ButtonIcon icon;
    QPolygonF points;
};

const QList<IconLine>& iconLines() {
    using enum ButtonIcon;
    static const QList<IconLine> lines{
        {accept, {{3, 8.5}, {6.5, 12}, {13, 4.5}}},
        {cancel, {{4, 4}, {12, 12}}},
        {cancel, {{12, 4}, {4, 12}}},
        {add, {{8, 3}, {8, 13}}},
        {add, {{3, 8}, {13, 8}}},
        {remove, {{3, 8}, {13, 8}}},
        // A diskette with shutter and label.
        {save, {{3, 3}, {11, 3}, {13, 5}, {13, 13}, {3, 13}, {3, 3}}},
        {save, {{6, 5}, {9, 5}}},
        {save, {{6.5, 9.5}, {9.5, 9.5}}},
        // A printer between two sheets.
        {print, {{5, 5}, {5, 2}, {11, 2}, {11, 5}}},
        {print, {{4, 11}, {2, 11}, {2, 6}, {14, 6}, {14, 11}, {12, 11}}},
        {print, {{5, 10}, {5, 14}, {11, 14}, {11, 10}}},
        // An arrow into a tray.
        {download, {{8, 2.5}, {8, 9.5}}},
        {download, {{5, 6.5}, {8, 9.5}, {11, 6.5}}},
        {download, {{3, 10}, {3, 13}, {13, 13}, {13, 10}}},
    };
    return lines;
}

/// Draws anew each time: the colours may have changed.
class LineEngine final : public QIconEngine {
  public:
    explicit LineEngine(ButtonIcon icon) : icon_(icon) {}

    QIconEngine* clone() const override { return new LineEngine(icon_); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto color = QApplication::palette("QPushButton").color(group, QPalette::ButtonText);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(color, thickness, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / side, rect.height() / side);
        for (const auto& line : iconLines()) {
            if (line.icon == icon_)
                painter->drawPolyline(line.points);
        }
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap made(size);
        made.fill(Qt::transparent);
        QPainter painter(&made);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return made;
    }

  private:
    ButtonIcon icon_;
};

} // namespace

QIcon buttonIcon(ButtonIcon icon) {
    return QIcon(new LineEngine(icon));
}

} // namespace kelvane
