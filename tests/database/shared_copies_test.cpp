#include "tests/database/databases.h"
#include "tests/database/shared_scripts.h"

#include <QDir>
#include <QProcess>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// A suite of its own, which runs beside the other.
using SharedCopies = SharedScripts;

TEST_F(SharedCopies, CheckNamesWhatIsWrong) {
    const auto name = demo();
    const auto before = contentOfServer(name);
    const auto whole = run(u"check.sh"_s, {address(name)});
    EXPECT_EQ(contentOfServer(name), before) << "a check changes nothing";
    EXPECT_EQ(whole.code, 0);
    EXPECT_EQ(whole.output, u"%1 is of version 5, and whole.\n"_s.arg(address(name)));
    const std::pair<QString, QString> faults[] = {
        {u"drop table abc.repair"_s, u"missing: table abc.repair"_s},
        {u"alter table mt.customiz drop column tooltip"_s, u"missing: column mt.customiz.tooltip"_s},
        {u"drop function dialect.locate"_s, u"missing: function kelvane.dialect.locate(text,text)"_s},
        {u"alter table std.calibration disable trigger calibration_marks_new"_s,
         u"missing: trigger std.calibration.calibration_marks_new"_s},
        {u"revoke select on mt.dbconfig from kelvane_level_1"_s,
         u"missing: the right of kelvane_level_1 to SELECT on mt.dbconfig"_s},
        {u"grant create on schema public to public"_s,
         u"too much: the right of public to CREATE on public"_s},
        {u"alter table mt.hvm_kv_task_packages disable row level security"_s,
         u"missing: policy mt.hvm_kv_task_packages.deleted_rows"_s},
        {u"grant execute on function lo_create to public"_s,
         u"too much: everybody may store large objects (lo_create); "_s},
        {u"update mt.userlist set mtlevel = 6 where mtuser = 'cnguyen'"_s,
         u"the login \"cnguyen\" is not in the groups of its user: "_s},
        {u"select setval('mt.calibration_ctag_seq', 1000003)"_s,
         u"the numbers of mt.calibration go on behind 1000003, and "_s},
        {u"drop index mt.calibration_current; update mt.calibration set c2339 = '1' where mtag = '1401'"_s,
         u"mt.calibration: 3 records of asset 1401 have the mark of the current one"_s},
        {u"delete from mt.calibration where ctag = (select min(ctag) from mt.calresults)"_s,
         u", which is not there"_s},
        {u"insert into mt.calibration (mtag) values ('nowhere')"_s,
         u"is of asset nowhere, which is not in the inventory"_s},
        {u"insert into mt.hvm_kv_task_assets values ('x', '1301')"_s,
         u"mt.hvm_kv_task_assets: 1 rows are of package x, which is not there"_s},
    };
    for (const auto& [fault, words] : faults) {
        const auto copy = demo();
        answer(copy, fault);
        const auto outcome = run(u"check.sh"_s, {address(copy)});
        EXPECT_EQ(outcome.code, 1) << fault.toStdString();
        EXPECT_TRUE(outcome.output.contains(words)) << outcome.output.toStdString();
    }
}

TEST_F(SharedCopies, ABackupIsPutBackWithItsRightsAndTheEarlierDatabaseIsKept) {
    const auto name = demo();
    const auto file = folder.filePath(u"it's a copy.dump"_s);
    const auto before = contentOfServer(name);
    EXPECT_EQ(run(u"backup.sh"_s, {address(name), file}).output, QString());
    struct stat entry {};
    ASSERT_EQ(stat(QFile::encodeName(file).constData(), &entry), 0);
    EXPECT_EQ(entry.st_mode & 0777U, 0600U);
    EXPECT_TRUE(run(u"backup.sh"_s, {address(name), file}).output.contains(u"exists already"_s));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1) << "nothing else is left beside it";

    answer(name, u"delete from mt.hvm_kv_prompts; select kelvane.set_account('extra', 'MT', 1)"_s);
    const auto restored = run(u"restore.sh"_s, {file, address(name)});
    EXPECT_EQ(restored.code, 0);
    const auto kept = answer(u"postgres"_s,
                             u"select datname from pg_database where datname like '%1.before-%'"_s.arg(name));
    EXPECT_EQ(restored.output,
              u"What stood in %1 before is in the database \"%2\" of the same server.\n"
              "These logins have rights and are no users of the copy; kelvane-admin remove takes them away:\n"
              "extra\n"_s.arg(address(name), kept));
    EXPECT_EQ(contentOfServer(name), before);
    EXPECT_EQ(answer(kept, u"select count(*) from mt.hvm_kv_prompts"_s), u"0"_s);
    EXPECT_EQ(run(u"check.sh"_s, {address(name)}).output,
              u"the login \"extra\" has rights and is no user: "
              "{kelvane_level_1,kelvane_login,kelvane_reads_mt,kelvane_records_mt}\n"_s);
    answer(name, u"select kelvane.set_account('extra', null, null)"_s);
    EXPECT_EQ(run(u"check.sh"_s, {address(name)}).code, 0);
    EXPECT_EQ(
        states(name, {u"delete from mt.valfield"_s, u"delete from mt.hvm_kv_task_inuse"_s}, {u"jdoe"_s}),
        (QStringList{u"42501"_s, u"00000"_s}));
    answer(u"postgres"_s, u"drop database \"%1\"; drop role extra"_s.arg(kept));
}

TEST_F(SharedCopies, ADatabaseOfAnotherServerComesBackWithItsLoginsAndNamesThem) {
    const auto name = demo();
    answer(name, u"select kelvane.set_account('gone', 'ABC', 1)"_s);
    const auto file = folder.filePath(u"copy"_s);
    ASSERT_EQ(run(u"backup.sh"_s, {address(name), file}).code, 0);
    answer(name, u"drop role gone"_s);
    const auto elsewhere = newName();
    EXPECT_EQ(run(u"restore.sh"_s, {file, address(elsewhere)}).output,
              u"These logins are new on the server and have no password yet:\ngone\n"_s);
    EXPECT_EQ(answer(elsewhere, u"select kelvane.groups_of('gone')"_s),
              u"{kelvane_level_1,kelvane_login,kelvane_reads_abc,kelvane_records_abc}"_s);
    answer(elsewhere, u"select kelvane.remove_account('gone')"_s);
}

TEST_F(SharedCopies, ATrialChangesNoLoginThatIsThereAndACopyInPlaceDoes) {
    const auto name = demo();
    const auto file = folder.filePath(u"copy"_s);
    ASSERT_EQ(run(u"backup.sh"_s, {address(name), file}).code, 0);
    answer(name, u"select kelvane.set_account('jdoe', 'ABC', 5)"_s);
    answer(u"postgres"_s, u"revoke kelvane_records_mt from bkowalski"_s);
    const auto groups = groupsOf(u"jdoe"_s);
    EXPECT_EQ(groups, u"kelvane_level_5 kelvane_login kelvane_reads_abc kelvane_records_abc"_s);

    const auto trial = newName();
    EXPECT_EQ(run(u"restore.sh"_s, {file, address(trial)}).output,
              u"These logins keep the rights that they have on the server; the copy says otherwise:\n"
              "bkowalski\njdoe\n"_s);
    EXPECT_EQ(groupsOf(u"jdoe"_s), groups);
    EXPECT_EQ(groupsOf(u"bkowalski"_s), u"kelvane_level_1 kelvane_login kelvane_reads_mt"_s);
    EXPECT_EQ(answer(trial, u"select i4240, mtlevel from mt.userlist where mtuser = 'jdoe'"_s), u"MT|1"_s);

    EXPECT_EQ(run(u"restore.sh"_s, {file, address(name)}).output.count(u'\n'), 1);
    EXPECT_EQ(groupsOf(u"jdoe"_s), u"kelvane_level_1 kelvane_login kelvane_reads_mt kelvane_records_mt"_s);
    EXPECT_EQ(groupsOf(u"bkowalski"_s), groupsOf(u"jdoe"_s));
}

TEST_F(SharedCopies, ALoginIsNobodysWhenNoDatabaseOfTheServerHasItAmongItsUsers) {
    const auto name = demo();
    const auto beside = demo();
    const auto place = address(name);
    const auto whole = u"%1 is of version 5, and whole.\n"_s.arg(place);
    answer(u"postgres"_s, u"create role \"it's\" login in role kelvane_login"_s);
    EXPECT_EQ(run(u"check.sh"_s, {place}).output, whole) << "it may connect, and no more";
    answer(u"postgres"_s, u"grant kelvane_level_4 to \"it's\""_s);
    const auto fault = u"the login \"it's\" has rights and is no user: {kelvane_level_4,kelvane_login}\n"_s;
    EXPECT_EQ(run(u"check.sh"_s, {place}).output, fault);
    answer(beside, u"insert into mt.userlist values ('it''s', 'MT', 4)"_s);
    EXPECT_EQ(run(u"check.sh"_s, {place}).output, whole);
    // What was kept by a copy that was put back is not in use.
    const auto kept = u"x.before-20261122-120000"_s;
    answer(u"postgres"_s, u"alter database %1 rename to \"%2\""_s.arg(beside, kept));
    EXPECT_EQ(run(u"check.sh"_s, {place}).output, fault);
    answer(u"postgres"_s, u"drop database \"%1\"; drop role \"it's\""_s.arg(kept));
}

TEST_F(SharedCopies, RestoreIsRefusedWhileSomebodyUsesTheDatabaseAndForWhatIsNoCopy) {
    const auto name = demo();
    const auto file = folder.filePath(u"copy"_s);
    ASSERT_EQ(run(u"backup.sh"_s, {address(name), file}).code, 0);
    const auto before = databases();
    QProcess user;
    user.start(u"psql"_s, {u"-X"_s, u"-A"_s, u"-t"_s, u"-d"_s, address(name)});
    user.write("select 'here';\n");
    ASSERT_TRUE(user.waitForReadyRead(20000));
    const auto refused = run(u"restore.sh"_s, {file, address(name)});
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.output,
              u"restore.sh: %1 is in use; log out everywhere and try again\n"_s.arg(address(name)));
    // The session of another login shows little to a role that may not look into others'.
    answer(
        u"postgres"_s,
        u"create role maker login createdb createrole password 'kelvane'; alter database %1 owner to maker"_s
            .arg(name));
    ScriptEnvironment environment;
    environment.variables.insert(u"PGPASSWORD"_s, u"kelvane"_s);
    const auto place = address(name, u"maker"_s);
    EXPECT_EQ(runScript(sourceFile(u"database/postgresql/restore.sh"_s), {file, place}, environment).output,
              u"restore.sh: %1 is in use; log out everywhere and try again\n"_s.arg(place));
    answer(u"postgres"_s, u"alter database %1 owner to kelvane_admin; drop role maker"_s.arg(name));
    user.closeWriteChannel();
    user.waitForFinished();
    EXPECT_TRUE(run(u"restore.sh"_s, {sourceFile(u"README.md"_s), address(name)})
                    .output.contains(u"is no copy of a database"_s));
    QFile cut(file);
    ASSERT_TRUE(cut.resize(cut.size() / 2));
    EXPECT_NE(run(u"restore.sh"_s, {file, address(name)}).code, 0);
    EXPECT_EQ(databases(), before) << "nothing is left behind";
}

} // namespace kelvane::testing
