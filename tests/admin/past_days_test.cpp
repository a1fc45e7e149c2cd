#include "admin/past_days.h"

#include "admin/past_random.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kelvane::testing {

namespace {

QList<admin::PastInterval> intervalsOf(std::span<const admin::PastInstrument> instruments, int months) {
    QList<admin::PastInterval> intervals;
    for (const auto& instrument : instruments)
        intervals << admin::PastInterval{&instrument, months};
    return intervals;
}

QList<admin::PastCalibration> planFor(const QDate& day, int months) {
    return admin::calibrationsBefore(day, intervalsOf(admin::pastInstruments(), months),
                                     intervalsOf(admin::pastStandards(), 12));
}

} // namespace

TEST(PastDays, EachCalibrationComesBeforeTheOneAheadHasRunOut) {
    // Every day of four years, a leap year among them.
    for (QDate day(2026, 1, 1); day < QDate(2030, 1, 1); day = day.addDays(7)) {
        QHash<const admin::PastInstrument*, QDate> latest;
        for (const auto& calibration : planFor(day, 6)) {
            const auto date = calibration.moment.date;
            EXPECT_LT(date, day.addDays(-7));
            const bool isStandard = calibration.instrument->way->standards[0].isEmpty();
            const auto before = latest.value(calibration.instrument);
            if (before.isValid()) {
                EXPECT_LE(date, before.addMonths(isStandard ? 12 : 6).addDays(-12));
                EXPECT_GT(date, before.addMonths(isStandard ? 11 : 5));
            }
            latest[calibration.instrument] = date;
            for (const auto standard : calibration.instrument->way->standards) {
                const auto own =
                    std::ranges::find(admin::pastStandards(), standard, &admin::PastInstrument::asset);
                if (!standard.isEmpty()) {
                    EXPECT_LE(date, latest.value(&*own).addMonths(12)) << standard.toString().toStdString();
                }
            }
        }
        EXPECT_EQ(latest.size(), 46);
        for (auto entry = latest.cbegin(); entry != latest.cend(); ++entry) {
            const bool isStandard = entry.key()->way->standards[0].isEmpty();
            const auto due = entry.value().addMonths(isStandard ? 12 : 6);
            EXPECT_EQ(due < day, entry.key()->isOverdue) << entry.key()->asset.toString().toStdString();
        }
    }
}

TEST(PastDays, AreThoseOfTheDayAlone) {
    const auto first = planFor(QDate(2027, 1, 1), 12);
    const auto second = planFor(QDate(2027, 1, 1), 12);
    ASSERT_EQ(first.size(), second.size());
    for (qsizetype index = 0; index < first.size(); ++index) {
        EXPECT_EQ(first[index].moment, second[index].moment);
        EXPECT_EQ(first[index].seed, second[index].seed);
    }
}

TEST(PastDays, SeedsAreNotUsedTwice) {
    QList<unsigned> seeds;
    for (const auto& calibration : planFor(QDate(2028, 2, 29), 6))
        seeds << calibration.seed;
    std::ranges::sort(seeds);
    EXPECT_EQ(std::ranges::adjacent_find(seeds), seeds.end());
}

TEST(PastRandom, NumbersStayInTheirRangesAndComeAgain) {
    admin::PastRandom random(7);
    admin::PastRandom again(7);
    double sum = 0;
    double squares = 0;
    constexpr int count = 20000;
    for (int number = 0; number < count; ++number) {
        const double deviation = random.deviation();
        EXPECT_EQ(deviation, again.deviation());
        EXPECT_LT(std::abs(deviation), 3.5);
        sum += deviation;
        squares += deviation * deviation;
        const int whole = random.whole(2, 4);
        EXPECT_EQ(whole, again.whole(2, 4));
        EXPECT_TRUE(whole >= 2 && whole <= 4);
    }
    EXPECT_NEAR(sum / count, 0, 0.03);
    EXPECT_NEAR(squares / count, 1, 0.03);
}

} // namespace kelvane::testing
