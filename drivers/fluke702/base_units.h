#pragma once

#include "drivers/fluke_base_units.h"

namespace kelvane::Module702Interface {

/// Results in "KHz", "MHz" and "mbar" stay in the base unit.
inline constexpr BaseUnit baseUnits[] = {
    {u"mA", 1, 1'000},
    {u"uA", 1, 1'000'000},
    {u"mV", 1, 1'000},
    {u"uV", 1, 1'000'000},
    {u"mVAC", 1, 1'000},
    {u"KOhms", 1'000, 1},
    {u"Mohms", 1'000'000, 1},
    {u"mbar", 1, 1'000, BaseUnit::Scaled::downloadOnly},
    {u"KHz", 1'000, 1, BaseUnit::Scaled::downloadOnly},
    {u"MHz", 1'000'000, 1, BaseUnit::Scaled::downloadOnly},
};

} // namespace kelvane::Module702Interface
