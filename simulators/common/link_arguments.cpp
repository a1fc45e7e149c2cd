#include "simulators/common/link_arguments.h"

namespace kelvane::simulators {

std::vector<float> pointsIn(qint16 count, const float* points) {
    const bool there = points != nullptr && count >= 1 && count <= static_cast<qint16>(maxPoints);
    return there ? std::vector<float>(points, points + count) : std::vector<float>{};
}

} // namespace kelvane::simulators
