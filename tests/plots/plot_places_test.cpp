#include "plots/plot_places.h"

#include "plots/plot_painter.h"
#include "testkit/fixtures.h"
#include "tests/plots/made_up_plots.h"
#include "tests/plots/painted.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

PlotPlaces placesIn(const QSizeF& size, const Plot& plot, int dotsPerInch = 96) {
    const PaintedDevice device(dotsPerInch);
    return paintedPlaces(device, {QPointF(), size}, plot, testLooks());
}

QStringList labelsOf(const QList<PlacedTick>& ticks) {
    QStringList labels;
    for (const auto& tick : ticks) {
        if (!tick.label.text.isEmpty())
            labels << tick.label.text;
    }
    return labels;
}

bool doLabelsTouch(const QList<PlacedTick>& ticks) {
    for (qsizetype index = 1; index < ticks.size(); ++index) {
        for (qsizetype before = 0; before < index; ++before) {
            const auto& left = ticks[before].label;
            const auto& right = ticks[index].label;
            if (!left.text.isEmpty() && !right.text.isEmpty() && left.place.intersects(right.place))
                return true;
        }
    }
    return false;
}

} // namespace

TEST(PlotPlaces, PutPointsWhereTheirTicksAre) {
    const auto plot = errorPlot();
    const auto places = placesIn({800, 480}, plot);
    EXPECT_EQ(labelsOf(places.yTicks),
              QStringList({u"-100"_s, u"-50"_s, u"0"_s, u"50"_s, u"100"_s, u"150"_s}));
    const auto tick = std::ranges::find(places.yTicks, u"100"_s,
                                        [](const PlacedTick& placed) { return placed.label.text; });
    ASSERT_NE(tick, places.yTicks.end());
    EXPECT_DOUBLE_EQ(tick->position, places.levels[0].position);
    EXPECT_DOUBLE_EQ(tick->position, places.positionOf(0, {0, 100}).y());
    EXPECT_GT(places.positionOf(0, {0, 50}).y(), tick->position);
    const auto across = std::ranges::find(places.xTicks, u"100"_s,
                                          [](const PlacedTick& placed) { return placed.label.text; });
    ASSERT_NE(across, places.xTicks.end());
    EXPECT_DOUBLE_EQ(across->position, places.positionOf(0, plot.series[0].points[4]).x());
}

TEST(PlotPlaces, ShowTheYearsOfADrift) {
    EXPECT_EQ(labelsOf(placesIn({800, 480}, driftPlot()).xTicks),
              QStringList({u"2021"_s, u"2022"_s, u"2023"_s, u"2024"_s, u"2025"_s, u"2026"_s, u"2027"_s}));
}

TEST(PlotPlaces, KeepLabelsApart) {
    for (const auto& plot : {errorPlot(), driftPlot(), monthsPlot(2), modelsPlot()}) {
        for (int width = 60; width < 1500; width += 37) {
            const auto places = placesIn({width * 1.0, 400}, plot);
            EXPECT_FALSE(doLabelsTouch(places.xTicks)) << plot.title.toStdString() << ' ' << width;
            EXPECT_FALSE(doLabelsTouch(places.yTicks)) << plot.title.toStdString() << ' ' << width;
        }
    }
}

TEST(PlotPlaces, PutNamesBesideEachOtherWhereTheyFit) {
    Plot plot = plotOf({{0, 1}, {1, 2}});
    plot.x = {.scale = PlotScale::names, .names = {u"first"_s, u"second"_s}};
    const auto places = placesIn({600, 300}, plot);
    EXPECT_EQ(labelsOf(places.xTicks), plot.x.names);
    EXPECT_FALSE(places.xTicks[0].label.isUpright);
    EXPECT_NEAR(places.xTicks[0].label.place.center().x(), places.positionOf(0, {0, 1}).x(), 0.5);
}

TEST(PlotPlaces, StandManyNamesUprightAndShortenLongOnes) {
    const auto plot = modelsPlot();
    const auto places = placesIn({900, 480}, plot);
    ASSERT_EQ(labelsOf(places.xTicks).size(), 40);
    EXPECT_TRUE(places.xTicks[1].label.isUpright);
    EXPECT_EQ(places.xTicks[1].label.text, u"Model 1037"_s);
    EXPECT_TRUE(places.xTicks[0].label.text.contains(u'…')) << places.xTicks[0].label.text.toStdString();
}

TEST(PlotPlaces, LeaveNamesOutWhereTheyWouldTouch) {
    const auto places = placesIn({400, 480}, modelsPlot());
    EXPECT_EQ(places.xTicks.size(), 40);
    const auto labels = labelsOf(places.xTicks);
    EXPECT_LT(labels.size(), 40);
    EXPECT_GE(labels.size(), 10);
    EXPECT_EQ(labels.at(1).left(5), u"Model"_s);
}

TEST(PlotPlaces, PutBarsOfSeveralSeriesSideBySide) {
    const auto plot = monthsPlot(3);
    const auto places = placesIn({900, 480}, plot);
    const auto first = places.barOf(0, plot.series[0].points[5]);
    const auto second = places.barOf(1, plot.series[1].points[5]);
    const auto third = places.barOf(2, plot.series[2].points[5]);
    const auto next = places.barOf(0, plot.series[0].points[6]);
    EXPECT_NEAR(first.right(), second.left(), 1e-6);
    EXPECT_NEAR(second.right(), third.left(), 1e-6);
    EXPECT_LT(third.right(), next.left() - 1);
    EXPECT_NEAR(second.center().x(), places.xTicks[5].position, 1e-6);
    EXPECT_DOUBLE_EQ(first.bottom(), places.area.bottom());
    EXPECT_DOUBLE_EQ(first.top(), places.positionOfY(plot.series[0].points[5].y));
}

TEST(PlotPlaces, HangBarsBelowZeroFromZero) {
    auto plot = plotOf({{0, 10}, {1, -10}});
    plot.series[0].isBars = true;
    const auto places = placesIn({600, 300}, plot);
    EXPECT_DOUBLE_EQ(places.barOf(0, plot.series[0].points[0]).bottom(), places.positionOfY(0));
    EXPECT_DOUBLE_EQ(places.barOf(0, plot.series[0].points[1]).top(), places.positionOfY(0));
}

TEST(PlotPlaces, LeaveOneLevelOfTwoAtOnePlaceWithoutItsName) {
    auto plot = errorPlot();
    plot.levels = {{u"limit"_s, 100}, {u"guard band"_s, 100.1}};
    const auto places = placesIn({800, 480}, plot);
    ASSERT_EQ(places.levels.size(), 2);
    EXPECT_EQ(places.levels[0].label.text, u"limit"_s);
    EXPECT_EQ(places.levels[1].label.text, QString());
}

TEST(PlotPlaces, BreakNotesBetweenWords) {
    auto plot = errorPlot();
    plot.notes = {u"A sentence of several words that does not fit into one line of a picture."_s};
    const auto places = placesIn({300, 480}, plot);
    QStringList words;
    for (const auto& text : places.texts) {
        if (text.alignment.testFlag(Qt::AlignLeft))
            words << text.text.split(u' ');
    }
    EXPECT_EQ(words.join(u' '), plot.notes[0]);
}

TEST(PlotPlaces, EndWithDotsWhereNotesAreTooMany) {
    auto plot = errorPlot();
    for (int index = 0; index < 100; ++index)
        plot.notes << u"A further note."_s;
    const auto places = placesIn({800, 480}, plot);
    EXPECT_FALSE(places.area.isEmpty());
    QString last;
    for (const auto& text : places.texts) {
        if (text.alignment.testFlag(Qt::AlignLeft))
            last = text.text;
    }
    EXPECT_EQ(last, u"A further note. …"_s);
}

TEST(PlotPlaces, DoWithoutPartsWhereThereIsNoRoom) {
    const auto plot = errorPlot();
    EXPECT_EQ(placesIn({800, 480}, plot).texts.size(), 3);
    EXPECT_EQ(placesIn({800, 480}, plot).legend.size(), 2);
    const auto small = placesIn({160, 110}, plot);
    EXPECT_FALSE(small.area.isEmpty());
    EXPECT_TRUE(small.legend.isEmpty());
    EXPECT_FALSE(labelsOf(small.yTicks).isEmpty());
    const auto tiny = placesIn({60, 50}, plot);
    EXPECT_FALSE(tiny.area.isEmpty());
    EXPECT_TRUE(labelsOf(tiny.yTicks).isEmpty());
    EXPECT_TRUE(placesIn({20, 10}, plot).area.isEmpty());
    EXPECT_TRUE(placesIn({0, 0}, plot).area.isEmpty());
    EXPECT_TRUE(placesIn({-5, -5}, plot).area.isEmpty());
}

TEST(PlotPlaces, AreTheSameAtAnyResolution) {
    const auto plot = driftPlot();
    const auto plain = placesIn({800, 480}, plot, 96);
    const auto fine = placesIn({1600, 960}, plot, 192);
    EXPECT_EQ(labelsOf(plain.xTicks), labelsOf(fine.xTicks));
    EXPECT_EQ(labelsOf(plain.yTicks), labelsOf(fine.yTicks));
    EXPECT_NEAR(plain.area.left() * 2, fine.area.left(), 16);
    EXPECT_NEAR(plain.area.width() * 2, fine.area.width(), 32);
    EXPECT_NEAR(plain.area.height() * 2, fine.area.height(), 32);
}

TEST(PlotPlaces, OfAPlotWithoutPointsAreTitleAndNotes) {
    auto plot = errorPlot();
    for (auto& series : plot.series)
        series.points.clear();
    const auto places = placesIn({800, 480}, plot);
    EXPECT_TRUE(places.area.isEmpty());
    EXPECT_EQ(places.title.text, plot.title);
    ASSERT_EQ(places.texts.size(), 1);
    EXPECT_EQ(places.texts[0].text, plot.notes[0]);
}

} // namespace kelvane::testing
