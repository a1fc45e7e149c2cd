#pragma once

#include "drivers/fluke702/download_item.h"

namespace kelvane::Module702Interface {

/// What an instrument of a download passes on to those behind it.
struct CarriedValues {
    /// The calibrator can't read the output, so that the user reads it. Once an instrument has set it, it
    /// stays for the rest of the list.
    bool manual = false;
    /// The signal of the frequency that was sourced last, in Hz and V.
    float sourceValue = 0;
    float sourceAmplitude = 0;
};

/// Turns what was gathered into what the task holds: defaults, who reads the output, ranges in base units,
/// the signal to source.
void prepareTaskValues(Download702Item& item, CarriedValues& carried);

} // namespace kelvane::Module702Interface
