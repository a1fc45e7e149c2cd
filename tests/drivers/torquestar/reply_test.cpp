#include "drivers/torquestar/framing.h"
#include "tests/drivers/torquestar/protocol_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleTSInterface;

TEST_F(TorqueProtocol, AReplyOfFewerThanSevenBytesNeverCompletes) {
    feedAnnouncement();
    port.feed({makeFrame("x").first(5), hex("00")});
    expectFailure(timeout);
    EXPECT_EQ(port.sent.last(), ack) << "no negative acknowledge";

    // Not even when it is complete: a body of two characters.
    feedAnnouncement();
    port.feed({makeFrame("tx")});
    ASSERT_EQ(makeFrame("tx").size(), 6);
    expectFailure(timeout);
}

TEST_F(TorqueProtocol, AReplyComesInAnyPortions) {
    const QByteArray body = QByteArray("t1D") + hex("01 35 29 01 10 10 00 03") + "abc";
    const auto frame = makeFrame(body);
    for (qsizetype cut = 0; cut <= frame.size(); ++cut) {
        feedAnnouncement();
        // Fewer than seven bytes are waited for; a rest is read on and on.
        port.feed({frame.first(cut), {}, frame.sliced(cut)});
        expectReply(body);
    }
    clock.tick = 0; // single bytes, one in each look, with no time passing between
    feedAnnouncement();
    port.feed(byteByByte(frame));
    expectReply(body);
}

TEST_F(TorqueProtocol, ADoubledDleBeforeA03LooksLikeAFrameEndWhenTheLineRestsTwoCharactersLater) {
    const auto body = QByteArray("t1D") + hex("10 03") + "abcdef";
    const auto frame = makeFrame(body);
    feedAnnouncement();
    port.feed({frame});
    expectReply(body);
    feedAnnouncement();
    port.feed({frame.first(8), frame.sliced(8)});
    expectFailure(noResponse);
}

TEST_F(TorqueProtocol, AReplyThatStopsInTheMiddleEndsInTheTimeout) {
    const auto frame = makeFrame("t0A and more");
    for (qsizetype cut = 7; cut < frame.size(); ++cut) {
        feedAnnouncement();
        port.feed({frame.first(cut)});
        const int before = port.polls;
        expectFailure(timeout);
        EXPECT_EQ(port.polls - before, 2 + 1 + 11) << cut;
        EXPECT_EQ(port.sent.last(), ack);
    }
}

TEST_F(TorqueProtocol, AReplyThatCompletesWithThePassingOfTheDeadlineIsTooLate) {
    const auto frame = makeFrame("t0A and more");
    feedAnnouncement();
    port.feed({frame.first(8)});
    port.feed(afterPolls(9, frame.sliced(8)));
    expectReply("t0A and more");
    feedAnnouncement();
    port.feed({frame.first(8)});
    port.feed(afterPolls(10, frame.sliced(8)));
    expectFailure(timeout);
}

TEST_F(TorqueProtocol, DoubledDleComesBackSingle) {
    for (const char* body :
         {"74 31 10", "10 74 31", "74 10 10 31", "10 10 10", "74 10 03 31", "10 03 02 10 03"}) {
        feedAnnouncement();
        port.feed({makeFrame(hex(body))});
        expectReply(hex(body));
    }
}

TEST_F(TorqueProtocol, AfterEachDleTheFollowingCharacterIsSkippedWhateverItIs) {
    const auto frame = hex("74 10 41 42 10 03");
    feedAnnouncement();
    port.feed({frame + TXChecksum(frame)});
    expectReply(hex("74 10 42"));
}

TEST_F(TorqueProtocol, OddAndEvenRepliesAreCheckedAlike) {
    for (const QByteArray& body : {QByteArray("t0A"), QByteArray("t0AB"), QByteArray("t0ABC")}) {
        feedAnnouncement();
        port.feed({makeFrame(body)});
        expectReply(body);
    }
}

TEST_F(TorqueProtocol, AFrameEndWithThreeCharactersBehindItLeavesOneOfItsCharactersInTheReply) {
    // A zero before the checksum keeps the sum of an odd frame.
    auto frame = makeFrame("t0A");
    frame.insert(frame.size() - 2, '\0');
    feedAnnouncement();
    port.feed({frame});
    expectReply(QByteArray("t0A") + hex("10"));
}

TEST_F(TorqueProtocol, AReplyThatEndsInStxIsBegunAnewWithoutAnotherAnnouncement) {
    feedAnnouncement();
    port.feed({hex("74 30 41 10 03 00 02"), makeFrame("t0A")});
    expectReply("t0A");
    EXPECT_EQ(port.sent, (QList<QByteArray>{linkStart, linkTest, ack, ack, ack}));
}

TEST_F(TorqueProtocol, AGoodReplyWhoseChecksumEndsIn02CountsAsBegunAnew) {
    // 74 30 + a b + 10 03 has a checksum that ends in 02 when b is fa.
    const auto frame = makeFrame(hex("74 30 41 ca"));
    ASSERT_TRUE(frame.endsWith('\x02')) << frame.toHex(' ').toStdString();
    feedAnnouncement();
    port.feed({frame, frame, frame});
    expectFailure(noResponse);
    EXPECT_EQ(sentCount(ack), 3);
    EXPECT_EQ(sentCount(nak), 0);
}

TEST_F(TorqueProtocol, StartingOverIsAllowedWithinThreeRounds) {
    const auto again = hex("74 30 41 10 03 00 02");
    feedAnnouncement();
    port.feed({again, again, makeFrame("t0A")});
    expectReply("t0A");
    feedAnnouncement();
    port.feed({again, again, again, makeFrame("t0A")});
    expectFailure(noResponse);
}

TEST_F(TorqueProtocol, ABadChecksumIsAnsweredOnceAndEndsTheExchangeWithoutWaitingForANewReply) {
    auto frame = makeFrame("t0A");
    frame[0] = 'u';
    feedAnnouncement();
    port.feed({frame, makeFrame("t0A")});
    expectFailure(noResponse);
    EXPECT_EQ(port.sent, (QList<QByteArray>{linkStart, linkTest, ack, nak}));
    EXPECT_EQ(port.polls, 3);
}

TEST_F(TorqueProtocol, ACheckValueThatEndsIn02IsTakenForTheNextAnnouncement) {
    auto frame = makeFrame("t0A");
    frame[frame.size() - 1] = static_cast<char>(frame.back() - 2);
    ASSERT_EQ(CheckSum16(frame), hex("00 02"));
    feedAnnouncement();
    port.feed({frame, makeFrame("t0A")});
    expectReply("t0A");
    EXPECT_EQ(port.sent, (QList<QByteArray>{linkStart, linkTest, ack, nak, ack, ack}));
}

TEST_F(TorqueProtocol, AByteFlippedLostOrAddedNeverGivesAnotherReply) {
    const QByteArray body = QByteArray("t1D") + hex("00 10 4e 20 01");
    const auto frame = makeFrame(body);
    const auto run = [&](const QByteArray& bytes, const std::string& what) {
        ScriptedSerialPort line;
        TorqueStar calibrator{session, line};
        line.feed({ack, ack + stx, bytes});
        const auto reply = ProcessMessageProtocol(calibrator, "T0A");
        if (calibrator.TSError.isEmpty())
            EXPECT_TRUE(reply == body || reply == body + hex("10"))
                << what << ": " << reply.toHex(' ').toStdString();
        else
            EXPECT_FALSE(line.portOpen()) << what;
        return calibrator.TSError.isEmpty();
    };
    int passed = 0;
    for (qsizetype i = 0; i <= frame.size(); ++i) {
        const auto where = " at " + std::to_string(i);
        for (int value = 0; value < 256; ++value) {
            auto added = frame;
            added.insert(i, static_cast<char>(value));
            passed += run(added, "added " + std::to_string(value) + where) ? 1 : 0;
            if (i == frame.size() || static_cast<char>(value) == frame[i])
                continue;
            auto flipped = frame;
            flipped[i] = static_cast<char>(value);
            EXPECT_FALSE(run(flipped, "changed to " + std::to_string(value) + where));
        }
        if (i < frame.size()) {
            auto lost = frame;
            lost.remove(i, 1);
            EXPECT_FALSE(run(lost, "lost" + where));
        }
    }
    // What passes is the frame with a zero added where the check puts one itself, and nothing else.
    EXPECT_LE(passed, 2);
}

TEST_F(TorqueProtocol, EndlessNoiseEndsEachPhaseInItsOwnTime) {
    port.noise = "noise";
    expectLinkBox(BoxAnswer::abort);
    expectFailure(linkFailed);

    port.feed({ack});
    expectLinkBox(BoxAnswer::abort);
    expectFailure(linkFailed);

    port.feed({ack, ack + stx});
    expectFailure(timeout);

    port.noise = QByteArray(1000000, '\x55');
    port.feed({ack, ack + stx});
    expectFailure(timeout);
}

TEST_F(TorqueProtocol, AFrameEndBehindMoreNoiseThanAChecksumCanTakeIsAnOverflow) {
    feedAnnouncement();
    port.feed({QByteArray(200000, '\x55'), hex("10 03 00 00")});
    ui.expectReport(6, u"ModuleTSInterface,ProcessMessageProtocol"_s);
    EXPECT_EQ(exchange(), QByteArray());
    EXPECT_EQ(driver.TSError, u"Communications with calibrator failed!"_s);
}

TEST_F(TorqueProtocol, ABodyTooLongForItsChecksumIsReportedBeforeThePortIsTouched) {
    ui.expectReport(6, u"ModuleTSInterface,ProcessMessageProtocol"_s);
    EXPECT_EQ(ProcessMessageProtocol(driver, QByteArray(32766, 'x')), QByteArray());
    EXPECT_EQ(port.log, QStringList());
}

TEST_F(TorqueProtocol, ALineThatIsCutEndsEachPhaseInItsOwnTime) {
    LinePeer peer;
    peer.reply = [](const QByteArray&) { return QByteArray("t0A"); };
    const struct {
        qsizetype messages;
        QString failure;
        bool box;
    } cases[] = {
        {1, timeout, false},   // after the link was made: before the frame
        {2, timeout, false},   // after the frame was taken: before the reply
        {0, linkFailed, true}, // from the start
    };
    for (const auto& testCase : cases) {
        ScriptedSerialPort line;
        TorqueStar cut{session, line};
        qsizetype messages = 0;
        line.answer = [&](const QByteArray& bytes) -> ScriptedSerialPort::Chunks {
            if (++messages > testCase.messages)
                return {};
            return {peer.take(bytes)};
        };
        if (testCase.box)
            expectLinkBox(BoxAnswer::abort);
        EXPECT_EQ(ProcessMessageProtocol(cut, "T0A"), QByteArray());
        EXPECT_EQ(cut.TSError, testCase.failure);
        EXPECT_FALSE(line.portOpen());
    }
}

TEST_F(TorqueProtocol, BytesThatAreGoneWhenTheyAreReadAreLikeNone) {
    // One reading after the other finds nothing of what was counted: link answer, acknowledge, announcement
    // (a chunk is lost each time), reply.
    port.loseAtReading = 3;
    port.feed({ack, ack, ack});
    expectLinkBox(BoxAnswer::abort);
    expectFailure(linkFailed);

    int readings = 0;
    port.answer = [&](const QByteArray& bytes) -> ScriptedSerialPort::Chunks {
        if (bytes == linkStart)
            return {ack};
        if (bytes == linkTest)
            return {ack + stx};
        port.loseAtReading = ++readings;
        return {makeFrame("t0A")};
    };
    expectFailure(timeout);
    EXPECT_EQ(readings, 1);
}

TEST_F(TorqueProtocol, AnErrorOfThePortIsReportedAndNotTakenForAnEmptyReply) {
    port.failSending = true;
    ui.expectReport(31, u"ModuleTSInterface,ProcessMessageProtocol"_s);
    EXPECT_EQ(exchange(), QByteArray());
    EXPECT_EQ(driver.TSError, u"Communications with calibrator failed!"_s);
    EXPECT_TRUE(port.portOpen()) << "the port stays as it stands";
}

TEST_F(TorqueProtocol, ACompletedExchangeClearsTheLastFailure) {
    port.refuseOpening = true;
    exchange();
    EXPECT_FALSE(driver.TSError.isEmpty());
    port.refuseOpening = false;
    feedAnnouncement();
    port.feed({makeFrame("t0A")});
    expectReply("t0A");
}

TEST_F(TorqueProtocol, OnlyTheErrorTextDistinguishesAnEmptyReplyBodyFromAFailure) {
    // Seven bytes with nothing but a doubled DLE inside come back as one DLE; an empty body is too short.
    feedAnnouncement();
    port.feed({makeFrame(QByteArray())});
    expectFailure(timeout);
}

TEST_F(TorqueProtocol, NothingOfItTouchesTheDatabase) {
    feedAnnouncement();
    port.feed({makeFrame("t0A")});
    exchange();
    EXPECT_EQ(script.statements, QStringList());
}

} // namespace kelvane::testing
