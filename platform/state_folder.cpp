#include "platform/state_folder.h"

#ifdef Q_OS_WIN
#include <QStandardPaths>
#else
#include <QDir>
#endif

using namespace Qt::StringLiterals;

namespace kelvane {

QString stateFolder(const QString& program) {
#ifdef Q_OS_WIN
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u'/' + program;
#else
    const auto state = qEnvironmentVariable("XDG_STATE_HOME");
    // A relative path does not count.
    return (QDir::isAbsolutePath(state) ? state : QDir::homePath() + u"/.local/state"_s) + u'/' + program;
#endif
}

} // namespace kelvane
