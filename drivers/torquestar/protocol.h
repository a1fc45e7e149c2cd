#pragma once

#include "drivers/torquestar/driver.h"

namespace kelvane::ModuleTSInterface {

/// One complete exchange on the line. Returns the reply body without stuffing, or an empty one on failure:
/// only `TSError` distinguishes the two. The port stays open after a good exchange.
QByteArray ProcessMessageProtocol(TorqueStar& driver, const QByteArray& body);

} // namespace kelvane::ModuleTSInterface
