#include "platform/terminal.h"

#include <array>

#include <csignal>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace kelvane {

namespace {

constexpr std::array endingSignals{SIGINT, SIGTERM, SIGHUP, SIGQUIT};

termios shownSettings;

extern "C" void restoreAndEnd(int signal) {
    ::tcsetattr(STDIN_FILENO, TCSANOW, &shownSettings);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

/// While it lives, the terminal does not show what is typed.
class HiddenInput {
  public:
    HiddenInput() {
        if (::tcgetattr(STDIN_FILENO, &shownSettings) != 0)
            return;
        for (std::size_t i = 0; i < endingSignals.size(); ++i)
            handlers_[i] = std::signal(endingSignals[i], restoreAndEnd);
        auto hidden = shownSettings;
        hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        hidden.c_lflag |= ECHONL;
        isHidden_ = ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden) == 0;
    }
    ~HiddenInput() {
        if (isHidden_)
            ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &shownSettings);
        for (std::size_t i = 0; i < endingSignals.size(); ++i) {
            if (handlers_[i] != nullptr && handlers_[i] != SIG_ERR)
                std::signal(endingSignals[i], handlers_[i]);
        }
    }
    HiddenInput(const HiddenInput&) = delete;
    HiddenInput& operator=(const HiddenInput&) = delete;

  private:
    bool isHidden_ = false;
    std::array<void (*)(int), endingSignals.size()> handlers_{};
};

/// Reads byte by byte: a buffer of the library would keep a copy, and take what the next line holds.
std::optional<QByteArray> readLine(qsizetype maxBytes) {
    QByteArray line;
    line.reserve(maxBytes + 1); // so that no copy of its beginning stays behind
    char byte = 0;
    while (::read(STDIN_FILENO, &byte, 1) == 1) {
        if (byte == '\n')
            return line;
        if (line.size() <= maxBytes)
            line += byte;
    }
    return line.isEmpty() ? std::nullopt : std::optional(std::move(line));
}

} // namespace

void openStandardStreams() {
    // The lowest free number is the one that is closed.
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        if (::fcntl(stream, F_GETFD) < 0 && ::open("/dev/null", O_RDWR) < 0)
            return;
    }
}

bool isTerminal() {
    return ::isatty(STDIN_FILENO) != 0;
}

std::optional<QByteArray> readSecretLine(const QString& prompt, qsizetype maxBytes) {
    if (!isTerminal())
        return readLine(maxBytes);
    const auto shown = prompt.toUtf8();
    const HiddenInput hidden;
    if (::write(STDERR_FILENO, shown.constData(), static_cast<std::size_t>(shown.size())) < 0)
        return {};
    return readLine(maxBytes);
}

} // namespace kelvane
