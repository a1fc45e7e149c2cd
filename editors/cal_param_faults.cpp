#include "editors/cal_param_faults.h"

#include "data/unit_class.h"
#include "platform/numbers.h"

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
        {isEmpty(c.ComboTSName), {generalPage, 1330, c.ComboTSName}},
        {!isNumber(c.TextInputHigh), {inputPage, 1331, c.TextInputHigh}},
        {!isNumber(c.TextOutputHigh), {outputPage, 1332, c.TextOutputHigh}},
        {isFilledWrongly(c.TextInputLow), {inputPage, 1333, c.TextInputLow}},
        {isFilledWrongly(c.TextOutputLow), {outputPage, 1334, c.TextOutputLow}},
        {sameInput, {inputPage, 1335, c.TextInputLow}},
        {sameOutput, {outputPage, 1335, c.TextOutputLow}},
        {!isNumber(c.TextRepetitions), {inputPage, 1336, c.TextRepetitions}},
        {repetitions < 1, {inputPage, 1337, c.TextRepetitions}},
        {isEmpty(c.ComboInputUnits), {inputPage, 1338, c.ComboInputUnits}},
        {isEmpty(c.ComboOutputUnits), {outputPage, 1338, c.ComboOutputUnits}},
    });
}

std::optional<CalParamFault> toleranceFault(const CalParamControls& c) {
    const std::array boxes{c.TextFSPos,   c.TextFSNeg,  c.TextSpanPos, c.TextSpanNeg,  c.TextReadPos,
                           c.TextReadNeg, c.TextLSDPos, c.TextLSDNeg,  c.TextUnitsPos, c.TextUnitsNeg};
    if (std::ranges::all_of(boxes, [](const QLineEdit* box) { return isEmpty(box); }))
        return CalParamFault{tolerancePage, 1339};
    const auto* wrong = std::ranges::find_if(boxes, isFilledWrongly);
    if (wrong != boxes.end())
        return CalParamFault{tolerancePage, 1340, *wrong};
    return {};
}

/// The sensors of a side that is a temperature. The faults of the output lead to the input page, too.
std::optional<CalParamFault> temperatureFault(const CalParamControls& c) {
    const bool in = UnitClass(c.ComboInputUnits->currentText()) == temperature;
    const bool out = UnitClass(c.ComboOutputUnits->currentText()) == temperature;
    const bool noReferenceIn = c.OptionCJRefExtIn->isChecked() && isEmpty(c.TextCJRefTempIn);
    const bool noReferenceOut = c.OptionCJRefExtOut->isChecked() && isEmpty(c.TextCJRefTempOut);
    return firstOf({
        {in && isEmpty(c.ComboTempScaleIn), {inputPage, 1341, c.ComboTempScaleIn, c.SSTabInTemp, scalePage}},
        {in && isEmpty(c.ComboSensTypeIn), {inputPage, 1342, c.ComboSensTypeIn, c.SSTabInTemp, sensorPage}},
        {in && noReferenceIn, {inputPage, 1343, c.TextCJRefTempIn, c.SSTabInTemp, referencePage}},
        {out && isEmpty(c.ComboTempScaleOut),
         {inputPage, 1341, c.ComboTempScaleOut, c.SSTabOutTemp, scalePage}},
        {out && isEmpty(c.ComboSensTypeOut),
         {inputPage, 1342, c.ComboSensTypeOut, c.SSTabOutTemp, sensorPage}},
        {out && noReferenceOut, {inputPage, 1343, c.TextCJRefTempOut, c.SSTabOutTemp, referencePage}},
    });
}

std::optional<CalParamFault> torqueFault(const CalParamControls& c) {
    if (UnitClass(c.ComboOutputUnits->currentText()) != torque)
        return {};
    const auto fault = [&c](int message, QLineEdit* field) {
        return CalParamFault{outputPage, message, field, c.SSTabTorqueOut, torquePage};
    };
    return firstOf({
        {isEmpty(c.TextThresholdOut), fault(1344, c.TextThresholdOut)},
        {isEmpty(c.TextDipOut), fault(1345, c.TextDipOut)},
        {!isNumber(c.TextThresholdOut), fault(1346, c.TextThresholdOut)},
        {!isNumber(c.TextDipOut), fault(1347, c.TextDipOut)},
    });
}

std::optional<CalParamFault> amplitudeFault(const CalParamControls& c) {
    const bool in = UnitClass(c.ComboInputUnits->currentText()) == frequency;
    const bool out = UnitClass(c.ComboOutputUnits->currentText()) == frequency;
    return firstOf({
        {in && !isNumber(c.TextPTPAmplitudeIn), {inputPage, 1348, c.TextPTPAmplitudeIn}},
        {out && !isNumber(c.TextPTPAmplitudeOut), {outputPage, 1348, c.TextPTPAmplitudeOut}},
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
