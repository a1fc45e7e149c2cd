#include "drivers/fluke702/driver.h"
#include "testkit/database_session.h"
#include "testkit/recorded_link.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Downloads out of the demonstration database to its Fluke 702, which has PT-103 and PT-104 in use.
class FlukeDownloadOnDatabase : public DatabaseSession {
  protected:
    /// A package of these instruments, under the tag "OUT".
    void addPackage(const QStringList& assets) {
        execute(u"insert into mt.hvm_kv_task_packages (taskname,tptype,mtuser,created_on,tptag) values "
                "('OUT','WSHT','jdoe',now(*),'OUT');commit"_s);
        for (const auto& asset : assets)
            execute(u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('OUT',(select mtag from "
                    "MT.inventory where i4201 = '%1'));commit"_s.arg(asset));
    }
    QString download() { return Module702Interface::Fluke702_download(driver, u"OUT"_s); }
    /// The calls from the first of an operation on; a message's key stands as "KEY" and the beginning of its
    /// text.
    QStringList callsFrom(const QString& operation) const {
        auto list = link.calls.sliced(link.calls.indexOf(link.callsOf(operation).value(0)));
        for (const auto& call : link.callsOf(u"MEMpromptDefn"_s))
            list.replaceInStrings(call.section(u'"', 1, 1), u"KEY "_s + call.section(u'"', 3, 3).left(10));
        return list;
    }
    QStringList inUse() {
        return values(
            u"select i4201 from mt.hvm_kv_task_inuse, mt.inventory where mt.hvm_kv_task_inuse.mtag = "
            "mt.inventory.mtag and serial_number = '6841207'"_s);
    }
    QStringList withStandard() {
        return values(u"select i4201 from mt.hvm_kv_task_standards_inuse, mt.inventory where "
                      "mt.hvm_kv_task_standards_inuse.mtag = mt.inventory.mtag and standard_mtag = '1102'"_s);
    }

    RecordedLink link;
    Fluke702 driver{session, link};
};

} // namespace

TEST_F(FlukeDownloadOnDatabase, APressureTransmitterIsWrittenWithItsMessages) {
    addPackage({u"PT-101"_s});
    EXPECT_EQ(inUse(), (QStringList{u"PT-103"_s, u"PT-104"_s}));
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(driver.Calibrator702Asset, u"F702-01"_s);
    auto messages = link.callsOf(u"MEMpromptDefn"_s);
    for (auto& message : messages)
        message = message.section(u'"', 3).chopped(2);
    EXPECT_EQ(messages.size(), 6);
    for (const auto& message : {
             u"Get a work permit before you isolate PT-101, jdoe."_s,
             u"Close the manifold of PT-101 and vent it. Then connect the pressure module: 0 to 100 psig."_s,
             u"Loop power of the calibrator: 24V. Output: 4 to 20 mA."_s,
             u"5 POINT UP: 5 points, each taken 1 times. Tolerance 0.25% / -0.25% of span, in all 0.25%."_s,
             u"Open the manifold, check for leaks and return PT-101 to service."_s,
         })
        EXPECT_TRUE(messages.contains(message)) << message.toStdString();
    EXPECT_EQ(callsFrom(u"MEMstrategyDefn"_s),
              (QStringList{u"MEMstrategyDefn(\"5 POINT UP\", 5, \"0 0.25 0.5 0.75 1\")"_s,
                           u"STAinit()"_s,
                           u"STAsetTempUnits(\"celsius\")"_s,
                           u"STAsetTref(\"measure\", 0)"_s,
                           u"STAsetTempStd(\"its90\")"_s,
                           u"STAsetPresUnits(\"psi\")"_s,
                           u"STAsetOutput(\"pressure\", \"\", 0, 0)"_s,
                           u"STAsetInput(\"current\", \"\")"_s,
                           u"STAsetInputRange(0, 0.022)"_s,
                           u"STAsetLoopPower(\"24v\")"_s,
                           u"STAsetOutputScale(100, 0)"_s,
                           u"STAsetInputScale(0.02, 0.004)"_s,
                           u"STAsetTestTolerance(0.25)"_s,
                           u"STAsave()"_s,
                           u"MEMstartTask(\"PT-101\")"_s,
                           u"MEMprompt(\"KEY Get a work\")"_s,
                           u"MEMprompt(\"KEY Close the \")"_s,
                           u"MEMprompt(\"KEY Loop power\")"_s,
                           u"MEMprompt(\"KEY 5 POINT UP\")"_s,
                           u"MEMtemplate(1, 0, \"PT-101\", \"V88101\", 1)"_s,
                           u"MEMprompt(\"KEY Open the m\")"_s,
                           u"MEMendTask()"_s,
                           u"DPCclose()"_s,
                           u"DPCopen(9600, \"COM1\", 1000, 5)"_s,
                           u"DPCget70x()"_s,
                           u"DPCdnlStart()"_s,
                           u"DPCclose()"_s}));
    EXPECT_EQ(inUse(), QStringList{u"PT-101"_s}) << "the last download's alone";
    EXPECT_EQ(withStandard(), QStringList{u"PT-101"_s});
}

TEST_F(FlukeDownloadOnDatabase, AThermocoupleAFrequencyAndALoopIndicatorShareAList) {
    addPackage({u"TIT-206"_s, u"FT-501"_s, u"LI-401"_s});
    EXPECT_EQ(download(), QString());
    auto outputs = link.callsOf(u"STAsetOutput"_s);
    auto templates = link.callsOf(u"MEMtemplate"_s);
    ASSERT_EQ(templates.size(), 3);
    const auto position = [&](const QString& tag) {
        return templates.indexOf(QRegularExpression(u".*\"%1\".*"_s.arg(tag)));
    };
    EXPECT_TRUE(outputs[position(u"TIT-206"_s)].startsWith(u"STAsetOutput(\"tc\", \"tc_j\", "_s));
    EXPECT_EQ(outputs[position(u"FT-501"_s)], u"STAsetOutput(\"freq\", \"\", 20, 0.005)"_s);
    const auto indicator = position(u"LI-401"_s);
    EXPECT_TRUE(outputs[indicator].startsWith(u"STAsetOutput(\"current\", \"\", "_s));
    EXPECT_EQ(link.callsOf(u"STAsetInput"_s)[indicator], u"STAsetInput(\"dcv\", \"\")"_s);
    EXPECT_EQ(link.callsOf(u"STAsetInputScale"_s)[indicator], u"STAsetInputScale(100, 0)"_s);
    EXPECT_EQ(link.callsOf(u"STAsetOutputScale"_s)[indicator], u"STAsetOutputScale(0.02, 0.004)"_s);
    for (qsizetype i = 0; i < 3; ++i)
        EXPECT_EQ(templates[i].section(u", "_s, 1, 1), i < indicator ? u"0"_s : u"1"_s) << i;
    EXPECT_EQ(inUse(), (QStringList{u"FT-501"_s, u"LI-401"_s, u"TIT-206"_s}));
}

TEST_F(FlukeDownloadOnDatabase, AFailedLinkLeavesTheRegistryOfTheDownloadBefore) {
    addPackage({u"PT-101"_s});
    link.answer(u"DPCdnlStart"_s, 2019);
    EXPECT_EQ(download(), u"Communications with calibrator failed! (DPCERR_COMM_NOT_CONNECTED)"_s);
    EXPECT_EQ(inUse(), (QStringList{u"PT-103"_s, u"PT-104"_s}));
    EXPECT_EQ(withStandard(), (QStringList{u"PT-103"_s, u"PT-104"_s}));
}

TEST_F(FlukeDownloadOnDatabase, AnEmptyPackageEmptiesTheRegistryOfThatCalibrator) {
    addPackage({});
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(link.callsOf(u"MEMstartTask"_s), QStringList());
    EXPECT_EQ(inUse(), QStringList());
    EXPECT_EQ(withStandard(), QStringList());
}

TEST_F(FlukeDownloadOnDatabase, AQuoteInAnAssetNumberIsReportedAndNothingIsTransferred) {
    addPackage({});
    execute(u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('OUT','1409');commit"_s);
    ui.expectReport(1, u"ModuleGlobals,GetCalParams"_s);
    EXPECT_TRUE(download().startsWith(u"The instruments of the download could not be read"_s));
    EXPECT_EQ(link.calls, QStringList());
    EXPECT_EQ(inUse(), (QStringList{u"PT-103"_s, u"PT-104"_s})) << "as before";
}

} // namespace kelvane::testing
