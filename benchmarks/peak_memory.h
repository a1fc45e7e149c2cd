#pragma once

namespace kelvane::bench {

/// The most that this process has held in memory, in MB. Ends the program where the system does not tell it.
double peakMegabytes();

} // namespace kelvane::bench
