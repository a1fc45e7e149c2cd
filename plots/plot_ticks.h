#pragma once

#include <QList>
#include <QString>

namespace kelvane {

/// What an axis shows, in its own values. Always finite, `least` below `most`.
struct PlotRange {
    double least = 0;
    double most = 1;

    double size() const { return most - least; }
    friend bool operator==(const PlotRange&, const PlotRange&) = default;
};

/// A value of an axis that gets a line of the grid.
struct PlotTick {
    double value = 0;
    QString label = {};
};

/// Ticks in steps of 1, 2 or 5 times a power of ten: as many as there are up to `most` of them, which is at
/// least 1. Labels of one axis have the same number of decimals.
QList<PlotTick> numberTicks(const PlotRange& range, int most);

/// The same of Julian day numbers, in steps of days, weeks, months, quarters, half-years and years. A label
/// is as exact as the step: "2026-03-18", "2026-03" or "2026".
QList<PlotTick> dayTicks(const PlotRange& range, int most);

/// A value in at most 10 digits, without those that come from arithmetic alone.
QString plotNumber(double value);
/// "YYYY-MM-DD" of a Julian day number.
QString plotDay(double day);

/// The days that can be plotted: those of the years 100 to 9999.
PlotRange plottedDays();

} // namespace kelvane
