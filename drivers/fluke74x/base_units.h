#pragma once

#include "drivers/fluke_base_units.h"

namespace kelvane::Module74xInterface {

/// Frequencies stay as they are. Resistances go down unscaled and come back scaled.
inline constexpr BaseUnit baseUnits[] = {
    {u"mA", 1, 1'000},
    {u"uA", 1, 1'000'000},
    {u"mV", 1, 1'000},
    {u"uV", 1, 1'000'000},
    {u"mVAC", 1, 1'000},
    {u"mbar", 1, 1'000},
    {u"KOhms", 1'000, 1, BaseUnit::Scaled::uploadOnly},
    {u"Mohms", 1'000'000, 1, BaseUnit::Scaled::uploadOnly},
};

} // namespace kelvane::Module74xInterface
