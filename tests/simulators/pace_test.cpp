#include "simulators/torquestar/pace.h"
#include "tests/simulators/message_bytes.h"
#include "tests/simulators/peer.h"
#include "tests/simulators/programs.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace kelvane::simulators {

namespace {

constexpr std::chrono::nanoseconds byteTime(1'041'666); // ten bits at 9600 baud
const Moment start = Moment() + 1h;

/// Lives through everything due by the moment; "<" stands before received bytes, ">" before sent ones.
QByteArray live(VirtualLine& line, Moment until) {
    QByteArray events;
    while (const std::optional<VirtualLine::Event> event = line.take(until))
        events += (event->inbound ? "<" : ">") + event->bytes;
    return events;
}

} // namespace

TEST(VirtualLineTest, AByteIsReceivedAfterItsTenBits) {
    VirtualLine line(9600);
    line.addReceived("abc", start);
    EXPECT_EQ(line.next(), start + byteTime);
    EXPECT_EQ(live(line, start + byteTime - 1ns), "");
    EXPECT_EQ(live(line, start + byteTime), "<a");
    EXPECT_EQ(live(line, start + 3 * byteTime), "<b<c");
    EXPECT_EQ(line.next(), std::nullopt);
}

TEST(VirtualLineTest, BytesPassedLaterQueueBehindThoseOnTheLine) {
    VirtualLine line(9600);
    line.addReceived("ab", start);
    line.addReceived("c", start + byteTime / 2);
    EXPECT_EQ(live(line, start + 3 * byteTime - 1ns), "<a<b");
    EXPECT_EQ(live(line, start + 3 * byteTime), "<c");
}

TEST(VirtualLineTest, AnAnswerStartsAtTheMomentOfItsMessageHoweverLateThatIsRead) {
    VirtualLine line(9600);
    line.addReceived("a", start);
    EXPECT_EQ(live(line, start + 5 * byteTime), "<a");
    line.send("xyz");
    EXPECT_EQ(line.next(), start + 2 * byteTime);
    EXPECT_EQ(live(line, start + 4 * byteTime), ">xyz");
}

TEST(VirtualLineTest, LatenessDoesNotAddUp) {
    VirtualLine line(9600);
    line.addReceived("a", start);
    live(line, start + byteTime);
    line.send(QByteArray(960, 'x'));
    for (int byte = 1; byte <= 960; ++byte)
        EXPECT_EQ(live(line, start + (byte + 1) * byteTime + byteTime / 3), ">x") << byte;
}

TEST(VirtualLineTest, BothDirectionsRunAtOnce) {
    VirtualLine line(9600);
    line.addReceived("a", start);
    live(line, start + byteTime);
    line.send("x");
    line.addReceived("b", start + byteTime);
    EXPECT_EQ(live(line, start + 2 * byteTime), ">x<b");
}

TEST(VirtualLineTest, WithoutPaceEverythingIsDueAtOnce) {
    VirtualLine line(std::nullopt);
    line.addReceived("ab", start);
    EXPECT_EQ(live(line, start), "<a<b");
    line.send("xyz");
    EXPECT_EQ(live(line, start), ">xyz");
}

TEST(VirtualLineTest, ADelayCountsFromTheEventBefore) {
    VirtualLine line(std::nullopt);
    line.addReceived("a", start);
    live(line, start);
    line.send("x", 120ms);
    EXPECT_EQ(live(line, start + 120ms - 1ns), "");
    EXPECT_EQ(live(line, start + 120ms), ">x");
}

TEST(VirtualLineTest, WhatIsDroppedIsNotSent) {
    VirtualLine line(9600);
    line.addReceived("a", start);
    live(line, start + byteTime);
    line.send("xyz");
    EXPECT_EQ(live(line, start + 2 * byteTime), ">x");
    line.drop();
    EXPECT_EQ(live(line, start + 1h), "");
}

TEST(VirtualLineTest, NoiseGoesOnUntilItIsDroppedAndHoldsNoAnswer) {
    VirtualLine line(std::nullopt);
    line.noise();
    QByteArray received;
    for (int step = 0; step < 5000; ++step)
        received += line.take(*line.next())->bytes;
    EXPECT_EQ(received.size(), 5000);
    for (const char answer : {'\x02', '\x06', '\x10'})
        EXPECT_FALSE(received.contains(answer));
    line.drop();
    EXPECT_EQ(line.next(), std::nullopt);
}

TEST(VirtualLineTest, VanishesWhenAllIsSent) {
    VirtualLine line(9600);
    line.send("xy");
    line.vanish();
    EXPECT_FALSE(line.hasVanished());
    live(line, Moment() + 1h);
    EXPECT_TRUE(line.hasVanished());
}

TEST(VirtualLineTest, GivesTheTwoBytesBehindTheOneBeingReceived) {
    VirtualLine line(std::nullopt);
    line.addReceived("abcd", start);
    line.take(start);
    EXPECT_EQ(line.following(), "bc");
}

TEST(Pace, AnExchangeTakesTheTimeOfItsBytesAtEachSpeed) {
    // Link start, acknowledge, message, acknowledge, announcement, acknowledge, reply.
    const double bytes = 3 + 1 + 7 + 2 + 1 + 29;
    const auto secondsAt = [&](const QString& baud) {
        const SimulatorFolder simulatorFolder;
        const Calibrator calibrator(simulatorFolder, {u"--baud"_s, baud});
        Peer peer(calibrator.device());
        QElapsedTimer timer;
        timer.start();
        EXPECT_EQ(peer.exchange("T0D").size(), 25);
        return static_cast<double>(timer.nsecsElapsed()) / 1e9;
    };
    const double slow = secondsAt(u"1200"_s);
    const double quick = secondsAt(u"9600"_s);
    EXPECT_GE(slow, bytes * 10 / 1200 * 0.99);
    EXPECT_GE(quick, bytes * 10 / 9600 * 0.99);
    // Eight times, were it not for what the machine itself adds to both.
    EXPECT_GT(slow / quick, 3);
    EXPECT_LT(slow / quick, 9);
}

} // namespace kelvane::simulators
