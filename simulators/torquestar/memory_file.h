#pragma once

#include "simulators/common/memory_file.h"
#include "simulators/torquestar/memory.h"

namespace kelvane::simulators {

using MemoryFile = MemoryFileOf<Memory, memoryFrom>;

} // namespace kelvane::simulators
