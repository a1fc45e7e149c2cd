#pragma once

#include "simulators/torquestar/characteristic_fields.h"

#include <optional>

namespace kelvane::simulators {

inline constexpr int unknownError = 0;
inline constexpr int nameTooLong = 1;
inline constexpr int commentOutOfRange = 22;
inline constexpr int noRoom = 27;

/// The error code of the first field that the calibrator can't work with; nothing when all are right. Fields
/// that did not come are not checked.
std::optional<int> firstFault(const Fields& fields);

} // namespace kelvane::simulators
