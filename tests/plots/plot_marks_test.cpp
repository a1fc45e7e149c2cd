#include "plots/plot_marks.h"

#include "testkit/fixtures.h"
#include "tests/plots/painted.h"

#include <QPainter>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class PlotMarks : public ::testing::Test {
  protected:
    template <class Draw>
    QList<Painted> drawn(const Draw& draw) const {
        PaintedDevice device;
        QPainter painter(&device);
        draw(PlotPens(plot, looks, 1, 8), painter);
        painter.end();
        return device.painted();
    }
    QList<Painted> mark(qsizetype series) const {
        return drawn([&](const PlotPens& pens, QPainter& painter) {
            pens.drawMark(painter, series, {50, 50});
        });
    }
    QList<Painted> bar(qsizetype series, const QRectF& place) const {
        return drawn([&](const PlotPens& pens, QPainter& painter) { pens.drawBar(painter, series, place); });
    }

    Plot plot;
    PlotLooks looks = testLooks();
};

} // namespace

TEST_F(PlotMarks, DifferInTheirShape) {
    for (const auto mark : {PlotMark::circle, PlotMark::square, PlotMark::triangle, PlotMark::cross})
        plot.series << PlotSeries{.mark = mark};
    EXPECT_EQ(mark(0).constFirst().shape, PaintedShape::ellipse);
    EXPECT_EQ(mark(1).constFirst().shape, PaintedShape::polygon);
    EXPECT_EQ(mark(1).constFirst().points.boundingRect().center(), QPointF(50, 50));
    ASSERT_EQ(mark(2).size(), 1);
    EXPECT_EQ(mark(2).constFirst().points.boundingRect(), QRectF(46, 46, 8, 8));
    ASSERT_EQ(mark(3).size(), 2);
    EXPECT_EQ(mark(3).constFirst().shape, PaintedShape::lines);
}

TEST_F(PlotMarks, OfTheSameShapeDifferInTheirFilling) {
    plot.series << PlotSeries{} << PlotSeries{};
    EXPECT_EQ(mark(0).constFirst().brush.color(), QColor(Qt::black));
    EXPECT_EQ(mark(1).constFirst().brush.color(), QColor(Qt::white));
    EXPECT_EQ(mark(1).constFirst().pen.color(), QColor(Qt::black));
}

TEST_F(PlotMarks, TakeTheColoursInTurn) {
    plot.series << PlotSeries{} << PlotSeries{} << PlotSeries{};
    looks.series = {Qt::red, Qt::blue};
    EXPECT_EQ(mark(1).constFirst().pen.color(), QColor(Qt::blue));
    EXPECT_EQ(mark(2).constFirst().pen.color(), QColor(Qt::red));
    looks.series.clear();
    EXPECT_EQ(mark(0).constFirst().pen.color(), looks.ink);
}

TEST_F(PlotMarks, OfBarsDifferWithoutColours) {
    plot.series << PlotSeries{.isBars = true} << PlotSeries{} << PlotSeries{.isBars = true}
                << PlotSeries{.isBars = true} << PlotSeries{.isBars = true};
    const QRectF place(10, 10, 30, 60);
    const auto lines = [&](qsizetype series) {
        return shapesOf(bar(series, place), PaintedShape::lines).size();
    };
    const auto ground = [&](qsizetype series) { return bar(series, place).constFirst().brush.color(); };
    EXPECT_EQ(lines(0), 0);
    EXPECT_NE(ground(0), QColor(Qt::white));
    EXPECT_GT(lines(2), 5);
    EXPECT_EQ(lines(3), 0);
    EXPECT_EQ(ground(3), QColor(Qt::white));
    EXPECT_EQ(lines(4), 2 * lines(2));
}

TEST_F(PlotMarks, HatchABarUpToItsEdge) {
    plot.series << PlotSeries{.isBars = true} << PlotSeries{.isBars = true};
    for (const auto& place : {QRectF(10, 10, 30, 60), QRectF(10, 10, 60, 7)}) {
        for (const auto& line : shapesOf(bar(1, place), PaintedShape::lines)) {
            const auto bounds = line.points.boundingRect();
            EXPECT_TRUE(place.adjusted(-1e-6, -1e-6, 1e-6, 1e-6).contains(bounds));
            EXPECT_NEAR(bounds.width(), bounds.height(), 1e-6);
        }
    }
}

TEST_F(PlotMarks, OfThinBarsAreTheirColour) {
    plot.series << PlotSeries{.isBars = true} << PlotSeries{.isBars = true};
    const auto all = bar(1, {10, 10, 0.5, 60});
    ASSERT_EQ(all.size(), 1);
    EXPECT_EQ(all.constFirst().brush.color(), QColor(Qt::black));
}

TEST_F(PlotMarks, ShowALineAsItIsDashed) {
    plot.series << PlotSeries{.line = PlotLine::dashed} << PlotSeries{.line = PlotLine::none} << PlotSeries{};
    const auto line = [&](qsizetype series) {
        return drawn([&](const PlotPens& pens, QPainter& painter) {
            pens.drawLine(painter, series, {QPolygonF({QPointF(0, 0), QPointF(50, 0)})});
        });
    };
    ASSERT_EQ(line(0).size(), 1);
    EXPECT_EQ(line(0).constFirst().pen.style(), Qt::CustomDashLine);
    EXPECT_TRUE(line(1).isEmpty());
    ASSERT_EQ(line(2).size(), 1);
    EXPECT_EQ(line(2).constFirst().pen.style(), Qt::SolidLine);
}

TEST_F(PlotMarks, PaintALongLineWithoutAGap) {
    plot.series << PlotSeries{};
    for (const int count : {2, 200, 201, 399, 1000}) {
        QPolygonF piece;
        for (int index = 0; index < count; ++index)
            piece << QPointF(index, index % 7);
        const auto lines =
            drawn([&](const PlotPens& pens, QPainter& painter) { pens.drawLine(painter, 0, {piece}); });
        QPolygonF joined;
        for (const auto& line : lines) {
            ASSERT_GE(line.points.size(), 2);
            if (!joined.isEmpty()) {
                EXPECT_EQ(joined.last(), line.points.first());
                joined.removeLast();
            }
            joined << line.points;
        }
        EXPECT_EQ(joined, piece);
    }
}

} // namespace kelvane::testing
