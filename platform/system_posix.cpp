#include "platform/system.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <memory>

#include <crypt.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace kelvane {

std::optional<FileIdentity> identify(const QByteArray& path) {
    struct stat found {};
    if (::stat(path.constData(), &found) != 0)
        return {};
    return FileIdentity{found.st_dev, found.st_ino};
}

bool flushToDisk(QFile& file) {
    return file.flush() && ::fsync(file.handle()) == 0;
}

void flushFolder(const QString& path) {
    const int folder = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}

namespace {

/// Locks of the open file, not of the process: two connections of one process keep each other out, too.
bool setByteLock(QFile& file, qint64 offset, short type) {
    struct flock range {};
    range.l_type = type;
    range.l_whence = SEEK_SET;
    range.l_start = offset;
    range.l_len = 1;
    return ::fcntl(file.handle(), F_OFD_SETLK, &range) == 0;
}

} // namespace

ByteLock lockByte(QFile& file, qint64 offset) {
    if (setByteLock(file, offset, F_WRLCK))
        return ByteLock::taken;
    return errno == EAGAIN || errno == EACCES ? ByteLock::heldElsewhere : ByteLock::failed;
}

void unlockByte(QFile& file, qint64 offset) {
    setByteLock(file, offset, F_UNLCK);
}

bool isLibraryInstalled(const QString& file, const QStringList& folders) {
    const auto isIn = [&](const QString& folder) { return QFileInfo::exists(folder + u'/' + file); };
    if (std::ranges::any_of(folders, isIn))
        return true;
    const auto name = QFile::encodeName(file);
    if (void* library = ::dlopen(name.constData(), RTLD_LAZY)) {
        ::dlclose(library);
        return true;
    }
    // The reason names what was asked for when nothing was found. Otherwise it names the path that was found
    // or another library that this one needs, or tells of a library for another kind of processor.
    const QByteArrayView reason = ::dlerror();
    return !reason.startsWith(name + ": ") || !reason.endsWith(::strerror(ENOENT));
}

void drainSerialPort(qintptr handle) {
    ::tcdrain(static_cast<int>(handle));
}

QByteArray hashOf(const QByteArray& phrase, const QByteArray& setting) {
    auto work = std::make_unique<crypt_data>(); // 32 KB, too large for comfort on the stack
    const QByteArray hash = crypt_r(phrase.constData(), setting.constData(), work.get());
    // A failure returns a text that begins with "*", which no hash does.
    return hash.startsWith('*') ? QByteArray() : hash;
}

QByteArray newHashSetting() {
    std::array<char, CRYPT_GENSALT_OUTPUT_SIZE> setting{};
    // Without random bytes of ours the library takes the system's.
    const char* made = crypt_gensalt_rn("$y$", 0, nullptr, 0, setting.data(), setting.size());
    return made == nullptr ? QByteArray() : QByteArray(made);
}

} // namespace kelvane
