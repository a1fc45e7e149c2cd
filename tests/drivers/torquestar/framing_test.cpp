#include "drivers/torquestar/framing.h"
#include "platform/error.h"
#include "testkit/line_peer.h"

#include <gtest/gtest.h>

namespace kelvane::testing {

using namespace ModuleTSInterface;

namespace {

std::string displayText(const QByteArray& bytes) {
    return bytes.toHex(' ').toStdString();
}

/// What stands before the checksum.
std::string bodyWithoutCheck(const QByteArray& body) {
    return displayText(PreProcessMessage(body).chopped(2));
}

const QByteArray goodChecksum(2, '\0');

} // namespace

TEST(Framing, LinkTestGoesOnTheLineAsItsKnownBytes) {
    EXPECT_EQ(displayText(PreProcessMessage("T0A")), "54 30 41 10 03 67 bf");
}

TEST(Framing, ADleGoesOutDoubledExceptThatTheCharacterAfterADleNextToTheEndIsLost) {
    const struct {
        const char* body;
        const char* frame;
    } cases[] = {
        {"", "10 03"},
        {"41 42", "41 42 10 03"},
        {"10", "10 10 10 03"},
        {"41 10", "41 10 10 10 03"},
        {"10 41", "10 10 10 03"},
        {"41 10 42", "41 10 10 10 03"},
        {"41 10 42 43", "41 10 10 42 43 10 03"},
        {"10 41 42", "10 10 41 42 10 03"},
        {"10 10", "10 10 10 10 10 03"},
        {"10 10 41", "10 10 10 10 10 03"},
        {"10 41 10", "10 10 41 10 10 10 03"},
        {"10 41 42 10 43", "10 10 41 42 10 10 10 03"},
        {"41 10 10 42 43", "41 10 10 10 10 42 43 10 03"},
        {"00 10 03 ff ff", "00 10 10 03 ff ff 10 03"},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(bodyWithoutCheck(hex(testCase.body)), testCase.frame) << testCase.body;
}

TEST(Framing, ARoundOfSixteenCharacteristicsLosesItsSampleMode) {
    const QByteArray name = "T2BKVTASK=PC\xFF";
    EXPECT_EQ(PreProcessMessage(name + "\x10\x03").chopped(2), name + "\x10\x10\x10\x03");
    EXPECT_EQ(PreProcessMessage(name + "\x11\x03").chopped(2), name + "\x11\x03\x10\x03");
}

TEST(Framing, ChecksumIsTheInvertedSumOfTheWordsAndALeftOverCharacterIsAHighByte) {
    const struct {
        const char* data;
        const char* checksum;
    } cases[] = {
        {"", "ff ff"},
        {"00 00", "ff ff"},
        {"00 01", "ff fe"},
        {"01", "fe ff"},
        {"ff ff", "00 00"},
        {"ff ff 00 01", "ff fe"}, // the carry comes back in
        {"ff ff ff ff", "00 00"},
        {"80 00 80 00", "ff fe"},
        {"ff", "00 ff"},
        {"54 30 41 10 03", "67 bf"},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(displayText(TXChecksum(hex(testCase.data))), testCase.checksum) << testCase.data;
}

TEST(Framing, ChecksumCoversTheDoubledForm) {
    const auto frame = PreProcessMessage(hex("41 10 42 43"));
    EXPECT_EQ(displayText(frame.last(2)), displayText(TXChecksum(hex("41 10 10 42 43 10 03"))));
}

TEST(Framing, AFrameChecksGoodAtEveryLengthAndFoldsOften) {
    for (int length = 0; length < 600; ++length) {
        const auto frame = PreProcessMessage(QByteArray(length, '\xFE'));
        EXPECT_EQ(CheckSum16(frame), goodChecksum) << length;
        EXPECT_EQ(frame, makeFrame(QByteArray(length, '\xFE'))) << length;
    }
}

TEST(Framing, AChangedByteNeverChecksGood) {
    for (const auto& body : {QByteArray("t0A"), QByteArray("t1Dx\x10y")}) {
        const auto frame = PreProcessMessage(body);
        for (qsizetype i = 0; i < frame.size(); ++i) {
            for (int change = 1; change < 256; ++change) {
                auto changed = frame;
                changed[i] = static_cast<char>(changed[i] ^ change);
                EXPECT_NE(CheckSum16(changed), goodChecksum) << i << " " << change;
            }
        }
    }
}

TEST(Framing, TheCheckLeavesTheCallersFrameAsItWas) {
    const auto frame = PreProcessMessage("T0A");
    const auto before = frame;
    CheckSum16(frame);
    EXPECT_EQ(frame, before);
}

TEST(Framing, TooMuchForASixteenBitLengthIsAnOverflow) {
    EXPECT_NO_THROW(TXChecksum(QByteArray(32767, '\xFF')));
    for (const auto& check : {TXChecksum, CheckSum16}) {
        try {
            check(QByteArray(32768, '\xFF'));
            ADD_FAILURE();
        } catch (const Error& error) {
            EXPECT_EQ(error.number, 6);
        }
    }
}

} // namespace kelvane::testing
