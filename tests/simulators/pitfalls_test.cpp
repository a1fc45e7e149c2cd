#include "simulators/torquestar/line.h"
#include "simulators/torquestar/messages.h"
#include "simulators/torquestar/pitfalls.h"

#include <gtest/gtest.h>

namespace kelvane::simulators {

TEST(Pitfalls, AByteFrom0ATo0FLosesItsZeroOnlyBehindOtherDigits) {
    const struct {
        qint32 number;
        bool loses;
    } cases[] = {
        {0, false},          {0x0A, false},       {0x0F4240, false},  {0x0F0A40, true},
        {0x030D40, true},    {0x3000000A, true},  {0x3000000F, true}, {0x30000009, false},
        {0x30000010, false}, {0x0A000000, false}, {0x0A0A0000, true}, {-1, false},
    };
    for (const auto& entry : cases)
        EXPECT_EQ(losesDigit(entry.number), entry.loses) << std::hex << entry.number;
}

TEST(Pitfalls, AReplyThatEndsInStxIsFoundByItsCheckBytes) {
    int found = 0;
    for (qint32 sample = 0; sample < 1'000'000; sample += 997) {
        const QByteArray reply = resultReply({20261120, 91500, {sample}});
        EXPECT_EQ(endsInAnnouncement(reply), frame(reply).back() == 0x02);
        found += endsInAnnouncement(reply) ? 1 : 0;
    }
    EXPECT_GT(found, 0);
}

TEST(Pitfalls, TheSerialNumberOfTheDemonstrationHasNone) {
    EXPECT_TRUE(pitfallsOfSerial(48213).isEmpty());
    EXPECT_FALSE(pitfallsOfSerial(0x010A01).isEmpty());
}

} // namespace kelvane::simulators
