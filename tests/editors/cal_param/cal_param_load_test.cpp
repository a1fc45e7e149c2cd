#include "testkit/fixtures.h"
#include "testkit/scripted_params.h"
#include "tests/editors/cal_param/cal_param_entry.h"

#include <QComboBox>
#include <QHash>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

using Shown = QHash<QString, QString>;

/// A record of which hardly a value is what the screen starts with.
CalParamRecord someRecord() {
    return givenRecord(&GivenParam::shown);
}

} // namespace

class CalParamLoad : public CalParamPages {
  protected:
    CalParamLoad() { addRows(*strategies(), {u"FIVE"_s, u"THREE"_s, u"three"_s}); }
    QComboBox* strategies() const { return fields.list(&CalParamRecord::tp_name); }
    QComboBox* resolutions() const { return fields.list(&CalParamRecord::resolution); }
    void expectShown(const Shown& shown) {
        for (auto control = shown.cbegin(); control != shown.cend(); ++control)
            EXPECT_EQ(shownBy(*body, control.key()), control.value()) << control.key().toStdString();
    }
};

TEST_F(CalParamLoad, ShowsEachValueOfTheRecordInItsControl) {
    Shown shown;
    for (const auto& control : givenControls()) {
        const auto& param = *std::ranges::find(givenParams, control.column, &GivenParam::column);
        shown.insert(control.name.toString(), shownFor(control, param.shown));
    }
    fields.show(someRecord());
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
    fields.show(record);
    expectShown({{u"ComboTempScaleIn"_s, u"ITS-90"_s},
                 {u"ComboTempScaleOut"_s, u"IPTS-68"_s},
                 {u"OptionCJRefIntIn"_s, u"on"_s},
                 {u"OptionCJRefExtOut"_s, u"on"_s},
                 {u"CheckIndicatedInput"_s, u"off"_s},
                 {u"CheckIndicatedOutput"_s, u"on"_s},
                 {u"OptionCalLoopPWROut24VDC"_s, u"on"_s}});
}

TEST_F(CalParamLoad, ANewRecordReplacesAllThatTheOneBeforeItShowed) {
    fields.show(someRecord());
    auto record = someRecord();
    record.cj_ref_type_in = u"INT"_s;
    record.temp_sens_wires_in = 4;
    record.temp_sens_wires_out = 4;
    record.loop_pwr = u"OFF"_s;
    record.input_indicated = false;
    record.tp_name = u"FIVE"_s;
    fields.show(record);
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
    fields.show(someRecord());
    const auto before = allShown(*body);
    int row = 0;
    for (const auto& [controls, spoil] : rows) {
        auto record = someRecord();
        spoil(record);
        fields.show(record);
        EXPECT_EQ(allShown(*body), before) << "row " << row << ", " << controls.join(u' ').toStdString();
        ++row;
    }
}

TEST_F(CalParamLoad, TheCaseOfTheColdJunctionDoesNotCount) {
    auto record = someRecord();
    record.cj_ref_type_in = u"ext"_s;
    record.cj_ref_type_out = u"Ext"_s;
    fields.show(record);
    expectShown({{u"OptionCJRefExtIn"_s, u"on"_s}, {u"OptionCJRefExtOut"_s, u"on"_s}});
    record.cj_ref_type_in = u"iNt"_s;
    fields.show(record);
    expectShown({{u"OptionCJRefIntIn"_s, u"on"_s}});
}

TEST_F(CalParamLoad, EachResolutionIsFoundByItsValue) {
    for (int row = 0; row < resolutions()->count(); ++row) {
        auto record = someRecord();
        record.resolution = resolutions()->itemText(row).toFloat();
        resolutions()->setCurrentIndex(-1);
        fields.show(record);
        EXPECT_EQ(resolutions()->currentIndex(), row);
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
        fields.show(record);
        expectShown(
            {{u"TextInputLow"_s, shown}, {u"TextUnitsPos"_s, shown}, {u"TextPTPAmplitudeOut"_s, shown}});
    }
}

TEST_F(CalParamLoad, RowsThatAreAddedSelectNothing) {
    EXPECT_EQ(strategies()->count(), 3);
    EXPECT_EQ(strategies()->currentIndex(), -1);
    strategies()->setCurrentIndex(1);
    addRows(*strategies(), {u"A"_s, u"B"_s});
    EXPECT_EQ(strategies()->count(), 5);
    EXPECT_EQ(strategies()->currentIndex(), 1);
}

} // namespace kelvane::testing
