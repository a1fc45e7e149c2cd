#include "tests/plots/made_up_plots.h"

#include <QDate>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

double dayOf(int year, int month, int day) {
    return static_cast<double>(QDate(year, month, day).toJulianDay());
}

Plot errorPlot() {
    PlotSeries found{.name = u"as found"_s, .mark = PlotMark::square};
    PlotSeries left{.name = u"as left"_s, .mark = PlotMark::circle};
    constexpr double errors[][2] = {{12, 5}, {48, 12}, {85, -14}, {131, 31}, {142, 22}, {98, -8}, {40, -10}};
    for (const auto& pair : errors) {
        const auto nominal = static_cast<double>(found.points.size()) * 25;
        found.points << PlotPoint{nominal, pair[0]};
        left.points << PlotPoint{nominal, pair[1]};
    }
    return {.title = u"Error of Each Point: PT-101"_s,
            .x = {.title = u"Nominal (psi)"_s},
            .y = {.title = u"Error (% of tolerance)"_s},
            .series = {found, left},
            .levels = {{u"limits"_s, 100}, {u"limits"_s, -100}},
            .notes = {u"2 of 11 lines can't be read for certain and are left out."_s}};
}

Plot driftPlot() {
    PlotSeries found{.name = u"as found"_s, .mark = PlotMark::square, .line = PlotLine::none};
    for (int index = 0; index < 11; ++index)
        found.points << PlotPoint{dayOf(2021, 2, 11) + index * 183,
                                  index * 11 - 30 + 8 * std::sin(index * 2.3)};
    const PlotSeries fit{.name = u"fitted line"_s,
                         .hasMarks = false,
                         .line = PlotLine::dashed,
                         .points = {{dayOf(2021, 2, 11), -32}, {dayOf(2027, 9, 1), 109}}};
    return {.title = u"Drift of Point 3"_s,
            .x = {.title = u"Day"_s, .scale = PlotScale::days},
            .y = {.title = u"Error (% of tolerance)"_s},
            .series = {found, fit},
            .levels = {{u"limits"_s, 100}, {u"limits"_s, -100}},
            .notes = {u"The fitted line leaves the limits on 2027-03-22."_s,
                      u"An interval of 214 days would be kept with 95 percent. The method assumes that the "
                      "drift is linear and that the instrument was not adjusted meanwhile."_s}};
}

Plot monthsPlot(int series) {
    Plot plot{.title = u"Pass Rate"_s,
              .x = {.title = u"month"_s, .scale = PlotScale::names},
              .y = {.title = u"Passed as found (%)"_s, .least = 0, .most = 100}};
    for (int month = 0; month < 24; ++month)
        plot.x.names << QDate(2024, 1, 1).addMonths(month).toString(u"yyyy-MM"_s);
    for (int number = 0; number < series; ++number) {
        PlotSeries bars{.name = u"group %1"_s.arg(number + 1), .isBars = true};
        for (int month = 0; month < 24; ++month)
            bars.points << PlotPoint{static_cast<double>(month), 70 + 30 * std::sin(month + number * 2)};
        plot.series << bars;
    }
    return plot;
}

Plot modelsPlot() {
    Plot plot{.title = u"Pass Rate"_s,
              .x = {.title = u"model"_s, .scale = PlotScale::names},
              .y = {.title = u"Passed as found (%)"_s, .least = 0, .most = 100}};
    PlotSeries bars{.isBars = true};
    for (int model = 0; model < 40; ++model) {
        const auto further = model % 5 == 0 ? u" with a long description of its range"_s : QString();
        plot.x.names << u"Model %1"_s.arg(1000 + model * 37) + further;
        bars.points << PlotPoint{static_cast<double>(model), 70 + 30 * std::sin(model * 1.7)};
    }
    plot.series << bars;
    return plot;
}

Plot plotOf(const QList<PlotPoint>& points) {
    return {.series = {{.points = points}}};
}

} // namespace kelvane::testing
