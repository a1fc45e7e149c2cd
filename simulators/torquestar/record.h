#pragma once

#include <QByteArray>
#include <QFile>

namespace kelvane::simulators {

/// The conversation as lines of text: "heard T1C 543143...", "sent t1C 743143", "refused ..." for a frame
/// whose check bytes are wrong. Without a path it keeps nothing.
class Record {
  public:
    /// Throws `Failure` when the file can't be appended to.
    explicit Record(const QString& path);

    void recordReceived(const QByteArray& message) { line("heard", message); }
    void recordSent(const QByteArray& reply) { line("sent", reply); }
    void recordRefused(const QByteArray& frame) { line("refused", frame); }

  private:
    void line(const char* what, const QByteArray& bytes);

    QFile file_;
};

} // namespace kelvane::simulators
