#include "drivers/fluke_combinations.h"

#include "data/tolerances/unit_class.h"

#include <algorithm>

namespace kelvane {

bool FlukeCombination::matches(const CalParamRecord& instrument) const {
    const auto begins = [](QStringView sensor, QStringView with) { return sensor.left(with.size()) == with; };
    return UnitClass(instrument.input_type) == inputClass &&
           UnitClass(instrument.output_type) == outputClass &&
           begins(instrument.temp_sens_type_in, inputSensor) &&
           begins(instrument.temp_sens_type_out, outputSensor);
}

bool flukeCannotCombine(const CalParamRecord& instrument) {
    return std::any_of(std::begin(flukeCombinations), std::end(flukeCombinations),
                       [&](const FlukeCombination& combination) { return combination.matches(instrument); });
}

} // namespace kelvane
