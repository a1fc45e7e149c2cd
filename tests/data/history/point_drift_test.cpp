#include "data/history/point_drift.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

using Run = CalibrationRun;

const QDate today(2026, 3, 18);

/// A record of a day with the error of the point; no date and no error are possible, too.
struct Found {
    QDate day;
    Run run;
    std::optional<double> percent;
};

/// The drift of a point whose records are given the oldest first.
PointDrift drift(const QList<Found>& found, const QDate& at = today) {
    QList<CalibrationRecord> records;
    InstrumentPoint point;
    for (qsizetype index = found.size() - 1; index >= 0; --index) {
        CalibrationRecord record;
        record.run = found[index].run;
        record.date.moment.date = found[index].day;
        if (found[index].percent)
            point.errors << PointError{records.size(), *found[index].percent, {}};
        records << record;
    }
    return driftOf(point, records, at);
}

/// The runs as "10 24|5", in whole percents.
QString shown(const PointDrift& drift) {
    QStringList runs;
    for (const auto& run : drift.runs) {
        QStringList values;
        for (const auto& value : run)
            values << QString::number(qRound(value.percent));
        runs << values.join(u' ');
    }
    return runs.join(u'|');
}

QDate of(int year, int month = 3, int day = 1) {
    return QDate(year, month, day);
}

/// The same error every year.
QList<Found> everyYear(int from, int to, double percent, double perYear) {
    QList<Found> found;
    for (int year = from; year <= to; ++year)
        found << Found{of(year), Run::foundLeft, percent + perYear * (year - from)};
    return found;
}

const QList<Found> yearly{{of(2021, 3, 1), Run::foundLeft, 10},
                          {of(2022, 3, 3), Run::foundLeft, 24},
                          {of(2023, 3, 2), Run::foundLeft, 31},
                          {of(2024, 3, 4), Run::foundLeft, 47},
                          {of(2025, 3, 3), Run::foundLeft, 55}};

const QList<Found> adjusted{{of(2020, 6, 1), Run::foundLeft, -20}, {of(2021, 6, 3), Run::foundLeft, -70},
                            {of(2022, 6, 1), Run::asFound, -118},  {of(2022, 6, 1), Run::asLeft, 4},
                            {of(2023, 6, 2), Run::foundLeft, -43}, {of(2024, 6, 3), Run::asFound, -101},
                            {of(2024, 6, 3), Run::asLeft, -6},     {of(2025, 6, 4), Run::foundLeft, -49}};

} // namespace

// The figures are those of a general least squares solution (a design matrix with a column for each run and
// one for the slope), whose line and bounds were then tried day by day.

TEST(PointDrift, WithoutAdjustmentsIsTheLineThroughAllErrors) {
    const auto result = drift(yearly);
    EXPECT_EQ(shown(result), u"10 24 31 47 55"_s);
    ASSERT_TRUE(result.line);
    EXPECT_NEAR(result.line->perYear, 11.28505399, 1e-7);
    EXPECT_NEAR(result.line->perYearBound, 2.308551791, 1e-7);
    EXPECT_NEAR(result.line->scatter, 2.297378742, 1e-7);
    ASSERT_EQ(result.line->ends.size(), 1);
    EXPECT_NEAR(result.line->ends[0].first, 10.7835468, 1e-6);
    EXPECT_NEAR(result.line->ends[0].second, 55.9855564, 1e-6);
    EXPECT_EQ(result.line->horizon, 1463);
    EXPECT_NEAR(result.line->percentAtHorizon, 101.187566, 1e-5);
    EXPECT_EQ(result.line->outlook, DriftOutlook::leaves);
    EXPECT_EQ(result.line->leaving, of(2029, 1, 26));
    EXPECT_EQ(result.line->intervalKept, 987);
}

TEST(PointDrift, WithAdjustmentsIsOfOneSlopeInAllRuns) {
    const auto result = drift(adjusted);
    EXPECT_EQ(shown(result), u"-20 -70 -118|4 -43 -101|-6 -49"_s);
    EXPECT_EQ(result.days, 8);
    EXPECT_EQ(result.daysNeeded, 5);
    ASSERT_TRUE(result.line);
    EXPECT_NEAR(result.line->perYear, -49.8210653, 1e-6);
    EXPECT_NEAR(result.line->perYearBound, 4.968576531, 1e-6);
    EXPECT_NEAR(result.line->scatter, 3.801702123, 1e-7);
    ASSERT_EQ(result.line->ends.size(), 3);
    EXPECT_NEAR(result.line->ends[1].first, 3.30216817, 1e-6);
    EXPECT_NEAR(result.line->ends[2].second, -52.4616836, 1e-6);
    EXPECT_EQ(result.line->horizon, 1829);
    EXPECT_EQ(result.line->outlook, DriftOutlook::leaves);
    EXPECT_EQ(result.line->leaving, of(2026, 5, 19));
    EXPECT_EQ(result.line->intervalKept, 244);
}

TEST(PointDrift, NamesTheRecordsOfItsErrors) {
    const auto result = drift(adjusted);
    EXPECT_EQ(result.runs[0][0].record, 7);
    EXPECT_EQ(result.runs[0][0].day, of(2020, 6, 1));
    EXPECT_EQ(result.runs[1][0].record, 4);
    EXPECT_EQ(result.runs[2][1].record, 0);
}

TEST(PointDrift, OfFewDaysHasNoLine) {
    const struct {
        QList<Found> found;
        qsizetype days;
        qsizetype needed;
    } rows[] = {
        {{}, 0, 2},
        {everyYear(2024, 2024, 10, 0), 1, 3},
        {everyYear(2024, 2025, 10, 5), 2, 3},
        // An adjustment each time: a level for each run.
        {{{of(2022), Run::asFound, 120},
          {of(2022), Run::asLeft, 1},
          {of(2023), Run::asFound, 110},
          {of(2023), Run::asLeft, 2},
          {of(2024), Run::asFound, 130},
          {of(2024), Run::asLeft, 3}},
         6,
         6},
        // Three records on two days.
        {{{of(2024), Run::foundLeft, 1}, {of(2024), Run::foundLeft, 2}, {of(2025), Run::foundLeft, 3}}, 2, 3},
        {{{of(2024), Run::foundLeft, 1}, {of(2024), Run::foundLeft, 2}, {of(2024), Run::foundLeft, 3}}, 1, 3},
    };
    for (const auto& row : rows) {
        const auto result = drift(row.found);
        EXPECT_EQ(result.days, row.days);
        EXPECT_EQ(result.daysNeeded, row.needed);
        EXPECT_EQ(result.line.has_value(), row.days >= row.needed) << row.days;
    }
    EXPECT_TRUE(drift(everyYear(2023, 2025, 10, 5)).line);
}

TEST(PointDrift, OfTwoRecordsAtOneMomentTakesBoth) {
    auto found = yearly;
    found.insert(2, {of(2022, 3, 3), Run::foundLeft, 26});
    const auto result = drift(found);
    EXPECT_EQ(shown(result), u"10 24 26 31 47 55"_s);
    EXPECT_EQ(result.days, 5);
    ASSERT_TRUE(result.line);
    EXPECT_TRUE(std::isfinite(result.line->perYearBound));
}

TEST(PointDrift, WithoutScatterHasNoWidth) {
    const auto flat = drift(everyYear(2021, 2025, 30, 0));
    ASSERT_TRUE(flat.line);
    EXPECT_EQ(flat.line->perYear, 0);
    EXPECT_EQ(flat.line->perYearBound, 0);
    EXPECT_EQ(flat.line->outlook, DriftOutlook::stays);
    EXPECT_EQ(flat.line->horizon, 1461);
    EXPECT_EQ(flat.line->intervalKept, 1461);
    EXPECT_TRUE(flat.line->leaving.isNull());
}

TEST(PointDrift, LooksAheadAsFarAsTheRecordsReachBackAndTenYearsAtMost) {
    const auto of59Days = drift({{of(2025, 1, 1), Run::foundLeft, 1},
                                 {of(2025, 2, 1), Run::foundLeft, 1.5},
                                 {of(2025, 3, 1), Run::foundLeft, 2}});
    EXPECT_EQ(of59Days.line->horizon, 59);
    EXPECT_EQ(of59Days.line->outlook, DriftOutlook::stays);
    EXPECT_EQ(of59Days.line->intervalKept, 59);
    EXPECT_NEAR(of59Days.line->percentAtHorizon, 2.990241102, 1e-8);
    const auto ofThirtyYears = drift(everyYear(1996, 2025, 1, 0));
    EXPECT_EQ(ofThirtyYears.line->horizon, 3652);
    EXPECT_EQ(ofThirtyYears.line->intervalKept, 3652);
}

TEST(PointDrift, OfScatteringErrorsKeepsNoInterval) {
    const auto result = drift({{of(2021, 3, 1), Run::foundLeft, 40},
                               {of(2022, 3, 3), Run::foundLeft, -60},
                               {of(2023, 3, 2), Run::foundLeft, 70},
                               {of(2024, 3, 4), Run::foundLeft, -30}});
    EXPECT_NEAR(result.line->perYear, -8.069143231, 1e-7);
    EXPECT_NEAR(result.line->perYearBound, 139.5801044, 1e-5);
    EXPECT_EQ(result.line->outlook, DriftOutlook::stays);
    EXPECT_EQ(result.line->intervalKept, 0);
}

TEST(PointDrift, ThatIsOutAtItsLastRecordHasLeft) {
    for (const double sign : {1.0, -1.0}) {
        const auto result = drift(everyYear(2021, 2025, 80 * sign, 10 * sign));
        EXPECT_EQ(result.line->outlook, DriftOutlook::hasLeft);
        EXPECT_EQ(result.line->intervalKept, 0);
        EXPECT_TRUE(result.line->leaving.isNull());
    }
}

TEST(PointDrift, ThatHasComeToALimitSinceHasLeft) {
    const QList<Found> found{
        {of(2021), Run::foundLeft, 60}, {of(2022), Run::foundLeft, 75}, {of(2023), Run::foundLeft, 94}};
    EXPECT_EQ(drift(found).line->outlook, DriftOutlook::hasLeft);
    EXPECT_EQ(drift(found, of(2023, 7, 22)).line->outlook, DriftOutlook::leaves);
    EXPECT_EQ(drift(found, of(2023, 7, 22)).line->leaving, of(2023, 7, 23));
    EXPECT_EQ(drift(found, of(2023, 7, 23)).line->outlook, DriftOutlook::hasLeft);
}

TEST(PointDrift, ComesBackIntoItsLimitsIsNoInterval) {
    const auto result = drift(everyYear(2021, 2025, 150, -10));
    EXPECT_EQ(result.line->outlook, DriftOutlook::hasLeft);
    EXPECT_EQ(result.line->intervalKept, 0);
}

TEST(PointDrift, IsUnknownAheadOfARecordAsFoundAlone) {
    auto found = yearly;
    found << Found{of(2026, 3, 2), Run::asFound, 120};
    const auto result = drift(found);
    ASSERT_TRUE(result.line);
    EXPECT_EQ(result.line->outlook, DriftOutlook::unknown);
    EXPECT_FALSE(result.line->intervalKept);
    // So it is when the record as left lacks the point.
    found << Found{of(2026, 3, 2), Run::asLeft, std::nullopt};
    EXPECT_EQ(drift(found).line->outlook, DriftOutlook::unknown);
    found << Found{of(2026, 3, 3), Run::foundLeft, 5};
    EXPECT_EQ(drift(found).line->outlook, DriftOutlook::stays);
    EXPECT_EQ(shown(drift(found)), u"10 24 31 47 55 120|5"_s);
}

TEST(PointDrift, TakesAnAdjustmentBeforeEachRecordAsLeft) {
    EXPECT_EQ(shown(drift({{of(2023), Run::foundLeft, 1},
                           {of(2024), Run::asLeft, 2},
                           {of(2024), Run::asLeft, 3},
                           {of(2025), Run::foundLeft, 4}})),
              u"1|2|3 4"_s);
    EXPECT_EQ(
        shown(drift(
            {{of(2023), Run::foundLeft, 1}, {of(2024), Run::asLeft, {}}, {of(2025), Run::foundLeft, 4}})),
        u"1|4"_s);
}

TEST(PointDrift, LeavesOutRecordsThatDontTellOfDrift) {
    auto found = yearly;
    found.insert(1, {of(2021, 6, 1), Run::other, 500});
    found.prepend({QDate(), Run::foundLeft, 600});
    found << Found{today.addDays(1), Run::foundLeft, 700};
    EXPECT_EQ(shown(drift(found)), u"10 24 31 47 55"_s);
    EXPECT_EQ(drift(found).line->leaving, of(2029, 1, 26));
    found << Found{today, Run::foundLeft, 60};
    EXPECT_EQ(shown(drift(found)), u"10 24 31 47 55 60"_s);
}

TEST(PointDrift, OfRecordsWithoutThePointIsThatOfTheOthers) {
    auto found = yearly;
    found.insert(2, {of(2022, 9, 1), Run::foundLeft, std::nullopt});
    EXPECT_EQ(drift(found).line->leaving, of(2029, 1, 26));
}

TEST(PointDrift, IsFiniteForTheLargestErrors) {
    const auto result = drift({{of(2021), Run::foundLeft, 1e9},
                               {of(2022), Run::foundLeft, -1e9},
                               {of(2023), Run::foundLeft, 1e9},
                               {of(2024), Run::foundLeft, 0}});
    ASSERT_TRUE(result.line);
    for (const double figure : {result.line->perYear, result.line->perYearBound, result.line->scatter,
                                result.line->percentAtHorizon})
        EXPECT_TRUE(std::isfinite(figure));
    EXPECT_EQ(result.line->intervalKept, 0);
}

} // namespace kelvane::testing
