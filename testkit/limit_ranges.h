#pragma once

#include "resources/text_id.h"

#include <QList>

#include <cmath>
#include <limits>
#include <optional>

namespace kelvane::testing {

/// The 32-bit number next above and next below.
inline float above(float value) {
    return std::nextafter(value, std::numeric_limits<float>::infinity());
}
inline float below(float value) {
    return std::nextafter(value, -std::numeric_limits<float>::infinity());
}

/// A range and the message that it gives; none when it passes.
struct LimitRange {
    float low;
    float high;
    std::optional<TextId> message;
};

/// Each end on a limit of the absolute value, and next to it, the other end being zero or the same.
inline QList<LimitRange> magnitudeRanges(float limit, TextId message) {
    return {{-limit, limit, {}},
            {limit, -limit, {}},
            {0, limit, {}},
            {limit, 0, {}},
            {0, -limit, {}},
            {-limit, 0, {}},
            {0, below(limit), {}},
            {below(limit), 0, {}},
            {0, above(limit), message},
            {above(limit), 0, message},
            {0, -above(limit), message},
            {-above(limit), 0, message},
            {-above(limit), above(limit), message}};
}

/// Each end on each limit, and next to it, the other end lying at `middle`.
inline QList<LimitRange> rangesAround(float bottom, float top, float middle, TextId tooLow, TextId tooHigh) {
    return {{bottom, top, {}},
            {top, bottom, {}},
            {bottom, bottom, {}},
            {top, top, {}},
            {above(bottom), below(top), {}},
            {middle, above(top), tooHigh},
            {above(top), middle, tooHigh},
            {below(bottom), middle, tooLow},
            {middle, below(bottom), tooLow}};
}

/// Ranges without a low limit: each end on the high one, and next to it.
inline QList<LimitRange> rangesBelow(float top, TextId tooHigh) {
    return {{0, top, {}},
            {top, 0, {}},
            {below(top), below(top), {}},
            {-1E38F, -1E38F, {}},
            {0, above(top), tooHigh},
            {above(top), 0, tooHigh},
            {-1E38F, above(top), tooHigh}};
}

/// Each end of a temperature on each limit of a sensor, and next to it. Beyond both limits, "too hot" comes
/// first.
inline QList<LimitRange> temperatureRanges(float low, float high) {
    constexpr auto tooHot = TextId::cannotMeasureTemperatureAbove;
    constexpr auto tooCold = TextId::cannotMeasureTemperatureBelow;
    return {{low, high, {}},
            {high, low, {}},
            {above(low), below(high), {}},
            {low, above(high), tooHot},
            {above(high), low, tooHot},
            {below(low), high, tooCold},
            {high, below(low), tooCold},
            {below(low), above(high), tooHot},
            {above(high), below(low), tooHot}};
}

} // namespace kelvane::testing
