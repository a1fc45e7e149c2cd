#include "editors/cal_param/cal_param_fields.h"

#include "editors/cal_param/entry_box.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/indicators.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QListWidget>
#include <QRadioButton>

#include <span>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

using C = CalParamControls;
using Rows = std::span<const QStringView>;

/// Whether the caption stands beside the field; without, a screen reader says it all the same.
enum class Label { yes, no };

struct TextBox {
    QLineEdit* C::*control;
    QStringView name;
    TextId caption;
    QStringView starts;
    TextId toolTip;
    /// The panel that the caption needs to be understood, by id.
    std::optional<TextId> panel = {};
    Label label = Label::yes;
};

constexpr TextBox textBoxes[] = {
    {&C::TextInputLow, u"TextInputLow", TextId::inputLow, u"0.0", TextId::inputLowTip},
    {&C::TextInputHigh, u"TextInputHigh", TextId::inputHigh, u"100.0", TextId::inputHighTip},
    {&C::TextRepetitions, u"TextRepetitions", TextId::repetitions, u"1", TextId::repetitionsTip},
    {&C::TextOutputLow, u"TextOutputLow", TextId::outputLow, u"0.0", TextId::outputLowTip},
    {&C::TextOutputHigh, u"TextOutputHigh", TextId::outputHigh, u"100.0", TextId::outputHighTip},
    {&C::TextFSPos, u"TextFSPos", TextId::tolerancePositive, u"0.0", TextId::fullScaleToleranceTip,
     TextId::fullScaleTolerance},
    {&C::TextFSNeg, u"TextFSNeg", TextId::toleranceNegative, u"0.0", TextId::fullScaleToleranceTip,
     TextId::fullScaleTolerance},
    {&C::TextSpanPos, u"TextSpanPos", TextId::tolerancePositive, u"0.0", TextId::spanToleranceTip,
     TextId::spanTolerance},
    {&C::TextSpanNeg, u"TextSpanNeg", TextId::toleranceNegative, u"0.0", TextId::spanToleranceTip,
     TextId::spanTolerance},
    {&C::TextReadPos, u"TextReadPos", TextId::tolerancePositive, u"0.0", TextId::readingToleranceTip,
     TextId::readingTolerance},
    {&C::TextReadNeg, u"TextReadNeg", TextId::toleranceNegative, u"0.0", TextId::readingToleranceTip,
     TextId::readingTolerance},
    {&C::TextLSDPos, u"TextLSDPos", TextId::tolerancePositive, u"0.0", TextId::lsdToleranceTip,
     TextId::lsdTolerance},
    {&C::TextLSDNeg, u"TextLSDNeg", TextId::toleranceNegative, u"0.0", TextId::lsdToleranceTip,
     TextId::lsdTolerance},
    {&C::TextUnitsPos, u"TextUnitsPos", TextId::tolerancePositive, u"0.0", TextId::unitsToleranceTip,
     TextId::unitsTolerance},
    {&C::TextUnitsNeg, u"TextUnitsNeg", TextId::toleranceNegative, u"0.0", TextId::unitsToleranceTip,
     TextId::unitsTolerance},
    {&C::TextCJRefTempIn, u"TextCJRefTempIn", TextId::referenceTemperature, u"0.0",
     TextId::referenceTemperatureTip},
    {&C::TextCJRefTempOut, u"TextCJRefTempOut", TextId::referenceTemperature, u"0.0",
     TextId::referenceTemperatureTip},
    {&C::TextThresholdOut, u"TextThresholdOut", TextId::thresholdTorque, u"0.0", TextId::thresholdTorqueTip},
    {&C::TextDipOut, u"TextDipOut", TextId::clickDipTorque, u"0.0", TextId::clickDipTorqueTip},
    {&C::TextPTPAmplitudeIn,
     u"TextPTPAmplitudeIn",
     TextId::peakToPeakAmplitude,
     u"100.0",
     TextId::peakToPeakAmplitudeTip,
     {},
     Label::no},
    {&C::TextPTPAmplitudeOut,
     u"TextPTPAmplitudeOut",
     TextId::peakToPeakAmplitude,
     u"100.0",
     TextId::peakToPeakAmplitudeTip,
     {},
     Label::no},
};

// The rows are what the database holds and the drivers compare, so they are the same in every language.
constexpr QStringView resolutions[] = {u"100000",  u"10000",    u"1000",      u"100",        u"10",
                                       u"1",       u"0.1",      u"0.01",      u"0.001",      u"0.0001",
                                       u"0.00001", u"0.000001", u"0.0000001", u"0.00000001", u"0.000000001"};
constexpr QStringView units[] = {u"C",     u"F",      u"V",     u"mV",    u"mA",   u"Hz",   u"KHz",
                                 u"MHz",   u"Ohms",   u"KOhms", u"psi",   u"psig", u"inHg", u"inH2O",
                                 u"mmHg",  u"kPa",    u"bar",   u"mbar",  u"uV",   u"uA",   u"A",
                                 u"Mohms", u"in/oz",  u"in/lb", u"ft/lb", u"N/cm", u"N/m",  u"Kg/cm",
                                 u"Kg/m",  u"Klb/ft", u"KN/m",  u"VAC",   u"mVAC", u"%"};
constexpr QStringView temperatureScales[] = {u"ITS-90", u"IPTS-68"};
constexpr QStringView sensorTypes[] = {
    u"RTD PT100 385",  u"RTD PT200 385",  u"RTD PT500 385", u"RTD PT1000 385",
    u"RTD PT100 3916", u"RTD PT100 3926", u"RTD NI120 672", u"RTD CU10 427",
    u"TC E",           u"TC N",           u"TC J",          u"TC K",
    u"TC T",           u"TC B",           u"TC R",          u"TC S",
    u"TC C",           u"TC L",           u"TC U"};
constexpr QStringView transducerTypes[] = {u"High Output", u"Industry Standard", u"Serial", u"UTA"};
constexpr QStringView measurementModes[] = {u"Click Dip", u"Peak", u"Impulse"};
constexpr QStringView cycleEndTimes[] = {u"0.1", u"0.2", u"0.5", u"1.0", u"2.0", u"5.0", u"10.0"};
constexpr QStringView frequencyResponses[] = {u"6144", u"3686", u"2304", u"1676", u"1317", u"1024",
                                              u"996",  u"737",  u"527",  u"376",  u"302",  u"252",
                                              u"200",  u"150",  u"100",  u"75",   u"72"};
constexpr QStringView directions[] = {u"Right", u"Left"};
constexpr QStringView baudRates[] = {u"300", u"600", u"1200", u"2400", u"4800", u"9600", u"19200"};
constexpr QStringView dataBits[] = {u"8", u"7"};
constexpr QStringView stopBits[] = {u"1", u"2"};
constexpr QStringView parities[] = {u"Even", u"Odd", u"None"};

struct List {
    QComboBox* C::*control;
    QStringView name;
    TextId caption;
    TextId toolTip;
    Rows rows;
    /// The row that is selected at first; empty for none.
    QStringView starts;
    Label label = Label::yes;
};

constexpr List lists[] = {
    {&C::ComboTSName, u"ComboTSName", TextId::strategyName, TextId::calibrationStrategyTip, {}, {}},
    {&C::ComboInputUnits, u"ComboInputUnits", TextId::inputUnits, TextId::inputUnitsTip, units, {}},
    {&C::ComboMeasRes, u"ComboMeasRes", TextId::measurementResolution, TextId::measurementResolutionTip,
     resolutions, u"0.1"},
    {&C::ComboOutputUnits, u"ComboOutputUnits", TextId::outputUnits, TextId::outputUnitsTip, units, {}},
    {&C::ComboTempScaleIn, u"ComboTempScaleIn", TextId::temperatureScale, TextId::temperatureScaleTip,
     temperatureScales, u"ITS-90", Label::no},
    {&C::ComboTempScaleOut, u"ComboTempScaleOut", TextId::temperatureScale, TextId::temperatureScaleTip,
     temperatureScales, u"ITS-90", Label::no},
    {&C::ComboSensTypeIn, u"ComboSensTypeIn", TextId::sensorType, TextId::sensorTypeTip, sensorTypes,
     u"RTD PT100 3926"},
    {&C::ComboSensTypeOut, u"ComboSensTypeOut", TextId::sensorType, TextId::sensorTypeTip, sensorTypes,
     u"RTD PT100 3926"},
    {&C::ComboTransTypeOut, u"ComboTransTypeOut", TextId::transducerType, TextId::transducerTypeTip,
     transducerTypes, u"UTA"},
    {&C::ComboMeasurementModeOut, u"ComboMeasurementModeOut", TextId::measurementMode,
     TextId::measurementModeTip, measurementModes, u"Peak"},
    {&C::ComboCycleEndTimeOut, u"ComboCycleEndTimeOut", TextId::cycleEndTime, TextId::cycleEndTimeTip,
     cycleEndTimes, u"1.0"},
    {&C::ComboFreqRespOut, u"ComboFreqRespOut", TextId::frequencyResponse, TextId::frequencyResponseTip,
     frequencyResponses, u"1676"},
    {&C::ComboMeasDirOut, u"ComboMeasDirOut", TextId::measurementDirection, TextId::measurementDirectionTip,
     directions, u"Right"},
    {&C::ComboBaudRateOut, u"ComboBaudRateOut", TextId::baudRate, TextId::baudRateTip, baudRates, u"9600"},
    {&C::ComboDataBitsOut, u"ComboDataBitsOut", TextId::dataBits, TextId::dataBitsTip, dataBits, u"8"},
    {&C::ComboStopBitsOut, u"ComboStopBitsOut", TextId::stopBits, TextId::stopBitsTip, stopBits, u"1"},
    {&C::ComboParityOut, u"ComboParityOut", TextId::parity, TextId::parityTip, parities, u"None"},
};

struct Option {
    QRadioButton* C::*control;
    QStringView name;
    TextId caption;
    TextId toolTip;
    /// What is chosen, by id.
    TextId subject;
    bool starts = false;
};

constexpr Option options[] = {
    {&C::OptionCJRefIntIn, u"OptionCJRefIntIn", TextId::coldJunctionInternal, TextId::coldJunctionInternalTip,
     TextId::coldJunctionReference, true},
    {&C::OptionCJRefExtIn, u"OptionCJRefExtIn", TextId::coldJunctionExternal, TextId::coldJunctionExternalTip,
     TextId::coldJunctionReference},
    {&C::OptionCJRefIntOut, u"OptionCJRefIntOut", TextId::coldJunctionInternal,
     TextId::coldJunctionInternalTip, TextId::coldJunctionReference, true},
    {&C::OptionCJRefExtOut, u"OptionCJRefExtOut", TextId::coldJunctionExternal,
     TextId::coldJunctionExternalTip, TextId::coldJunctionReference},
    {&C::OptionSensWires2In, u"OptionSensWires2In", TextId::rtdTwoWires, TextId::rtdWiresTip,
     TextId::rtdWires},
    {&C::OptionSensWires3In, u"OptionSensWires3In", TextId::rtdThreeWires, TextId::rtdWiresTip,
     TextId::rtdWires},
    {&C::OptionSensWires4In, u"OptionSensWires4In", TextId::rtdFourWires, TextId::rtdWiresTip,
     TextId::rtdWires, true},
    {&C::OptionSensWires2Out, u"OptionSensWires2Out", TextId::rtdTwoWires, TextId::rtdWiresTip,
     TextId::rtdWires},
    {&C::OptionSensWires3Out, u"OptionSensWires3Out", TextId::rtdThreeWires, TextId::rtdWiresTip,
     TextId::rtdWires},
    {&C::OptionSensWires4Out, u"OptionSensWires4Out", TextId::rtdFourWires, TextId::rtdWiresTip,
     TextId::rtdWires, true},
    {&C::OptionCalLoopPWROutOff, u"OptionCalLoopPWROutOff", TextId::loopPowerOff, TextId::loopPowerOffTip,
     TextId::loopPower, true},
    {&C::OptionCalLoopPWROut24VDC, u"OptionCalLoopPWROut24VDC", TextId::loopPower24V, TextId::loopPower24VTip,
     TextId::loopPower},
    {&C::OptionCalLoopPWROut28VDC, u"OptionCalLoopPWROut28VDC", TextId::loopPower28V, TextId::loopPower28VTip,
     TextId::loopPower},
};

struct TickBox {
    QCheckBox* C::*control;
    QStringView name;
    TextId caption;
    TextId toolTip;
};

constexpr TickBox tickBoxes[] = {
    {&C::CheckIndicatedInput, u"CheckIndicatedInput", TextId::indicatedInput, TextId::indicatedInputTip},
    {&C::CheckIndicatedOutput, u"CheckIndicatedOutput", TextId::indicatedOutput, TextId::indicatedOutputTip},
};

/// The caption of a field with the subject that it belongs to.
QString spoken(std::optional<TextId> subject, TextId caption) {
    return !subject ? text(caption) : text(*subject) + u' ' + text(caption);
}

/// The name of what stands beside a field: that of the field without its kind.
QString besideName(const QWidget* field, QStringView kind) {
    return kind.toString() + field->objectName().mid(qobject_cast<const QComboBox*>(field) ? 5 : 4);
}

} // namespace

CalParamFields::CalParamFields(CalParamControls& controls) {
    makeTextBoxes(controls);
    makeLists(controls);
    makeOptions(controls);
    controls.LabelDipOut = labels_.value(controls.TextDipOut);
}

void CalParamFields::makeTextBoxes(CalParamControls& controls) {
    for (const auto& one : textBoxes) {
        auto* box = named(new EntryBox, one.name.toString(), spoken(one.panel, one.caption), one.toolTip);
        box->setText(one.starts.toString());
        controls.*one.control = box;
        if (one.label == Label::yes)
            addLabel(box, one.caption);
    }
}

void CalParamFields::makeLists(CalParamControls& controls) {
    for (const auto& one : lists) {
        auto* list = dropDown(one.name.toString(), text(one.caption), one.toolTip);
        for (const auto row : one.rows)
            list->addItem(row.toString());
        list->setCurrentIndex(one.starts.isEmpty() ? -1 : list->findText(one.starts.toString()));
        controls.*one.control = list;
        if (one.label == Label::yes)
            addLabel(list, one.caption);
    }
    // However long the names of the strategies are, the screen keeps its width.
    keepWidth(controls.ComboTSName);
}

void CalParamFields::makeOptions(CalParamControls& controls) {
    for (const auto& one : options) {
        auto* option =
            named(new RadioButton, one.name.toString(), spoken(one.subject, one.caption), one.toolTip);
        option->setText(text(one.caption));
        option->setChecked(one.starts);
        controls.*one.control = option;
    }
    for (const auto& one : tickBoxes) {
        auto* box = named(new CheckBox, one.name.toString(), text(one.caption), one.toolTip);
        box->setText(text(one.caption));
        controls.*one.control = box;
    }
}

void CalParamFields::addLabel(QWidget* field, TextId caption) {
    labels_.insert(field, labelFor(field, besideName(field, u"Label"), caption));
}

void CalParamFields::put(QGridLayout& grid, int row, int side, QWidget* field,
                         std::optional<TextId> unit) const {
    constexpr int betweenSides = 3;
    const int column = side * (betweenSides + 1);
    if (auto* caption = labels_.value(field))
        grid.addWidget(caption, row, column);
    grid.addWidget(field, row, column + 1);
    if (unit)
        grid.addWidget(label(besideName(field, u"Unit"), *unit), row, column + 2);
    if (side == 1)
        grid.setColumnMinimumWidth(betweenSides, 12);
}

} // namespace kelvane
