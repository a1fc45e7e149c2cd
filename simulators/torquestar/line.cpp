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

FrameReader::Heard FrameReader::take(char byte) {
    switch (m_place) {
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

FrameReader::Heard FrameReader::takeText(char byte) {
    if (m_checked.size() >= longestFrame)
        m_sound = false;
    else
        m_checked += byte;
    if (byte == Dle)
        m_place = Place::AfterDle;
    else if (m_sound)
        m_message += byte;
    return Heard::More;
}

FrameReader::Heard FrameReader::takeAfterDle(char byte) {
    m_checked += byte;
    m_place = Place::Text;
    if (byte == Dle)
        m_message += Dle;
    else if (byte == Etx)
        m_place = Place::Check;
    else if (byte == Eot)
        m_place = Place::AfterDleEot;
    else
        m_sound = false;
    return Heard::More;
}

FrameReader::Heard FrameReader::takeAfterDleEot(char byte) {
    if (byte == Stx) {
        restart();
        return Heard::LinkStart;
    }
    m_sound = false;
    m_place = Place::Text;
    return takeText(byte);
}

FrameReader::Heard FrameReader::takeCheck(char byte) {
    m_check += byte;
    if (m_check.size() < 2)
        return Heard::More;
    return m_sound && m_check == checkBytes(m_checked) ? Heard::Message : Heard::Refused;
}

} // namespace kelvane::simulators
