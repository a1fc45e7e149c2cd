#include "data/journal/journal_file.h"

#include "platform/error.h"
#include "platform/system.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner;
/// How long another process is waited for, in milliseconds.
constexpr int lockWait = 5000;

Error failure(const QString& path, const QString& reason) {
    auto error = makeError(ErrorNumber::pathFileAccess);
    error.description += u": \""_s + path + u"\" ("_s + reason + u')';
    return error;
}

/// The right to write, for the time of a block.
class Lock {
  public:
    explicit Lock(const QString& path) : file_(path + u".lock"_s) {
        if (!file_.tryLock(lockWait))
            throw failure(path, file_.error() == QLockFile::LockFailedError
                                    ? u"another process is writing to it"_s
                                    : u"the folder can't be written to"_s);
    }

  private:
    QLockFile file_;
};

void openForWriting(QFile& file, QFile::OpenMode mode) {
    if (!file.open(mode, ownerOnly))
        throw failure(file.fileName(), file.errorString());
}

bool endsInMidLine(QFile& file) {
    char last = '\n';
    return file.size() > 0 && file.seek(file.size() - 1) && file.getChar(&last) && last != '\n';
}

bool writeWhole(QFile& file, const QByteArray& bytes) {
    return file.write(bytes) == bytes.size() && flushToDisk(file);
}

QList<QByteArray> readLines(const QString& path) {
    QFile file(path);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        throw failure(path, file.errorString());
    auto lines = file.readAll().split('\n');
    if (lines.constLast().isEmpty())
        lines.removeLast();
    return lines;
}

} // namespace

void JournalFile::append(const QByteArray& line) const {
    const Lock lock(path_);
    QFile file(path_);
    const bool isNew = !file.exists();
    openForWriting(file, QIODevice::ReadWrite | QIODevice::Unbuffered);
    const auto before = file.size();
    const QByteArray bytes = (endsInMidLine(file) ? "\n" : "") + line + '\n';
    if (!file.seek(before) || !writeWhole(file, bytes)) {
        const auto reason = file.errorString();
        file.resize(before);
        throw failure(path_, reason);
    }
    if (isNew)
        flushFolder(QFileInfo(path_).absolutePath());
}

QList<QByteArray> JournalFile::lines() const {
    return readLines(path_);
}

void JournalFile::rewriteAbove(qint64 size,
                               const std::function<QList<QByteArray>(const QList<QByteArray>&)>& kept) const {
    if (QFileInfo(path_).size() <= size)
        return;
    const Lock lock(path_);
    const auto before = readLines(path_);
    const auto after = kept(before);
    if (after == before)
        return;
    QFile fresh(path_ + u".new"_s);
    openForWriting(fresh, QIODevice::WriteOnly | QIODevice::Truncate);
    if (!fresh.setPermissions(ownerOnly) || !writeWhole(fresh, after.join('\n') + '\n'))
        throw failure(fresh.fileName(), fresh.errorString());
    fresh.close();
    std::error_code error;
    std::filesystem::rename(fresh.filesystemFileName(), QFile(path_).filesystemFileName(), error);
    if (error)
        throw failure(path_, QString::fromStdString(error.message()));
    flushFolder(QFileInfo(path_).absolutePath());
}

} // namespace kelvane
