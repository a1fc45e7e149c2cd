#pragma once

#include <QByteArray>

namespace kelvane::ModuleTSInterface {

/// Ends the announcement of a reply; also the mark of a characteristic without data.
inline constexpr char STX = 0x02;
inline constexpr char ETX = 0x03;
inline constexpr char EOT = 0x04;
/// One of the two acknowledge characters.
inline constexpr char ACK = 0x06;
/// The escape, and the other acknowledge character.
inline constexpr char DLE = 0x10;
inline constexpr char NAK = 0x15;

inline const QByteArray linkStart{QByteArrayLiteral("\x10\x04\x02")};
inline const QByteArray frameEnd{QByteArrayLiteral("\x10\x03")};

} // namespace kelvane::ModuleTSInterface
