#pragma once

#include <QByteArray>
#include <QString>

namespace kelvane {

/// Unicode simple case mapping, character by character, so that positions stay ("ß" has no simple capital).
QString upperCased(QStringView text);
QString lowerCased(QStringView text);

/// Blanks (and only blanks) cut at both ends.
QString trimBlanks(QStringView text);

/// Bytes in Windows-1252 to or from a calibrator: a character that has no byte becomes "?"; an undefined byte
/// keeps its number.
QByteArray toCalibratorBytes(QStringView text);
QString fromCalibratorBytes(QByteArrayView bytes);

/// The character of code `code`: 128 to 255 by Windows-1252, others by code point. Error 5 outside 0 to 255.
QString characterOf(qint32 code);

} // namespace kelvane
