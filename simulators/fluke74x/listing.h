#pragma once

#include "simulators/fluke74x/memory.h"

#include <QStringList>

namespace kelvane::simulators::fluke74x {

/// What the calibrator holds, for a user to read: each task with the prompts that it shows, and its runs.
QStringList listing(const Memory& memory);

} // namespace kelvane::simulators::fluke74x
