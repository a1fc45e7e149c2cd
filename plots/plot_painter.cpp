#include "plots/plot_painter.h"

#include "plots/plot_marks.h"
#include "plots/plot_places.h"
#include "plots/plot_ranges.h"

#include <QPainter>

#include <cmath>

namespace kelvane {

namespace {

QFont titleFont(const PlotLooks& looks) {
    auto font = looks.font;
    font.setBold(true);
    return font;
}

/// Paints one plot whose places are known.
class Drawing {
  public:
    Drawing(QPainter& painter, const Plot& plot, const PlotLooks& looks, const PlotPlaces& places,
            const PlotLetters& letters)
        : painter_(painter),
          plot_(plot),
          looks_(looks),
          places_(places),
          unit_(letters.stroke()),
          mark_(letters.mark()),
          pens_(plot, looks, unit_, mark_) {}

    void paint() {
        drawText(places_.title, titleFont(looks_));
        for (const auto& text : places_.texts)
            drawText(text, looks_.font);
        if (places_.area.isEmpty())
            return;
        drawGrid();
        drawBars();
        drawAxes();
        drawLevels();
        drawSeries();
        drawLegend();
    }

  private:
    void drawText(const PlotText& shown, const QFont& font) {
        if (shown.text.isEmpty())
            return;
        painter_.save();
        painter_.setFont(font);
        painter_.setPen(looks_.ink);
        auto place = shown.place;
        if (shown.isUpright) {
            painter_.translate(place.left(), place.bottom());
            painter_.rotate(-90);
            place = {0, 0, place.height(), place.width()};
        }
        painter_.drawText(place, static_cast<int>(shown.alignment) | Qt::TextSingleLine | Qt::TextDontClip,
                          shown.text);
        painter_.restore();
    }

    /// A line along an axis: without smoothing it is as sharp as the device allows.
    void drawStraight(const QPointF& from, const QPointF& to) {
        painter_.setRenderHint(QPainter::Antialiasing, false);
        painter_.drawLine(from, to);
        painter_.setRenderHint(QPainter::Antialiasing);
    }
    void drawAcross(double position) {
        drawStraight({places_.area.left(), position}, {places_.area.right(), position});
    }
    void drawUp(double position) {
        drawStraight({position, places_.area.top()}, {position, places_.area.bottom()});
    }

    void drawGrid() {
        painter_.setPen(QPen(looks_.grid, unit_));
        for (const auto& tick : places_.yTicks)
            drawAcross(tick.position);
        if (plot_.x.scale == PlotScale::names)
            return;
        for (const auto& tick : places_.xTicks)
            drawUp(tick.position);
    }

    void drawBars() {
        painter_.setRenderHint(QPainter::Antialiasing);
        for (qsizetype series = 0; series < plot_.series.size(); ++series) {
            if (!plot_.series[series].isBars)
                continue;
            for (const auto& point : plot_.series[series].points) {
                if (isPlotted(plot_, point))
                    pens_.drawBar(painter_, series, places_.barOf(series, point));
            }
        }
    }

    void drawAxes() {
        painter_.setPen(QPen(looks_.ink, unit_));
        drawAcross(places_.area.bottom());
        drawUp(places_.area.left());
        if (places_.y.least < 0 && places_.y.most > 0)
            drawAcross(places_.positionOfY(0));
        const auto length = mark_ / 2;
        for (const auto& tick : places_.yTicks) {
            drawStraight({places_.area.left() - length, tick.position}, {places_.area.left(), tick.position});
            drawText(tick.label, looks_.font);
        }
        for (const auto& tick : places_.xTicks) {
            if (plot_.x.scale != PlotScale::names || !tick.label.text.isEmpty())
                drawStraight({tick.position, places_.area.bottom()},
                             {tick.position, places_.area.bottom() + length});
            drawText(tick.label, looks_.font);
        }
    }

    void drawLevels() {
        QPen pen(looks_.ink, unit_ * 1.5);
        pen.setDashPattern({8, 3, 1.5, 3});
        pen.setCapStyle(Qt::FlatCap);
        for (const auto& level : places_.levels) {
            painter_.setPen(pen);
            painter_.drawLine(
                QLineF(places_.area.left(), level.position, places_.area.right(), level.position));
            drawText(level.label, looks_.font);
        }
    }

    bool isNear(const QPointF& left, const QPointF& right) const {
        const auto distance = mark_ / 10;
        return std::abs(left.x() - right.x()) < distance && std::abs(left.y() - right.y()) < distance;
    }

    /// The points of a series that can be told apart, in pieces: a point without a place ends one.
    QList<QPolygonF> piecesOf(qsizetype series) const {
        QList<QPolygonF> pieces;
        QPolygonF piece;
        for (const auto& point : plot_.series[series].points) {
            if (!isPlotted(plot_, point)) {
                if (!piece.isEmpty())
                    pieces << std::exchange(piece, {});
                continue;
            }
            const auto place = places_.positionOf(series, point);
            if (piece.isEmpty() || !isNear(piece.last(), place))
                piece << place;
        }
        if (!piece.isEmpty())
            pieces << piece;
        return pieces;
    }

    void drawSeries() {
        for (qsizetype series = 0; series < plot_.series.size(); ++series) {
            if (plot_.series[series].isBars)
                continue;
            const auto pieces = piecesOf(series);
            pens_.drawLine(painter_, series, pieces);
            if (!plot_.series[series].hasMarks)
                continue;
            for (const auto& piece : pieces) {
                for (const auto& place : piece)
                    pens_.drawMark(painter_, series, place);
            }
        }
    }

    void drawLegend() {
        for (const auto& entry : places_.legend) {
            pens_.drawSample(painter_, entry.series, entry.sample);
            drawText(entry.name, looks_.font);
        }
    }

    QPainter& painter_;
    const Plot& plot_;
    const PlotLooks& looks_;
    const PlotPlaces& places_;
    const double unit_;
    const double mark_;
    const PlotPens pens_;
};

} // namespace

PlotPlaces paintedPlaces(const QPaintDevice& device, const QRectF& place, const Plot& plot,
                         const PlotLooks& looks) {
    return placesOf(plot, place, PlotLetters(QFontMetricsF(looks.font, &device)),
                    PlotLetters(QFontMetricsF(titleFont(looks), &device)));
}

void paintPlot(QPainter& painter, const QRectF& place, const Plot& plot, const PlotLooks& looks) {
    const auto places = paintedPlaces(*painter.device(), place, plot, looks);
    const PlotLetters letters(QFontMetricsF(looks.font, painter.device()));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(place, looks.background);
    Drawing(painter, plot, looks, places, letters).paint();
    painter.restore();
}

} // namespace kelvane
