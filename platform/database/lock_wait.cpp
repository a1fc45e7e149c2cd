#include "platform/database/lock_wait.h"

#include <thread>

namespace kelvane {

namespace {

constexpr std::chrono::milliseconds longestWait{5000};
constexpr std::chrono::milliseconds betweenTries{20};

} // namespace

void LockWait::begin() {
    end_ = std::chrono::steady_clock::now() + longestWait;
}

bool LockWait::next() const {
    if (std::chrono::steady_clock::now() >= end_)
        return false;
    if (whileWaiting_)
        whileWaiting_();
    std::this_thread::sleep_for(betweenTries);
    return true;
}

} // namespace kelvane
