#include "platform/system.h"

#include <QFile>

#include <io.h>

namespace kelvane {

std::optional<FileIdentity> identify(const QByteArray&) {
    return FileIdentity{};
}

bool flushToDisk(QFile& file) {
    return file.flush() && _commit(file.handle()) == 0;
}

void flushFolder(const QString&) {}

void drainSerialPort(qintptr) {}

QByteArray hashOf(const QByteArray&, const QByteArray&) {
    return {};
}

QByteArray newHashSetting() {
    return {};
}

} // namespace kelvane
