#pragma once

#include "platform/error.h"

#include <chrono>
#include <functional>
#include <utility>

namespace kelvane {

/// What runs repeatedly while a statement waits for another workstation, such as repainting the window. It
/// must not run a statement.
using WhileWaiting = std::function<void()>;

/// The wait for a lock of another workstation: five seconds in all, with a try every 20 milliseconds.
class LockWait {
  public:
    explicit LockWait(WhileWaiting whileWaiting) : whileWaiting_(std::move(whileWaiting)) {}
    /// The five seconds begin now.
    void begin();
    /// Waits until the next try; false when the time is over.
    bool next() const;

    /// Runs `attempt` until it comes through or throws what does not mean a lock.
    template <class Attempt, class IsBusy>
    auto retry(Attempt attempt, IsBusy isBusy) const {
        while (true) {
            try {
                return attempt();
            } catch (const Error& error) {
                if (!isBusy(error) || !next())
                    throw;
            }
        }
    }

  private:
    WhileWaiting whileWaiting_;
    std::chrono::steady_clock::time_point end_;
};

} // namespace kelvane
