#include "drivers/torquestar/framing.h"

#include "drivers/torquestar/control_characters.h"
#include "platform/error.h"

#include <limits>

namespace kelvane::ModuleTSInterface {

namespace {

/// The ones' complement of the sum of all 16-bit words, high byte first; a byte left over is a high one.
QByteArray invertedSum(const QByteArray& data) {
    if (data.size() > std::numeric_limits<qint16>::max())
        throw makeError(ErrorNumber::overflow);
    qint32 sum = 0;
    bool high = true;
    for (const char character : data) {
        const qint32 byte = static_cast<quint8>(character);
        sum += high ? byte * 256 : byte;
        high = !high;
    }
    while (sum > 0xFFFF)
        sum = sum / 0x10000 + (sum & 0xFFFF);
    const qint32 value = ~sum & 0xFFFF;
    QByteArray bytes;
    bytes.append(static_cast<char>(value / 256));
    bytes.append(static_cast<char>(value % 256));
    return bytes;
}

/// Doubles each DLE. When the last one stands next to the end of the body, the body's last character is not
/// carried over: calibrators have always been spoken to in this way.
QByteArray doubleDles(const QByteArray& body) {
    if (!body.contains(DLE))
        return body;
    QByteArray result;
    qsizetype next = 0;
    for (auto at = body.indexOf(DLE); at >= 0; at = body.indexOf(DLE, next)) {
        result += body.sliced(next, at + 1 - next);
        result += DLE;
        next = at + 1;
    }
    if (next + 1 < body.size())
        result += body.sliced(next);
    return result;
}

} // namespace

QByteArray PreProcessMessage(const QByteArray& body) {
    const auto frame = doubleDles(body) + frameEnd;
    return frame + TXChecksum(frame);
}

QByteArray TXChecksum(const QByteArray& data) {
    return invertedSum(data);
}

QByteArray CheckSum16(const QByteArray& frame) {
    if (frame.size() % 2 == 0)
        return invertedSum(frame);
    // The checksum was made over words, so it has to lie on a word's beginning again.
    if (frame.size() < 2)
        throw makeError(ErrorNumber::invalidArgument);
    auto even = frame;
    even.insert(frame.size() - 2, '\0');
    return invertedSum(even);
}

} // namespace kelvane::ModuleTSInterface
