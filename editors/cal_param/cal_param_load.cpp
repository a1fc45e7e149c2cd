#include "editors/cal_param/cal_param_load.h"

#include "data/assets/assets.h"
#include "editors/cal_param/cal_param_options.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"
#include "procedures/statement_parts.h"
#include "ui/list_rows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

#include <span>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

using R = CalParamRecord;
using C = CalParamControls;
using Options = std::span<const CalParamOption>;

void show(float value, QLineEdit& field) {
    field.setText(plainText(value));
}

void show(qint16 value, QLineEdit& field) {
    field.setText(plainText(value));
}

void show(const QString& value, QComboBox& list) {
    if (const int row = list.findText(value, Qt::MatchFixedString | Qt::MatchCaseSensitive); row >= 0)
        list.setCurrentIndex(row);
}

/// The row of the same value, however it is written.
void show(float value, QComboBox& list) {
    for (int row = 0; row < list.count(); ++row) {
        if (toReal(numericValue(list.itemText(row))) == value) {
            list.setCurrentIndex(row);
            return;
        }
    }
}

void show(bool value, QCheckBox& box) {
    box.setChecked(value);
}

void turnOn(const C& controls, Options options, QStringView stored) {
    for (const auto& option : options) {
        if (option.stored == stored)
            (controls.*option.control)->setChecked(true);
    }
}

/// How a value of the record is shown by one control.
using Load = void (*)(const R& record, const C& controls);

template <auto value, auto control>
void load(const R& record, const C& controls) {
    show(record.*value, *(controls.*control));
}

template <auto value, const auto& options>
void loadReference(const R& record, const C& controls) {
    turnOn(controls, options, upperCased(record.*value));
}

template <auto value, const auto& options>
void loadWires(const R& record, const C& controls) {
    turnOn(controls, options, plainText(record.*value));
}

void loadLoopPower(const R& record, const C& controls) {
    turnOn(controls, loopPower, record.loop_pwr);
}

constexpr Load loads[] = {
    load<&R::resolution, &C::ComboMeasRes>,
    load<&R::input_type, &C::ComboInputUnits>,
    load<&R::output_type, &C::ComboOutputUnits>,
    load<&R::input_low, &C::TextInputLow>,
    load<&R::input_high, &C::TextInputHigh>,
    load<&R::output_low, &C::TextOutputLow>,
    load<&R::output_high, &C::TextOutputHigh>,
    load<&R::temp_scale_in, &C::ComboTempScaleIn>,
    load<&R::temp_scale_out, &C::ComboTempScaleOut>,
    loadReference<&R::cj_ref_type_in, coldJunctionIn>,
    loadReference<&R::cj_ref_type_out, coldJunctionOut>,
    load<&R::cj_ref_temp_in, &C::TextCJRefTempIn>,
    load<&R::cj_ref_temp_out, &C::TextCJRefTempOut>,
    load<&R::temp_sens_type_in, &C::ComboSensTypeIn>,
    load<&R::temp_sens_type_out, &C::ComboSensTypeOut>,
    loadWires<&R::temp_sens_wires_in, wiresIn>,
    loadWires<&R::temp_sens_wires_out, wiresOut>,
    load<&R::neg_fs_range_pct, &C::TextFSNeg>,
    load<&R::pos_fs_range_pct, &C::TextFSPos>,
    load<&R::neg_span_pct, &C::TextSpanNeg>,
    load<&R::pos_span_pct, &C::TextSpanPos>,
    load<&R::neg_reading_pct, &C::TextReadNeg>,
    load<&R::pos_reading_pct, &C::TextReadPos>,
    load<&R::neg_lsd_counts, &C::TextLSDNeg>,
    load<&R::pos_lsd_counts, &C::TextLSDPos>,
    load<&R::neg_units, &C::TextUnitsNeg>,
    load<&R::pos_units, &C::TextUnitsPos>,
    load<&R::tp_name, &C::ComboTSName>,
    load<&R::transducer_type_out, &C::ComboTransTypeOut>,
    load<&R::cycle_end_time_out, &C::ComboCycleEndTimeOut>,
    load<&R::frequency_response_out, &C::ComboFreqRespOut>,
    load<&R::measurement_mode_out, &C::ComboMeasurementModeOut>,
    load<&R::measurement_direction_out, &C::ComboMeasDirOut>,
    load<&R::baud_rate_out, &C::ComboBaudRateOut>,
    load<&R::data_bits_out, &C::ComboDataBitsOut>,
    load<&R::stop_bits_out, &C::ComboStopBitsOut>,
    load<&R::data_parity_out, &C::ComboParityOut>,
    load<&R::threshold_torque_out, &C::TextThresholdOut>,
    load<&R::click_dip_torque_out, &C::TextDipOut>,
    load<&R::repetitions, &C::TextRepetitions>,
    loadLoopPower,
    load<&R::freq_ptpamp_in, &C::TextPTPAmplitudeIn>,
    load<&R::freq_ptpamp_out, &C::TextPTPAmplitudeOut>,
    load<&R::input_indicated, &C::CheckIndicatedInput>,
    load<&R::output_indicated, &C::CheckIndicatedOutput>,
};

QString shown(const QLineEdit& field) {
    return field.text();
}

QString shown(const QComboBox& list) {
    return list.currentText();
}

QString shown(const QCheckBox& box) {
    return box.isChecked() ? u"Y"_s : u"N"_s;
}

QString shown(const QListWidget& list) {
    return rowsOf(list).join(QString());
}

/// What a part of the screen adds to the checksum.
using Part = QString (*)(const C& controls);

template <auto control>
QString part(const C& controls) {
    return shown(*(controls.*control));
}

template <const auto& options>
QString optionPart(const C& controls) {
    return optionOn(controls, options).summed.toString();
}

constexpr Part parts[] = {
    part<&C::ComboMeasRes>,        part<&C::ComboInputUnits>,
    part<&C::ComboOutputUnits>,    part<&C::TextInputLow>,
    part<&C::TextInputHigh>,       part<&C::TextOutputLow>,
    part<&C::TextOutputHigh>,      part<&C::ComboTempScaleIn>,
    part<&C::ComboTempScaleOut>,   optionPart<coldJunctionIn>,
    optionPart<coldJunctionOut>,   part<&C::TextCJRefTempIn>,
    part<&C::TextCJRefTempOut>,    part<&C::ComboSensTypeIn>,
    part<&C::ComboSensTypeOut>,    optionPart<wiresIn>,
    optionPart<wiresOut>,          part<&C::TextFSNeg>,
    part<&C::TextFSPos>,           part<&C::TextSpanNeg>,
    part<&C::TextSpanPos>,         part<&C::TextReadNeg>,
    part<&C::TextReadPos>,         part<&C::TextLSDNeg>,
    part<&C::TextLSDPos>,          part<&C::TextUnitsNeg>,
    part<&C::TextUnitsPos>,        part<&C::ComboTSName>,
    part<&C::ComboTransTypeOut>,   part<&C::TextThresholdOut>,
    part<&C::TextDipOut>,          part<&C::ComboCycleEndTimeOut>,
    part<&C::ComboFreqRespOut>,    part<&C::ComboMeasurementModeOut>,
    part<&C::ComboMeasDirOut>,     part<&C::ComboBaudRateOut>,
    part<&C::ComboDataBitsOut>,    part<&C::ComboStopBitsOut>,
    part<&C::ComboParityOut>,      part<&C::TextRepetitions>,
    optionPart<loopPower>,         part<&C::TextPTPAmplitudeIn>,
    part<&C::TextPTPAmplitudeOut>, part<&C::CheckIndicatedOutput>,
    part<&C::CheckIndicatedInput>, part<&C::ListPostDisplay>,
    part<&C::ListPreDisplay>,
};

} // namespace

void addRows(QComboBox& list, const QStringList& rows) {
    const int selected = list.currentIndex();
    list.addItems(rows);
    list.setCurrentIndex(selected);
}

void showRecord(const CalParamRecord& record, const CalParamControls& controls) {
    for (const auto one : loads)
        one(record, controls);
}

QList<PromptQuery> promptQueries(const Session& session, const CalParamControls& controls,
                                 const QString& instrument) {
    const auto shownBy = [mtag = ModuleGlobals::mtagOf(session, instrument)](const Sql& type) {
        return u"select pname from mt.hvm_kv_proc_prompts where prompt_type = " + type + u" and mtag = " +
               mtag;
    };
    const auto available = [&](const Sql& type) {
        return u"select pname from mt.hvm_kv_prompts where pname not in (" + shownBy(type) + u")";
    };
    const auto displayed = [&](const Sql& type) { return shownBy(type) + u" order by prompt_seq asc"; };
    return {
        {controls.ListPreAvail, available(u"'PRE'")},
        {controls.ListPostAvail, available(u"'PST'")},
        {controls.ListPreDisplay, displayed(u"'PRE'")},
        {controls.ListPostDisplay, displayed(u"'PST'")},
    };
}

QString summedText(const CalParamControls& controls) {
    QString sum;
    for (const auto one : parts)
        sum += one(controls);
    return sum;
}

} // namespace kelvane
