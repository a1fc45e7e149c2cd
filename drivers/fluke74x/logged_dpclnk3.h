#pragma once

#include "drivers/fluke74x/dpclnk3.h"
#include "drivers/fluke_link_log.h"

#include <memory>

namespace kelvane {

/// The link library, with a log of its calls and of how the link was opened. It looks into the settings
/// whether to log when it is asked what is missing.
std::unique_ptr<Dpclnk3> loggedDpclnk3(Dpclnk3& real, const LinkLog& log);

} // namespace kelvane
