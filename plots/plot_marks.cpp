#include "plots/plot_marks.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace kelvane {

namespace {

QPolygonF triangle(const QRectF& place) {
    return QPolygonF({{place.center().x(), place.top()}, place.bottomRight(), place.bottomLeft()});
}

/// A colour between that of a series and the ground.
QColor shade(const QColor& color, const QColor& ground) {
    constexpr float share = 0.45F;
    const auto part = [](float first, float second) { return first + (second - first) * share; };
    return QColor::fromRgbF(part(color.redF(), ground.redF()), part(color.greenF(), ground.greenF()),
                            part(color.blueF(), ground.blueF()));
}

} // namespace

PlotPens::PlotPens(const Plot& plot, const PlotLooks& looks, double unit, double mark)
    : plot_(plot), looks_(looks), unit_(unit), mark_(mark) {}

QColor PlotPens::color(qsizetype series) const {
    return looks_.series.isEmpty() ? looks_.ink : looks_.series[series % looks_.series.size()];
}

QPen PlotPens::pen(qsizetype series) const {
    QPen pen(color(series), unit_ * 1.5);
    pen.setJoinStyle(Qt::MiterJoin);
    return pen;
}

PlotPens::Fill PlotPens::fillOf(qsizetype series) const {
    constexpr Fill fills[] = {Fill::shaded, Fill::hatched, Fill::empty, Fill::crossed};
    const auto before = std::count_if(plot_.series.begin(), plot_.series.begin() + series,
                                      [](const PlotSeries& other) { return other.isBars; });
    return fills[static_cast<std::size_t>(before) % std::size(fills)];
}

void PlotPens::drawLine(QPainter& painter, qsizetype series, const QList<QPolygonF>& pieces) const {
    const auto line = plot_.series[series].line;
    if (line == PlotLine::none)
        return;
    auto pen = this->pen(series);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::RoundJoin);
    if (line == PlotLine::dashed)
        pen.setDashPattern({5, 3});
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    // The time that a device takes for one long line grows with the square of its points.
    constexpr int mostPoints = 200;
    for (const auto& piece : pieces) {
        for (qsizetype first = 0; first < std::max<qsizetype>(piece.size() - 1, 1); first += mostPoints - 1)
            painter.drawPolyline(piece.constData() + first,
                                 static_cast<int>(std::min<qsizetype>(mostPoints, piece.size() - first)));
    }
}

void PlotPens::drawMark(QPainter& painter, qsizetype series, const QPointF& place) const {
    const auto half = mark_ / 2;
    const QRectF around(place.x() - half, place.y() - half, mark_, mark_);
    painter.setPen(pen(series));
    painter.setBrush(isFilled(series) ? color(series) : looks_.background);
    switch (plot_.series[series].mark) {
    case PlotMark::circle:
        painter.drawEllipse(around);
        break;
    case PlotMark::square: {
        const auto less = mark_ * 0.06; // a square looks larger than a circle of its width
        painter.drawRect(around.adjusted(less, less, -less, -less));
        break;
    }
    case PlotMark::triangle:
        painter.drawPolygon(triangle(around));
        break;
    case PlotMark::cross:
        painter.drawLine(around.topLeft(), around.bottomRight());
        painter.drawLine(around.bottomLeft(), around.topRight());
        break;
    }
}

/// Lines of 45 degrees, cut to the bar: what saves a plot as a file knows no patterns.
void PlotPens::hatch(QPainter& painter, const QRectF& bar, bool isRising) const {
    const auto distance = mark_ * 0.7;
    for (auto start = distance / 2; start < bar.width() + bar.height(); start += distance) {
        const QPointF upper(std::min(start, bar.width()), std::max(0.0, start - bar.width()));
        const QPointF lower(std::max(0.0, start - bar.height()), std::min(start, bar.height()));
        const auto placed = [&](const QPointF& point) {
            return QPointF(isRising ? bar.left() + point.x() : bar.right() - point.x(),
                           bar.top() + point.y());
        };
        painter.drawLine(placed(upper), placed(lower));
    }
}

void PlotPens::drawBar(QPainter& painter, qsizetype series, const QRectF& bar) const {
    const auto fill = fillOf(series);
    QPen outline(color(series), unit_);
    outline.setJoinStyle(Qt::MiterJoin);
    const bool isThin = bar.width() < 3 * unit_;
    painter.fillRect(bar, isThin                 ? color(series)
                          : fill == Fill::shaded ? shade(color(series), looks_.background)
                                                 : looks_.background);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(outline);
    if (isThin)
        return;
    if (fill == Fill::hatched || fill == Fill::crossed)
        hatch(painter, bar, true);
    if (fill == Fill::crossed)
        hatch(painter, bar, false);
    const bool isSmooth = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.drawRect(bar);
    painter.setRenderHint(QPainter::Antialiasing, isSmooth);
}

void PlotPens::drawSample(QPainter& painter, qsizetype series, const QRectF& place) const {
    const auto& shown = plot_.series[series];
    const auto middle = place.center();
    if (shown.isBars) {
        const auto height = place.height() * 0.6;
        drawBar(painter, series, {place.left(), middle.y() - height / 2, place.width(), height});
        return;
    }
    drawLine(painter, series,
             {QPolygonF({QPointF(place.left(), middle.y()), QPointF(place.right(), middle.y())})});
    if (shown.hasMarks)
        drawMark(painter, series, middle);
}

} // namespace kelvane
