#include "data/assets/in_use.h"

#include "data/assets/assets.h"
#include "data/routine.h"
#include "platform/values/fixed_list.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

/// The key of the calibrator with this serial number; empty when the inventory doesn't know it.
QString mtagOfSerial(Session& session, const QString& serial) {
    return CheckAsset(session, AssetfromSerial(session, serial));
}

/// Puts the pair of a standard and an asset into one of the tables that hold such pairs.
void insertStandard(const Session& session, Routine& routine, SqlWords table, const QString& standard,
                    const QString& asset) {
    routine.execute(u"insert into mt." + Sql(table) + u" (standard_mtag,entered_date,mtag) values (" +
                    mtagOf(session, standard) + u",now(*)," + mtagOf(session, asset) + u");commit");
}

} // namespace

void AddInUse(Session& session, const QString& serial, const QString& mtag, const QString& tech) {
    Routine routine(session, u"ModuleGlobals,AddInUse"_s);
    routine.run([&] {
        const BusyPointer busy(session.ui);
        const auto standard = mtagOfSerial(session, serial);
        const auto who = tech.isEmpty() ? Sql(u"NULL") : sqlText(tech);
        routine.execute(u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values (" +
                        sqlText(serial) + u",now(*)," + sqlText(mtag) + u"," + who + u");commit");
        routine.execute(
            u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values (" +
            sqlText(standard) + u",now(*)," + sqlText(mtag) + u");commit");
    });
}

void ClearInUse(Session& session, const QString& serial) {
    Routine routine(session, u"ModuleGlobals,ClearInUse"_s);
    routine.run([&] {
        const BusyPointer busy(session.ui);
        const auto standard = mtagOfSerial(session, serial);
        routine.execute(
            u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = " +
            sqlText(serial) + u";commit");
        routine.execute(u"delete from mt.hvm_kv_task_standards_inuse where entered_date < now(*) - 30 or "
                        u"standard_mtag = " +
                        sqlText(standard) + u";commit");
    });
}

InUseData GetInUseData(Session& session, const QString& serial, const QString& mtag) {
    InUseData data;
    Routine routine(session, u"ModuleGlobals,GetInUseData"_s);
    routine.run([&] {
        const auto rows = routine.select(
            u"select serial_number,entered_date,mtag,tech from mt.hvm_kv_task_inuse where serial_number = " +
                sqlText(serial) + u" and mtag = " + sqlText(mtag),
            Rows::first);
        if (!rows->next())
            return;
        const auto entered = rows->value(1);
        data.tech = rows->value(3).value_or(QString());
        if (entered)
            data.entered_date = storedMoment(*entered);
    });
    return data;
}

QStringList GetStandardsInUse(Session& session, const QString& asset) {
    QStringList standards;
    Routine routine(session, u"ModuleGlobals,GetInUseData"_s);
    routine.run([&] {
        const auto rows = routine.select(u"select i4201 from " + sqlName(session.SessionOwner) +
                                         u".inventory where mtag in (select standard_mtag from "
                                         "mt.hvm_kv_task_standards_inuse where mtag = " +
                                         mtagOf(session, asset) + u")");
        while (rows->next())
            addEntry(standards, maxStandardsInUse) = notNull(rows->value(0));
    });
    return standards;
}

void addStandardInUse(const Session& session, Routine& routine, const QString& standard,
                      const QString& asset) {
    insertStandard(session, routine, u"hvm_kv_task_standards_inuse", standard, asset);
}

void clearStandardsInUse(const Session& session, Routine& routine, const QString& asset) {
    routine.execute(u"delete from mt.hvm_kv_task_standards_inuse where mtag = " + mtagOf(session, asset) +
                    u";commit");
}

QString lastStandard(const Session& session, Routine& routine, const QString& asset) {
    const auto row = routine.select(u"select i4201 from " + sqlName(session.SessionOwner) +
                                        u".inventory where mtag = (select standard_mtag from "
                                        u"mt.hvm_kv_last_standards_used where mtag = " +
                                        mtagOf(session, asset) + u")",
                                    Rows::first);
    return row->next() ? notNull(row->value(0)) : QString();
}

void addLastStandard(const Session& session, Routine& routine, const QString& standard,
                     const QString& asset) {
    insertStandard(session, routine, u"hvm_kv_last_standards_used", standard, asset);
}

void forgetLastStandard(const Session& session, Routine& routine, const QString& asset) {
    routine.execute(u"delete from mt.hvm_kv_last_standards_used where mtag = " + mtagOf(session, asset) +
                    u";commit");
}

void ClearSystemTables(Session& session) {
    static constexpr SqlWords sweep[] = {
        u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 90;commit",
        u"delete from mt.hvm_kv_task_standards_inuse where entered_date < now(*) - 90;commit",
        u"delete from mt.hvm_kv_task_assets where tptag in (select tptag from mt.hvm_kv_task_packages where "
        "created_on < now(*) - 90);commit",
        u"delete from mt.hvm_kv_task_packages where created_on < now(*) - 90;commit",
        u"delete from mt.hvm_kv_task_assets where tptag not in (select tptag from mt.hvm_kv_task_packages)",
    };
    Routine routine(session, u"ModuleGlobals,ClearSystemTables"_s);
    routine.run([&] {
        for (const auto& statement : sweep)
            routine.execute(statement);
    });
}

} // namespace kelvane::ModuleGlobals
