#include "platform/clock.h"
#include "testkit/fixtures.h"
#include "tests/platform/values/moment_at.h"

namespace kelvane {

using testing::at;

TEST(Clock, GivesLocalTimeInWholeSeconds) {
    const auto before = QDateTime::currentDateTime();
    const auto now = SystemClock().now();
    const auto after = QDateTime::currentDateTime();
    EXPECT_EQ(now.timeSpec(), Qt::LocalTime);
    EXPECT_EQ(now.time().msec(), 0);
    EXPECT_GE(now.secsTo(after), 0);
    EXPECT_GT(now.msecsTo(before), -1000);
    EXPECT_LE(before.msecsTo(now), after.msecsTo(before) + 1000);
}

TEST(Clock, GivesTheSameAsAMoment) {
    testing::SetClock clock;
    clock.set(2026, 11, 21, 8, 7, 6);
    EXPECT_EQ(clock.moment(), at(2026, 11, 21, 8, 7, 6));
}

} // namespace kelvane
