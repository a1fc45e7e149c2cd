#include "procedures/task_package.h"

#include "data/assets/assets.h"
#include "data/small_routines.h"
#include "platform/database/sql.h"
#include "procedures/statement_parts.h"

using kelvane::ModuleGlobals::SQLSafe;

namespace kelvane {

namespace {

Sql segregates(const Session&) {
    return u"select distinct(i4240) from mt.segregate";
}

Sql descriptions(const Session& session) {
    return u"select distinct(i4204) from " + sqlName(session.SessionOwner) + u".inventory";
}

Sql models(const Session& session) {
    return u"select distinct(i4203) from " + sqlName(session.SessionOwner) + u".inventory";
}

constexpr std::array<DefinitionKind, definitionCount> kinds{{
    {Definition::assetList, u"A", u"", nullptr, u""},
    {Definition::sql, u"S", u"task_sql", nullptr, u""},
    {Definition::segregate, u"G", u"segregate", segregates, u"OptionSegregate-Click"},
    // Reports under the name of its neighbour.
    {Definition::description, u"D", u"description", descriptions, u"OptionModel-Click"},
    {Definition::model, u"M", u"model", models, u"OptionModel-Click"},
}};

Sql safeOrNull(const QString& value) {
    return value.isEmpty() ? Sql(u"NULL") : sqlText(SQLSafe(value));
}

Sql valueIn(const TaskPackage& package, QStringView column) {
    return kindOf(package.definition).column == column ? safeOrNull(package.value) : Sql(u"NULL");
}

} // namespace

const std::array<DefinitionKind, definitionCount>& definitionKinds() {
    return kinds;
}

const DefinitionKind& kindOf(Definition definition) {
    return kinds[static_cast<std::size_t>(definition)];
}

QList<Sql> packageDeletes(const QString& name) {
    const auto byName = u"where taskname = " + sqlText(SQLSafe(name));
    return {u"delete from mt.hvm_kv_task_assets where tptag = (select tptag from mt.hvm_kv_task_packages " +
                byName + u");commit",
            u"delete from mt.hvm_kv_task_packages " + byName + u";commit"};
}

Sql packageInsert(const Session& session, const TaskPackage& package, const QString& tptag) {
    return u"insert into mt.hvm_kv_task_packages "
           u"(taskname,tptag,tptype,tp_definition,task_sql,segregate,model,"
           "description,mtuser,created_on,notes) values (" +
           joinWithCommas({sqlText(SQLSafe(package.name)), sqlText(tptag), u"'PDEF'",
                           sqlText(kindOf(package.definition).letter.toString()),
                           valueIn(package, u"task_sql"), valueIn(package, u"segregate"),
                           valueIn(package, u"model"), valueIn(package, u"description"),
                           sqlText(session.SessionUser), u"now(*)", safeOrNull(package.notes)}) +
           u");commit";
}

Sql assetInsert(const Session& session, const QString& tptag, const QString& asset) {
    return u"insert into mt.hvm_kv_task_assets (tptag,mtag) values (" + sqlText(tptag) + u"," +
           ModuleGlobals::mtagOf(session, asset) + u");commit";
}

} // namespace kelvane
