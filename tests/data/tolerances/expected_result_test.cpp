#include "data/parameters/cal_params.h"
#include "data/tolerances/tolerances.h"
#include "platform/values/numbers.h"
#include "testkit/fixtures.h"
#include "tests/data/tolerances/tolerance_points.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

CalParamRecord transmitter() {
    CalParamRecord record;
    record.input_low = -15;
    record.input_high = 60;
    record.input_type = u"psig"_s;
    record.output_low = 4;
    record.output_high = 20;
    record.output_type = u"mA"_s;
    record.resolution = 0.001F;
    record.pos_span_pct = 0.25F;
    record.neg_span_pct = 0.2F;
    record.pos_fs_range_pct = 0.1F;
    record.neg_reading_pct = 0.3F;
    record.pos_lsd_counts = 2;
    record.neg_units = 0.01F;
    return record;
}

/// The instrument's point as the judgement takes it.
Point pointOf(const CalParamRecord& r, double input, double output) {
    return {input,
            output,
            r.input_low,
            r.input_high,
            r.output_high,
            r.output_low,
            plainText(r.resolution),
            r.input_type,
            r.output_type,
            r.resolution,
            {r.pos_fs_range_pct, r.pos_span_pct, r.pos_reading_pct, r.pos_lsd_counts, r.pos_units},
            {r.neg_fs_range_pct, r.neg_span_pct, r.neg_reading_pct, r.neg_lsd_counts, r.neg_units}};
}

} // namespace

class ExpectedResult : public RecordedSession {};

TEST_F(ExpectedResult, IsWhatAReadingOnTheNominalIsJudgedAgainst) {
    for (const float resolution : {0.001F, 0.1F, 1.0F, 10.0F, 0.5F}) {
        auto instrument = transmitter();
        instrument.resolution = resolution;
        for (const double fraction : {0.0, 0.123, 0.5, 1.0, 1.1}) {
            const auto input = inputAt(instrument, fraction);
            const auto expected = expectedResult(session, instrument, input);
            const auto judged = calculate(session, pointOf(instrument, input, expected.nominal));
            EXPECT_EQ(expected.nominal, judged.nominal);
            EXPECT_EQ(expected.nominal_text, judged.nominal_text);
            EXPECT_EQ(expected.input_text, judged.input_text);
            EXPECT_EQ(expected.upper_limit, judged.upper_limit);
            EXPECT_EQ(expected.upper_text, judged.upper_text);
            EXPECT_EQ(expected.lower_limit, judged.lower_limit);
            EXPECT_EQ(expected.lower_text, judged.lower_text);
            EXPECT_EQ(expected.tolerance_text, judged.tolerance_text);
        }
    }
}

TEST_F(ExpectedResult, HasNeitherReadingNorVerdict) {
    const auto expected = expectedResult(session, transmitter(), 22.5);
    EXPECT_EQ(expected.nominal_text, u"12.000mA"_s);
    EXPECT_EQ(expected.input_text, u"22.500psig"_s);
    EXPECT_EQ(expected.upper_text, u"12.062"_s);
    EXPECT_EQ(expected.lower_text, u"11.922"_s);
    EXPECT_EQ(expected.tolerance_text, u"0.062mA"_s) << "the nearer limit";
    for (const auto& text : {expected.output_text, expected.error_text, expected.percent_text,
                             expected.verdict, expected.result_line, expected.advice})
        EXPECT_EQ(text, QString());
}

TEST_F(ExpectedResult, ANominalThatNoNumberHoldsIsReported) {
    auto instrument = transmitter();
    instrument.input_low = -3E38F;
    instrument.input_high = 3E38F;
    ui.expectReport(6, u"ModuleGlobals,expectedResult"_s);
    EXPECT_EQ(expectedResult(session, instrument, 0).nominal_text, QString());
}

TEST_F(ExpectedResult, AnInputIsTheFractionOfTheRangeFromItsLowEnd) {
    EXPECT_EQ(inputAt(transmitter(), 0), -15);
    EXPECT_EQ(inputAt(transmitter(), 0.5), 22.5);
    EXPECT_EQ(inputAt(transmitter(), 1.1), 67.5);
    auto falling = transmitter();
    falling.input_low = 60;
    falling.input_high = -15;
    EXPECT_EQ(inputAt(falling, 0), 60);
    EXPECT_EQ(inputAt(falling, 1), -15);
}

} // namespace kelvane::testing
