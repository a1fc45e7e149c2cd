#include "tests/drivers/fluke702/acceptance_fixture.h"

#include "testkit/fluke_units.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString accepted;

} // namespace

class FlukeLimitsOf : public FlukeAcceptance {};

TEST_F(FlukeLimitsOf, VoltagesAndCurrentsThatAreMeasuredHoldForTheAbsoluteValue) {
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

TEST_F(FlukeLimitsOf, FrequenciesAndResistancesThatAreMeasuredHaveABottomAndATop) {
    const struct {
        QString unit;
        float bottom, top, middle;
        TextId tooLow, tooHigh;
    } rows[] = {
        {u"Hz"_s, 1, 20000, 1000, TextId::cannotMeasureFrequencyBelow, TextId::cannotMeasureFrequencyAbove},
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
        // When both ends are beyond the range, the high end is reported first, then the low end.
        expectMeasured(row.unit, {{below(row.bottom), above(row.top), row.tooHigh},
                                  {above(row.top), above(row.top), row.tooHigh},
                                  {below(row.bottom), below(row.bottom), row.tooLow},
                                  {above(row.top), below(row.bottom), row.tooHigh}});
    }
}

TEST_F(FlukeLimitsOf, MeasuringInHzEndsAt20000AlthoughTheWordsSay50KHz) {
    const auto words = u"Fluke 702 cannot measure frequencies greater than 50KHz!"_s;
    EXPECT_EQ(measured(u"Hz"_s, 0, 30000), words);
    EXPECT_EQ(measured(u"Hz"_s, 1, 30000), words);
    EXPECT_EQ(measured(u"KHz"_s, 0.001F, 30), accepted);
    EXPECT_EQ(measured(u"KHz"_s, 0, 30), u"Fluke 702 cannot measure frequencies less than 1 Hz!"_s);
}

TEST_F(FlukeLimitsOf, AnOutputOf0To100KHzIsReportedAsTooHigh) {
    EXPECT_EQ(measured(u"KHz"_s, 0, 100), text(TextId::cannotMeasureFrequencyAbove));
    EXPECT_EQ(measured(u"KHz"_s, 0.001F, 100), text(TextId::cannotMeasureFrequencyAbove));
    EXPECT_EQ(measured(u"KHz"_s, 0, 50), text(TextId::cannotMeasureFrequencyBelow));
}

TEST_F(FlukeLimitsOf, VoltagesAndCurrentsThatAreSourcedHoldForTheAbsoluteValue) {
    const struct {
        QString unit;
        float limit;
        TextId message;
    } rows[] = {
        {u"V"_s, 11, TextId::cannotSourceVoltageAbove},
        {u"mV"_s, 11000, TextId::cannotSourceVoltageAbove},
        {u"uV"_s, 11000000, TextId::cannotSourceVoltageAbove},
        {u"mA"_s, 22, TextId::cannotSourceCurrentAbove},
        {u"uA"_s, 22000, TextId::cannotSourceCurrentAbove},
        {u"A"_s, 0.022F, TextId::cannotSourceCurrentAbove},
    };
    for (const auto& row : rows)
        expectSourced(row.unit, magnitudeRanges(row.limit, row.message));
}

TEST_F(FlukeLimitsOf, AnInputOf4To20MilliamperesPassesAndOneFromMinus23Fails) {
    EXPECT_EQ(sourced(u"mA"_s, 4, 20), accepted);
    EXPECT_EQ(sourced(u"mA"_s, -23, 0), u"Fluke 702 cannot source more than 22 mA!"_s);
}

TEST_F(FlukeLimitsOf, FrequenciesThatAreSourcedHaveOneMessageForBothEnds) {
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

TEST_F(FlukeLimitsOf, TheAmplitudeOfASourcedFrequencyEndsAt20AlthoughItHoldsMillivolts) {
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

TEST_F(FlukeLimitsOf, TheRangeOfASourcedFrequencyIsCheckedBeforeItsAmplitude) {
    auto record = instrument(u"Hz"_s, 1, 1000, u"V"_s, 0, 10);
    record.freq_ptpamp_in = 0;
    EXPECT_EQ(answer(record), text(TextId::cannotSourceFrequency));
}

TEST_F(FlukeLimitsOf, TheAmplitudeCountsForSourcedFrequenciesOnly) {
    auto record = transmitter();
    record.freq_ptpamp_in = record.freq_ptpamp_out = 1000;
    EXPECT_EQ(answer(record), accepted);
    record = instrument(u"V"_s, 0, 10, u"Hz"_s, 1, 1000);
    record.freq_ptpamp_in = record.freq_ptpamp_out = 0;
    EXPECT_EQ(answer(record), accepted);
}

TEST_F(FlukeLimitsOf, AlternatingVoltagesAreNeverSourced) {
    for (const auto& unit : {u"VAC"_s, u"mVAC"_s})
        expectSourced(unit, {{0, 0, TextId::cannotSourceAcVoltage},
                             {0, 1, TextId::cannotSourceAcVoltage},
                             {-1E38F, 1E38F, TextId::cannotSourceAcVoltage}});
}

TEST_F(FlukeLimitsOf, ResistancesThatAreSourcedHaveATopOnly) {
    const struct {
        QString unit;
        float top;
    } rows[] = {{u"Ohms"_s, 11000}, {u"KOhms"_s, 11}, {u"Mohms"_s, 0.011F}};
    for (const auto& row : rows)
        expectSourced(row.unit, rangesBelow(row.top, TextId::cannotSourceResistanceAbove));
}

TEST_F(FlukeLimitsOf, PressuresHaveNone) {
    for (const auto& unit : pressures) {
        expectSourced(unit, {{-1E38F, 1E38F, {}}, {0, 0, {}}});
        EXPECT_EQ(answer(instrument(u"V"_s, 0, 10, unit, -1E38F, 1E38F)), accepted) << unit.toStdString();
    }
}

TEST_F(FlukeLimitsOf, NoUnitIsConverted) {
    // 100 mV would be a tenth of a volt; what counts is the number in the record.
    EXPECT_EQ(sourced(u"V"_s, 0, 100), text(TextId::cannotSourceVoltageAbove));
    EXPECT_EQ(sourced(u"mV"_s, 0, 100), accepted);
    EXPECT_EQ(measured(u"A"_s, 0, 1), text(TextId::cannotMeasureCurrentAbove));
    EXPECT_EQ(measured(u"mA"_s, 0, 1), accepted);
}

} // namespace kelvane::testing
