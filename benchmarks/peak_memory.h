#pragma once

namespace kelvane::bench {

/// The most that this process has held in memory, in MB. Ends the program where the system does not tell it.
double peakMegabytes();
/// From here on only what this process holds later counts for its peak.
void forgetPeak();

} // namespace kelvane::bench
