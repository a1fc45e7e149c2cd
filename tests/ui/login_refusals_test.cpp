#include "ui/login_refusals.h"

#include "testkit/fixtures.h"

namespace kelvane::testing {

/// Under a clock of which a second passes with each reading.
class RefusalsInARow : public RecordedSession {
  protected:
    qint64 secondsOfWait() {
        clock.tick = 0;
        const auto before = clock.now();
        clock.tick = 1;
        refusals.addAndWait(session);
        clock.tick = 0;
        return before.secsTo(clock.now());
    }

    LoginRefusals refusals;
};

TEST_F(RefusalsInARow, WaitLongerEachTimeAndTheWindowLives) {
    EXPECT_EQ(secondsOfWait(), 0);
    EXPECT_EQ(ui.events, QStringList());
    // One reading of the clock is that of the wait's start.
    EXPECT_EQ(secondsOfWait(), 1 + 1);
    EXPECT_EQ(secondsOfWait(), 1 + 2);
    EXPECT_EQ(secondsOfWait(), 1 + 4);
    EXPECT_TRUE(ui.events.contains(QStringLiteral("events")));
}

TEST_F(RefusalsInARow, BeginAnewBehindAnOpening) {
    secondsOfWait();
    secondsOfWait();
    refusals.forget();
    EXPECT_EQ(secondsOfWait(), 0);
    EXPECT_EQ(secondsOfWait(), 1 + 1);
}

} // namespace kelvane::testing
