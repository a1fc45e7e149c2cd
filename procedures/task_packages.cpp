#include "procedures/task_packages.h"

#include "data/assets/assets.h"
#include "data/parameters/cal_params.h"
#include "data/routine.h"
#include "data/small_routines.h"
#include "platform/values/texts.h"
#include "procedures/column_values.h"
#include "procedures/new_name.h"
#include "resources/text_id.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr qint16 tagLength = 30;
/// From the screen of the strategies.
const auto addRoutine = u"FormStrategies,CommandAdd"_s;

Sql recordOf(const QString& name) {
    return u"select taskname from mt.hvm_kv_task_packages where taskname = " +
           sqlText(ModuleGlobals::SQLSafe(name));
}

void readPackage(Session& session, Routine& routine, const QString& name, StoredPackage& package) {
    const auto row =
        routine.select(u"select tptag,tptype,notes,task_sql,tp_definition,segregate,model,description from "
                       "mt.hvm_kv_task_packages where taskname = " +
                           sqlText(name),
                       Rows::first);
    package.exists = row->next();
    if (!package.exists)
        return;
    const auto tptag = row->value(0).value_or(QString());
    package.notes = row->value(2).value_or(QString());
    package.sql = row->value(3).value_or(QString());
    const auto letter = row->value(4).value_or(QString());
    const auto segregate = row->value(5);
    const auto model = row->value(6);
    const auto description = row->value(7);

    const auto* kind = std::ranges::find(definitionKinds(), letter, &DefinitionKind::letter);
    if (kind == definitionKinds().end())
        return;
    if (kind->definition == Definition::assetList)
        package.assets = columnValues(
            routine, u"select i4201 from " + sqlName(session.SessionOwner) +
                         u".inventory where mtag in (select mtag from mt.hvm_kv_task_assets where tptag = " +
                         sqlText(tptag) + u")");
    if (kind->choices)
        package.value = (kind->definition == Definition::segregate ? segregate
                         : kind->definition == Definition::model   ? model
                                                                   : description)
                            .value_or(QString());
    package.definition = kind->definition;
}

void removeRows(Routine& routine, const QString& name) {
    for (const auto& statement : packageDeletes(name))
        routine.execute(statement);
}

} // namespace

std::optional<QStringList> packageNames(Session& session) {
    Routine routine(session, u"FormPredefinedTasks,LoadTasks"_s);
    return routine.resultOf([&] {
        return columnValues(routine, u"select taskname from mt.hvm_kv_task_packages where tptype = 'PDEF'");
    });
}

StoredPackage loadPackage(Session& session, const QString& name) {
    StoredPackage package;
    Routine routine(session, u"FormPredefinedTasks,LoadPackage"_s);
    package.isComplete = routine.run([&] { readPackage(session, routine, name, package); });
    return package;
}

std::optional<QStringList> packageValues(Session& session, Definition definition) {
    const auto& kind = kindOf(definition);
    Routine routine(session, u"FormPredefinedTasks,"_s + kind.click.toString());
    return routine.resultOf([&] { return columnValuesNotNull(routine, kind.choices(session)); });
}

std::optional<QString> askPackageName(Session& session) {
    return askNewName(session, {.routine = addRoutine,
                                .title = TextId::newPackageTitle,
                                .prompt = TextId::newStrategyNamePrompt,
                                .taken = TextId::packageAlreadyExists,
                                .maxLength = longestPackageName,
                                .recordOf = recordOf});
}

std::optional<bool> isPackageName(Session& session, const QString& name) {
    Routine routine(session, addRoutine);
    return routine.resultOf([&] { return routine.hasRow(recordOf(name)); });
}

std::optional<TextId> faultOfInstrument(Session& session, const QStringList& listed, const QString& asset) {
    const bool isListed = std::ranges::any_of(
        listed, [wanted = toUpperCase(asset)](const QString& row) { return toUpperCase(row) == wanted; });
    if (isListed)
        return TextId::instrumentAlreadyListed;
    if (ModuleGlobals::CheckAsset(session, asset).isEmpty())
        return TextId::instrumentNumberInvalid;
    if (!ModuleGlobals::HasConfigData(session, asset))
        return TextId::configurationDataIncomplete;
    return {};
}

std::optional<TextId> faultOfPackage(const TaskPackage& package) {
    const bool isList = package.definition == Definition::assetList;
    if (isList ? !package.assets.isEmpty() : !package.value.isEmpty())
        return {};
    return isList                                  ? TextId::instrumentNumberInvalid
           : package.definition == Definition::sql ? TextId::sqlStatementRequired
                                                   : TextId::fieldRequired;
}

std::optional<SaveFailure> savePackage(Session& session, const TaskPackage& package) {
    int row = -1;
    Routine routine(session, u"FormPredefinedTasks,CommandSave"_s);
    const auto error = routine.failureOf([&] {
        Transaction saving(session);
        removeRows(routine, package.name);
        const auto tptag = ModuleGlobals::RandomString(session, tagLength);
        routine.execute(packageInsert(session, package, tptag));
        for (const auto& asset : package.assets) {
            ++row;
            routine.execute(assetInsert(session, tptag, asset));
        }
        saving.commit();
    });
    return error ? std::optional(SaveFailure{.error = *error, .row = row}) : std::nullopt;
}

bool removePackage(Session& session, const QString& name) {
    Routine routine(session, u"FormPredefinedTasks,CommandRemoveTP"_s);
    return routine.run([&] {
        const BusyPointer busy(session.ui);
        Transaction removing(session);
        removeRows(routine, name);
        removing.commit();
    });
}

} // namespace kelvane
