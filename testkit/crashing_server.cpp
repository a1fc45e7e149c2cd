#include "testkit/crashing_server.h"

#include "testkit/shared_database.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

CrashingServer::CrashingServer() : before_(qgetenv("KELVANE_TEST_SERVER")) {
    // Where its own user reaches the folder, the server's socket stays at its place.
    QFile::setPermissions(folder_.path(), QFile::permissions(folder_.path()) | QFile::ReadGroup |
                                              QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther);
    runServerScript(QStringLiteral(KELVANE_TEST_SERVER_SCRIPT),
                    {u"start"_s, folder_.filePath(u"server"_s), u"--durable"_s});
    qputenv("KELVANE_TEST_SERVER", QFile::encodeName(folder_.filePath(u"server"_s)));
}

CrashingServer::~CrashingServer() {
    qputenv("KELVANE_TEST_SERVER", before_);
    runServerScript(QStringLiteral(KELVANE_TEST_SERVER_SCRIPT), {u"stop"_s, folder_.filePath(u"server"_s)});
}

} // namespace kelvane::testing
