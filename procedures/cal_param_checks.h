#pragma once

#include "procedures/cal_param_entries.h"
#include "resources/strings.h"

#include <optional>

namespace kelvane {

/// What keeps calibration parameters from being saved.
struct CalParamFault {
    /// The page of the editor to show.
    enum Page { general, input, output, tolerance } page = general;
    TextId message;
    /// The parameter to go to; nothing for none.
    std::optional<CalParamMember> parameter = {};
};

/// The first fault, in the fixed order of the checks. Only what is needed by the units of each side is
/// examined: parameters that the units do not call for may be anything.
std::optional<CalParamFault> firstFault(const CalParamEntries& entries);

} // namespace kelvane
