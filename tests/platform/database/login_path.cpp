// login_path FOLDER: logs in to a copy of the database in FOLDER, as whom it knows and as whom it does not,
// and reads a row. It is built without sanitizers and run under valgrind, which sees what the driver manager
// and the driver do with their buffers.

#include "platform/database/odbc_connection.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// The row that such a login reads; empty when it is refused.
QString logIn(const QString& source, const QString& user, const QString& password) {
    const auto connection = kelvane::odbcConnections()();
    try {
        connection->open(source, user, password);
        const auto rows = connection->select(u"select i4240 from mt.userlist where mtuser = 'jdoe'"_s);
        return rows->next() ? rows->value(0).value_or(QString()) : QString();
    } catch (const kelvane::Error& error) {
        std::printf("%s\n", qPrintable(error.description));
        return {};
    }
}

} // namespace

int main(int argc, char** argv) {
    const QDir from(QString::fromLocal8Bit(argc > 1 ? argv[1] : "."));
    const QTemporaryDir folder;
    for (const auto& name : from.entryList({u"*.db"_s}, QDir::Files))
        QFile::copy(from.filePath(name), folder.filePath(name));
    const QString source = u"Driver=SQLite3;NoCreat=1;Database="_s + folder.filePath(u"kelvane.db"_s);
    const bool right = !logIn(source, u"jdoe"_s, u"kelvane"_s).isEmpty();
    const bool wrong = !logIn(source, u"jdoe"_s, u"wrong"_s).isEmpty();
    const bool unknown = !logIn(source, u"nobody;"_s, u"kelvane"_s).isEmpty();
    return right && !wrong && !unknown ? 0 : 1;
}
