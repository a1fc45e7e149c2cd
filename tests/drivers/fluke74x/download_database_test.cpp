#include "drivers/fluke74x/driver.h"
#include "testkit/database_session.h"
#include "testkit/recorded_link3.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Downloads out of the demonstration database to its Fluke 743.
class Fluke74xDownloadOnDatabase : public DatabaseSession {
  protected:
    /// A package of these instruments, under the tag "OUT".
    void addPackage(const QStringList& assets) {
        execute(u"insert into mt.hvm_kv_task_packages (taskname,tptype,mtuser,created_on,tptag) values "
                "('OUT','WSHT','jdoe',now(*),'OUT');commit"_s);
        for (const auto& asset : assets)
            execute(u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('OUT',(select mtag from "
                    "MT.inventory where i4201 = '%1'));commit"_s.arg(asset));
    }
    QString download() { return Module74xInterface::Fluke74x_download(driver, u"OUT"_s); }
    QStringList inUse() {
        return values(
            u"select i4201 from mt.hvm_kv_task_inuse, mt.inventory where mt.hvm_kv_task_inuse.mtag = "
            "mt.inventory.mtag and serial_number = '7112044'"_s);
    }
    QStringList withStandard() {
        return values(u"select i4201 from mt.hvm_kv_task_standards_inuse, mt.inventory where "
                      "mt.hvm_kv_task_standards_inuse.mtag = mt.inventory.mtag and standard_mtag = '1103'"_s);
    }

    RecordedLink3 link;
    Fluke74x driver{session, link};
};

} // namespace

TEST_F(Fluke74xDownloadOnDatabase, APressureTransmitterIsWrittenWithItsMessagesAndRegistered) {
    addPackage({u"PT-101"_s});
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(driver.Calibrator74xAsset, u"F743-01"_s);
    EXPECT_EQ(link.callsOf(u"MEM3promptDefn"_s).size(), 6);
    EXPECT_EQ(link.callsOf(u"MEM3promptTemplate"_s).size(), 6) << "both behind the test too";
    EXPECT_TRUE(link.calls.contains(u"STA3setMappedOp(\"root\", \"loop\", \"Enabled 24V\")"_s));
    EXPECT_TRUE(link.calls.contains(u"STA3setFloatOp(\"root\", \"tol\", 0.25)"_s));
    EXPECT_TRUE(link.calls.contains(u"MEM3strategyDefn(1, 1, \"5 POINT UP\", \"0 0.25 0.5 0.75 1\", 5)"_s));
    EXPECT_TRUE(link.calls.contains(
        u"MEM3instrCalTemplate(1, 1, 0, 2, 1, 1, 101, 201, 0, 0, 2, \"PT-101\", \"V88101\")"_s));
    EXPECT_EQ(inUse(), QStringList{u"PT-101"_s});
    EXPECT_EQ(withStandard(), QStringList{u"PT-101"_s});
}

TEST_F(Fluke74xDownloadOnDatabase, ALaterDownloadTakesThePlaceOfTheOneBefore) {
    addPackage({u"PT-101"_s, u"TIT-205"_s});
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(inUse(), (QStringList{u"PT-101"_s, u"TIT-205"_s}));
    execute(u"delete from mt.hvm_kv_task_assets where tptag = 'OUT' and mtag = '1401'"_s);
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(inUse(), QStringList{u"TIT-205"_s});
    EXPECT_EQ(withStandard(), QStringList{u"TIT-205"_s});
}

TEST_F(Fluke74xDownloadOnDatabase, AFailedTransferLeavesTheRegistryOfTheDownloadBefore) {
    addPackage({u"PT-101"_s});
    EXPECT_EQ(download(), QString());
    execute(u"delete from mt.hvm_kv_task_assets where tptag = 'OUT'"_s);
    link.answer(u"DPC3dnlStart"_s, 2010);
    EXPECT_EQ(download(), u"Communications with calibrator failed! (DPC3ERR_COMM_NOT_CONNECTED)"_s);
    EXPECT_EQ(inUse(), QStringList{u"PT-101"_s});
    EXPECT_EQ(withStandard(), QStringList{u"PT-101"_s});
}

TEST_F(Fluke74xDownloadOnDatabase, AnEmptyPackageEmptiesTheRegistryOfThatCalibrator) {
    addPackage({});
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(inUse(), QStringList());
    EXPECT_EQ(withStandard(), QStringList());
}

TEST_F(Fluke74xDownloadOnDatabase, AQuoteInAnAssetNumberIsReportedAndNothingIsTransferred) {
    addPackage({});
    execute(u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('OUT','1409');commit"_s);
    ui.expectReport(1, u"ModuleGlobals,GetCalParams"_s);
    EXPECT_TRUE(download().startsWith(u"The instruments of the download could not be read"_s));
    EXPECT_EQ(link.callsOf(u"DPC3dnlStart"_s), QStringList());
    EXPECT_EQ(inUse(), QStringList());
}

} // namespace kelvane::testing
