#pragma once

#include "plots/plot.h"
#include "plots/plot_letters.h"
#include "plots/plot_text.h"

namespace kelvane {

struct LegendEntry {
    qsizetype series = 0;
    /// What shows its mark and line, or a piece of its bars.
    QRectF sample = {};
    PlotText name = {};
};

struct PlotLegend {
    QList<LegendEntry> entries = {};
    double height = 0;
};

/// The names of all series that have a name and a point, beside each other in as many rows as they need, each
/// in the middle of that width. The first row begins at 0.
PlotLegend legendOf(const Plot& plot, const PlotLetters& letters, double width);

} // namespace kelvane
