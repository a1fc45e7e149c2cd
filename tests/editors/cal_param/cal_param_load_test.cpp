#include "editors/cal_param/cal_param_load.h"
#include "testkit/fixtures.h"
#include "tests/editors/cal_param/cal_param_entry.h"

#include <QComboBox>
#include <QHash>

#include <functional>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

using Shown = QHash<QString, QString>;

/// A record of which no value is what the screen starts with.
CalParamRecord someRecord() {
    CalParamRecord record;
    record.mtag = u"17"_s;
    record.resolution = 0.001F;
    record.input_type = u"psi"_s;
    record.output_type = u"ft/lb"_s;
    record.input_low = -15.5F;
    record.input_high = 100.25F;
    record.output_low = 4.5F;
    record.output_high = 20.125F;
    record.temp_scale_in = u"IPTS-68"_s;
    record.temp_scale_out = u"ITS-90"_s;
    record.cj_ref_type_in = u"EXT"_s;
    record.cj_ref_type_out = u"INT"_s;
    record.cj_ref_temp_in = 21.5F;
    record.cj_ref_temp_out = -22.5F;
    record.temp_sens_type_in = u"TC K"_s;
    record.temp_sens_type_out = u"RTD CU10 427"_s;
    record.temp_sens_wires_in = 2;
    record.temp_sens_wires_out = 3;
    record.neg_fs_range_pct = 0.1F;
    record.pos_fs_range_pct = 0.2F;
    record.neg_span_pct = 0.3F;
    record.pos_span_pct = 0.4F;
    record.neg_reading_pct = 0.5F;
    record.pos_reading_pct = 0.6F;
    record.neg_lsd_counts = 7;
    record.pos_lsd_counts = 8;
    record.neg_units = 0.9F;
    record.pos_units = 1.1F;
    record.tp_name = u"THREE"_s;
    record.transducer_type_out = u"Industry Standard"_s;
    record.cycle_end_time_out = u"5.0"_s;
    record.frequency_response_out = u"72"_s;
    record.measurement_mode_out = u"Impulse"_s;
    record.measurement_direction_out = u"Left"_s;
    record.baud_rate_out = u"1200"_s;
    record.data_bits_out = u"7"_s;
    record.stop_bits_out = u"2"_s;
    record.data_parity_out = u"Odd"_s;
    record.threshold_torque_out = 2.75F;
    record.click_dip_torque_out = 1.25F;
    record.repetitions = 12;
    record.loop_pwr = u"28V"_s;
    record.freq_ptpamp_in = 5.5F;
    record.freq_ptpamp_out = 6.5F;
    record.input_indicated = true;
    record.output_indicated = false;
    return record;
}

} // namespace

class CalParamLoad : public CalParamPages {
  protected:
    CalParamLoad() { addRows(*c.ComboTSName, {u"FIVE"_s, u"THREE"_s, u"three"_s}); }
    void expectShown(const Shown& shown) {
        for (auto one = shown.cbegin(); one != shown.cend(); ++one)
            EXPECT_EQ(shownBy(*body, one.key()), one.value()) << one.key().toStdString();
    }
};

TEST_F(CalParamLoad, ShowsEachValueOfTheRecordInItsControl) {
    const Shown shown{
        {u"ComboMeasRes"_s, u"0.001"_s},
        {u"ComboInputUnits"_s, u"psi"_s},
        {u"ComboOutputUnits"_s, u"ft/lb"_s},
        {u"TextInputLow"_s, u"-15.5"_s},
        {u"TextInputHigh"_s, u"100.25"_s},
        {u"TextOutputLow"_s, u"4.5"_s},
        {u"TextOutputHigh"_s, u"20.125"_s},
        {u"ComboTempScaleIn"_s, u"IPTS-68"_s},
        {u"ComboTempScaleOut"_s, u"ITS-90"_s},
        {u"OptionCJRefIntIn"_s, u"off"_s},
        {u"OptionCJRefExtIn"_s, u"on"_s},
        {u"OptionCJRefIntOut"_s, u"on"_s},
        {u"OptionCJRefExtOut"_s, u"off"_s},
        {u"TextCJRefTempIn"_s, u"21.5"_s},
        {u"TextCJRefTempOut"_s, u"-22.5"_s},
        {u"ComboSensTypeIn"_s, u"TC K"_s},
        {u"ComboSensTypeOut"_s, u"RTD CU10 427"_s},
        {u"OptionSensWires2In"_s, u"on"_s},
        {u"OptionSensWires3In"_s, u"off"_s},
        {u"OptionSensWires4In"_s, u"off"_s},
        {u"OptionSensWires2Out"_s, u"off"_s},
        {u"OptionSensWires3Out"_s, u"on"_s},
        {u"OptionSensWires4Out"_s, u"off"_s},
        {u"TextFSNeg"_s, u"0.1"_s},
        {u"TextFSPos"_s, u"0.2"_s},
        {u"TextSpanNeg"_s, u"0.3"_s},
        {u"TextSpanPos"_s, u"0.4"_s},
        {u"TextReadNeg"_s, u"0.5"_s},
        {u"TextReadPos"_s, u"0.6"_s},
        {u"TextLSDNeg"_s, u"7"_s},
        {u"TextLSDPos"_s, u"8"_s},
        {u"TextUnitsNeg"_s, u"0.9"_s},
        {u"TextUnitsPos"_s, u"1.1"_s},
        {u"ComboTSName"_s, u"THREE"_s},
        {u"ComboTransTypeOut"_s, u"Industry Standard"_s},
        {u"ComboCycleEndTimeOut"_s, u"5.0"_s},
        {u"ComboFreqRespOut"_s, u"72"_s},
        {u"ComboMeasurementModeOut"_s, u"Impulse"_s},
        {u"ComboMeasDirOut"_s, u"Left"_s},
        {u"ComboBaudRateOut"_s, u"1200"_s},
        {u"ComboDataBitsOut"_s, u"7"_s},
        {u"ComboStopBitsOut"_s, u"2"_s},
        {u"ComboParityOut"_s, u"Odd"_s},
        {u"TextThresholdOut"_s, u"2.75"_s},
        {u"TextDipOut"_s, u"1.25"_s},
        {u"TextRepetitions"_s, u"12"_s},
        {u"OptionCalLoopPWROutOff"_s, u"off"_s},
        {u"OptionCalLoopPWROut24VDC"_s, u"off"_s},
        {u"OptionCalLoopPWROut28VDC"_s, u"on"_s},
        {u"TextPTPAmplitudeIn"_s, u"5.5"_s},
        {u"TextPTPAmplitudeOut"_s, u"6.5"_s},
        {u"CheckIndicatedInput"_s, u"on"_s},
        {u"CheckIndicatedOutput"_s, u"off"_s},
    };
    showRecord(someRecord(), c);
    expectShown(shown);
    // All but the four lists of messages.
    EXPECT_EQ(shown.size(), valueControls(*body).size() - 4);
}

TEST_F(CalParamLoad, TheSidesAreNotMixedUp) {
    auto record = someRecord();
    record.temp_scale_in = u"ITS-90"_s;
    record.temp_scale_out = u"IPTS-68"_s;
    record.cj_ref_type_in = u"INT"_s;
    record.cj_ref_type_out = u"EXT"_s;
    record.input_indicated = false;
    record.output_indicated = true;
    record.loop_pwr = u"24V"_s;
    showRecord(record, c);
    expectShown({{u"ComboTempScaleIn"_s, u"ITS-90"_s},
                 {u"ComboTempScaleOut"_s, u"IPTS-68"_s},
                 {u"OptionCJRefIntIn"_s, u"on"_s},
                 {u"OptionCJRefExtOut"_s, u"on"_s},
                 {u"CheckIndicatedInput"_s, u"off"_s},
                 {u"CheckIndicatedOutput"_s, u"on"_s},
                 {u"OptionCalLoopPWROut24VDC"_s, u"on"_s}});
}

TEST_F(CalParamLoad, ANewRecordReplacesAllThatTheOneBeforeItShowed) {
    showRecord(someRecord(), c);
    auto record = someRecord();
    record.cj_ref_type_in = u"INT"_s;
    record.temp_sens_wires_in = 4;
    record.temp_sens_wires_out = 4;
    record.loop_pwr = u"OFF"_s;
    record.input_indicated = false;
    record.tp_name = u"FIVE"_s;
    showRecord(record, c);
    expectShown({{u"OptionCJRefExtIn"_s, u"off"_s},
                 {u"OptionSensWires4In"_s, u"on"_s},
                 {u"OptionSensWires4Out"_s, u"on"_s},
                 {u"OptionCalLoopPWROutOff"_s, u"on"_s},
                 {u"CheckIndicatedInput"_s, u"off"_s},
                 {u"ComboTSName"_s, u"FIVE"_s}});
}

TEST_F(CalParamLoad, AValueThatIsNotOfferedLeavesItsControlAsItStood) {
    const struct {
        QStringList controls;
        std::function<void(CalParamRecord&)> spoil;
    } rows[] = {
        {{u"ComboMeasRes"_s}, [](auto& r) { r.resolution = 0.25F; }},
        {{u"ComboMeasRes"_s}, [](auto& r) { r.resolution = 0; }},
        {{u"ComboMeasRes"_s}, [](auto& r) { r.resolution = -0.001F; }},
        {{u"ComboInputUnits"_s}, [](auto& r) { r.input_type = u"PSI"_s; }},
        {{u"ComboInputUnits"_s}, [](auto& r) { r.input_type = u" psi"_s; }},
        {{u"ComboInputUnits"_s}, [](auto& r) { r.input_type = QString(); }},
        {{u"ComboOutputUnits"_s}, [](auto& r) { r.output_type = u"Serial Torque Transducer"_s; }},
        {{u"ComboTempScaleIn"_s}, [](auto& r) { r.temp_scale_in = u"its-90"_s; }},
        {{u"ComboTempScaleOut"_s}, [](auto& r) { r.temp_scale_out = u"ITS"_s; }},
        {{u"OptionCJRefIntIn"_s, u"OptionCJRefExtIn"_s}, [](auto& r) { r.cj_ref_type_in = u"EXTERNAL"_s; }},
        {{u"OptionCJRefIntIn"_s, u"OptionCJRefExtIn"_s}, [](auto& r) { r.cj_ref_type_in = QString(); }},
        {{u"OptionCJRefIntOut"_s, u"OptionCJRefExtOut"_s}, [](auto& r) { r.cj_ref_type_out = u" INT"_s; }},
        {{u"ComboSensTypeIn"_s}, [](auto& r) { r.temp_sens_type_in = u"K"_s; }},
        {{u"ComboSensTypeOut"_s}, [](auto& r) { r.temp_sens_type_out = u"tc k"_s; }},
        {{u"OptionSensWires2In"_s, u"OptionSensWires3In"_s, u"OptionSensWires4In"_s},
         [](auto& r) { r.temp_sens_wires_in = 0; }},
        {{u"OptionSensWires2In"_s, u"OptionSensWires3In"_s, u"OptionSensWires4In"_s},
         [](auto& r) { r.temp_sens_wires_in = 5; }},
        {{u"OptionSensWires2Out"_s, u"OptionSensWires3Out"_s, u"OptionSensWires4Out"_s},
         [](auto& r) { r.temp_sens_wires_out = 23; }},
        {{u"ComboTSName"_s}, [](auto& r) { r.tp_name = u"Three"_s; }},
        {{u"ComboTransTypeOut"_s}, [](auto& r) { r.transducer_type_out = u"SERIAL"_s; }},
        {{u"ComboCycleEndTimeOut"_s}, [](auto& r) { r.cycle_end_time_out = u"5"_s; }},
        {{u"ComboFreqRespOut"_s}, [](auto& r) { r.frequency_response_out = u"1676.0"_s; }},
        {{u"ComboMeasurementModeOut"_s}, [](auto& r) { r.measurement_mode_out = u"peak"_s; }},
        {{u"ComboMeasDirOut"_s}, [](auto& r) { r.measurement_direction_out = u"RIGHT"_s; }},
        {{u"ComboBaudRateOut"_s}, [](auto& r) { r.baud_rate_out = u"38400"_s; }},
        {{u"ComboDataBitsOut"_s}, [](auto& r) { r.data_bits_out = u"9"_s; }},
        {{u"ComboStopBitsOut"_s}, [](auto& r) { r.stop_bits_out = u"1.5"_s; }},
        {{u"ComboParityOut"_s}, [](auto& r) { r.data_parity_out = u"Mark"_s; }},
        {{u"OptionCalLoopPWROutOff"_s, u"OptionCalLoopPWROut24VDC"_s, u"OptionCalLoopPWROut28VDC"_s},
         [](auto& r) { r.loop_pwr = u"off"_s; }},
        {{u"OptionCalLoopPWROutOff"_s, u"OptionCalLoopPWROut24VDC"_s, u"OptionCalLoopPWROut28VDC"_s},
         [](auto& r) { r.loop_pwr = u"24VDC"_s; }},
    };
    showRecord(someRecord(), c);
    const auto before = allShown(*body);
    int row = 0;
    for (const auto& [controls, spoil] : rows) {
        auto record = someRecord();
        spoil(record);
        showRecord(record, c);
        EXPECT_EQ(allShown(*body), before) << "row " << row << ", " << controls.join(u' ').toStdString();
        ++row;
    }
}

TEST_F(CalParamLoad, TheCaseOfTheColdJunctionDoesNotCount) {
    auto record = someRecord();
    record.cj_ref_type_in = u"ext"_s;
    record.cj_ref_type_out = u"Ext"_s;
    showRecord(record, c);
    expectShown({{u"OptionCJRefExtIn"_s, u"on"_s}, {u"OptionCJRefExtOut"_s, u"on"_s}});
    record.cj_ref_type_in = u"iNt"_s;
    showRecord(record, c);
    expectShown({{u"OptionCJRefIntIn"_s, u"on"_s}});
}

TEST_F(CalParamLoad, EachResolutionIsFoundByItsValue) {
    for (int row = 0; row < c.ComboMeasRes->count(); ++row) {
        auto record = someRecord();
        record.resolution = c.ComboMeasRes->itemText(row).toFloat();
        c.ComboMeasRes->setCurrentIndex(-1);
        showRecord(record, c);
        EXPECT_EQ(c.ComboMeasRes->currentIndex(), row);
    }
}

TEST_F(CalParamLoad, NumbersComeInTheirGeneralForm) {
    const QPair<float, QString> numbers[] = {{0.0F, u"0"_s},
                                             {0.1F, u"0.1"_s},
                                             {-0.0F, u"0"_s},
                                             {1e20F, u"1E+20"_s},
                                             {16777216.0F, u"16777216"_s},
                                             {1e-7F, u"0.0000001"_s}};
    for (const auto& [value, shown] : numbers) {
        auto record = someRecord();
        record.input_low = value;
        record.pos_units = value;
        record.freq_ptpamp_out = value;
        showRecord(record, c);
        expectShown(
            {{u"TextInputLow"_s, shown}, {u"TextUnitsPos"_s, shown}, {u"TextPTPAmplitudeOut"_s, shown}});
    }
}

TEST_F(CalParamLoad, RowsThatAreAddedSelectNothing) {
    EXPECT_EQ(c.ComboTSName->count(), 3);
    EXPECT_EQ(c.ComboTSName->currentIndex(), -1);
    c.ComboTSName->setCurrentIndex(1);
    addRows(*c.ComboTSName, {u"A"_s, u"B"_s});
    EXPECT_EQ(c.ComboTSName->count(), 5);
    EXPECT_EQ(c.ComboTSName->currentIndex(), 1);
}

} // namespace kelvane::testing
