#include "simulators/torquestar/faults.h"
#include "tests/end_to_end/torque_end_to_end.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// How an exchange with a fault in it ends.
enum class End {
    well,
    noLink,
    timeOut,
    noResponse,
};

struct Misbehaviour {
    const char* name;
    /// Of the simulator; "%" stands for the place where it strikes.
    const char* fault;
    /// At the second tool's characteristic of a download, and at the second tool's first result of an upload.
    End download;
    End upload;

    friend void PrintTo(const Misbehaviour& misbehaviour, std::ostream* out) { *out << misbehaviour.fault; }
};

// A fault before the message is known strikes at a link start, any other at the message. Four link starts go
// out before the operator is asked.
const Misbehaviour misbehaviours[] = {
    {"OneLinkStartUnanswered", "silent%*1", End::well, End::well},
    {"Silence", "silent%*4", End::noLink, End::noLink},
    {"TwoLinkStartsAnsweredWrongly", "wrong-link-ack:55%*2", End::well, End::well},
    {"AllLinkStartsAnsweredWrongly", "wrong-link-ack%*4", End::noLink, End::noLink},
    {"LinkStartAnsweredLate", "late-link-ack:60%*1", End::well, End::well},
    {"OneLinkStartAnsweredTooLate", "late-link-ack:60000%*1", End::well, End::well},
    {"AllLinkStartsAnsweredTooLate", "late-link-ack:60000%*4", End::noLink, End::noLink},
    {"LinkStartsAnsweredByNoise", "link-noise%*4", End::noLink, End::noLink},
    {"NoFrameAcknowledge", "no-frame-ack%*1", End::timeOut, End::timeOut},
    {"OneWrongFrameAcknowledge", "wrong-ack%*1", End::well, End::well},
    {"AFrameAcknowledgedByTheOtherCharacter", "wrong-ack:06%*1", End::well, End::well},
    {"WrongFrameAcknowledges", "wrong-ack%*3", End::noLink, End::noLink},
    {"FrameAcknowledgedLate", "late-frame-ack:60%*1", End::well, End::well},
    {"FrameAcknowledgedTooLate", "late-frame-ack:60000%*1", End::timeOut, End::timeOut},
    {"NoAnnouncement", "no-announcement%*1", End::noResponse, End::noResponse},
    {"WrongAnnouncement", "wrong-announcement%*1", End::noResponse, End::noResponse},
    {"ReplyAnnouncedLate", "late-announcement:60%*1", End::well, End::well},
    {"ReplyAnnouncedTooLate", "late-announcement:60000%*1", End::noResponse, End::noResponse},
    {"NoReply", "no-reply%*1", End::timeOut, End::timeOut},
    {"LateReply", "late:60%*1", End::well, End::well},
    {"ReplyTooLate", "late:60000%*1", End::timeOut, End::timeOut},
    {"BadChecksum", "bad-checksum%*1", End::noResponse, End::noResponse},
    // The answer to a new characteristic is of the shortest length: with a byte less it never completes.
    {"LostByte", "drop-byte:3%*1", End::timeOut, End::noResponse},
    {"AddedByte", "add-byte:3%*1", End::noResponse, End::noResponse},
    {"FlippedBit", "flip-byte:3%*1", End::noResponse, End::noResponse},
    {"ReplyInTwoPieces", "split:2%*1", End::well, End::well},
    {"NoiseWithoutEnd", "noise%*1", End::timeOut, End::timeOut},
    {"ReplyStartedOver", "start-over%*1", End::well, End::well},
    {"VanishedCalibrator", "vanish-after:2%*1", End::timeOut, End::timeOut},
};

} // namespace

class EndToEndWithAFault : public TorqueEndToEnd, public ::testing::WithParamInterface<Misbehaviour> {
  protected:
    EndToEndWithAFault() {
        list(u"TW-101"_s);
        list(u"TW-102"_s);
    }

    /// Where a fault strikes: the exchange's number, and its number among those with the same message.
    struct Place {
        int exchange;
        QString message;
        int ofItsKind;
    };

    /// Switches the calibrator on with the fault in that place.
    void injectFaultAt(const Place& place) {
        auto fault = QString::fromLatin1(GetParam().fault);
        const bool linkStart = fault.startsWith(u"silent"_s) || fault.contains(u"link"_s);
        const auto where = linkStart ? u"+%1"_s.arg(place.exchange - 1)
                                     : u"@%1+%2"_s.arg(place.message).arg(place.ofItsKind - 1);
        if (fault.startsWith(u"noise"_s)) {
            clock.patience = -1;
            clock.haste = 20;
        }
        if (fault.startsWith(u"split"_s))
            clock.patience = 2000;
        switchOn({fault.replace(u'%', where)});
    }
    void behave() {
        // Nothing has to run out any more: a busy machine gets its time.
        clock.patience = 2000;
        clock.haste = LineClock().haste;
        switchOn();
    }

    static QString wordsOf(End end, const QString& success) {
        switch (end) {
        case End::noLink:
            return messages::noLink();
        case End::timeOut:
            return messages::timeOut();
        case End::noResponse:
            return messages::noResponse();
        case End::well:
            break;
        }
        return success;
    }

    const QStringList both{u"TW-101"_s, u"TW-102"_s};
    const QStringList first{u"TW-101"_s};
    const QStringList second{u"TW-102"_s};
};

TEST_P(EndToEndWithAFault, DownloadReportsItRegistersWhatWasTakenAndSucceedsTheNextTime) {
    const auto end = GetParam().download;
    // T0A T0D T2F T2B, and T1C T1A for each tool.
    injectFaultAt({.exchange = 8, .message = u"T1A"_s, .ofItsKind = 2});
    if (end == End::noLink)
        expectNoLink();
    download(wordsOf(end, messages::downloaded()));
    const bool done = end == End::well;
    EXPECT_EQ(registered(), done ? both : first);
    EXPECT_EQ(standardsInUse(u"TW-102"_s),
              done ? (QStringList{u"TS-0001"_s, u"TT-0150F"_s}) : QStringList{u"TT-0150F"_s})
        << "the standard that was named stays";
    EXPECT_EQ(held().rounds.size(), done ? 1U : 0U);
    EXPECT_EQ(screen.list, both) << "the list stays for another try";
    EXPECT_EQ(rows(u"select count(*) from mt.hvm_kv_task_packages where tptype = 'WSHT'"_s),
              QStringList{done ? u"1"_s : u"2"_s})
        << "the package of a download that failed stays";

    behave();
    download();
    EXPECT_EQ(registered(), both);
    EXPECT_EQ(storedNames(), both);
    carryOut(both);
    upload(both);
    expectWhole(both);
    EXPECT_EQ(held(), simulators::Memory());
}

TEST_P(EndToEndWithAFault, UploadReportsItKeepsWhatIsOpenAndCompletesTheNextTime) {
    const auto end = GetParam().upload;
    download();
    carryOut(both);
    const auto before = held();
    // T0A T0D; for the first tool T1C, three times T1C T1D, T1F, T1C T1J; for the second one T1C T1C T1D.
    injectFaultAt({.exchange = 15, .message = u"T1D"_s, .ofItsKind = 4});
    const bool done = end == End::well;
    expectChoice();
    expectRecord(u"TW-101"_s);
    if (done)
        expectRecord(u"TW-102"_s);
    if (end == End::noLink)
        expectNoLink();
    pressUpload(wordsOf(end, messages::uploaded()));
    expectWhole(done ? both : first);
    if (!done) {
        EXPECT_EQ(records(u"TW-102"_s), QStringList());
        EXPECT_EQ(storedNames(), second);
        EXPECT_EQ(held().characteristics[0], before.characteristics[1]) << "its data is kept";
        EXPECT_EQ(held().rounds.size(), 1U);
        EXPECT_EQ(registered(), both) << "the registry stays whole";
    }

    behave();
    upload(done ? QStringList() : second, done ? messages::uploaded() : messages::noData(first));
    expectWhole(both);
    EXPECT_EQ(held(), simulators::Memory());
    EXPECT_EQ(registered(), QStringList());
    upload({});
    expectWhole(both);
}

TEST(LinkFaults, EachKindThatTheSimulatorKnowsIsTested) {
    // What a new characteristic or a round is refused with, and a reply of other words, are tried for
    // themselves.
    QStringList tried{u"error-code"_s, u"reply"_s};
    for (const auto& misbehaviour : misbehaviours)
        tried << QString::fromLatin1(misbehaviour.fault).section(u'%', 0, 0).section(u':', 0, 0);
    for (const auto& line : simulators::faultHelp().split(u'\n', Qt::SkipEmptyParts)) {
        const auto kind = line.trimmed().section(u' ', 0, 0).section(u':', 0, 0).section(u'[', 0, 0);
        EXPECT_TRUE(tried.contains(kind)) << kind.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Each, EndToEndWithAFault, ::testing::ValuesIn(misbehaviours),
                         [](const auto& tested) { return tested.param.name; });

} // namespace kelvane::testing
