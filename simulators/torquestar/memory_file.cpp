#include "simulators/torquestar/memory_file.h"

#include "simulators/torquestar/failure.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

QString reason() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

/// The lock is a file of its own beside the memory, because each write puts another file in the memory's
/// place.
class Hold {
  public:
    explicit Hold(const QString& path)
        : m_file(::open(QFile::encodeName(path), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
        if (m_file < 0)
            throw Failure(u"%1 can't be opened: %2"_s.arg(path, reason()));
        int taken = 0;
        do
            taken = ::flock(m_file, LOCK_EX);
        while (taken != 0 && errno == EINTR);
        if (taken != 0) {
            const QString why = reason();
            ::close(m_file);
            throw Failure(u"%1 can't be locked: %2"_s.arg(path, why));
        }
    }
    ~Hold() { ::close(m_file); }
    Q_DISABLE_COPY_MOVE(Hold)

  private:
    int m_file;
};

} // namespace

MemoryFile::MemoryFile(QString path) : m_path(std::move(path)) {}

void MemoryFile::use(const std::function<bool(Memory&)>& work) {
    const Hold hold(m_path + u".lock"_s);
    readWhenChanged();
    if (work(m_memory))
        write();
}

MemoryFile::Version MemoryFile::version() const {
    struct stat state {};
    if (::stat(QFile::encodeName(m_path), &state) != 0)
        return {};
    return {state.st_dev, state.st_ino, state.st_size, state.st_mtim.tv_sec, state.st_mtim.tv_nsec};
}

void MemoryFile::readWhenChanged() {
    const Version now = version();
    if (m_everRead && now == m_read)
        return;
    QFile file(m_path);
    if (!file.exists()) {
        m_memory = {};
    } else {
        if (!file.open(QIODevice::ReadOnly))
            throw Failure(u"The memory %1 can't be read: %2"_s.arg(m_path, file.errorString()));
        try {
            m_memory = memoryFrom(file.readAll());
        } catch (const Failure& failure) {
            throw Failure(
                u"%1 is not a calibrator's memory, or is damaged: %2"_s.arg(m_path, failure.text()));
        }
    }
    m_read = now;
    m_everRead = true;
}

void MemoryFile::write() {
    const QString draft = m_path + u".new"_s;
    QFile file(draft);
    const QByteArray text = textOf(m_memory);
    const bool written =
        file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(text) == text.size();
    file.close();
    if (!written || file.error() != QFileDevice::NoError) {
        const QString why = file.errorString();
        file.remove();
        throw Failure(u"The memory %1 can't be written: %2"_s.arg(m_path, why));
    }
    if (std::rename(QFile::encodeName(draft).constData(), QFile::encodeName(m_path).constData()) != 0) {
        const QString why = reason();
        file.remove();
        throw Failure(u"The memory %1 can't be replaced: %2"_s.arg(m_path, why));
    }
    m_read = version();
}

} // namespace kelvane::simulators
