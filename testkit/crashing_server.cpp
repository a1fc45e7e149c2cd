#include "testkit/crashing_server.h"

#include "testkit/shared_database.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

CrashingServer::CrashingServer() : before_(qgetenv("KELVANE_TEST_SERVER")) {
    runServerScript(QStringLiteral(KELVANE_TEST_SERVER_SCRIPT), {u"start"_s, folder_.filePath(u"server"_s), u"--durable"_s});
    qputenv("KELVANE_TEST_SERVER", QFile::encodeName(folder_.filePath(u"server"_s)));
}

CrashingServer::~CrashingServer() {
    qputenv("KELVANE_TEST_SERVER", before_);
    runServerScript(QStringLiteral(KELVANE_TEST_SERVER_SCRIPT), {u"stop"_s, folder_.filePath(u"server"_s)});
}

} // namespace kelvane::testing
