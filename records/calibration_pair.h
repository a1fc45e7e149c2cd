#pragma once

#include "data/history/calibrations.h"

namespace kelvane {

/// The records of one calibration, by their numbers in the list of an instrument's records.
struct CalibrationPair {
    std::optional<qsizetype> asFound = {};
    std::optional<qsizetype> asLeft = {};
};

/// The calibration that a record belongs to, in a list with the newest first. A record as left belongs to the
/// one as found when that is the next one before it, and both have a date: nothing in the database joins
/// them, so that whoever shows them shows both dates, too. A record of both, or of neither, stands alone as
/// the one as found.
CalibrationPair pairOf(const QList<CalibrationRecord>& records, qsizetype chosen);

} // namespace kelvane
