#pragma once

#include "data/history/calibrations.h"

namespace kelvane {

/// What a record has found at a test point.
struct PointError {
    /// The number of the record in the list.
    qsizetype record = 0;
    /// The error in percent of the tolerance on its side, with the sign of the error: 100 is the high limit,
    /// -100 the low one. Always finite.
    double percent = 0;
    /// As the line has it.
    QString reading = {};
};

/// A test point of an instrument over its records.
struct InstrumentPoint {
    /// As the newest of its lines has it, with its unit.
    QString nominal = {};
    /// Which of the lines with this nominal value in a record, from 1: the second one is most often that of
    /// the way back.
    int occurrence = 1;
    /// At most one of each record, in the order of the records.
    QList<PointError> errors = {};
};

/// The errors of all points, and what had to be left out.
struct PointHistory {
    /// In the order of the newest record's lines; points that only older records have come behind them.
    QList<InstrumentPoint> points = {};
    /// Lines that are not blank.
    qsizetype lines = 0;
    /// Of these, the ones that can't be read for certain (`readStoredLine`).
    qsizetype unreadable = 0;
    /// Readable ones with no error or no tolerance, or with a tolerance of zero.
    qsizetype withoutTolerance = 0;
    /// Readable ones that share their nominal value with others, in a record with a line that had to be left
    /// out: that may have been one of them, so that it is not certain which of them is which.
    qsizetype uncertain = 0;

    qsizetype leftOut() const { return unreadable + withoutTolerance + uncertain; }
};

/// The points of an instrument's records, which are listed the newest first.
///
/// Two lines of different records are of the same point when nominal and applied value have the same units
/// and are no further apart than 2 percent of what the values of these records span; a record with one value
/// spans as much as that is. An applied pressure is never quite the same, and the nominal value follows it.
/// An instrument whose range or units were changed so gets other points.
///
/// The tolerance is the distance of the limit on the side of the error, as in the percentage that the
/// workstation stores; where the template has no limits it is the tolerance of the line.
PointHistory pointHistoryOf(Session& session, const QList<CalibrationRecord>& records);

} // namespace kelvane
