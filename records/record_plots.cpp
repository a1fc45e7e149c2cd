#include "records/record_plots.h"

#include "platform/values/numbers.h"
#include "records/lists.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// Of the limits, in percent of the tolerance, and what the axis shows at least.
constexpr double limit = 100;
constexpr double leastRange = 110;
constexpr double daysOfYear = 365.25;

QString percentText(double percent) {
    return fixedDecimals(percent, 1);
}

/// A picture that is saved still says what it is of.
QString titleOf(const QString& asset, const QString& subject) {
    return asset + u": "_s + subject;
}

Plot percentPlot(const QString& title) {
    Plot plot;
    plot.title = title;
    plot.y = {text(TextId::plotPercentAxis), PlotScale::numbers, {}, -leastRange, leastRange};
    plot.levels = {{text(TextId::plotLimits), limit}, {text(TextId::plotLimits), -limit}};
    return plot;
}

QString noteOf(const QString& place, const PointError& error) {
    return u"%1: %2, %3 %"_s.arg(place, error.reading, percentText(error.percent));
}

/// What an empty picture says before all else.
Plot toldWhenEmpty(Plot plot) {
    if (plot.isEmpty())
        plot.notes.prepend(text(TextId::plotNothing));
    return plot;
}

void addLinesLeftOut(Plot& plot, const PointHistory& points) {
    const auto leftOut = points.leftOut();
    if (leftOut > 0)
        plot.notes << text(TextId::plotLeftOut).arg(leftOut).arg(points.lines);
}

constexpr PlotMark marks[] = {PlotMark::circle, PlotMark::square};
constexpr PlotLine lines[] = {PlotLine::solid, PlotLine::dashed};

PlotSeries recordSeries(const CalibrationRecord& record, qsizetype number) {
    PlotSeries series;
    series.name = recordCaption(record);
    series.mark = marks[number % std::ssize(marks)];
    series.line = lines[number % std::ssize(lines)];
    return series;
}

double dayNumber(const QDate& day) {
    return static_cast<double>(day.toJulianDay());
}

PlotSeries driftSeries(TextId name, PlotMark mark) {
    PlotSeries series;
    series.name = text(name);
    series.mark = mark;
    series.line = PlotLine::none;
    return series;
}

/// The errors of a point, and the lines through them.
class DriftPicture {
  public:
    DriftPicture(const QList<CalibrationRecord>& records, const InstrumentPoint& point,
                 const PointDrift& drift)
        : records_(records), point_(point), drift_(drift) {}

    void addTo(Plot& plot) const {
        auto found = driftSeries(TextId::plotAsFound, PlotMark::circle);
        auto left = driftSeries(TextId::plotAsLeft, PlotMark::square);
        for (const auto& run : drift_.runs) {
            for (const auto& value : run) {
                const bool isAsLeft = records_[value.record].run == CalibrationRun::asLeft;
                (isAsLeft ? left : found).points << pointOf(value);
            }
        }
        plot.series << found << left;
        if (drift_.line)
            plot.series << fitted(*drift_.line);
    }

    QStringList notes() const {
        if (!drift_.line)
            return {text(TextId::plotNotEnough).arg(drift_.days).arg(drift_.daysNeeded)};
        const auto& line = *drift_.line;
        QStringList sentences;
        if (line.leaving.isValid())
            sentences << text(TextId::plotLeavesLimits).arg(line.leaving.toString(Qt::ISODate));
        else if (line.outlook == DriftOutlook::stays)
            sentences << text(TextId::plotStaysInLimits).arg(line.horizon);
        else if (line.outlook == DriftOutlook::hasLeft)
            sentences << text(TextId::plotHasLeftLimits);
        else if (line.outlook == DriftOutlook::unknown)
            sentences << text(TextId::plotLeftUnknown);
        if (line.intervalKept && *line.intervalKept > 0)
            sentences << text(TextId::plotIntervalKept).arg(*line.intervalKept).arg(line.horizon);
        else if (line.intervalKept)
            sentences << text(TextId::plotIntervalNone);
        return sentences;
    }

  private:
    PlotPoint pointOf(const DriftValue& value) const {
        const auto error = std::ranges::find(point_.errors, value.record, &PointError::record);
        return {dayNumber(value.day), value.percent, noteOf(value.day.toString(Qt::ISODate), *error)};
    }

    /// A point without a number parts the lines of two runs.
    static PlotPoint gap(const QDate& day) {
        return {dayNumber(day), std::numeric_limits<double>::quiet_NaN(), {}};
    }

    PlotSeries fitted(const DriftLine& line) const {
        PlotSeries series;
        series.name = text(TextId::plotFit).arg(percentText(line.perYear), percentText(line.perYearBound));
        series.hasMarks = false;
        series.line = PlotLine::dashed;
        const auto add = [&](const QDate& day, double percent) {
            series.points << PlotPoint{dayNumber(day), percent,
                                       u"%1: %2 %"_s.arg(day.toString(Qt::ISODate), percentText(percent))};
        };
        for (qsizetype run = 0; run < drift_.runs.size(); ++run) {
            const auto& values = drift_.runs[run];
            if (run > 0)
                series.points << gap(values.constFirst().day);
            add(values.constFirst().day, line.ends[run].first);
            add(values.constLast().day, line.ends[run].second);
        }
        const auto last = drift_.runs.constLast().constLast().day;
        const double perDay = line.perYear / daysOfYear;
        if (const auto ahead = daysAhead(line, last); ahead > 0)
            add(last.addDays(ahead), line.ends.constLast().second + perDay * static_cast<double>(ahead));
        return series;
    }

    /// The line is drawn to where it leaves the limits, or as far as it is looked ahead.
    static qint64 daysAhead(const DriftLine& line, const QDate& last) {
        if (line.leaving.isValid())
            return last.daysTo(line.leaving);
        return line.outlook == DriftOutlook::stays ? line.horizon : 0;
    }

    const QList<CalibrationRecord>& records_;
    const InstrumentPoint& point_;
    const PointDrift& drift_;
};

} // namespace

QString pointName(const InstrumentPoint& point) {
    return point.occurrence == 1 ? point.nominal
                                 : u"%1 (%2)"_s.arg(point.nominal, QString::number(point.occurrence));
}

Plot errorPlot(Session& session, const QString& asset, const QList<CalibrationRecord>& records) {
    const auto history = pointHistoryOf(session, records);
    auto plot = percentPlot(titleOf(asset, text(TextId::plotErrors)));
    plot.x = {text(TextId::historyPoint), PlotScale::names, {}, {}, {}};
    for (qsizetype record = 0; record < records.size(); ++record)
        plot.series << recordSeries(records[record], record);
    for (const auto& point : history.points) {
        const auto x = static_cast<double>(plot.x.names.size());
        plot.x.names << pointName(point);
        for (const auto& error : point.errors)
            plot.series[error.record].points
                << PlotPoint{x, error.percent, noteOf(plot.x.names.constLast(), error)};
    }
    addLinesLeftOut(plot, history);
    return toldWhenEmpty(plot);
}

Plot driftPlot(const QString& asset, const QList<CalibrationRecord>& records, const PointHistory& points,
               qsizetype point, const QDate& today) {
    const auto& chosen = points.points[point];
    const auto drift = driftOf(chosen, records, today);
    auto plot = percentPlot(titleOf(asset, text(TextId::plotDrift).arg(pointName(chosen))));
    plot.x = {text(TextId::listDate), PlotScale::days, {}, {}, {}};
    const DriftPicture picture(records, chosen, drift);
    picture.addTo(plot);
    plot.notes = picture.notes();
    addLinesLeftOut(plot, points);
    const auto telling =
        std::ranges::count_if(records, [&](const auto& record) { return tellsOfDrift(record, today); });
    if (telling < records.size())
        plot.notes << text(TextId::plotRecordsLeftOut).arg(records.size() - telling).arg(records.size());
    return toldWhenEmpty(plot);
}

} // namespace kelvane
