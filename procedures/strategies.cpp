#include "procedures/strategies.h"

#include "data/routine.h"
#include "data/small_routines.h"
#include "platform/values/numbers.h"
#include "procedures/column_values.h"
#include "procedures/new_name.h"
#include "procedures/statement_parts.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane {

using ModuleGlobals::SQLSafe;

namespace {

Sql recordOf(const QString& name) {
    return u"select tp_name from mt.hvm_kv_proc_points where tp_name = " + sqlText(SQLSafe(name));
}

/// The number that a query counts.
double countOf(Routine& routine, const Sql& query) {
    const auto rows = routine.select(query, Rows::first);
    rows->next();
    return numericValue(notNull(rows->value(0)));
}

} // namespace

QStringList strategyNames(Routine& routine) {
    return columnValues(routine, u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc");
}

std::optional<StrategyList> loadStrategies(Session& session, const QString& name) {
    Routine routine(session, u"FormStrategies,LoadStrategyList"_s);
    return routine.resultOf([&] {
        StrategyList list;
        list.names = strategyNames(routine);
        const bool exists = routine.hasRow(recordOf(name));
        list.shown.name = exists && !name.isEmpty() ? name : list.names.value(0);
        list.shown.points =
            columnValues(routine, u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = " +
                                      sqlText(SQLSafe(list.shown.name)) + u" order by test_point_seq asc");
        return list;
    });
}

std::optional<QString> askStrategyName(Session& session) {
    return askNewName(session, {.routine = u"FormStrategies,CommandAdd",
                                .title = TextId::addStrategy,
                                .prompt = TextId::newStrategyNamePrompt,
                                .taken = TextId::strategyAlreadyExists,
                                .maxLength = 30,
                                .recordOf = recordOf});
}

std::optional<SaveFailure> renameStrategy(Session& session, const QString& from, const QString& to) {
    bool vanished = false;
    Routine routine(session, u"FormStrategies,CommandRename"_s);
    const auto error = routine.failureOf([&] {
        const auto rename = [&](const Sql& table) {
            return routine.execute(u"update " + table + u" set tp_name = " + sqlText(SQLSafe(to)) +
                                   u" where tp_name = " + sqlText(SQLSafe(from)) + u";commit");
        };
        Transaction renaming(session);
        vanished = rename(u"mt.hvm_kv_proc_points") == 0;
        rename(u"mt.hvm_kv_tag_config");
        if (!vanished)
            renaming.commit();
    });
    if (!error && !vanished)
        return {};
    return SaveFailure{.error = error.value_or(Error()), .vanished = vanished};
}

bool deleteStrategy(Session& session, const QString& name) {
    bool deleted = false;
    Routine routine(session, u"FormStrategies,CommandDeleteTS"_s);
    routine.run([&] {
        const auto stored = sqlText(SQLSafe(name));
        if (countOf(routine, u"select count(tp_name) from mt.hvm_kv_tag_config where tp_name = " + stored) >
            0) {
            session.ui.messageBox(text(TextId::strategyStillUsed), text(TextId::applicationName),
                                  box::warning);
            return;
        }
        if (session.ui.messageBox(text(TextId::confirmStrategyDeletion), text(TextId::applicationName),
                                  box::question) != BoxAnswer::yes)
            return;
        routine.execute(u"delete from mt.hvm_kv_proc_points where tp_name = " + stored + u";commit");
        deleted = true;
    });
    return deleted;
}

std::optional<SaveFailure> saveStrategy(Session& session, const Strategy& strategy) {
    int sequence = 0;
    Routine routine(session, u"FormStrategies,CommandSave"_s);
    const auto error = routine.failureOf([&] {
        // A name with a quote is not doubled here: it fails and is reported.
        const auto name = sqlText(strategy.name);
        Transaction saving(session);
        if (routine.hasRow(u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = " + name))
            routine.execute(u"delete from mt.hvm_kv_proc_points where tp_name = " + name + u";commit");
        for (; sequence < strategy.points.size(); ++sequence)
            routine.execute(
                u"insert into mt.hvm_kv_proc_points (tp_name,test_point_seq,test_point_pct) values (" +
                joinWithCommas({name, sqlText(plainText(sequence)), sqlText(strategy.points[sequence])}) +
                u");commit");
        saving.commit();
    });
    return error ? std::optional(SaveFailure{.error = *error, .row = sequence}) : std::nullopt;
}

bool warnWithoutStrategies(Session& session) {
    Routine routine(session, u"MDIFormMain,mnuCalParameters.Click"_s);
    return routine.run([&] {
        if (countOf(routine, u"select count(tp_name) from mt.hvm_kv_proc_points") == 0)
            session.ui.messageBox(text(TextId::noTestStrategiesDefined), text(TextId::calibrationParameters),
                                  box::warning);
    });
}

} // namespace kelvane
