#pragma once

#include "drivers/fluke702/download_item.h"
#include "drivers/fluke702/dpclnk.h"
#include "drivers/fluke702/task_values.h"
#include "drivers/link_status.h"

namespace kelvane::Module702Interface {

/// Builds the calibrator's setup for an instrument whose task values are prepared, and saves it (`stateId`).
/// False when a status ended it.
bool saveSetupState(Dpclnk& link, StatusRule& rule, Download702Item& item, const CarriedValues& carried);

} // namespace kelvane::Module702Interface
