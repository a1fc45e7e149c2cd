#include "app/user_folder.h"

#include "platform/state_folder.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

QString enterFolder(const QString& folder) {
    if (!QDir(folder).exists()) {
        if (!QDir().mkpath(folder))
            return u"the folder %1 can't be made"_s.arg(folder);
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    return QDir::setCurrent(folder) ? QString() : u"the folder %1 can't be entered"_s.arg(folder);
}

} // namespace

QString userFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/kelvane"_s;
}

QString enterUserFolder() {
    return enterFolder(userFolder());
}

QString enterRecordsFolder() {
    return enterFolder(stateFolder(u"kelvane-records"_s));
}

} // namespace kelvane
