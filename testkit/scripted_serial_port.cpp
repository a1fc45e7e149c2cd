#include "testkit/scripted_serial_port.h"

#include "platform/error.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kelvane::testing {

namespace {

constexpr int endless = 100000;

} // namespace

void ScriptedSerialPort::setPortOpen(bool open) {
    log << (open ? QStringLiteral("open") : QStringLiteral("close"));
    if (open && refuseOpening)
        throw makeError(ErrorNumber::pathFileAccess);
    EXPECT_NE(open, open_) << "opened or closed twice";
    open_ = open;
    if (open)
        waiting_.clear();
}

void ScriptedSerialPort::setCommPort(int number) {
    log << QStringLiteral("port %1").arg(number);
}

void ScriptedSerialPort::setSettings(const QString& settings) {
    log << QStringLiteral("settings ") + settings;
    if (settings.contains(QStringLiteral(",,")))
        throw makeError(ErrorNumber::invalidArgument);
}

int ScriptedSerialPort::inBufferCount() {
    poll();
    return static_cast<int>(waiting_.size());
}

QByteArray ScriptedSerialPort::input() {
    if (waiting_.isEmpty())
        poll();
    if (loseAtReading > 0 && --loseAtReading >= 0)
        waiting_.clear();
    return std::exchange(waiting_, {});
}

void ScriptedSerialPort::output(const QByteArray& bytes) {
    EXPECT_TRUE(open_) << "sent to a closed port";
    log << QString::fromLatin1(bytes.toHex(' '));
    sent << bytes;
    if (failSending)
        throw Error{31, QStringLiteral("A device is not functioning.")};
    if (answer && !vanished_)
        coming_ << answer(bytes);
}

void ScriptedSerialPort::poll() {
    if (++polls > endless)
        throw std::runtime_error("the port is looked at endlessly");
    if (vanished_ || !open_)
        return;
    waiting_ += coming_.isEmpty() ? noise : coming_.takeFirst();
}

ScriptedSerialPort::Chunks byteByByte(const QByteArray& bytes) {
    ScriptedSerialPort::Chunks chunks;
    for (const char byte : bytes)
        chunks << QByteArray(1, byte);
    return chunks;
}

ScriptedSerialPort::Chunks afterPolls(int polls, const QByteArray& bytes) {
    return ScriptedSerialPort::Chunks(polls) << bytes;
}

} // namespace kelvane::testing
