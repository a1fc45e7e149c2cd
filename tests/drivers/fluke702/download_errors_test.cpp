#include "tests/drivers/fluke702/download_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString unknownCalibrator =
    u"Asset Number for Calibrator NOT Found In Database! A record for the calibrator must be created before uploading results."_s;

/// What a download does and loses when the database goes away: reports, by the routine's name behind
/// "ModuleGlobals,", and the box for a calibrator that can't be found.
class FlukeDownloadErrors : public FlukeDownload {
  protected:
    void expectReports(const QStringList& routines) {
        for (const auto& routine : routines) {
            if (routine == unknown)
                ui.expectBox(unknownCalibrator, u"Download Task Package to Fluke 702"_s, box::warning);
            else
                ui.expectReport(10054, u"ModuleGlobals,"_s + routine);
        }
    }
    const QString unknown = u"the calibrator is unknown"_s;
    const QStringList transferred{u"AssetfromSerial"_s, unknown};
    const QStringList cleared{u"AssetfromSerial"_s, u"CheckAsset"_s, u"ClearInUse"_s};
    const QStringList added{u"AssetfromSerial"_s, u"CheckAsset"_s, u"AddInUse"_s};
    const QStringList rest = transferred + cleared + added;
    const QString listUnread = u"The instruments of the download could not be read from the database. The "
                               "calibrator was not changed."_s;
    const QString instrumentUnread =
        u"I-1: The calibration parameters, test messages or tolerance could not be "
        "read from the database. The download ended there."_s;
    const Error gone{10054, u"Connection lost"_s, u"08S01"_s, true};
};

} // namespace

TEST_F(FlukeDownloadErrors, ADatabaseLostAtAStatementIsReportedByEachRoutineFromThereOn) {
    const QString clearRows =
        u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = '6841207';commit"_s;
    const QString clearStandards =
        u"delete from mt.hvm_kv_task_standards_inuse where entered_date < now(*) - 30 or standard_mtag = '900';commit"_s;
    const QString addRow =
        u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('6841207',now(*),'KI-1','jdoe');commit"_s;
    const QString addStandard =
        u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values ('900',now(*),'KI-1');commit"_s;
    const QStringList values{u"GetCalParams"_s, u"TranslateSpanTestTolSingle"_s, u"GetTestPointList"_s};
    const struct {
        QString statement;
        QStringList reports;
        int tasks;
        QString failure = {};
    } cases[] = {
        {selectPackage(u"TAG"_s), {u"GetAssetsInTaskPackage"_s}, 0, listUnread},
        {selectMembers(u"TAG"_s), {u"GetAssetsInTaskPackage"_s}, 0, listUnread},
        {selectParams(u"I-1"_s), {u"GetCalParams"_s}, 0, listUnread},
        {selectPrompts(u"I-1"_s), QStringList{u"GetPrompts"_s} + values, 1, instrumentUnread},
        {selectPoints(u"I-1"_s), values.sliced(1), 1, instrumentUnread},
        {selectRepetitions(u"I-1"_s), values.sliced(2), 1, instrumentUnread},
        {selectPointList(u"I-1"_s), values.sliced(2), 1, instrumentUnread},
        {selectSerial(link.serial), rest, 1},
        {selectMtag(u"F-702"_s), QStringList{u"CheckAsset"_s, u"ClearInUse"_s} + added, 1},
        {clearRows, QStringList{u"ClearInUse"_s} + added, 1},
        {clearStandards, QStringList{u"ClearInUse"_s} + added, 1},
        {addRow, {u"AddInUse"_s}, 1},
        {addStandard, {u"AddInUse"_s}, 1},
    };
    for (const auto& testCase : cases) {
        addList({transmitter()});
        script.lost = false;
        script.failures = {{testCase.statement, gone}};
        session.SessionConnected = true;
        link.calls.clear();
        expectReports(testCase.reports);
        EXPECT_EQ(download(), testCase.failure) << testCase.statement.toStdString();
        EXPECT_TRUE(ui.hasMetAll()) << testCase.statement.toStdString();
        EXPECT_EQ(argumentsOf(u"MEMendTask"_s).size(), testCase.tasks) << testCase.statement.toStdString();
        EXPECT_EQ(argumentsOf(u"DPCdnlStart"_s).size(), testCase.failure.isEmpty() ? 1 : 0)
            << "what could not be read is not transferred";
        EXPECT_FALSE(session.SessionConnected);
        EXPECT_FALSE(ui.busy);
    }
}

TEST_F(FlukeDownloadErrors, ADatabaseLostBetweenTwoCallsIsReportedByEachRoutineFromThereOn) {
    const struct {
        QString operation;
        QStringList reports;
        QString failure = {};
    } cases[] = {
        {u"MEMclear"_s,
         {u"GetPrompts"_s, u"GetCalParams"_s, u"TranslateSpanTestTolSingle"_s, u"GetTestPointList"_s},
         instrumentUnread},
        {u"MEMpromptDefn"_s,
         {u"GetCalParams"_s, u"TranslateSpanTestTolSingle"_s, u"GetTestPointList"_s},
         instrumentUnread},
        {u"STAinit"_s, rest},
        {u"DPCdnlStart"_s, cleared + added},
    };
    for (const auto& testCase : cases) {
        addList({transmitter()});
        addPrompts(u"I-1"_s, {message(u"A"_s, u"Isolate it."_s, u"PRE"_s)});
        script.lost = false;
        link.onCall = [&](const QString& operation) {
            script.lost = script.lost || operation == testCase.operation;
        };
        expectReports(testCase.reports);
        EXPECT_EQ(download(), testCase.failure);
        EXPECT_TRUE(ui.hasMetAll()) << testCase.operation.toStdString();
    }
}

TEST_F(FlukeDownloadErrors, ARefusedStatementIsReportedAndNothingIsTransferred) {
    addList({transmitter(), transmitter()});
    script.failures = {{selectPrompts(u"I-1"_s), Error{208, u"Invalid object"_s, u"42S02"_s}}};
    ui.expectReport(208, u"ModuleGlobals,GetPrompts"_s);
    EXPECT_EQ(download(), instrumentUnread);
    EXPECT_EQ(argumentsOf(u"DPCdnlStart"_s), QStringList());
    EXPECT_EQ(writes(), QStringList());
}

TEST_F(FlukeDownloadErrors, AMessageWhoseMacrosFailIsReportedAndNothingIsTransferred) {
    addList({transmitter()});
    addPrompts(u"I-1"_s, {message(u"A"_s, u"Bell $CHR:-1$"_s, u"PRE"_s)});
    ui.expectReport(5, u"ModuleGlobals,UUTPromptTextPrepare"_s);
    EXPECT_EQ(download(), instrumentUnread);
    EXPECT_EQ(argumentsOf(u"DPCdnlStart"_s), QStringList());
    EXPECT_EQ(registeredInstruments(), QStringList());
}

TEST_F(FlukeDownloadErrors, APackageWithMembersThatTheInventoryDoesNotKnowIsAFailure) {
    addPackage(u"TAG"_s, {});
    const auto members = u"select tptag from mt.hvm_kv_task_assets where tptag = 'TAG'"_s;
    script.answers.insert(members, {{u"TAG"_s}});
    EXPECT_EQ(
        download(),
        u"None of the instruments of the download was found in the inventory. The calibrator was not changed."_s);
    EXPECT_EQ(link.calls, QStringList());
    script.failures = {{members, Error{208, u"Invalid object"_s, u"42S02"_s}}};
    ui.expectReport(208, u"ModuleGlobals,PackageHasMembers"_s);
    EXPECT_EQ(download(), listUnread);
    EXPECT_EQ(link.calls, QStringList());
    EXPECT_EQ(writes(), QStringList());
}

TEST_F(FlukeDownloadErrors, AnAssetNumberWithAQuoteIsReportedAndEndsTheDownload) {
    const auto asset = u"LT-10'COL"_s;
    addPackage(u"TAG"_s, {asset});
    ui.expectReport(1, u"ModuleGlobals,GetCalParams"_s);
    EXPECT_EQ(
        download(),
        u"The instruments of the download could not be read from the database. The calibrator was not changed."_s);
    EXPECT_FALSE(script.statements.contains(selectParams(asset)));
    EXPECT_TRUE(argumentsOf(u"MEMstartTask"_s).isEmpty());
    EXPECT_TRUE(registeredInstruments().isEmpty());
}

TEST_F(FlukeDownloadErrors, AnAssetNumberWithQuotesInPairsGoesIntoItsStatementsAsItIs) {
    const auto asset = u"LT-10''COL"_s;
    addPackage(u"TAG"_s, {asset});
    EXPECT_EQ(download(), QString());
    EXPECT_TRUE(script.statements.contains(selectParams(asset)));
    EXPECT_EQ(argumentsOf(u"MEMstartTask"_s), QStringList{u"\"LT-10''COL\""_s});
    EXPECT_EQ(registeredInstruments().size(), 1);
}

} // namespace kelvane::testing
