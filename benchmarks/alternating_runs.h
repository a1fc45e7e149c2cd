#pragma once

#include <functional>

namespace kelvane::bench {

/// What one of two ways of doing the same takes, each.
struct Turns {
    double ours = 0; // microseconds
    double plain = 0;
    double ratio() const { return ours / plain; }
};

/// Runs `ours` and `plain` in turns, each `count` times in all, with the number of the time. Each figure is
/// the median of the turns, so that whatever else the machine does in between does not count.
Turns runInTurns(int count, const std::function<void(int)>& ours, const std::function<void(int)>& plain);

/// The same, once a turn, for work of which only a part counts: each gives the microseconds of that part.
Turns runTimedTurns(int turns, const std::function<double(int)>& ours,
                    const std::function<double(int)>& plain);

} // namespace kelvane::bench
