#pragma once

#include "simulators/common/field_work.h"
#include "simulators/fluke702/plan.h"

namespace kelvane::simulators::fluke702 {

/// Carries the jobs out: each is one more run behind those that the calibrator holds, with an entry for each
/// point of the strategy in its order. What is applied is the point on the scale of the source; what is read
/// is the point, and the deviation, on the scale of what is measured. Without a technician's name the
/// calibrator gives its own serial number. Returns its messages, a line each. Throws `Failure`, with the
/// memory untouched, when a task is not there or something can't be kept.
QStringList carryOut(Memory& memory, const std::vector<Job>& jobs, const WorkTimes& work);

} // namespace kelvane::simulators::fluke702
