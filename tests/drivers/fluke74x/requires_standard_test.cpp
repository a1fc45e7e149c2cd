#include "tests/drivers/fluke74x/acceptance_fixture.h"

#include "testkit/fluke_units.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class Fluke74xStandard : public Fluke74xAcceptance {};

TEST_F(Fluke74xStandard, IsNeededForAnUnknownUnitOfEitherSide) {
    EXPECT_EQ(knownUnits.size(), 24);
    for (const auto& unit : knownUnits) {
        EXPECT_FALSE(needsStandard(instrument(u"V"_s, 0, 10, unit, 0, 10))) << unit.toStdString();
        EXPECT_FALSE(needsStandard(instrument(unit, 0, 10, u"V"_s, 0, 10))) << unit.toStdString();
    }
    for (const auto& unit : unknownUnits) {
        EXPECT_TRUE(needsStandard(instrument(u"V"_s, 0, 10, unit, 0, 10))) << unit.toStdString();
        EXPECT_TRUE(needsStandard(instrument(unit, 0, 10, u"V"_s, 0, 10))) << unit.toStdString();
    }
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

TEST_F(Fluke74xStandard, IsNotNeededForWhatLiesBeyondTheLimits) {
    EXPECT_FALSE(needsStandard(instrument(u"VAC"_s, 0, 1E38F, u"mA"_s, 0, 1E38F)));
}

TEST_F(Fluke74xStandard, IsFoundOutByReadingTheParametersOnce) {
    needsStandard(transmitter());
    EXPECT_EQ(script.statements, QStringList{selectParams(u"A-1"_s)});
    EXPECT_EQ(link.calls, QStringList());
}

TEST_F(Fluke74xStandard, IsNeededWhereTheParametersCannotBeRead) {
    script.failures.insert(selectParams(u"A-1"_s), Error{-141, u"Table not found"_s, u"42S02"_s});
    ui.expectReport(-141, u"ModuleGlobals,GetCalParams"_s);
    EXPECT_TRUE(requiresStandard(u"A-1"_s));
}

} // namespace kelvane::testing
