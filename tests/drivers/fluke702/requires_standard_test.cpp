#include "tests/drivers/fluke702/acceptance_fixture.h"

#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace Module702Interface;

namespace {

const QStringList known{u"V"_s,    u"mV"_s,    u"uV"_s,   u"VAC"_s,   u"mVAC"_s,  u"Hz"_s,
                        u"KHz"_s,  u"MHz"_s,   u"Ohms"_s, u"KOhms"_s, u"Mohms"_s, u"mA"_s,
                        u"uA"_s,   u"A"_s,     u"C"_s,    u"F"_s,     u"psi"_s,   u"psig"_s,
                        u"inHg"_s, u"inH2O"_s, u"mmHg"_s, u"kPa"_s,   u"bar"_s,   u"mbar"_s};
const QStringList unknown{QString(), u"%"_s, u"v"_s, u"ft/lb"_s, u"Serial Torque Transducer"_s, u"kohms"_s};
const QStringList temperatures{u"C"_s, u"F"_s};
const QStringList currents{u"mA"_s, u"uA"_s, u"A"_s};
const QStringList resistances{u"Ohms"_s, u"KOhms"_s, u"Mohms"_s};
const QStringList pressures{u"psi"_s,  u"psig"_s, u"inHg"_s, u"inH2O"_s,
                            u"mmHg"_s, u"kPa"_s,  u"bar"_s,  u"mbar"_s};

/// A range that lies within every limit of its unit, measured as well as sourced.
float harmless(const QString& unit) {
    return unit == u"Hz" ? 1000 : 0.01F;
}

/// Whether the user has to read this output himself.
bool readByHand(const CalParamRecord& record) {
    const auto& in = record.input_type;
    const auto& out = record.output_type;
    return !known.contains(out) || (pressures.contains(in) && pressures.contains(out)) ||
           (currents.contains(in) && currents.contains(out)) ||
           (temperatures.contains(in) && temperatures.contains(out) &&
            record.temp_sens_type_in.startsWith(u"TC"_s) && record.temp_sens_type_out.startsWith(u"TC"_s)) ||
           (currents.contains(in) && temperatures.contains(out) &&
            record.temp_sens_type_out.startsWith(u"RTD"_s)) ||
           (currents.contains(in) && resistances.contains(out));
}

QStringList sensorsFor(const QString& unit) {
    return temperatures.contains(unit)
               ? QStringList{{}, u"TC K"_s, u"RTD PT100 385"_s, u"TC"_s, u"RTDX"_s, u"tc K"_s, u"rtd"_s}
               : QStringList{QString()};
}

} // namespace

class FlukeStandard : public FlukeAcceptance {};

TEST_F(FlukeStandard, KnowsTwentyFourUnits) {
    EXPECT_EQ(known.size(), 24);
    for (const auto& unit : known)
        EXPECT_FALSE(needsStandard(instrument(u"V"_s, 0, 10, unit, 0, 10))) << unit.toStdString();
    for (const auto& unit : unknown)
        EXPECT_TRUE(needsStandard(instrument(u"V"_s, 0, 10, unit, 0, 10))) << unit.toStdString();
}

TEST_F(FlukeStandard, IsNeededExactlyWhereTheUserSawTheBox) {
    const auto units = known + unknown;
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
                    const auto expected = input.endsWith(u"VAC")  ? text(TextId::cannotSourceAcVoltage)
                                          : known.contains(input) ? QString()
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

TEST_F(FlukeStandard, IgnoresTheLimits) {
    EXPECT_FALSE(needsStandard(instrument(u"VAC"_s, 0, 1E38F, u"mA"_s, 0, 1E38F)));
}

TEST_F(FlukeStandard, ReadsTheParametersOnce) {
    needsStandard(transmitter());
    EXPECT_EQ(script.statements, QStringList{selectParams(u"A-1"_s)});
    EXPECT_EQ(link.calls, QStringList());
}

} // namespace kelvane::testing
