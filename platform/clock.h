#pragma once

#include "platform/values/moments.h"

#include <QDateTime>

namespace kelvane {

/// The present moment: the workstation's local time in whole seconds. Tests set their own.
class Clock {
  public:
    virtual ~Clock() = default;
    /// Local time with its offset, so that differences stay right when the summer time ends.
    virtual QDateTime now() const = 0;

    /// The same as wall-clock date and time.
    Moment moment() const {
        const auto present = now();
        return {present.date(), present.time()};
    }
};

class SystemClock final : public Clock {
  public:
    QDateTime now() const override;
};

} // namespace kelvane
