#pragma once

#include "plots/plot.h"

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QRectF>

class QPainter;

namespace kelvane {

/// What a plot is painted with. Series differ in marks and dashes, so that one colour is enough.
struct PlotLooks {
    /// Sized in points: the painter's device says how large that is.
    QFont font = {};
    QColor background = Qt::white;
    QColor ink = Qt::black;
    QColor grid = QColor(0xd0, 0xd0, 0xd0);
    QList<QColor> series = {Qt::black};
};

/// Paints a plot into `place`, in the painter's coordinates, with title, axes, legend and notes; a text that
/// is wider than its place is shortened in its middle, and labels that would touch are left out. An empty
/// plot shows its title and notes alone.
void paintPlot(QPainter& painter, const QRectF& place, const Plot& plot, const PlotLooks& looks);

} // namespace kelvane
