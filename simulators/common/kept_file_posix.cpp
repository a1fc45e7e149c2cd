#include "simulators/common/kept_file.h"

#include "simulators/common/failure.h"

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
        : file_(::open(QFile::encodeName(path), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
        if (file_ < 0)
            throw Failure(u"%1 can't be opened: %2"_s.arg(path, reason()));
        int taken = 0;
        do
            taken = ::flock(file_, LOCK_EX);
        while (taken != 0 && errno == EINTR);
        if (taken != 0) {
            const QString why = reason();
            ::close(file_);
            throw Failure(u"%1 can't be locked: %2"_s.arg(path, why));
        }
    }
    ~Hold() { ::close(file_); }
    Q_DISABLE_COPY_MOVE(Hold)

  private:
    int file_;
};

} // namespace

KeptFile::KeptFile(QString path) : path_(std::move(path)) {}

void KeptFile::hold(const std::function<void()>& work) const {
    const Hold held(path_ + u".lock"_s);
    work();
}

KeptFile::Version KeptFile::version() const {
    struct stat state {};
    if (::stat(QFile::encodeName(path_), &state) != 0)
        return {};
    return {state.st_dev, state.st_ino, state.st_size, state.st_mtim.tv_sec, state.st_mtim.tv_nsec};
}

bool KeptFile::hasChanged() const {
    return known_ != version();
}

std::optional<QByteArray> KeptFile::read() {
    known_.reset();
    const Version now = version();
    QFile file(path_);
    std::optional<QByteArray> content;
    if (file.exists()) {
        if (!file.open(QIODevice::ReadOnly))
            throw Failure(u"The memory %1 can't be read: %2"_s.arg(path_, file.errorString()));
        content = file.readAll();
    }
    known_ = now;
    return content;
}

void KeptFile::replace(const QByteArray& content) {
    const QString draft = path_ + u".new"_s;
    QFile file(draft);
    const bool written =
        file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(content) == content.size();
    file.close();
    if (!written || file.error() != QFileDevice::NoError) {
        const QString why = file.errorString();
        file.remove();
        throw Failure(u"The memory %1 can't be written: %2"_s.arg(path_, why));
    }
    if (std::rename(QFile::encodeName(draft).constData(), QFile::encodeName(path_).constData()) != 0) {
        const QString why = reason();
        file.remove();
        throw Failure(u"The memory %1 can't be replaced: %2"_s.arg(path_, why));
    }
    known_ = version();
}

} // namespace kelvane::simulators
