#pragma once

#include <QByteArray>
#include <QString>

namespace kelvane {

/// The serial port object: the six operations that the line protocol needs. A closed port whose line can't be
/// opened throws `Error` with the reason; so does an invalid line setting (error 5).
class SerialPort {
  public:
    virtual ~SerialPort() = default;
    virtual bool portOpen() const = 0;
    /// Opens or closes the port. What waits in the line's buffer when it opens is discarded.
    virtual void setPortOpen(bool open) = 0;
    /// 1 to 4 for COM1 to COM4.
    virtual void setCommPort(int number) = 0;
    /// Such as "9600,N,8,1".
    virtual void setSettings(const QString& settings) = 0;
    /// Bytes waiting. A real port may first wait a moment for the line when nothing new has come since the
    /// last poll, so that polling does not use up a core.
    virtual int inBufferCount() = 0;
    /// All bytes waiting; the buffer is then empty. It may wait like `inBufferCount`.
    virtual QByteArray input() = 0;
    virtual void output(const QByteArray& bytes) = 0;
};

} // namespace kelvane
