#include "tests/drivers/torquestar/protocol_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleTSInterface;

TEST_F(TorqueProtocol, AnExchangeSendsExactBytesAndLeavesThePortOpen) {
    feedAnnouncement();
    port.feed({makeFrame("t0A")});
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
    EXPECT_EQ(peer.received, (QList<QByteArray>{"T0A", "T0A"}));
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
    for (const auto& testCase : cases) {
        settings.setValue(section, u"Port"_s, testCase.port);
        settings.setValue(section, u"BaudRate"_s, testCase.baud);
        settings.setValue(section, u"Parity"_s, testCase.parity);
        settings.setValue(section, u"DataBits"_s, testCase.data);
        settings.setValue(section, u"StopBits"_s, testCase.stop);
        port.log.clear();
        port.refuseOpening = true;
        if (testCase.data.isEmpty())
            ui.expectReport(5, u"ModuleTSInterface,ProcessMessageProtocol"_s);
        exchange();
        EXPECT_EQ(port.log.mid(0, 2), testCase.log);
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

TEST_F(TorqueProtocol, APortThatCannotBeOpenedIsReportedWithoutABox) {
    port.refuseOpening = true;
    ui.setBusyPointer();
    expectFailure(channelFailed);
    EXPECT_FALSE(ui.busy);
    EXPECT_EQ(port.sent.size(), 0);
    EXPECT_EQ(folder.read(u"errors.log"_s), u"[2026-03-18 09:30:00] Path/File access error\r\n"_s)
        << "its reason";
}

TEST_F(TorqueProtocol, FourLinkStartsGoOutAndThreeAreWaitedForBeforeTheBox) {
    expectLinkBox(BoxAnswer::abort);
    expectFailure(linkFailed);
    EXPECT_EQ(port.sent, QList<QByteArray>(4, linkStart));
    EXPECT_EQ(port.polls, 3 * 3);
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
    port.feed({makeFrame("t0A")});
    expectReply("t0A");
    EXPECT_EQ(sentCount(linkStart), 5);
}

TEST_F(TorqueProtocol, EachWaitEndsWhenTheClockIsPastItsDeadlineAndNotBefore) {
    // The link start's 2500 ms: its answer is taken at the third look.
    port.feed(afterPolls(2, ack));
    port.feed({ack + stx, makeFrame("t0A")});
    expectReply("t0A");
    EXPECT_EQ(sentCount(linkStart), 1);
    port.feed(afterPolls(3, ack));
    port.feed({ack + stx, makeFrame("t0A")});
    expectReply("t0A");
    EXPECT_EQ(sentCount(linkStart), 1 + 2);

    // The acknowledge's 5000 ms.
    port.feed({ack});
    port.feed(afterPolls(5, ack + stx));
    port.feed({makeFrame("t0A")});
    expectReply("t0A");

    // The announcement's 10000 ms.
    port.feed({ack, ack});
    port.feed(afterPolls(10, stx));
    port.feed({makeFrame("t0A")});
    expectReply("t0A");

    // The reply's 10000 ms.
    feedAnnouncement();
    port.feed(afterPolls(10, makeFrame("t0A")));
    expectReply("t0A");
}

TEST_F(TorqueProtocol, AnUnacknowledgedFrameFailsAtOnceWithoutARetry) {
    port.feed({ack});
    port.feed(QList<QByteArray>(6));
    port.feed({ack + stx}); // too late
    expectFailure(timeout);
    EXPECT_EQ(port.sent, (QList<QByteArray>{linkStart, linkTest}));
    EXPECT_EQ(port.polls, 1 + 6);
}

TEST_F(TorqueProtocol, WhileItWaitsTheWindowsArePaintedAndNoCommandGetsIn) {
    port.feed({ack});
    port.feed(QList<QByteArray>(6));
    expectFailure(timeout);
    EXPECT_GE(ui.repaints, 5);
    EXPECT_FALSE(ui.events.contains(QStringLiteral("events")));
}

TEST_F(TorqueProtocol, WhileAReplyComesInPiecesTheWindowsArePainted) {
    feedAnnouncement();
    port.feed({hex("54 30 41 41 41 41 41")});
    expectFailure(timeout);
    EXPECT_GE(ui.repaints, 8);
    EXPECT_FALSE(ui.events.contains(QStringLiteral("events")));
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
    port.feed({hex("06 15 02"), ack + stx, makeFrame("t0A")});
    expectReply("t0A");
}

TEST_F(TorqueProtocol, DleIsTheOtherAcknowledgeCharacterInBothDirections) {
    const auto dle = hex("10");
    port.feed({dle, dle + stx, makeFrame("t0A")});
    expectReply("t0A");
    EXPECT_EQ(port.sent, (QList<QByteArray>{linkStart, linkTest, dle, dle}));
}

TEST_F(TorqueProtocol, AFrameAcknowledgedWithTheOtherCharacterRestartsTheLinkStart) {
    port.feed({hex("10"), ack + stx});             // ACK where DLE was agreed on
    port.feed({hex("06"), hex("10 02")});          // and the other way round
    port.feed({ack, ack + stx, makeFrame("t0A")}); // the third link start is good
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
    port.feed({ack, ack + "xyz" + stx, makeFrame("t0A")});
    expectReply("t0A");
}

TEST_F(TorqueProtocol, AReceiveBufferThatIsNotEmptyIsNotReadAgain) {
    port.feed({ack, ack + 'x', stx, makeFrame("t0A")});
    expectFailure(noResponse);
    EXPECT_EQ(port.polls, 2) << "no wait for the announcement";
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
    for (const auto& testCase : cases) {
        port.feed({ack, ack, hex(testCase.announcement)});
        if (testCase.good) {
            port.feed({makeFrame("t0A")});
            expectReply("t0A");
        } else {
            expectFailure(noResponse);
        }
        EXPECT_EQ(driver.TSError.isEmpty(), testCase.good) << testCase.announcement;
    }
}

TEST_F(TorqueProtocol, AnAnnouncementIsWaitedForThreeTimes) {
    port.feed({ack, ack});
    expectFailure(noResponse);
    EXPECT_EQ(port.polls, 2 + 3 * 11);

    port.feed({ack, ack});
    port.feed(QList<QByteArray>(2 * 11));
    port.feed({stx, makeFrame("t0A")});
    expectReply("t0A");
}

} // namespace kelvane::testing
