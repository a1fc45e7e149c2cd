#include "data/parameters/cal_params.h"

#include "data/assets/assets.h"
#include "data/parameters/cal_param_columns.h"
#include "data/routine.h"
#include "data/small_routines.h"
#include "platform/values/fixed_list.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

constexpr qsizetype maxTestPoints = 201;
constexpr qsizetype maxPrompts = 251;

/// The strategy's points stand in the from clause without a condition: the result has a row for each of them,
/// all equal, so only the first is asked for.
Sql selectCalParams(const Session& session, const QString& asset) {
    const auto owner = sqlName(session.SessionOwner);
    Sql statement = u"select ";
    for (const auto* column : selectedCalParams()) {
        if (column != selectedCalParams().front())
            statement += u",";
        statement +=
            column->rules.expression.view().isEmpty() ? sqlName(column->name) : Sql(column->rules.expression);
    }
    return statement + u"  from mt.hvm_kv_tag_config,mt.hvm_kv_proc_points," + owner +
           u".inventory where i4201=" + sqlText(asset) + u" and " + owner +
           u".inventory.mtag=mt.hvm_kv_tag_config.mtag";
}

void store(float& field, const QString& text) {
    field = toReal(numericValue(text));
}
void store(qint16& field, const QString& text) {
    field = roundToShort(numericValue(text));
}
void store(QString& field, const QString& text) {
    field = text;
}
void store(bool& field, const QString& text) {
    field = toUpperCase(text) == u"Y";
}

/// The text that stands for a value of the database, nulls by their parameter's rule.
QString textOf(const std::optional<QString>& value, CalParamNull null) {
    if (value || null == CalParamNull::error)
        return notNull(value);
    return null == CalParamNull::off ? u"OFF"_s : u"0"_s;
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
        for (const auto* column : selectedCalParams()) {
            const auto text = textOf(rows->value(position), column->rules.null);
            std::visit([&](auto member) { store(record.*member, text); }, column->member);
            ++position;
        }
    });
    return record;
}

bool HasConfigData(Session& session, const QString& asset) {
    bool complete = false;
    Routine routine(session, u"ModuleGlobals,HasConfigData"_s);
    routine.run([&] {
        complete =
            hasParameters(session, routine, asset) && routine.hasRow(selectTestPointPct(session, asset));
    });
    return complete;
}

bool hasParameters(const Session& session, Routine& routine, const QString& asset) {
    return routine.hasRow(u"select mtag from mt.hvm_kv_tag_config where mtag = " +
                          mtagOf(session, SQLSafe(asset)));
}

QList<float> GetTestPointList(Session& session, const QString& asset) {
    QList<float> fractions;
    Routine routine(session, u"ModuleGlobals,GetTestPointList"_s);
    const bool complete = routine.run([&] {
        const BusyPointer busy(session.ui);
        qint16 repetitions = 1;
        const auto config = routine.select(u"select repetitions from mt.hvm_kv_tag_config where mtag = " +
                                               mtagOf(session, asset),
                                           Rows::first);
        if (config->next())
            repetitions = roundToShort(numericValue(notNull(config->value(0))));
        const auto points =
            routine.select(selectTestPointPct(session, asset) + u" order by test_point_seq asc");
        while (points->next()) {
            const auto fraction = toReal(numericValue(notNull(points->value(0))) / 100);
            for (qint16 i = 0; i < repetitions; ++i)
                addEntry(fractions, maxTestPoints) = fraction;
        }
    });
    return complete ? fractions : QList<float>();
}

QList<PromptEntry> GetPrompts(Session& session, const QString& asset, qint16 kind, const QString& task) {
    QList<PromptEntry> prompts;
    Routine routine(session, u"ModuleGlobals,GetPrompts"_s);
    const bool complete = routine.run([&] {
        const BusyPointer busy(session.ui);
        const auto rows = routine.select(asset.isEmpty() ? selectPromptsOfPackage(task)
                                                         : selectPromptsOfAsset(session, asset, kind));
        while (rows->next()) {
            auto& entry = addEntry(prompts, maxPrompts);
            entry.pname = notNull(rows->value(0));
            entry.prompt = rows->value(1).value_or(QString());
            entry.prompt_type = notNull(rows->value(2));
        }
    });
    return complete ? prompts : QList<PromptEntry>();
}

Sql selectTestPointPct(const Session& session, const QString& asset) {
    return u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = (select tp_name from "
           "mt.hvm_kv_tag_config where mtag = " +
           mtagOf(session, SQLSafe(asset)) + u")";
}

} // namespace kelvane::ModuleGlobals
