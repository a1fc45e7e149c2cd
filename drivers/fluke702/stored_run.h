#pragma once

#include "drivers/fluke702/dpclnk.h"
#include "drivers/fluke_run.h"

namespace kelvane::Module702Interface {

/// What a run of a task is, and when it was stored.
struct RunHeader {
    /// 1: a run that a later as-left run may follow. 2: an as-left run.
    qint16 kind = 0;
    qint16 month = 0;
    qint16 day = 0;
    qint16 year = 0;
    qint16 hour = 0;
    qint16 minute = 0;
    qint16 second = 0;

    bool isDated() const { return month > 0 && day > 0 && year > 0; }
};

/// When the run was stored; error 13 for a date or a time that does not exist.
Moment momentOf(const RunHeader& header);

// Reading the image in the library. Each gives the first status that isn't 0; what was asked for is then
// incomplete.

/// Values that read 0 are fetched again, each by a call of its own.
Dpclnk::Status readHeader(Dpclnk& link, qint32 record, RunHeader& header);
/// The texts count with status 2026 (no tag saved) too.
Dpclnk::Status readTag(Dpclnk& link, qint32 record, RunTag& tag);
/// The tag alone, whatever the status.
QString tagOf(Dpclnk& link, qint32 record);
/// In the calibrator's base units, the error as a fraction of span. Each of the seven values of an entry is
/// fetched by a call of its own.
Dpclnk::Status readEntry(Dpclnk& link, qint32 record, qint16 entry, RunEntry& values);

/// The entry in the instrument's own units, computed in 32 bits. Error 6 for a value that becomes too large.
RunReading readingOf(const CalParamRecord& instrument, const RunEntry& entry);
/// The calibrator and its pressure module.
RunStandards standardsOf(Session& session, CalRecord& record, const RunResults& run, const QString& serial);

inline constexpr RunRules runRules{.readingOf = readingOf, .standards = standardsOf};

} // namespace kelvane::Module702Interface
