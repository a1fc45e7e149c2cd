#include "data/assets/assets.h"

#include "data/parameters/prompt_macros.h"
#include "data/routine.h"
#include "data/small_routines.h"
#include "platform/values/fixed_list.h"
#include "platform/values/texts.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

constexpr qsizetype maxInstruments = 501;

/// A task package as its members are looked for.
struct Package {
    /// What the caller asked for: a name or a tag.
    QString task = {};
    /// "WSHT", or the definition letter of a predefined package.
    QString kind = {};
    QString task_sql = {};
    QString segregate = {};
    QString model = {};
    QString description = {};
};

struct PackageKind {
    QStringView kind;
    /// The condition on the inventory that the package's members meet.
    Sql (*condition)(Session& session, const Package& package);
};

constexpr PackageKind packageKinds[] = {
    {u"WSHT",
     [](Session&, const Package& package) {
         return u"mtag in (select mtag from mt.hvm_kv_task_assets where tptag = " + sqlText(package.task) +
                u")";
     }},
    {u"A",
     [](Session&, const Package& package) {
         return u"mtag in (select mtag from mt.hvm_kv_task_assets where tptag = (select tptag from "
                "mt.hvm_kv_task_packages where taskname = " +
                sqlText(package.task) + u"))";
     }},
    {u"S",
     [](Session& session, const Package& package) {
         return u"i4201 in (" + sqlCondition(UUTPromptTextPrepare(session, package.task_sql, {})) + u")";
     }},
    {u"G",
     [](Session&, const Package& package) { return u"i4240 = " + sqlText(SQLSafe(package.segregate)); }},
    {u"M", [](Session&, const Package& package) { return u"i4203 = " + sqlText(SQLSafe(package.model)); }},
    {u"D",
     [](Session&, const Package& package) { return u"i4204 = " + sqlText(SQLSafe(package.description)); }},
};

/// The package of that name or tag; the first one wins when both exist.
std::optional<Package> findPackage(Routine& routine, const QString& task) {
    const auto safe = sqlText(SQLSafe(task));
    const auto rows = routine.select(
        u"select tptype,tp_definition,task_sql,segregate,model,description from mt.hvm_kv_task_packages "
        "where taskname = " +
            safe + u" or tptag = " + safe,
        Rows::first);
    if (!rows->next())
        return {};
    Package package{.task = task, .kind = u"WSHT"_s};
    if (toUpperCase(rows->value(0).value_or(QString())) == u"PDEF") {
        package.kind = toUpperCase(notNull(rows->value(1)));
        package.task_sql = rows->value(2).value_or(QString());
        package.segregate = rows->value(3).value_or(QString());
        package.model = rows->value(4).value_or(QString());
        package.description = rows->value(5).value_or(QString());
    }
    return package;
}

/// The instruments that meet the condition.
QList<AssetEntry> selectInstruments(const Session& session, Routine& routine, const Sql& condition) {
    const auto rows = routine.select(u"select i4201,mtag,i4206 from " + sqlName(session.SessionOwner) +
                                     u".inventory where " + condition);
    QList<AssetEntry> entries;
    while (rows->next()) {
        auto& entry = addEntry(entries, maxInstruments);
        entry.asset = notNull(rows->value(0));
        entry.mtag = notNull(rows->value(1));
        entry.serial = rows->value(2).value_or(QString());
    }
    return entries;
}

/// The first value of a look-up, or empty; the look-ups by number share it.
QString lookUp(Session& session, const QString& name, const Sql& statement) {
    QString result;
    Routine routine(session, name);
    routine.run([&] { result = routine.selectValue(statement).value_or(QString()); });
    return result;
}

} // namespace

QString AssetfromSerial(Session& session, const QString& serial) {
    return lookUp(session, u"ModuleGlobals,AssetfromSerial"_s,
                  u"select i4201 from " + sqlName(session.SessionOwner) + u".inventory where i4206 = " +
                      sqlText(serial));
}

QString AssetfromSerial(Session& session, const QString& serial_start, const QString& asset_start) {
    return lookUp(session, u"ModuleGlobals,AssetfromSerial"_s,
                  u"select i4201 from " + sqlName(session.SessionOwner) + u".inventory where i4206 like " +
                      sqlText(serial_start + u'%') + u" and i4201 like " + sqlText(asset_start + u'%'));
}

QString CheckAsset(Session& session, const QString& asset) {
    return lookUp(session, u"ModuleGlobals,CheckAsset"_s, mtagQuery(session, asset));
}

bool isInInventory(const Session& session, Routine& routine, const QString& asset) {
    return routine.hasRow(u"select i4201 from " + sqlName(session.SessionOwner) +
                          u".inventory where i4201 = " + sqlText(SQLSafe(asset)));
}

QList<AssetEntry> GetAssetsInTaskPackage(Session& session, const QString& task) {
    QList<AssetEntry> entries;
    Routine routine(session, u"ModuleGlobals,GetAssetsInTaskPackage"_s);
    routine.run([&] {
        const BusyPointer busy(session.ui);
        const auto package = findPackage(routine, task);
        if (!package)
            return;
        for (const auto& kind : packageKinds) {
            if (kind.kind == package->kind)
                entries = selectInstruments(session, routine, kind.condition(session, *package));
        }
    });
    return entries;
}

bool PackageHasMembers(Session& session, const QString& tag) {
    bool has = false;
    Routine routine(session, u"ModuleGlobals,PackageHasMembers"_s);
    routine.run([&] {
        has = routine.hasRow(u"select tptag from mt.hvm_kv_task_assets where tptag = " + sqlText(tag));
    });
    return has;
}

QList<AssetEntry> GetAssetsInUseWithStandard(Session& session, const QString& serial) {
    QList<AssetEntry> entries;
    Routine routine(session, u"ModuleGlobals,GetAssetsInTaskPackage"_s);
    routine.run([&] {
        entries = selectInstruments(
            session, routine,
            u"mtag in (select mtag from mt.hvm_kv_task_standards_inuse where standard_mtag "
            "= (select mtag from " +
                sqlName(session.SessionOwner) + u".inventory where i4206 = " + sqlText(serial) + u"))");
    });
    return entries;
}

Sql mtagQuery(const Session& session, const QString& asset) {
    return u"select mtag from " + sqlName(session.SessionOwner) + u".inventory where i4201 = " +
           sqlText(asset);
}

Sql mtagOf(const Session& session, const QString& asset) {
    return u"(" + mtagQuery(session, asset) + u")";
}

} // namespace kelvane::ModuleGlobals
