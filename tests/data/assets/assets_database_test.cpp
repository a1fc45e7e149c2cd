#include "data/assets/assets.h"
#include "data/parameters/cal_params.h"

#include "testkit/database_session.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

class AssetsOnDatabase : public DatabaseSession {
  protected:
    static QStringList listAssets(const QList<AssetEntry>& entries) {
        QStringList assets;
        for (const auto& entry : entries)
            assets << entry.asset;
        assets.sort();
        return assets;
    }
    QStringList membersOf(const QString& task) { return listAssets(GetAssetsInTaskPackage(session, task)); }
};

} // namespace

TEST_F(AssetsOnDatabase, EachKindOfPackageGivesItsMembers) {
    const struct {
        QString package;
        QStringList members;
    } cases[] = {
        {u"TORQUE CREW A"_s, {u"TW-103"_s, u"TW-104"_s, u"TW-105"_s, u"TW-106"_s}},
        {u"UNIT 1 SHUTDOWN"_s, {u"IP-301"_s, u"PT-101"_s, u"PT-102"_s, u"TIT-201"_s, u"UC-901"_s}},
        {u"TEMPERATURE LOOPS"_s,
         {u"TIT-201"_s, u"TIT-202"_s, u"TIT-203"_s, u"TIT-204"_s, u"TIT-205"_s, u"TIT-206"_s, u"TIT-207"_s}},
        {u"UTILITIES"_s, {u"FT-501"_s, u"PG-801"_s, u"PT-105"_s, u"PT-106"_s, u"TIT-205"_s}},
        {u"CLICK 250F WRENCHES"_s, {u"TW-101"_s, u"TW-111"_s}},
        {u"TORQUE SCREWDRIVERS"_s, {u"TD-109"_s, u"TD-110"_s}},
        {u"WS7Q2K9D4M1X8B5N3V6C0Z2L7J4H1G"_s, {u"PT-101"_s, u"PT-103"_s}},
        {u"NO SUCH PACKAGE"_s, {}},
        {u"CREW 'B'"_s, {}},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(membersOf(testCase.package), testCase.members) << testCase.package.toStdString();
}

TEST_F(AssetsOnDatabase, APredefinedPackageIsFoundByItsTagToo) {
    EXPECT_EQ(membersOf(u"Z9X3C7V1B5N0M4Q8W2E6R0T5Y9U3I7"_s), (QStringList{u"TW-101"_s, u"TW-111"_s}));
}

TEST_F(AssetsOnDatabase, AnExplicitListAskedForByItsTagHasNoMembersBecauseTheyAreFoundByName) {
    EXPECT_EQ(membersOf(u"K3V9T1A7Q5X2M8C4R6Z0W1E9Y3B5N7"_s), QStringList());
}

TEST_F(AssetsOnDatabase, AStoredConditionThatTheServerRefusesIsReported) {
    execute(u"update mt.hvm_kv_task_packages set task_sql = 'select nonsense from nowhere' where taskname = "
            "'TEMPERATURE LOOPS'"_s);
    ui.expectReport(1, u"ModuleGlobals,GetAssetsInTaskPackage"_s);
    EXPECT_EQ(membersOf(u"TEMPERATURE LOOPS"_s), QStringList());
}

TEST_F(AssetsOnDatabase, EntriesCarryAssetKeyAndSerialNumber) {
    execute(u"update MT.inventory set i4206 = null where i4201 = 'TW-111'"_s);
    const auto entries = GetAssetsInTaskPackage(session, u"CLICK 250F WRENCHES"_s);
    ASSERT_EQ(entries.size(), 2);
    for (const auto& entry : entries) {
        EXPECT_EQ(entry.mtag, entry.asset == u"TW-101" ? u"1301"_s : u"1311"_s);
        EXPECT_EQ(entry.serial.isEmpty(), entry.asset == u"TW-111");
    }
}

TEST_F(AssetsOnDatabase, TheThreeNumbersOfAnInstrumentLeadToEachOther) {
    EXPECT_EQ(AssetfromSerial(session, u"48213"_s), u"TS-0001"_s);
    EXPECT_EQ(AssetfromSerial(session, u"482"_s, u"TS-"_s), u"TS-0001"_s);
    EXPECT_EQ(AssetfromSerial(session, u"48213"_s, u"TW-"_s), QString());
    EXPECT_EQ(AssetfromSerial(session, u"0"_s), QString());
    EXPECT_EQ(CheckAsset(session, u"TS-0001"_s), u"1101"_s);
    EXPECT_EQ(CheckAsset(session, u"TS-9999"_s), QString());
}

TEST_F(AssetsOnDatabase, AnAssetNumberWithAQuoteIsSafeOnlyWhereTheStatementMakesItSafe) {
    EXPECT_TRUE(HasConfigData(session, u"LT-10'COL"_s));
    ui.expectReport(1, u"ModuleGlobals,CheckAsset"_s);
    EXPECT_EQ(CheckAsset(session, u"LT-10'COL"_s), QString());
    ui.expectReport(1, u"ModuleGlobals,GetCalParams"_s);
    EXPECT_EQ(GetCalParams(session, u"LT-10'COL"_s).mtag, QString());
}

TEST_F(AssetsOnDatabase, UnusualAssetNumbersAreSimplyUnknown) {
    for (const auto& asset :
         {QString(), QString(200, u'x'), u"溫度-1"_s, u"50%"_s, u"a;b"_s, u"--"_s, u"?"_s})
        EXPECT_EQ(CheckAsset(session, asset), QString()) << asset.toStdString();
}

TEST_F(AssetsOnDatabase, ACalibratorsInstrumentsAreThoseInUseWithItAsStandard) {
    EXPECT_EQ(listAssets(GetAssetsInUseWithStandard(session, u"6841207"_s)),
              (QStringList{u"PT-103"_s, u"PT-104"_s}));
    EXPECT_TRUE(GetAssetsInUseWithStandard(session, u"48213"_s).isEmpty());
    EXPECT_TRUE(GetAssetsInUseWithStandard(session, u"no such"_s).isEmpty());
}

TEST_F(AssetsOnDatabase, AnotherOwnerHasItsOwnInventoryAndTheSharedParameters) {
    logIn(users::editorOfAbc);
    EXPECT_EQ(AssetfromSerial(session, u"48215"_s), u"TS-0002"_s);
    EXPECT_EQ(CheckAsset(session, u"ABC-PT-1"_s), u"3401"_s);
    EXPECT_EQ(CheckAsset(session, u"PT-101"_s), QString());
    EXPECT_TRUE(HasConfigData(session, u"ABC-PT-1"_s));
    EXPECT_EQ(GetCalParams(session, u"ABC-PT-1"_s).mtag, u"3401"_s);
    EXPECT_EQ(membersOf(u"TEMPERATURE LOOPS"_s), QStringList()) << "the condition asks for $U_SEG$";
}

} // namespace kelvane::testing
