#pragma once

#include "plots/plot.h"
#include "plots/plot_painter.h"

namespace kelvane {

/// How the series of one plot are drawn, in the painter's units.
class PlotPens {
  public:
    /// `unit` is a hair line's width that can be seen, `mark` the size of a mark.
    PlotPens(const Plot& plot, const PlotLooks& looks, double unit, double mark);

    /// The points in their order; a point that has no place breaks the line.
    void drawLine(QPainter& painter, qsizetype series, const QList<QPolygonF>& pieces) const;
    void drawMark(QPainter& painter, qsizetype series, const QPointF& place) const;
    /// Shaded, hatched or empty, so that bars of several series differ without colours.
    void drawBar(QPainter& painter, qsizetype series, const QRectF& bar) const;
    /// What the legend shows of a series.
    void drawSample(QPainter& painter, qsizetype series, const QRectF& place) const;

  private:
    enum class Fill { shaded, hatched, empty, crossed };

    QColor color(qsizetype series) const;
    QPen pen(qsizetype series) const;
    /// Every second series is only outlined.
    bool isFilled(qsizetype series) const { return series % 2 == 0; }
    Fill fillOf(qsizetype series) const;
    void hatch(QPainter& painter, const QRectF& bar, bool isRising) const;

    const Plot& plot_;
    const PlotLooks& looks_;
    double unit_;
    double mark_;
};

} // namespace kelvane
