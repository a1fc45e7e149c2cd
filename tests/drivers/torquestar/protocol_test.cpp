#include "drivers/torquestar/protocol.h"
#include "resources/strings.h"
#include "tests/drivers/torquestar/line_peer.h"
#include "tests/support/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleTSInterface;

namespace {

const QByteArray linkStart = hex("10 04 02");
const QByteArray linkTest = hex("54 30 41 10 03 67 bf");
const QByteArray ack = hex("06");
const QByteArray stx = hex("02");
const QByteArray nak = hex("15");

const QString channelFailed =
    u"Unable to open communications channel to calibrator! Please check communications settings and try again."_s;
const QString linkFailed =
    u"Communications with calibrator failed!\r\nCheck to make sure that \"PC COMMS\" has been selected (option 8) from the Main Menu and the calibrator is correctly connected and configured."_s;
const QString noResponse =
    u"Communications with calibrator failed!\r\nCalibrator received command but failed to respond."_s;
const QString timeout = u"Communications Timeout on Command Acknowledgement"_s;
const BoxStyle linkBox{BoxIcon::warning, BoxButtons::abortRetryIgnore, 2};

} // namespace

/// One second passes with each look at the clock, so that a wait of 2500 ms has 3 looks at the line, one of
/// 5000 ms has 6, one of 10000 ms has 11.
class TorqueProtocol : public RecordedSession {
  protected:
    TorqueProtocol() { clock.tick = 1; }

    QByteArray exchange() { return ProcessMessageProtocol(driver, "T0A"); }

    void expectLinkBox(BoxAnswer answer) {
        ui.expectBox(linkFailed, u"Download Procedures To Calibrator"_s, linkBox, answer);
    }

    /// Everything up to the call for the reply.
    void feedAnnouncement() { port.feed({ack, ack + stx}); }

    /// The exchange fails with this text and leaves the port closed.
    void expectFailure(const QString& reason) {
        EXPECT_EQ(exchange(), QByteArray());
        EXPECT_EQ(driver.TSError, reason);
        EXPECT_FALSE(port.portOpen());
    }

    /// The exchange succeeds with this reply and leaves the port open.
    void expectReply(const QByteArray& body) {
        EXPECT_EQ(exchange().toHex(' '), body.toHex(' '));
        EXPECT_EQ(driver.TSError, QString());
        EXPECT_TRUE(port.portOpen());
    }

    int sentCount(const QByteArray& bytes) const { return static_cast<int>(port.sent.count(bytes)); }

    ScriptedSerialPort port;
    TorqueStar driver{session, port};
};

TEST_F(TorqueProtocol, AnExchangeGoesToTheLetterAndLeavesThePortOpen) {
    feedAnnouncement();
    port.feed({framed("t0A")});
    expectReply("t0A");
    EXPECT_EQ(port.log, (QStringList{u"port 1"_s, u"settings 9600,N,8,1"_s, u"open"_s, u"10 04 02"_s,
                                     u"54 30 41 10 03 67 bf"_s, u"06"_s, u"06"_s}));
}

TEST_F(TorqueProtocol, EachExchangeStartsWithAFreshlyOpenedPort) {
    LinePeer peer;
    peer.reply = [](const QByteArray& body) { return body.toLower(); };
    peer.attachTo(port);
    exchange();
    port.log.clear();
    EXPECT_EQ(exchange(), "t0a");
    EXPECT_EQ(port.log.mid(0, 4),
              (QStringList{u"close"_s, u"port 1"_s, u"settings 9600,N,8,1"_s, u"open"_s}));
    EXPECT_EQ(peer.heard, (QList<QByteArray>{"T0A", "T0A"}));
}

TEST_F(TorqueProtocol, AnEmptyBaudRateMeansTheFirstPortAt9600WhateverElseIsStored) {
    const auto section = u"Crane TorqueStar IVc"_s;
    settings.setValue(section, u"Port"_s, u"COM3"_s);
    settings.setValue(section, u"Parity"_s, u"Even"_s);
    settings.setValue(section, u"DataBits"_s, u"7"_s);
    port.refuseOpening = true;
    exchange();
    EXPECT_EQ(port.log, (QStringList{u"port 1"_s, u"settings 9600,N,8,1"_s, u"open"_s}));
}

TEST_F(TorqueProtocol, StoredSettingsMakeUpTheLine) {
    const struct {
        QString port, baud, parity, data, stop;
        QStringList log;
    } cases[] = {
        {u"COM1"_s, u"9600"_s, u"None"_s, u"8"_s, u"1"_s, {u"port 1"_s, u"settings 9600,N,8,1"_s}},
        {u"COM4"_s, u"300"_s, u"Even"_s, u"7"_s, u"2"_s, {u"port 4"_s, u"settings 300,E,7,2"_s}},
        {u"COM2"_s, u"19200"_s, u"Odd"_s, u"8"_s, u"1"_s, {u"port 2"_s, u"settings 19200,O,8,1"_s}},
        {u""_s, u"9600"_s, u"None"_s, u""_s, u""_s, {u"port 0"_s, u"settings 9600,N,,"_s}},
        {u"COM"_s, u"9600"_s, u"None"_s, u"8"_s, u"1"_s, {u"port 0"_s, u"settings 9600,N,8,1"_s}},
    };
    const auto section = u"Crane TorqueStar IVc"_s;
    for (const auto& one : cases) {
        settings.setValue(section, u"Port"_s, one.port);
        settings.setValue(section, u"BaudRate"_s, one.baud);
        settings.setValue(section, u"Parity"_s, one.parity);
        settings.setValue(section, u"DataBits"_s, one.data);
        settings.setValue(section, u"StopBits"_s, one.stop);
        port.log.clear();
        port.refuseOpening = true;
        if (one.data.isEmpty())
            ui.expectReport(5, u"ModuleTSInterface,ProcessMessageProtocol"_s);
        exchange();
        EXPECT_EQ(port.log.mid(0, 2), one.log);
    }
}

TEST_F(TorqueProtocol, AnUnknownParityWordAddsNoLetterWhichThePortRefuses) {
    for (const auto& word : {u"none"_s, u"Mark"_s, QString()}) {
        settings.setValue(u"Crane TorqueStar IVc"_s, u"Port"_s, u"COM1"_s);
        settings.setValue(u"Crane TorqueStar IVc"_s, u"BaudRate"_s, u"9600"_s);
        settings.setValue(u"Crane TorqueStar IVc"_s, u"Parity"_s, word);
        settings.setValue(u"Crane TorqueStar IVc"_s, u"DataBits"_s, u"8"_s);
        settings.setValue(u"Crane TorqueStar IVc"_s, u"StopBits"_s, u"1"_s);
        port.log.clear();
        ui.expectReport(5, u"ModuleTSInterface,ProcessMessageProtocol"_s);
        EXPECT_EQ(exchange(), QByteArray());
        EXPECT_EQ(port.log, (QStringList{u"port 1"_s, u"settings 9600,,8,1"_s}));
        EXPECT_FALSE(driver.TSError.isEmpty());
    }
}

TEST_F(TorqueProtocol, APortThatCannotBeOpenedIsToldWithoutABox) {
    port.refuseOpening = true;
    ui.setBusyPointer();
    expectFailure(channelFailed);
    EXPECT_FALSE(ui.busy);
    EXPECT_EQ(port.sent.size(), 0);
}

TEST_F(TorqueProtocol, FourLinkStartsGoOutAndThreeAreWaitedForBeforeTheBox) {
    expectLinkBox(BoxAnswer::abort);
    expectFailure(linkFailed);
    EXPECT_EQ(port.sent, QList<QByteArray>(4, linkStart));
    EXPECT_EQ(port.looks, 3 * 3);
    EXPECT_EQ(port.log.last(), u"close"_s);
}

TEST_F(TorqueProtocol, AbortAndIgnoreBothEndTheExchangeWithTheTextSet) {
    for (const auto answer : {BoxAnswer::abort, BoxAnswer::ignore}) {
        expectLinkBox(answer);
        expectFailure(linkFailed);
    }
}

TEST_F(TorqueProtocol, RetryStartsTheCountAnewAnyNumberOfTimes) {
    for (int i = 0; i < 5; ++i)
        expectLinkBox(BoxAnswer::retry);
    expectLinkBox(BoxAnswer::ignore);
    expectFailure(linkFailed);
    EXPECT_EQ(sentCount(linkStart), 6 * 4);
}

TEST_F(TorqueProtocol, AnExchangeGoesOnAfterRetry) {
    expectLinkBox(BoxAnswer::retry);
    port.feed(QList<QByteArray>(9)); // three silent waits
    feedAnnouncement();
    port.feed({framed("t0A")});
    expectReply("t0A");
    EXPECT_EQ(sentCount(linkStart), 5);
}

TEST_F(TorqueProtocol, EachWaitEndsWhenTheClockIsPastItsDeadlineAndNotBefore) {
    // The link start's 2500 ms: its answer is taken at the third look.
    port.feed(afterLooks(2, ack));
    port.feed({ack + stx, framed("t0A")});
    expectReply("t0A");
    EXPECT_EQ(sentCount(linkStart), 1);
    port.feed(afterLooks(3, ack));
    port.feed({ack + stx, framed("t0A")});
    expectReply("t0A");
    EXPECT_EQ(sentCount(linkStart), 1 + 2);

    // The acknowledge's 5000 ms.
    port.feed({ack});
    port.feed(afterLooks(5, ack + stx));
    port.feed({framed("t0A")});
    expectReply("t0A");

    // The announcement's 10000 ms.
    port.feed({ack, ack});
    port.feed(afterLooks(10, stx));
    port.feed({framed("t0A")});
    expectReply("t0A");

    // The reply's 10000 ms.
    feedAnnouncement();
    port.feed(afterLooks(10, framed("t0A")));
    expectReply("t0A");
}

TEST_F(TorqueProtocol, AFrameThatNobodyAcknowledgesFailsAtOnceWithoutARetry) {
    port.feed({ack});
    port.feed(QList<QByteArray>(6));
    port.feed({ack + stx}); // too late
    expectFailure(timeout);
    EXPECT_EQ(port.sent, (QList<QByteArray>{linkStart, linkTest}));
    EXPECT_EQ(port.looks, 1 + 6);
}

TEST_F(TorqueProtocol, AnAnswerToTheLinkStartThatBeginsWrongIsLikeNone) {
    for (const char* wrong : {"15", "02 06", "00", "04", "15 06"}) {
        port.sent.clear();
        port.feed(QList<QByteArray>(3, hex(wrong)));
        expectLinkBox(BoxAnswer::abort);
        expectFailure(linkFailed);
        EXPECT_EQ(port.sent, QList<QByteArray>(4, linkStart)) << wrong;
    }
}

TEST_F(TorqueProtocol, OnlyTheFirstCharacterOfTheLinkAnswerCounts) {
    port.feed({hex("06 15 02"), ack + stx, framed("t0A")});
    expectReply("t0A");
}

TEST_F(TorqueProtocol, DleIsTheOtherAcknowledgeCharacterInBothDirections) {
    const auto dle = hex("10");
    port.feed({dle, dle + stx, framed("t0A")});
    expectReply("t0A");
    EXPECT_EQ(port.sent, (QList<QByteArray>{linkStart, linkTest, dle, dle}));
}

TEST_F(TorqueProtocol, AFrameAcknowledgedWithTheOtherCharacterRestartsTheLinkStart) {
    port.feed({hex("10"), ack + stx});          // ACK where DLE was agreed on
    port.feed({hex("06"), hex("10 02")});       // and the other way round
    port.feed({ack, ack + stx, framed("t0A")}); // the third link start is good
    expectReply("t0A");
    EXPECT_EQ(sentCount(linkStart), 3);
    EXPECT_EQ(sentCount(linkTest), 3);
}

TEST_F(TorqueProtocol, AWrongAcknowledgeCountsAsALinkStartAttempt) {
    for (int i = 0; i < 3; ++i)
        port.feed({ack, nak});
    expectLinkBox(BoxAnswer::abort);
    expectFailure(linkFailed);
    EXPECT_EQ(port.sent,
              (QList<QByteArray>{linkStart, linkTest, linkStart, linkTest, linkStart, linkTest, linkStart}));
}

TEST_F(TorqueProtocol, WhatCameWithTheAcknowledgeIsTestedAsTheAnnouncement) {
    port.feed({ack, ack + "xyz" + stx, framed("t0A")});
    expectReply("t0A");
}

TEST_F(TorqueProtocol, AReceiveBufferThatIsNotEmptyIsNotReadAgain) {
    port.feed({ack, ack + 'x', stx, framed("t0A")});
    expectFailure(noResponse);
    EXPECT_EQ(port.looks, 2) << "no wait for the announcement";
    EXPECT_EQ(port.sent, (QList<QByteArray>{linkStart, linkTest}));
}

TEST_F(TorqueProtocol, TheAnnouncementEndsInStxOrBeginsWithItAndEndsInTheAcknowledge) {
    const struct {
        const char* announcement;
        bool good;
    } cases[] = {
        {"02", true},  {"06 02", true},  {"15 41 02", true}, {"02 06", true},  {"02 41 06", true},
        {"06", false}, {"02 41", false}, {"41 06", false},   {"02 10", false}, {"02 15", false},
    };
    for (const auto& one : cases) {
        port.feed({ack, ack, hex(one.announcement)});
        if (one.good) {
            port.feed({framed("t0A")});
            expectReply("t0A");
        } else {
            expectFailure(noResponse);
        }
        EXPECT_EQ(driver.TSError.isEmpty(), one.good) << one.announcement;
    }
}

TEST_F(TorqueProtocol, AnAnnouncementIsWaitedForThreeTimes) {
    port.feed({ack, ack});
    expectFailure(noResponse);
    EXPECT_EQ(port.looks, 2 + 3 * 11);

    port.feed({ack, ack});
    port.feed(QList<QByteArray>(2 * 11));
    port.feed({stx, framed("t0A")});
    expectReply("t0A");
}

TEST_F(TorqueProtocol, AReplyOfFewerThanSevenBytesNeverCompletes) {
    feedAnnouncement();
    port.feed({framed("x").first(5), hex("00")});
    expectFailure(timeout);
    EXPECT_EQ(port.sent.last(), ack) << "no negative acknowledge";

    // Not even when it is complete: a body of two characters.
    feedAnnouncement();
    port.feed({framed("tx")});
    ASSERT_EQ(framed("tx").size(), 6);
    expectFailure(timeout);
}

TEST_F(TorqueProtocol, AReplyComesInAnyPortions) {
    const QByteArray body = QByteArray("t1D") + hex("01 35 29 01 10 10 00 03") + "abc";
    const auto frame = framed(body);
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
    const auto frame = framed(body);
    feedAnnouncement();
    port.feed({frame});
    expectReply(body);
    feedAnnouncement();
    port.feed({frame.first(8), frame.sliced(8)});
    expectFailure(noResponse);
}

TEST_F(TorqueProtocol, AReplyThatStopsInTheMiddleEndsInTheTimeout) {
    const auto frame = framed("t0A and more");
    for (qsizetype cut = 7; cut < frame.size(); ++cut) {
        feedAnnouncement();
        port.feed({frame.first(cut)});
        const int before = port.looks;
        expectFailure(timeout);
        EXPECT_EQ(port.looks - before, 2 + 1 + 11) << cut;
        EXPECT_EQ(port.sent.last(), ack);
    }
}

TEST_F(TorqueProtocol, AReplyThatCompletesWithThePassingOfTheDeadlineIsTooLate) {
    const auto frame = framed("t0A and more");
    feedAnnouncement();
    port.feed({frame.first(8)});
    port.feed(afterLooks(9, frame.sliced(8)));
    expectReply("t0A and more");
    feedAnnouncement();
    port.feed({frame.first(8)});
    port.feed(afterLooks(10, frame.sliced(8)));
    expectFailure(timeout);
}

TEST_F(TorqueProtocol, DoubledDleComesBackSingle) {
    for (const char* body :
         {"74 31 10", "10 74 31", "74 10 10 31", "10 10 10", "74 10 03 31", "10 03 02 10 03"}) {
        feedAnnouncement();
        port.feed({framed(hex(body))});
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
        port.feed({framed(body)});
        expectReply(body);
    }
}

TEST_F(TorqueProtocol, AFrameEndWithThreeCharactersBehindItLeavesOneOfItsCharactersInTheReply) {
    // A zero before the checksum keeps the sum of an odd frame.
    auto frame = framed("t0A");
    frame.insert(frame.size() - 2, '\0');
    feedAnnouncement();
    port.feed({frame});
    expectReply(QByteArray("t0A") + hex("10"));
}

TEST_F(TorqueProtocol, AReplyThatEndsInStxIsBegunAnewWithoutAnotherAnnouncement) {
    feedAnnouncement();
    port.feed({hex("74 30 41 10 03 00 02"), framed("t0A")});
    expectReply("t0A");
    EXPECT_EQ(port.sent, (QList<QByteArray>{linkStart, linkTest, ack, ack, ack}));
}

TEST_F(TorqueProtocol, AGoodReplyWhoseChecksumEndsIn02CountsAsBegunAnew) {
    // 74 30 + a b + 10 03 has a checksum that ends in 02 when b is fa.
    const auto frame = framed(hex("74 30 41 ca"));
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
    port.feed({again, again, framed("t0A")});
    expectReply("t0A");
    feedAnnouncement();
    port.feed({again, again, again, framed("t0A")});
    expectFailure(noResponse);
}

TEST_F(TorqueProtocol, ABadChecksumIsAnsweredOnceAndEndsTheExchangeWithoutWaitingForANewReply) {
    auto frame = framed("t0A");
    frame[0] = 'u';
    feedAnnouncement();
    port.feed({frame, framed("t0A")});
    expectFailure(noResponse);
    EXPECT_EQ(port.sent, (QList<QByteArray>{linkStart, linkTest, ack, nak}));
    EXPECT_EQ(port.looks, 3);
}

TEST_F(TorqueProtocol, ACheckValueThatEndsIn02IsTakenForTheNextAnnouncement) {
    auto frame = framed("t0A");
    frame[frame.size() - 1] = static_cast<char>(frame.back() - 2);
    ASSERT_EQ(CheckSum16(frame), hex("00 02"));
    feedAnnouncement();
    port.feed({frame, framed("t0A")});
    expectReply("t0A");
    EXPECT_EQ(port.sent, (QList<QByteArray>{linkStart, linkTest, ack, nak, ack, ack}));
}

TEST_F(TorqueProtocol, AByteFlippedLostOrAddedNeverGivesAnotherReply) {
    const QByteArray body = QByteArray("t1D") + hex("00 10 4e 20 01");
    const auto frame = framed(body);
    const auto run = [&](const QByteArray& bytes, const std::string& what) {
        ScriptedSerialPort line;
        TorqueStar one{session, line};
        line.feed({ack, ack + stx, bytes});
        const auto reply = ProcessMessageProtocol(one, "T0A");
        if (one.TSError.isEmpty())
            EXPECT_TRUE(reply == body || reply == body + hex("10"))
                << what << ": " << reply.toHex(' ').toStdString();
        else
            EXPECT_FALSE(line.portOpen()) << what;
        return one.TSError.isEmpty();
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
    for (const auto& one : cases) {
        ScriptedSerialPort line;
        TorqueStar cut{session, line};
        qsizetype messages = 0;
        line.answer = [&](const QByteArray& bytes) -> ScriptedSerialPort::Chunks {
            if (++messages > one.messages)
                return {};
            return {peer.take(bytes)};
        };
        if (one.box)
            expectLinkBox(BoxAnswer::abort);
        EXPECT_EQ(ProcessMessageProtocol(cut, "T0A"), QByteArray());
        EXPECT_EQ(cut.TSError, one.failure);
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
        return {framed("t0A")};
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
    port.feed({framed("t0A")});
    expectReply("t0A");
}

TEST_F(TorqueProtocol, AnEmptyReplyBodyIsToldFromAFailureByTheErrorTextAlone) {
    // Seven bytes with nothing but a doubled DLE inside come back as one DLE; an empty body is too short.
    feedAnnouncement();
    port.feed({framed(QByteArray())});
    expectFailure(timeout);
}

TEST_F(TorqueProtocol, NothingOfItTouchesTheDatabase) {
    feedAnnouncement();
    port.feed({framed("t0A")});
    exchange();
    EXPECT_EQ(script.statements, QStringList());
}

} // namespace kelvane::testing
