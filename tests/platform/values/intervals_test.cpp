#include "testkit/fixtures.h"
#include "tests/platform/errors.h"
#include "tests/platform/values/moment_at.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::at;
using testing::errorOf;

TEST(AddInterval, AddsEveryUnitInAnyCase) {
    const auto start = at(2026, 3, 18, 9, 30, 15);
    static const struct {
        QString unit;
        double count;
        Moment moment;
    } rows[] = {
        {u"yyyy"_s, 1, at(2027, 3, 18, 9, 30, 15)},    {u"q"_s, 1, at(2026, 6, 18, 9, 30, 15)},
        {u"m"_s, 1, at(2026, 4, 18, 9, 30, 15)},       {u"y"_s, 1, at(2026, 3, 19, 9, 30, 15)},
        {u"d"_s, 1, at(2026, 3, 19, 9, 30, 15)},       {u"w"_s, 1, at(2026, 3, 19, 9, 30, 15)},
        {u"ww"_s, 1, at(2026, 3, 25, 9, 30, 15)},      {u"h"_s, 1, at(2026, 3, 18, 10, 30, 15)},
        {u"n"_s, 1, at(2026, 3, 18, 9, 31, 15)},       {u"s"_s, 1, at(2026, 3, 18, 9, 30, 16)},
        {u"YYYY"_s, -1, at(2025, 3, 18, 9, 30, 15)},   {u"Q"_s, -1, at(2025, 12, 18, 9, 30, 15)},
        {u"M"_s, -3, at(2025, 12, 18, 9, 30, 15)},     {u"D"_s, -18, at(2026, 2, 28, 9, 30, 15)},
        {u"Ww"_s, -1, at(2026, 3, 11, 9, 30, 15)},     {u"H"_s, 15, at(2026, 3, 19, 0, 30, 15)},
        {u"H"_s, -10, at(2026, 3, 17, 23, 30, 15)},    {u"N"_s, -571, at(2026, 3, 17, 23, 59, 15)},
        {u"S"_s, 86400, at(2026, 3, 19, 9, 30, 15)},   {u"s"_s, -34215, at(2026, 3, 18)},
        {u"s"_s, -34216, at(2026, 3, 17, 23, 59, 59)}, {u"m"_s, 0, start},
    };
    for (const auto& row : rows)
        EXPECT_EQ(addInterval(row.unit, row.count, start), row.moment)
            << row.unit.toStdString() << ' ' << row.count;
}

TEST(AddInterval, TakesTheLastDayOfAShorterMonth) {
    static const struct {
        QString unit;
        double count;
        Moment from;
        Moment to;
    } rows[] = {
        {u"m"_s, 1, at(2026, 1, 31), at(2026, 2, 28)},       {u"m"_s, 1, at(2024, 1, 31), at(2024, 2, 29)},
        {u"m"_s, 1, at(2026, 3, 31), at(2026, 4, 30)},       {u"m"_s, -1, at(2026, 3, 31), at(2026, 2, 28)},
        {u"m"_s, 1, at(2026, 2, 28), at(2026, 3, 28)},       {u"q"_s, 1, at(2025, 11, 30), at(2026, 2, 28)},
        {u"yyyy"_s, 1, at(2024, 2, 29), at(2025, 2, 28)},    {u"yyyy"_s, 4, at(2024, 2, 29), at(2028, 2, 29)},
        {u"yyyy"_s, -124, at(2024, 2, 29), at(1900, 2, 28)}, {u"m"_s, 12, at(2026, 12, 31), at(2027, 12, 31)},
        {u"d"_s, 1, at(2024, 2, 28), at(2024, 2, 29)},       {u"d"_s, 1, at(2026, 12, 31), at(2027, 1, 1)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(addInterval(row.unit, row.count, row.from), row.to)
            << row.unit.toStdString() << ' ' << row.count;
}

TEST(AddInterval, CutsTheCountToAWholeNumberFirst) {
    const auto start = at(2026, 3, 18);
    EXPECT_EQ(addInterval(u"m"_s, 1.999, start), at(2026, 4, 18));
    EXPECT_EQ(addInterval(u"m"_s, -1.999, start), at(2026, 2, 18));
    EXPECT_EQ(addInterval(u"yyyy"_s, 0.5, start), start);
    EXPECT_EQ(addInterval(u"yyyy"_s, -0.5, start), start);
}

TEST(AddInterval, OfADateAloneCountsFromMidnight) {
    EXPECT_EQ(addInterval(u"n"_s, 1, {QDate(2026, 3, 18), {}}), at(2026, 3, 18, 0, 1));
    EXPECT_EQ(addInterval(u"d"_s, 1, {QDate(2026, 3, 18), {}}), at(2026, 3, 19));
}

TEST(AddInterval, PassesOverTheChangeToSummerTime) {
    EXPECT_EQ(addInterval(u"h"_s, 1, at(2026, 3, 29, 1, 30)), at(2026, 3, 29, 2, 30));
    EXPECT_EQ(addInterval(u"h"_s, 24, at(2026, 10, 24, 12)), at(2026, 10, 25, 12));
}

TEST(AddInterval, OfAnyOtherUnitIsError5) {
    for (const auto& unit : {u""_s, u"x"_s, u"yy"_s, u"yyy"_s, u"mm"_s, u"day"_s, u" d"_s, u"www"_s})
        EXPECT_EQ(errorOf([&] { addInterval(unit, 1, at(2026, 3, 18)); }), 5) << unit.toStdString();
}

TEST(AddInterval, OutsideTheCalendarIsError6) {
    EXPECT_EQ(addInterval(u"d"_s, 1, at(9999, 12, 30)), at(9999, 12, 31));
    EXPECT_EQ(addInterval(u"s"_s, -1, at(100, 1, 2)), at(100, 1, 1, 23, 59, 59));
    EXPECT_EQ(errorOf([] { addInterval(u"d"_s, 1, at(9999, 12, 31)); }), 6);
    EXPECT_EQ(errorOf([] { addInterval(u"s"_s, 1, at(9999, 12, 31, 23, 59, 59)); }), 6);
    EXPECT_EQ(errorOf([] { addInterval(u"s"_s, -1, at(100, 1, 1)); }), 6);
    EXPECT_EQ(errorOf([] { addInterval(u"m"_s, -1, at(100, 1, 31)); }), 6);
    EXPECT_EQ(errorOf([] { addInterval(u"yyyy"_s, 7974, at(2026, 3, 18)); }), 6);
    EXPECT_EQ(errorOf([] { addInterval(u"yyyy"_s, -2147483647, at(2026, 3, 18)); }), 6);
    EXPECT_EQ(errorOf([] { addInterval(u"ww"_s, 2147483647, at(2026, 3, 18)); }), 6);
}

TEST(AddInterval, ToNoDateIsError5) {
    EXPECT_EQ(errorOf([] { addInterval(u"d"_s, 1, Moment{}); }), 5);
    EXPECT_EQ(errorOf([] { addInterval(u"h"_s, 1, Moment{{}, QTime(9, 30)}); }), 5);
}

TEST(AddInterval, ByACountTooLargeIsError6) {
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    constexpr auto notANumber = std::numeric_limits<double>::quiet_NaN();
    for (const double count : {2147483648.0, -2147483649.0, 1E300, infinity, -infinity, notANumber})
        EXPECT_EQ(errorOf([=] { addInterval(u"s"_s, count, at(2026, 3, 18)); }), 6) << count;
    EXPECT_EQ(addInterval(u"s"_s, 2147483647, at(2026, 3, 18)), at(2094, 4, 5, 3, 14, 7));
    EXPECT_EQ(addInterval(u"s"_s, -2147483648.0, at(2026, 3, 18)), at(1958, 2, 27, 20, 45, 52));
}

TEST(MinutesBetween, CountTheChangesOfTheMinute) {
    static const struct {
        Moment from;
        Moment to;
        qint64 minutes;
    } rows[] = {
        {at(2026, 3, 18, 9, 30), at(2026, 3, 18, 9, 30), 0},
        {at(2026, 3, 18, 9, 30, 0), at(2026, 3, 18, 9, 30, 59), 0},
        {at(2026, 3, 18, 9, 30, 59), at(2026, 3, 18, 9, 31, 0), 1},
        {at(2026, 3, 18, 9, 31, 0), at(2026, 3, 18, 9, 30, 59), -1},
        {at(2026, 3, 18, 23, 59, 59), at(2026, 3, 19, 0, 0, 0), 1},
        {at(2026, 3, 18), at(2026, 3, 19), 1440},
        {at(2024, 2, 28, 12), at(2024, 3, 1, 11), 2820},
        {at(2026, 3, 18, 9, 30), {QDate(2026, 3, 18), {}}, -570},
    };
    for (const auto& row : rows)
        EXPECT_EQ(minutesBetween(row.from, row.to), row.minutes);
}

} // namespace kelvane
