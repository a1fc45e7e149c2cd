#include "ui/login_refusals.h"

#include "platform/workstation.h"

#include <QThread>

#include <algorithm>

namespace kelvane {

namespace {

/// In seconds; the wait doubles up to it.
constexpr int longestWait = 60;
constexpr int maxDoublings = 6;
/// So often the window is painted while a refused login waits.
constexpr int looksPerSecond = 50;

} // namespace

void LoginRefusals::addAndWait(const Workstation& workstation) {
    if (++count_ < 2)
        return;
    const int seconds = std::min(1 << std::min(count_ - 2, maxDoublings), longestWait);
    const auto end = workstation.clock.now().addSecs(seconds);
    // Counted as well: the wait ends even when the clock is set back meanwhile.
    for (int look = 0; look < seconds * looksPerSecond && workstation.clock.now() < end; ++look) {
        QThread::msleep(1000 / looksPerSecond);
        workstation.ui.processEvents();
    }
}

} // namespace kelvane
