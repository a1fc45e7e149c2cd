#include "editors/cal_param/cal_param_field_table.h"

#include "resources/text_id.h"

namespace kelvane {

namespace {

using R = CalParamRecord;
using Panel = CalParamPanel;
using TextBox = CalParamTextBox;
using List = CalParamList;
using CheckBox = CalParamCheckBox;
using Options = CalParamOptions;
using Option = CalParamOption;
using Label = CalParamLabel;

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

constexpr Option references[] = {
    {u"Int", u"INT", u"I", TextId::coldJunctionInternal, TextId::coldJunctionInternalTip},
    {u"Ext", u"EXT", u"E", TextId::coldJunctionExternal, TextId::coldJunctionExternalTip},
};
constexpr Option wires[] = {
    {u"2", u"2", u"2", TextId::rtdTwoWires, TextId::rtdWiresTip},
    {u"3", u"3", u"3", TextId::rtdThreeWires, TextId::rtdWiresTip},
    {u"4", u"4", u"4", TextId::rtdFourWires, TextId::rtdWiresTip},
};
constexpr Option powers[] = {
    {u"Off", u"OFF", u"O", TextId::loopPowerOff, TextId::loopPowerOffTip},
    {u"24VDC", u"24V", u"24", TextId::loopPower24V, TextId::loopPower24VTip},
    {u"28VDC", u"28V", u"28", TextId::loopPower28V, TextId::loopPower28VTip},
};

constexpr CalParamField field(CalParamMember member, QStringView name, TextId caption,
                              std::optional<TextId> toolTip, CalParamField::Control control,
                              CalParamPlace place, Label label = Label::yes) {
    return {member, name, caption, toolTip, control, place, label};
}

constexpr CalParamField tolerance(CalParamMember member, QStringView name, TextId caption, TextId toolTip,
                                  CalParamPlace place, TextId subject) {
    auto made = field(member, name, caption, toolTip, TextBox{u"0.0"}, place);
    made.subject = subject;
    return made;
}

constexpr CalParamField fields[] = {
    field(&R::tp_name, u"ComboTSName", TextId::strategyName, TextId::calibrationStrategyTip, List{},
          {Panel::strategy}),
    field(&R::input_low, u"TextInputLow", TextId::inputLow, TextId::inputLowTip, TextBox{u"0.0"},
          {Panel::inputLimits, 0}),
    field(&R::input_high, u"TextInputHigh", TextId::inputHigh, TextId::inputHighTip, TextBox{u"100.0"},
          {Panel::inputLimits, 1}),
    field(&R::input_type, u"ComboInputUnits", TextId::inputUnits, TextId::inputUnitsTip, List{units},
          {Panel::inputLimits, 2}),
    field(&R::input_indicated, u"CheckIndicatedInput", TextId::indicatedInput, TextId::indicatedInputTip,
          CheckBox{}, {Panel::inputLimits, 3}, Label::no),
    field(&R::resolution, u"ComboMeasRes", TextId::measurementResolution, TextId::measurementResolutionTip,
          List{resolutions, u"0.1"}, {Panel::inputMeasurement, 0}),
    field(&R::repetitions, u"TextRepetitions", TextId::repetitions, TextId::repetitionsTip, TextBox{u"1"},
          {Panel::inputMeasurement, 2}),
    field(&R::output_low, u"TextOutputLow", TextId::outputLow, TextId::outputLowTip, TextBox{u"0.0"},
          {Panel::outputLimits, 0}),
    field(&R::output_high, u"TextOutputHigh", TextId::outputHigh, TextId::outputHighTip, TextBox{u"100.0"},
          {Panel::outputLimits, 1}),
    field(&R::output_type, u"ComboOutputUnits", TextId::outputUnits, TextId::outputUnitsTip, List{units},
          {Panel::outputUnits, 0}),
    field(&R::output_indicated, u"CheckIndicatedOutput", TextId::indicatedOutput, TextId::indicatedOutputTip,
          CheckBox{}, {Panel::outputUnits, 1}, Label::no),
    tolerance(&R::pos_fs_range_pct, u"TextFSPos", TextId::tolerancePositive, TextId::fullScaleToleranceTip,
              {Panel::fullScaleTolerance, 0}, TextId::fullScaleTolerance),
    tolerance(&R::neg_fs_range_pct, u"TextFSNeg", TextId::toleranceNegative, TextId::fullScaleToleranceTip,
              {Panel::fullScaleTolerance, 1}, TextId::fullScaleTolerance),
    tolerance(&R::pos_span_pct, u"TextSpanPos", TextId::tolerancePositive, TextId::spanToleranceTip,
              {Panel::spanTolerance, 0}, TextId::spanTolerance),
    tolerance(&R::neg_span_pct, u"TextSpanNeg", TextId::toleranceNegative, TextId::spanToleranceTip,
              {Panel::spanTolerance, 1}, TextId::spanTolerance),
    tolerance(&R::pos_reading_pct, u"TextReadPos", TextId::tolerancePositive, TextId::readingToleranceTip,
              {Panel::readingTolerance, 0}, TextId::readingTolerance),
    tolerance(&R::neg_reading_pct, u"TextReadNeg", TextId::toleranceNegative, TextId::readingToleranceTip,
              {Panel::readingTolerance, 1}, TextId::readingTolerance),
    tolerance(&R::pos_lsd_counts, u"TextLSDPos", TextId::tolerancePositive, TextId::lsdToleranceTip,
              {Panel::lsdTolerance, 0}, TextId::lsdTolerance),
    tolerance(&R::neg_lsd_counts, u"TextLSDNeg", TextId::toleranceNegative, TextId::lsdToleranceTip,
              {Panel::lsdTolerance, 1}, TextId::lsdTolerance),
    tolerance(&R::pos_units, u"TextUnitsPos", TextId::tolerancePositive, TextId::unitsToleranceTip,
              {Panel::unitsTolerance, 0}, TextId::unitsTolerance),
    tolerance(&R::neg_units, u"TextUnitsNeg", TextId::toleranceNegative, TextId::unitsToleranceTip,
              {Panel::unitsTolerance, 1}, TextId::unitsTolerance),
    field(&R::temp_scale_in, u"ComboTempScaleIn", TextId::temperatureScale, TextId::temperatureScaleTip,
          List{temperatureScales, u"ITS-90"}, {Panel::temperatureScaleIn}, Label::no),
    field(&R::cj_ref_type_in, u"OptionCJRef%1In", TextId::coldJunctionReference, {},
          Options{references, u"INT", true}, {Panel::coldJunctionIn, 0}, Label::no),
    field(&R::cj_ref_temp_in, u"TextCJRefTempIn", TextId::referenceTemperature,
          TextId::referenceTemperatureTip, TextBox{u"0.0"}, {Panel::coldJunctionIn, 2}),
    field(&R::temp_sens_type_in, u"ComboSensTypeIn", TextId::sensorType, TextId::sensorTypeTip,
          List{sensorTypes, u"RTD PT100 3926"}, {Panel::sensorIn, 0}),
    field(&R::temp_sens_wires_in, u"OptionSensWires%1In", TextId::rtdWires, {}, Options{wires, u"4"},
          {Panel::sensorIn, 1}),
    field(&R::freq_ptpamp_in, u"TextPTPAmplitudeIn", TextId::peakToPeakAmplitude,
          TextId::peakToPeakAmplitudeTip, TextBox{u"100.0"},
          {Panel::amplitudeIn, 0, 0, TextId::unitMillivolts}, Label::no),
    field(&R::temp_scale_out, u"ComboTempScaleOut", TextId::temperatureScale, TextId::temperatureScaleTip,
          List{temperatureScales, u"ITS-90"}, {Panel::temperatureScaleOut}, Label::no),
    field(&R::cj_ref_type_out, u"OptionCJRef%1Out", TextId::coldJunctionReference, {},
          Options{references, u"INT", true}, {Panel::coldJunctionOut, 0}, Label::no),
    field(&R::cj_ref_temp_out, u"TextCJRefTempOut", TextId::referenceTemperature,
          TextId::referenceTemperatureTip, TextBox{u"0.0"}, {Panel::coldJunctionOut, 2}),
    field(&R::temp_sens_type_out, u"ComboSensTypeOut", TextId::sensorType, TextId::sensorTypeTip,
          List{sensorTypes, u"RTD PT100 3926"}, {Panel::sensorOut, 0}),
    field(&R::temp_sens_wires_out, u"OptionSensWires%1Out", TextId::rtdWires, {}, Options{wires, u"4"},
          {Panel::sensorOut, 1}),
    field(&R::freq_ptpamp_out, u"TextPTPAmplitudeOut", TextId::peakToPeakAmplitude,
          TextId::peakToPeakAmplitudeTip, TextBox{u"100.0"},
          {Panel::amplitudeOut, 0, 0, TextId::unitMillivolts}, Label::no),
    field(&R::transducer_type_out, u"ComboTransTypeOut", TextId::transducerType, TextId::transducerTypeTip,
          List{transducerTypes, u"UTA"}, {Panel::torqueGeneral, 0}),
    field(&R::measurement_mode_out, u"ComboMeasurementModeOut", TextId::measurementMode,
          TextId::measurementModeTip, List{measurementModes, u"Peak"}, {Panel::torqueGeneral, 1}),
    field(&R::threshold_torque_out, u"TextThresholdOut", TextId::thresholdTorque, TextId::thresholdTorqueTip,
          TextBox{u"0.0"}, {Panel::torqueGeneral, 0, 1}),
    field(&R::click_dip_torque_out, u"TextDipOut", TextId::clickDipTorque, TextId::clickDipTorqueTip,
          TextBox{u"0.0"}, {Panel::torqueGeneral, 1, 1}),
    field(&R::cycle_end_time_out, u"ComboCycleEndTimeOut", TextId::cycleEndTime, TextId::cycleEndTimeTip,
          List{cycleEndTimes, u"1.0"}, {Panel::torqueAnalog, 0, 0, TextId::unitSeconds}),
    field(&R::frequency_response_out, u"ComboFreqRespOut", TextId::frequencyResponse,
          TextId::frequencyResponseTip, List{frequencyResponses, u"1676"},
          {Panel::torqueAnalog, 1, 0, TextId::unitHertz}),
    field(&R::measurement_direction_out, u"ComboMeasDirOut", TextId::measurementDirection,
          TextId::measurementDirectionTip, List{directions, u"Right"}, {Panel::torqueAnalog, 0, 1}),
    field(&R::baud_rate_out, u"ComboBaudRateOut", TextId::baudRate, TextId::baudRateTip,
          List{baudRates, u"9600"}, {Panel::torqueDigital, 0}),
    field(&R::data_bits_out, u"ComboDataBitsOut", TextId::dataBits, TextId::dataBitsTip, List{dataBits, u"8"},
          {Panel::torqueDigital, 1}),
    field(&R::stop_bits_out, u"ComboStopBitsOut", TextId::stopBits, TextId::stopBitsTip, List{stopBits, u"1"},
          {Panel::torqueDigital, 0, 1}),
    field(&R::data_parity_out, u"ComboParityOut", TextId::parity, TextId::parityTip, List{parities, u"None"},
          {Panel::torqueDigital, 1, 1}),
    field(&R::loop_pwr, u"OptionCalLoopPWROut%1", TextId::loopPower, {}, Options{powers, u"OFF"},
          {Panel::loopPower}),
};

} // namespace

std::span<const CalParamField> calParamFieldTable() {
    return fields;
}

} // namespace kelvane
