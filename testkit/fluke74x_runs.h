#pragma once

#include "testkit/field_runs.h"

namespace kelvane::demo {

/// Of the Fluke 743. Of the manual downloads, the first has instruments whose output is read manually, the
/// second such whose input is.
const CalibratorRuns& fluke74xRuns();

} // namespace kelvane::demo
