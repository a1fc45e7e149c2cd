#include "plots/plot_legend.h"

#include "plots/plot_ranges.h"

#include <algorithm>

namespace kelvane {

namespace {

bool isInLegend(const Plot& plot, const PlotSeries& series) {
    return !series.name.isEmpty() &&
           std::ranges::any_of(series.points, [&](const PlotPoint& point) { return isPlotted(plot, point); });
}

/// Lays entries out from left to right, row by row.
class LegendRows {
  public:
    LegendRows(const PlotLetters& letters, double width)
        : letters_(letters), width_(width), sample_(letters.line() * 2) {}

    void add(qsizetype series, const QString& name) {
        const auto shown = letters_.shortened(name, width_ - sample_ - letters_.gap());
        const auto nameWidth = letters_.widthOf(shown);
        const auto distance = 2 * letters_.gap() + letters_.line();
        auto left = row_.isEmpty() ? 0 : rowWidth_ + distance;
        if (left + sample_ + letters_.gap() + nameWidth > width_ && !row_.isEmpty()) {
            endRow();
            left = 0;
        }
        const auto nameLeft = left + sample_ + letters_.gap();
        row_ << LegendEntry{
            series,
            {left, 0, sample_, letters_.line()},
            {shown, {nameLeft, 0, nameWidth, letters_.line()}, Qt::AlignLeft | Qt::AlignVCenter}};
        rowWidth_ = nameLeft + nameWidth;
    }

    PlotLegend legend() {
        if (!row_.isEmpty())
            endRow();
        return legend_;
    }

  private:
    void endRow() {
        const QPointF offset((width_ - rowWidth_) / 2, legend_.height);
        for (auto& entry : row_) {
            entry.sample.translate(offset);
            entry.name.place.translate(offset);
        }
        legend_.entries << row_;
        legend_.height += letters_.line();
        row_.clear();
    }

    const PlotLetters& letters_;
    double width_;
    double sample_;
    QList<LegendEntry> row_;
    double rowWidth_ = 0;
    PlotLegend legend_;
};

} // namespace

PlotLegend legendOf(const Plot& plot, const PlotLetters& letters, double width) {
    LegendRows rows(letters, width);
    for (qsizetype index = 0; index < plot.series.size(); ++index) {
        if (isInLegend(plot, plot.series[index]))
            rows.add(index, plot.series[index].name);
    }
    return rows.legend();
}

} // namespace kelvane
