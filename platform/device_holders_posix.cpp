#include "platform/device_holders.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>
#include <array>
#include <ctime>
#include <optional>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// Where programs put a file "LCK..ttyS0" while they use /dev/ttyS0; it begins with the number of the
/// process.
const QStringList lockFolders{u"/var/lock"_s, u"/etc/locks"_s, u"/var/spool/locks"_s,  u"/var/spool/uucp"_s,
                              u"/tmp"_s,      u"/var/tmp"_s,   u"/var/lock/lockdev"_s, u"/run/lock"_s};

/// The number of a character device, whatever it is called there.
std::optional<dev_t> deviceNumber(const QString& path) {
    struct stat found {};
    if (::stat(QFile::encodeName(path).constData(), &found) != 0 || !S_ISCHR(found.st_mode))
        return {};
    return found.st_rdev;
}

/// Of a plain file alone: in a folder for all users anybody may put a pipe or a device in the place of a lock
/// file, and opening that would wait, or change a line.
QByteArray firstLineOf(const QString& path) {
    const int file = ::open(QFile::encodeName(path).constData(),
                            O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC);
    if (file < 0)
        return {};
    const auto closing = qScopeGuard([file] { ::close(file); });
    struct stat found {};
    std::array<char, 256> bytes{};
    if (::fstat(file, &found) != 0 || !S_ISREG(found.st_mode))
        return {};
    const auto count = ::read(file, bytes.data(), bytes.size());
    return count < 0 ? QByteArray() : QByteArray(bytes.data(), count).split('\n').constFirst().trimmed();
}

QString folderOf(qint64 process) {
    return u"/proc/%1"_s.arg(process);
}

/// The files of a process, each a link to what it is. A process of another user shows none.
class OpenFiles {
  public:
    explicit OpenFiles(const QByteArray& folder) : folder_(::opendir(folder.constData())) {}
    ~OpenFiles() {
        if (folder_)
            ::closedir(folder_);
    }
    OpenFiles(const OpenFiles&) = delete;
    OpenFiles& operator=(const OpenFiles&) = delete;

    /// The name of the next one; null behind the last.
    const char* next() {
        const dirent* entry = folder_ ? ::readdir(folder_) : nullptr;
        return entry ? entry->d_name : nullptr;
    }

  private:
    DIR* folder_;
};

bool isBelowDev(const QByteArray& link) {
    std::array<char, 6> target{};
    return ::readlink(link.constData(), target.data(), target.size()) > 5 &&
           QByteArrayView(target).startsWith("/dev/");
}

bool hasOpen(const QString& process, dev_t device) {
    const auto folder = QFile::encodeName(process + u"/fd/"_s);
    OpenFiles files(folder);
    while (const char* name = files.next()) {
        const auto link = folder + name;
        // Nothing else is looked at: a file on a network that is gone would not answer.
        if (isBelowDev(link) && deviceNumber(QFile::decodeName(link)) == device)
            return true;
    }
    return false;
}

QList<qint64> processesThatOpened(dev_t device) {
    QList<qint64> processes;
    const auto folders = QDir(u"/proc"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const auto& folder : folders) {
        bool isProcess = false;
        const auto process = folder.toLongLong(&isProcess);
        if (isProcess && hasOpen(folderOf(process), device))
            processes << process;
    }
    return processes;
}

QStringList lockFilesOf(const QString& device) {
    QStringList files;
    // Some programs name the lock of /dev/pts/5 "LCK..pts_5", others "LCK..5".
    const auto below = QString(device).remove(u"/dev/"_s).replace(u'/', u'_');
    for (const auto& folder : lockFolders) {
        for (const auto& name : {below, QFileInfo(device).fileName()})
            files << folder + u"/LCK.."_s + name;
    }
    return files;
}

QList<qint64> processesThatLocked(const QString& device) {
    QList<qint64> processes;
    const auto files = lockFilesOf(device);
    for (const auto& file : files) {
        const auto process = firstLineOf(file).toLongLong();
        // A lock outlives a program that was killed.
        if (process > 0 && QFileInfo::exists(folderOf(process)))
            processes << process;
    }
    return processes;
}

bool isUnfinishedLock(const QByteArray& file) {
    struct stat found {};
    return ::lstat(file.constData(), &found) == 0 && S_ISREG(found.st_mode) && found.st_size == 0 &&
           found.st_mtime + 1 < ::time(nullptr);
}

} // namespace

QList<DeviceHolder> otherHoldersOf(const QString& device) {
    const auto path = QFileInfo(device).canonicalFilePath();
    const auto number = deviceNumber(path);
    if (!number)
        return {};
    auto processes = processesThatOpened(*number) + processesThatLocked(path);
    std::sort(processes.begin(), processes.end());
    processes.erase(std::unique(processes.begin(), processes.end()), processes.end());
    QList<DeviceHolder> holders;
    for (const auto process : std::as_const(processes)) {
        if (process != QCoreApplication::applicationPid())
            holders << DeviceHolder{process,
                                    QString::fromLocal8Bit(firstLineOf(folderOf(process) + u"/comm"_s))};
    }
    return holders;
}

void removeUnfinishedLocks(const QString& device) {
    const auto files = lockFilesOf(device);
    for (const auto& name : files) {
        const auto file = QFile::encodeName(name);
        if (isUnfinishedLock(file))
            ::unlink(file.constData());
    }
}

bool mayUse(const QString& device) {
    return ::faccessat(AT_FDCWD, QFile::encodeName(device).constData(), R_OK | W_OK, AT_EACCESS) == 0;
}

} // namespace kelvane
