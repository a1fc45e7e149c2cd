#include "simulators/torquestar/terminal.h"

#include "simulators/common/failure.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

volatile std::sig_atomic_t endSignal = 0;

constexpr std::array endSignals = {SIGTERM, SIGINT, SIGHUP};

QString reason() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

void check(bool good, const QString& what) {
    if (!good)
        throw Failure(u"%1: %2"_s.arg(what, reason()));
}

/// Where a link leads; empty when there is none.
QString targetOf(const QString& link) {
    std::array<char, 4096> target{};
    const ssize_t length = ::readlink(QFile::encodeName(link).constData(), target.data(), target.size());
    return length < 0 ? QString() : QFile::decodeName(QByteArray(target.data(), length));
}

} // namespace

// Both ends are kept open here: the workstation closes and opens its end for each exchange, and an end
// without any other would give errors in between. Raw, so that no control character of the protocol means
// anything to it.
Terminal::Terminal(const QString& link) {
    ours_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    check(ours_ >= 0 && ::grantpt(ours_) == 0 && ::unlockpt(ours_) == 0, u"There is no pseudo terminal"_s);
    std::array<char, 256> name{};
    check(::ptsname_r(ours_, name.data(), name.size()) == 0, u"The pseudo terminal has no name"_s);
    device_ = QFile::decodeName(name.data());
    theirs_ = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    check(theirs_ >= 0, u"%1 can't be opened"_s.arg(device_));
    termios settings{};
    check(::tcgetattr(theirs_, &settings) == 0, u"%1 is no terminal"_s.arg(device_));
    ::cfmakeraw(&settings);
    check(::tcsetattr(theirs_, TCSANOW, &settings) == 0, u"%1 can't be made raw"_s.arg(device_));
    link_ = link;
    if (!link_.isEmpty())
        makeLink();
}

Terminal::~Terminal() {
    // A later calibrator may have taken the link over.
    if (!link_.isEmpty() && targetOf(link_) == device_)
        ::unlink(QFile::encodeName(link_).constData());
    ::close(theirs_);
    ::close(ours_);
}

void Terminal::makeLink() {
    struct stat there {};
    const QByteArray path = QFile::encodeName(link_);
    if (::lstat(path.constData(), &there) == 0 && !S_ISLNK(there.st_mode))
        throw Failure(u"%1 is in the way: it is no link"_s.arg(link_));
    const QByteArray draft = path + ".new";
    ::unlink(draft.constData());
    check(::symlink(QFile::encodeName(device_).constData(), draft.constData()) == 0 &&
              std::rename(draft.constData(), path.constData()) == 0,
          u"The link %1 can't be made"_s.arg(link_));
}

void Terminal::wait(std::optional<Moment> until) const {
    timespec left{};
    if (until) {
        const auto span = std::max(*until - std::chrono::steady_clock::now(), Moment::duration::zero());
        const auto seconds = std::chrono::floor<std::chrono::seconds>(span);
        left.tv_sec = seconds.count();
        left.tv_nsec = std::chrono::nanoseconds(span - seconds).count();
    }
    sigset_t none;
    ::sigemptyset(&none);
    pollfd line{ours_, POLLIN, 0};
    ::ppoll(&line, 1, until ? &left : nullptr, &none);
}

QByteArray Terminal::read() const {
    std::array<char, 4096> bytes{};
    const ssize_t length = ::read(ours_, bytes.data(), bytes.size());
    return length > 0 ? QByteArray(bytes.data(), length) : QByteArray();
}

void Terminal::write(const QByteArray& bytes) const {
    [[maybe_unused]] const ssize_t written =
        ::write(ours_, bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void blockEndSignals() {
    sigset_t held;
    ::sigemptyset(&held);
    for (const int number : endSignals) {
        struct sigaction action {};
        action.sa_handler = [](int) { endSignal = 1; };
        ::sigaction(number, &action, nullptr);
        ::sigaddset(&held, number);
    }
    ::sigprocmask(SIG_BLOCK, &held, nullptr);
    // Waits end to the microsecond, or the pace of the line would drift with each byte.
    ::prctl(PR_SET_TIMERSLACK, 1UL);
}

bool isEndRequested() {
    return endSignal != 0;
}

} // namespace kelvane::simulators
