#include "app/user_folder.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace kelvane {

QString enterUserFolder() {
    const auto folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/kelvane"_s;
    if (!QDir(folder).exists()) {
        if (!QDir().mkpath(folder))
            return u"the folder %1 can't be made"_s.arg(folder);
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    return QDir::setCurrent(folder) ? QString() : u"the folder %1 can't be entered"_s.arg(folder);
}

} // namespace kelvane
