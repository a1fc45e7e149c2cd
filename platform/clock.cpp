#include "platform/clock.h"

namespace kelvane {

QDateTime SystemClock::now() const {
    return QDateTime::fromSecsSinceEpoch(QDateTime::currentSecsSinceEpoch());
}

} // namespace kelvane
