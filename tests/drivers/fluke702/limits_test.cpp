// The limits of the Fluke 702 that its siblings don't have, and what follows from them.

#include "tests/drivers/fluke702/acceptance_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString accepted;

} // namespace

class FlukeLimitsOf702 : public FlukeAcceptance {};

TEST_F(FlukeLimitsOf702, MeasuringInHzEndsAt20000AlthoughTheWordsSay50KHz) {
    const auto words = u"Fluke 702 cannot measure frequencies greater than 50KHz!"_s;
    EXPECT_EQ(measured(u"Hz"_s, 0, 30000), words);
    EXPECT_EQ(measured(u"Hz"_s, 1, 30000), words);
    EXPECT_EQ(measured(u"KHz"_s, 0.001F, 30), accepted);
    EXPECT_EQ(measured(u"KHz"_s, 0, 30), u"Fluke 702 cannot measure frequencies less than 1 Hz!"_s);
}

TEST_F(FlukeLimitsOf702, AnInputOnATypeSFrom0PassesAndFromMinus10IsReportedAsMeasuring) {
    auto record = instrument(u"C"_s, 0, 100, u"mA"_s, 4, 20);
    record.temp_sens_type_in = u"TC S"_s;
    EXPECT_EQ(answer(record), accepted);
    record.input_low = -10;
    EXPECT_EQ(answer(record),
              u"Fluke 702 cannot measure that low of temperature for the selected temperature device!"_s);
}

} // namespace kelvane::testing
