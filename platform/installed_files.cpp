#include "platform/installed_files.h"

#include <QCoreApplication>
#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane {

InstalledFiles::InstalledFiles(QString programs) : programs_(std::move(programs)) {}

QString InstalledFiles::programFolder() {
    return QCoreApplication::applicationDirPath();
}

/// Without links in it when it is there, so that it names the place that a user knows.
QString InstalledFiles::beside(const QString& path) const {
    const auto place = QDir::cleanPath(QDir(programs_).filePath(path));
    const auto canonical = QDir(place).canonicalPath();
    return canonical.isEmpty() ? place : canonical;
}

QString InstalledFiles::databaseScripts() const {
    return beside(u"../share/kelvane/database"_s);
}

QString InstalledFiles::layouts() const {
    return beside(u"../share/kelvane/layouts"_s);
}

QString InstalledFiles::documents() const {
    return beside(u"../share/doc/kelvane"_s);
}

QString InstalledFiles::simulatorLibraries() const {
    const auto own = beside(QStringLiteral(KELVANE_LIBRARIES_FROM_PROGRAMS));
    return QDir(own).exists() ? own : QString();
}

} // namespace kelvane
