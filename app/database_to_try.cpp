#include "app/database_to_try.h"

#include "platform/file_error.h"
#include "platform/installed_files.h"
#include "platform/whole_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

void provideFile(const QString& from, const QString& folder) {
    const auto to = QDir(folder).filePath(QFileInfo(from).fileName());
    QFile file(from);
    if (QFileInfo::exists(to))
        return;
    if (!file.copy(to))
        throw FileError(ErrorNumber::pathFileAccess, to, file.errorString());
    // What is installed can't be written; the copy is the user's own.
    QFile::setPermissions(to, QFile::permissions(to) | QFile::WriteOwner);
}

} // namespace

QString databaseToTry() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/kelvane/database"_s;
}

QString userDataSources() {
    const auto named = qEnvironmentVariable("ODBCINI");
    return named.isEmpty() ? QDir::home().filePath(u".odbc.ini"_s) : named;
}

void addDataSource(const QString& list, const QByteArray& section) {
    QByteArray content;
    if (QFile present(list); present.exists()) {
        if (!present.open(QIODevice::ReadOnly))
            throw FileError(ErrorNumber::pathFileAccess, list, present.errorString());
        content = present.readAll();
        if (present.error() != QFileDevice::NoError)
            throw FileError(ErrorNumber::pathFileAccess, list, present.errorString());
        if (!content.isEmpty())
            content += content.endsWith('\n') ? "\n" : "\n\n";
    }
    content += section;
    if (const auto fault = writeWholeFile(list, content); !fault.isEmpty())
        throw FileError(ErrorNumber::pathFileAccess, list, fault);
}

void provideWorkFiles(const QString& folder) {
    const InstalledFiles installed;
    provideFile(installed.databaseScripts() + u"/demo/rslt_db.frm"_s, folder);
    provideFile(installed.layouts() + u"/kvwrksht.rpt"_s, folder);
}

} // namespace kelvane
