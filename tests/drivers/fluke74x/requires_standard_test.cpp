#include "tests/drivers/fluke74x/acceptance_fixture.h"

#include "testkit/fluke_units.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class Fluke74xStandard : public Fluke74xAcceptance {};

TEST_F(Fluke74xStandard, IsNeededForAnUnknownUnitOfTheInputToo) {
    for (const auto& unit : knownUnits)
        EXPECT_FALSE(needsStandard(instrument(unit, 0, 10, u"V"_s, 0, 10))) << unit.toStdString();
    for (const auto& unit : unknownUnits)
        EXPECT_TRUE(needsStandard(instrument(unit, 0, 10, u"V"_s, 0, 10))) << unit.toStdString();
}

/// All units on both sides, with sensors for temperatures.
TEST_F(Fluke74xStandard, FollowsFromUnitsFlagsAndCombinationAndTheBoxesFromUnitsAndCombination) {
    const auto units = knownUnits + unknownUnits;
    for (const auto& input : units) {
        for (const auto& output : units) {
            for (const auto& inputSensor : sensorsFor(input)) {
                for (const auto& outputSensor : sensorsFor(output)) {
                    const auto where = (input + u" to "_s + output).toStdString();
                    auto record = instrument(input, harmless(input), harmless(input), output,
                                             harmless(output), harmless(output));
                    record.temp_sens_type_in = inputSensor;
                    record.temp_sens_type_out = outputSensor;
                    const bool knowsInput = knownUnits.contains(input);
                    const bool knowsOutput = knownUnits.contains(output);
                    const bool excluded = excludeEachOther(record);
                    if (!knowsOutput)
                        expectReadByHand();
                    if (!knowsInput)
                        expectSourcedByHand();
                    if (excluded)
                        expectReadByHand();
                    ASSERT_EQ(answer(record),
                              input.endsWith(u"VAC") ? text(TextId::cannotSourceAcVoltage) : QString())
                        << where;
                    ASSERT_TRUE(ui.hasMetAll()) << where;
                    ASSERT_EQ(needsStandard(record), !knowsInput || !knowsOutput || excluded) << where;
                    record.output_indicated = true;
                    ASSERT_EQ(needsStandard(record), !knowsInput || excluded) << where;
                    record.input_indicated = true;
                    ASSERT_FALSE(needsStandard(record)) << where;
                    record.output_indicated = false;
                    ASSERT_EQ(needsStandard(record), !knowsOutput || excluded) << where;
                }
            }
        }
    }
}

} // namespace kelvane::testing
