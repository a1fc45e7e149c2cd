#include "drivers/fluke702/base_units.h"

#include "data/tolerances/checked_arithmetic.h"

#include <algorithm>
#include <iterator>

namespace kelvane::Module702Interface {

namespace {

/// Factor and divisor, one of them 1: the quotient by 1000 is not the product with 0.001.
struct BaseUnit {
    QStringView unit;
    float times;
    float over;
    bool comesBack = true;
};

constexpr BaseUnit baseUnits[] = {
    {u"mA", 1, 1'000},         {u"uA", 1, 1'000'000},
    {u"mV", 1, 1'000},         {u"uV", 1, 1'000'000},
    {u"mVAC", 1, 1'000},       {u"KOhms", 1'000, 1},
    {u"Mohms", 1'000'000, 1},  {u"mbar", 1, 1'000, false},
    {u"KHz", 1'000, 1, false}, {u"MHz", 1'000'000, 1, false},
};

const BaseUnit* find(const QString& unit) {
    const auto* found = std::find_if(std::begin(baseUnits), std::end(baseUnits),
                                     [&](const BaseUnit& one) { return one.unit == unit; });
    return found == std::end(baseUnits) ? nullptr : found;
}

} // namespace

float toBaseUnit(float value, const QString& unit) {
    const auto* scale = find(unit);
    return scale ? finite(value * scale->times / scale->over) : value;
}

float fromBaseUnit(float value, const QString& unit) {
    const auto* scale = find(unit);
    return scale && scale->comesBack ? finite(value * scale->over / scale->times) : value;
}

} // namespace kelvane::Module702Interface
