#pragma once

#include <QByteArray>
#include <QString>

namespace kelvane {

/// Unicode simple case mapping, character by character, so that positions stay ("ß" has no simple capital).
QString toUpperCase(QStringView text);
QString toLowerCase(QStringView text);

/// Blanks (and only blanks) cut at both ends.
QString trimBlanks(QStringView text);
/// Blanks cut at the end: those with which a column of a fixed width is filled up.
QString withoutBlanksAtEnd(QStringView text);

/// Bytes in Windows-1252 to or from a calibrator: a character that has no byte becomes "?"; an undefined byte
/// keeps its number.
QByteArray toCalibratorBytes(QStringView text);
QString fromCalibratorBytes(QByteArrayView bytes);

/// The character of code `code`: 128 to 255 by Windows-1252, others by code point. Error 5 for a code that is
/// no character's.
QString characterOf(qint32 code);

/// The number of characters (not of UTF-16 units) of a text.
qsizetype characterCount(QStringView text);
/// How many UTF-16 units the first `count` characters of a text take; all of a shorter text.
qsizetype unitsOfCharacters(QStringView text, qsizetype count);

} // namespace kelvane
