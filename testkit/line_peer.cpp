#include "testkit/line_peer.h"

namespace kelvane::testing {

namespace {

constexpr char dle = 0x10;

/// Where the frame in these bytes ends, checksum included; -1 while it is not whole.
qsizetype frameLength(const QByteArray& bytes) {
    for (qsizetype i = 0; i + 1 < bytes.size(); ++i) {
        if (bytes[i] != dle)
            continue;
        if (bytes[i + 1] == 0x03)
            return i + 4 <= bytes.size() ? i + 4 : -1;
        ++i;
    }
    return -1;
}

} // namespace

QByteArray hex(const char* digits) {
    return QByteArray::fromHex(digits);
}

QByteArray makeFrame(const QByteArray& body) {
    QByteArray frame = body;
    frame.replace(QByteArray(1, dle), QByteArray(2, dle));
    frame += "\x10\x03";
    quint32 sum = 0;
    for (qsizetype i = 0; i < frame.size(); ++i)
        sum += static_cast<quint32>(static_cast<quint8>(frame[i])) << (i % 2 == 0 ? 8 : 0);
    sum = sum % 65535 == 0 && sum != 0 ? 65535 : sum % 65535;
    const auto check = 65535 - sum;
    frame += static_cast<char>(check >> 8);
    frame += static_cast<char>(check & 255);
    return frame;
}

QByteArray LinePeer::take(const QByteArray& bytes) {
    received_ += bytes;
    QByteArray answer;
    while (const auto frame = takeOne())
        answer += *frame;
    return answer;
}

std::optional<QByteArray> LinePeer::takeOne() {
    if (received_.startsWith(hex("10 04 02"))) {
        received_.remove(0, 3);
        pending_.clear();
        return QByteArray(1, acknowledge);
    }
    if (received_.startsWith('T')) {
        const auto end = frameLength(received_);
        if (end < 0)
            return {};
        return takeFrame(end);
    }
    // An acknowledge calls for the reply, or is the last word.
    if (received_.isEmpty() || received_ == hex("10 04") || (received_[0] == dle && acknowledge != dle))
        return {};
    received_.remove(0, 1);
    return std::exchange(pending_, {});
}

QByteArray LinePeer::takeFrame(qsizetype end) {
    auto body = received_.first(end).chopped(4);
    received_.remove(0, end);
    body.replace(QByteArray(2, dle), QByteArray(1, dle));
    received << body;
    const auto answer = reply ? reply(body) : std::nullopt;
    if (!answer)
        return {};
    pending_ = fault ? fault(makeFrame(*answer)) : makeFrame(*answer);
    return QByteArray(1, acknowledge) + '\x02';
}

} // namespace kelvane::testing
