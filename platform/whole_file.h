#pragma once

#include <QByteArray>
#include <QFileDevice>

#include <memory>

namespace kelvane {

/// A file that is written as a whole: what stood there stays until `commit`, and stays for good when anything
/// has failed before, on a full disk as well. What is there and is no file, such as a device or a pipe, is
/// written into as it is.
class WholeFile {
  public:
    explicit WholeFile(const QString& path);
    ~WholeFile();

    /// Each of these gives false when it has failed; `fault` then tells why.
    bool open();
    bool write(const QByteArray& bytes);
    bool commit();

    QString path() const { return file_->fileName(); }
    /// What the system says of the last failure.
    QString fault() const { return file_->errorString(); }
    /// For whoever writes by itself.
    QIODevice& device() { return *file_; }

  private:
    std::unique_ptr<QFileDevice> file_;
};

/// Writes a file as a whole. Gives what the system says of it when that fails, and nothing otherwise.
QString writeWholeFile(const QString& path, const QByteArray& bytes);

} // namespace kelvane
