#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>
#include <functional>
#include <thread>

namespace kelvane::testing {

/// A pair of pseudo terminals: the program opens `device`, the test is the far end. Controls: `write` puts
/// bytes on the line (what it doesn't take is lost), `read` takes those that are there, `serve` answers in a
/// thread of its own until the end, `vanish` takes the line away.
class PseudoTerminal {
  public:
    PseudoTerminal();
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    const QString& device() const { return device_; }
    void write(const QByteArray& bytes) const;
    /// So many bytes, or fewer when they don't come within five seconds.
    QByteArray read(qsizetype count) const;
    /// `answer` is called with all that comes and gives what goes back.
    void serve(std::function<QByteArray(const QByteArray&)> answer);
    /// Stops serving.
    void rest();
    void vanish();

  private:
    QByteArray readSome(int milliseconds) const;

    int near_ = -1;
    int far_ = -1;
    QString device_;
    std::atomic<bool> serving_ = false;
    std::thread server_;
};

} // namespace kelvane::testing
