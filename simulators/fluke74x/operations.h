#pragma once

#include <span>

namespace kelvane::simulators::fluke74x {

/// The names of the link library's operations.
std::span<const char* const> operationNames();

} // namespace kelvane::simulators::fluke74x
