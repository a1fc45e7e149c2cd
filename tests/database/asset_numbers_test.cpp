#include "platform/database/odbc_link.h"
#include "tests/database/databases.h"
#include "tests/database/scripts.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The demonstration database, made as it is now or as it was when case counted.
class AssetNumbers : public ::testing::Test {
  protected:
    QString sqlite(const QString& file, const QString& statement) const {
        return testing::sqlite(database.file(file), statement);
    }
    /// An older inventory of that owner, with what a site has added to it.
    void makeOld(const QString& file) {
        const auto table = sqlite(file, u"select sql from sqlite_master where name = 'inventory'"_s);
        ASSERT_TRUE(table.contains(u"unique collate nocase,"_s));
        auto old = u"create table old_inventory "_s + table.mid(table.indexOf(u'('));
        old.replace(u"unique collate nocase,"_s, u"unique,"_s);
        sqlite(u"kelvane.db"_s, u"drop table if exists kelvane_upgrades"_s); // there were no versions yet
        sqlite(file, old + u"; insert into old_inventory select * from inventory; drop table inventory; "
                           "alter table old_inventory rename to inventory; "
                           "alter table inventory add column i4299 text; "
                           "create index inventory_model on inventory (i4203); "
                           "create index site_index on inventory (i4299); "
                           "create trigger site_trigger after update on inventory begin select 1; end; "
                           "update inventory set i4299 = 'site'"_s);
    }
    QString remake(int wanted) {
        const auto outcome = runScript(sourceFile(u"database/make.sh"_s), {database.path()});
        EXPECT_EQ(outcome.code == 0 ? 0 : 1, wanted) << outcome.output.toStdString();
        return outcome.output;
    }
    /// The copies that an upgrade makes first.
    void TearDown() override {
        const QFileInfo info(database.path());
        for (const auto& copy : info.dir().entryList({info.fileName() + u".version-*"_s}, QDir::Dirs))
            QDir(info.dir().filePath(copy)).removeRecursively();
    }
    QString keyOf(const QString& owner, const QString& asset) {
        const auto connection = database.connect();
        return queryRows(*connection,
                         u"select mtag from "_s + owner + u".inventory where i4201 = '"_s + asset + u'\'')
            .join(u',');
    }

    DemoDatabase database;
};

} // namespace

TEST_F(AssetNumbers, CompareWithoutCaseForEveryOwner) {
    EXPECT_EQ(keyOf(u"mt"_s, u"tw-101"_s), u"1301"_s);
    EXPECT_EQ(keyOf(u"mt"_s, u"Tw-101"_s), keyOf(u"mt"_s, u"TW-101"_s));
    EXPECT_EQ(keyOf(u"abc"_s, u"abc-pt-1"_s), u"3401"_s);
    EXPECT_FALSE(keyOf(u"std"_s, u"std-ref-1"_s).isEmpty());
}

TEST_F(AssetNumbers, KeepTheirSpellingAndAreListedOnce) {
    const auto connection = database.connect();
    EXPECT_EQ(valueOf(*connection, u"select i4201 from mt.inventory where i4201 in ('tw-101','TW-101')"_s),
              u"TW-101"_s);
    EXPECT_EQ(refusalOf(*connection, u"insert into mt.inventory (mtag,i4201) values ('x','tw-101');commit"_s)
                  .value()
                  .number,
              19);
}

TEST_F(AssetNumbers, OfAnOlderDatabaseCompareWithoutCaseOnceItIsBroughtUpToDate) {
    for (const auto& file : {u"mt.db"_s, u"std.db"_s, u"abc.db"_s})
        makeOld(file);
    ASSERT_EQ(keyOf(u"mt"_s, u"tw-101"_s), QString());
    const auto before = sqlite(u"mt.db"_s, u"select * from inventory order by mtag"_s);
    remake(0);
    EXPECT_EQ(keyOf(u"mt"_s, u"tw-101"_s), u"1301"_s);
    EXPECT_EQ(keyOf(u"abc"_s, u"abc-pt-1"_s), u"3401"_s);
    EXPECT_EQ(sqlite(u"mt.db"_s, u"select * from inventory order by mtag"_s), before);
    EXPECT_EQ(
        sqlite(u"mt.db"_s, u"select name from sqlite_master where tbl_name = 'inventory' and sql is not null "
                           "order by name"_s),
        u"inventory\ninventory_description\ninventory_group\ninventory_model\ninventory_serial\nsite_index\n"
        "site_trigger"_s);
    EXPECT_EQ(sqlite(u"mt.db"_s, u"pragma integrity_check"_s), u"ok"_s);
    const auto made = sqlite(u"mt.db"_s, u".dump"_s);
    remake(0);
    EXPECT_EQ(sqlite(u"mt.db"_s, u".dump"_s), made) << "a second run changes nothing";
}

TEST_F(AssetNumbers, ThatDifferInCaseOnlyAreNamedAndNothingIsChanged) {
    makeOld(u"mt.db"_s);
    sqlite(u"mt.db"_s, u"insert into inventory (mtag,i4201) values ('twin','tw-101')"_s);
    const auto content = u"select sql from sqlite_master where name = 'inventory'; select * from inventory"_s;
    const auto before = sqlite(u"mt.db"_s, content);
    const auto output = remake(1);
    EXPECT_TRUE(output.contains(u"TW-101 tw-101"_s) || output.contains(u"tw-101 TW-101"_s))
        << output.toStdString();
    EXPECT_EQ(sqlite(u"mt.db"_s, content), before);
}

TEST_F(AssetNumbers, OfAForeignInventoryStayUnchangedWithAMessage) {
    sqlite(u"std.db"_s,
           u"drop table inventory; create table inventory (mtag text, i4201 text, i4203 text, i4204 text, "
           "i4206 text, i4209 text, i4240 text)"_s);
    const auto output = remake(0);
    EXPECT_TRUE(output.contains(u"std.db"_s)) << output.toStdString();
}

} // namespace kelvane::testing
