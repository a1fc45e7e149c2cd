#include "plots/plot_ticks.h"

#include "testkit/fixtures.h"
#include "tests/plots/made_up_plots.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

QString labels(const QList<PlotTick>& ticks) {
    QStringList all;
    for (const auto& tick : ticks)
        all << tick.label;
    return all.join(u' ');
}

QString numbers(double least, double most, int count) {
    return labels(numberTicks({least, most}, count));
}

QString days(double least, double most, int count) {
    return labels(dayTicks({least, most}, count));
}

} // namespace

TEST(PlotTicks, OfNumbersStepByOneTwoOrFive) {
    EXPECT_EQ(numbers(0, 10, 11), u"0 1 2 3 4 5 6 7 8 9 10"_s);
    EXPECT_EQ(numbers(0, 10, 10), u"0 2 4 6 8 10"_s);
    EXPECT_EQ(numbers(0, 10, 5), u"0 5 10"_s);
    EXPECT_EQ(numbers(0, 10, 2), u"0 10"_s);
    EXPECT_EQ(numbers(-110, 120, 6), u"-100 -50 0 50 100"_s);
    EXPECT_EQ(numbers(3, 17, 4), u"5 10 15"_s);
}

TEST(PlotTicks, OfFractionsHaveTheDecimalsOfTheirStep) {
    EXPECT_EQ(numbers(0, 1, 6), u"0.0 0.2 0.4 0.6 0.8 1.0"_s);
    EXPECT_EQ(numbers(-0.3, 0.3, 7), u"-0.3 -0.2 -0.1 0.0 0.1 0.2 0.3"_s);
    EXPECT_EQ(numbers(99.98, 100.02, 5), u"99.98 99.99 100.00 100.01 100.02"_s);
}

TEST(PlotTicks, OfHugeAndTinyNumbersHaveAnExponent) {
    EXPECT_EQ(numbers(0, 2.5e20, 6), u"0 5.0E+19 1.0E+20 1.5E+20 2.0E+20 2.5E+20"_s);
    EXPECT_EQ(numbers(0, 3e-9, 4), u"0 1E-09 2E-09 3E-09"_s);
    EXPECT_EQ(numbers(-1e300, 1e300, 3), u"-1E+300 0 1E+300"_s);
    EXPECT_EQ(numbers(1e-300, 4e-300, 4), u"1E-300 2E-300 3E-300 4E-300"_s);
    EXPECT_EQ(numbers(0, 20000000, 3), u"0 10000000 20000000"_s);
}

TEST(PlotTicks, OfAlmostEqualNumbersCanBeToldApart) {
    EXPECT_EQ(numbers(100000000, 100000010, 3), u"100000000 100000005 100000010"_s);
    EXPECT_EQ(numbers(1000000, 1000000.02, 3), u"1000000.00 1000000.01 1000000.02"_s);
}

TEST(PlotTicks, AreNeverMoreThanAskedForAndLieInTheirRange) {
    for (const double size : {1e-250, 0.001, 0.7, 1.0, 3.3, 42.0, 99999.0, 1e250}) {
        for (const double first : {-3.7, -1.0, -0.5, 0.0, 0.1, 12.0}) {
            const PlotRange range{first * size, (first + 1) * size};
            for (int most = 1; most <= 40; ++most) {
                const auto ticks = numberTicks(range, most);
                ASSERT_LE(ticks.size(), most);
                ASSERT_GE(ticks.size(), most / 3) << size << ' ' << first << ' ' << most;
                for (qsizetype index = 0; index < ticks.size(); ++index) {
                    ASSERT_GE(ticks[index].value, range.least - size * 1e-6);
                    ASSERT_LE(ticks[index].value, range.most + size * 1e-6);
                    ASSERT_TRUE(index == 0 || ticks[index].value > ticks[index - 1].value);
                }
            }
        }
    }
}

TEST(PlotTicks, OfDaysAreAsExactAsTheirStep) {
    const auto first = dayOf(2026, 3, 18);
    EXPECT_EQ(days(first, first + 3, 4), u"2026-03-18 2026-03-19 2026-03-20 2026-03-21"_s);
    EXPECT_EQ(days(dayOf(2026, 1, 15), dayOf(2026, 6, 2), 6), u"2026-02 2026-03 2026-04 2026-05 2026-06"_s);
    EXPECT_EQ(days(dayOf(2025, 11, 2), dayOf(2026, 12, 2), 5), u"2026-01 2026-04 2026-07 2026-10"_s);
    EXPECT_EQ(days(dayOf(2021, 2, 11), dayOf(2027, 9, 1), 6), u"2022 2023 2024 2025 2026 2027"_s);
    EXPECT_EQ(days(dayOf(2021, 2, 11), dayOf(2027, 9, 1), 5), u"2022 2024 2026"_s);
    EXPECT_EQ(days(dayOf(1850, 1, 1), dayOf(2026, 1, 1), 5), u"1850 1900 1950 2000"_s);
}

TEST(PlotTicks, OfWeeksAreMondays) {
    const auto ticks = dayTicks({dayOf(2026, 3, 1), dayOf(2026, 3, 31)}, 6);
    EXPECT_EQ(labels(ticks), u"2026-03-02 2026-03-09 2026-03-16 2026-03-23 2026-03-30"_s);
}

TEST(PlotTicks, OfDaysAreNeverMoreThanAskedFor) {
    for (double size = 2; size < 3600000; size *= 1.7) {
        for (int most = 1; most <= 20; ++most) {
            const PlotRange range{dayOf(128, 2, 29), dayOf(128, 2, 29) + size};
            const auto ticks = dayTicks(range, most);
            ASSERT_LE(ticks.size(), most);
            for (const auto& tick : ticks) {
                ASSERT_GE(tick.value, range.least);
                ASSERT_LE(tick.value, range.most);
            }
        }
    }
}

TEST(PlotTicks, OfDaysBeyondTheCalendarAreLeftOut) {
    EXPECT_EQ(days(-1e300, 1e300, 3), u"5000"_s);
    EXPECT_EQ(days(-100, -50, 5), QString());
    EXPECT_EQ(days(dayOf(9999, 12, 30), dayOf(9999, 12, 31) + 5, 5), u"9999-12-30 9999-12-31"_s);
}

TEST(PlotTicks, ShowNumbersWithoutTheErrorsOfArithmetic) {
    EXPECT_EQ(plotNumber(0.1 + 0.2), u"0.3"_s);
    EXPECT_EQ(plotNumber(-12.5), u"-12.5"_s);
    EXPECT_EQ(plotNumber(1e20), u"1E+20"_s);
    EXPECT_EQ(plotDay(dayOf(2026, 3, 18)), u"2026-03-18"_s);
    EXPECT_EQ(plotDay(dayOf(2026, 3, 18) + 0.9), u"2026-03-18"_s);
}

} // namespace kelvane::testing
