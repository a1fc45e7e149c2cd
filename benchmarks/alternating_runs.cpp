#include "benchmarks/alternating_runs.h"

#include <QElapsedTimer>

#include <algorithm>
#include <vector>

namespace kelvane::bench {

namespace {

constexpr int turns = 100;

double median(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace

Turns runInTurns(int count, const std::function<void(int)>& ours, const std::function<void(int)>& plain) {
    const auto block = std::max(count / turns, 1);
    const auto timed = [block](const std::function<void(int)>& action) {
        return [block, &action](int turn) {
            QElapsedTimer timer;
            timer.start();
            for (int i = 0; i < block; ++i)
                action(turn * block + i);
            return static_cast<double>(timer.nsecsElapsed()) / 1000 / block;
        };
    };
    return runTimedTurns(turns, timed(ours), timed(plain));
}

Turns runTimedTurns(int count, const std::function<double(int)>& ours,
                    const std::function<double(int)>& plain) {
    std::vector<double> times[2];
    for (int turn = 0; turn < count; ++turn) {
        // Who goes first changes, so that neither finds the other's work warm.
        for (const bool oursNow : {turn % 2 == 0, turn % 2 != 0})
            times[oursNow ? 0 : 1].push_back((oursNow ? ours : plain)(turn));
    }
    return {median(times[0]), median(times[1])};
}

} // namespace kelvane::bench
