#include "plots/plot_ranges.h"

#include "testkit/fixtures.h"
#include "tests/plots/made_up_plots.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr auto noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr auto infinite = std::numeric_limits<double>::infinity();

Plot barsOf(const QList<PlotPoint>& points) {
    auto plot = plotOf(points);
    plot.series[0].isBars = true;
    return plot;
}

} // namespace

TEST(PlotRanges, LeaveRoomAroundThePoints) {
    const auto plot = plotOf({{0, 10}, {100, 30}});
    EXPECT_EQ(rangeOfX(plot), (PlotRange{-5, 105}));
    EXPECT_EQ(rangeOfY(plot), (PlotRange{9, 31}));
}

TEST(PlotRanges, ShowLevels) {
    auto plot = plotOf({{0, 10}, {100, 30}});
    plot.levels = {{u"limits"_s, 100}, {u"limits"_s, -100}, {u"none"_s, noNumber}};
    EXPECT_EQ(rangeOfY(plot), (PlotRange{-110, 110}));
}

TEST(PlotRanges, ShowWhatTheAxisAsksForAndNoMoreThere) {
    auto plot = plotOf({{0, 10}, {100, 30}});
    plot.y.least = 0;
    plot.y.most = 100;
    EXPECT_EQ(rangeOfY(plot), (PlotRange{0, 100}));
    plot.series[0].points[0].y = -100;
    EXPECT_EQ(rangeOfY(plot), (PlotRange{-110, 100}));
}

TEST(PlotRanges, IgnoreAnAxisThatAsksForWhatIsNoNumber) {
    auto plot = barsOf({{0, 10}, {100, 30}});
    plot.y.least = -infinite;
    plot.y.most = noNumber;
    EXPECT_EQ(rangeOfY(plot), (PlotRange{0, 31.5}));
}

TEST(PlotRanges, OfOnePointStandAroundIt) {
    EXPECT_EQ(rangeOfX(plotOf({{50, 0}})), (PlotRange{45, 55}));
    EXPECT_EQ(rangeOfY(plotOf({{50, 0}})), (PlotRange{-1, 1}));
    auto plot = plotOf({{dayOf(2026, 3, 18), 0}});
    plot.x.scale = PlotScale::days;
    EXPECT_EQ(rangeOfX(plot), (PlotRange{dayOf(2026, 3, 17), dayOf(2026, 3, 19)}));
}

TEST(PlotRanges, OfValuesThatDifferByRoundingAloneCountAsEqual) {
    const auto range = rangeOfY(plotOf({{0, 0.3}, {1, 0.1 + 0.2}}));
    EXPECT_NEAR(range.least, 0.27, 1e-3);
    EXPECT_NEAR(range.most, 0.33, 1e-3);
}

TEST(PlotRanges, OfHugeAndTinyValuesAreFinite) {
    for (const double size : {5e-324, 1e-300, 1e-30, 1e30, 1e300}) {
        for (const auto& points : {QList<PlotPoint>{{-size, -size}, {size, size}},
                                   QList<PlotPoint>{{size, size}}, QList<PlotPoint>{{0, 0}, {size, size}}}) {
            for (const auto& range : {rangeOfX(plotOf(points)), rangeOfY(barsOf(points))}) {
                EXPECT_TRUE(std::isfinite(range.least) && std::isfinite(range.most)) << size;
                EXPECT_GT(range.size(), 0) << size;
                EXPECT_FALSE(numberTicks(range, 12).isEmpty()) << size;
            }
        }
    }
}

TEST(PlotRanges, LeaveOutWhatIsNoNumberOrTooLarge) {
    const auto plot = plotOf({{0, noNumber}, {noNumber, 0}, {infinite, 1}, {1, -infinite}, {2, 1e301}});
    for (const auto& point : plot.series[0].points)
        EXPECT_FALSE(isPlotted(plot, point));
    EXPECT_FALSE(hasPlottedPoint(plot));
    EXPECT_EQ(rangeOfX(plot).least, 0 - 0.05);
    EXPECT_TRUE(isPlotted(plot, {1e300, -1e300}));
}

TEST(PlotRanges, LeaveOutDaysBeyondTheCalendarAndNamesThatDoNotExist) {
    Plot plot;
    plot.x.scale = PlotScale::days;
    EXPECT_TRUE(isPlotted(plot, {dayOf(100, 1, 1), 0}));
    EXPECT_FALSE(isPlotted(plot, {dayOf(100, 1, 1) - 1, 0}));
    EXPECT_TRUE(isPlotted(plot, {dayOf(9999, 12, 31), 0}));
    EXPECT_FALSE(isPlotted(plot, {dayOf(9999, 12, 31) + 1, 0}));
    plot.x = {.scale = PlotScale::names, .names = {u"a"_s, u"b"_s}};
    EXPECT_FALSE(isPlotted(plot, {-1, 0}));
    EXPECT_TRUE(isPlotted(plot, {1, 0}));
    EXPECT_FALSE(isPlotted(plot, {2, 0}));
    EXPECT_EQ(rangeOfX(plot), (PlotRange{-0.5, 1.5}));
}

TEST(PlotRanges, OfBarsBeginAtZero) {
    EXPECT_EQ(rangeOfY(barsOf({{0, 10}, {1, 30}})), (PlotRange{0, 31.5}));
    EXPECT_EQ(rangeOfY(barsOf({{0, -10}, {1, -30}})), (PlotRange{-31.5, 0}));
    EXPECT_EQ(rangeOfY(barsOf({{0, -10}, {1, 10}})), (PlotRange{-11, 11}));
    EXPECT_EQ(rangeOfY(barsOf({{0, 0}, {1, 0}})), (PlotRange{-1, 1}));
}

TEST(PlotRanges, OfBarsHaveRoomForTheOutermostOnes) {
    const auto plot = barsOf({{10, 1}, {12, 1}, {20, 1}, {12, 2}});
    EXPECT_EQ(roomOfBars(plot), 2);
    EXPECT_LE(rangeOfX(plot).least, 9);
    EXPECT_GE(rangeOfX(plot).most, 21);
    EXPECT_EQ(roomOfBars(barsOf({{10, 1}})), 1);
}

} // namespace kelvane::testing
