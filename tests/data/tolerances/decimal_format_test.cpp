#include "data/tolerances/tolerances.h"
#include "testkit/fixtures.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using ModuleGlobals::DecimalFormat;

class DecimalFormatTest : public RecordedSession {};

TEST_F(DecimalFormatTest, ResolutionPicksTheFormatByItsExactText) {
    const struct {
        QString digits;
        double value;
        QString shown;
    } rows[] = {
        {u"0.1"_s, 2.25, u"2.3"_s},
        {u"0.1"_s, -2.25, u"-2.3"_s},
        {u"0.1"_s, -0.04, u"0.0"_s},
        {u"0.1"_s, 1234567.89, u"1234567.9"_s},
        {u"0.01"_s, 2.675, u"2.68"_s},
        {u"0.01"_s, 0.005, u"0.01"_s},
        {u"0.01"_s, 1.1249999999999998, u"1.13"_s},
        {u"0.001"_s, 12, u"12.000"_s},
        {u"0.0001"_s, 0.00005, u"0.0001"_s},
        {u"0.00001"_s, 1, u"1.00000"_s},
        {u"0.000001"_s, -1.5, u"-1.500000"_s},
        {u"0.0000001"_s, 0.25, u"0.2500000"_s},
        {u"0.00000001"_s, 3, u"3.00000000"_s},
        {u"0.000000001"_s, 0.1234567895, u"0.123456790"_s},
        {u"1"_s, 0.5, u"1"_s},
        {u"1"_s, 2.5, u"3"_s},
        {u"1"_s, -0.4, u"0"_s},
        {u"1"_s, 999.5, u"1000"_s},
        {u"10"_s, 25, u"20"_s},
        {u"10"_s, 35, u"40"_s},
        {u"10"_s, 5, u"0"_s},
        {u"10"_s, -5, u"0"_s},
        {u"10"_s, -15, u"-20"_s},
        {u"10"_s, 25.001, u"30"_s},
        {u"100"_s, 250, u"200"_s},
        {u"100"_s, 350, u"400"_s},
        {u"1000"_s, 2500, u"2000"_s},
        {u"1000"_s, 2501, u"3000"_s},
        {u"10000"_s, 15000, u"20000"_s},
        {u"100000"_s, 250000, u"200000"_s},
        {u"100000"_s, 650000, u"600000"_s}, // a multiplication by 0.00001 misses this half
        {u"100000"_s, -350000, u"-400000"_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(DecimalFormat(session, row.value, row.digits), row.shown)
            << row.digits.toStdString() << " " << row.value;
}

TEST_F(DecimalFormatTest, AnyOtherResolutionGivesNoText) {
    for (const auto& digits : {u"0.5"_s, u"0.25"_s, u"2"_s, u"0.10"_s, u".1"_s, u"1.0"_s, u" 1"_s, u"1E-10"_s,
                               u"1000000"_s, u"0"_s, u"abc"_s, QString()})
        EXPECT_EQ(DecimalFormat(session, 12.5, digits), QString()) << digits.toStdString();
}

TEST_F(DecimalFormatTest, InvalidNumberIsAnOverflow) {
    for (const double invalid :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity()}) {
        for (const auto& digits : {u"0.1"_s, u"10"_s}) {
            ui.expectReport(6, u"ModuleGlobals,DecimalFormat"_s);
            EXPECT_EQ(DecimalFormat(session, invalid, digits), QString());
        }
    }
}

} // namespace kelvane::testing
