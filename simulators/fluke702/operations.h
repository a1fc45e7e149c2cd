#pragma once

#include <span>

namespace kelvane::simulators::fluke702 {

/// The names of the link library's operations.
std::span<const char* const> operationNames();

} // namespace kelvane::simulators::fluke702
