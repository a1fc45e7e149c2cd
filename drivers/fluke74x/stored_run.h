#pragma once

#include "drivers/fluke74x/dpclnk3.h"
#include "drivers/fluke_run.h"
#include "drivers/link_status.h"

namespace kelvane::Module74xInterface {

/// Where a part of the results stands in the image: its group and, in that, its atom.
struct Place {
    /// The list of results.
    static constexpr qint32 list = 2;
    qint32 group = 0;
    qint32 atom = 0;
};

/// When the run was stored; from the second run of an instrument on, as many minutes later as the run has
/// steps, so that no two records of it have the same time. Error 13 for a date or a time that does not exist,
/// 6 for one beyond the calendar.
Moment momentOf(const Dpclnk3::RunTime& time, const RunResults& run);

// Reading the image in the library. Each gives false when a status ended it.

/// The steps of a run, a reading each, and the serial numbers of its pressure modules, those of the last step
/// that names them. Error 9 at the 102nd.
bool readSteps(Dpclnk3& link, StatusRule& rule, const Place& place, RunResults& run);
/// Cleaned.
bool readTag(Dpclnk3& link, StatusRule& rule, const Place& place, RunTag& tag);

/// The entry in the instrument's own units; a side that is indicated has them already. Error 6 for a value
/// that becomes too large.
RunReading readingOf(const CalParamRecord& instrument, const RunEntry& entry);
/// The pressure modules that the inventory knows, that of the measuring side first. The calibrator itself is
/// in use with the instrument.
RunStandards standardsOf(Session& session, CalRecord& record, const RunResults& run, const QString& serial);

inline constexpr RunRules runRules{.readingOf = readingOf,
                                   .standards = standardsOf,
                                   .noTechnician = u"none",
                                   .hasReadingForEachPoint = false};

} // namespace kelvane::Module74xInterface
