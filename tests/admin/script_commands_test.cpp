#include "admin/scripts.h"
#include "platform/database/odbc_link.h"
#include "tests/admin/admin_program.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The commands that scripts carry out, on databases in a folder whose name has a blank and a quote.
class ScriptCommands : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(QDir().mkpath(path({}))); }
    QString path(const QString& name) const { return folder.path() + u"/it's here/"_s + name; }
    static void execute(const QString& file, const QStringList& statements) {
        OdbcLink link(u"Driver=SQLite3;Database="_s + file, {}, {});
        for (const auto& statement : statements)
            link.execute(statement);
    }
    void expectFaults(const QStringList& faults) const {
        const auto outcome = runAdmin({u"check"_s, path(u"db"_s)});
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.output.trimmed().split(u'\n'), faults);
        EXPECT_EQ(outcome.errors, QString());
    }
    void makeDemo() const { expectDone(runAdmin({u"make"_s, path(u"db"_s), u"--demo"_s})); }

    QTemporaryDir folder;
};

} // namespace

TEST_F(ScriptCommands, MakeMakesAnEmptyDatabaseOrOneWithDemonstrationData) {
    expectDone(runAdmin({u"make"_s, path(u"empty"_s)}));
    EXPECT_EQ(runAdmin({u"accounts"_s, path(u"empty"_s)}).output, u"name  owner  level  may log in\n"_s);
    expectDone(runAdmin({u"make"_s, path(u"demo"_s), u"--day=2028-02-29"_s, u"--demo"_s}));
    EXPECT_TRUE(runAdmin({u"accounts"_s, path(u"demo"_s)}).output.contains(u"jdoe"_s));
    const auto again = runAdmin({u"make"_s, path(u"demo"_s), u"--demo"_s});
    EXPECT_EQ(again.code, 0);
    EXPECT_TRUE(again.output.contains(u"its data is left as it is"_s)) << again.output.toStdString();
}

TEST_F(ScriptCommands, TheStatusOfAScriptIsThatOfTheProgram) {
    const auto outcome = runAdmin({u"upgrade"_s, path(u"gone"_s)});
    EXPECT_NE(outcome.code, 0);
    EXPECT_TRUE(outcome.errors.contains(path(u"gone"_s))) << outcome.errors.toStdString();
}

TEST_F(ScriptCommands, AnOwnerIsAddedToTheDatabaseOfAServerOnly) {
    for (const auto& command : {u"make"_s, u"upgrade"_s})
        expectRefused(runAdmin({command, path(u"db"_s), u"--owner=lab"_s}), 2,
                      u"--owner is for the database of a server"_s);
    EXPECT_FALSE(QFile::exists(path(u"db"_s)));
}

TEST_F(ScriptCommands, UpgradeOfANewDatabaseChangesNothing) {
    makeDemo();
    expectDone(runAdmin({u"upgrade"_s, path(u"db"_s)}));
}

TEST_F(ScriptCommands, ACopyIsRestoredAndWhatStoodThereIsKept) {
    makeDemo();
    expectDone(runAdmin({u"backup"_s, path(u"db"_s), path(u"copy"_s)}));
    expectDone(runAdmin({u"remove"_s, path(u"db"_s), u"jdoe"_s}));
    const auto restored = runAdmin({u"restore"_s, path(u"copy"_s), path(u"db"_s)});
    EXPECT_EQ(restored.code, 0) << restored.errors.toStdString();
    EXPECT_TRUE(restored.output.contains(u"before"_s)) << restored.output.toStdString();
    EXPECT_TRUE(runAdmin({u"accounts"_s, path(u"db"_s)}).output.contains(u"jdoe"_s));
    const auto again = runAdmin({u"backup"_s, path(u"db"_s), path(u"copy"_s)});
    EXPECT_EQ(again.code, 1);
    EXPECT_TRUE(again.errors.contains(u"exists already"_s)) << again.errors.toStdString();
}

TEST_F(ScriptCommands, CheckFindsNothingInANewDatabase) {
    makeDemo();
    expectDone(runAdmin({u"make"_s, path(u"empty"_s)}));
    for (const auto& name : {u"db"_s, u"empty"_s}) {
        const auto outcome = runAdmin({u"check"_s, path(name)});
        EXPECT_EQ(outcome.code, 0);
        EXPECT_TRUE(outcome.output.startsWith(path(name) + u" is of version "_s))
            << outcome.output.toStdString();
        EXPECT_TRUE(outcome.output.endsWith(u", and whole.\n"_s)) << outcome.output.toStdString();
        EXPECT_EQ(outcome.errors, QString());
    }
}

TEST_F(ScriptCommands, CheckNamesRowsThatBelongToNothing) {
    makeDemo();
    execute(path(u"db/mt.db"_s),
            {u"insert into calibration (ctag, mtag) values (9, 'gone')"_s,
             u"insert into calresults values ('line', 0, '1', 7), ('line', 1, '1', 7)"_s,
             u"insert into standards (mtag) values ('1')"_s,
             u"insert into hvm_kv_tag_config (mtag) values ('lost')"_s,
             u"insert into hvm_kv_proc_prompts values ('lost', 'PRE', 1, 'NO MESSAGE')"_s,
             u"insert into userlist values ('ann', 'XYZ', 1)"_s});
    execute(path(u"db/sys.db"_s), {u"insert into syscolumn values (99, 'c2999')"_s});
    expectFaults({u"mt.calibration: record 9 is of no instrument: gone"_s,
                  u"mt.standards: 1 rows of no record: null"_s, u"mt.calresults: 2 rows of no record: 7"_s,
                  u"mt.hvm_kv_tag_config: of no instrument: lost"_s,
                  u"mt.hvm_kv_proc_prompts: of no instrument: lost"_s,
                  u"mt.hvm_kv_proc_prompts: no such message: NO MESSAGE"_s,
                  u"mt.userlist: ann has an owner that does not exist: XYZ"_s,
                  u"sys.syscolumn: c2999 is of no kind"_s});
}

TEST_F(ScriptCommands, CheckNamesWhatIsMissingAndASecondCurrentRecord) {
    makeDemo();
    execute(path(u"db/std.db"_s),
            {u"drop index calibration_current"_s, u"update calibration set c2339 = '1'"_s,
             u"insert into calibration (mtag, c2339) select mtag, '1' from inventory limit 1"_s,
             u"insert into calibration (mtag) select mtag from inventory limit 1"_s,
             u"update calibration set c2339 = '1'"_s});
    execute(path(u"db/abc.db"_s), {u"alter table inventory drop column i4231"_s, u"drop table customers"_s});
    const auto outcome = runAdmin({u"check"_s, path(u"db"_s)});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.output.contains(u"std.db: missing: index calibration_current\n"_s));
    EXPECT_TRUE(outcome.output.contains(u"abc.db: missing: table customers\n"_s));
    EXPECT_TRUE(outcome.output.contains(u"abc.db: not as in a new database: inventory.i4231\n"_s));
    EXPECT_TRUE(outcome.output.contains(u"current records\n"_s)) << outcome.output.toStdString();
}

TEST_F(ScriptCommands, CheckNamesAnEarlierVersionAndALaterOne) {
    makeDemo();
    const auto file = path(u"db/kelvane.db"_s);
    execute(file,
            {u"delete from kelvane_upgrades where number = (select max(number) from kelvane_upgrades)"_s});
    const auto earlier = runAdmin({u"check"_s, path(u"db"_s)});
    EXPECT_EQ(earlier.code, 1);
    EXPECT_TRUE(earlier.output.contains(u"; upgrade it to "_s)) << earlier.output.toStdString();
    execute(
        file,
        {u"insert into kelvane_upgrades (number, name, carried_out) values (9999, 'later', '2026-11-22 12:00:00')"_s});
    const auto later = runAdmin({u"check"_s, path(u"db"_s)});
    EXPECT_EQ(later.code, 1);
    EXPECT_TRUE(later.output.contains(u"is of version 9999"_s)) << later.output.toStdString();
}

TEST_F(ScriptCommands, CheckNamesDamagedAndMissingFiles) {
    makeDemo();
    QFile file(path(u"db/std.db"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(9000, 'x'));
    file.close();
    const auto damaged = runAdmin({u"check"_s, path(u"db"_s)});
    EXPECT_EQ(damaged.code, 1);
    EXPECT_TRUE(damaged.output.startsWith(u"std.db: "_s)) << damaged.output.toStdString();
    EXPECT_EQ(damaged.output.count(u'\n'), 1) << damaged.output.toStdString();
    ASSERT_TRUE(file.remove());
    expectFaults({u"std.db is missing"_s});
    EXPECT_EQ(runAdmin({u"check"_s, path(u"gone"_s)}).code, 1);
}

TEST_F(ScriptCommands, AnInstalledProgramUsesTheScriptsBesideIt) {
    QProcess install;
    install.start(u"cmake"_s, {u"--install"_s, QStringLiteral(KELVANE_BUILD), u"--prefix"_s, path(u"usr"_s),
                               u"--component"_s, u"kelvane"_s});
    ASSERT_TRUE(install.waitForFinished(60000));
    ASSERT_EQ(install.exitCode(), 0) << install.readAllStandardError().toStdString();
    const auto scripts = path(u"usr/share/kelvane/database"_s);
    ASSERT_TRUE(QFileInfo(scripts + u"/make.sh"_s).isExecutable());
    EXPECT_FALSE(QFile::exists(scripts + u"/CMakeLists.txt"_s));
    // What the installed script says can come from that one alone.
    QFile script(scripts + u"/check.sh"_s);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\necho \"installed: $1\"\nexit 7\n");
    script.close();
    QProcess process;
    process.start(path(u"usr/bin/kelvane-admin"_s), {u"check"_s, u"/srv/kelvane"_s});
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.readAllStandardOutput(), "installed: /srv/kelvane\n");
    EXPECT_EQ(process.exitCode(), 7);
}

} // namespace kelvane::testing
