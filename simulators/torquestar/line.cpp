#include "simulators/torquestar/line.h"

namespace kelvane::simulators {

namespace {

// More than the longest message by far; a line that never ends a frame must not fill the memory.
constexpr qsizetype longestFrame = 4096;

} // namespace

QByteArray linkStart() {
    return QByteArray{1, Dle} + Eot + Stx;
}

QByteArray checkBytes(QByteArrayView onTheLine) {
    quint32 sum = 0;
    bool high = true;
    for (const char byte : onTheLine) {
        const quint32 value = static_cast<unsigned char>(byte);
        sum += high ? value << 8U : value;
        sum = (sum & 0xFFFFU) + (sum >> 16U);
        high = !high;
    }
    const quint32 check = sum ^ 0xFFFFU;
    return QByteArray{1, static_cast<char>(check >> 8U)} + static_cast<char>(check & 0xFFU);
}

QByteArray frame(QByteArrayView reply) {
    QByteArray out;
    for (const char byte : reply) {
        out += byte;
        if (byte == Dle)
            out += Dle;
    }
    out += Dle;
    out += Etx;
    return out + checkBytes(out);
}

QByteArray longBytes(qint32 number) {
    QByteArray out;
    for (const unsigned shift : {24U, 16U, 8U, 0U})
        out += static_cast<char>(static_cast<quint32>(number) >> shift & 0xFFU);
    return out;
}

void FrameReader::restart() {
    *this = FrameReader();
}

FrameReader::Received FrameReader::take(char byte) {
    switch (place_) {
    case Place::Text:
        return takeText(byte);
    case Place::AfterDle:
        return takeAfterDle(byte);
    case Place::AfterDleEot:
        return takeAfterDleEot(byte);
    case Place::Check:
        break;
    }
    return takeCheck(byte);
}

FrameReader::Received FrameReader::takeText(char byte) {
    if (checked_.size() >= longestFrame)
        sound_ = false;
    else
        checked_ += byte;
    if (byte == Dle)
        place_ = Place::AfterDle;
    else if (sound_)
        message_ += byte;
    return Received::More;
}

FrameReader::Received FrameReader::takeAfterDle(char byte) {
    checked_ += byte;
    place_ = Place::Text;
    if (byte == Dle)
        message_ += Dle;
    else if (byte == Etx)
        place_ = Place::Check;
    else if (byte == Eot)
        place_ = Place::AfterDleEot;
    else
        sound_ = false;
    return Received::More;
}

FrameReader::Received FrameReader::takeAfterDleEot(char byte) {
    if (byte == Stx) {
        restart();
        return Received::LinkStart;
    }
    sound_ = false;
    place_ = Place::Text;
    return takeText(byte);
}

FrameReader::Received FrameReader::takeCheck(char byte) {
    check_ += byte;
    if (check_.size() < 2)
        return Received::More;
    return sound_ && check_ == checkBytes(checked_) ? Received::Message : Received::Refused;
}

} // namespace kelvane::simulators
