#include "tests/database/databases.h"
#include "tests/database/upgrade_fixture.h"

#include <QDateTime>
#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const int newest = static_cast<int>(upgradeSteps().size());

/// Scripts that a program of that version has started.
ScriptEnvironment byProgram(const QString& version) {
    ScriptEnvironment environment;
    environment.variables.insert(u"KELVANE_VERSION"_s, version);
    return environment;
}

} // namespace

TEST_F(Upgrade, StepsAreNumberedFromOneWithoutAGap) {
    ASSERT_GE(newest, 8);
    for (int number = 1; number <= newest; ++number) {
        const auto& step = upgradeSteps()[number - 1];
        EXPECT_TRUE(step.startsWith(u"%1-"_s.arg(number, 4, 10, QChar(u'0')))) << step.toStdString();
    }
}

TEST_F(Upgrade, ANewDatabaseHasHadEveryStep) {
    const auto before = QDateTime::currentDateTime().addSecs(-1);
    const auto file = newDatabase() + u"/kelvane.db"_s;
    QStringList expected;
    for (const auto& step : upgradeSteps())
        expected << u"%1|%2"_s.arg(step.left(4).toInt()).arg(step.mid(5).section(u'.', 0, 0));
    EXPECT_EQ(sqlite(file, u"select number, name from kelvane_upgrades order by number"_s).split(u'\n'),
              expected);
    const auto moment = QDateTime::fromString(
        sqlite(file, u"select min(carried_out) from kelvane_upgrades"_s), u"yyyy-MM-dd HH:mm:ss"_s);
    EXPECT_GE(moment, before);
    EXPECT_LE(moment, QDateTime::currentDateTime());
}

TEST_F(Upgrade, TheHistoryNamesTheProgramThatCarriedAStepOut) {
    const auto programs = u"select group_concat(coalesce(program, 'none'), ' ') from "
                          "(select program from kelvane_upgrades order by number)"_s;
    const auto made = path(u"made"_s);
    EXPECT_EQ(runScript(sourceFile(u"database/make.sh"_s), {made}, byProgram(u"1.2.3"_s)).code, 0);
    EXPECT_EQ(sqlite(made + u"/kelvane.db"_s, programs), QString(u"1.2.3 "_s).repeated(newest).trimmed());

    const auto earlier = copyOfScripts(u"earlier"_s, upgradeSteps().first(8));
    EXPECT_EQ(runScript(earlier + u"/make.sh"_s, {site()}).code, 0);
    EXPECT_EQ(upgrade({}, byProgram(u"1.2.4-1~rc1"_s)).code, 0);
    EXPECT_EQ(sqlite(siteFile(u"kelvane.db"_s), programs),
              QString(u"none "_s).repeated(8) + QString(u"1.2.4-1~rc1 "_s).repeated(newest - 8).trimmed());
}

TEST_F(Upgrade, ATextThatIsNoVersionStandsInNoStatement) {
    const auto made = path(u"made"_s);
    EXPECT_EQ(runScript(sourceFile(u"database/make.sh"_s), {made}, byProgram(u"1', 2) --"_s)).code, 0);
    EXPECT_EQ(sqlite(made + u"/kelvane.db"_s, u"select distinct program from kelvane_upgrades"_s),
              u"unknown"_s);
}

TEST_F(Upgrade, ByTheScriptsOfTheSourcesTheProgramIsThatOfTheProject) {
    EXPECT_EQ(sqlite(newDatabase() + u"/kelvane.db"_s, u"select distinct program from kelvane_upgrades"_s),
              QStringLiteral(KELVANE_PROJECT_VERSION));
}

TEST_F(Upgrade, TheFirstVersionGetsTheDefinitionsOfANewDatabaseAndKeepsEveryRow) {
    makeFirstVersion();
    const auto rows = rowsIn(site(), site());
    ASSERT_TRUE(rows.contains(u"'WRENCH, it''s bent'"_s));
    const auto outcome = upgrade();
    EXPECT_EQ(outcome.code, 0) << outcome.output.toStdString();
    EXPECT_EQ(version(), newest);
    EXPECT_EQ(definitionsIn(site()), definitionsIn(newDatabase()));
    EXPECT_EQ(rowsIn(site(), path(copies().value(0))), rows);
    const auto catalogue = u"select * from sysdomain order by 1, 2; select * from syscolumn order by 1, 2"_s;
    EXPECT_EQ(sqlite(siteFile(u"sys.db"_s), catalogue), sqlite(path(u"new/sys.db"_s), catalogue));
    expectSound();
}

TEST_F(Upgrade, ADatabaseWithoutVersionMayHaveHadSomeOfTheSteps) {
    const auto steps = upgradeSteps();
    const auto expected = definitionsIn(newDatabase());
    int number = 0;
    for (const auto& later :
         {QStringList{steps[6]}, QStringList{steps[7]}, QStringList{steps[6], steps[7]}}) {
        makeFirstVersion();
        const auto rows = rowsIn(site(), site());
        expectUpgrade(copyOfScripts(u"scripts%1"_s.arg(++number), steps.first(6) + later));
        forgetVersion();
        ASSERT_NE(definitionsIn(site()) == expected, later.size() == 1);
        expectUpgrade();
        EXPECT_EQ(version(), newest);
        EXPECT_EQ(definitionsIn(site()), expected) << later.join(u' ').toStdString();
        EXPECT_EQ(rowsIn(site(), path(copies().value(0))), rows) << later.join(u' ').toStdString();
        expectSound();
        QDir(site()).removeRecursively();
        for (const auto& copy : copies())
            QDir(path(copy)).removeRecursively();
    }
}

TEST_F(Upgrade, EachVersionLeadsToTheNewest) {
    const auto expected = definitionsIn(newDatabase());
    for (int from = 1; from < newest; ++from) {
        const auto scripts = copyOfScripts(u"scripts%1"_s.arg(from), upgradeSteps().first(from));
        ASSERT_TRUE(QDir().mkpath(site()));
        ASSERT_EQ(runScript(scripts + u"/upgrade.sh"_s, {u"--new"_s, site()}).code, 0);
        ASSERT_EQ(version(), from);
        expectUpgrade();
        EXPECT_EQ(version(), newest) << from;
        EXPECT_EQ(definitionsIn(site()), expected) << from;
        QDir(site()).removeRecursively();
    }
}

TEST_F(Upgrade, ASecondRunChangesNothingAndMakesNoCopy) {
    makeFirstVersion();
    expectUpgrade();
    const auto content = contentOf(site());
    const auto before = copies();
    const auto outcome = upgrade();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.output, QString());
    EXPECT_EQ(contentOf(site()), content);
    EXPECT_EQ(copies(), before);
}

TEST_F(Upgrade, ACopyOfTheDatabaseAsItWasIsMadeFirst) {
    makeFirstVersion();
    const auto content = contentOf(site());
    const auto outcome = upgrade();
    ASSERT_EQ(copies().size(), 1);
    EXPECT_TRUE(copies().first().startsWith(u"site.version-0-"_s)) << copies().first().toStdString();
    EXPECT_EQ(contentOf(path(copies().first())), content);
    EXPECT_EQ(outcome.output, u"%1 is of version %2 now. As it was before, it is in %3.\n"_s.arg(
                                  site(), QString::number(newest), path(copies().first())));
    ASSERT_EQ(runScript(sourceFile(u"database/restore.sh"_s), {path(copies().first()), site()}).code, 0);
    EXPECT_EQ(contentOf(site()), content);
    EXPECT_EQ(version(), 0);
}

TEST_F(Upgrade, MakeUpgradesADatabaseThatExists) {
    makeFirstVersion();
    EXPECT_EQ(runScript(sourceFile(u"database/make.sh"_s), {site()}).code, 0);
    EXPECT_EQ(version(), newest);
    for (const auto& file : databaseFiles)
        EXPECT_EQ(sqlite(siteFile(file), u"pragma journal_mode"_s), u"wal"_s) << file.toStdString();
    EXPECT_EQ(sqlite(siteFile(u"mt.db"_s), u"select mtag from inventory where i4201 = 'TW-102'"_s), u"2"_s);
    EXPECT_EQ(sqlite(siteFile(u"mt.db"_s),
                     u"explain query plan select mtag from inventory where i4201 = 'TW-102'"_s)
                  .contains(u"SEARCH inventory USING INDEX"_s),
              true);
}

TEST_F(Upgrade, AColumnOfOwnersReachesEachOwnerAlsoOneThatASiteHasAdded) {
    makeFirstVersion();
    ASSERT_TRUE(QFile::copy(siteFile(u"abc.db"_s), siteFile(u"xyz.db"_s)));
    sqlite(siteFile(u"site_report.db"_s), u"create table inventory (mtag text)"_s);
    const auto scripts = copyOfScripts(u"scripts"_s);
    addStep(scripts, u"0010-colour.owner.sql"_s,
            "alter table OWNER.inventory add column i4299 text;\n"
            "insert or ignore into sys.syscolumn values (8, 'i4299');\n");
    expectUpgrade(scripts);
    EXPECT_EQ(version(), 10);
    EXPECT_EQ(inventoryColumns().count(u",i4299"_s), 3);
    EXPECT_EQ(sqlite(siteFile(u"xyz.db"_s), u"select count(*) from inventory where i4299 is null"_s), u"3"_s);
    EXPECT_EQ(sqlite(siteFile(u"sys.db"_s), u"select domain_id from syscolumn where column_name = 'I4299'"_s),
              u"8"_s);
    EXPECT_EQ(sqlite(siteFile(u"site_report.db"_s),
                     u"select group_concat(name) from pragma_table_info('inventory')"_s),
              u"mtag"_s);
    // A new database has the column too, and in the same place.
    ASSERT_EQ(runScript(scripts + u"/make.sh"_s, {path(u"new"_s)}).code, 0);
    EXPECT_EQ(definitionsIn(site()), definitionsIn(path(u"new"_s)));
}

TEST_F(Upgrade, WhatASiteHasAddedStays) {
    makeFirstVersion();
    sqlite(siteFile(u"mt.db"_s),
           u"alter table inventory add column i4277 text; create index site_index on inventory (i4277); "
           "update inventory set i4277 = 'site'; create table site_table (a); "
           "create trigger site_trigger after update on hvm_kv_prompts begin select 1; end; "
           "alter table hvm_kv_task_assets add column site_note text"_s);
    const auto added = u"select name from sqlite_schema where name like 'site_%' order by 1; "
                       "select i4277 from inventory; select site_note from hvm_kv_task_assets"_s;
    const auto before = sqlite(siteFile(u"mt.db"_s), added);
    const auto outcome = upgrade();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_FALSE(outcome.output.contains(u"not as in a new database"_s)) << outcome.output.toStdString();
    EXPECT_EQ(sqlite(siteFile(u"mt.db"_s), added), before);
    EXPECT_EQ(upgrade().output, QString());
    expectSound();
}

TEST_F(Upgrade, AColumnThatIsMissingIsNamed) {
    makeFirstVersion();
    expectUpgrade();
    sqlite(siteFile(u"mt.db"_s), u"alter table hvm_kv_tag_config drop column loop_pwr; "
                                 "drop table segregate; create table segregate (i4240 integer)"_s);
    const auto outcome = upgrade();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.output, u"mt.db: not as in a new database: segregate.i4240\n"
                              "mt.db: not as in a new database: hvm_kv_tag_config.loop_pwr\n"_s);
}

} // namespace kelvane::testing
