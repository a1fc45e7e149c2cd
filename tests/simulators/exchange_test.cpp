#include "tests/simulators/message_bytes.h"
#include "tests/simulators/peer.h"
#include "tests/simulators/programs.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

class Exchange : public ::testing::Test {
  protected:
    Workshop m_workshop;
    Calibrator m_calibrator{m_workshop};
    Peer m_peer{m_calibrator.device()};
};

TEST_F(Exchange, GoesByteByByteAsTheProtocolTells) {
    m_peer.send(hex("10 04 02"));
    EXPECT_EQ(m_peer.receive(1), hex("10"));
    m_peer.send(hex("54 30 41 10 03 67 BF"));
    EXPECT_EQ(m_peer.receive(2), hex("10 02"));
    m_peer.send(hex("10"));
    EXPECT_EQ(m_peer.receive(7), hex("74 30 41 10 03 47 BF"));
    m_peer.send(hex("10"));
    EXPECT_EQ(m_peer.exchange("T0A"), "t0A");
}

TEST_F(Exchange, ALinkStartIsAnsweredEachTime) {
    for (int attempt = 0; attempt < 5; ++attempt)
        m_peer.startLink();
    EXPECT_EQ(m_peer.exchange("T0A"), "t0A");
}

TEST_F(Exchange, BytesOutsideALinkAreNotHeard) {
    m_peer.send(hex("06 15 10 10 04 54 30 41 02 10 03 67 BF 10"));
    m_peer.startLink();
    m_peer.sendMessage("T0A");
    m_peer.hearAnnouncement();
    EXPECT_EQ(m_workshop.contentOf(u"record"_s), "heard T0A 543041\n");
}

TEST_F(Exchange, AMessageOfWhichAByteWasChangedIsRefusedByNak) {
    m_peer.startLink();
    m_peer.send(hex("54 30 42 10 03 67 BF"));
    EXPECT_EQ(m_peer.receive(1), hex("15"));
    EXPECT_EQ(m_workshop.contentOf(u"record"_s), "refused T0B 543042100367bf\n");
    EXPECT_EQ(m_peer.exchange("T0A"), "t0A");
}

TEST_F(Exchange, AMessageOfWhichAByteWasLostOrAddedIsRefusedAndNotCarriedOut) {
    const QByteArray whole = Peer::frame(addMessage("TW-1"));
    for (const QByteArray& broken : {QByteArray(whole).remove(20, 1), QByteArray(whole).insert(20, 'U')}) {
        m_peer.startLink();
        m_peer.send(broken);
        EXPECT_EQ(m_peer.receive(1), hex("15"));
    }
    EXPECT_EQ(m_peer.exchange("T1C" + wireName("TW-1")), hex("74 00 02"));
}

TEST_F(Exchange, DoubledDlesComeAndGoAsOne) {
    std::vector<QByteArray> fields = goodFields();
    fields[0] = hex("10");  // 16 samples
    fields[10] = hex("10"); // 72 Hz
    EXPECT_EQ(m_peer.exchange(addMessage("TW-1", fields)), "t1A");
    EXPECT_TRUE(m_workshop.contentOf(u"memory.json"_s).contains("\"samples\": 16,"));
}

TEST_F(Exchange, AMessageTheCalibratorDoesNotKnowIsAcknowledgedAndNotAnswered) {
    m_peer.startLink();
    m_peer.sendMessage("T9Z");
    EXPECT_EQ(m_peer.receive(1), hex("10"));
    m_peer.send(hex("10"));
    EXPECT_EQ(m_peer.exchange("T0A"), "t0A");
}

TEST_F(Exchange, AReplyRefusedByNakIsAnnouncedAgainTwice) {
    m_peer.startLink();
    m_peer.sendMessage("T0A");
    m_peer.hearAnnouncement();
    for (int transmission = 1; transmission <= 3; ++transmission) {
        m_peer.acknowledge();
        EXPECT_EQ(m_peer.receive(7), hex("74 30 41 10 03 47 BF")) << transmission;
        m_peer.send(hex("15"));
        if (transmission < 3) {
            EXPECT_EQ(m_peer.receive(1), hex("02")) << transmission;
        }
    }
    m_peer.startLink();
}

TEST_F(Exchange, AResultRefusedByNakIsSentAgainAndNotPassedOver) {
    m_workshop.put(u"memory.json"_s,
                   R"({"format": "kelvane-torquestar memory 1", "rounds": [], "characteristics": [
        {"name": "A", "comment": "", "fields": {}, "results": [
            {"date": "2026-11-20", "time": "09:00:00", "samples": [1]},
            {"date": "2026-11-20", "time": "09:00:01", "samples": [2]}]}]})");
    EXPECT_EQ(m_peer.exchange("T1C" + wireName("A")), "t1C");
    m_peer.startLink();
    m_peer.sendMessage("T1D");
    m_peer.hearAnnouncement();
    m_peer.acknowledge();
    const QByteArray first = m_peer.receiveFrame();
    m_peer.send(hex("15"));
    EXPECT_EQ(m_peer.receive(1), hex("02"));
    m_peer.acknowledge();
    EXPECT_EQ(m_peer.receiveFrame(), first);
    m_peer.acknowledge();
    EXPECT_EQ(m_peer.exchange("T1D").sliced(7), hex("00 01 5F 91 00 00 4E 20"));
}

TEST_F(Exchange, ALinkStartInPlaceOfTheAcknowledgeBeginsAnewAndCarriesNothingOut) {
    m_peer.startLink();
    m_peer.sendMessage(addMessage("TW-1"));
    m_peer.hearAnnouncement();
    EXPECT_EQ(m_peer.exchange("T1C" + wireName("TW-1")), hex("74 00 02"));
    EXPECT_EQ(m_peer.exchange(addMessage("TW-1")), "t1A");
}

TEST_F(Exchange, ALinkStartInTheMiddleOfAMessageBeginsAnew) {
    m_peer.startLink();
    m_peer.send(hex("54 31"));
    m_peer.startLink();
    m_peer.sendMessage("T0A");
    m_peer.hearAnnouncement();
}

TEST_F(Exchange, TheOtherAcknowledgeCharacterIsNoAcknowledge) {
    m_peer.startLink();
    m_peer.sendMessage("T0A");
    m_peer.hearAnnouncement();
    m_peer.send(hex("06"));
    EXPECT_EQ(m_peer.exchange("T0A"), "t0A");
    EXPECT_EQ(m_workshop.contentOf(u"record"_s), "heard T0A 543041\nheard T0A 543041\nsent t0A 743041\n");
}

TEST_F(Exchange, ThePortMayBeClosedAndOpenedForEachExchange) {
    for (int round = 0; round < 50; ++round)
        EXPECT_EQ(m_peer.exchange("T0A"), "t0A");
}

TEST_F(Exchange, TheLinkLeadsToTheLine) {
    Peer peer(m_workshop.link());
    EXPECT_EQ(peer.exchange("T0A"), "t0A");
}

TEST_F(Exchange, TheRecordHoldsEachMessageAndReply) {
    m_peer.exchange("T0A");
    m_peer.exchange("T2F" + wireName("KVTASK"));
    EXPECT_EQ(m_workshop.contentOf(u"record"_s),
              "heard T0A 543041\nsent t0A 743041\nheard T2F 5432464b565441534b3d5043ff\nsent t2F 74324600\n");
}

TEST(ExchangeWithAck, AckIsTheAcknowledgeWhenTheCalibratorUsesIt) {
    const Workshop workshop;
    const Calibrator calibrator(workshop, {u"--no-pace"_s, u"--acknowledge"_s, u"ack"_s});
    Peer peer(calibrator.device(), 0x06);
    EXPECT_EQ(peer.exchange("T0A"), "t0A");
    EXPECT_EQ(peer.exchange("T0D").size(), 25);
}

} // namespace kelvane::simulators
