#include "procedures/cal_param_checks.h"

#include "data/tolerances/unit_class.h"
#include "platform/values/numbers.h"
#include "resources/text_id.h"

#include <algorithm>
#include <array>

namespace kelvane {

namespace {

using R = CalParamRecord;
using Entries = CalParamEntries;
using Fault = CalParamFault;

constexpr qint16 temperature = 1;
constexpr qint16 frequency = 5;
constexpr qint16 torque = 10;

bool isNumber(const QString& entry) {
    return numberOf(entry).has_value();
}

/// Neither empty nor a number.
bool hasInvalidText(const QString& entry) {
    return !entry.isEmpty() && !isNumber(entry);
}

/// One check: whether the entries have the fault, and the fault.
struct Check {
    bool found;
    Fault fault;
};

std::optional<Fault> firstOf(std::initializer_list<Check> checks) {
    const auto* found = std::ranges::find(checks, true, &Check::found);
    if (found == checks.end())
        return {};
    return found->fault;
}

std::optional<Fault> scaleFault(const Entries& e) {
    const bool sameInput = e.number(&R::input_high) == e.number(&R::input_low);
    const bool sameOutput = e.number(&R::output_high) == e.number(&R::output_low);
    return firstOf({
        {e[&R::tp_name].isEmpty(), {Fault::general, TextId::strategyRequired, &R::tp_name}},
        {!isNumber(e[&R::input_high]), {Fault::input, TextId::inputHighInvalid, &R::input_high}},
        {!isNumber(e[&R::output_high]), {Fault::output, TextId::outputHighInvalid, &R::output_high}},
        {hasInvalidText(e[&R::input_low]), {Fault::input, TextId::inputLowInvalid, &R::input_low}},
        {hasInvalidText(e[&R::output_low]), {Fault::output, TextId::outputLowInvalid, &R::output_low}},
        {sameInput, {Fault::input, TextId::highAndLowEqual, &R::input_low}},
        {sameOutput, {Fault::output, TextId::highAndLowEqual, &R::output_low}},
        {!isNumber(e[&R::repetitions]), {Fault::input, TextId::repetitionsNotNumeric, &R::repetitions}},
        {e.number(&R::repetitions) < 1, {Fault::input, TextId::repetitionsNotPositive, &R::repetitions}},
        {e[&R::input_type].isEmpty(), {Fault::input, TextId::unitsRequired, &R::input_type}},
        {e[&R::output_type].isEmpty(), {Fault::output, TextId::unitsRequired, &R::output_type}},
    });
}

std::optional<Fault> toleranceFault(const Entries& e) {
    constexpr std::array tolerances{
        &R::pos_fs_range_pct, &R::neg_fs_range_pct, &R::pos_span_pct,   &R::neg_span_pct, &R::pos_reading_pct,
        &R::neg_reading_pct,  &R::pos_lsd_counts,   &R::neg_lsd_counts, &R::pos_units,    &R::neg_units};
    if (std::ranges::all_of(tolerances, [&](auto tolerance) { return e[tolerance].isEmpty(); }))
        return Fault{Fault::tolerance, TextId::toleranceRequired};
    const auto wrong =
        std::ranges::find_if(tolerances, [&](auto tolerance) { return hasInvalidText(e[tolerance]); });
    if (wrong != tolerances.end())
        return Fault{Fault::tolerance, TextId::toleranceNotNumeric, *wrong};
    return {};
}

/// The sensor of one side that is a temperature. Its faults lead to the input page on either side.
std::optional<Fault> sensorFault(const Entries& e, CalParamMember units, CalParamMember scale,
                                 CalParamMember sensor, CalParamMember reference,
                                 CalParamMember referenceTemperature) {
    if (UnitClass(e[units]) != temperature)
        return {};
    const bool noReference = e[reference] == u"EXT" && e[referenceTemperature].isEmpty();
    return firstOf({
        {e[scale].isEmpty(), {Fault::input, TextId::temperatureScaleRequired, scale}},
        {e[sensor].isEmpty(), {Fault::input, TextId::sensorTypeRequired, sensor}},
        {noReference, {Fault::input, TextId::referenceTemperatureRequired, referenceTemperature}},
    });
}

std::optional<Fault> inputSensorFault(const Entries& e) {
    return sensorFault(e, &R::input_type, &R::temp_scale_in, &R::temp_sens_type_in, &R::cj_ref_type_in,
                       &R::cj_ref_temp_in);
}

std::optional<Fault> outputSensorFault(const Entries& e) {
    return sensorFault(e, &R::output_type, &R::temp_scale_out, &R::temp_sens_type_out, &R::cj_ref_type_out,
                       &R::cj_ref_temp_out);
}

std::optional<Fault> torqueFault(const Entries& e) {
    if (UnitClass(e[&R::output_type]) != torque)
        return {};
    constexpr auto threshold = &R::threshold_torque_out;
    constexpr auto dip = &R::click_dip_torque_out;
    return firstOf({
        {e[threshold].isEmpty(), {Fault::output, TextId::thresholdTorqueRequired, threshold}},
        {e[dip].isEmpty(), {Fault::output, TextId::clickDipTorqueRequired, dip}},
        {!isNumber(e[threshold]), {Fault::output, TextId::thresholdTorqueNotNumeric, threshold}},
        {!isNumber(e[dip]), {Fault::output, TextId::clickDipTorqueNotNumeric, dip}},
    });
}

std::optional<Fault> amplitudeFault(const Entries& e) {
    const bool in = UnitClass(e[&R::input_type]) == frequency;
    const bool out = UnitClass(e[&R::output_type]) == frequency;
    constexpr auto message = TextId::peakToPeakAmplitudeInvalid;
    return firstOf({
        {in && !isNumber(e[&R::freq_ptpamp_in]), {Fault::input, message, &R::freq_ptpamp_in}},
        {out && !isNumber(e[&R::freq_ptpamp_out]), {Fault::output, message, &R::freq_ptpamp_out}},
    });
}

} // namespace

std::optional<CalParamFault> firstFault(const CalParamEntries& entries) {
    for (const auto check :
         {scaleFault, toleranceFault, inputSensorFault, outputSensorFault, torqueFault, amplitudeFault}) {
        if (auto fault = check(entries))
            return fault;
    }
    return {};
}

} // namespace kelvane
