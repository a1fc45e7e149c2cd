#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace kelvane {

/// How the points of a series are marked, so that series can be told apart without colours.
enum class PlotMark { circle, square, triangle, cross };

/// What joins the points of a series.
enum class PlotLine { none, solid, dashed };

struct PlotPoint {
    /// On an axis of days a Julian day number, on one of names the number of the name, from 0.
    double x = 0;
    double y = 0;
    /// What is shown at the pointer instead of the two values; empty for these.
    QString note = {};
};

struct PlotSeries {
    QString name = {};
    PlotMark mark = PlotMark::circle;
    /// False for a line alone, such as a fitted one.
    bool hasMarks = true;
    PlotLine line = PlotLine::solid;
    /// Bars from zero in place of marks and line.
    bool isBars = false;
    QList<PlotPoint> points = {};
};

/// A line across the plot, such as a limit.
struct PlotLevel {
    QString name = {};
    double y = 0;
};

enum class PlotScale { numbers, days, names };

struct PlotAxis {
    QString title = {};
    PlotScale scale = PlotScale::numbers;
    /// Of an axis of names.
    QStringList names = {};
    /// What the axis shows at least.
    std::optional<double> least = {};
    std::optional<double> most = {};
};

/// A picture of figures: what is plotted, without its looks. The painter (`plots/plot_painter.h`) draws the
/// same on a screen, on paper and in a file.
struct Plot {
    QString title = {};
    PlotAxis x = {};
    PlotAxis y = {};
    QList<PlotSeries> series = {};
    QList<PlotLevel> levels = {};
    /// Sentences below the picture, such as how many lines were left out.
    QStringList notes = {};

    bool isEmpty() const {
        for (const auto& plotted : series) {
            if (!plotted.points.isEmpty())
                return false;
        }
        return true;
    }
};

} // namespace kelvane
