#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <tuple>

namespace kelvane::simulators {

/// A file that several programs read and write: one at a time, and each time as a whole, in one step.
/// Everything throws `Failure` when the file can't be reached.
class KeptFile {
  public:
    explicit KeptFile(QString path);

    const QString& path() const { return path_; }
    /// Runs `work` under the lock of the file; the others below are for its use.
    void hold(const std::function<void()>& work) const;
    /// Whether the file is another one than it was at the last `read` or `replace`.
    bool hasChanged() const;
    /// What it holds; nothing when there is no file.
    std::optional<QByteArray> read();
    void replace(const QByteArray& content);

  private:
    /// Device, inode, size and moment: what distinguishes one version of the file from another.
    using Version = std::tuple<quint64, quint64, qint64, qint64, qint64>;

    Version version() const;

    QString path_;
    std::optional<Version> known_;
};

} // namespace kelvane::simulators
