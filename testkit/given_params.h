#pragma once

#include "data/parameters/cal_param_columns.h"

#include <QList>

#include <array>

namespace kelvane::testing {

// What is given of the calibration parameters, exactly and apart from the program's own tables. A new
// parameter gets its row, its place in the three orders and its control here, and the tests know it.

struct GivenParam {
    QStringView column;
    CalParamMember member;
    /// What a stored row holds, each different from every other, so that none can stand for another.
    QStringView stored;
    /// What the screen can show and does not start with.
    QStringView shown;
    /// What a null reads as; empty where it is reported.
    QStringView null;
    bool isNullWhenEmpty;
    /// The prompt macro of the stored value, and what it gives where that is not the value itself.
    QStringView macro = {};
    QStringView expanded = {};
};

/// In the order of the select list.
inline constexpr auto givenParams = [] {
    using R = CalParamRecord;
    return std::to_array<GivenParam>({
        {u"repetitions", &R::repetitions, u"2", u"12", u"", false, u"REPETITIONS"},
        {u"test_point_count", &R::test_point_count, u"3", u"", u"", false, u"STRATEGYPOINTS"},
        {u"resolution", &R::resolution, u"0.01", u"0.001", u"", false, u"RESOLUTION"},
        {u"input_type", &R::input_type, u"psi", u"psi", u"", false, u"INPUTUNITS"},
        {u"output_type", &R::output_type, u"mA", u"ft/lb", u"", false, u"OUTPUTUNITS"},
        {u"input_high", &R::input_high, u"100", u"100.25", u"", false, u"INPUTHIGH"},
        {u"input_low", &R::input_low, u"-15.5", u"-15.5", u"0", true, u"INPUTLOW"},
        {u"output_high", &R::output_high, u"20", u"20.125", u"", false, u"OUTPUTHIGH"},
        {u"output_low", &R::output_low, u"4", u"4.5", u"0", true, u"OUTPUTLOW"},
        {u"neg_fs_range_pct", &R::neg_fs_range_pct, u"0.1", u"0.1", u"0", true, u"FSNEG", u"0.1%"},
        {u"pos_fs_range_pct", &R::pos_fs_range_pct, u"0.2", u"0.2", u"0", true, u"FSPOS", u"0.2%"},
        {u"neg_span_pct", &R::neg_span_pct, u"0.3", u"0.3", u"0", true, u"SPANNEG", u"0.3%"},
        {u"pos_span_pct", &R::pos_span_pct, u"0.4", u"0.4", u"0", true, u"SPANPOS", u"0.4%"},
        {u"neg_reading_pct", &R::neg_reading_pct, u"0.5", u"0.5", u"0", true, u"READINGNEG", u"0.5%"},
        {u"pos_reading_pct", &R::pos_reading_pct, u"0.6", u"0.6", u"0", true, u"READINGPOS", u"0.6%"},
        {u"neg_lsd_counts", &R::neg_lsd_counts, u"7", u"7", u"0", true, u"LSDNEG"},
        {u"pos_lsd_counts", &R::pos_lsd_counts, u"8", u"8", u"0", true, u"LSDPOS"},
        {u"neg_units", &R::neg_units, u"0.9", u"0.9", u"0", true, u"UNITSNEG"},
        {u"pos_units", &R::pos_units, u"1.1", u"1.1", u"0", true, u"UNITSPOS"},
        {u"mtag", &R::mtag, u"4711", u"17", u"", false},
        {u"baud_rate_out", &R::baud_rate_out, u"9600", u"1200", u"", false},
        {u"cj_ref_temp_in", &R::cj_ref_temp_in, u"21.5", u"21.5", u"0", true},
        {u"cj_ref_temp_out", &R::cj_ref_temp_out, u"22.5", u"-22.5", u"0", true},
        {u"cj_ref_type_in", &R::cj_ref_type_in, u"INT", u"EXT", u"", false},
        {u"cj_ref_type_out", &R::cj_ref_type_out, u"EXT", u"INT", u"", false},
        {u"click_dip_torque_out", &R::click_dip_torque_out, u"1.25", u"1.25", u"", false},
        {u"cycle_end_time_out", &R::cycle_end_time_out, u"0.5 s", u"5.0", u"", false, u"OUTPUTTORQCYCEND"},
        {u"data_bits_out", &R::data_bits_out, u"8 bits", u"7", u"", false},
        {u"data_parity_out", &R::data_parity_out, u"Even", u"Odd", u"", false},
        {u"frequency_response_out", &R::frequency_response_out, u"1676", u"72", u"", false,
         u"OUTPUTTORQFREQ"},
        {u"measurement_direction_out", &R::measurement_direction_out, u"Right", u"Left", u"", false,
         u"OUTPUTTORQDIRECTION"},
        {u"measurement_mode_out", &R::measurement_mode_out, u"Peak", u"Impulse", u"", false,
         u"OUTPUTTORQMEASMODE"},
        {u"stop_bits_out", &R::stop_bits_out, u"1 bit", u"2", u"", false},
        {u"temp_scale_in", &R::temp_scale_in, u"ITS-90", u"IPTS-68", u"", false, u"INPUTTEMPSCALE"},
        {u"temp_scale_out", &R::temp_scale_out, u"IPTS-68", u"ITS-90", u"", false, u"OUTPUTTEMPSCALE"},
        {u"temp_sens_type_in", &R::temp_sens_type_in, u"K", u"TC K", u"", false, u"INPUTTEMPSENS"},
        {u"temp_sens_type_out", &R::temp_sens_type_out, u"PT100", u"RTD CU10 427", u"", false,
         u"OUTPUTTEMPSENS"},
        {u"temp_sens_wires_in", &R::temp_sens_wires_in, u"12", u"2", u"", false, u"INPUTTEMPWIRES"},
        {u"temp_sens_wires_out", &R::temp_sens_wires_out, u"14", u"3", u"", false, u"OUTPUTTEMPWIRES"},
        {u"threshold_torque_out", &R::threshold_torque_out, u"2.75", u"2.75", u"", false, u"OUTPUTTHRESTORQ"},
        {u"tp_name", &R::tp_name, u"Three up", u"THREE", u"", false, u"STRATEGYNAME"},
        {u"transducer_type_out", &R::transducer_type_out, u"Serial", u"Industry Standard", u"", false,
         u"OUTPUTTRANSDUCER"},
        {u"max_test_point_pct", &R::max_test_point_pct, u"110", u"", u"0", false},
        {u"loop_pwr", &R::loop_pwr, u"24V", u"28V", u"OFF", false, u"OUTPUTLOOPPWR"},
        {u"freq_ptpamp_in", &R::freq_ptpamp_in, u"5.5", u"5.5", u"0", false},
        {u"freq_ptpamp_out", &R::freq_ptpamp_out, u"6.5", u"6.5", u"0", false},
        {u"input_indicated", &R::input_indicated, u"Y", u"Y", u"N", false, u"INPUTINDICATED", u"Yes"},
        {u"output_indicated", &R::output_indicated, u"N", u"N", u"N", false, u"OUTPUTINDICATED", u"No"},
    });
}();

inline constexpr QStringView givenSelectList =
    u"repetitions,"
    u"(select count(test_point_pct) from mt.hvm_kv_proc_points where mt.hvm_kv_proc_points.tp_name = "
    u"mt.hvm_kv_tag_config.tp_name),"
    u"resolution,input_type,output_type,input_high,input_low,output_high,output_low,neg_fs_range_pct,"
    u"pos_fs_range_pct,neg_span_pct,pos_span_pct,neg_reading_pct,pos_reading_pct,neg_lsd_counts,"
    u"pos_lsd_counts,neg_units,pos_units,mt.hvm_kv_tag_config.mtag,baud_rate_out,cj_ref_temp_in,"
    u"cj_ref_temp_out,cj_ref_type_in,cj_ref_type_out,click_dip_torque_out,cycle_end_time_out,"
    u"data_bits_out,data_parity_out,frequency_response_out,measurement_direction_out,"
    u"measurement_mode_out,stop_bits_out,temp_scale_in,temp_scale_out,temp_sens_type_in,"
    u"temp_sens_type_out,temp_sens_wires_in,temp_sens_wires_out,threshold_torque_out,"
    u"mt.hvm_kv_tag_config.tp_name,transducer_type_out,"
    u"(select max(test_point_pct) from mt.hvm_kv_proc_points where mt.hvm_kv_proc_points.tp_name = "
    u"mt.hvm_kv_tag_config.tp_name),"
    u"loop_pwr,freq_ptpamp_in,freq_ptpamp_out,input_indicated,output_indicated";

/// The order of the insert.
inline constexpr QStringView givenSavedColumns =
    u"mtag,resolution,input_type,output_type,input_low,input_high,output_low,output_high,temp_scale_in,"
    u"temp_scale_out,cj_ref_type_in,cj_ref_type_out,cj_ref_temp_in,cj_ref_temp_out,temp_sens_type_in,"
    u"temp_sens_type_out,temp_sens_wires_in,temp_sens_wires_out,neg_fs_range_pct,pos_fs_range_pct,"
    u"neg_span_pct,pos_span_pct,neg_reading_pct,pos_reading_pct,neg_lsd_counts,pos_lsd_counts,neg_units,"
    u"pos_units,baud_rate_out,data_bits_out,cycle_end_time_out,stop_bits_out,measurement_mode_out,"
    u"data_parity_out,frequency_response_out,measurement_direction_out,transducer_type_out,"
    u"threshold_torque_out,click_dip_torque_out,repetitions,loop_pwr,tp_name,freq_ptpamp_in,"
    u"freq_ptpamp_out,input_indicated,output_indicated";

/// The order of the checksum; the messages follow.
inline constexpr QStringView givenSummedColumns =
    u"resolution,input_type,output_type,input_low,input_high,output_low,output_high,temp_scale_in,"
    u"temp_scale_out,cj_ref_type_in,cj_ref_type_out,cj_ref_temp_in,cj_ref_temp_out,temp_sens_type_in,"
    u"temp_sens_type_out,temp_sens_wires_in,temp_sens_wires_out,neg_fs_range_pct,pos_fs_range_pct,"
    u"neg_span_pct,pos_span_pct,neg_reading_pct,pos_reading_pct,neg_lsd_counts,pos_lsd_counts,neg_units,"
    u"pos_units,tp_name,transducer_type_out,threshold_torque_out,click_dip_torque_out,"
    u"cycle_end_time_out,frequency_response_out,measurement_mode_out,measurement_direction_out,"
    u"baud_rate_out,data_bits_out,stop_bits_out,data_parity_out,repetitions,loop_pwr,freq_ptpamp_in,"
    u"freq_ptpamp_out,output_indicated,input_indicated";

struct GivenControl {
    QStringView name;
    QStringView column;
    /// The label beside it or, of an option or check box, its caption.
    QStringView label;
    /// What it shows before any record: a text, a row, "on" or "off".
    QStringView starts;
    QStringView toolTip;
    /// The rows of a list.
    QList<QStringView> rows = {};
    /// What an option stands for when it is on, in the database and in the checksum.
    QStringView stored = {};
    QStringView summed = {};
};

/// The controls of a panel, in the order of Tab, and the captions of the tabs and panels around them.
struct GivenPanel {
    QStringView captions;
    QList<GivenControl> controls;
};

inline const QList<GivenPanel>& givenPanels() {
    const auto list = [](QStringView name, QStringView column, QStringView label, QStringView starts,
                         QStringView toolTip, const QList<QStringView>& rows) {
        return GivenControl{name, column, label, starts, toolTip, rows};
    };
    const auto option = [](QStringView name, QStringView column, QStringView caption, QStringView starts,
                           QStringView toolTip, QStringView stored, QStringView summed) {
        return GivenControl{name, column, caption, starts, toolTip, {}, stored, summed};
    };
    static const QList<QStringView> units = {
        u"C",     u"F",    u"V",      u"mV",    u"mA",    u"Hz",    u"KHz",   u"MHz",  u"Ohms",
        u"KOhms", u"psi",  u"psig",   u"inHg",  u"inH2O", u"mmHg",  u"kPa",   u"bar",  u"mbar",
        u"uV",    u"uA",   u"A",      u"Mohms", u"in/oz", u"in/lb", u"ft/lb", u"N/cm", u"N/m",
        u"Kg/cm", u"Kg/m", u"Klb/ft", u"KN/m",  u"VAC",   u"mVAC",  u"%"};
    static const QList<QStringView> sensors = {
        u"RTD PT100 385",  u"RTD PT200 385",  u"RTD PT500 385", u"RTD PT1000 385",
        u"RTD PT100 3916", u"RTD PT100 3926", u"RTD NI120 672", u"RTD CU10 427",
        u"TC E",           u"TC N",           u"TC J",          u"TC K",
        u"TC T",           u"TC B",           u"TC R",          u"TC S",
        u"TC C",           u"TC L",           u"TC U"};
    static const QList<QStringView> scales = {u"ITS-90", u"IPTS-68"};
    static constexpr QStringView wires = u"Number of wires connected to the RTD";
    static constexpr QStringView amplitude = u"Peak-To-Peak amplitude of the waveform in millivolts";
    static constexpr QStringView reference = u"Reference Temperature (In units specified above)";
    static constexpr QStringView presetReference =
        u"If the calibrator supports preset reference temperature, then use this value";
    static constexpr QStringView sensor = u"Type of temperature sensor and output \"curve\"";
    static constexpr QStringView internalReference =
        u"Cold-junction reference is automatically determined by the calibrator";
    static constexpr QStringView externalReference =
        u"Cold-junction reference is manually set by the operator";
    static const QList<GivenPanel> panels{
        {u"General Test Parameters > Test Parameters",
         {
             {u"ComboTSName", u"tp_name", u"Test strategy name", u"",
              u"Select a test strategy to calibrate this instrument"},
         }},
        {u"Input Configuration > Input Scale/Units",
         {
             {u"TextInputLow", u"input_low", u"Input Low", u"0.0",
              u"Lowest value measured by the instrument"},
             {u"TextInputHigh", u"input_high", u"Input High", u"100.0",
              u"Highest value measured by the instrument"},
             list(u"ComboInputUnits", u"input_type", u"Input Units of Measure", u"",
                  u"Units of measure for the input section of the instrument", units),
             {u"CheckIndicatedInput", u"input_indicated", u"Indicated Input", u"off",
              u"Instrument is supplied a value, rather than measuring a quantity from the calibrator."},
             list(u"ComboMeasRes", u"resolution", u"Measurement Resolution", u"0.1",
                  u"Measurement resolution of the input section of the instrument",
                  {u"100000", u"10000", u"1000", u"100", u"10", u"1", u"0.1", u"0.01", u"0.001", u"0.0001",
                   u"0.00001", u"0.000001", u"0.0000001", u"0.00000001", u"0.000000001"}),
             {u"TextRepetitions", u"repetitions", u"Test Point Repetitions", u"1",
              u"Number of times to repeat each test point for averaging/statistics/etc."},
         }},
        {u"Input Configuration > Input Configuration > Temperature Scale",
         {
             list(u"ComboTempScaleIn", u"temp_scale_in", u"", u"ITS-90",
                  u"Temperature scale used by the instrument", scales),
         }},
        {u"Input Configuration > Input Configuration > Cold-Junction Reference",
         {
             option(u"OptionCJRefIntIn", u"cj_ref_type_in", u"Internal (Automatic)", u"on", internalReference,
                    u"INT", u"I"),
             option(u"OptionCJRefExtIn", u"cj_ref_type_in", u"External (Manually Specified)", u"off",
                    externalReference, u"EXT", u"E"),
             {u"TextCJRefTempIn", u"cj_ref_temp_in", reference, u"0.0", presetReference},
         }},
        {u"Input Configuration > Input Configuration > Sensor Type",
         {
             list(u"ComboSensTypeIn", u"temp_sens_type_in", u"Sensor Type/Curve", u"RTD PT100 3926", sensor,
                  sensors),
             option(u"OptionSensWires2In", u"temp_sens_wires_in", u"2", u"off", wires, u"2", u"2"),
             option(u"OptionSensWires3In", u"temp_sens_wires_in", u"3", u"off", wires, u"3", u"3"),
             option(u"OptionSensWires4In", u"temp_sens_wires_in", u"4", u"on", wires, u"4", u"4"),
         }},
        {u"Input Configuration > Input Configuration > Waveform > Peak-To-Peak Amplitude",
         {
             {u"TextPTPAmplitudeIn", u"freq_ptpamp_in", u"", u"100.0", amplitude},
         }},
        {u"Output Configuration > Output Scale/Units",
         {
             {u"TextOutputLow", u"output_low", u"Output Low", u"0.0",
              u"Lowest value output by the instrument"},
             {u"TextOutputHigh", u"output_high", u"Output High", u"100.0",
              u"Highest value output by the instrument"},
             list(u"ComboOutputUnits", u"output_type", u"Output Units of Measure", u"",
                  u"Units of measure for the output section of the instrument", units),
             {u"CheckIndicatedOutput", u"output_indicated", u"Indicated Output", u"off",
              u"Instrument \"displays\" it's output, rather than supplying a quantity measured by a "
              u"calibrator."},
         }},
        {u"Output Configuration > Output Configuration > Temperature Scale",
         {
             list(u"ComboTempScaleOut", u"temp_scale_out", u"", u"ITS-90",
                  u"Temperature scale used by the instrument", scales),
         }},
        {u"Output Configuration > Output Configuration > Cold-Junction Reference",
         {
             option(u"OptionCJRefIntOut", u"cj_ref_type_out", u"Internal (Automatic)", u"on",
                    internalReference, u"INT", u"I"),
             option(u"OptionCJRefExtOut", u"cj_ref_type_out", u"External (Manually Specified)", u"off",
                    externalReference, u"EXT", u"E"),
             {u"TextCJRefTempOut", u"cj_ref_temp_out", reference, u"0.0", presetReference},
         }},
        {u"Output Configuration > Output Configuration > Sensor Type",
         {
             list(u"ComboSensTypeOut", u"temp_sens_type_out", u"Sensor Type/Curve", u"RTD PT100 3926", sensor,
                  sensors),
             option(u"OptionSensWires2Out", u"temp_sens_wires_out", u"2", u"off", wires, u"2", u"2"),
             option(u"OptionSensWires3Out", u"temp_sens_wires_out", u"3", u"off", wires, u"3", u"3"),
             option(u"OptionSensWires4Out", u"temp_sens_wires_out", u"4", u"on", wires, u"4", u"4"),
         }},
        {u"Output Configuration > Output Configuration > Waveform > Peak-To-Peak Amplitude",
         {
             {u"TextPTPAmplitudeOut", u"freq_ptpamp_out", u"", u"100.0", amplitude},
         }},
        {u"Output Configuration > Output Configuration > General Configuration",
         {
             list(u"ComboTransTypeOut", u"transducer_type_out", u"Transducer Type", u"UTA",
                  u"The general type of transducer",
                  {u"High Output", u"Industry Standard", u"Serial", u"UTA"}),
             list(u"ComboMeasurementModeOut", u"measurement_mode_out", u"Measurement Mode", u"Peak",
                  u"Which mode measurements are taken", {u"Click Dip", u"Peak", u"Impulse"}),
             {u"TextThresholdOut", u"threshold_torque_out", u"Threshold Torque", u"0.0",
              u"Point above which readings are taken"},
             {u"TextDipOut", u"click_dip_torque_out", u"Click Dip Torque", u"0.0",
              u"Point at which reading must drop before measurement is taken"},
         }},
        {u"Output Configuration > Output Configuration > Analog Transducer Configuration",
         {
             list(u"ComboCycleEndTimeOut", u"cycle_end_time_out", u"Cycle End Time", u"1.0",
                  u"Measurement stabilisation period",
                  {u"0.1", u"0.2", u"0.5", u"1.0", u"2.0", u"5.0", u"10.0"}),
             list(u"ComboFreqRespOut", u"frequency_response_out", u"Frequency Response", u"1676",
                  u"Frequency response of instrument",
                  {u"6144", u"3686", u"2304", u"1676", u"1317", u"1024", u"996", u"737", u"527", u"376",
                   u"302", u"252", u"200", u"150", u"100", u"75", u"72"}),
             list(u"ComboMeasDirOut", u"measurement_direction_out", u"Measurement Direction", u"Right",
                  u"Direction of applied stimulus", {u"Right", u"Left"}),
         }},
        {u"Output Configuration > Output Configuration > Digital (Serial) Transducer Configuration",
         {
             list(u"ComboBaudRateOut", u"baud_rate_out", u"Baud Rate", u"9600",
                  u"Baud rate used in communications",
                  {u"300", u"600", u"1200", u"2400", u"4800", u"9600", u"19200"}),
             list(u"ComboDataBitsOut", u"data_bits_out", u"Data Bits", u"8",
                  u"Number of data bits used in communications", {u"8", u"7"}),
             list(u"ComboStopBitsOut", u"stop_bits_out", u"Stop Bits", u"1",
                  u"Number of stop bits used in communications", {u"1", u"2"}),
             list(u"ComboParityOut", u"data_parity_out", u"Parity", u"None", u"Parity used in communications",
                  {u"Even", u"Odd", u"None"}),
         }},
        {u"Output Configuration > Output Configuration > Loop Power > Calibrator As Power Source",
         {
             option(u"OptionCalLoopPWROutOff", u"loop_pwr", u"OFF", u"on",
                    u"Disables device under test power from calibrator", u"OFF", u"O"),
             option(u"OptionCalLoopPWROut24VDC", u"loop_pwr", u"24VDC", u"off",
                    u"Power device under test with 24VDC from calibrator", u"24V", u"24"),
             option(u"OptionCalLoopPWROut28VDC", u"loop_pwr", u"28VDC", u"off",
                    u"Power device under test with 28VDC from calibrator", u"28V", u"28"),
         }},
        {u"Test Tolerances/Error Calculation > Test Tolerance Specification > Percent of Full Scale/Range",
         {
             {u"TextFSPos", u"pos_fs_range_pct", u"Positive", u"0.0", u"Percent of Full Scale tolerance"},
             {u"TextFSNeg", u"neg_fs_range_pct", u"Negative", u"0.0", u"Percent of Full Scale tolerance"},
         }},
        {u"Test Tolerances/Error Calculation > Test Tolerance Specification > Percent of Span",
         {
             {u"TextSpanPos", u"pos_span_pct", u"Positive", u"0.0", u"Percent of measurement span"},
             {u"TextSpanNeg", u"neg_span_pct", u"Negative", u"0.0", u"Percent of measurement span"},
         }},
        {u"Test Tolerances/Error Calculation > Test Tolerance Specification > Percent of Reading",
         {
             {u"TextReadPos", u"pos_reading_pct", u"Positive", u"0.0", u"Percent of measurement (reading)"},
             {u"TextReadNeg", u"neg_reading_pct", u"Negative", u"0.0", u"Percent of measurement (reading)"},
         }},
        {u"Test Tolerances/Error Calculation > Test Tolerance Specification > LSD Tolerance",
         {
             {u"TextLSDPos", u"pos_lsd_counts", u"Positive", u"0.0",
              u"Units of least significant digits (resolution)"},
             {u"TextLSDNeg", u"neg_lsd_counts", u"Negative", u"0.0",
              u"Units of least significant digits (resolution)"},
         }},
        {u"Test Tolerances/Error Calculation > Test Tolerance Specification > Units of Measure",
         {
             {u"TextUnitsPos", u"pos_units", u"Positive", u"0.0", u"Units of measure (input units)"},
             {u"TextUnitsNeg", u"neg_units", u"Negative", u"0.0", u"Units of measure (input units)"},
         }},
    };
    return panels;
}

inline QList<GivenControl> givenControls() {
    QList<GivenControl> controls;
    for (const auto& panel : givenPanels())
        controls << panel.controls;
    return controls;
}

} // namespace kelvane::testing
