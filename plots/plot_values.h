#pragma once

#include "plots/plot.h"

namespace kelvane {

/// A point of a plot, by the numbers of its series and of its place there.
struct PlotPlace {
    qsizetype series = 0;
    qsizetype point = 0;

    friend bool operator==(const PlotPlace&, const PlotPlace&) = default;
};

/// What is shown of a point: the name of its series, and its note, or its two values with the titles of the
/// axes.
QString plotValue(const Plot& plot, const PlotPlace& place);

/// The first point that is plotted, if any is.
std::optional<PlotPlace> firstPoint(const Plot& plot);

/// A step from a point to another that is plotted: to the next or the previous one of its series, to the
/// first or last one, or to the one of the next or previous series that is nearest on the horizontal axis.
/// Where there is none, the point itself.
enum class PlotStep { next, previous, first, last, nextSeries, previousSeries };
PlotPlace steppedFrom(const Plot& plot, const PlotPlace& place, PlotStep step);

} // namespace kelvane
