#include "tests/simulators/peer.h"

#include <QElapsedTimer>

#include <array>
#include <stdexcept>
#include <string>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace kelvane::simulators {

namespace {

constexpr int patience = 5000; // milliseconds

QByteArray checkOf(QByteArray bytes) {
    if (bytes.size() % 2 != 0)
        bytes += '\0';
    int sum = 0;
    for (qsizetype place = 0; place < bytes.size(); place += 2)
        sum += static_cast<unsigned char>(bytes[place]) * 256 + static_cast<unsigned char>(bytes[place + 1]);
    while (sum > 0xFFFF)
        sum = sum / 0x10000 + sum % 0x10000;
    const int check = 0xFFFF - sum;
    return QByteArray(1, static_cast<char>(check / 256)) + static_cast<char>(check % 256);
}

/// Where DLE ETX stands; -1 while it has not come.
qsizetype frameEnd(const QByteArray& bytes) {
    for (qsizetype place = 0; place + 1 < bytes.size(); ++place) {
        if (bytes[place] != 0x10)
            continue;
        if (bytes[place + 1] == 0x03)
            return place;
        ++place;
    }
    return -1;
}

} // namespace

Peer::Peer(const QString& device, char acknowledge)
    : device_(device.toLocal8Bit()), acknowledge_(acknowledge) {
    open();
}

Peer::~Peer() {
    close();
}

void Peer::open() {
    line_ = ::open(device_.constData(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (line_ < 0)
        throw std::runtime_error("the line can't be opened: " + device_.toStdString());
}

void Peer::close() {
    if (line_ >= 0)
        ::close(line_);
    line_ = -1;
}

void Peer::send(const QByteArray& bytes) {
    if (::write(line_, bytes.constData(), static_cast<std::size_t>(bytes.size())) != bytes.size())
        throw std::runtime_error("the line takes no bytes");
}

QByteArray Peer::receive(int count) {
    QByteArray bytes;
    QElapsedTimer timer;
    timer.start();
    while (bytes.size() < count && timer.elapsed() < patience) {
        pollfd line{line_, POLLIN, 0};
        if (::poll(&line, 1, patience - static_cast<int>(timer.elapsed())) <= 0)
            break;
        std::array<char, 4096> some{};
        const auto wanted =
            std::min<std::size_t>(static_cast<std::size_t>(count - bytes.size()), some.size());
        const ssize_t length = ::read(line_, some.data(), wanted);
        if (length <= 0)
            break;
        bytes.append(some.data(), length);
    }
    return bytes;
}

void Peer::expect(const QByteArray& received, const QByteArray& wanted, const char* what) {
    if (received != wanted)
        throw std::runtime_error(std::string(what) + ": heard \"" + received.toHex().toStdString() + '"');
}

void Peer::startLink() {
    send(QByteArray::fromHex("100402"));
    expect(receive(1), QByteArray(1, acknowledge_), "link start");
}

void Peer::sendMessage(const QByteArray& message) {
    send(frame(message));
}

void Peer::receiveAnnouncement() {
    expect(receive(2), QByteArray(1, acknowledge_) + '\x02', "acknowledge and announcement");
}

void Peer::acknowledge() {
    send(QByteArray(1, acknowledge_));
}

QByteArray Peer::receiveFrame() {
    QByteArray bytes;
    while (frameEnd(bytes) < 0 || bytes.size() < frameEnd(bytes) + 4) {
        const QByteArray byte = receive(1);
        if (byte.isEmpty())
            throw std::runtime_error("the frame did not end: " + bytes.toHex().toStdString());
        bytes += byte;
    }
    return bytes;
}

QByteArray Peer::exchange(const QByteArray& message) {
    close();
    open();
    startLink();
    sendMessage(message);
    receiveAnnouncement();
    acknowledge();
    const QByteArray reply = receiveFrame();
    expect(reply.last(2), checkOf(reply.chopped(2)), "check bytes");
    acknowledge();
    return reply.chopped(4).replace(QByteArray::fromHex("1010"), QByteArray::fromHex("10"));
}

QByteArray Peer::frame(const QByteArray& message) {
    const QByteArray checked =
        QByteArray(message).replace(QByteArray::fromHex("10"), QByteArray::fromHex("1010")) +
        QByteArray::fromHex("1003");
    return checked + checkOf(checked);
}

} // namespace kelvane::simulators
