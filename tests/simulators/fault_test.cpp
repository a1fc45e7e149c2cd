#include "simulators/common/failure.h"
#include "simulators/torquestar/faults.h"
#include "tests/simulators/message_bytes.h"
#include "tests/simulators/peer.h"
#include "tests/simulators/programs.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

/// A calibrator with one fault, and the workstation's end of its line.
class Bench {
  public:
    explicit Bench(const QStringList& faults) : calibrator_(folder_, Calibrator::faulty(faults)) {}

    SimulatorFolder& simulatorFolder() { return folder_; }
    QProcess& process() { return calibrator_.process(); }
    Peer& peer() { return peer_; }

    /// Everything up to the acknowledge of the announcement, so that the reply is next.
    void askFor(const QByteArray& message) {
        peer_.startLink();
        peer_.sendMessage(message);
        peer_.receiveAnnouncement();
        peer_.acknowledge();
    }

  private:
    SimulatorFolder folder_;
    Calibrator calibrator_;
    Peer peer_{calibrator_.device()};
};

const QByteArray goodFrame = hex("74 30 41 10 03 47 BF");

} // namespace

TEST(Faults, ReplyFramesAreDamagedAsConfigured) {
    const struct {
        const char* fault;
        const char* frame;
    } cases[] = {
        {"bad-checksum*1", "74 30 41 10 03 46 BF"},   {"drop-byte:1*1", "30 41 10 03 47 BF"},
        {"drop-byte:3*1", "74 30 10 03 47 BF"},       {"drop-byte:7*1", "74 30 41 10 03 47"},
        {"drop-byte:8*1", "74 30 41 10 03 47 BF"},    {"add-byte:1*1", "55 74 30 41 10 03 47 BF"},
        {"add-byte:4*1", "74 30 41 55 10 03 47 BF"},  {"add-byte:8*1", "74 30 41 10 03 47 BF 55"},
        {"add-byte:99*1", "74 30 41 10 03 47 BF 55"}, {"flip-byte:1*1", "75 30 41 10 03 47 BF"},
        {"flip-byte:5*1", "74 30 41 10 02 47 BF"},    {"flip-byte:8*1", "74 30 41 10 03 47 BF"},
        {"reply:743042*1", "74 30 42 10 03 46 BF"},   {"reply:7410*1", "74 10 10 10 03 78 DF"},
    };
    for (const auto& entry : cases) {
        Bench bench({QString::fromLatin1(entry.fault)});
        bench.askFor("T0A");
        const QByteArray wanted = hex(entry.frame);
        EXPECT_EQ(bench.peer().receive(static_cast<int>(wanted.size())).toHex(), wanted.toHex())
            << entry.fault;
        // The next thing on the line is the answer to the next link start: nothing else was sent.
        EXPECT_EQ(bench.peer().exchange("T0A"), "t0A") << entry.fault;
    }
}

TEST(Faults, SilentLeavesALinkStartUnanswered) {
    Bench bench({u"silent*2"_s});
    bench.peer().send(hex("10 04 02 10 04 02"));
    EXPECT_EQ(bench.peer().exchange("T0A"), "t0A");
}

TEST(Faults, AWrongLinkAcknowledgeIsAnotherByte) {
    Bench bench({u"wrong-link-ack*1"_s, u"wrong-link-ack:06*1"_s});
    for (const char* const answer : {"15", "06"}) {
        bench.peer().send(hex("10 04 02"));
        EXPECT_EQ(bench.peer().receive(1), hex(answer));
    }
    EXPECT_EQ(bench.peer().exchange("T0A"), "t0A");
}

TEST(Faults, AMessageThatIsNotAcknowledgedIsNotCarriedOut) {
    Bench bench({u"no-frame-ack@T1A*1"_s});
    bench.peer().startLink();
    bench.peer().sendMessage(addMessage("TW-1"));
    EXPECT_EQ(bench.peer().exchange("T1C" + wireName("TW-1")), hex("74 00 02"));
}

TEST(Faults, AMessageAcknowledgedWronglyCanBeRepeated) {
    Bench bench({u"wrong-ack:06@T1A*1"_s, u"wrong-ack@T1A*1"_s});
    for (const char* const answer : {"06", "15"}) {
        bench.peer().startLink();
        bench.peer().sendMessage(addMessage("TW-1"));
        EXPECT_EQ(bench.peer().receive(1), hex(answer));
    }
    EXPECT_EQ(bench.peer().exchange(addMessage("TW-1")), "t1A");
}

TEST(Faults, WithoutAnnouncementThereIsOnlyTheAcknowledge) {
    Bench bench({u"no-announcement*1"_s});
    bench.peer().startLink();
    bench.peer().sendMessage("T0A");
    EXPECT_EQ(bench.peer().receive(1), hex("10"));
    bench.peer().acknowledge();
    EXPECT_EQ(bench.peer().exchange("T0A"), "t0A");
}

TEST(Faults, AWrongAnnouncementIsAnotherByte) {
    Bench bench({u"wrong-announcement*1"_s});
    bench.peer().startLink();
    bench.peer().sendMessage("T0A");
    EXPECT_EQ(bench.peer().receive(2), hex("10 15"));
    EXPECT_EQ(bench.peer().exchange("T0A"), "t0A");
}

TEST(Faults, WithoutReplyThereIsOnlyTheAnnouncement) {
    Bench bench({u"no-reply*1"_s});
    bench.askFor("T0A");
    EXPECT_EQ(bench.peer().exchange("T0A"), "t0A");
}

TEST(Faults, LateAnswersComeAfterTheirTime) {
    const struct {
        const char* fault;
        const char* answerAfter; // what is late: link, frame, announcement, reply
    } cases[] = {
        {"late-link-ack:150*1", "link"},
        {"late-frame-ack:150*1", "frame"},
        {"late-announcement:150*1", "announcement"},
        {"late:150*1", "reply"},
    };
    for (const auto& entry : cases) {
        Bench bench({QString::fromLatin1(entry.fault)});
        QElapsedTimer timer;
        timer.start();
        bench.peer().startLink();
        const qint64 link = timer.restart();
        bench.peer().sendMessage("T0A");
        EXPECT_EQ(bench.peer().receive(1), hex("10"));
        const qint64 acknowledge = timer.restart();
        EXPECT_EQ(bench.peer().receive(1), hex("02"));
        const qint64 announcement = timer.restart();
        bench.peer().acknowledge();
        EXPECT_EQ(bench.peer().receiveFrame(), goodFrame);
        const qint64 reply = timer.elapsed();
        const QByteArray late = entry.answerAfter;
        EXPECT_EQ(link >= 145, late == "link") << entry.fault;
        EXPECT_EQ(acknowledge >= 145, late == "frame") << entry.fault;
        EXPECT_EQ(announcement >= 145, late == "announcement") << entry.fault;
        EXPECT_EQ(reply >= 145, late == "reply") << entry.fault;
    }
}

TEST(Faults, ALinkStartDropsWhatIsLate) {
    Bench bench({u"late:5000*1"_s});
    bench.askFor("T0A");
    EXPECT_EQ(bench.peer().exchange("T0A"), "t0A");
}

TEST(Faults, ASplitReplyPauses) {
    Bench bench({u"split:2*1"_s});
    bench.askFor("T0A");
    EXPECT_EQ(bench.peer().receive(2), goodFrame.first(2));
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(bench.peer().receive(5), goodFrame.sliced(2));
    EXPECT_GE(timer.elapsed(), 150);
}

TEST(Faults, NoiseInPlaceOfTheReplyEndsWithTheNextLinkStart) {
    Bench bench({u"noise*1"_s});
    bench.askFor("T0A");
    const QByteArray noise = bench.peer().receive(300);
    EXPECT_EQ(noise.size(), 300);
    EXPECT_FALSE(noise.contains(0x10));
    bench.peer().send(hex("10 04 02"));
    QByteArray received;
    while (!received.endsWith(hex("10")))
        ASSERT_FALSE((received = bench.peer().receive(1)).isEmpty());
    EXPECT_EQ(bench.peer().exchange("T0A"), "t0A");
}

TEST(Faults, NoiseCanAnswerALinkStart) {
    Bench bench({u"link-noise*1"_s});
    bench.peer().send(hex("10 04 02"));
    EXPECT_EQ(bench.peer().receive(50).size(), 50);
}

TEST(Faults, StartingOverEndsTheFrameInStxAndSendsItAgain) {
    Bench bench({u"start-over*1"_s});
    bench.askFor("T0A");
    EXPECT_EQ(bench.peer().receive(8), goodFrame + hex("02"));
    bench.peer().acknowledge();
    EXPECT_EQ(bench.peer().receiveFrame(), goodFrame);
}

TEST(Faults, AVanishedCalibratorLeavesNoLink) {
    Bench bench({u"vanish-after:4"_s});
    bench.askFor("T0A");
    EXPECT_TRUE(goodFrame.startsWith(bench.peer().receive(7)));
    EXPECT_EQ(outcomeOf(bench.process()).code, 0);
    EXPECT_FALSE(QFileInfo(bench.simulatorFolder().link()).isSymLink());
}

TEST(Faults, ErrorCodesAreForAddingAndForCreatingAlone) {
    Bench bench({u"error-code:27*3"_s});
    EXPECT_EQ(bench.peer().exchange("T0A"), "t0A");
    EXPECT_EQ(bench.peer().exchange(addMessage("TW-1")), hex("74 31 41 00 1B"));
    EXPECT_EQ(bench.peer().exchange("T1C" + wireName("TW-1")), hex("74 00 02"));
    EXPECT_EQ(bench.peer().exchange("T2B" + wireName("KVTASK") + hex("02 03")), hex("74 32 42 1B"));
    EXPECT_EQ(bench.peer().exchange(addMessage("TW-1")), hex("74 31 41 00 1B"));
    EXPECT_EQ(bench.peer().exchange(addMessage("TW-1")), "t1A");
}

TEST(Faults, AFaultComesOnlyForItsMessageAndOnlySoOften) {
    Faults faults;
    faults.add(u"drop-byte:3@T1D*2"_s);
    faults.add(u"drop-byte:5"_s);
    const auto placeFor = [&](const char* message) {
        const std::optional<Fault> fault = faults.take(FaultKind::DropByte, message);
        return fault ? fault->number : 0;
    };
    EXPECT_EQ(placeFor("T0A"), 5);
    EXPECT_EQ(placeFor("T1D"), 3);
    EXPECT_EQ(placeFor("T1D"), 3);
    EXPECT_EQ(placeFor("T1D"), 5);
    EXPECT_FALSE(faults.take(FaultKind::AddByte, "T1D"));
}

TEST(Faults, AFaultSkipsItsFirstOccasionsWhenConfigured) {
    Faults faults;
    faults.add(u"drop-byte:3@T1D+2*1"_s);
    faults.add(u"silent+1"_s);
    EXPECT_FALSE(faults.take(FaultKind::DropByte, "T1D"));
    EXPECT_FALSE(faults.take(FaultKind::DropByte, "T1A")) << "no occasion of its own";
    EXPECT_FALSE(faults.take(FaultKind::DropByte, "T1D"));
    EXPECT_TRUE(faults.take(FaultKind::DropByte, "T1D"));
    EXPECT_FALSE(faults.take(FaultKind::DropByte, "T1D"));
    EXPECT_FALSE(faults.take(FaultKind::Silent));
    EXPECT_TRUE(faults.take(FaultKind::Silent));
    EXPECT_TRUE(faults.take(FaultKind::Silent));
}

TEST(Faults, WhatIsNoFaultIsRefused) {
    for (const char* const text : {"",
                                   "sulk",
                                   "Silent",
                                   "silent ",
                                   "silent:3",
                                   "silent@T0A",
                                   "drop-byte",
                                   "drop-byte:",
                                   "drop-byte:0",
                                   "drop-byte:x",
                                   "drop-byte:-1",
                                   "drop-byte:3@T9Z",
                                   "drop-byte:3@",
                                   "drop-byte:3*0",
                                   "drop-byte:3*",
                                   "drop-byte:99999999999",
                                   "late",
                                   "late:1h",
                                   "error-code:256",
                                   "reply",
                                   "reply:7",
                                   "wrong-ack:0",
                                   "reply:zz",
                                   "drop-byte:3+0",
                                   "drop-byte:3+",
                                   "drop-byte:3*1+1",
                                   "drop-byte:3*1@T1D"}) {
        Faults faults;
        EXPECT_THROW(faults.add(QString::fromLatin1(text)), Failure) << text;
    }
}

TEST(Faults, EachFaultStandsInTheHelp) {
    const Outcome help = runProgram(u"kelvane-torquestar"_s, {u"--help"_s});
    EXPECT_EQ(help.code, 0);
    EXPECT_TRUE(help.output.contains(faultHelp()));
    EXPECT_EQ(faultHelp().count(u'\n'), static_cast<int>(FaultKind::VanishAfter) + 1);
}

} // namespace kelvane::simulators
