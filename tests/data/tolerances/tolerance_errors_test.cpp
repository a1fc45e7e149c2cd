#include "testkit/fixtures.h"
#include "tests/data/tolerances/tolerance_points.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// Points at which the calculation stops; what was filled before stays.
class ToleranceErrors : public RecordedSession {
  protected:
    static constexpr auto routine = "ModuleGlobals,ErrorCalculation";
    ErrorResult failing(const Point& point, int number) {
        ui.expectReport(number, QString::fromLatin1(routine));
        const auto result = calculate(session, point);
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_EQ(result.verdict, QString());
        EXPECT_EQ(result.advice, QString());
        EXPECT_EQ(result.result_line, QString());
        return result;
    }
    Point plain() const {
        return {50, 51, 0, 100, 100, 0, u"0.1"_s, u"psi"_s, u"V"_s, 0.1F, {0, 0, 0, 0, 2}, {0, 0, 0, 0, 2}};
    }
};

TEST_F(ToleranceErrors, NoToleranceOnTheNominalDividesZeroByZeroAndIsADivisionByZero) {
    auto point = plain();
    point.output = 50;
    point.neg = {};
    const auto result = failing(point, 11);
    EXPECT_EQ(result.error_text, u"0.0V"_s);
    EXPECT_EQ(result.tolerance_text, u"0.0V"_s);
    EXPECT_EQ(result.percent, 0);
    EXPECT_EQ(result.percent_text, QString());
}

TEST_F(ToleranceErrors, NoToleranceAboveTheNominalIsADivisionByZero) {
    auto point = plain();
    point.pos = {};
    const auto result = failing(point, 11);
    EXPECT_EQ(result.upper_limit, 50);
    EXPECT_EQ(result.error_rounded, 1);
    EXPECT_EQ(result.tolerance_text, u"0.0V"_s);
    EXPECT_EQ(result.percent, 0);
    EXPECT_EQ(result.percent_text, QString());
}

TEST_F(ToleranceErrors, NoToleranceWithoutTextsIsADivisionByZero) {
    auto point = plain();
    point.digits = u"0.5"_s;
    point.neg = {};
    point.output = 49;
    EXPECT_EQ(failing(point, 11).tolerance_text, u"V"_s);
}

TEST_F(ToleranceErrors, InputRangeTooWideFor32BitsOverflows) {
    auto point = plain();
    point.input_low = -3E38F;
    point.input_high = 3E38F;
    const auto result = failing(point, 6);
    EXPECT_EQ(result.nominal, 0);
    EXPECT_EQ(result.nominal_text, QString());
}

TEST_F(ToleranceErrors, NominalTooLargeForItsRoundedFieldKeepsItsText) {
    auto point = plain();
    point.input_low = point.input_high;
    point.input = 1E39;
    const auto result = failing(point, 6);
    EXPECT_EQ(result.nominal, 1E39);
    EXPECT_EQ(result.nominal_text, u"1000000000000000000000000000000000000000.0V"_s);
    EXPECT_EQ(result.nominal_rounded, 0);
    EXPECT_EQ(result.output_text, QString());
    EXPECT_EQ(result.input_text, QString());
}

TEST_F(ToleranceErrors, UpperLimitTooLargeKeepsItsTextAndLeavesTheLowerOneOut) {
    auto point = plain();
    point.output_high = 3E38F;
    point.input = 100;
    point.pos.fs = 50;
    const auto result = failing(point, 6);
    EXPECT_EQ(result.input_text, u"100.0psi"_s);
    EXPECT_EQ(result.upper_limit, 1.5 * double{3E38F});
    EXPECT_FALSE(result.upper_text.isEmpty());
    EXPECT_EQ(result.upper_rounded, 0);
    EXPECT_EQ(result.lower_limit, 0);
    EXPECT_EQ(result.lower_text, QString());
}

TEST_F(ToleranceErrors, LowerLimitTooLargeKeepsItsTextAndLeavesTheErrorOut) {
    auto point = plain();
    point.output_high = 3E38F;
    point.input = 0;
    point.neg.fs = 150;
    const auto result = failing(point, 6);
    EXPECT_EQ(result.upper_rounded, 2);
    EXPECT_EQ(result.lower_limit, -1.5 * double{3E38F} - 2);
    EXPECT_FALSE(result.lower_text.isEmpty());
    EXPECT_EQ(result.lower_rounded, 0);
    EXPECT_EQ(result.error, 0);
}

TEST_F(ToleranceErrors, ErrorTooLargeForItsRoundedFieldHasNoText) {
    auto point = plain();
    point.output_low = -3E38F;
    point.input = 0;
    point.output = 3E38;
    const auto result = failing(point, 6);
    EXPECT_EQ(result.error, 3E38 + double{3E38F});
    EXPECT_EQ(result.error_rounded, 0);
    EXPECT_EQ(result.error_text, QString());
    EXPECT_EQ(result.tolerance_text, QString());
}

TEST_F(ToleranceErrors, PrintedHalfWidthTooLargeFor32BitsKeepsThePercentage) {
    auto point = plain();
    point.output_high = 2E38F;
    point.input = 100;
    point.output = double{2E38F} - 1E38;
    point.neg = {200, 0, 0, 0, 0};
    const auto result = failing(point, 6);
    EXPECT_NEAR(result.percent, -25, 1E-6);
    EXPECT_EQ(result.percent_text, QString());
    EXPECT_FALSE(result.tolerance_text.isEmpty());
}

TEST_F(ToleranceErrors, PercentageTooLargeForADoubleOverflows) {
    auto point = plain();
    point.digits = u"0.5"_s;
    point.input = 0;
    point.output = 1E300;
    point.pos = {0, 0, 0, 0, 1E-40F};
    const auto result = failing(point, 6);
    EXPECT_EQ(result.error, 1E300);
    EXPECT_EQ(result.percent, 0);
    EXPECT_EQ(result.percent_text, QString());
}

TEST_F(ToleranceErrors, DistanceToALimitTooLargeForADoubleOverflows) {
    auto point = plain();
    point.digits = u"0.5"_s;
    point.input_low = point.input_high;
    point.input = -1.7E308;
    point.output = 1.7E308;
    const auto result = failing(point, 6);
    EXPECT_EQ(result.lower_limit, -1.7E308);
    EXPECT_EQ(result.error, 0);
}

TEST_F(ToleranceErrors, InvalidReadingStopsBehindTheNominal) {
    for (const double invalid :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity()}) {
        auto point = plain();
        point.output = invalid;
        const auto result = failing(point, 6);
        EXPECT_EQ(result.nominal_text, u"50.0V"_s);
        EXPECT_EQ(result.nominal_rounded, 50);
        EXPECT_EQ(result.output_text, QString());
    }
}

TEST_F(ToleranceErrors, InvalidNumberAnywhereIsOneOverflow) {
    for (const float invalid :
         {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
          -std::numeric_limits<float>::infinity()}) {
        float Point::*const reals[] = {&Point::input_low, &Point::input_high, &Point::output_high,
                                       &Point::output_low, &Point::resolution};
        for (const auto real : reals) {
            auto point = plain();
            point.*real = invalid;
            failing(point, 6);
        }
        float Terms::*const terms[] = {&Terms::fs, &Terms::span, &Terms::reading, &Terms::lsd, &Terms::units};
        for (const auto term : terms) {
            auto point = plain();
            point.pos.*term = invalid;
            failing(point, 6);
            point = plain();
            point.neg.*term = invalid;
            failing(point, 6);
        }
        auto point = plain();
        point.input = double{invalid};
        failing(point, 6);
        point.input_low = point.input_high;
        failing(point, 6);
    }
}

} // namespace kelvane::testing
