#pragma once

#include "simulators/common/field_work.h"
#include "simulators/fluke74x/plan.h"

namespace kelvane::simulators::fluke74x {

/// Carries the jobs out: each is one more run behind those that the calibrator holds, with an entry for each
/// point of the strategy in its order, or for each reading of the job. What is applied is the point on the
/// scale of the source; what is read is the point, and the deviation, on the scale of what is measured. A
/// reading of the job is kept in the calibrator's unit on a side of its own, and as it is
/// written on a side by hand. Without a technician's name the calibrator gives its own serial number. Returns
/// its messages, a line each. Throws `Failure`, with the memory untouched, when a task is not there or has no
/// strategy, a run before is missing, or something can't be kept.
QStringList carryOut(Memory& memory, const std::vector<Job>& jobs, const WorkTimes& work);

} // namespace kelvane::simulators::fluke74x
