#include "editors/task_package.h"

#include "data/assets.h"
#include "data/small_routines.h"

using namespace Qt::StringLiterals;
using kelvane::ModuleGlobals::SQLSafe;

namespace kelvane {

namespace {

QString segregates(const Session&) {
    return u"select distinct(i4240) from mt.segregate"_s;
}

QString descriptions(const Session& session) {
    return u"select distinct(i4204) from "_s + session.SessionOwner + u".inventory"_s;
}

QString models(const Session& session) {
    return u"select distinct(i4203) from "_s + session.SessionOwner + u".inventory"_s;
}

// clang-format off
constexpr std::array<DefinitionKind, definitionCount> kinds{{
    {Definition::assetList, u"A", u"", nullptr,
     u"OptionAssetList", 1396, 1414, 1402, u""},
    {Definition::sql, u"S", u"task_sql", nullptr,
     u"OptionSQL", 1397, 1415, 1401, u""},
    {Definition::segregate, u"G", u"segregate", segregates,
     u"OptionSegregate", 1398, 1416, 1403, u"OptionSegregate-Click"},
    // Reports under the name of its neighbour.
    {Definition::description, u"D", u"description", descriptions,
     u"OptionDescription", 1399, 1417, 1404, u"OptionModel-Click"},
    {Definition::model, u"M", u"model", models,
     u"OptionModel", 1400, 1418, 1405, u"OptionModel-Click"},
}};
// clang-format on

QString quotedOrNull(const QString& value) {
    return value.isEmpty() ? u"NULL"_s : u'\'' + SQLSafe(value) + u'\'';
}

QString valueIn(const TaskPackage& package, QStringView column) {
    return kindOf(package.definition).column == column ? quotedOrNull(package.value) : u"NULL"_s;
}

} // namespace

const std::array<DefinitionKind, definitionCount>& definitionKinds() {
    return kinds;
}

const DefinitionKind& kindOf(Definition definition) {
    return kinds[static_cast<std::size_t>(definition)];
}

QStringList packageDeletes(const QString& name) {
    const auto byName = u"where taskname = '"_s + SQLSafe(name) + u'\'';
    return {u"delete from mt.hvm_kv_task_assets where tptag = (select tptag from mt.hvm_kv_task_packages "_s +
                byName + u");commit"_s,
            u"delete from mt.hvm_kv_task_packages "_s + byName + u";commit"_s};
}

QString packageInsert(const Session& session, const TaskPackage& package, const QString& tptag) {
    const QStringList values{u'\'' + SQLSafe(package.name) + u'\'',
                             u'\'' + tptag + u'\'',
                             u"'PDEF'"_s,
                             u'\'' + kindOf(package.definition).letter.toString() + u'\'',
                             valueIn(package, u"task_sql"),
                             valueIn(package, u"segregate"),
                             valueIn(package, u"model"),
                             valueIn(package, u"description"),
                             u'\'' + session.SessionUser + u'\'',
                             u"now(*)"_s,
                             quotedOrNull(package.notes)};
    return u"insert into mt.hvm_kv_task_packages "
           u"(taskname,tptag,tptype,tp_definition,task_sql,segregate,model,"
           "description,mtuser,created_on,notes) values ("_s +
           values.join(u',') + u");commit"_s;
}

QString assetInsert(const Session& session, const QString& tptag, const QString& asset) {
    return u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('"_s + tptag + u"',"_s +
           ModuleGlobals::mtagOf(session, asset).text() + u");commit"_s;
}

} // namespace kelvane
