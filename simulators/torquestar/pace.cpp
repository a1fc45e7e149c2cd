#include "simulators/torquestar/pace.h"

#include "simulators/torquestar/line.h"

#include <algorithm>

namespace kelvane::simulators {

namespace {

using namespace std::chrono_literals;

constexpr int bitsOfByte = 10;
// Noise on a line without pace must leave the machine some rest.
constexpr std::chrono::nanoseconds quickestNoise = 1ms;

std::chrono::nanoseconds byteTimeAt(std::optional<int> baud) {
    return baud ? std::chrono::nanoseconds(1s) * bitsOfByte / *baud : 0ns;
}

} // namespace

VirtualLine::VirtualLine(std::optional<int> baud) : byteTime_(byteTimeAt(baud)) {}

void VirtualLine::addReceived(QByteArrayView bytes, Moment read) {
    for (const char byte : bytes) {
        inFree_ = std::max(inFree_, read) + byteTime_;
        in_.push_back({inFree_, byte});
    }
}

void VirtualLine::send(const QByteArray& bytes, std::chrono::milliseconds delay) {
    outFree_ = std::max(outFree_, present_ + delay);
    for (const char byte : bytes) {
        outFree_ += byteTime_;
        out_.push_back({outFree_, byte});
    }
}

void VirtualLine::noise() {
    noise_ = true;
    outFree_ = std::max(outFree_, present_);
    makeNoise(present_);
}

void VirtualLine::drop() {
    out_.clear();
    noise_ = false;
    outFree_ = present_;
}

std::optional<Moment> VirtualLine::next() const {
    if (in_.empty() && out_.empty())
        return {};
    if (in_.empty() || (!out_.empty() && out_.front().at <= in_.front().at))
        return out_.front().at;
    return in_.front().at;
}

std::optional<VirtualLine::Event> VirtualLine::take(Moment now) {
    const std::optional<Moment> due = next();
    if (!due || *due > now)
        return {};
    present_ = *due;
    if (!out_.empty() && out_.front().at == *due)
        return takeOutbound(now);
    const char byte = in_.front().value;
    in_.pop_front();
    return Event{true, QByteArray(1, byte)};
}

QByteArray VirtualLine::following() const {
    QByteArray bytes;
    for (std::size_t place = 0; place < in_.size() && place < 2; ++place)
        bytes += in_[place].value;
    return bytes;
}

VirtualLine::Event VirtualLine::takeOutbound(Moment now) {
    Event event;
    while (!out_.empty() && out_.front().at <= now && (in_.empty() || out_.front().at <= in_.front().at)) {
        event.bytes += out_.front().value;
        out_.pop_front();
    }
    if (noise_ && out_.empty())
        makeNoise(now);
    return event;
}

// Noise holds neither a DLE nor an STX: it never ends by looking like an answer.
void VirtualLine::makeNoise(Moment now) {
    outFree_ = std::max(outFree_, now) + std::max(byteTime_, quickestNoise);
    noiseSeed_ = noiseSeed_ * 1664525U + 1013904223U;
    const auto byte = static_cast<char>(noiseSeed_ >> 24U);
    out_.push_back({outFree_, byte == Dle || byte == Stx || byte == Ack ? ' ' : byte});
}

} // namespace kelvane::simulators
