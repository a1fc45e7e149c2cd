#include "data/history/point_drift.h"

#include "data/history/parallel_lines.h"

#include <algorithm>
#include <cmath>

namespace kelvane {

namespace {

/// Percent of the tolerance, with what rounding may add to a line that comes to a limit exactly.
constexpr double limit = 100 + 1e-6;
constexpr double daysOfYear = 365.25;
constexpr qint64 longestHorizon = 3652;

double number(const QDate& day) {
    return static_cast<double>(day.toJulianDay());
}

/// The errors of a point by runs, and whether the last run goes on.
struct Runs {
    QList<QList<DriftValue>> values;
    bool isOpen = false;
};

Runs runsOf(const InstrumentPoint& point, const QList<CalibrationRecord>& records, const QDate& today) {
    Runs runs;
    // An adjustment is one of the whole instrument: records without this point end a run, too.
    auto error = point.errors.crbegin();
    for (qsizetype record = records.size() - 1; record >= 0; --record) {
        const bool hasPoint = error != point.errors.crend() && error->record == record;
        const double percent = hasPoint ? (error++)->percent : 0;
        if (!tellsOfDrift(records[record], today))
            continue;
        const auto run = records[record].run;
        if (run == CalibrationRun::asLeft)
            runs.isOpen = false;
        if (hasPoint) {
            if (!runs.isOpen)
                runs.values.emplaceBack();
            runs.values.last() << DriftValue{record, records[record].date.moment.date, percent};
            runs.isOpen = true;
        }
        if (run == CalibrationRun::asFound)
            runs.isOpen = false;
    }
    return runs;
}

qsizetype daysOf(const QList<DriftValue>& run) {
    qsizetype days = 0;
    QDate last;
    for (const auto& value : run) {
        days += value.day != last ? 1 : 0;
        last = value.day;
    }
    return days;
}

std::optional<ParallelLines> linesThrough(const QList<QList<DriftValue>>& runs) {
    QList<QList<DayValue>> groups;
    for (const auto& run : runs) {
        groups.emplaceBack();
        for (const auto& value : run)
            groups.last() << DayValue{number(value.day), value.percent};
    }
    return ParallelLines::fit(groups);
}

/// The line of the last run behind its last day.
class Outlook {
  public:
    Outlook(const ParallelLines& lines, const QList<QList<DriftValue>>& runs, DriftLine& line)
        : lines_(lines), run_(runs.size() - 1), last_(runs.constLast().constLast().day), line_(line) {
        const auto span = runs.constFirst().constFirst().day.daysTo(last_);
        line.horizon = std::min(span, longestHorizon);
        line.percentAtHorizon = valueAfter(line.horizon);
    }

    /// The first whole day on which the line is beyond a limit.
    void findLeaving(const QDate& today) {
        line_.outlook = DriftOutlook::stays;
        if (std::abs(valueAfter(0)) > limit) {
            line_.outlook = DriftOutlook::hasLeft;
            return;
        }
        const auto stays = lastDayOf([&](qint64 days) { return std::abs(valueAfter(days)) <= limit; });
        if (stays == line_.horizon)
            return;
        line_.leaving = last_.addDays(stays + 1);
        line_.outlook = line_.leaving > today ? DriftOutlook::leaves : DriftOutlook::hasLeft;
    }

    /// What lies within both bounds is one interval of days: the upper bound is a convex function of the day,
    /// the lower one a concave function.
    void findInterval() {
        const auto isKept = [&](qint64 days) {
            const double bound = lines_.predictionBound(run_, dayAfter(days));
            return std::abs(valueAfter(days)) + bound <= limit;
        };
        line_.intervalKept = isKept(0) ? lastDayOf(isKept) : 0;
    }

  private:
    double dayAfter(qint64 days) const { return number(last_) + static_cast<double>(days); }
    double valueAfter(qint64 days) const { return lines_.valueAt(run_, dayAfter(days)); }

    /// The last day up to the horizon that a condition holds on, which holds from day 0 to some day.
    template <class Condition>
    qint64 lastDayOf(const Condition& holds) const {
        qint64 held = 0;
        qint64 behind = line_.horizon + 1;
        while (behind - held > 1) {
            const auto middle = held + (behind - held) / 2;
            (holds(middle) ? held : behind) = middle;
        }
        return held;
    }

    const ParallelLines& lines_;
    qsizetype run_;
    QDate last_;
    DriftLine& line_;
};

} // namespace

bool tellsOfDrift(const CalibrationRecord& record, const QDate& today) {
    return record.run != CalibrationRun::other && record.date.hasDate() && record.date.moment.date <= today;
}

PointDrift driftOf(const InstrumentPoint& point, const QList<CalibrationRecord>& records,
                   const QDate& today) {
    PointDrift drift;
    const auto runs = runsOf(point, records, today);
    drift.runs = runs.values;
    for (const auto& run : runs.values)
        drift.days += daysOf(run);
    drift.daysNeeded = runs.values.size() + 2;
    const auto lines = drift.days >= drift.daysNeeded ? linesThrough(runs.values) : std::nullopt;
    if (!lines)
        return drift;

    DriftLine line;
    line.perYear = lines->slope() * daysOfYear;
    line.perYearBound = lines->slopeBound() * daysOfYear;
    line.scatter = lines->scatter();
    for (qsizetype run = 0; run < runs.values.size(); ++run) {
        const auto& values = runs.values[run];
        line.ends << std::pair{lines->valueAt(run, number(values.constFirst().day)),
                               lines->valueAt(run, number(values.constLast().day))};
    }
    Outlook outlook(*lines, runs.values, line);
    if (runs.isOpen) {
        outlook.findLeaving(today);
        outlook.findInterval();
    }
    drift.line = line;
    return drift;
}

} // namespace kelvane
