#include "platform/database/odbc_link.h"
#include "tests/database/databases.h"
#include "tests/database/upgrade_fixture.h"

#include <QDir>
#include <QProcess>

#include <array>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const int newest = static_cast<int>(upgradeSteps().size());

/// A step that changes every file.
constexpr auto everyFile = "alter table mt.inventory add column i4299 text;\n"
                           "alter table std.inventory add column i4299 text;\n"
                           "alter table abc.inventory add column i4299 text;\n"
                           "insert into sys.syscolumn values (8, 'i4299');\n"
                           "insert into accounts values ('upgraded', 'hash');\n";

/// An upgrade of the first version that goes wrong.
class UpgradeFailure : public Upgrade {
  protected:
    void SetUp() override {
        makeFirstVersion();
        before = contentOf(site());
    }
    void expectUnchanged() const {
        EXPECT_EQ(contentOf(site()), before);
        EXPECT_EQ(copies(), QStringList());
        expectSound();
    }
    /// A copy of the scripts with one step more, behind those that the database has had by now.
    QString scriptsWithStep(const QByteArray& step) {
        expectUpgrade();
        before = contentOf(site());
        for (const auto& copy : copies())
            QDir(path(copy)).removeRecursively();
        auto scripts = copyOfScripts(u"scripts"_s);
        addStep(scripts, u"0010-added.sql"_s, step);
        return scripts;
    }
    void expectFailure(const Outcome& outcome, const QString& reason) const {
        EXPECT_NE(outcome.code, 0);
        EXPECT_TRUE(outcome.output.contains(reason)) << outcome.output.toStdString();
    }

    /// What the step `everyFile` changes: columns of the inventories, entries of the catalogue, accounts,
    /// version.
    QString stateOfEveryFile() const {
        QString attached;
        for (const auto& name : {u"mt"_s, u"std"_s, u"abc"_s, u"sys"_s})
            attached += u"attach '%1.db' as %2;"_s.arg(siteFile(name), name);
        return sqlite(siteFile(u"kelvane.db"_s),
                      attached + u"select (select group_concat((select count(*) from "
                                 "pragma_table_info('inventory', column1)), ' ') "
                                 "from (values ('mt'), ('std'), ('abc'))) || ' ' || "
                                 "(select count(*) from sys.syscolumn where column_name = 'i4299') || ' ' || "
                                 "(select count(*) from accounts) || ' ' || "
                                 "(select max(number) from kelvane_upgrades)"_s);
    }

    QString before;
};

} // namespace

TEST_F(UpgradeFailure, OfAStepLeavesTheDatabaseAsTheStepBeforeMadeIt) {
    const auto scripts = copyOfScripts(u"scripts"_s);
    addStep(scripts, u"0010-good.sql"_s, everyFile);
    addStep(scripts, u"0011-faulty.owner.sql"_s,
            "update OWNER.inventory set i4299 = 'half';\ninsert into OWNER.no_such_table values (1);\n");
    addStep(scripts, u"0012-behind.sql"_s, "delete from accounts;\n");
    expectFailure(upgrade(scripts),
                  u"embedded/0011-faulty.owner.sql failed; %1 is of version 10"_s.arg(site()));
    EXPECT_EQ(version(), 10);
    EXPECT_EQ(inventoryColumns().count(u",i4299"_s), 3);
    EXPECT_EQ(sqlite(siteFile(u"mt.db"_s), u"select count(*) from inventory where i4299 is not null"_s),
              u"0"_s);
    EXPECT_EQ(sqlite(siteFile(u"kelvane.db"_s), u"select count(*) from accounts"_s), u"3"_s);
    EXPECT_EQ(copies().size(), 1) << "it was changed, so that the copy is of use";
    expectSound();

    addStep(scripts, u"0011-faulty.owner.sql"_s, "update OWNER.inventory set i4299 = 'whole';\n");
    expectUpgrade(scripts);
    EXPECT_EQ(version(), 12);
    EXPECT_EQ(sqlite(siteFile(u"std.db"_s), u"select count(*) from inventory where i4299 = 'whole'"_s),
              u"3"_s);
}

TEST_F(UpgradeFailure, OfTheFirstStepThatIsDueChangesNothing) {
    const auto scripts = scriptsWithStep(QByteArray(everyFile) + "insert into no_such_table values (1);\n");
    expectFailure(upgrade(scripts), u"no_such_table"_s);
    expectUnchanged();
}

TEST_F(UpgradeFailure, OfAStepThatCannotBeReadChangesNothing) {
    const auto scripts = scriptsWithStep({});
    ASSERT_TRUE(QFile::remove(scripts + u"/embedded/0010-added.sql"_s));
    ASSERT_TRUE(QDir().mkpath(scripts + u"/embedded/0010-added.sql"_s));
    expectFailure(upgrade(scripts), u"0010-added.sql failed"_s);
    expectUnchanged();
}

TEST_F(UpgradeFailure, ByAKillInTheMiddleOfAStepChangesNothing) {
    // The small cache makes the engine write into the file before the step is whole.
    const auto scripts = scriptsWithStep(QByteArray(everyFile) +
                                         "pragma mt.cache_size = 2;\n"
                                         "insert into mt.hvm_kv_prompts with recursive numbers (n) as "
                                         "(select 1 union all select n + 1 from numbers where n < 5000) "
                                         "select n, 'a long message' from numbers;\n"
                                         ".shell [ -s mt.db-journal ] && kill -9 $PPID\n");
    expectFailure(upgrade(scripts), u"0010-added.sql failed"_s);
    expectUnchanged();
}

TEST_F(UpgradeFailure, ByAKillAtAnyCallOfTheSystemLeavesAllFilesBeforeOrAllBehindTheStep) {
    const auto scripts = scriptsWithStep(QByteArray(".shell touch \"$KELVANE_KILL\"\n") + everyFile);
    const auto earlier = path(u"earlier"_s);
    ASSERT_TRUE(QDir().rename(site(), earlier));
    ScriptEnvironment environment;
    environment.variables.insert(u"LD_PRELOAD"_s, QStringLiteral(KELVANE_KILLED_CALLS));
    environment.variables.insert(u"KELVANE_KILL"_s, path(u"kill"_s));
    const QStringList states{u"14 14 14 0 2 9"_s, u"15 15 15 1 3 10"_s};
    std::array<int, 2> seen{};
    bool killed = true;
    for (int call = 1; killed; call += 4) {
        QDir(site()).removeRecursively();
        QProcess::execute(u"cp"_s, {u"-r"_s, earlier, site()});
        environment.variables.insert(u"KELVANE_KILL_AT"_s, QString::number(call));
        killed = !upgrade(scripts, environment).output.contains(u"is of version 10 now"_s);
        const auto found = states.indexOf(stateOfEveryFile());
        ASSERT_GE(found, 0) << "killed at call " << call << ": " << stateOfEveryFile().toStdString();
        ++seen.at(static_cast<std::size_t>(found));
        expectSound();
    }
    EXPECT_GT(seen[0], 10);
    EXPECT_GT(seen[1], 1) << "the last calls come when all is decided";
}

TEST_F(UpgradeFailure, ByAFileThatIsReadOnlyChangesNothing) {
    const auto scripts = copyOfScripts(u"scripts"_s);
    for (const auto& each : {folder.path(), site()})
        QFile::setPermissions(each, QFile::Permissions(0x7777));
    for (const auto& file : databaseFiles)
        QFile::setPermissions(siteFile(file), QFile::Permissions(0x6666));
    QFile::setPermissions(siteFile(u"std.db"_s), QFile::Permissions(0x4444));
    ScriptEnvironment environment;
    environment.withoutPrivileges = true;
    expectFailure(upgrade(scripts, environment), u"site/std.db can't be written; nothing was changed"_s);
    expectUnchanged();

    QFile::setPermissions(siteFile(u"std.db"_s), QFile::Permissions(0x6666));
    QFile::setPermissions(site(), QFile::Permissions(0x5555));
    expectFailure(upgrade(scripts, environment), u"is in use, or can't be written"_s);
    QFile::setPermissions(site(), QFile::Permissions(0x7777));
    expectUnchanged();
}

TEST_F(UpgradeFailure, ByAFullDiskChangesNothing) {
    const auto scripts = scriptsWithStep("create table mt.large (a);\n"
                                         "insert into mt.large values (randomblob(2000000));\n");
    // A file can't grow over so many blocks of 512 bytes: those of a step, and those of the copy.
    for (const auto& [blocks, reason] : {std::pair(u"1500"_s, u"0010-added.sql failed"_s),
                                         std::pair(u"64"_s, u"without a copy nothing was changed"_s)}) {
        expectFailure(
            runScript(u"/bin/sh"_s, {u"-c"_s, u"trap '' XFSZ; ulimit -f %1; exec \"$0\" \"$1\""_s.arg(blocks),
                                     scripts + u"/upgrade.sh"_s, site()}),
            reason);
        expectUnchanged();
    }
}

TEST_F(UpgradeFailure, ByAVersionThatIsNewerThanTheScriptsChangesNothing) {
    expectUpgrade();
    sqlite(
        siteFile(u"kelvane.db"_s),
        u"insert into kelvane_upgrades (number, name, carried_out) values (%1, 'later', '2030-01-01 00:00:00')"_s
            .arg(newest + 1));
    before = contentOf(site());
    const auto kept = copies();
    for (const auto& script : {u"upgrade.sh"_s, u"make.sh"_s}) {
        expectFailure(runScript(sourceFile(u"database/"_s + script), {site()}),
                      u"%1 is of version %2, and these scripts end at %3; update the program"_s.arg(
                          site(), QString::number(newest + 1), QString::number(newest)));
        EXPECT_EQ(contentOf(site()), before);
        EXPECT_EQ(copies(), kept);
    }
}

TEST_F(UpgradeFailure, ByAWorkstationThatIsLoggedInChangesNothing) {
    sqlite(siteFile(u"std.db"_s), u"pragma journal_mode = wal"_s);
    {
        OdbcLink workstation(u"Driver=SQLite3;Database="_s + siteFile(u"std.db"_s), {}, {});
        EXPECT_TRUE(workstation.select(u"select mtag from inventory"_s, Rows::all)->next());
        expectFailure(upgrade(), u"is in use, or can't be written; log out everywhere and try again"_s);
        EXPECT_EQ(copies(), QStringList());
    }
    expectUnchanged();
    expectUpgrade();
    // What is up to date may be in use.
    OdbcLink workstation(u"Driver=SQLite3;Database="_s + siteFile(u"std.db"_s), {}, {});
    EXPECT_TRUE(workstation.select(u"select mtag from inventory"_s, Rows::all)->next());
    expectUpgrade();
}

TEST_F(UpgradeFailure, IsNoneForTheSecondOfTwoAtOnceWhichFindsTheWorkDone) {
    const auto rows = rowsIn(site(), site());
    std::array<QProcess, 2> both;
    for (auto& process : both)
        process.start(sourceFile(u"database/upgrade.sh"_s), {site()});
    for (auto& process : both)
        ASSERT_TRUE(process.waitForFinished(60000));
    for (const auto& process : both)
        EXPECT_EQ(process.exitCode(), 0);
    EXPECT_EQ(copies().size(), 1);
    EXPECT_EQ(version(), newest);
    EXPECT_EQ(definitionsIn(site()), definitionsIn(newDatabase()));
    EXPECT_EQ(rowsIn(site(), path(copies().value(0))), rows);
    expectSound();
}

TEST_F(UpgradeFailure, ByARowWithoutKeyKeepsTheRowsAndNamesTheColumn) {
    sqlite(siteFile(u"mt.db"_s), u"insert into hvm_kv_task_assets values ('tag1', null)"_s);
    const auto rows = rowsIn(site(), site());
    expectFailure(upgrade(), u"NOT NULL constraint failed: hvm_kv_task_assets.mtag"_s);
    EXPECT_EQ(version(), 6);
    EXPECT_EQ(rowsIn(site(), path(copies().value(0))), rows);
    sqlite(siteFile(u"mt.db"_s), u"delete from hvm_kv_task_assets where mtag is null"_s);
    expectUpgrade();
    EXPECT_EQ(version(), newest);
}

TEST_F(UpgradeFailure, ByARowWithoutKeyNamesEachColumnOfAKey) {
    QFile file(sourceFile(u"database/embedded/"_s + upgradeSteps().value(6)));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto step = QString::fromUtf8(file.readAll());
    for (const auto& [row, column] : {
             std::pair(u"hvm_kv_tag_config (mtag) values (null)"_s, u"hvm_kv_tag_config.mtag"_s),
             std::pair(u"hvm_kv_proc_prompts values (null, 'PRE', 1, 'VENT')"_s,
                       u"hvm_kv_proc_prompts.mtag"_s),
             std::pair(u"hvm_kv_proc_prompts values ('1', null, 1, 'VENT')"_s,
                       u"hvm_kv_proc_prompts.prompt_type"_s),
             std::pair(u"hvm_kv_proc_prompts values ('1', 'PRE', null, 'VENT')"_s,
                       u"hvm_kv_proc_prompts.prompt_seq"_s),
             std::pair(u"hvm_kv_proc_prompts values ('1', 'PRE', 1, null)"_s, u"hvm_kv_proc_prompts.pname"_s),
             std::pair(u"hvm_kv_task_packages (taskname, tptag) values (null, 'x')"_s,
                       u"hvm_kv_task_packages.taskname"_s),
             std::pair(u"hvm_kv_task_assets values (null, '1')"_s, u"hvm_kv_task_assets.tptag"_s),
             std::pair(u"hvm_kv_task_assets values ('tag1', null)"_s, u"hvm_kv_task_assets.mtag"_s),
             std::pair(u"hvm_kv_worksheetfields values (null, 3)"_s, u"hvm_kv_worksheetfields.fldnum"_s),
             std::pair(u"hvm_kv_worksheetfields values ('2301', null)"_s,
                       u"hvm_kv_worksheetfields.sequence"_s),
         }) {
        const auto outcome = runSqlite(
            siteFile(u"kelvane.db"_s),
            u"attach '%1' as mt; begin; insert into mt.%2;\n%3"_s.arg(siteFile(u"mt.db"_s), row, step));
        expectFailure(outcome, u"NOT NULL constraint failed: "_s + column);
    }
}

TEST_F(UpgradeFailure, ByAFileThatIsMissingOrThereAlreadyChangesNothing) {
    expectFailure(runScript(sourceFile(u"database/upgrade.sh"_s), {u"--new"_s, site()}),
                  u"holds kelvane.db already"_s);
    expectUnchanged();
    ASSERT_TRUE(QFile::rename(siteFile(u"sys.db"_s), path(u"away"_s)));
    expectFailure(upgrade(), u"sys.db is missing"_s);
    EXPECT_EQ(QDir(site()).entryList(QDir::Files).size(), 4);
    ASSERT_TRUE(QFile::rename(path(u"away"_s), siteFile(u"sys.db"_s)));
    expectUnchanged();
    for (const auto& arguments : {QStringList{}, QStringList{u"--other"_s}, QStringList{site(), u"more"_s}})
        expectFailure(runScript(sourceFile(u"database/upgrade.sh"_s), arguments), u"usage: "_s);
    expectFailure(runScript(sourceFile(u"database/upgrade.sh"_s), {path(u"nowhere"_s)}), u"nowhere"_s);
}

} // namespace kelvane::testing
