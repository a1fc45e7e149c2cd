#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>

namespace kelvane {

/// An append-only file of lines, readable by its owner alone. A line is on the disk when `append` returns.
/// Several processes may append: each takes a lock for it.
class JournalFile {
  public:
    explicit JournalFile(QString path) : path_(std::move(path)) {}

    const QString& path() const { return path_; }

    /// Writes a line (without its end) behind all others, and flushes it to the disk. A line that a process
    /// left unfinished is ended first. Error 75 with the file's name and the reason when that failed; the
    /// file is then as before.
    void append(const QByteArray& line) const;

    /// The lines, without their ends; none when there is no file. The text behind the last line end is a line
    /// too; a killed process may have left it incomplete. Error 75 for a file that can't be read.
    QList<QByteArray> lines() const;

    /// Replaces the lines by `kept(lines)`, in one step: at any moment there is either the old file or the
    /// new one. Nothing happens while the file has at most `size` bytes. Error 75 as in `append`.
    void rewriteAbove(qint64 size,
                      const std::function<QList<QByteArray>(const QList<QByteArray>&)>& kept) const;

  private:
    QString path_;
};

} // namespace kelvane
