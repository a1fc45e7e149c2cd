#include "platform/database/embedded_files.h"

#include <QFile>

namespace kelvane {

void DatabaseFiles::add(const QString& path) {
    const auto native = QFile::encodeName(path);
    files_ << File{path, native, identify(native)};
}

QString DatabaseFiles::firstMissing() const {
    for (const auto& file : files_) {
        const auto present = identify(file.native);
        if (!present || present != file.identity)
            return file.path;
    }
    return {};
}

} // namespace kelvane
