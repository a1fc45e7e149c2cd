#include "platform/version.h"

namespace kelvane {

QString programVersion() {
    return QStringLiteral(KELVANE_VERSION);
}

} // namespace kelvane
