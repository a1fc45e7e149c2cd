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

VirtualLine::VirtualLine(std::optional<int> baud) : m_byteTime(byteTimeAt(baud)) {}

void VirtualLine::arrived(QByteArrayView bytes, Moment read) {
    for (const char byte : bytes) {
        m_inFree = std::max(m_inFree, read) + m_byteTime;
        m_in.push_back({m_inFree, byte});
    }
}

void VirtualLine::send(const QByteArray& bytes, std::chrono::milliseconds delay) {
    m_outFree = std::max(m_outFree, m_present + delay);
    for (const char byte : bytes) {
        m_outFree += m_byteTime;
        m_out.push_back({m_outFree, byte});
    }
}

void VirtualLine::noise() {
    m_noise = true;
    m_outFree = std::max(m_outFree, m_present);
    makeNoise(m_present);
}

void VirtualLine::drop() {
    m_out.clear();
    m_noise = false;
    m_outFree = m_present;
}

std::optional<Moment> VirtualLine::next() const {
    if (m_in.empty() && m_out.empty())
        return {};
    if (m_in.empty() || (!m_out.empty() && m_out.front().at <= m_in.front().at))
        return m_out.front().at;
    return m_in.front().at;
}

std::optional<VirtualLine::Event> VirtualLine::take(Moment now) {
    const std::optional<Moment> due = next();
    if (!due || *due > now)
        return {};
    m_present = *due;
    if (!m_out.empty() && m_out.front().at == *due)
        return takeOutbound(now);
    const char byte = m_in.front().value;
    m_in.pop_front();
    return Event{true, QByteArray(1, byte)};
}

QByteArray VirtualLine::following() const {
    QByteArray bytes;
    for (std::size_t place = 0; place < m_in.size() && place < 2; ++place)
        bytes += m_in[place].value;
    return bytes;
}

VirtualLine::Event VirtualLine::takeOutbound(Moment now) {
    Event event;
    while (!m_out.empty() && m_out.front().at <= now &&
           (m_in.empty() || m_out.front().at <= m_in.front().at)) {
        event.bytes += m_out.front().value;
        m_out.pop_front();
    }
    if (m_noise && m_out.empty())
        makeNoise(now);
    return event;
}

// Noise holds neither a DLE nor an STX: it never ends by looking like an answer.
void VirtualLine::makeNoise(Moment now) {
    m_outFree = std::max(m_outFree, now) + std::max(m_byteTime, quickestNoise);
    m_noiseSeed = m_noiseSeed * 1664525U + 1013904223U;
    const auto byte = static_cast<char>(m_noiseSeed >> 24U);
    m_out.push_back({m_outFree, byte == Dle || byte == Stx || byte == Ack ? ' ' : byte});
}

} // namespace kelvane::simulators
