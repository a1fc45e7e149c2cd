#include "platform/whole_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace kelvane {

namespace {

std::unique_ptr<QFileDevice> fileAt(const QString& path) {
    if (const QFileInfo present(path); present.exists() && !present.isFile() && !present.isDir())
        return std::make_unique<QFile>(path);
    return std::make_unique<QSaveFile>(path);
}

} // namespace

WholeFile::WholeFile(const QString& path) : file_(fileAt(path)) {}

WholeFile::~WholeFile() = default;

bool WholeFile::open() {
    return file_->open(QIODevice::WriteOnly);
}

bool WholeFile::write(const QByteArray& bytes) {
    return file_->write(bytes) == bytes.size();
}

bool WholeFile::commit() {
    // The toolkit's own commit does not see that the disk has refused the last of what was buffered.
    if (!file_->flush())
        return false;
    auto* replacing = qobject_cast<QSaveFile*>(file_.get());
    if (replacing != nullptr)
        return replacing->commit();
    file_->close();
    return file_->error() == QFileDevice::NoError;
}

QString writeWholeFile(const QString& path, const QByteArray& bytes) {
    WholeFile file(path);
    return file.open() && file.write(bytes) && file.commit() ? QString() : file.fault();
}

} // namespace kelvane
