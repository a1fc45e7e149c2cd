// The limits that the Fluke calibrators share; each has some figures of its own.

#include "testkit/fluke_units.h"
#include "tests/drivers/fluke702/acceptance_fixture.h"
#include "tests/drivers/fluke74x/acceptance_fixture.h"
#include "tests/drivers/fluke_names.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString accepted;
const auto tooHot =
    u"Fluke 702 cannot measure that high of temperature for the selected temperature device!"_s;
const auto tooCold =
    u"Fluke 702 cannot measure that low of temperature for the selected temperature device!"_s;

} // namespace

using FlukeCalibrators = ::testing::Types<FlukeAcceptance, Fluke74xAcceptance>;

template <class Calibrator>
class FlukeLimitsOf : public Calibrator {};
TYPED_TEST_SUITE(FlukeLimitsOf, FlukeCalibrators, FlukeNames);

TYPED_TEST(FlukeLimitsOf, VoltagesAndCurrentsThatAreMeasuredHoldForTheAbsoluteValue) {
    const struct {
        QString unit;
        float limit;
        TextId message;
    } rows[] = {
        {u"V"_s, 300, TextId::cannotMeasureVoltageAbove},
        {u"VAC"_s, 300, TextId::cannotMeasureVoltageAbove},
        {u"mV"_s, 300000, TextId::cannotMeasureVoltageAbove},
        {u"mVAC"_s, 300000, TextId::cannotMeasureVoltageAbove},
        {u"uV"_s, 300000000, TextId::cannotMeasureVoltageAbove},
        {u"mA"_s, 110, TextId::cannotMeasureCurrentAbove},
        {u"uA"_s, 110000, TextId::cannotMeasureCurrentAbove},
        {u"A"_s, 0.11F, TextId::cannotMeasureCurrentAbove},
    };
    for (const auto& row : rows)
        this->expectMeasured(row.unit, magnitudeRanges(row.limit, row.message));
}

TYPED_TEST(FlukeLimitsOf, FrequenciesAndResistancesThatAreMeasuredHaveABottomAndATop) {
    const struct {
        QString unit;
        float bottom, top, middle;
        TextId tooLow, tooHigh;
    } rows[] = {
        {u"Hz"_s, 1, TestFixture::maxMeasuredHertz, 1000, TextId::cannotMeasureFrequencyBelow,
         TextId::cannotMeasureFrequencyAbove},
        {u"KHz"_s, 0.001F, 50, 1, TextId::cannotMeasureFrequencyBelow, TextId::cannotMeasureFrequencyAbove},
        {u"MHz"_s, 0.000001F, 0.05F, 0.001F, TextId::cannotMeasureFrequencyBelow,
         TextId::cannotMeasureFrequencyAbove},
        {u"Ohms"_s, 0, 11000, 100, TextId::cannotMeasureResistanceBelow,
         TextId::cannotMeasureResistanceAbove},
        {u"KOhms"_s, 0, 11, 1, TextId::cannotMeasureResistanceBelow, TextId::cannotMeasureResistanceAbove},
        {u"Mohms"_s, 0, 0.011F, 0.001F, TextId::cannotMeasureResistanceBelow,
         TextId::cannotMeasureResistanceAbove},
    };
    for (const auto& row : rows) {
        this->expectMeasured(row.unit,
                             rangesAround(row.bottom, row.top, row.middle, row.tooLow, row.tooHigh));
        // When both ends are beyond the range, the high end is reported first, then the low end.
        this->expectMeasured(row.unit, {{below(row.bottom), above(row.top), row.tooHigh},
                                        {above(row.top), above(row.top), row.tooHigh},
                                        {below(row.bottom), below(row.bottom), row.tooLow},
                                        {above(row.top), below(row.bottom), row.tooHigh}});
    }
}

TYPED_TEST(FlukeLimitsOf, AnOutputOf0To100KHzIsReportedAsTooHigh) {
    EXPECT_EQ(this->measured(u"KHz"_s, 0, 100), text(TextId::cannotMeasureFrequencyAbove));
    EXPECT_EQ(this->measured(u"KHz"_s, 0.001F, 100), text(TextId::cannotMeasureFrequencyAbove));
    EXPECT_EQ(this->measured(u"KHz"_s, 0, 50), text(TextId::cannotMeasureFrequencyBelow));
}

TYPED_TEST(FlukeLimitsOf, MeasuringHaveTheWordsOfThe702) {
    EXPECT_EQ(this->measured(u"V"_s, 0, 301), u"Fluke 702 cannot measure voltages greater than 300V!"_s);
    EXPECT_EQ(this->measured(u"mA"_s, 0, 111), u"Fluke 702 cannot measure current greater than 110 mA!"_s);
    EXPECT_EQ(this->measured(u"Hz"_s, 1, 50001),
              u"Fluke 702 cannot measure frequencies greater than 50KHz!"_s);
    EXPECT_EQ(this->measured(u"Hz"_s, 0, 100), u"Fluke 702 cannot measure frequencies less than 1 Hz!"_s);
    EXPECT_EQ(this->measured(u"Ohms"_s, 0, 11001),
              u"Fluke 702 cannot measure resistances greater than 11KOhms!"_s);
    EXPECT_EQ(this->measured(u"Ohms"_s, -1, 100), u"Cannot measure resistance less than 0 Ohms!"_s);
}

TYPED_TEST(FlukeLimitsOf, VoltagesAndCurrentsThatAreSourcedHoldForTheAbsoluteValue) {
    const struct {
        QString unit;
        float limit;
        TextId message;
    } rows[] = {
        {u"V"_s, TestFixture::maxSourcedVolts, TextId::cannotSourceVoltageAbove},
        {u"mV"_s, 1000 * TestFixture::maxSourcedVolts, TextId::cannotSourceVoltageAbove},
        {u"uV"_s, 1000000 * TestFixture::maxSourcedVolts, TextId::cannotSourceVoltageAbove},
        {u"mA"_s, 22, TextId::cannotSourceCurrentAbove},
        {u"uA"_s, 22000, TextId::cannotSourceCurrentAbove},
        {u"A"_s, 0.022F, TextId::cannotSourceCurrentAbove},
    };
    for (const auto& row : rows)
        this->expectSourced(row.unit, magnitudeRanges(row.limit, row.message));
}

TYPED_TEST(FlukeLimitsOf, SourcingHaveTheWordsOfThe702) {
    EXPECT_EQ(this->sourced(u"V"_s, 0, 16), u"Fluke 702 cannot source more than 11V DC!"_s);
    EXPECT_EQ(this->sourced(u"Ohms"_s, 0, 11001), u"Fluke 702 cannot source more than 11KOhms!"_s);
    EXPECT_EQ(this->sourced(u"VAC"_s, 0, 1), u"Fluke 702 cannot source AC Volts!"_s);
    EXPECT_EQ(this->sourced(u"Hz"_s, 1, 100), u"Fluke 702 cannot source less than 2Hz or more than 50KHz!"_s);
}

TYPED_TEST(FlukeLimitsOf, AnInputOf4To20MilliamperesPassesAndOneFromMinus23Fails) {
    EXPECT_EQ(this->sourced(u"mA"_s, 4, 20), accepted);
    EXPECT_EQ(this->sourced(u"mA"_s, -23, 0), u"Fluke 702 cannot source more than 22 mA!"_s);
}

TYPED_TEST(FlukeLimitsOf, FrequenciesThatAreSourcedHaveOneMessageForBothEnds) {
    const struct {
        QString unit;
        float bottom, top, middle;
    } rows[] = {{u"Hz"_s, 2, 50000, 1000}, {u"KHz"_s, 0.002F, 50, 1}, {u"MHz"_s, 0.000002F, 0.05F, 0.001F}};
    for (const auto& row : rows) {
        this->expectSourced(row.unit,
                            rangesAround(row.bottom, row.top, row.middle, TextId::cannotSourceFrequency,
                                         TextId::cannotSourceFrequency));
        this->expectSourced(row.unit, {{below(row.bottom), above(row.top), TextId::cannotSourceFrequency},
                                       {0, 0, TextId::cannotSourceFrequency}});
    }
}

TYPED_TEST(FlukeLimitsOf, TheAmplitudeOfASourcedFrequencyLiesFrom2To20AlthoughItHoldsMillivolts) {
    const auto words =
        u"Fluke 702 cannot source less than 1mV or more than 10V peak in frequency output mode! "_s;
    const struct {
        float amplitude;
        bool passes;
    } rows[] = {{2, true},          {above(2), true}, {10, true},        {below(20), true}, {20, true},
                {above(20), false}, {20000, false},   {below(2), false}, {0, false},        {-10, false}};
    for (const auto& unit : {u"Hz"_s, u"KHz"_s, u"MHz"_s}) {
        for (const auto& row : rows) {
            auto record = this->instrument(unit, 0.02F, 0.04F, u"V"_s, 0, 10);
            if (unit == u"Hz")
                record.input_low = record.input_high = 1000;
            record.freq_ptpamp_in = row.amplitude;
            EXPECT_EQ(this->answer(record), row.passes ? accepted : words)
                << unit.toStdString() << " at " << row.amplitude;
        }
    }
}

TYPED_TEST(FlukeLimitsOf, TheRangeOfASourcedFrequencyIsCheckedBeforeItsAmplitude) {
    auto record = this->instrument(u"Hz"_s, 1, 1000, u"V"_s, 0, 10);
    record.freq_ptpamp_in = 0;
    EXPECT_EQ(this->answer(record), text(TextId::cannotSourceFrequency));
}

TYPED_TEST(FlukeLimitsOf, TheAmplitudeCountsForSourcedFrequenciesOnly) {
    auto record = this->transmitter();
    record.freq_ptpamp_in = record.freq_ptpamp_out = 1000;
    EXPECT_EQ(this->answer(record), accepted);
    record = this->instrument(u"V"_s, 0, 10, u"Hz"_s, 1, 1000);
    record.freq_ptpamp_in = record.freq_ptpamp_out = 0;
    EXPECT_EQ(this->answer(record), accepted);
}

TYPED_TEST(FlukeLimitsOf, AlternatingVoltagesAreNeverSourced) {
    for (const auto& unit : {u"VAC"_s, u"mVAC"_s})
        this->expectSourced(unit, {{0, 0, TextId::cannotSourceAcVoltage},
                                   {0, 1, TextId::cannotSourceAcVoltage},
                                   {-1E38F, 1E38F, TextId::cannotSourceAcVoltage}});
}

TYPED_TEST(FlukeLimitsOf, ResistancesThatAreSourcedHaveATopOnly) {
    const struct {
        QString unit;
        float top;
    } rows[] = {{u"Ohms"_s, 11000}, {u"KOhms"_s, 11}, {u"Mohms"_s, TestFixture::maxSourcedMegohms}};
    for (const auto& row : rows)
        this->expectSourced(row.unit, rangesBelow(row.top, TextId::cannotSourceResistanceAbove));
}

TYPED_TEST(FlukeLimitsOf, PressuresHaveNone) {
    for (const auto& unit : pressures) {
        this->expectSourced(unit, {{-1E38F, 1E38F, {}}, {0, 0, {}}});
        EXPECT_EQ(this->answer(this->instrument(u"V"_s, 0, 10, unit, -1E38F, 1E38F)), accepted)
            << unit.toStdString();
    }
}

TYPED_TEST(FlukeLimitsOf, NoUnitIsConverted) {
    // 100 mV would be a tenth of a volt; what counts is the number in the record.
    EXPECT_EQ(this->sourced(u"V"_s, 0, 100), text(TextId::cannotSourceVoltageAbove));
    EXPECT_EQ(this->sourced(u"mV"_s, 0, 100), accepted);
    EXPECT_EQ(this->measured(u"A"_s, 0, 1), text(TextId::cannotMeasureCurrentAbove));
    EXPECT_EQ(this->measured(u"mA"_s, 0, 1), accepted);
}

// Sensors.

template <class Calibrator>
class FlukeSensorLimits : public Calibrator {};
TYPED_TEST_SUITE(FlukeSensorLimits, FlukeCalibrators, FlukeNames);

TYPED_TEST(FlukeSensorLimits, HoldForEachSensorInBothUnitsOnBothSides) {
    const struct {
        QString name;
        float highC, lowC, highF, lowF;
    } rows[] = {
        {u"RTD PT100 3926"_s, 630, -200, 1166, -328},
        {u"RTD PT100 385"_s, 800, -200, 1472, -328},
        {u"RTD PT200 385"_s, 630, -200, 1166, -328},
        {u"RTD PT500 385"_s, 630, -200, 1166, -328},
        {u"RTD PT1000 385"_s, 630, -200, 1166, -328},
        {u"RTD PT100 3916"_s, 630, -200, 1166, -328},
        {u"RTD NI120 672"_s, 260, -80, 500, -112},
        {u"RTD CU10 427"_s, 260, -100, 500, -148},
        {u"TC E"_s, 1000, -250, 1832, -418},
        {u"TC N"_s, 1300, -200, 2372, -328},
        {u"TC J"_s, 1200, -210, 2192, -346},
        {u"TC K"_s, 1372, TestFixture::lowestTypeKCelsius, 2501.6F, -328},
        {u"TC T"_s, 400, -250, 752, -418},
        {u"TC B"_s, 1820, 600, 3308, 1112},
        {u"TC R"_s, 1767, TestFixture::lowestTypeRAndSCelsius, 3212.6F,
         TestFixture::lowestTypeRAndSFahrenheit},
        {u"TC S"_s, 1767, TestFixture::lowestTypeRAndSCelsius, 3212.6F,
         TestFixture::lowestTypeRAndSFahrenheit},
        {u"TC C"_s, 2316, 0, 4200.8F, 32},
        {u"TC L"_s, 900, -200, 1652, -328},
        {u"TC U"_s, 600, -200, 1112, -328},
    };
    for (const auto& row : rows) {
        this->expectTemperatureLimits(u"C"_s, row.name, row.lowC, row.highC);
        this->expectTemperatureLimits(u"F"_s, row.name, row.lowF, row.highF);
    }
}

TYPED_TEST(FlukeSensorLimits, ASensorOfNoRowPasses) {
    for (const auto& sensor : {QString(), u"TC"_s, u"RTD"_s, u"TC e"_s, u"tc E"_s, u"rtd PT100 385"_s,
                               u"RTD PT100 385 "_s, u" TC K"_s, u"TC Q"_s, u"RTD PT100"_s, u"ТС К"_s}) {
        for (const auto& unit : {u"C"_s, u"F"_s})
            this->expectTemperature(unit, sensor, {-1E38F, 1E38F, {}});
    }
}

TYPED_TEST(FlukeSensorLimits, EachSideUsesItsOwnSensor) {
    auto record = this->instrument(u"C"_s, 0, 500, u"mA"_s, 4, 20);
    record.temp_sens_type_in = u"TC K"_s;
    record.temp_sens_type_out = u"TC T"_s;
    EXPECT_EQ(this->answer(record), accepted);
    record.temp_sens_type_in = u"TC T"_s;
    record.temp_sens_type_out = u"TC K"_s;
    EXPECT_EQ(this->answer(record), tooHot);

    record = this->instrument(u"psi"_s, 0, 100, u"C"_s, 0, 500);
    record.temp_sens_type_in = u"TC T"_s;
    record.temp_sens_type_out = u"TC K"_s;
    EXPECT_EQ(this->answer(record), accepted);
}

TYPED_TEST(FlukeSensorLimits, HaveTheWordsOfMeasuringOnTheInputToo) {
    EXPECT_EQ(this->measured(u"C"_s, 0, 1000, u"RTD PT100 385"_s), tooHot);
    EXPECT_EQ(this->sourced(u"C"_s, -300, 100, u"RTD PT100 385"_s), tooCold);
}

TYPED_TEST(FlukeSensorLimits, CountForTemperaturesOnly) {
    auto record = this->transmitter();
    record.input_high = 5000;
    record.temp_sens_type_in = record.temp_sens_type_out = u"TC T"_s;
    EXPECT_EQ(this->answer(record), accepted);
}

} // namespace kelvane::testing
