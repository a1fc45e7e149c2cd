#pragma once

#include <QByteArray>

#include <chrono>
#include <deque>
#include <optional>

namespace kelvane::simulators {

using Moment = std::chrono::steady_clock::time_point;

/// A line on which each byte takes its time, in both directions at once. The terminal passes bytes at once;
/// here they wait for the moment at which their last bit is through. Moments follow from each other and not
/// from the moments of reading a clock, so that lateness does not add up.
class VirtualLine {
  public:
    /// Ten bit times a byte at this speed; without a speed bytes take no time.
    explicit VirtualLine(std::optional<int> baud);

    /// Bytes that the workstation has put on the line.
    void addReceived(QByteArrayView bytes, Moment read);
    /// Bytes of the calibrator, sent from the moment of the last event on, or later.
    void send(const QByteArray& bytes, std::chrono::milliseconds delay = {});
    /// Noise, one byte after the other, until `drop`.
    void noise();
    /// The line is gone once all is sent.
    void vanish() { vanishing_ = true; }
    /// Forgets what is not sent yet.
    void drop();

    struct Event {
        bool inbound = false; ///< one byte to be received; otherwise bytes to be sent
        QByteArray bytes;
    };
    /// When something is due next.
    std::optional<Moment> next() const;
    /// What is due now, in the order of time.
    std::optional<Event> take(Moment now);
    /// The next two bytes already under way behind the one that is being received.
    QByteArray following() const;
    bool hasVanished() const { return vanishing_ && out_.empty(); }

  private:
    struct Byte {
        Moment at;
        char value;
    };

    Event takeOutbound(Moment now);
    void makeNoise(Moment now);

    std::chrono::nanoseconds byteTime_;
    std::deque<Byte> in_;
    std::deque<Byte> out_;
    Moment inFree_;
    Moment outFree_;
    Moment present_;
    bool noise_ = false;
    quint32 noiseSeed_ = 1;
    bool vanishing_ = false;
};

} // namespace kelvane::simulators
