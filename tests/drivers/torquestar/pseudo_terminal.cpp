#include "tests/drivers/torquestar/pseudo_terminal.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <array>

namespace kelvane::testing {

PseudoTerminal::PseudoTerminal() {
    std::array<char, 256> name{};
    termios plain{};
    cfmakeraw(&plain);
    EXPECT_EQ(openpty(&far_, &near_, name.data(), &plain, nullptr), 0);
    fcntl(far_, F_SETFL, O_NONBLOCK);
    device_ = QString::fromLocal8Bit(name.data());
}

PseudoTerminal::~PseudoTerminal() {
    rest();
    vanish();
    ::close(near_);
}

void PseudoTerminal::write(const QByteArray& bytes) const {
    qsizetype done = 0;
    while (done < bytes.size()) {
        const auto written =
            ::write(far_, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
        if (written <= 0)
            return;
        done += written;
    }
}

QByteArray PseudoTerminal::readSome(int milliseconds) const {
    pollfd look{far_, POLLIN, 0};
    std::array<char, 4096> buffer{};
    if (::poll(&look, 1, milliseconds) <= 0)
        return {};
    const auto count = ::read(far_, buffer.data(), buffer.size());
    return count > 0 ? QByteArray(buffer.data(), count) : QByteArray();
}

QByteArray PseudoTerminal::read(qsizetype count) const {
    QByteArray bytes;
    for (int i = 0; i < 100 && bytes.size() < count; ++i)
        bytes += readSome(50);
    return bytes;
}

void PseudoTerminal::serve(std::function<QByteArray(const QByteArray&)> answer) {
    serving_ = true;
    server_ = std::thread([this, answer = std::move(answer)] {
        while (serving_) {
            if (const auto bytes = readSome(10); !bytes.isEmpty())
                write(answer(bytes));
        }
    });
}

void PseudoTerminal::rest() {
    serving_ = false;
    if (server_.joinable())
        server_.join();
}

void PseudoTerminal::vanish() {
    // The near end stays open: it keeps the device's number from being given to another test meanwhile.
    if (far_ >= 0)
        ::close(far_);
    far_ = -1;
}

} // namespace kelvane::testing
