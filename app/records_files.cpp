#include "app/records_files.h"

#include "app/user_folder.h"
#include "data/start_up.h"
#include "platform/installed_files.h"

#include <QDir>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace kelvane {

void readNearestTemplate(Session& session, const QStringList& folders) {
    const auto back = qScopeGuard([here = QDir::currentPath()] { QDir::setCurrent(here); });
    for (const auto& folder : folders) {
        if (QDir::setCurrent(folder) && ModuleGlobals::readResultTemplate(session))
            return;
    }
}

QString certificateLayout() {
    const auto name = u"/certificate.rpt"_s;
    const auto own = userFolder() + name;
    return QFile::exists(own) ? own : InstalledFiles().layouts() + name;
}

} // namespace kelvane
