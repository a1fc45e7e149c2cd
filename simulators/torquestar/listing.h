#pragma once

#include "simulators/torquestar/memory.h"

#include <QStringList>

namespace kelvane::simulators {

/// What the calibrator holds, for a user to read.
QStringList listing(const Memory& memory);

} // namespace kelvane::simulators
