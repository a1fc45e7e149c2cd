#include "testkit/fixtures.h"

#include <QDir>
#include <QFile>

namespace kelvane::testing {

OwnFolder::OwnFolder() : before_(QDir::currentPath()) {
    QDir::setCurrent(folder_.path());
}

OwnFolder::~OwnFolder() {
    QDir::setCurrent(before_);
}

QString OwnFolder::read(const QString& name) const {
    QFile file(folder_.filePath(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void OwnFolder::write(const QString& name, const QByteArray& content) const {
    QFile file(folder_.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

RecordedSession::RecordedSession()
    : session({ui, clock, settings}, [this] { return std::make_unique<RecordingConnection>(script); }) {
    session.SessionOwner = QStringLiteral("MT");
    session.SessionUser = QStringLiteral("jdoe");
    session.SessionLevel = 3;
    session.SessionDateFormat = QStringLiteral("MM/DD/YYYY");
    session.SessionDbVersion = 6;
    session.SessionConnected = true;
}

} // namespace kelvane::testing
