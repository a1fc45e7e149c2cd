#pragma once

#include "data/parameters/cal_params.h"
#include "data/records/cal_record.h"
#include "data/tolerances/tolerances.h"

namespace kelvane {

/// One test point by the instrument's parameters: `applied` to its input, `reading` at its output, both in
/// its own units. `point` is its number, from 1.
ErrorResult judgePoint(Session& session, const CalParamRecord& instrument, double applied, double reading,
                       int point);

/// The points of a calibration that count in its record.
struct PointCounts {
    int failures = 0;
    int marginals = 0;

    bool hasPassed() const { return failures == 0; }
};

/// Counts a judged point and stores its line among the results of the new record. Error 9 when the results
/// are full.
void takePoint(CalRecord& record, PointCounts& counts, const ErrorResult& result, int point);

} // namespace kelvane
