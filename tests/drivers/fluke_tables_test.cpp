#include "drivers/fluke_combinations.h"
#include "drivers/fluke_limits.h"
#include "drivers/fluke_mode.h"
#include "drivers/fluke_quantity.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr auto infinity = std::numeric_limits<float>::infinity();
constexpr auto notANumber = std::numeric_limits<float>::quiet_NaN();

// The limits and words of a calibrator that does not exist.
constexpr FlukeLimits::Unit units[] = {
    {u"V", {-5, 5}, {0, 1}},
    {u"Hz", {10, 20}, {10, 20}},
    {u"VAC", {-5, 5}, FlukeLimits::never},
    {u"Ohms", {0, 100}, {-FlukeLimits::unlimited, 100}},
};
constexpr FlukeLimits::Sensor sensors[] = {{u"TC K", {0, 10}, {32, 50}}};
constexpr FlukeLimits limits{units, sensors};

constexpr FlukeWords::Sensor sensorWords[] = {{u"RTD PT100 385", u"Platinum"}, {u"TC K", u"Kay"}};
constexpr FlukeWords::Mode modes[] = {{FlukeQuantity::temperature, u"Couple"},
                                      {FlukeQuantity::current, u"Loop"}};
constexpr FlukeWords words{u"Cold", u"Warm", sensorWords, modes,
                           [](qint16 wires) { return QString::number(wires) + u" wires"_s; }};

std::optional<TextId> cannotMeasure(const QString& unit, float low, float high, const QString& sensor = {}) {
    CalParamRecord record;
    record.output_type = unit;
    record.output_low = low;
    record.output_high = high;
    record.temp_sens_type_out = sensor;
    return flukeCannotMeasure(limits, record);
}

std::optional<TextId> cannotSource(const QString& unit, float low, float high, float amplitude = 10) {
    CalParamRecord record;
    record.input_type = unit;
    record.input_low = low;
    record.input_high = high;
    record.freq_ptpamp_in = amplitude;
    return flukeCannotSource(limits, record);
}

QString modeOf(const QString& unit, const QString& sensor = {}, qint16 wires = 0) {
    const auto mode = flukeMode(words, unit, sensor, wires);
    return mode.Mode + u'|' + mode.Sensor + u'|' + mode.TempUnits;
}

} // namespace

TEST(FlukeTables, GiveTheLimitsOfTheCalibrator) {
    EXPECT_EQ(cannotMeasure(u"V"_s, -5, 5), std::nullopt);
    EXPECT_EQ(cannotMeasure(u"V"_s, -5, 5.5F), TextId::cannotMeasureVoltageAbove);
    EXPECT_EQ(cannotSource(u"V"_s, 0, 1), std::nullopt);
    EXPECT_EQ(cannotSource(u"V"_s, 0, 5), TextId::cannotSourceVoltageAbove);
    EXPECT_EQ(cannotMeasure(u"C"_s, 0, 10, u"TC K"_s), std::nullopt);
    EXPECT_EQ(cannotMeasure(u"F"_s, 0, 10, u"TC K"_s), TextId::cannotMeasureTemperatureBelow);
    EXPECT_EQ(cannotMeasure(u"F"_s, 32, 51, u"TC K"_s), TextId::cannotMeasureTemperatureAbove);
}

TEST(FlukeTables, HaveNoLimitForWhatHasNoRow) {
    for (const auto& unit : {u"psi"_s, u"%"_s, u"ma"_s, QString()}) {
        EXPECT_EQ(cannotMeasure(unit, -infinity, infinity), std::nullopt) << unit.toStdString();
        EXPECT_EQ(cannotSource(unit, -infinity, infinity), std::nullopt) << unit.toStdString();
    }
    EXPECT_EQ(cannotMeasure(u"C"_s, -infinity, infinity, u"TC X"_s), std::nullopt);
}

TEST(FlukeTables, HaveTheCommonLimitsWhereACalibratorHasNoRowOfItsOwn) {
    EXPECT_EQ(cannotMeasure(u"mA"_s, -110, 110), std::nullopt);
    EXPECT_EQ(cannotMeasure(u"mA"_s, 0, 110.1F), TextId::cannotMeasureCurrentAbove);
    EXPECT_EQ(cannotSource(u"mA"_s, 0, 22.1F), TextId::cannotSourceCurrentAbove);
    EXPECT_EQ(cannotMeasure(u"C"_s, -210, 1200, u"TC J"_s), std::nullopt);
    EXPECT_EQ(cannotMeasure(u"C"_s, -211, 0, u"TC J"_s), TextId::cannotMeasureTemperatureBelow);
    EXPECT_EQ(cannotMeasure(u"C"_s, 0, 11, u"TC K"_s), TextId::cannotMeasureTemperatureAbove)
        << "its own row";
    EXPECT_EQ(cannotMeasure(u"Ohms"_s, 0, 101), TextId::cannotMeasureResistanceAbove) << "its own row";
}

TEST(FlukeTables, AnInfiniteEndLiesBeyondEveryLimit) {
    EXPECT_EQ(cannotMeasure(u"V"_s, 0, infinity), TextId::cannotMeasureVoltageAbove);
    EXPECT_EQ(cannotMeasure(u"V"_s, -infinity, 0), TextId::cannotMeasureVoltageAbove);
    EXPECT_EQ(cannotMeasure(u"Hz"_s, 10, infinity), TextId::cannotMeasureFrequencyAbove);
    EXPECT_EQ(cannotMeasure(u"Hz"_s, -infinity, 10), TextId::cannotMeasureFrequencyBelow);
    EXPECT_EQ(cannotMeasure(u"Hz"_s, -infinity, infinity), TextId::cannotMeasureFrequencyAbove);
    EXPECT_EQ(cannotMeasure(u"C"_s, -infinity, 0, u"TC K"_s), TextId::cannotMeasureTemperatureBelow);
    EXPECT_EQ(cannotSource(u"Ohms"_s, 0, infinity), TextId::cannotSourceResistanceAbove);
    EXPECT_EQ(cannotSource(u"Hz"_s, 10, 20, infinity), TextId::cannotSourceAmplitude);
}

TEST(FlukeTables, WithoutALowLimitTakeAnyLowEnd) {
    EXPECT_EQ(cannotSource(u"Ohms"_s, -infinity, -infinity), std::nullopt);
}

TEST(FlukeTables, NotANumberLiesNeitherAboveNorBelow) {
    EXPECT_EQ(cannotMeasure(u"V"_s, notANumber, notANumber), std::nullopt);
    EXPECT_EQ(cannotMeasure(u"Hz"_s, notANumber, 21), TextId::cannotMeasureFrequencyAbove);
    EXPECT_EQ(cannotMeasure(u"Hz"_s, 9, notANumber), TextId::cannotMeasureFrequencyBelow);
    EXPECT_EQ(cannotMeasure(u"C"_s, notANumber, notANumber, u"TC K"_s), std::nullopt);
    EXPECT_EQ(cannotSource(u"Hz"_s, notANumber, notANumber, notANumber), std::nullopt);
}

TEST(FlukeTables, WhatIsNeverTakenIsRefusedWithEveryRange) {
    for (const float end : {0.F, infinity, -infinity, notANumber})
        EXPECT_EQ(cannotSource(u"VAC"_s, end, end), TextId::cannotSourceAcVoltage) << end;
}

TEST(FlukeTables, GiveTheWordsOfTheCalibrator) {
    EXPECT_EQ(modeOf(u"C"_s, u"RTD PT100 385"_s, 7), u"7 wires|Platinum|Cold"_s);
    EXPECT_EQ(modeOf(u"F"_s, u"TC K"_s, 7), u"Couple|Kay|Warm"_s);
    EXPECT_EQ(modeOf(u"F"_s, u"TC J"_s, 7), u"||Warm"_s);
    EXPECT_EQ(modeOf(u"uA"_s, u"TC K"_s, 7), u"Loop||"_s);
    EXPECT_EQ(modeOf(u"V"_s), u"||"_s);
    EXPECT_EQ(modeOf(u"%"_s), u"||"_s);
}

TEST(FlukeTables, GiveTheQuantityOfEachUnit) {
    using enum FlukeQuantity;
    const struct {
        QStringList units;
        std::optional<FlukeQuantity> quantity;
    } rows[] = {
        {{u"C"_s, u"F"_s}, temperature},
        {{u"psi"_s, u"psig"_s, u"inHg"_s, u"inH2O"_s, u"mmHg"_s, u"kPa"_s, u"bar"_s, u"mbar"_s}, pressure},
        {{u"mA"_s, u"uA"_s, u"A"_s}, current},
        {{u"V"_s, u"mV"_s, u"uV"_s}, dcVoltage},
        {{u"VAC"_s, u"mVAC"_s}, acVoltage},
        {{u"Hz"_s, u"KHz"_s, u"MHz"_s}, frequency},
        {{u"Ohms"_s, u"KOhms"_s, u"Mohms"_s}, resistance},
        {{QString(), u"%"_s, u"v"_s, u"ft/lb"_s, u"K"_s}, {}},
    };
    for (const auto& row : rows) {
        for (const auto& unit : row.units)
            EXPECT_EQ(flukeQuantity(unit), row.quantity) << unit.toStdString();
    }
}

TEST(FlukeTables, HoldFiveCombinationsOfWhichNoTwoAreTheSame) {
    EXPECT_EQ(std::size(flukeCombinations), 5U);
    for (const auto& combination : flukeCombinations) {
        const auto alike = std::count_if(std::begin(flukeCombinations), std::end(flukeCombinations),
                                         [&](const FlukeCombination& other) {
                                             return other.inputClass == combination.inputClass &&
                                                    other.outputClass == combination.outputClass;
                                         });
        EXPECT_EQ(alike, 1) << combination.inputClass << " and " << combination.outputClass;
    }
}

} // namespace kelvane::testing
