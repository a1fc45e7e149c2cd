#include "plots/plot_values.h"

#include "testkit/fixtures.h"
#include "tests/plots/made_up_plots.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr auto noNumber = std::numeric_limits<double>::quiet_NaN();

Plot threeSeries() {
    return {.series = {{.points = {{noNumber, 1}, {1, 1}, {5, noNumber}, {9, 1}}},
                       {.points = {{2, noNumber}}},
                       {.points = {{0, 2}, {4, 2}, {8, 2}, {12, 2}}}}};
}

} // namespace

TEST(PlotValues, AreThoseOfThePointWithTheirTitles) {
    auto plot = errorPlot();
    EXPECT_EQ(plotValue(plot, {1, 2}), u"as left\nNominal (psi): 50\nError (% of tolerance): -14"_s);
    plot.x.title.clear();
    plot.y.title.clear();
    plot.series[1].name.clear();
    EXPECT_EQ(plotValue(plot, {1, 2}), u"50\n-14"_s);
}

TEST(PlotValues, OfADayAndOfANameAreWords) {
    EXPECT_EQ(plotValue(driftPlot(), {0, 0}), u"as found\nDay: 2021-02-11\nError (% of tolerance): -30"_s);
    auto plot = monthsPlot(1);
    plot.series[0].points[1].y = 75;
    EXPECT_EQ(plotValue(plot, {0, 1}), u"group 1\nmonth: 2024-02\nPassed as found (%): 75"_s);
}

TEST(PlotValues, GiveWayToANote) {
    auto plot = monthsPlot(1);
    plot.series[0].points[1].note = u"3 of 4 passed"_s;
    EXPECT_EQ(plotValue(plot, {0, 1}), u"group 1\n3 of 4 passed"_s);
}

TEST(PlotValues, StepOverPointsThatAreNotPlotted) {
    const auto plot = threeSeries();
    EXPECT_EQ(firstPoint(plot), (PlotPlace{0, 1}));
    EXPECT_EQ(steppedFrom(plot, {0, 1}, PlotStep::next), (PlotPlace{0, 3}));
    EXPECT_EQ(steppedFrom(plot, {0, 3}, PlotStep::previous), (PlotPlace{0, 1}));
    EXPECT_EQ(steppedFrom(plot, {0, 3}, PlotStep::first), (PlotPlace{0, 1}));
    EXPECT_EQ(steppedFrom(plot, {2, 0}, PlotStep::last), (PlotPlace{2, 3}));
}

TEST(PlotValues, StepToTheNearestPointOfAnotherSeries) {
    const auto plot = threeSeries();
    EXPECT_EQ(steppedFrom(plot, {0, 3}, PlotStep::nextSeries), (PlotPlace{2, 2}));
    EXPECT_EQ(steppedFrom(plot, {2, 3}, PlotStep::previousSeries), (PlotPlace{0, 3}));
}

TEST(PlotValues, StayAtTheEnds) {
    const auto plot = threeSeries();
    EXPECT_EQ(steppedFrom(plot, {0, 1}, PlotStep::previous), (PlotPlace{0, 1}));
    EXPECT_EQ(steppedFrom(plot, {2, 3}, PlotStep::next), (PlotPlace{2, 3}));
    EXPECT_EQ(steppedFrom(plot, {0, 1}, PlotStep::previousSeries), (PlotPlace{0, 1}));
    EXPECT_EQ(steppedFrom(plot, {2, 0}, PlotStep::nextSeries), (PlotPlace{2, 0}));
    EXPECT_EQ(firstPoint(plotOf({{noNumber, 1}})), std::nullopt);
    EXPECT_EQ(firstPoint({}), std::nullopt);
}

} // namespace kelvane::testing
