#include "drivers/torquestar/characteristic.h"

#include "drivers/torquestar/codes.h"
#include "drivers/torquestar/fields.h"
#include "drivers/torquestar/messages.h"
#include "platform/values/numbers.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleTSInterface {

namespace {

constexpr int scaledReal = 4;
constexpr int integer32 = 3;
constexpr int integer16 = 2;

/// What the fields of one instrument are made from.
struct Tool {
    Session& session;
    const CalParamRecord& instrument;
    const CalParamRecord& transducer;
    TorqueLimits limits;
};

/// Nothing: the field stays as it was.
using Field = std::optional<QByteArray>;
using Source = Field (*)(const Tool&);

Field field(std::optional<quint8> code) {
    if (!code)
        return {};
    return QByteArray(1, static_cast<char>(*code));
}

template <quint8 code>
Field constantField(const Tool&) {
    return field(code);
}

Field samples(const Tool& tool) {
    return byteField(tool.instrument.repetitions);
}
Field transducerType(const Tool& tool) {
    return field(codeOf(transducerTypes, tool.transducer.transducer_type_out));
}
Field transducerSpan(const Tool& tool) {
    return Conv2Hex(tool.session, tool.transducer.output_high, scaledReal);
}
Field serialFormat(const Tool& tool) {
    return field(serialFormatOf(tool.transducer.resolution));
}
Field spanUnits(const Tool& tool) {
    return field(codeOf(unitCodes, tool.transducer.input_type));
}
Field baudRate(const Tool& tool) {
    return field(codeOf(baudRates, tool.transducer.baud_rate_out));
}
Field cycleEndTime(const Tool& tool) {
    return field(codeOf(cycleEndTimes, tool.instrument.cycle_end_time_out));
}
Field dataBits(const Tool& tool) {
    return byteField(numericValue(tool.transducer.data_bits_out));
}
Field measurementMode(const Tool& tool) {
    return field(codeOf(measurementModes, tool.instrument.measurement_mode_out));
}
Field stopBits(const Tool& tool) {
    return byteField(numericValue(tool.transducer.stop_bits_out));
}
Field frequencyResponse(const Tool& tool) {
    return field(codeOf(frequencyResponses, tool.instrument.frequency_response_out));
}
Field parity(const Tool& tool) {
    return field(codeOf(parities, tool.transducer.data_parity_out));
}
Field displayUnits(const Tool& tool) {
    return field(codeOf(unitCodes, tool.instrument.output_type));
}
Field direction(const Tool& tool) {
    return field(codeOf(directions, tool.instrument.measurement_direction_out));
}
Field maximumTorque(const Tool& tool) {
    return Conv2Hex(tool.session, tool.limits.maximum, scaledReal);
}
Field minimumTorque(const Tool& tool) {
    return Conv2Hex(tool.session, tool.limits.minimum, scaledReal);
}
Field thresholdTorque(const Tool& tool) {
    return Conv2Hex(tool.session, tool.instrument.threshold_torque_out, scaledReal);
}
Field clickDipThreshold(const Tool& tool) {
    return Conv2Hex(tool.session, tool.instrument.click_dip_torque_out, scaledReal);
}

constexpr Source notWritten = nullptr;

/// The fields that are filled for each instrument, in the order of the message.
constexpr struct {
    Source other;
    Source serial;
    /// The text that refuses an instrument for which the field has no value.
    std::optional<TextId> refusal = {};
} sources[] = {
    {samples, samples},
    {constantField<1>, constantField<1>}, // number of subgroups
    {constantField<30>, notWritten},      // transducer number
    {transducerType, constantField<3>},
    {transducerSpan, notWritten},
    {constantField<0>, serialFormat},
    {spanUnits, notWritten, TextId::inputUnitsNotAccepted},
    {constantField<0>, baudRate},
    {cycleEndTime, dataBits},
    {measurementMode, stopBits},
    {frequencyResponse, parity},
    {displayUnits, notWritten, TextId::outputUnitsNotAccepted},
    {direction, constantField<0>},
    {maximumTorque, maximumTorque},
    {minimumTorque, minimumTorque},
    {thresholdTorque, thresholdTorque},
    {clickDipThreshold, clickDipThreshold},
};

} // namespace

TorqueLimits torqueLimits(const CalParamRecord& instrument) {
    const double high = instrument.input_high;
    const double low = instrument.input_low;
    const double span = high - low;
    const double res = widenThroughText(instrument.resolution);
    const double mid = span * (instrument.max_test_point_pct / 100.0) + low;
    return {.maximum = span * instrument.pos_span_pct / 100.0 +
                       (instrument.pos_fs_range_pct / 100.0 * high + mid) +
                       instrument.pos_reading_pct / 100.0 * mid + instrument.pos_lsd_counts * res +
                       instrument.pos_units,
            .minimum = mid - instrument.neg_fs_range_pct / 100.0 * high -
                       span * instrument.neg_span_pct / 100.0 - instrument.neg_reading_pct / 100.0 * mid -
                       instrument.neg_lsd_counts * res - instrument.neg_units};
}

CharacteristicFields::CharacteristicFields(Session& session) {
    fields_[17] = " ";                              // comment
    fields_[18] = byteField(0);                     // secondary parameter
    fields_[19] = Conv2Hex(session, 0, scaledReal); // its maximum
    fields_[20] = Conv2Hex(session, 0, scaledReal); // its minimum
    fields_[21] = Conv2Hex(session, 0, integer16);
    fields_[22] = Conv2Hex(session, 2, scaledReal); // millivolts per volt
    fields_[23] = Conv2Hex(session, 350, integer16);
    fields_[24] = Conv2Hex(session, 12345, integer32);
}

QString CharacteristicFields::fill(Session& session, const CalParamRecord& instrument,
                                   const CalParamRecord& transducer) {
    const Tool tool{session, instrument, transducer, torqueLimits(instrument)};
    const bool serial = transducer.transducer_type_out == u"Serial";
    for (std::size_t i = 0; i < std::size(sources); ++i) {
        const auto source = serial ? sources[i].serial : sources[i].other;
        if (source == notWritten)
            continue;
        if (const auto value = source(tool))
            fields_[i] = *value;
        else if (sources[i].refusal)
            return text(*sources[i].refusal) + u' ' + instrument.output_type;
    }
    if (0.2 * tool.limits.maximum > tool.limits.minimum)
        return text(TextId::minimumTorqueTooLow);
    return {};
}

QByteArray CharacteristicFields::join() const {
    QByteArray message;
    for (const auto& field : fields_)
        message += field;
    return message;
}

} // namespace kelvane::ModuleTSInterface
