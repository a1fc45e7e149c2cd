#include "data/history/parallel_lines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kelvane::testing {

namespace {

using Groups = QList<QList<DayValue>>;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

const Groups threeGroups{{{0, 10}, {180, 22}, {365, 37}, {540, 48}}, {{700, 5}, {1000, 30}}, {{1100, -3}}};

/// The same, so many days later.
Groups later(Groups groups, double days) {
    for (auto& group : groups) {
        for (auto& at : group)
            at.day += days;
    }
    return groups;
}

} // namespace

// The figures are those of a general least squares solution (a design matrix with a column for each level and
// one for the slope) and of tabulated quantiles of Student's distribution.

TEST(ParallelLines, OfOneGroupAreTheUsualStraightLine) {
    const auto line = ParallelLines::fit({{{0, 10}, {365, 14}, {730, 19}}});
    ASSERT_TRUE(line);
    EXPECT_NEAR(line->slope(), 0.0123287671233, 1e-12);
    EXPECT_EQ(line->freedom(), 1);
    EXPECT_NEAR(line->scatter(), 0.408248290464, 1e-11);
    EXPECT_NEAR(line->slopeBound(), 0.0100492201712, 1e-12);
    EXPECT_NEAR(line->valueAt(0, 1095), 23.3333333333, 1e-9);
    EXPECT_NEAR(line->predictionBound(0, 1095), 9.47064584223, 1e-9);
}

TEST(ParallelLines, OfSeveralGroupsHaveOneSlopeAndALevelEach) {
    const auto lines = ParallelLines::fit(threeGroups);
    ASSERT_TRUE(lines);
    EXPECT_NEAR(lines->slope(), 0.0740613821504, 1e-12);
    EXPECT_EQ(lines->freedom(), 3);
    EXPECT_NEAR(lines->scatter(), 1.50524545178, 1e-10);
    EXPECT_NEAR(lines->slopeBound(), 0.0105056174099, 1e-12);
    const struct {
        qsizetype group;
        double day;
        double value;
        double bound;
    } rows[] = {
        {0, 0, 9.16085009168, 6.06670980465},    {0, 540, 49.1539964529, 6.05441748294},
        {1, 1000, 28.6092073225, 6.07491925471}, {2, 1100, -3, 6.77459607801},
        {2, 2000, 63.6552439352, 11.631561792},
    };
    for (const auto& row : rows) {
        EXPECT_NEAR(lines->valueAt(row.group, row.day), row.value, 1e-8) << row.day;
        EXPECT_NEAR(lines->predictionBound(row.group, row.day), row.bound, 1e-8) << row.day;
    }
}

TEST(ParallelLines, OfFewValuesHaveTheWideBoundsOfStudentsDistribution) {
    const struct {
        qsizetype values;
        double quantile;
    } rows[] = {
        {3, 12.7062047364}, {4, 4.30265272991}, {7, 2.57058183661}, {32, 2.0422724563}, {202, 1.97189622363}};
    for (const auto& row : rows) {
        Groups groups(1);
        double squaredDays = 0;
        for (qsizetype at = 0; at < row.values; ++at) {
            const double day = static_cast<double>(at);
            groups[0] << DayValue{day, at % 2 == 0 ? 1.0 : -1.0};
            squaredDays += std::pow(day - static_cast<double>(row.values - 1) / 2, 2);
        }
        const auto lines = ParallelLines::fit(groups);
        ASSERT_TRUE(lines);
        EXPECT_EQ(lines->freedom(), row.values - 2);
        EXPECT_NEAR(lines->slopeBound() * std::sqrt(squaredDays) / lines->scatter(), row.quantile, 1e-8);
    }
}

TEST(ParallelLines, AreTheSameOnLargeDays) {
    const double epoch = 2461000;
    const auto lines = ParallelLines::fit(later(threeGroups, epoch));
    ASSERT_TRUE(lines);
    EXPECT_NEAR(lines->slope(), 0.0740613821504, 1e-11);
    EXPECT_NEAR(lines->valueAt(2, epoch + 2000), 63.6552439352, 1e-8);
    EXPECT_NEAR(lines->predictionBound(2, epoch + 2000), 11.631561792, 1e-8);
}

TEST(ParallelLines, ThroughValuesWithoutScatterHaveNoBounds) {
    const auto flat = ParallelLines::fit({{{10, 5}, {20, 5}, {30, 5}}});
    ASSERT_TRUE(flat);
    EXPECT_EQ(flat->slope(), 0);
    EXPECT_EQ(flat->scatter(), 0);
    EXPECT_EQ(flat->predictionBound(0, 1000), 0);
    EXPECT_EQ(flat->valueAt(0, 1000), 5);
}

TEST(ParallelLines, NeedMoreValuesThanUnknowns) {
    EXPECT_FALSE(ParallelLines::fit({}));
    EXPECT_FALSE(ParallelLines::fit({{}}));
    EXPECT_FALSE(ParallelLines::fit({{{1, 1}}}));
    EXPECT_FALSE(ParallelLines::fit({{{1, 1}, {2, 2}}}));
    EXPECT_FALSE(ParallelLines::fit({{{1, 1}, {2, 2}}, {{3, 1}}}));
    EXPECT_FALSE(ParallelLines::fit({{{1, 1}}, {{2, 2}}, {{3, 1}}, {{4, 1}}}));
    EXPECT_TRUE(ParallelLines::fit({{{1, 1}, {2, 2}}, {{3, 1}, {4, 1}}}));
    EXPECT_TRUE(ParallelLines::fit({{{1, 1}, {2, 2}, {3, 1}}, {}}));
}

TEST(ParallelLines, NeedTwoDaysInAGroup) {
    EXPECT_FALSE(ParallelLines::fit({{{7, 1}, {7, 2}, {7, 3}}}));
    EXPECT_FALSE(ParallelLines::fit({{{7, 1}, {7, 2}}, {{9, 3}, {9, 4}}}));
}

TEST(ParallelLines, AreNoneThroughValuesThatAreNotFinite) {
    const double infinite = std::numeric_limits<double>::infinity();
    const double largest = std::numeric_limits<double>::max();
    for (const double value : {nan, infinite, -infinite, largest}) {
        EXPECT_FALSE(ParallelLines::fit({{{1, 1}, {2, value}, {3, 3}, {4, 5}}})) << value;
        EXPECT_FALSE(ParallelLines::fit({{{1, 1}, {value, 2}, {3, 3}, {4, 5}}})) << value;
    }
}

} // namespace kelvane::testing
