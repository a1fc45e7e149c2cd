#include "ui/program_icon.h"

#include <QIcon>

namespace kelvane {

QIcon programIcon() {
    QIcon icon;
    for (const auto* file :
         {":/icons/101-16.png", ":/icons/101-32.png", ":/icons/101-64.png", ":/icons/101-256.png"})
        icon.addFile(QString::fromLatin1(file));
    return icon;
}

} // namespace kelvane
