#pragma once

#include "simulators/common/transfer.h"
#include "simulators/fluke702/image.h"

namespace kelvane::simulators::fluke702 {

using Transfer = TransferOf<Image, MemoryFile, TransferCodes<Code>{OutOfStep, NotOpen, OutOfStep, NoRoom}>;

} // namespace kelvane::simulators::fluke702
