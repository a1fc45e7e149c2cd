#pragma once

#include <QByteArray>

namespace kelvane::simulators {

inline constexpr char Stx = 0x02;
inline constexpr char Etx = 0x03;
inline constexpr char Eot = 0x04;
inline constexpr char Ack = 0x06;
inline constexpr char Dle = 0x10;
inline constexpr char Nak = 0x15;

/// What the workstation sends to open a link: DLE EOT STX.
QByteArray linkStart();

/// The two check bytes of what stands before them on the line: the ones' complement of the ones' complement
/// sum of its 16-bit words, high byte first. A single last byte counts as the high byte of a word.
QByteArray checkBytes(QByteArrayView onTheLine);

/// A reply as it goes on the line: each DLE doubled, DLE ETX, check bytes.
QByteArray frame(QByteArrayView reply);

/// Four bytes, most significant first, of a number on the line.
QByteArray longBytes(qint32 number);

/// Takes the bytes that follow an answered link start, one at a time, until a message is whole.
class FrameReader {
  public:
    enum class Received {
        More,      ///< the frame goes on
        Message,   ///< `message()` is whole and its check bytes are right
        Refused,   ///< the frame ended, but its check bytes or its doubled DLEs are wrong
        LinkStart, ///< the workstation began again in the middle of the frame
    };

    Received take(char byte);
    void restart();
    const QByteArray& message() const { return message_; }
    /// The frame as it was received.
    QByteArray receivedFrame() const { return checked_ + check_; }

  private:
    enum class Place { Text, AfterDle, AfterDleEot, Check };

    Received takeText(char byte);
    Received takeAfterDle(char byte);
    Received takeAfterDleEot(char byte);
    Received takeCheck(char byte);

    Place place_ = Place::Text;
    bool sound_ = true;
    QByteArray message_;
    QByteArray checked_;
    QByteArray check_;
};

} // namespace kelvane::simulators
