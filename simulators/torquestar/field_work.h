#pragma once

#include "simulators/torquestar/memory.h"
#include "simulators/torquestar/plan.h"

#include <QStringList>

namespace kelvane::simulators {

struct FieldWork {
    QDateTime now;            ///< for jobs without a moment of their own
    int seconds = 60;         ///< from one result to the next
    std::optional<int> takes; ///< how often each point is taken; not given: as often as it has samples
};

/// Carries the jobs out: the results of each characteristic are replaced by new ones, in the order of the
/// points, all takes of a point one after the other, each with the characteristic's number of samples.
/// Moments that the workstation can't read are passed over. Returns its messages, a line each. Throws
/// `Failure`, with the memory untouched, when a characteristic is not there or a reading can't be kept.
QStringList carryOut(Memory& memory, const std::vector<Job>& jobs, const FieldWork& work);

} // namespace kelvane::simulators
