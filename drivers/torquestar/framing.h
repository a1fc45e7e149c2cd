#pragma once

#include <QByteArray>

namespace kelvane::ModuleTSInterface {

/// The frame of a body: DLE doubled, DLE ETX, checksum.
QByteArray PreProcessMessage(const QByteArray& body);
/// The two checksum bytes of outgoing data.
QByteArray TXChecksum(const QByteArray& data);
/// The check value of a received frame, checksum included: two zero bytes when it is good.
QByteArray CheckSum16(const QByteArray& frame);

} // namespace kelvane::ModuleTSInterface
