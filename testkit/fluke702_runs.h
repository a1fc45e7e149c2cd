#pragma once

#include "testkit/field_runs.h"

namespace kelvane::demo {

/// Of the Fluke 702.
const CalibratorRuns& fluke702Runs();

} // namespace kelvane::demo
