#include "data/parameters/cal_params.h"

#include "data/assets/assets.h"
#include "data/routine.h"
#include "data/small_routines.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"

#include <variant>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

using Record = CalParamRecord;
using Field = std::variant<float Record::*, qint16 Record::*, QString Record::*, bool Record::*>;

/// What a null of the database reads as.
enum class Null { error, zero, off };

struct Column {
    SqlWords expression;
    Field field;
    Null null = Null::error;
};

/// The select list, in its order, and where each value goes. The two "indicated" flags stand here the other
/// way round than in the record.
constexpr Column columns[] = {
    {u"repetitions", &Record::repetitions},
    {u"(select count(test_point_pct) from mt.hvm_kv_proc_points where mt.hvm_kv_proc_points.tp_name = "
     "mt.hvm_kv_tag_config.tp_name)",
     &Record::test_point_count},
    {u"resolution", &Record::resolution},
    {u"input_type", &Record::input_type},
    {u"output_type", &Record::output_type},
    {u"input_high", &Record::input_high},
    {u"input_low", &Record::input_low, Null::zero},
    {u"output_high", &Record::output_high},
    {u"output_low", &Record::output_low, Null::zero},
    {u"neg_fs_range_pct", &Record::neg_fs_range_pct, Null::zero},
    {u"pos_fs_range_pct", &Record::pos_fs_range_pct, Null::zero},
    {u"neg_span_pct", &Record::neg_span_pct, Null::zero},
    {u"pos_span_pct", &Record::pos_span_pct, Null::zero},
    {u"neg_reading_pct", &Record::neg_reading_pct, Null::zero},
    {u"pos_reading_pct", &Record::pos_reading_pct, Null::zero},
    {u"neg_lsd_counts", &Record::neg_lsd_counts, Null::zero},
    {u"pos_lsd_counts", &Record::pos_lsd_counts, Null::zero},
    {u"neg_units", &Record::neg_units, Null::zero},
    {u"pos_units", &Record::pos_units, Null::zero},
    {u"mt.hvm_kv_tag_config.mtag", &Record::mtag},
    {u"baud_rate_out", &Record::baud_rate_out},
    {u"cj_ref_temp_in", &Record::cj_ref_temp_in, Null::zero},
    {u"cj_ref_temp_out", &Record::cj_ref_temp_out, Null::zero},
    {u"cj_ref_type_in", &Record::cj_ref_type_in},
    {u"cj_ref_type_out", &Record::cj_ref_type_out},
    {u"click_dip_torque_out", &Record::click_dip_torque_out},
    {u"cycle_end_time_out", &Record::cycle_end_time_out},
    {u"data_bits_out", &Record::data_bits_out},
    {u"data_parity_out", &Record::data_parity_out},
    {u"frequency_response_out", &Record::frequency_response_out},
    {u"measurement_direction_out", &Record::measurement_direction_out},
    {u"measurement_mode_out", &Record::measurement_mode_out},
    {u"stop_bits_out", &Record::stop_bits_out},
    {u"temp_scale_in", &Record::temp_scale_in},
    {u"temp_scale_out", &Record::temp_scale_out},
    {u"temp_sens_type_in", &Record::temp_sens_type_in},
    {u"temp_sens_type_out", &Record::temp_sens_type_out},
    {u"temp_sens_wires_in", &Record::temp_sens_wires_in},
    {u"temp_sens_wires_out", &Record::temp_sens_wires_out},
    {u"threshold_torque_out", &Record::threshold_torque_out},
    {u"mt.hvm_kv_tag_config.tp_name", &Record::tp_name},
    {u"transducer_type_out", &Record::transducer_type_out},
    {u"(select max(test_point_pct) from mt.hvm_kv_proc_points where mt.hvm_kv_proc_points.tp_name = "
     "mt.hvm_kv_tag_config.tp_name)",
     &Record::max_test_point_pct, Null::zero},
    {u"loop_pwr", &Record::loop_pwr, Null::off},
    {u"freq_ptpamp_in", &Record::freq_ptpamp_in, Null::zero},
    {u"freq_ptpamp_out", &Record::freq_ptpamp_out, Null::zero},
    {u"input_indicated", &Record::input_indicated, Null::zero},
    {u"output_indicated", &Record::output_indicated, Null::zero},
};

/// The strategy's points stand in the from clause without a condition: the result has a row for each of them,
/// all equal, so only the first is asked for.
Sql selectCalParams(const Session& session, const QString& asset) {
    const auto owner = sqlName(session.SessionOwner);
    Sql statement = u"select ";
    for (const auto& column : columns) {
        if (&column != std::begin(columns))
            statement += u",";
        statement += column.expression;
    }
    return statement + u"  from mt.hvm_kv_tag_config,mt.hvm_kv_proc_points," + owner +
           u".inventory where i4201=" + sqlText(asset) + u" and " + owner +
           u".inventory.mtag=mt.hvm_kv_tag_config.mtag";
}

void store(Record& record, float Record::*field, const QString& text) {
    record.*field = toReal(numericValue(text));
}
void store(Record& record, qint16 Record::*field, const QString& text) {
    record.*field = roundedToShort(numericValue(text));
}
void store(Record& record, QString Record::*field, const QString& text) {
    record.*field = text;
}
void store(Record& record, bool Record::*field, const QString& text) {
    record.*field = upperCased(text) == u"Y";
}

/// The text that stands for a value of the database, nulls by their column's rule.
QString textOf(const std::optional<QString>& value, Null null) {
    if (value || null == Null::error)
        return notNull(value);
    return null == Null::off ? u"OFF"_s : u"0"_s;
}

/// Stores `fraction` from entry `count` on, `times` times.
void addTestPoint(Session& session, qint16& count, float fraction, qint16 times) {
    for (qint16 i = 0; i < times; ++i) {
        session.TestPointList[count] = fraction;
        ++count;
    }
}

Sql selectPromptsOfPackage(const QString& task) {
    return u"select pname,prompt,(select max(prompt_type) from mt.hvm_kv_proc_prompts where "
           "mt.hvm_kv_proc_prompts.pname = mt.hvm_kv_prompts.pname) from mt.hvm_kv_prompts where pname in "
           "(select distinct(pname) from mt.hvm_kv_proc_prompts where mtag in (select mtag from "
           "mt.hvm_kv_task_assets where tptag = " +
           sqlText(task) + u"))";
}

Sql selectPromptsOfAsset(const Session& session, const QString& asset, qint16 kind) {
    const Sql type = kind == 0   ? Sql(u"and prompt_type = 'PRE' ")
                     : kind == 1 ? Sql(u"and prompt_type = 'PST' ")
                                 : Sql(u"");
    return u"select pname,(select prompt from mt.hvm_kv_prompts where mt.hvm_kv_prompts.pname = "
           "mt.hvm_kv_proc_prompts.pname),prompt_type from mt.hvm_kv_proc_prompts where mtag = " +
           mtagOf(session, asset) + u" " + type + u"order by prompt_seq asc";
}

} // namespace

CalParamRecord GetCalParams(Session& session, const QString& asset) {
    CalParamRecord record;
    Routine routine(session, u"ModuleGlobals,GetCalParams"_s);
    routine.run([&] {
        const BusyPointer busy(session.ui);
        const auto rows = routine.select(selectCalParams(session, asset), Rows::first);
        if (!rows->next())
            return;
        int position = 0;
        for (const auto& column : columns) {
            const auto text = textOf(rows->value(position), column.null);
            std::visit([&](auto field) { store(record, field, text); }, column.field);
            ++position;
        }
    });
    return record;
}

bool HasConfigData(Session& session, const QString& asset) {
    bool complete = false;
    Routine routine(session, u"ModuleGlobals,HasConfigData"_s);
    routine.run([&] {
        complete = routine.hasRow(u"select mtag from mt.hvm_kv_tag_config where mtag = " +
                                  mtagOf(session, SQLSafe(asset))) &&
                   routine.hasRow(selectTestPointPct(session, asset));
    });
    return complete;
}

qint16 GetTestPointList(Session& session, const QString& asset) {
    qint16 count = 0;
    Routine routine(session, u"ModuleGlobals,GetTestPointList"_s);
    const bool complete = routine.run([&] {
        const BusyPointer busy(session.ui);
        session.TestPointList.erase();
        qint16 repetitions = 1;
        const auto config = routine.select(u"select repetitions from mt.hvm_kv_tag_config where mtag = " +
                                               mtagOf(session, asset),
                                           Rows::first);
        if (config->next())
            repetitions = roundedToShort(numericValue(notNull(config->value(0))));
        const auto points =
            routine.select(selectTestPointPct(session, asset) + u" order by test_point_seq asc");
        while (points->next()) {
            const auto fraction = toReal(numericValue(notNull(points->value(0))) / 100);
            addTestPoint(session, count, fraction, repetitions);
        }
    });
    return complete ? count : qint16{0};
}

qint16 GetPrompts(Session& session, const QString& asset, qint16 kind, const QString& task) {
    qint16 count = 0;
    Routine routine(session, u"ModuleGlobals,GetPrompts"_s);
    const bool complete = routine.run([&] {
        const BusyPointer busy(session.ui);
        session.PromptList.erase();
        const auto rows = routine.select(asset.isEmpty() ? selectPromptsOfPackage(task)
                                                         : selectPromptsOfAsset(session, asset, kind));
        while (rows->next()) {
            auto& entry = session.PromptList[count];
            entry.pname = notNull(rows->value(0));
            entry.prompt = rows->value(1).value_or(QString());
            entry.prompt_type = notNull(rows->value(2));
            ++count;
        }
    });
    return complete ? count : qint16{0};
}

Sql selectTestPointPct(const Session& session, const QString& asset) {
    return u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = (select tp_name from "
           "mt.hvm_kv_tag_config where mtag = " +
           mtagOf(session, SQLSafe(asset)) + u")";
}

} // namespace kelvane::ModuleGlobals
