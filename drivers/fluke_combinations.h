#pragma once

#include "data/parameters/cal_params.h"

namespace kelvane {

/// An input and an output that a Fluke calibrator can't handle at the same time.
struct FlukeCombination {
    /// Classes as `UnitClass` gives them.
    qint16 inputClass;
    qint16 outputClass;
    /// How the names of the sensors begin; empty for any.
    QStringView inputSensor = {};
    QStringView outputSensor = {};

    bool matches(const CalParamRecord& instrument) const;
};

inline constexpr FlukeCombination flukeCombinations[] = {
    {2, 2}, {3, 3}, {1, 1, u"TC", u"TC"}, {3, 1, {}, u"RTD"}, {3, 9},
};

/// True when the calibrator can measure the instrument's output, but not while it sources its input.
bool flukeCannotCombine(const CalParamRecord& instrument);

} // namespace kelvane
