#include "drivers/fluke_limits.h"

#include "drivers/fluke_quantity.h"
#include "resources/text_id.h"

#include <algorithm>
#include <optional>

namespace kelvane {

namespace {

/// The messages for an end of the range that lies below or above what the calibrator can do.
struct Messages {
    TextId below;
    TextId above;
};

struct QuantityRow {
    FlukeQuantity quantity;
    Messages measuring;
    Messages sourcing;
};

using enum FlukeQuantity;

/// Temperatures have the words "cannot measure" on both sides.
constexpr QuantityRow quantities[] = {
    {temperature,
     {TextId::cannotMeasureTemperatureBelow, TextId::cannotMeasureTemperatureAbove},
     {TextId::cannotMeasureTemperatureBelow, TextId::cannotMeasureTemperatureAbove}},
    {current,
     {TextId::cannotMeasureCurrentAbove, TextId::cannotMeasureCurrentAbove},
     {TextId::cannotSourceCurrentAbove, TextId::cannotSourceCurrentAbove}},
    {dcVoltage,
     {TextId::cannotMeasureVoltageAbove, TextId::cannotMeasureVoltageAbove},
     {TextId::cannotSourceVoltageAbove, TextId::cannotSourceVoltageAbove}},
    {acVoltage,
     {TextId::cannotMeasureVoltageAbove, TextId::cannotMeasureVoltageAbove},
     {TextId::cannotSourceAcVoltage, TextId::cannotSourceAcVoltage}},
    {frequency,
     {TextId::cannotMeasureFrequencyBelow, TextId::cannotMeasureFrequencyAbove},
     {TextId::cannotSourceFrequency, TextId::cannotSourceFrequency}},
    {resistance,
     {TextId::cannotMeasureResistanceBelow, TextId::cannotMeasureResistanceAbove},
     {TextId::cannotSourceResistanceAbove, TextId::cannotSourceResistanceAbove}},
};

constexpr auto unlimited = FlukeLimits::unlimited;
constexpr auto never = FlukeLimits::never;

constexpr FlukeLimits::Unit commonUnits[] = {
    {u"VAC", {-300, 300}, never},
    {u"mVAC", {-300000, 300000}, never},
    {u"mA", {-110, 110}, {-22, 22}},
    {u"uA", {-110000, 110000}, {-22000, 22000}},
    {u"A", {-0.11F, 0.11F}, {-0.022F, 0.022F}},
    {u"KHz", {0.001F, 50}, {0.002F, 50}},
    {u"MHz", {0.000001F, 0.05F}, {0.000002F, 0.05F}},
    {u"Ohms", {0, 11000}, {-unlimited, 11000}},
    {u"KOhms", {0, 11}, {-unlimited, 11}},
};

constexpr FlukeLimits::Sensor commonSensors[] = {
    {u"RTD PT100 3926", {-200, 630}, {-328, 1166}}, {u"RTD PT100 385", {-200, 800}, {-328, 1472}},
    {u"RTD PT200 385", {-200, 630}, {-328, 1166}},  {u"RTD PT500 385", {-200, 630}, {-328, 1166}},
    {u"RTD PT1000 385", {-200, 630}, {-328, 1166}}, {u"RTD PT100 3916", {-200, 630}, {-328, 1166}},
    {u"RTD NI120 672", {-80, 260}, {-112, 500}},    {u"RTD CU10 427", {-100, 260}, {-148, 500}},
    {u"TC E", {-250, 1000}, {-418, 1832}},          {u"TC N", {-200, 1300}, {-328, 2372}},
    {u"TC J", {-210, 1200}, {-346, 2192}},          {u"TC T", {-250, 400}, {-418, 752}},
    {u"TC B", {600, 1820}, {1112, 3308}},           {u"TC C", {0, 2316}, {32, 4200.8F}},
    {u"TC L", {-200, 900}, {-328, 1652}},           {u"TC U", {-200, 600}, {-328, 1112}},
};

/// In millivolts, although the words of its message would allow 20000.
constexpr FlukeSpan amplitude{2, 20};

struct Side {
    const QString& unit;
    const QString& sensor;
    float high;
    float low;
};

/// The calibrator's own row of that name, else the common one; null for a name without a row.
template <class Row>
const Row* rowOf(std::span<const Row> own, std::span<const Row> common, QStringView name) {
    for (const auto rows : {own, common}) {
        const auto found = std::ranges::find(rows, name, &Row::name);
        if (found != rows.end())
            return &*found;
    }
    return nullptr;
}

/// What the calibrator takes of a side; nothing when there is no limit.
std::optional<FlukeSpan> spanFor(const FlukeLimits& limits, const Side& side,
                                 FlukeSpan FlukeLimits::Unit::*direction) {
    if (flukeQuantity(side.unit) == temperature) {
        const auto* sensor = rowOf<FlukeLimits::Sensor>(limits.sensors, commonSensors, side.sensor);
        if (!sensor)
            return {};
        return side.unit == u"C" ? sensor->celsius : sensor->fahrenheit;
    }
    const auto* unit = rowOf<FlukeLimits::Unit>(limits.units, commonUnits, side.unit);
    if (!unit)
        return {};
    return unit->*direction;
}

/// The order counts where one end lies below and the other above. Comparisons are of 32 bits on both sides,
/// so that an end exactly on a limit passes.
std::optional<TextId> fault(FlukeSpan span, const Side& side, Messages messages) {
    if (span.low > span.high)
        return messages.above;
    if (side.high > span.high)
        return messages.above;
    if (side.low < span.low)
        return messages.below;
    if (side.low > span.high)
        return messages.above;
    if (side.high < span.low)
        return messages.below;
    return {};
}

std::optional<TextId> fault(const FlukeLimits& limits, const Side& side,
                            FlukeSpan FlukeLimits::Unit::*direction, Messages QuantityRow::*messages) {
    const auto span = spanFor(limits, side, direction);
    if (!span)
        return {};
    const auto quantity = flukeQuantity(side.unit);
    const auto* row =
        std::find_if(std::begin(quantities), std::end(quantities),
                     [&](const QuantityRow& candidate) { return candidate.quantity == quantity; });
    return row == std::end(quantities) ? std::nullopt : fault(*span, side, row->*messages);
}

} // namespace

std::optional<TextId> flukeCannotMeasure(const FlukeLimits& limits, const CalParamRecord& instrument) {
    return fault(limits,
                 {instrument.output_type, instrument.temp_sens_type_out, instrument.output_high,
                  instrument.output_low},
                 &FlukeLimits::Unit::measures, &QuantityRow::measuring);
}

std::optional<TextId> flukeCannotSource(const FlukeLimits& limits, const CalParamRecord& instrument) {
    const auto message = fault(
        limits,
        {instrument.input_type, instrument.temp_sens_type_in, instrument.input_high, instrument.input_low},
        &FlukeLimits::Unit::sources, &QuantityRow::sourcing);
    if (message || flukeQuantity(instrument.input_type) != frequency)
        return message;
    const auto peakToPeak = instrument.freq_ptpamp_in;
    return peakToPeak < amplitude.low || peakToPeak > amplitude.high
               ? std::optional(TextId::cannotSourceAmplitude)
               : std::nullopt;
}

} // namespace kelvane
