#include "editors/cal_param/cal_param_columns.h"

#include "data/assets/assets.h"
#include "editors/cal_param/cal_param_options.h"
#include "procedures/statement_parts.h"
#include "ui/list_rows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

SavedColumn quoted(QLatin1StringView name, QComboBox* list) {
    return {name, sqlText(list->currentText()), list};
}

SavedColumn quoted(QLatin1StringView name, QLineEdit* field) {
    return {name, sqlText(field->text()), field};
}

SavedColumn orNull(QLatin1StringView name, QLineEdit* field) {
    return field->text().isEmpty() ? SavedColumn{name, u"NULL", field} : quoted(name, field);
}

SavedColumn quoted(QLatin1StringView name, const CalParamControls& c,
                   std::span<const CalParamOption> options) {
    const auto& on = optionOn(c, options);
    return {name, sqlText(on.stored.toString()), c.*(on.control)};
}

SavedColumn yesOrNo(QLatin1StringView name, QCheckBox* box) {
    return {name, box->isChecked() ? Sql(u"'Y'") : Sql(u"'N'"), box};
}

/// The messages of one kind, from the first row of their list.
QList<Sql> promptStatements(const Sql& mtag, const Sql& type, const QListWidget& list) {
    QList<Sql> statements;
    const auto rows = rowsOf(list);
    for (qsizetype i = 0; i < rows.size(); ++i)
        statements << u"insert into mt.hvm_kv_proc_prompts (mtag,prompt_type,prompt_seq,pname) values (" +
                          commaJoined({mtag, type, sqlText(QString::number(i)), sqlText(rows[i])}) +
                          u");commit";
    return statements;
}

Sql insertStatement(const QList<SavedColumn>& columns) {
    QList<Sql> names;
    QList<Sql> values;
    for (const auto& column : columns) {
        names << sqlName(column.name);
        values << column.value;
    }
    return u"insert into mt.hvm_kv_tag_config (" + commaJoined(names) + u") values (" + commaJoined(values) +
           u");commit";
}

} // namespace

QList<SavedColumn> savedColumns(const CalParamControls& c, const QString& instrument) {
    return {
        // The one place that names the schema instead of the user's owner.
        {"mtag"_L1, u"(select mtag from mt.inventory where i4201 = " + sqlText(instrument) + u")"},
        quoted("resolution"_L1, c.ComboMeasRes),
        quoted("input_type"_L1, c.ComboInputUnits),
        quoted("output_type"_L1, c.ComboOutputUnits),
        orNull("input_low"_L1, c.TextInputLow),
        quoted("input_high"_L1, c.TextInputHigh),
        orNull("output_low"_L1, c.TextOutputLow),
        quoted("output_high"_L1, c.TextOutputHigh),
        quoted("temp_scale_in"_L1, c.ComboTempScaleIn),
        quoted("temp_scale_out"_L1, c.ComboTempScaleOut),
        quoted("cj_ref_type_in"_L1, c, coldJunctionIn),
        quoted("cj_ref_type_out"_L1, c, coldJunctionOut),
        orNull("cj_ref_temp_in"_L1, c.TextCJRefTempIn),
        orNull("cj_ref_temp_out"_L1, c.TextCJRefTempOut),
        quoted("temp_sens_type_in"_L1, c.ComboSensTypeIn),
        quoted("temp_sens_type_out"_L1, c.ComboSensTypeOut),
        quoted("temp_sens_wires_in"_L1, c, wiresIn),
        quoted("temp_sens_wires_out"_L1, c, wiresOut),
        orNull("neg_fs_range_pct"_L1, c.TextFSNeg),
        orNull("pos_fs_range_pct"_L1, c.TextFSPos),
        orNull("neg_span_pct"_L1, c.TextSpanNeg),
        orNull("pos_span_pct"_L1, c.TextSpanPos),
        orNull("neg_reading_pct"_L1, c.TextReadNeg),
        orNull("pos_reading_pct"_L1, c.TextReadPos),
        orNull("neg_lsd_counts"_L1, c.TextLSDNeg),
        orNull("pos_lsd_counts"_L1, c.TextLSDPos),
        orNull("neg_units"_L1, c.TextUnitsNeg),
        orNull("pos_units"_L1, c.TextUnitsPos),
        quoted("baud_rate_out"_L1, c.ComboBaudRateOut),
        quoted("data_bits_out"_L1, c.ComboDataBitsOut),
        quoted("cycle_end_time_out"_L1, c.ComboCycleEndTimeOut),
        quoted("stop_bits_out"_L1, c.ComboStopBitsOut),
        quoted("measurement_mode_out"_L1, c.ComboMeasurementModeOut),
        quoted("data_parity_out"_L1, c.ComboParityOut),
        quoted("frequency_response_out"_L1, c.ComboFreqRespOut),
        quoted("measurement_direction_out"_L1, c.ComboMeasDirOut),
        quoted("transducer_type_out"_L1, c.ComboTransTypeOut),
        quoted("threshold_torque_out"_L1, c.TextThresholdOut),
        quoted("click_dip_torque_out"_L1, c.TextDipOut),
        quoted("repetitions"_L1, c.TextRepetitions),
        quoted("loop_pwr"_L1, c, loopPower),
        quoted("tp_name"_L1, c.ComboTSName),
        quoted("freq_ptpamp_in"_L1, c.TextPTPAmplitudeIn),
        quoted("freq_ptpamp_out"_L1, c.TextPTPAmplitudeOut),
        yesOrNo("input_indicated"_L1, c.CheckIndicatedInput),
        yesOrNo("output_indicated"_L1, c.CheckIndicatedOutput),
    };
}

QList<Sql> savingStatements(const Session& session, const CalParamControls& controls,
                            const QString& instrument) {
    const auto mtag = ModuleGlobals::mtagOf(session, instrument);
    QList<Sql> statements{
        u"delete from mt.hvm_kv_tag_config where mtag = " + mtag +
            u";delete from mt.hvm_kv_proc_prompts where mtag = " + mtag + u";commit",
        insertStatement(savedColumns(controls, instrument)),
    };
    statements << promptStatements(mtag, u"'PRE'", *controls.ListPreDisplay)
               << promptStatements(mtag, u"'PST'", *controls.ListPostDisplay);
    return statements;
}

} // namespace kelvane
