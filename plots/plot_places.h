#pragma once

#include "plots/plot_legend.h"
#include "plots/plot_ticks.h"

#include <QRectF>

#include <optional>

namespace kelvane {

/// A line of the grid, with its label; that is empty where it would touch another.
struct PlacedTick {
    /// On the axis, in the painter's coordinates.
    double position = 0;
    PlotText label = {};
};

struct PlacedLevel {
    double position = 0;
    PlotText label = {};
};

/// Where everything of a plot stands in a place, in the coordinates of its painter.
struct PlotPlaces {
    /// What the points are painted in; empty when the place is too small, or there is no point.
    QRectF area = {};
    PlotRange x = {};
    PlotRange y = {};
    QList<PlacedTick> xTicks = {};
    QList<PlacedTick> yTicks = {};
    QList<PlacedLevel> levels = {};
    QList<LegendEntry> legend = {};
    /// Title, titles of the axes and notes.
    PlotText title = {};
    QList<PlotText> texts = {};
    /// Where a point of bars is half as wide, how wide a bar is.
    double barWidth = 0;
    /// Of each series of bars, its distance from the middle of all of them; empty for the others.
    QList<std::optional<double>> barOffsets = {};

    double positionOfX(double value) const;
    double positionOfY(double value) const;
    /// Where a point is marked; the end of a bar.
    QPointF positionOf(qsizetype series, const PlotPoint& point) const;
    /// The bar of a point.
    QRectF barOf(qsizetype series, const PlotPoint& point) const;
};

/// What is too small for all of its parts does without axis titles, then the legend, the notes, the labels
/// and at last the picture itself. `letters` are those of the plot, `titleLetters` those of its title.
PlotPlaces placesOf(const Plot& plot, const QRectF& place, const PlotLetters& letters,
                    const PlotLetters& titleLetters);

} // namespace kelvane
