#include "editors/cal_param_columns.h"

#include "data/assets.h"
#include "editors/cal_param_options.h"
#include "ui/list_rows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

QString quoted(const QString& value) {
    return u'\'' + value + u'\'';
}

QString quoted(const QComboBox* list) {
    return quoted(list->currentText());
}

QString quoted(const QLineEdit* field) {
    return quoted(field->text());
}

QString orNull(const QLineEdit* field) {
    return field->text().isEmpty() ? u"NULL"_s : quoted(field);
}

QString quoted(const CalParamControls& c, std::span<const CalParamOption> options) {
    return quoted(optionOn(c, options).stored.toString());
}

QString yesOrNo(const QCheckBox* box) {
    return box->isChecked() ? u"'Y'"_s : u"'N'"_s;
}

/// The messages of one kind, from the first row of their list.
QStringList promptStatements(const QString& mtag, const QString& type, const QListWidget& list) {
    QStringList statements;
    const auto rows = rowsOf(list);
    for (qsizetype i = 0; i < rows.size(); ++i)
        statements << u"insert into mt.hvm_kv_proc_prompts (mtag,prompt_type,prompt_seq,pname) values ("_s +
                          mtag + u",'"_s + type + u"','"_s + QString::number(i) + u"','"_s + rows[i] +
                          u"');commit"_s;
    return statements;
}

QString insertStatement(const QList<SavedColumn>& columns) {
    QStringList names;
    QStringList values;
    for (const auto& column : columns) {
        names << column.name;
        values << column.value;
    }
    return u"insert into mt.hvm_kv_tag_config ("_s + names.join(u',') + u") values ("_s + values.join(u',') +
           u");commit"_s;
}

} // namespace

QList<SavedColumn> savedColumns(const CalParamControls& c, const QString& instrument) {
    return {
        // The one place that names the schema instead of the user's owner.
        {"mtag"_L1, u"(select mtag from mt.inventory where i4201 = '"_s + instrument + u"')"_s},
        {"resolution"_L1, quoted(c.ComboMeasRes)},
        {"input_type"_L1, quoted(c.ComboInputUnits)},
        {"output_type"_L1, quoted(c.ComboOutputUnits)},
        {"input_low"_L1, orNull(c.TextInputLow)},
        {"input_high"_L1, quoted(c.TextInputHigh)},
        {"output_low"_L1, orNull(c.TextOutputLow)},
        {"output_high"_L1, quoted(c.TextOutputHigh)},
        {"temp_scale_in"_L1, quoted(c.ComboTempScaleIn)},
        {"temp_scale_out"_L1, quoted(c.ComboTempScaleOut)},
        {"cj_ref_type_in"_L1, quoted(c, coldJunctionIn)},
        {"cj_ref_type_out"_L1, quoted(c, coldJunctionOut)},
        {"cj_ref_temp_in"_L1, orNull(c.TextCJRefTempIn)},
        {"cj_ref_temp_out"_L1, orNull(c.TextCJRefTempOut)},
        {"temp_sens_type_in"_L1, quoted(c.ComboSensTypeIn)},
        {"temp_sens_type_out"_L1, quoted(c.ComboSensTypeOut)},
        {"temp_sens_wires_in"_L1, quoted(c, wiresIn)},
        {"temp_sens_wires_out"_L1, quoted(c, wiresOut)},
        {"neg_fs_range_pct"_L1, orNull(c.TextFSNeg)},
        {"pos_fs_range_pct"_L1, orNull(c.TextFSPos)},
        {"neg_span_pct"_L1, orNull(c.TextSpanNeg)},
        {"pos_span_pct"_L1, orNull(c.TextSpanPos)},
        {"neg_reading_pct"_L1, orNull(c.TextReadNeg)},
        {"pos_reading_pct"_L1, orNull(c.TextReadPos)},
        {"neg_lsd_counts"_L1, orNull(c.TextLSDNeg)},
        {"pos_lsd_counts"_L1, orNull(c.TextLSDPos)},
        {"neg_units"_L1, orNull(c.TextUnitsNeg)},
        {"pos_units"_L1, orNull(c.TextUnitsPos)},
        {"baud_rate_out"_L1, quoted(c.ComboBaudRateOut)},
        {"data_bits_out"_L1, quoted(c.ComboDataBitsOut)},
        {"cycle_end_time_out"_L1, quoted(c.ComboCycleEndTimeOut)},
        {"stop_bits_out"_L1, quoted(c.ComboStopBitsOut)},
        {"measurement_mode_out"_L1, quoted(c.ComboMeasurementModeOut)},
        {"data_parity_out"_L1, quoted(c.ComboParityOut)},
        {"frequency_response_out"_L1, quoted(c.ComboFreqRespOut)},
        {"measurement_direction_out"_L1, quoted(c.ComboMeasDirOut)},
        {"transducer_type_out"_L1, quoted(c.ComboTransTypeOut)},
        {"threshold_torque_out"_L1, quoted(c.TextThresholdOut)},
        {"click_dip_torque_out"_L1, quoted(c.TextDipOut)},
        {"repetitions"_L1, quoted(c.TextRepetitions)},
        {"loop_pwr"_L1, quoted(c, loopPower)},
        {"tp_name"_L1, quoted(c.ComboTSName)},
        {"freq_ptpamp_in"_L1, quoted(c.TextPTPAmplitudeIn)},
        {"freq_ptpamp_out"_L1, quoted(c.TextPTPAmplitudeOut)},
        {"input_indicated"_L1, yesOrNo(c.CheckIndicatedInput)},
        {"output_indicated"_L1, yesOrNo(c.CheckIndicatedOutput)},
    };
}

QStringList savingStatements(const Session& session, const CalParamControls& controls,
                             const QString& instrument) {
    const auto mtag = ModuleGlobals::mtagOf(session, instrument).text();
    QStringList statements{
        u"delete from mt.hvm_kv_tag_config where mtag = "_s + mtag +
            u";delete from mt.hvm_kv_proc_prompts where mtag = "_s + mtag + u";commit"_s,
        insertStatement(savedColumns(controls, instrument)),
    };
    statements << promptStatements(mtag, u"PRE"_s, *controls.ListPreDisplay)
               << promptStatements(mtag, u"PST"_s, *controls.ListPostDisplay);
    return statements;
}

} // namespace kelvane
