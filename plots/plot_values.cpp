#include "plots/plot_values.h"

#include "plots/plot_ranges.h"

#include <QStringList>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

QString valueOnAxis(const PlotAxis& axis, double value) {
    switch (axis.scale) {
    case PlotScale::days:
        return plotDay(value);
    case PlotScale::names:
        return axis.names.value(qRound64(value));
    case PlotScale::numbers:
        break;
    }
    return plotNumber(value);
}

QString titledValue(const PlotAxis& axis, double value) {
    const auto shown = valueOnAxis(axis, value);
    return axis.title.isEmpty() ? shown : axis.title + u": "_s + shown;
}

/// The next point of a series that is plotted, from an index on; that index may be one that does not exist.
std::optional<PlotPlace> plottedFrom(const Plot& plot, PlotPlace place, qsizetype direction) {
    const auto& points = plot.series[place.series].points;
    for (; place.point >= 0 && place.point < points.size(); place.point += direction) {
        if (isPlotted(plot, points[place.point]))
            return place;
    }
    return std::nullopt;
}

std::optional<PlotPlace> nearestOf(const Plot& plot, qsizetype series, double x) {
    std::optional<PlotPlace> nearest;
    double least = 0;
    const auto& points = plot.series[series].points;
    for (qsizetype index = 0; index < points.size(); ++index) {
        const auto distance = std::abs(points[index].x - x);
        if (!isPlotted(plot, points[index]) || (nearest && distance >= least))
            continue;
        nearest = PlotPlace{series, index};
        least = distance;
    }
    return nearest;
}

std::optional<PlotPlace> inOtherSeries(const Plot& plot, const PlotPlace& place, qsizetype direction) {
    const auto x = plot.series[place.series].points[place.point].x;
    for (auto series = place.series + direction; series >= 0 && series < plot.series.size();
         series += direction) {
        if (const auto found = nearestOf(plot, series, x))
            return found;
    }
    return std::nullopt;
}

} // namespace

QString plotValue(const Plot& plot, const PlotPlace& place) {
    const auto& series = plot.series[place.series];
    const auto& point = series.points[place.point];
    QStringList lines;
    if (!series.name.isEmpty())
        lines << series.name;
    if (point.note.isEmpty())
        lines << titledValue(plot.x, point.x) << titledValue(plot.y, point.y);
    else
        lines << point.note;
    return lines.join(u'\n');
}

std::optional<PlotPlace> firstPoint(const Plot& plot) {
    for (qsizetype series = 0; series < plot.series.size(); ++series) {
        if (const auto found = plottedFrom(plot, {series, 0}, 1))
            return found;
    }
    return std::nullopt;
}

PlotPlace steppedFrom(const Plot& plot, const PlotPlace& place, PlotStep step) {
    const auto last = plot.series[place.series].points.size() - 1;
    const auto found = [&]() -> std::optional<PlotPlace> {
        switch (step) {
        case PlotStep::next:
            return plottedFrom(plot, {place.series, place.point + 1}, 1);
        case PlotStep::previous:
            return plottedFrom(plot, {place.series, place.point - 1}, -1);
        case PlotStep::first:
            return plottedFrom(plot, {place.series, 0}, 1);
        case PlotStep::last:
            return plottedFrom(plot, {place.series, last}, -1);
        case PlotStep::nextSeries:
            return inOtherSeries(plot, place, 1);
        case PlotStep::previousSeries:
            return inOtherSeries(plot, place, -1);
        }
        return std::nullopt;
    };
    return found().value_or(place);
}

} // namespace kelvane
