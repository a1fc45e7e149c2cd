#include "editors/cal_param/cal_param_faults.h"

#include "data/tolerances/unit_class.h"
#include "platform/values/numbers.h"
#include "resources/text_id.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

#include <algorithm>
#include <array>

namespace kelvane {

namespace {

constexpr qint16 temperature = 1;
constexpr qint16 frequency = 5;
constexpr qint16 torque = 10;

constexpr int generalPage = 0;
constexpr int inputPage = 1;
constexpr int outputPage = 2;
constexpr int tolerancePage = 3;

constexpr int scalePage = 0;
constexpr int referencePage = 1;
constexpr int sensorPage = 2;
constexpr int torquePage = 0;

bool isEmpty(const QLineEdit* field) {
    return field->text().isEmpty();
}

bool isEmpty(const QComboBox* list) {
    return list->currentText().isEmpty();
}

bool isNumber(const QLineEdit* field) {
    return numberOf(field->text()).has_value();
}

/// Neither empty nor a number.
bool isFilledWrongly(const QLineEdit* field) {
    return !isEmpty(field) && !isNumber(field);
}

/// One check: whether the screen has the fault, and the fault.
struct Check {
    bool found;
    CalParamFault fault;
};

std::optional<CalParamFault> firstOf(std::initializer_list<Check> checks) {
    const auto* found = std::ranges::find(checks, true, &Check::found);
    if (found == checks.end())
        return {};
    return found->fault;
}

std::optional<CalParamFault> scaleFault(const CalParamControls& c) {
    const double repetitions = numberIn(*c.TextRepetitions);
    const bool sameInput = numberIn(*c.TextInputHigh) == numberIn(*c.TextInputLow);
    const bool sameOutput = numberIn(*c.TextOutputHigh) == numberIn(*c.TextOutputLow);
    return firstOf({
        {isEmpty(c.ComboTSName), {generalPage, TextId::strategyRequired, c.ComboTSName}},
        {!isNumber(c.TextInputHigh), {inputPage, TextId::inputHighInvalid, c.TextInputHigh}},
        {!isNumber(c.TextOutputHigh), {outputPage, TextId::outputHighInvalid, c.TextOutputHigh}},
        {isFilledWrongly(c.TextInputLow), {inputPage, TextId::inputLowInvalid, c.TextInputLow}},
        {isFilledWrongly(c.TextOutputLow), {outputPage, TextId::outputLowInvalid, c.TextOutputLow}},
        {sameInput, {inputPage, TextId::highAndLowEqual, c.TextInputLow}},
        {sameOutput, {outputPage, TextId::highAndLowEqual, c.TextOutputLow}},
        {!isNumber(c.TextRepetitions), {inputPage, TextId::repetitionsNotNumeric, c.TextRepetitions}},
        {repetitions < 1, {inputPage, TextId::repetitionsNotPositive, c.TextRepetitions}},
        {isEmpty(c.ComboInputUnits), {inputPage, TextId::unitsRequired, c.ComboInputUnits}},
        {isEmpty(c.ComboOutputUnits), {outputPage, TextId::unitsRequired, c.ComboOutputUnits}},
    });
}

std::optional<CalParamFault> toleranceFault(const CalParamControls& c) {
    const std::array boxes{c.TextFSPos,   c.TextFSNeg,  c.TextSpanPos, c.TextSpanNeg,  c.TextReadPos,
                           c.TextReadNeg, c.TextLSDPos, c.TextLSDNeg,  c.TextUnitsPos, c.TextUnitsNeg};
    if (std::ranges::all_of(boxes, [](const QLineEdit* box) { return isEmpty(box); }))
        return CalParamFault{tolerancePage, TextId::toleranceRequired};
    const auto* wrong = std::ranges::find_if(boxes, isFilledWrongly);
    if (wrong != boxes.end())
        return CalParamFault{tolerancePage, TextId::toleranceNotNumeric, *wrong};
    return {};
}

/// The sensors of a side that is a temperature. The faults of the output lead to the input page, too.
std::optional<CalParamFault> temperatureFault(const CalParamControls& c) {
    const bool in = UnitClass(c.ComboInputUnits->currentText()) == temperature;
    const bool out = UnitClass(c.ComboOutputUnits->currentText()) == temperature;
    const bool noReferenceIn = c.OptionCJRefExtIn->isChecked() && isEmpty(c.TextCJRefTempIn);
    const bool noReferenceOut = c.OptionCJRefExtOut->isChecked() && isEmpty(c.TextCJRefTempOut);
    return firstOf({
        {in && isEmpty(c.ComboTempScaleIn),
         {inputPage, TextId::temperatureScaleRequired, c.ComboTempScaleIn, c.SSTabInTemp, scalePage}},
        {in && isEmpty(c.ComboSensTypeIn),
         {inputPage, TextId::sensorTypeRequired, c.ComboSensTypeIn, c.SSTabInTemp, sensorPage}},
        {in && noReferenceIn,
         {inputPage, TextId::referenceTemperatureRequired, c.TextCJRefTempIn, c.SSTabInTemp, referencePage}},
        {out && isEmpty(c.ComboTempScaleOut),
         {inputPage, TextId::temperatureScaleRequired, c.ComboTempScaleOut, c.SSTabOutTemp, scalePage}},
        {out && isEmpty(c.ComboSensTypeOut),
         {inputPage, TextId::sensorTypeRequired, c.ComboSensTypeOut, c.SSTabOutTemp, sensorPage}},
        {out && noReferenceOut,
         {inputPage, TextId::referenceTemperatureRequired, c.TextCJRefTempOut, c.SSTabOutTemp,
          referencePage}},
    });
}

std::optional<CalParamFault> torqueFault(const CalParamControls& c) {
    if (UnitClass(c.ComboOutputUnits->currentText()) != torque)
        return {};
    const auto fault = [&c](TextId message, QLineEdit* field) {
        return CalParamFault{outputPage, message, field, c.SSTabTorqueOut, torquePage};
    };
    return firstOf({
        {isEmpty(c.TextThresholdOut), fault(TextId::thresholdTorqueRequired, c.TextThresholdOut)},
        {isEmpty(c.TextDipOut), fault(TextId::clickDipTorqueRequired, c.TextDipOut)},
        {!isNumber(c.TextThresholdOut), fault(TextId::thresholdTorqueNotNumeric, c.TextThresholdOut)},
        {!isNumber(c.TextDipOut), fault(TextId::clickDipTorqueNotNumeric, c.TextDipOut)},
    });
}

std::optional<CalParamFault> amplitudeFault(const CalParamControls& c) {
    const bool in = UnitClass(c.ComboInputUnits->currentText()) == frequency;
    const bool out = UnitClass(c.ComboOutputUnits->currentText()) == frequency;
    return firstOf({
        {in && !isNumber(c.TextPTPAmplitudeIn),
         {inputPage, TextId::peakToPeakAmplitudeInvalid, c.TextPTPAmplitudeIn}},
        {out && !isNumber(c.TextPTPAmplitudeOut),
         {outputPage, TextId::peakToPeakAmplitudeInvalid, c.TextPTPAmplitudeOut}},
    });
}

} // namespace

double numberIn(const QLineEdit& field) {
    return numberOf(field.text()).value_or(0);
}

std::optional<CalParamFault> firstFault(const CalParamControls& controls) {
    for (const auto check : {scaleFault, toleranceFault, temperatureFault, torqueFault, amplitudeFault}) {
        if (auto fault = check(controls))
            return fault;
    }
    return {};
}

} // namespace kelvane
