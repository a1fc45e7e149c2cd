#include "simulators/common/text_bytes.h"

#include <QList>

#include <algorithm>
#include <array>
#include <iterator>

namespace kelvane::simulators {

namespace {

// The characters of the bytes 80 to 9F; all others are those of Latin-1.
constexpr std::array<char16_t, 32> upperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char byteOf(char32_t character) {
    const auto* const place = std::find(upperControls.begin(), upperControls.end(), character);
    if (place != upperControls.end())
        return static_cast<char>(0x80 + std::distance(upperControls.begin(), place));
    const bool latin1 = character < 0x80 || (character >= 0xA0 && character <= 0xFF);
    return latin1 ? static_cast<char>(character) : '?';
}

} // namespace

QByteArray toBytes(const QString& text) {
    QByteArray bytes;
    for (const char32_t character : text.toUcs4())
        bytes += byteOf(character);
    return bytes;
}

QString fromBytes(QByteArrayView bytes) {
    QString text;
    for (const char byte : bytes) {
        const char16_t code = static_cast<unsigned char>(byte);
        text += QChar(code >= 0x80 && code < 0xA0 ? upperControls.at(code - 0x80U) : code);
    }
    return text;
}

} // namespace kelvane::simulators
