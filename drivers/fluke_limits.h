#pragma once

#include "data/parameters/cal_params.h"
#include "resources/strings.h"

#include <limits>
#include <optional>
#include <span>

namespace kelvane {

/// From `low` to `high`, both included. One whose low exceeds its high is empty.
struct FlukeSpan {
    float low;
    float high;
};

/// What one calibrator can measure and source where it differs from the other ones: its rows come before
/// those that all have. Each limit applies to the instrument's own unit; units of pressure and sensors
/// without a row have no limits.
struct FlukeLimits {
    static constexpr float unlimited = std::numeric_limits<float>::infinity();
    static constexpr FlukeSpan never{unlimited, -unlimited};

    struct Unit {
        QStringView name;
        FlukeSpan measures;
        FlukeSpan sources;
    };
    struct Sensor {
        QStringView name;
        FlukeSpan celsius;
        FlukeSpan fahrenheit;
    };

    std::span<const Unit> units;
    std::span<const Sensor> sensors;
};

/// The message that says why the calibrator can't measure the instrument's output; nothing when it can, and
/// for a unit that no Fluke knows.
std::optional<TextId> flukeCannotMeasure(const FlukeLimits& limits, const CalParamRecord& instrument);
/// The same for sourcing the instrument's input.
std::optional<TextId> flukeCannotSource(const FlukeLimits& limits, const CalParamRecord& instrument);

} // namespace kelvane
