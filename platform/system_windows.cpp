#include "platform/system.h"

#include <QFile>

#include <io.h>
#include <windows.h>

namespace kelvane {

std::optional<FileIdentity> identify(const QByteArray&) {
    return FileIdentity{};
}

bool flushToDisk(QFile& file) {
    return file.flush() && _commit(file.handle()) == 0;
}

void flushFolder(const QString&) {}

namespace {

HANDLE handleOf(const QFile& file) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()));
}

OVERLAPPED placeOf(qint64 offset) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset & 0xffffffff);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return place;
}

} // namespace

ByteLock lockByte(QFile& file, qint64 offset) {
    auto place = placeOf(offset);
    if (LockFileEx(handleOf(file), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place))
        return ByteLock::taken;
    const auto reason = GetLastError();
    return reason == ERROR_LOCK_VIOLATION || reason == ERROR_IO_PENDING ? ByteLock::heldElsewhere
                                                                        : ByteLock::failed;
}

void unlockByte(QFile& file, qint64 offset) {
    auto place = placeOf(offset);
    UnlockFileEx(handleOf(file), 0, 1, 0, &place);
}

bool isLibraryInstalled(const QString& file, const QStringList&) {
    return SearchPathW(nullptr, reinterpret_cast<const wchar_t*>(file.utf16()), nullptr, 0, nullptr,
                       nullptr) != 0;
}

void drainSerialPort(qintptr) {}

QByteArray hashOf(const QByteArray&, const QByteArray&) {
    return {};
}

QByteArray newHashSetting() {
    return {};
}

} // namespace kelvane
