#include "resources/text_id.h"
#include "tests/drivers/fluke702/acceptance_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString accepted;
const auto cannotOutput = u"Calibrator cannot output (input to UUT) selected units requested!"_s;

} // namespace

TEST_F(FlukeAcceptance, RefusesAnIndicatedInputFirst) {
    auto record = instrument(u"%"_s, 0, 100, u"%"_s, 0, 100);
    record.input_indicated = true;
    EXPECT_EQ(answer(record), u"Calibrator cannot calibrate instruments that have indicated inputs!"_s);
    record = transmitter();
    record.output_high = 1000;
    record.input_indicated = true;
    EXPECT_EQ(answer(record), text(TextId::indicatedInputUnsupported));
    record.output_indicated = true;
    EXPECT_EQ(answer(record), text(TextId::indicatedInputUnsupported));
}

TEST_F(FlukeAcceptance, AnOutputInPercentGetsTheBoxAndGoesThroughTheOtherStages) {
    expectReadByHand();
    EXPECT_EQ(answer(instrument(u"psi"_s, 0, 100, u"%"_s, 0, 100)), accepted);
    expectReadByHand();
    EXPECT_EQ(answer(instrument(u"V"_s, 0, 100, u"%"_s, 0, 100)), text(TextId::cannotSourceVoltageAbove));
    expectReadByHand();
    EXPECT_EQ(answer(instrument(u"%"_s, 0, 100, u"%"_s, 0, 100)), cannotOutput);
}

TEST_F(FlukeAcceptance, AnInputInPercentIsRefusedAfterAllStages) {
    for (const auto& unit : {u"%"_s, u""_s, u"ft/lb"_s, u"ma"_s, u"c"_s, u"PSI"_s})
        EXPECT_EQ(answer(instrument(unit, 0, 100, u"mA"_s, 4, 20)), cannotOutput) << unit.toStdString();
    EXPECT_EQ(answer(instrument(u"%"_s, 0, 100, u"mA"_s, 4, 2000)), text(TextId::cannotMeasureCurrentAbove));
}

} // namespace kelvane::testing
