#pragma once

#include "drivers/torquestar/serial_port.h"
#include "platform/clock.h"

#include <QElapsedTimer>
#include <QThread>

#include <algorithm>

namespace kelvane::testing {

/// A clock for the time-outs of a real line, which no test wants to sit out: after a while of silence on the
/// line its seconds are short. As long as something comes and goes it keeps the true pace, so that a slow
/// machine is not taken for a dead line.
class LineClock final : public Clock {
  public:
    LineClock() { sinceLook_.start(); }

    QDateTime now() const override {
        // On a busy machine this program itself may stand still, which is no silence of the line.
        const auto step = std::min(sinceLook_.restart(), longestStep);
        silent_ += step;
        passed_ += silent_ > patience ? haste * step : step;
        return start_.addSecs(passed_ / 1000);
    }
    /// Something has come or gone on the line.
    void noteTraffic() const {
        now();
        silent_ = 0;
    }

    /// Silence at the true pace, in milliseconds; -1 for a clock that always hurries.
    qint64 patience = 200;
    /// How many times faster than true time the clock then is.
    qint64 haste = 100;

  private:
    static constexpr qint64 longestStep = 50; // milliseconds

    QDateTime start_ = SystemClock().now();
    mutable QElapsedTimer sinceLook_;
    mutable qint64 silent_ = 0;
    mutable qint64 passed_ = 0;
};

/// The real port, with a clock that listens.
class HeardPort final : public SerialPort {
  public:
    HeardPort(SerialPort& real, const LineClock& clock) : real_(real), clock_(clock) {}

    bool portOpen() const override { return real_.portOpen(); }
    void setPortOpen(bool open) override {
        if (open)
            openPatiently();
        else
            real_.setPortOpen(false);
        clock_.noteTraffic();
    }
    void setCommPort(int number) override { real_.setCommPort(number); }
    void setSettings(const QString& settings) override { real_.setSettings(settings); }
    int inBufferCount() override {
        const int count = real_.inBufferCount();
        if (count != lastCount_)
            clock_.noteTraffic();
        return lastCount_ = count;
    }
    QByteArray input() override {
        const auto bytes = real_.input();
        if (!bytes.isEmpty())
            clock_.noteTraffic();
        lastCount_ = 0;
        return bytes;
    }
    void output(const QByteArray& bytes) override {
        real_.output(bytes);
        clock_.noteTraffic();
    }

  private:
    /// A program that closes a pseudo terminal frees its number before its lock: for a moment another one
    /// that gets the number finds the lock of a living program.
    void openPatiently() {
        for (int tries = 10;; --tries) {
            try {
                real_.setPortOpen(true);
                return;
            } catch (const Error&) {
                if (tries == 0 || real_.portOpen())
                    throw;
                QThread::msleep(20);
            }
        }
    }

    SerialPort& real_;
    const LineClock& clock_;
    int lastCount_ = 0;
};

} // namespace kelvane::testing
