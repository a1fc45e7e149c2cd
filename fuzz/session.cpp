#include "fuzz/session.h"

#include "fuzz/input.h"

#include <QFile>

namespace kelvane::fuzz {

WorkSession::WorkSession(ConnectionFactory connections)
    : session({ui, clock, settings}, std::move(connections)) {
    QFile::remove(workFolder() + QStringLiteral("/errors.log"));
    session.SessionUser = QStringLiteral("jdoe");
    session.SessionOwner = QStringLiteral("MT");
    session.SessionDateFormat = QStringLiteral("MM/DD/YYYY");
    session.SessionDbVersion = 6;
}

} // namespace kelvane::fuzz
