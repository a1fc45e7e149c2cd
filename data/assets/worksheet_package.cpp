#include "data/assets/worksheet_package.h"

#include "data/assets/assets.h"
#include "data/small_routines.h"

namespace kelvane {

QString newPackageTag(Session& session) {
    return ModuleGlobals::RandomString(session, 30);
}

void insertPackage(Session& session, Routine& routine, const QString& tag) {
    routine.execute(
        u"insert into mt.hvm_kv_task_packages (taskname,tptype,mtuser,created_on,tptag) values (" +
        sqlText(tag) + u",'WSHT'," + sqlText(session.SessionUser) + u",now(*)," + sqlText(tag) + u");commit");
}

void insertPackageMember(Session& session, Routine& routine, const QString& tag, const QString& asset) {
    routine.execute(u"insert into mt.hvm_kv_task_assets (tptag,mtag) values (" + sqlText(tag) + u"," +
                    ModuleGlobals::mtagOf(session, asset) + u");commit");
}

void removePackage(Routine& routine, const QString& tag) {
    routine.execute(u"delete from mt.hvm_kv_task_assets where tptag = " + sqlText(tag) +
                    u";delete from mt.hvm_kv_task_packages where tptag = " + sqlText(tag) + u";commit");
}

} // namespace kelvane
