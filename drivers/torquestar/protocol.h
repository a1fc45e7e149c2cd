#pragma once

#include "drivers/torquestar/driver.h"

namespace kelvane::ModuleTSInterface {

/// One complete exchange on the line. Returns the reply body without stuffing, or an empty one on failure:
/// only `TSError` distinguishes the two. The port stays open after a good exchange.
QByteArray ProcessMessageProtocol(TorqueStar& driver, const QByteArray& body);

/// The frame of a body: DLE doubled, DLE ETX, checksum.
QByteArray PreProcessMessage(const QByteArray& body);
/// The two checksum bytes of outgoing data.
QByteArray TXChecksum(const QByteArray& data);
/// The check value of a received frame, checksum included: two zero bytes when it is good.
QByteArray CheckSum16(const QByteArray& frame);

} // namespace kelvane::ModuleTSInterface
