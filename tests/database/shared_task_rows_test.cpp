#include "tests/database/script_server.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Packages and what is in use, old and new, of several users.
class SharedTaskRows : public DemonstrationOnServer {
  protected:
    void SetUp() override {
        DemonstrationOnServer::SetUp();
        if (IsSkipped())
            return;
        answer(
            database,
            u"delete from mt.hvm_kv_task_packages; delete from mt.hvm_kv_task_assets; "
            "insert into mt.hvm_kv_task_packages (taskname,tptype,mtuser,created_on,tptag) values "
            "('a','PDEF','jdoe',now(),'defined'), ('b','PDEF','x',now() - interval '91 days','old'), "
            "('c','WSHT','jdoe',now(),'of jdoe'), ('d','WSHT','cnguyen',now(),'of cnguyen'); "
            "insert into mt.hvm_kv_task_assets select tptag, '1301' from mt.hvm_kv_task_packages; "
            "insert into mt.hvm_kv_task_assets values ('gone', '1301'); "
            "delete from mt.hvm_kv_task_inuse; delete from mt.hvm_kv_task_standards_inuse; "
            "insert into mt.hvm_kv_task_inuse values ('new',now(),'1','x'), ('old',now() - interval '91 "
            "days','1','x'); "
            "insert into mt.hvm_kv_task_standards_inuse select serial_number, entered_date, mtag from mt.hvm_kv_task_inuse"_s);
    }

    /// What is left when a login deletes all that it can: packages, members, calibrators and standards in
    /// use.
    QString left(const QString& login) {
        return answer(
            database,
            u"begin; delete from mt.hvm_kv_task_inuse; delete from mt.hvm_kv_task_standards_inuse; "
            "delete from mt.hvm_kv_task_assets; delete from mt.hvm_kv_task_packages; "
            "select (select string_agg(tptag, ', ' order by tptag) from mt.hvm_kv_task_packages), "
            "(select string_agg(tptag, ', ' order by tptag) from mt.hvm_kv_task_assets), "
            "(select string_agg(serial_number, ', ') from mt.hvm_kv_task_inuse), "
            "(select string_agg(standard_mtag, ', ') from mt.hvm_kv_task_standards_inuse); rollback"_s,
            {login});
    }
};

} // namespace

TEST_F(SharedTaskRows, BelowAnEditorOldOnesAndOwnPackagesAloneCanBeDeleted) {
    const auto packages = u"%1|%1|"_s;
    for (const auto& login : {u"amoreau"_s, u"fokafor"_s})
        EXPECT_EQ(left(login), packages.arg(u"defined, of cnguyen, of jdoe"_s) + u'|') << login.toStdString();
    EXPECT_EQ(left(u"jdoe"_s), packages.arg(u"defined, of cnguyen"_s) + u'|');
    for (const auto& login : {u"efischer"_s, u"MT"_s})
        EXPECT_EQ(left(login), packages.arg(u"defined, of cnguyen, of jdoe"_s) + u"new|new"_s)
            << login.toStdString();
    for (const auto& login : {u"cnguyen"_s, u"dsantos"_s})
        EXPECT_EQ(left(login), u"|||"_s) << login.toStdString();
}

TEST_F(SharedTaskRows, WhoMayDeleteAnyPackageFollowsTheSiteSetting) {
    answer(database, u"update mt.dbconfig set procedit = 1"_s);
    EXPECT_EQ(left(u"jdoe"_s), u"|||"_s);
}

} // namespace kelvane::testing
