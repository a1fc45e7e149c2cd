#pragma once

#include "testkit/scripted_serial_port.h"

#include <functional>
#include <optional>

namespace kelvane::testing {

/// The bytes of a text such as "10 04 02".
QByteArray hex(const char* digits);

/// The frame of a body as a calibrator sends it: DLE doubled, DLE ETX, the inverted sum of its words.
QByteArray makeFrame(const QByteArray& body);

/// The far end of the line: takes received bytes and returns the answer's. It follows the protocol (link
/// start, frame, acknowledge) and leaves the contents to `reply`.
class LinePeer {
  public:
    /// The reply to a body; nothing: the frame is not even acknowledged.
    std::function<std::optional<QByteArray>(const QByteArray&)> reply;
    /// Makes the bytes of a reply on the line out of its frame: the place for faults.
    std::function<QByteArray(const QByteArray&)> fault;
    /// The bodies that came, in order.
    QList<QByteArray> received;
    char acknowledge = 0x06;

    /// Fed with bytes as they come, in any portions.
    QByteArray take(const QByteArray& bytes);

    /// Answers at a scripted port, each portion with one poll.
    void attachTo(ScriptedSerialPort& port) {
        port.answer = [this](const QByteArray& bytes) -> ScriptedSerialPort::Chunks { return {take(bytes)}; };
    }

  private:
    std::optional<QByteArray> takeOne();
    QByteArray takeFrame(qsizetype end);

    QByteArray received_;
    QByteArray pending_;
};

} // namespace kelvane::testing
