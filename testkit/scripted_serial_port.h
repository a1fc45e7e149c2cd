#pragma once

#include "drivers/torquestar/serial_port.h"

#include <QList>
#include <QStringList>

#include <functional>

namespace kelvane::testing {

/// A scripted serial port. Controls:
/// - `feed`: chunks that arrive one by one, each with a poll that finds nothing else waiting; an empty chunk
/// is a poll of a silent line;
/// - `answer`: called with all that is sent; the chunks that it gives arrive like fed ones, after what is on
/// its way;
/// - `refuseOpening`: opening throws;
/// - `failSending`: sending throws;
/// - `noise`: arrives again and again when no other bytes are due;
/// - `vanish`: the line is cut: nothing arrives any more and what is sent is lost;
/// - `loseAtReading`: so many readings from now on find nothing, although bytes were counted. `log` lists in
/// order what was done with the port ("port 1", "settings 9600,N,8,1", "open", "close", bytes sent in
/// hexadecimal); `sent` holds the bytes of each sending; `polls` counts the polls. A port that is polled
/// endlessly fails the test.
class ScriptedSerialPort final : public SerialPort {
  public:
    using Chunks = QList<QByteArray>;

    void feed(const Chunks& chunks) { coming_ << chunks; }
    void vanish() { vanished_ = true; }

    std::function<Chunks(const QByteArray&)> answer;
    bool refuseOpening = false;
    bool failSending = false;
    QByteArray noise;
    int loseAtReading = 0;

    QStringList log;
    QList<QByteArray> sent;
    int polls = 0;

    bool portOpen() const override { return open_; }
    void setPortOpen(bool open) override;
    void setCommPort(int number) override;
    void setSettings(const QString& settings) override;
    int inBufferCount() override;
    QByteArray input() override;
    void output(const QByteArray& bytes) override;

  private:
    void poll();

    bool open_ = false;
    bool vanished_ = false;
    Chunks coming_;
    QByteArray waiting_;
};

/// Each byte a chunk of its own.
ScriptedSerialPort::Chunks byteByByte(const QByteArray& bytes);
/// So many polls of a silent line, then the bytes.
ScriptedSerialPort::Chunks afterPolls(int polls, const QByteArray& bytes);

} // namespace kelvane::testing
