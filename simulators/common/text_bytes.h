#pragma once

#include <QByteArray>
#include <QString>

namespace kelvane::simulators {

/// Texts lie in the calibrator as bytes in Windows-1252. A character that has none becomes "?"; a byte
/// without a character keeps its number, so that bytes survive the way to text and back.
QByteArray toBytes(const QString& text);
QString fromBytes(QByteArrayView bytes);

} // namespace kelvane::simulators
