#include "app/records_files.h"

#include "data/start_up.h"

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

} // namespace kelvane
