#pragma once

#include "plots/plot.h"
#include "plots/plot_places.h"

#include <QColor>
#include <QFont>
#include <QRectF>

class QPaintDevice;
class QPainter;

namespace kelvane {

/// What a plot is painted with. Series differ in marks and dashes, so that one colour is enough.
struct PlotLooks {
    /// Sized in points, by the resolution of the painter's device, or in pixels, which are units of the
    /// painter's coordinates. All other lengths follow from its letters.
    QFont font = {};
    QColor background = Qt::white;
    QColor ink = Qt::black;
    QColor grid = QColor(0xd0, 0xd0, 0xd0);
    QList<QColor> series = {Qt::black};
};

/// Paints a plot into `place`, in the painter's coordinates, with title, axes, legend and notes; a text that
/// is wider than its place is shortened in its middle, and labels that would touch are left out. A plot
/// without a point that can be plotted shows its title and notes alone. Nothing is painted beside `place`.
void paintPlot(QPainter& painter, const QRectF& place, const Plot& plot, const PlotLooks& looks);

/// Where `paintPlot` paints on that device.
PlotPlaces paintedPlaces(const QPaintDevice& device, const QRectF& place, const Plot& plot,
                         const PlotLooks& looks);

} // namespace kelvane
