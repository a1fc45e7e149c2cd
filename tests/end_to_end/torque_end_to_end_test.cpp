#include "testkit/difference.h"
#include "tests/end_to_end/torque_end_to_end.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

QStringList demonstratedTools() {
    QStringList assets;
    for (const auto& tool : demo::tools())
        assets << tool.asset;
    return assets;
}

/// The position of a message among those that the calibrator received.
int times(const QStringList& received, const QString& identifier) {
    return static_cast<int>(received.count(identifier));
}

} // namespace

class WholeTorqueEndToEnd : public TorqueEndToEnd {
  protected:
    void listDemonstrated() {
        for (const auto& asset : demonstratedTools())
            list(asset);
    }
    QString packages() { return rows(u"select count(*) from mt.hvm_kv_task_packages"_s).value(0); }
};

TEST_F(WholeTorqueEndToEnd, TheListRegistersEachToolsStandard) {
    listDemonstrated();
    EXPECT_EQ(screen.list, demonstratedTools());
    for (const auto& tool : demo::tools())
        EXPECT_EQ(standardsInUse(tool.asset), QStringList{tool.standard});
    EXPECT_EQ(registered(), QStringList());
    EXPECT_EQ(receivedMessages(), QStringList()) << "nothing is said to the calibrator yet";
}

TEST_F(WholeTorqueEndToEnd, TheDownloadLoadsTheCalibratorAndRegistersIt) {
    const auto before = packages();
    listDemonstrated();
    download();
    EXPECT_EQ(storedNames(), demonstratedTools());
    ASSERT_EQ(held().rounds.size(), 1U);
    EXPECT_EQ(held().rounds[0].name, u"KVTASK"_s);
    EXPECT_EQ(held().rounds[0].characteristics.size(), demo::tools().size());
    EXPECT_EQ(registered(), demonstratedTools());
    for (const auto& tool : demo::tools())
        EXPECT_EQ(standardsInUse(tool.asset), (QStringList{u"TS-0001"_s, tool.standard}));
    EXPECT_EQ(rows(u"select distinct tech from mt.hvm_kv_task_inuse where serial_number = '48213'"_s),
              QStringList{u"jdoe"_s});
    EXPECT_EQ(packages(), before) << "the temporary package is gone";
    EXPECT_EQ(screen.events.last(), u"close"_s);
    EXPECT_EQ(workplace.settings.values.value(u"Defaults/LastDownloadCalibrator"_s), torqueStarName);
    EXPECT_EQ(times(receivedMessages(), u"T1A"_s), demo::tools().size());
    EXPECT_EQ(receivedMessages().first(4), (QStringList{u"T0A"_s, u"T0D"_s, u"T2F"_s, u"T2B"_s}));
    EXPECT_EQ(receivedMessages().last(), u"T2C"_s);
}

TEST_F(WholeTorqueEndToEnd, TheUploadWritesEveryRecordAndEmptiesCalibratorAndRegistry) {
    listDemonstrated();
    download();
    carryOut(demonstratedTools());
    upload(demonstratedTools());
    expectWhole(demonstratedTools());
    try {
        demo::checkRecords(*session.SharedConnection, QDate::fromString(workDay(), Qt::ISODate),
                           demo::recordsAfterTools());
    } catch (const demo::Difference& difference) {
        ADD_FAILURE() << difference.what();
    }
    EXPECT_EQ(held(), simulators::Memory());
    EXPECT_EQ(registered(), QStringList());
    for (const auto& tool : demo::tools())
        EXPECT_EQ(standardsInUse(tool.asset), QStringList{tool.standard})
            << "only the calibrator's own rows go";
    EXPECT_EQ(workplace.settings.values.value(u"Defaults/LastUploadCalibrator"_s), torqueStarName);
}

TEST_F(WholeTorqueEndToEnd, ASecondUploadFindsNothingAndDoublesNothing) {
    listDemonstrated();
    download();
    carryOut(demonstratedTools());
    upload(demonstratedTools());
    switchOn();
    upload({});
    EXPECT_EQ(receivedMessages(), (QStringList{u"T0A"_s, u"T0D"_s, u"T2E"_s}));
    expectWhole(demonstratedTools());
}

TEST_F(WholeTorqueEndToEnd, AnUploadBeforeTheWorkNamesAllToolsAndForgetsThem) {
    list(u"TW-101"_s);
    list(u"TW-102"_s);
    download();
    upload({}, messages::noData({u"TW-101"_s, u"TW-102"_s}));
    EXPECT_EQ(registered(), QStringList());
    EXPECT_EQ(storedNames(), (QStringList{u"TW-101"_s, u"TW-102"_s})) << "they stay on the calibrator";
    upload({});
}

TEST_F(WholeTorqueEndToEnd, AOneToolListNeedsNoRound) {
    list(u"TW-103"_s);
    download();
    EXPECT_EQ(receivedMessages(), (QStringList{u"T0A"_s, u"T0D"_s, u"T1C"_s, u"T1A"_s}));
    carryOut({u"TW-103"_s});
    upload({u"TW-103"_s});
    expectWhole({u"TW-103"_s});
}

TEST_F(WholeTorqueEndToEnd, ASecondDownloadReplacesWhatIsThereWithoutAQuestion) {
    list(u"TW-101"_s);
    list(u"TW-102"_s);
    download();
    carryOut({u"TW-101"_s, u"TW-102"_s});
    switchOn();
    download();
    EXPECT_EQ(receivedMessages(), (QStringList{u"T0A"_s, u"T0D"_s, u"T2F"_s, u"T2E"_s, u"T2B"_s, u"T1C"_s,
                                               u"T1J"_s, u"T1A"_s, u"T1C"_s, u"T1J"_s, u"T1A"_s, u"T2C"_s}));
    EXPECT_EQ(registered(), (QStringList{u"TW-101"_s, u"TW-102"_s}));
    upload({}, messages::noData({u"TW-101"_s, u"TW-102"_s}));
}

TEST_F(WholeTorqueEndToEnd, TheOtherToolsOfTheLabGoItToo) {
    const struct {
        QString asset;
        QString standard;
        QString plan;
        QString record;
    } others[] = {
        {u"TW-107"_s, u"TT-S150"_s, u"20.1, 60, 100"_s, u"Y|2|3"_s},
        {u"TD-109"_s, u"TT-0050I"_s, u"8.1, 24, 40"_s, u"Y|2|3"_s},
        {u"TD-110"_s, u"TT-0010N"_s, u"1, 3, 5; 0, 0, 9"_s, u"N|2|3"_s},
        {u"TW-111"_s, u"TT-0300F"_s, u"50, 150, 250"_s, u"Y|2|3"_s},
        {u"TW-112"_s, u"TT-0150F"_s, u"20.1, 40.1, 60, 80.1, 100"_s, u"Y|2|10"_s},
        {u"PW-113"_s, u"TT-0500N"_s, u"16, 48, 80"_s, u"Y|2|3"_s},
    };
    QStringList assets;
    QString plan;
    // A Serial transducer leaves fields unwritten, and those of the tool before it stand in for them.
    for (const auto& otherTool : others) {
        list(otherTool.asset, otherTool.standard);
        assets << otherTool.asset;
        plan += otherTool.asset + u"; "_s + otherTool.plan +
                (otherTool.plan.contains(u';') ? QString() : u"; 0"_s) + u"; ; "_s + workDay() +
                u" 08:00\n"_s;
    }
    assets.sort();
    download();
    EXPECT_EQ(storedNames().size(), assets.size());
    carryOutPlan(plan);
    expectChoice();
    for (const auto& name : storedNames())
        expectRecord(name);
    pressUpload();
    for (const auto& otherTool : others)
        EXPECT_EQ(records(otherTool.asset), QStringList{otherTool.record}) << otherTool.asset.toStdString();
    EXPECT_EQ(held(), simulators::Memory());
}

TEST_F(WholeTorqueEndToEnd, ToolsThatTheCalibratorCantTakeAreRefusedAtTheList) {
    const struct {
        QString asset;
        QString reason;
    } refused[] = {{u"TW-108"_s, text(TextId::indicatedOutputUnsupported)},
                   {u"HW-701"_s, text(TextId::inputUnitsNotAccepted)},
                   {u"TQ-702"_s, text(TextId::outputUnitsNotAccepted)}};
    for (const auto& refusal : refused) {
        ui.expectBox(refusal.asset + u": "_s + refusal.reason, downloadTitle(), box::warning);
        addToDownloadList(calibrators, screen, refusal.asset);
    }
    EXPECT_EQ(screen.list, QStringList());
}

} // namespace kelvane::testing
