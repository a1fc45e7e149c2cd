#include "drivers/fluke702/base_units.h"

#include "data/checked_arithmetic.h"

namespace kelvane::Module702Interface {

namespace {

/// Factor and divisor, one of them 1: the quotient by 1000 is not the product with 0.001.
struct BaseUnit {
    QStringView unit;
    float times;
    float over;
};

constexpr BaseUnit baseUnits[] = {
    {u"mA", 1, 1'000},   {u"uA", 1, 1'000'000},  {u"mV", 1, 1'000},        {u"uV", 1, 1'000'000},
    {u"mVAC", 1, 1'000}, {u"KOhms", 1'000, 1},   {u"Mohms", 1'000'000, 1}, {u"mbar", 1, 1'000},
    {u"KHz", 1'000, 1},  {u"MHz", 1'000'000, 1},
};

} // namespace

float toBaseUnit(float value, const QString& unit) {
    for (const auto& one : baseUnits) {
        if (one.unit == unit)
            return finite(value * one.times / one.over);
    }
    return value;
}

} // namespace kelvane::Module702Interface
