#include "platform/database/embedded_locks.h"

#include "platform/error.h"
#include "platform/system.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr int hashBytes = 3;

[[noreturn]] void unusable(const QString& path, const QString& reason) {
    auto error = makeError(ErrorNumber::pathFileAccess);
    error.description = text(TextId::lockFileUnusable).arg(QDir::toNativeSeparators(path), reason);
    throw error;
}

} // namespace

QString EmbeddedLocks::fileBeside(const QString& database) {
    return QFileInfo(database).dir().filePath(u"kelvane.lock"_s);
}

qint64 EmbeddedLocks::byteOf(const QString& name) {
    const auto hash = QCryptographicHash::hash(name.toUtf8(), QCryptographicHash::Sha256);
    qint64 place = 0;
    for (int index = 0; index < hashBytes; ++index)
        place = place * 256 + static_cast<unsigned char>(hash[index]);
    return place;
}

void EmbeddedLocks::open(const QString& database) {
    file_.setFileName(fileBeside(database));
    if (file_.open(QIODevice::ReadWrite | QIODevice::NewOnly)) {
        // Whoever may write the database has to get at its locks.
        file_.setPermissions(QFile::permissions(database));
        return;
    }
    if (!file_.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        unusable(file_.fileName(), file_.errorString());
}

bool EmbeddedLocks::take(const QString& name) {
    const auto place = byteOf(name);
    auto& count = taken_[place];
    if (count == 0) {
        const auto outcome = lockByte(file_, place);
        if (outcome == ByteLock::failed)
            unusable(file_.fileName(), qt_error_string());
        if (outcome == ByteLock::heldElsewhere)
            return false;
    }
    ++count;
    return true;
}

void EmbeddedLocks::release(const QString& name) {
    const auto place = byteOf(name);
    auto& count = taken_[place];
    if (count == 0)
        return;
    if (--count == 0)
        unlockByte(file_, place);
}

} // namespace kelvane
