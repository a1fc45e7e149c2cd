#pragma once

#include "plots/plot.h"
#include "plots/plot_ticks.h"

namespace kelvane {

/// Whether a point has a place in its plot: values that are numbers, no larger than 1E+300, on an axis of
/// days one of the years 100 to 9999, and on one of names the number of a name. Others are left out.
bool isPlotted(const Plot& plot, const PlotPoint& point);
/// The same of a level.
bool isPlotted(const PlotLevel& level);
/// Whether any point of a plot is plotted.
bool hasPlottedPoint(const Plot& plot);

/// What the axes show: all points that are plotted, with some room around them, levels, zero below bars, and
/// what the axis shows at least. Equal values get a range around them.
PlotRange rangeOfX(const Plot& plot);
PlotRange rangeOfY(const Plot& plot);

/// The room of the bars at one place, on the horizontal axis: the least distance of two of them.
double roomOfBars(const Plot& plot);

} // namespace kelvane
