#include "platform/database/embedded_files.h"

#include <QFile>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace kelvane {

namespace {

#ifdef Q_OS_UNIX
/// Device and number of a file: together they are it, whatever it is called. False when there is none.
bool identify(const QByteArray& path, quint64& device, quint64& number) {
    struct stat found {};
    if (::stat(path.constData(), &found) != 0)
        return false;
    device = found.st_dev;
    number = found.st_ino;
    return true;
}
#else
/// Here a file that is open can't be removed.
bool identify(const QByteArray&, quint64&, quint64&) {
    return true;
}
#endif

} // namespace

void DatabaseFiles::add(const QString& path) {
    File file{path, QFile::encodeName(path)};
    identify(file.native, file.device, file.number);
    files_ << file;
}

QString DatabaseFiles::firstMissing() const {
    for (const auto& file : files_) {
        quint64 device = 0;
        quint64 number = 0;
        if (!identify(file.native, device, number) || device != file.device || number != file.number)
            return file.path;
    }
    return {};
}

} // namespace kelvane
