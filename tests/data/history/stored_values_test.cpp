#include "data/history/stored_values.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(StoredValues, MomentsAreReadAsServersWriteThem) {
    EXPECT_EQ(storedMomentOf(u"2026-03-18"_s).moment.date, QDate(2026, 3, 18));
    EXPECT_EQ(storedMomentOf(u"2026-03-18 09:30:05.123"_s).moment,
              (Moment{QDate(2026, 3, 18), QTime(9, 30, 5)}));
    EXPECT_EQ(storedMomentOf(u"09:30:05"_s).moment, (Moment{{}, QTime(9, 30, 5)}));
    EXPECT_FALSE(storedMomentOf(u"09:30:05"_s).hasDate());
    EXPECT_TRUE(storedMomentOf({}).moment.isEmpty());
}

TEST(StoredValues, WhatIsNoMomentKeepsItsText) {
    for (const auto& text : {u"never"_s, u"2026-02-30"_s, u"0000-00-00"_s, u"12"_s}) {
        const auto stored = storedMomentOf(text);
        EXPECT_TRUE(stored.moment.isEmpty()) << text.toStdString();
        EXPECT_EQ(dateText(stored), text);
        EXPECT_EQ(timeText(stored), text);
    }
}

TEST(StoredValues, AreShownInOneForm) {
    EXPECT_EQ(dateText(storedMomentOf(u"2026-03-18 09:30:00"_s)), u"2026-03-18"_s);
    EXPECT_EQ(timeText(storedMomentOf(u"09:30:00.5"_s)), u"09:30:00"_s);
    EXPECT_EQ(dateText({}) + timeText({}), QString());
}

TEST(StoredValues, LoseTheBlanksOfAFixedWidth) {
    EXPECT_EQ(storedText(u" PT 101   "_s), u" PT 101"_s);
    EXPECT_EQ(storedText(u"  "_s), QString());
    EXPECT_EQ(storedText({}), QString());
}

} // namespace kelvane::testing
