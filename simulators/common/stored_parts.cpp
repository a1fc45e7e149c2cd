#include "simulators/common/stored_parts.h"

#include <algorithm>

namespace kelvane::simulators {

bool arePointsGood(const std::vector<float>& points) {
    constexpr float lowest = -1;
    constexpr float highest = 2;
    // Not a number lies nowhere.
    const bool near = std::all_of(points.begin(), points.end(),
                                  [](float point) { return point >= lowest && point <= highest; });
    return near && !points.empty() && points.size() <= maxPoints;
}

} // namespace kelvane::simulators
