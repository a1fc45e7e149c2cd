#pragma once

#include "drivers/fluke74x/download_item.h"
#include "drivers/fluke74x/dpclnk3.h"
#include "drivers/link_status.h"

namespace kelvane::Module74xInterface {

/// Lists the operations that make the calibrator's setup for a task whose values are prepared. False when a
/// status ended it.
bool listStateItems(Dpclnk3& link, StatusRule& rule, const Task74x& task, const EnteredSides& entered);
/// Evaluates the listed operations and saves the state. False when a status ended it.
bool saveState(Dpclnk3& link, StatusRule& rule, Dpclnk3::State& state);

} // namespace kelvane::Module74xInterface
