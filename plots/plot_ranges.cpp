#include "plots/plot_ranges.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kelvane {

namespace {

constexpr double largestPlotted = 1e300;
/// A range that is smaller, against its values, can't be told from rounding.
constexpr double leastShare = 1e-9;
/// Room beside the outermost points, as a share of the range.
constexpr double room = 0.05;

bool isPlottedValue(double value) {
    return std::abs(value) <= largestPlotted; // false for no number
}

bool isPlottedAt(const PlotAxis& axis, double x) {
    switch (axis.scale) {
    case PlotScale::names:
        return x > -0.5 && x < static_cast<double>(axis.names.size()) - 0.5;
    case PlotScale::days:
        return x >= plottedDays().least && x <= plottedDays().most;
    case PlotScale::numbers:
        break;
    }
    return isPlottedValue(x);
}

/// The least and the greatest of some values.
struct Extent {
    double least = std::numeric_limits<double>::infinity();
    double most = -std::numeric_limits<double>::infinity();

    bool isEmpty() const { return least > most; }
    void add(double value) {
        least = std::min(least, value);
        most = std::max(most, value);
    }
};

/// Equal values, and those that differ by rounding alone, get a range around them; false for others.
bool widen(Extent& extent, PlotScale scale) {
    const auto largest = std::max(std::abs(extent.least), std::abs(extent.most));
    const auto least = scale == PlotScale::days ? 2.0 : std::max(largest * leastShare, 1 / largestPlotted);
    if (extent.most - extent.least >= least)
        return false;
    const auto middle = extent.least / 2 + extent.most / 2;
    auto half = 1.0;
    if (scale != PlotScale::days && largest > 1 / largestPlotted)
        half = std::max(largest * 0.1, 2 / largestPlotted);
    extent = {middle - half, middle + half};
    return true;
}

std::optional<double> usable(std::optional<double> bound) {
    return bound && isPlottedValue(*bound) ? bound : std::nullopt;
}

/// Adds the room around the values, and what the axis shows at least.
PlotRange rangeOf(const PlotAxis& axis, Extent values) {
    const auto least = usable(axis.least);
    const auto most = usable(axis.most);
    auto whole = values;
    for (const auto& bound : {least, most}) {
        if (bound)
            whole.add(*bound);
    }
    if (whole.isEmpty())
        whole = {0, 1};
    const bool hasRoom = widen(whole, axis.scale);
    const auto added = !hasRoom ? whole.most * room - whole.least * room : 0;
    return {least && *least <= values.least ? whole.least : whole.least - added,
            most && *most >= values.most ? whole.most : whole.most + added};
}

bool hasBars(const Plot& plot) {
    return std::ranges::any_of(plot.series, &PlotSeries::isBars);
}

template <class Take>
void forEachPlotted(const Plot& plot, const Take& take) {
    for (const auto& series : plot.series) {
        for (const auto& point : series.points) {
            if (isPlotted(plot, point))
                take(series, point);
        }
    }
}

} // namespace

bool isPlotted(const Plot& plot, const PlotPoint& point) {
    return isPlottedValue(point.y) && isPlottedAt(plot.x, point.x);
}

bool isPlotted(const PlotLevel& level) {
    return isPlottedValue(level.y);
}

bool hasPlottedPoint(const Plot& plot) {
    return std::ranges::any_of(plot.series, [&](const PlotSeries& series) {
        return std::ranges::any_of(series.points,
                                   [&](const PlotPoint& point) { return isPlotted(plot, point); });
    });
}

PlotRange rangeOfX(const Plot& plot) {
    if (plot.x.scale == PlotScale::names)
        return {-0.5, static_cast<double>(std::max<qsizetype>(plot.x.names.size(), 1)) - 0.5};
    Extent values;
    const auto half = hasBars(plot) ? roomOfBars(plot) / 2 : 0;
    forEachPlotted(plot, [&](const PlotSeries&, const PlotPoint& point) {
        values.add(point.x - half);
        values.add(point.x + half);
    });
    return rangeOf(plot.x, values);
}

PlotRange rangeOfY(const Plot& plot) {
    Extent values;
    forEachPlotted(plot, [&](const PlotSeries& series, const PlotPoint& point) {
        values.add(point.y);
        if (series.isBars)
            values.add(0);
    });
    for (const auto& level : plot.levels) {
        if (isPlotted(level))
            values.add(level.y);
    }
    const auto range = rangeOf(plot.y, values);
    if (!hasBars(plot))
        return range;
    // Bars that all go one way stand on the edge.
    if (values.least == 0 && values.most > 0)
        return {std::min(0.0, usable(plot.y.least).value_or(0)), range.most};
    if (values.most == 0 && values.least < 0)
        return {range.least, std::max(0.0, usable(plot.y.most).value_or(0))};
    return range;
}

double roomOfBars(const Plot& plot) {
    if (plot.x.scale == PlotScale::names)
        return 1;
    QList<double> places;
    forEachPlotted(plot, [&](const PlotSeries& series, const PlotPoint& point) {
        if (series.isBars)
            places << point.x;
    });
    std::ranges::sort(places);
    auto least = std::numeric_limits<double>::infinity();
    for (qsizetype index = 1; index < places.size(); ++index) {
        const auto distance = places[index] - places[index - 1];
        if (distance > 0)
            least = std::min(least, distance);
    }
    return std::isinf(least) ? 1 : least;
}

} // namespace kelvane
