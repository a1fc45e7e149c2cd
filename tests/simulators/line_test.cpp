#include "simulators/common/text_bytes.h"
#include "simulators/torquestar/line.h"
#include "tests/simulators/message_bytes.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

struct FrameCase {
    const char* reply;
    const char* onTheLine;
};

FrameReader::Received feed(FrameReader& reader, const QByteArray& bytes) {
    FrameReader::Received received = FrameReader::Received::More;
    for (const char byte : bytes)
        received = reader.take(byte);
    return received;
}

} // namespace

TEST(SimulatedLine, FramesAReplyWithDoubledDleAndCheckBytes) {
    const FrameCase cases[] = {
        {"54 30 41", "54 30 41 10 03 67 BF"},                // odd: the last byte counts as a high byte
        {"74 30 41", "74 30 41 10 03 47 BF"},                //
        {"74 30 41 00", "74 30 41 00 10 03 3A CC"},          // even
        {"74 10", "74 10 10 10 03 78 DF"},                   // a DLE at the end
        {"10", "10 10 10 03 DF EC"},                         // nothing else
        {"", "10 03 EF FC"},                                 //
        {"FF FF FF FF 10", "FF FF FF FF 10 10 10 03 DF EC"}, // a sum that carries over
    };
    for (const FrameCase& entry : cases)
        EXPECT_EQ(frame(hex(entry.reply)).toHex(' '), QByteArray(entry.onTheLine).toLower()) << entry.reply;
}

TEST(SimulatedLine, ReadsAMessageAndTakesDoubledDleForOne) {
    for (const char* const body : {"543041", "5410", "101010", "541041", "", "5410034210"}) {
        FrameReader reader;
        EXPECT_EQ(feed(reader, frame(hex(body))), FrameReader::Received::Message) << body;
        EXPECT_EQ(reader.message(), hex(body)) << body;
    }
}

TEST(SimulatedLine, RefusesAFrameWithAnyOneByteChanged) {
    const QByteArray good = hex("54 30 41 10 03 67 BF");
    for (const qsizetype place : {0, 1, 2, 5, 6}) {
        QByteArray bad = good;
        bad[place] = static_cast<char>(bad[place] ^ 0x20);
        FrameReader reader;
        EXPECT_EQ(feed(reader, bad), FrameReader::Received::Refused) << place;
        EXPECT_EQ(reader.receivedFrame(), bad) << place;
    }
}

TEST(SimulatedLine, AByteLostOrAddedAtAnyPlaceNeverMakesTheMessage) {
    const QByteArray whole = frame(addMessage("TW-1"));
    for (qsizetype place = 0; place < whole.size(); ++place) {
        for (const QByteArray& broken :
             {QByteArray(whole).remove(place, 1), QByteArray(whole).insert(place, 'U')}) {
            FrameReader reader;
            for (const char byte : broken + linkStart())
                EXPECT_NE(reader.take(byte), FrameReader::Received::Message) << place;
        }
    }
}

TEST(SimulatedLine, RefusesAFrameWithASingleDle) {
    FrameReader reader;
    const QByteArray checked = hex("54 10 41 10 03");
    EXPECT_EQ(feed(reader, checked + checkBytes(checked)), FrameReader::Received::Refused);
}

TEST(SimulatedLine, ALinkStartInsideAFrameBeginsAnew) {
    FrameReader reader;
    EXPECT_EQ(feed(reader, hex("54 30 10 04 02")), FrameReader::Received::LinkStart);
    EXPECT_EQ(feed(reader, hex("54 30 41 10 03 67 BF")), FrameReader::Received::Message);
    EXPECT_EQ(reader.message(), "T0A");
}

TEST(SimulatedLine, ADoubledDleBeforeEotAndStxIsNoLinkStart) {
    FrameReader reader;
    EXPECT_EQ(feed(reader, hex("54 10 10 04 02")), FrameReader::Received::More);
}

TEST(SimulatedLine, DleEotWithoutStxIsNoLinkStartButSpoilsTheFrame) {
    FrameReader reader;
    const QByteArray checked = hex("54 10 04 41 10 03");
    EXPECT_EQ(feed(reader, checked + checkBytes(checked)), FrameReader::Received::Refused);
}

TEST(SimulatedLine, AFrameWithoutEndIsRefusedWhenItEndsAfterAll) {
    FrameReader reader;
    EXPECT_EQ(feed(reader, QByteArray(1'000'000, 'A')), FrameReader::Received::More);
    EXPECT_EQ(feed(reader, hex("10 03 00 00")), FrameReader::Received::Refused);
    EXPECT_LT(reader.receivedFrame().size(), 5000);
}

TEST(SimulatedLine, TextsAreWindows1252) {
    EXPECT_EQ(toBytes(u"Ärger 5 €, “ok” – Ω🔧"_s), hex("C472676572203520802C20936F6B942096203F3F"));
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    EXPECT_EQ(toBytes(fromBytes(all)), all);
}

} // namespace kelvane::simulators
