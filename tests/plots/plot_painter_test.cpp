#include "plots/plot_painter.h"

#include "testkit/fixtures.h"
#include "tests/plots/made_up_plots.h"
#include "tests/plots/painted.h"

#include <QElapsedTimer>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr auto noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr auto infinite = std::numeric_limits<double>::infinity();
const QRectF whole(0, 0, 800, 480);

/// The lines of a series, without grid and axes, which go along one axis.
QList<Painted> seriesLines(const QList<Painted>& all) {
    QList<Painted> lines;
    for (const auto& line : shapesOf(all, PaintedShape::lines)) {
        const auto bounds = line.points.boundingRect();
        if (bounds.width() > 0 && bounds.height() > 0)
            lines << line;
    }
    return lines;
}

QList<Plot> unusualPlots() {
    QList<Plot> plots = {errorPlot(), driftPlot(), monthsPlot(1), monthsPlot(5), modelsPlot()};
    for (const double size : {1e-310, 1e-200, 1e-9, 1e9, 1e200, 1e300})
        plots << plotOf({{-size, size}, {0, -size}, {size, 0}});
    plots << plotOf({{1, 1}}) << plotOf({{1, 5}, {1, 5}, {1, 5}}) << plotOf({}) << Plot{};
    plots << plotOf({{noNumber, 1}, {1, infinite}, {-infinite, 1}, {2, 2}, {noNumber, noNumber}, {3, 1}});
    plots << plotOf({{infinite, noNumber}});
    for (auto plot : QList<Plot>(plots)) {
        for (auto& series : plot.series)
            series.isBars = true;
        plots << plot;
    }
    auto named = errorPlot();
    named.title = QString(5000, u'T');
    named.y.title = QString(5000, u'Y');
    named.x.title = u"line\nline\ttab & <b>\u202e"_s;
    named.levels = {{QString(5000, u'L'), 1e12}, {u"none"_s, noNumber}, {u"above"_s, infinite}};
    named.series[0].name = QString(5000, u'S');
    named.notes = {QString(5000, u'N'), QString(), u"Würde Ω 温度"_s};
    return plots << named;
}

} // namespace

TEST(PlotPainter, PaintsAllTexts) {
    const auto plot = errorPlot();
    const auto texts = textsOf(paintedBy(plot, whole));
    for (const auto& text : {plot.title, plot.x.title, plot.y.title, plot.notes[0], u"as found"_s,
                             u"as left"_s, u"limits"_s, u"-50"_s, u"150"_s})
        EXPECT_TRUE(texts.contains(text)) << text.toStdString();
    EXPECT_EQ(texts.count(u"limits"_s), 2);
}

TEST(PlotPainter, JoinsThePointsOfEachSeries) {
    const auto plot = errorPlot();
    const PaintedDevice device;
    const auto places = paintedPlaces(device, whole, plot, testLooks());
    const auto lines = seriesLines(paintedBy(plot, whole));
    ASSERT_EQ(lines.size(), 2);
    for (qsizetype series = 0; series < 2; ++series) {
        const auto& points = plot.series[series].points;
        ASSERT_EQ(lines[series].points.size(), points.size());
        for (qsizetype index = 0; index < points.size(); ++index)
            EXPECT_EQ(lines[series].points[index], places.positionOf(series, points[index]));
    }
}

TEST(PlotPainter, MarksEachPoint) {
    const auto plot = errorPlot();
    const PaintedDevice device;
    const auto places = paintedPlaces(device, whole, plot, testLooks());
    const auto circles = shapesOf(paintedBy(plot, whole), PaintedShape::ellipse);
    ASSERT_EQ(circles.size(), plot.series[1].points.size() + 1); // and the legend's
    for (qsizetype index = 0; index < plot.series[1].points.size(); ++index) {
        const auto middle = circles[index].points.boundingRect().center();
        const auto expected = places.positionOf(1, plot.series[1].points[index]);
        EXPECT_NEAR(middle.x(), expected.x(), 1e-6);
        EXPECT_NEAR(middle.y(), expected.y(), 1e-6);
    }
}

TEST(PlotPainter, DashesAFittedLine) {
    const auto lines = seriesLines(paintedBy(driftPlot(), whole));
    ASSERT_EQ(lines.size(), 1);
    EXPECT_EQ(lines[0].points.size(), 2);
    EXPECT_EQ(lines[0].pen.style(), Qt::CustomDashLine);
}

TEST(PlotPainter, BreaksALineWhereAPointHasNoPlace) {
    const auto lines =
        seriesLines(paintedBy(plotOf({{0, 0}, {1, 1}, {2, noNumber}, {3, 5}, {4, 2}, {5, 9}}), whole));
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0].points.size(), 2);
    EXPECT_EQ(lines[1].points.size(), 3);
}

TEST(PlotPainter, ReadsTheTitleOfTheVerticalAxisFromBelow) {
    const auto plot = errorPlot();
    const auto all = paintedBy(plot, whole);
    const auto title =
        std::ranges::find_if(all, [&](const Painted& painted) { return painted.text == plot.y.title; });
    ASSERT_NE(title, all.end());
    EXPECT_GT(title->bounds().height(), title->bounds().width() * 3);
    EXPECT_GT(title->points[0].y(), title->points[1].y());
}

TEST(PlotPainter, PaintsNothingBesideItsPlace) {
    const QList<QRectF> places = {whole,           {100, 50, 300, 200}, {-40, -30, 120, 90}, {3, 3, 40, 300},
                                  {3, 3, 300, 40}, {7, 7, 30, 20},      {7, 7, 3, 2},        {7, 7, 0, 0}};
    for (const auto& plot : unusualPlots()) {
        for (const auto& place : places) {
            for (const auto& painted : paintedBy(plot, place))
                ASSERT_TRUE(place.adjusted(-1, -1, 1, 1).contains(painted.bounds()) ||
                            painted.bounds().isEmpty())
                    << plot.title.left(20).toStdString() << ' ' << place.width() << ' '
                    << painted.text.toStdString();
        }
    }
}

TEST(PlotPainter, SurvivesUnusualPlotsOnARealDevice) {
    for (const auto& size : {QSize(800, 480), QSize(120, 80), QSize(1, 1)}) {
        for (const auto& plot : unusualPlots()) {
            QImage image(size, QImage::Format_RGB32);
            QPainter painter(&image);
            paintPlot(painter, image.rect(), plot, testLooks());
            EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
        }
    }
}

TEST(PlotPainter, OfAPlotWithoutPointsPaintsTitleAndNotesAlone) {
    auto plot = errorPlot();
    for (auto& series : plot.series)
        series.points = {{noNumber, 1}};
    EXPECT_EQ(textsOf(paintedBy(plot, whole)), QStringList({plot.title, plot.notes[0]}));
}

TEST(PlotPainter, PaintsManyPointsAtOnePlaceOnce) {
    auto plot = plotOf({});
    for (int index = 0; index < 100000; ++index)
        plot.series[0].points << PlotPoint{index / 50000 * 1.0, 1};
    const auto circles = shapesOf(paintedBy(plot, whole), PaintedShape::ellipse);
    EXPECT_EQ(circles.size(), 2);
}

TEST(PlotPainter, PaintsThousandsOfPointsInAMoment) {
    auto plot = plotOf({});
    for (int index = 0; index < 20000; ++index)
        plot.series[0].points << PlotPoint{index * 1.0, std::sin(index)};
    QImage image(800, 480, QImage::Format_RGB32);
    QPainter painter(&image);
    QElapsedTimer timer;
    timer.start();
    paintPlot(painter, image.rect(), plot, testLooks());
    EXPECT_LT(timer.elapsed(), 5000);
}

TEST(PlotPainter, PaintsTheSameInUnitsOfPaper) {
    auto looks = testLooks();
    looks.font.setPixelSize(150); // 9 points of 1/1200 inch
    PaintedDevice device(96);
    QPainter painter(&device);
    painter.scale(96.0 / 1200, 96.0 / 1200);
    paintPlot(painter, {0, 0, 10000, 6000}, errorPlot(), looks);
    painter.end();
    const auto paper = textsOf(device.painted());
    EXPECT_EQ(paper, textsOf(paintedBy(errorPlot(), whole)));
    for (const auto& painted : device.painted())
        EXPECT_TRUE(whole.adjusted(-1, -1, 1, 1).contains(painted.bounds()));
}

} // namespace kelvane::testing
