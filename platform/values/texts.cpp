#include "platform/values/texts.h"

#include "platform/error.h"

#include <QList>

#include <algorithm>
#include <array>

namespace kelvane {

namespace {

/// The characters of the bytes 128 to 159; an undefined byte keeps its number.
constexpr std::array<char16_t, 32> windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
constexpr int firstOwn = 128;
constexpr int lastOwn = 159;

QChar characterOfByte(int byte) {
    return byte < firstOwn || byte > lastOwn ? QChar(static_cast<char16_t>(byte))
                                             : QChar(windows1252[std::size_t(byte - firstOwn)]);
}

/// How many units the character at `at` takes. Half of a pair is one by itself.
qsizetype unitsAt(QStringView text, qsizetype at) {
    const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
    return isPair ? 2 : 1;
}

char byteOf(char16_t character) {
    if (character < firstOwn || (character > lastOwn && character <= 255))
        return static_cast<char>(character);
    const auto found = std::find(windows1252.cbegin(), windows1252.cend(), character);
    return found == windows1252.cend() ? '?' : static_cast<char>(firstOwn + (found - windows1252.cbegin()));
}

// Qt leaves a character alone whose full mapping has several characters, even where it has a simple one too:
// the Greek letters with iota below, and the dotted capital I.
char32_t simpleUpper(char32_t character) {
    const bool inRows = character >= 0x1F80 && character <= 0x1FAF && character % 16 < 8;
    if (inRows)
        return character + 8;
    const bool alone = character == 0x1FB3 || character == 0x1FC3 || character == 0x1FF3;
    return alone ? character + 9 : QChar::toUpper(character);
}

char32_t simpleLower(char32_t character) {
    return character == 0x0130 ? U'i' : QChar::toLower(character);
}

template <class Mapping>
QString mapCharacters(QStringView text, Mapping mapping) {
    QString result;
    result.reserve(text.size());
    for (const char32_t character : text.toUcs4())
        result += QChar::fromUcs4(mapping(character));
    return result;
}

} // namespace

QString toUpperCase(QStringView text) {
    return mapCharacters(text, [](char32_t character) { return simpleUpper(character); });
}

QString toLowerCase(QStringView text) {
    return mapCharacters(text, [](char32_t character) { return simpleLower(character); });
}

QString trimBlanks(QStringView text) {
    while (text.startsWith(u' '))
        text = text.mid(1);
    return withoutBlanksAtEnd(text);
}

QString withoutBlanksAtEnd(QStringView text) {
    while (text.endsWith(u' '))
        text.chop(1);
    return text.toString();
}

QByteArray toCalibratorBytes(QStringView text) {
    QByteArray bytes(text.size(), Qt::Uninitialized);
    auto* end = bytes.data();
    QChar before;
    for (const auto unit : text) {
        // Two surrogates are one character, which has no byte.
        if (!(before.isHighSurrogate() && unit.isLowSurrogate()))
            *end++ = byteOf(unit.unicode());
        before = unit;
    }
    bytes.truncate(end - bytes.data());
    return bytes;
}

QString fromCalibratorBytes(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char byte) { return characterOfByte(static_cast<unsigned char>(byte)); });
    return text;
}

QString characterOf(qint32 code) {
    constexpr qint32 lastByte = 255;
    constexpr qint32 lastCodePoint = 0x10FFFF;
    if (code < 0 || code > lastCodePoint || (code <= 0xFFFF && QChar(code).isSurrogate()))
        throw makeError(ErrorNumber::invalidArgument);
    if (code <= lastByte)
        return characterOfByte(code);
    const auto character = static_cast<char32_t>(code);
    return QString::fromUcs4(&character, 1);
}

qsizetype characterCount(QStringView text) {
    auto count = text.size();
    for (qsizetype at = 1; at < text.size(); ++at)
        count -= text[at - 1].isHighSurrogate() && text[at].isLowSurrogate();
    return count;
}

qsizetype unitsOfCharacters(QStringView text, qsizetype count) {
    qsizetype at = 0;
    while (count-- > 0 && at < text.size())
        at += unitsAt(text, at);
    return at;
}

} // namespace kelvane
