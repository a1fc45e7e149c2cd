#pragma once

#include "data/history/point_history.h"

#include <QDate>

namespace kelvane {

/// An error at a day.
struct DriftValue {
    /// The number of the record in the list.
    qsizetype record = 0;
    QDate day = {};
    /// In percent of the tolerance.
    double percent = 0;
};

/// How the line of a point goes on behind its last error, as far ahead as the records reach back.
enum class DriftOutlook {
    /// It leaves the limits on a day that is still to come.
    leaves,
    stays,
    /// It is out at the last error, or has come to the limits since.
    hasLeft,
    /// The last record is one as found, and none says how the instrument was left.
    unknown,
};

/// The fitted lines of a point.
struct DriftLine {
    /// Percent of the tolerance in a year of 365.25 days, and half the width of its confidence interval of 95
    /// percent.
    double perYear = 0;
    double perYearBound = 0;
    /// The standard deviation of the errors around the lines, in percent of the tolerance.
    double scatter = 0;
    /// The line of each run, at its first and its last day.
    QList<std::pair<double, double>> ends = {};

    DriftOutlook outlook = DriftOutlook::unknown;
    /// The first day beyond a limit, of `leaves` and of a line that has left since the last error.
    QDate leaving = {};
    /// So many days the outlook looks ahead from the last error: what the records span, ten years at most.
    qint64 horizon = 0;
    /// The line on the last day of the horizon.
    double percentAtHorizon = 0;
    /// The days from the last error through which an error as found stays within its limits with 95 percent:
    /// 0 when it does not even on that day, `horizon` for that and longer. Nothing when the outlook is
    /// unknown.
    std::optional<qint64> intervalKept = {};
};

struct PointDrift {
    /// The errors that were used, the oldest first, in runs without an adjustment. The instrument is taken to
    /// be adjusted behind each record as found and before each one as left.
    QList<QList<DriftValue>> runs = {};
    /// Days with an error, those of each run counted by itself, and how many of them a line needs: one for
    /// the level of each run, one for the slope, one for the scatter.
    qsizetype days = 0;
    qsizetype daysNeeded = 0;
    /// Nothing when there are not enough days.
    std::optional<DriftLine> line = {};
};

/// True for a record whose errors tell of drift: it says whether it is one as found or as left, and has a
/// date that is not in the future.
bool tellsOfDrift(const CalibrationRecord& record, const QDate& today);

/// How a point's error changes with the days, by the control chart method: lines of one slope through the
/// errors of all runs (`ParallelLines`), since an adjustment changes where the line begins and not how fast
/// the instrument drifts. The day of leaving is where the line of the last run comes to 100 or -100 percent;
/// the interval kept ends where the bound of 95 percent for a further error does.
PointDrift driftOf(const InstrumentPoint& point, const QList<CalibrationRecord>& records, const QDate& today);

} // namespace kelvane
