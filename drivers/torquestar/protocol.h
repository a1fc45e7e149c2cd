#pragma once

#include "drivers/torquestar/driver.h"

namespace kelvane::ModuleTSInterface {

/// One complete exchange on the line. Returns the reply body without stuffing, or an empty one on failure:
/// only `TSError` distinguishes the two. The port stays open after a good exchange.
QByteArray ProcessMessageProtocol(TorqueStar& driver, const QByteArray& body);

/// The number of the port that an exchange opens, by the stored baud rate and port: the first one without a
/// baud rate, whatever the port is.
int linePort(const QString& baudRate, const QString& port);

} // namespace kelvane::ModuleTSInterface
