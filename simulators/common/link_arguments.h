#pragma once

#include "simulators/common/c_text.h"
#include "simulators/common/stored_parts.h"

namespace kelvane::simulators {

// What a workstation passes to an operation of a link library.

template <class... Pointers>
bool anyNull(const Pointers*... pointers) {
    return (... || (pointers == nullptr));
}

/// The points of a strategy; none when there are more than it can have.
std::vector<float> pointsIn(qint16 count, const float* points);

} // namespace kelvane::simulators
