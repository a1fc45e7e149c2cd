#include "plots/plot_legend.h"

#include "testkit/fixtures.h"
#include "tests/plots/made_up_plots.h"
#include "tests/plots/painted.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class PlotLegends : public ::testing::Test {
  protected:
    PaintedDevice device;
    PlotLetters letters{QFontMetricsF(testLooks().font, &device)};
};

} // namespace

TEST_F(PlotLegends, NameEachSeriesWithPoints) {
    auto plot = errorPlot();
    plot.series << PlotSeries{.name = u"without points"_s} << PlotSeries{.points = {{0, 0}}};
    const auto legend = legendOf(plot, letters, 800);
    ASSERT_EQ(legend.entries.size(), 2);
    EXPECT_EQ(legend.entries[0].name.text, u"as found"_s);
    EXPECT_EQ(legend.entries[1].series, 1);
    EXPECT_EQ(legend.height, letters.line());
}

TEST_F(PlotLegends, StandInTheMiddle) {
    const auto legend = legendOf(errorPlot(), letters, 800);
    EXPECT_NEAR(legend.entries[0].sample.left(), 800 - legend.entries[1].name.place.right(), 1e-6);
    EXPECT_GT(legend.entries[1].sample.left(), legend.entries[0].name.place.right());
}

TEST_F(PlotLegends, AreBrokenIntoRows) {
    auto plot = plotOf({{0, 0}});
    for (int index = 0; index < 12; ++index)
        plot.series << PlotSeries{.name = u"series number %1"_s.arg(index), .points = {{0, 0}}};
    const auto legend = legendOf(plot, letters, 600);
    ASSERT_EQ(legend.entries.size(), 12);
    EXPECT_GE(legend.height, 3 * letters.line());
    EXPECT_DOUBLE_EQ(legend.entries.last().sample.bottom(), legend.height);
    for (const auto& entry : legend.entries) {
        EXPECT_GE(entry.sample.left(), 0);
        EXPECT_LE(entry.name.place.right(), 600);
    }
}

TEST_F(PlotLegends, ShortenANameThatIsWiderThanARow) {
    auto plot = plotOf({{0, 0}});
    plot.series[0].name = QString(500, u'S');
    const auto legend = legendOf(plot, letters, 200);
    ASSERT_EQ(legend.entries.size(), 1);
    EXPECT_TRUE(legend.entries[0].name.text.contains(u'…'));
    EXPECT_LE(legend.entries[0].name.place.right(), 200);
}

} // namespace kelvane::testing
