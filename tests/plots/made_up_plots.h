#pragma once

#include "plots/plot.h"

namespace kelvane::testing {

/// The Julian day number of a date.
double dayOf(int year, int month, int day);

/// Errors in percent of the tolerance as found and as left, with limits of +-100.
Plot errorPlot();
/// Points over five years with a fitted line.
Plot driftPlot();
/// Bars of so many series by 24 months.
Plot monthsPlot(int series);
/// Bars by 40 models, some of long names.
Plot modelsPlot();

/// A plot of one series of numbers.
Plot plotOf(const QList<PlotPoint>& points);

} // namespace kelvane::testing
