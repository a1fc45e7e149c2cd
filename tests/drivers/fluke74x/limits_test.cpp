#include "tests/drivers/fluke74x/acceptance_fixture.h"

#include "testkit/fluke_units.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString accepted;

} // namespace

class Fluke74xLimitsOf : public Fluke74xAcceptance {};

TEST_F(Fluke74xLimitsOf, VoltagesAndCurrentsThatAreMeasuredHoldForTheAbsoluteValue) {
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
        expectMeasured(row.unit, magnitudeRanges(row.limit, row.message));
}

TEST_F(Fluke74xLimitsOf, FrequenciesAndResistancesThatAreMeasuredHaveABottomAndATop) {
    const struct {
        QString unit;
        float bottom, top, middle;
        TextId tooLow, tooHigh;
    } rows[] = {
        {u"Hz"_s, 1, 50000, 1000, TextId::cannotMeasureFrequencyBelow, TextId::cannotMeasureFrequencyAbove},
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
        expectMeasured(row.unit, rangesAround(row.bottom, row.top, row.middle, row.tooLow, row.tooHigh));
        // H above, L below, L above, H below, in this order.
        expectMeasured(row.unit, {{below(row.bottom), above(row.top), row.tooHigh},
                                  {above(row.top), above(row.top), row.tooHigh},
                                  {below(row.bottom), below(row.bottom), row.tooLow},
                                  {above(row.top), below(row.bottom), row.tooHigh}});
    }
}

TEST_F(Fluke74xLimitsOf, MeasuringGiveTheWordsOfThe702) {
    EXPECT_EQ(measured(u"V"_s, 0, 301), u"Fluke 702 cannot measure voltages greater than 300V!"_s);
    EXPECT_EQ(measured(u"mA"_s, 0, 111), u"Fluke 702 cannot measure current greater than 110 mA!"_s);
    EXPECT_EQ(measured(u"Hz"_s, 1, 50001), u"Fluke 702 cannot measure frequencies greater than 50KHz!"_s);
    EXPECT_EQ(measured(u"Hz"_s, 0, 100), u"Fluke 702 cannot measure frequencies less than 1 Hz!"_s);
    EXPECT_EQ(measured(u"Ohms"_s, 0, 11001), u"Fluke 702 cannot measure resistances greater than 11KOhms!"_s);
    EXPECT_EQ(measured(u"Ohms"_s, -1, 100), u"Cannot measure resistance less than 0 Ohms!"_s);
}

TEST_F(Fluke74xLimitsOf, VoltagesAndCurrentsThatAreSourcedHoldForTheAbsoluteValue) {
    const struct {
        QString unit;
        float limit;
        TextId message;
    } rows[] = {
        {u"V"_s, 15, TextId::cannotSourceVoltageAbove},
        {u"mV"_s, 15000, TextId::cannotSourceVoltageAbove},
        {u"uV"_s, 15000000, TextId::cannotSourceVoltageAbove},
        {u"mA"_s, 22, TextId::cannotSourceCurrentAbove},
        {u"uA"_s, 22000, TextId::cannotSourceCurrentAbove},
        {u"A"_s, 0.022F, TextId::cannotSourceCurrentAbove},
    };
    for (const auto& row : rows)
        expectSourced(row.unit, magnitudeRanges(row.limit, row.message));
}

TEST_F(Fluke74xLimitsOf, SourcingGiveTheWordsOfThe702) {
    EXPECT_EQ(sourced(u"V"_s, 0, 16), u"Fluke 702 cannot source more than 11V DC!"_s);
    EXPECT_EQ(sourced(u"mA"_s, -23, 0), u"Fluke 702 cannot source more than 22 mA!"_s);
    EXPECT_EQ(sourced(u"Ohms"_s, 0, 11001), u"Fluke 702 cannot source more than 11KOhms!"_s);
    EXPECT_EQ(sourced(u"VAC"_s, 0, 1), u"Fluke 702 cannot source AC Volts!"_s);
    EXPECT_EQ(sourced(u"Hz"_s, 1, 100), u"Fluke 702 cannot source less than 2Hz or more than 50KHz!"_s);
}

TEST_F(Fluke74xLimitsOf, FrequenciesThatAreSourcedHaveOneMessageForBothEnds) {
    const struct {
        QString unit;
        float bottom, top, middle;
    } rows[] = {{u"Hz"_s, 2, 50000, 1000}, {u"KHz"_s, 0.002F, 50, 1}, {u"MHz"_s, 0.000002F, 0.05F, 0.001F}};
    for (const auto& row : rows) {
        expectSourced(row.unit, rangesAround(row.bottom, row.top, row.middle, TextId::cannotSourceFrequency,
                                             TextId::cannotSourceFrequency));
        expectSourced(row.unit, {{below(row.bottom), above(row.top), TextId::cannotSourceFrequency},
                                 {0, 0, TextId::cannotSourceFrequency}});
    }
}

TEST_F(Fluke74xLimitsOf, TheAmplitudeOfASourcedFrequencyLiesFrom2To20) {
    const auto words =
        u"Fluke 702 cannot source less than 1mV or more than 10V peak in frequency output mode! "_s;
    const struct {
        float amplitude;
        bool passes;
    } rows[] = {{2, true},          {above(2), true}, {10, true},        {below(20), true}, {20, true},
                {above(20), false}, {20000, false},   {below(2), false}, {0, false},        {-10, false}};
    for (const auto& unit : {u"Hz"_s, u"KHz"_s, u"MHz"_s}) {
        for (const auto& row : rows) {
            auto record = instrument(unit, 0.02F, 0.04F, u"V"_s, 0, 10);
            if (unit == u"Hz")
                record.input_low = record.input_high = 1000;
            record.freq_ptpamp_in = row.amplitude;
            EXPECT_EQ(answer(record), row.passes ? accepted : words)
                << unit.toStdString() << " at " << row.amplitude;
        }
    }
}

TEST_F(Fluke74xLimitsOf, TheRangeOfASourcedFrequencyIsCheckedBeforeItsAmplitude) {
    auto record = instrument(u"Hz"_s, 1, 1000, u"V"_s, 0, 10);
    record.freq_ptpamp_in = 0;
    EXPECT_EQ(answer(record), text(TextId::cannotSourceFrequency));
}

TEST_F(Fluke74xLimitsOf, TheAmplitudeCountsForSourcedFrequenciesOnly) {
    auto record = transmitter();
    record.freq_ptpamp_in = record.freq_ptpamp_out = 1000;
    EXPECT_EQ(answer(record), accepted);
    record = instrument(u"V"_s, 0, 10, u"Hz"_s, 1, 1000);
    record.freq_ptpamp_in = record.freq_ptpamp_out = 0;
    EXPECT_EQ(answer(record), accepted);
}

TEST_F(Fluke74xLimitsOf, AlternatingVoltagesAreNeverSourced) {
    for (const auto& unit : {u"VAC"_s, u"mVAC"_s})
        expectSourced(unit, {{0, 0, TextId::cannotSourceAcVoltage},
                             {0, 1, TextId::cannotSourceAcVoltage},
                             {-1E38F, 1E38F, TextId::cannotSourceAcVoltage}});
}

TEST_F(Fluke74xLimitsOf, ResistancesThatAreSourcedHaveATopOnly) {
    const struct {
        QString unit;
        float top;
    } rows[] = {{u"Ohms"_s, 11000}, {u"KOhms"_s, 11}, {u"Mohms"_s, 0.05F}};
    for (const auto& row : rows)
        expectSourced(row.unit, rangesBelow(row.top, TextId::cannotSourceResistanceAbove));
}

TEST_F(Fluke74xLimitsOf, PressuresHaveNone) {
    for (const auto& unit : pressures) {
        expectSourced(unit, {{-1E38F, 1E38F, {}}, {0, 0, {}}});
        EXPECT_EQ(answer(instrument(u"V"_s, 0, 10, unit, -1E38F, 1E38F)), accepted) << unit.toStdString();
    }
}

TEST_F(Fluke74xLimitsOf, NoUnitIsConverted) {
    EXPECT_EQ(sourced(u"V"_s, 0, 100), text(TextId::cannotSourceVoltageAbove));
    EXPECT_EQ(sourced(u"mV"_s, 0, 100), accepted);
    EXPECT_EQ(measured(u"A"_s, 0, 1), text(TextId::cannotMeasureCurrentAbove));
    EXPECT_EQ(measured(u"mA"_s, 0, 1), accepted);
}

// Sensors.

TEST_F(Fluke74xLimitsOf, EachSensorHoldInBothUnitsOnBothSides) {
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
        {u"TC K"_s, 1372, -270, 2501.6F, -328},
        {u"TC T"_s, 400, -250, 752, -418},
        {u"TC B"_s, 1820, 600, 3308, 1112},
        {u"TC R"_s, 1767, -20, 3212.6F, -4},
        {u"TC S"_s, 1767, -20, 3212.6F, -4},
        {u"TC C"_s, 2316, 0, 4200.8F, 32},
        {u"TC L"_s, 900, -200, 1652, -328},
        {u"TC U"_s, 600, -200, 1112, -328},
    };
    for (const auto& row : rows) {
        expectTemperatureLimits(u"C"_s, row.name, row.lowC, row.highC);
        expectTemperatureLimits(u"F"_s, row.name, row.lowF, row.highF);
    }
}

TEST_F(Fluke74xLimitsOf, SensorsGiveTheWordsOfThe702) {
    EXPECT_EQ(measured(u"C"_s, 0, 1000, u"RTD PT100 385"_s),
              u"Fluke 702 cannot measure that high of temperature for the selected temperature device!"_s);
    EXPECT_EQ(sourced(u"C"_s, -300, 100, u"RTD PT100 385"_s),
              u"Fluke 702 cannot measure that low of temperature for the selected temperature device!"_s);
}

TEST_F(Fluke74xLimitsOf, ASensorOfNoRowAreNone) {
    for (const auto& sensor : {QString(), u"TC"_s, u"RTD"_s, u"TC e"_s, u"tc E"_s, u"RTD PT100 385 "_s,
                               u" TC K"_s, u"TC Q"_s, u"RTD PT100"_s, u"ТС К"_s}) {
        for (const auto& unit : {u"C"_s, u"F"_s})
            expectTemperature(unit, sensor, {-1E38F, 1E38F, {}});
    }
}

TEST_F(Fluke74xLimitsOf, ASensorAreThoseOfItsOwnSide) {
    auto record = instrument(u"C"_s, 0, 500, u"mA"_s, 4, 20);
    record.temp_sens_type_in = u"TC K"_s;
    record.temp_sens_type_out = u"TC T"_s;
    EXPECT_EQ(answer(record), accepted);
    std::swap(record.temp_sens_type_in, record.temp_sens_type_out);
    EXPECT_EQ(answer(record), text(TextId::cannotMeasureTemperatureAbove));
}

} // namespace kelvane::testing
