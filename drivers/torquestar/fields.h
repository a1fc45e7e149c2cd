#pragma once

#include "drivers/torquestar/driver.h"

namespace kelvane::ModuleTSInterface {

// The encodings of message fields, big-endian. A value that does not fit its width is reported and gives an
// empty field.

/// Kind 2: integer 16 in 2 bytes; kind 3: integer 32 in 4 bytes; kind 4: scaled real, the value times 10000
/// in 4 bytes, multiplied in the width of the argument and rounded half to even. Any other kind gives an
/// empty text.
QByteArray Conv2Hex(Session& session, double value, int kind);
QByteArray Conv2Hex(Session& session, float value, int kind);
QByteArray Conv2Hex(Session& session, qint32 value, int kind);

/// Decoders of four bytes. Each byte gives its hexadecimal digits, two for 0 to 9 and 16 to 255 but one
/// letter for 10 to 15: that loss of a digit is how fields are read.
qint32 Conv2Real(Session& session, const QByteArray& field);
double Conv2Double(Session& session, const QByteArray& field);
/// "yyyy-mm-dd".
QString Conv2Date(Session& session, const QByteArray& field);
/// "HH:NN:SS".
QString Conv2Time(Session& session, const QByteArray& field);

} // namespace kelvane::ModuleTSInterface
