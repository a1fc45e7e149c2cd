#include "tests/drivers/fluke702/acceptance_fixture.h"

#include "testkit/fluke_units.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Whether the user has to read this output himself.
bool readByHand(const CalParamRecord& record) {
    return !knownUnits.contains(record.output_type) || excludeEachOther(record);
}

} // namespace

class FlukeStandard : public FlukeAcceptance {};

TEST_F(FlukeStandard, IsNeededExactlyWhereTheUserSawTheBox) {
    const auto units = knownUnits + unknownUnits;
    for (const auto& input : units) {
        for (const auto& output : units) {
            for (const auto& inputSensor : sensorsFor(input)) {
                for (const auto& outputSensor : sensorsFor(output)) {
                    auto record = instrument(input, harmless(input), harmless(input), output,
                                             harmless(output), harmless(output));
                    record.temp_sens_type_in = inputSensor;
                    record.temp_sens_type_out = outputSensor;
                    const bool byHand = readByHand(record);
                    if (byHand)
                        expectReadByHand();
                    const auto expected = input.endsWith(u"VAC")       ? text(TextId::cannotSourceAcVoltage)
                                          : knownUnits.contains(input) ? QString()
                                                                       : text(TextId::cannotSourceUnits);
                    ASSERT_EQ(answer(record), expected)
                        << input.toStdString() << " to " << output.toStdString();
                    ASSERT_TRUE(ui.hasMetAll()) << input.toStdString() << " to " << output.toStdString();
                    ASSERT_EQ(needsStandard(record), byHand)
                        << input.toStdString() << " to " << output.toStdString();
                    record.output_indicated = true;
                    ASSERT_FALSE(needsStandard(record))
                        << input.toStdString() << " to " << output.toStdString();
                }
            }
        }
    }
}

TEST_F(FlukeStandard, APressureOnBothSidesNeedsOneUnlessTheOutputIsIndicated) {
    auto record = instrument(u"psi"_s, 0, 100, u"psi"_s, 0, 100);
    expectReadByHand();
    EXPECT_EQ(answer(record), QString());
    EXPECT_TRUE(needsStandard(record));
    record.output_indicated = true;
    EXPECT_FALSE(needsStandard(record));
    expectReadByHand();
    EXPECT_EQ(answer(record), QString());
}

TEST_F(FlukeStandard, AnIndicatedInputChangesNothing) {
    auto record = instrument(u"psi"_s, 0, 100, u"psi"_s, 0, 100);
    record.input_indicated = true;
    EXPECT_TRUE(needsStandard(record));
    record = transmitter();
    record.input_indicated = true;
    EXPECT_FALSE(needsStandard(record));
}

} // namespace kelvane::testing
