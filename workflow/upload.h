#pragma once

#include "workflow/calibrators.h"

namespace kelvane::ModuleGlobals {

/// The upload command: asks which calibrator has results and calls its driver. What it could make no record
/// of is listed by `unfinishedResults` when it returns.
void UploadFromCalibrator(Calibrators& calibrators);

} // namespace kelvane::ModuleGlobals
