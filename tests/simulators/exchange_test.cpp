#include "tests/simulators/message_bytes.h"
#include "tests/simulators/peer.h"
#include "tests/simulators/programs.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

class Exchange : public ::testing::Test {
  protected:
    SimulatorFolder folder_;
    Calibrator calibrator_{folder_};
    Peer peer_{calibrator_.device()};
};

TEST_F(Exchange, GoesByteByByteAsTheProtocolRequires) {
    peer_.send(hex("10 04 02"));
    EXPECT_EQ(peer_.receive(1), hex("10"));
    peer_.send(hex("54 30 41 10 03 67 BF"));
    EXPECT_EQ(peer_.receive(2), hex("10 02"));
    peer_.send(hex("10"));
    EXPECT_EQ(peer_.receive(7), hex("74 30 41 10 03 47 BF"));
    peer_.send(hex("10"));
    EXPECT_EQ(peer_.exchange("T0A"), "t0A");
}

TEST_F(Exchange, ALinkStartIsAnsweredEachTime) {
    for (int attempt = 0; attempt < 5; ++attempt)
        peer_.startLink();
    EXPECT_EQ(peer_.exchange("T0A"), "t0A");
}

TEST_F(Exchange, BytesBeyondALinkAreIgnored) {
    peer_.send(hex("06 15 10 10 04 54 30 41 02 10 03 67 BF 10"));
    peer_.startLink();
    peer_.sendMessage("T0A");
    peer_.receiveAnnouncement();
    EXPECT_EQ(folder_.contentOf(u"record"_s), "heard T0A 543041\n");
}

TEST_F(Exchange, AMessageOfWhichAByteWasChangedIsRefusedByNak) {
    peer_.startLink();
    peer_.send(hex("54 30 42 10 03 67 BF"));
    EXPECT_EQ(peer_.receive(1), hex("15"));
    EXPECT_EQ(folder_.contentOf(u"record"_s), "refused T0B 543042100367bf\n");
    EXPECT_EQ(peer_.exchange("T0A"), "t0A");
}

TEST_F(Exchange, AMessageOfWhichAByteWasLostOrAddedIsRefusedAndNotCarriedOut) {
    const QByteArray whole = Peer::frame(addMessage("TW-1"));
    for (const QByteArray& broken : {QByteArray(whole).remove(20, 1), QByteArray(whole).insert(20, 'U')}) {
        peer_.startLink();
        peer_.send(broken);
        EXPECT_EQ(peer_.receive(1), hex("15"));
    }
    EXPECT_EQ(peer_.exchange("T1C" + wireName("TW-1")), hex("74 00 02"));
}

TEST_F(Exchange, DoubledDlesComeAndGoAsOne) {
    std::vector<QByteArray> fields = goodFields();
    fields[0] = hex("10");  // 16 samples
    fields[10] = hex("10"); // 72 Hz
    EXPECT_EQ(peer_.exchange(addMessage("TW-1", fields)), "t1A");
    EXPECT_TRUE(folder_.contentOf(u"memory.json"_s).contains("\"samples\": 16,"));
}

TEST_F(Exchange, AMessageTheCalibratorDoesNotKnowIsAcknowledgedAndNotAnswered) {
    peer_.startLink();
    peer_.sendMessage("T9Z");
    EXPECT_EQ(peer_.receive(1), hex("10"));
    peer_.send(hex("10"));
    EXPECT_EQ(peer_.exchange("T0A"), "t0A");
}

TEST_F(Exchange, AReplyRefusedByNakIsAnnouncedAgainTwice) {
    peer_.startLink();
    peer_.sendMessage("T0A");
    peer_.receiveAnnouncement();
    for (int transmission = 1; transmission <= 3; ++transmission) {
        peer_.acknowledge();
        EXPECT_EQ(peer_.receive(7), hex("74 30 41 10 03 47 BF")) << transmission;
        peer_.send(hex("15"));
        if (transmission < 3) {
            EXPECT_EQ(peer_.receive(1), hex("02")) << transmission;
        }
    }
    peer_.startLink();
}

TEST_F(Exchange, AResultRefusedByNakIsSentAgainAndNotPassedOver) {
    folder_.put(u"memory.json"_s,
                R"({"format": "kelvane-torquestar memory 1", "rounds": [], "characteristics": [
        {"name": "A", "comment": "", "fields": {}, "results": [
            {"date": "2026-11-20", "time": "09:00:00", "samples": [1]},
            {"date": "2026-11-20", "time": "09:00:01", "samples": [2]}]}]})");
    EXPECT_EQ(peer_.exchange("T1C" + wireName("A")), "t1C");
    peer_.startLink();
    peer_.sendMessage("T1D");
    peer_.receiveAnnouncement();
    peer_.acknowledge();
    const QByteArray first = peer_.receiveFrame();
    peer_.send(hex("15"));
    EXPECT_EQ(peer_.receive(1), hex("02"));
    peer_.acknowledge();
    EXPECT_EQ(peer_.receiveFrame(), first);
    peer_.acknowledge();
    EXPECT_EQ(peer_.exchange("T1D").sliced(7), hex("00 01 5F 91 00 00 4E 20"));
}

TEST_F(Exchange, ALinkStartInPlaceOfTheAcknowledgeBeginsAnewAndCarriesNothingOut) {
    peer_.startLink();
    peer_.sendMessage(addMessage("TW-1"));
    peer_.receiveAnnouncement();
    EXPECT_EQ(peer_.exchange("T1C" + wireName("TW-1")), hex("74 00 02"));
    EXPECT_EQ(peer_.exchange(addMessage("TW-1")), "t1A");
}

TEST_F(Exchange, ALinkStartInTheMiddleOfAMessageBeginsAnew) {
    peer_.startLink();
    peer_.send(hex("54 31"));
    peer_.startLink();
    peer_.sendMessage("T0A");
    peer_.receiveAnnouncement();
}

TEST_F(Exchange, TheOtherAcknowledgeCharacterIsNoAcknowledge) {
    peer_.startLink();
    peer_.sendMessage("T0A");
    peer_.receiveAnnouncement();
    peer_.send(hex("06"));
    EXPECT_EQ(peer_.exchange("T0A"), "t0A");
    EXPECT_EQ(folder_.contentOf(u"record"_s), "heard T0A 543041\nheard T0A 543041\nsent t0A 743041\n");
}

TEST_F(Exchange, ThePortMayBeClosedAndOpenedForEachExchange) {
    for (int round = 0; round < 50; ++round)
        EXPECT_EQ(peer_.exchange("T0A"), "t0A");
}

TEST_F(Exchange, TheLinkLeadsToTheLine) {
    Peer peer(folder_.link());
    EXPECT_EQ(peer.exchange("T0A"), "t0A");
}

TEST_F(Exchange, TheRecordHoldsEachMessageAndReply) {
    peer_.exchange("T0A");
    peer_.exchange("T2F" + wireName("KVTASK"));
    EXPECT_EQ(folder_.contentOf(u"record"_s),
              "heard T0A 543041\nsent t0A 743041\nheard T2F 5432464b565441534b3d5043ff\nsent t2F 74324600\n");
}

TEST(ExchangeWithAck, AckIsTheAcknowledgeWhenTheCalibratorUsesIt) {
    const SimulatorFolder simulatorFolder;
    const Calibrator calibrator(simulatorFolder, {u"--no-pace"_s, u"--acknowledge"_s, u"ack"_s});
    Peer peer(calibrator.device(), 0x06);
    EXPECT_EQ(peer.exchange("T0A"), "t0A");
    EXPECT_EQ(peer.exchange("T0D").size(), 25);
}

} // namespace kelvane::simulators
