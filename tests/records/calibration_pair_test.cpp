#include "records/calibration_pair.h"

#include <gtest/gtest.h>

namespace kelvane::testing {

namespace {

CalibrationRecord record(CalibrationRun run, bool hasDate = true) {
    CalibrationRecord made;
    made.run = run;
    if (hasDate)
        made.date.moment.date = QDate(2026, 3, 18);
    return made;
}

struct Case {
    qsizetype chosen;
    std::optional<qsizetype> asFound;
    std::optional<qsizetype> asLeft;
};

} // namespace

TEST(CalibrationPairs, JoinARecordAsLeftWithTheOneAsFoundBeforeIt) {
    using enum CalibrationRun;
    // The newest first.
    const QList<CalibrationRecord> records{record(asLeft),  record(asLeft),    record(asFound),
                                           record(asFound), record(foundLeft), record(asLeft),
                                           record(other),   record(asFound)};
    for (const auto& test : {Case{0, {}, 0}, Case{1, 2, 1}, Case{2, 2, 1}, Case{3, 3, {}}, Case{4, 4, {}},
                             Case{5, {}, 5}, Case{6, 6, {}}, Case{7, 7, {}}}) {
        const auto pair = pairOf(records, test.chosen);
        EXPECT_EQ(pair.asFound, test.asFound) << test.chosen;
        EXPECT_EQ(pair.asLeft, test.asLeft) << test.chosen;
    }
}

TEST(CalibrationPairs, AreNotMadeWithoutADate) {
    using enum CalibrationRun;
    const QList<CalibrationRecord> records{record(asLeft, false), record(asFound), record(asLeft),
                                           record(asFound, false)};
    EXPECT_EQ(pairOf(records, 0).asFound, std::nullopt);
    EXPECT_EQ(pairOf(records, 1).asLeft, std::nullopt);
    EXPECT_EQ(pairOf(records, 2).asFound, std::nullopt);
}

} // namespace kelvane::testing
