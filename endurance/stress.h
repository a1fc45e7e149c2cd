#pragma once

#include "endurance/site.h"

namespace kelvane::endure {

/// Runs all stations for a while, with everything that can happen to them, has each finish, and checks what
/// is left. Prints a report. The process's exit code: 0 when nothing was found.
int runStress(const StressOptions& options);

} // namespace kelvane::endure
