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

/// In millivolts, although the words of its message would allow 20000.
constexpr FlukeSpan amplitude{2, 20};

struct Side {
    const QString& unit;
    const QString& sensor;
    float high;
    float low;
};

template <class Rows>
auto rowOf(const Rows& rows, QStringView name) {
    return std::find_if(rows.begin(), rows.end(), [&](const auto& row) { return row.name == name; });
}

/// What the calibrator takes of a side; nothing when there is no limit.
std::optional<FlukeSpan> spanFor(const FlukeLimits& limits, const Side& side,
                                 FlukeSpan FlukeLimits::Unit::*direction) {
    if (flukeQuantity(side.unit) == temperature) {
        const auto sensor = rowOf(limits.sensors, side.sensor);
        if (sensor == limits.sensors.end())
            return {};
        return side.unit == u"C" ? sensor->celsius : sensor->fahrenheit;
    }
    const auto unit = rowOf(limits.units, side.unit);
    if (unit == limits.units.end())
        return {};
    return (*unit).*direction;
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
