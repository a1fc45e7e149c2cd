#include "tests/drivers/fluke74x/download_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// What a download does and loses when the database goes away: reports, by the routine's name behind
/// "ModuleGlobals,".
class Fluke74xDownloadErrors : public Fluke74xDownload {
  protected:
    void expectReports(const QStringList& routines) {
        for (const auto& routine : routines)
            ui.expectReport(10054, u"ModuleGlobals,"_s + routine);
    }
    void expectEnded() const {
        EXPECT_FALSE(ui.busy);
        EXPECT_FALSE(ui.progressShown);
    }

    const QStringList cleared{u"AssetfromSerial"_s, u"CheckAsset"_s, u"ClearInUse"_s};
    const QStringList added{u"AssetfromSerial"_s, u"CheckAsset"_s, u"AddInUse"_s};
    const QStringList values{u"GetCalParams"_s, u"TranslateSpanTestTolSingle"_s, u"GetTestPointList"_s,
                             u"GetPrompts"_s};
    const Error gone{10054, u"Connection lost"_s, u"08S01"_s, true};
};

TEST_F(Fluke74xDownloadErrors, ADatabaseLostAtAStatementIsReportedByEachRoutineFromThereOn) {
    const QString clearRows =
        u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = '7112044';commit"_s;
    const QString clearStandards =
        u"delete from mt.hvm_kv_task_standards_inuse where entered_date < now(*) - 30 or standard_mtag = '910';commit"_s;
    const QString addRow =
        u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('7112044',now(*),'KI-1','jdoe');commit"_s;
    const QString addStandard =
        u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values ('910',now(*),'KI-1');commit"_s;
    const struct {
        QString statement;
        QStringList reports;
        QString failure = {};
    } rows[] = {
        {selectSerial(link.serial), {u"AssetfromSerial"_s, u"GetAssetsInTaskPackage"_s}, listUnread},
        {selectPackage(u"TAG"_s), {u"GetAssetsInTaskPackage"_s}, listUnread},
        {selectMembers(u"TAG"_s), {u"GetAssetsInTaskPackage"_s}, listUnread},
        {selectParams(u"I-1"_s), {u"GetCalParams"_s}, listUnread},
        {selectPoints(u"I-1"_s), values.sliced(1), instrumentUnread},
        {selectRepetitions(u"I-1"_s), values.sliced(2), instrumentUnread},
        {selectPointList(u"I-1"_s), values.sliced(2), instrumentUnread},
        {selectPrompts(u"I-1"_s), values.sliced(3), instrumentUnread},
        {selectMtag(u"F743-01"_s), QStringList{u"CheckAsset"_s, u"ClearInUse"_s} + added},
        {clearRows, QStringList{u"ClearInUse"_s} + added},
        {clearStandards, QStringList{u"ClearInUse"_s} + added},
        {addRow, {u"AddInUse"_s}},
        {addStandard, {u"AddInUse"_s}},
    };
    for (const auto& row : rows) {
        addList({transmitter()});
        script.lost = false;
        script.failures = {{row.statement, gone}};
        session.SessionConnected = true;
        link.calls.clear();
        expectReports(row.reports);
        EXPECT_EQ(download(), row.failure) << row.statement.toStdString();
        EXPECT_TRUE(ui.hasMetAll()) << row.statement.toStdString();
        EXPECT_EQ(argumentsOf(u"DPC3dnlStart"_s).size(), row.failure.isEmpty() ? 1 : 0)
            << "what could not be read is not transferred";
        EXPECT_FALSE(session.SessionConnected);
        expectEnded();
    }
}

TEST_F(Fluke74xDownloadErrors, ADatabaseLostBetweenTwoCallsIsReportedByEachRoutineFromThereOn) {
    const struct {
        QString operation;
        QStringList reports;
        QString failure = {};
    } rows[] = {
        {u"DPC3mapStart"_s, {u"GetAssetsInTaskPackage"_s}, listUnread},
        {u"STA3initOp"_s, cleared + added},
        {u"DPC3dnlStart"_s, cleared + added},
    };
    for (const auto& row : rows) {
        addList({transmitter()});
        script.lost = false;
        link.onCall = [&](const QString& operation) {
            script.lost = script.lost || operation == row.operation;
        };
        expectReports(row.reports);
        EXPECT_EQ(download(), row.failure);
        EXPECT_TRUE(ui.hasMetAll()) << row.operation.toStdString();
        expectEnded();
    }
}

TEST_F(Fluke74xDownloadErrors, ARefusedStatementIsReportedAndNothingIsTransferred) {
    addList({transmitter(), transmitter()});
    script.failures = {{selectPrompts(u"I-1"_s), Error{208, u"Invalid object"_s, u"42S02"_s}}};
    ui.expectReport(208, u"ModuleGlobals,GetPrompts"_s);
    EXPECT_EQ(download(), instrumentUnread);
    EXPECT_EQ(argumentsOf(u"DPC3dnlStart"_s), QStringList());
    EXPECT_EQ(writes(), QStringList());
    expectEnded();
}

TEST_F(Fluke74xDownloadErrors, AnUnreadParameterOfASecondInstrumentStopsTheDownloadBeforeAnyTask) {
    addList({transmitter(), transmitter()});
    script.failures = {{selectParams(u"I-2"_s), Error{208, u"Invalid object"_s, u"42S02"_s}}};
    ui.expectReport(208, u"ModuleGlobals,GetCalParams"_s);
    EXPECT_EQ(download(), listUnread);
    EXPECT_EQ(argumentsOf(u"MEM3startTask"_s), QStringList());
    EXPECT_EQ(writes(), QStringList());
    expectEnded();
}

TEST_F(Fluke74xDownloadErrors, AMessageWhoseMacrosFailIsReportedAndNothingIsTransferred) {
    addList({transmitter()});
    addPrompts(u"I-1"_s, {message(u"A"_s, u"Bell $CHR:-1$"_s, u"PRE"_s)});
    ui.expectReport(5, u"ModuleGlobals,UUTPromptTextPrepare"_s);
    EXPECT_EQ(download(), instrumentUnread);
    EXPECT_EQ(argumentsOf(u"DPC3dnlStart"_s), QStringList());
    EXPECT_EQ(registeredInstruments(), QStringList());
    expectEnded();
}

TEST_F(Fluke74xDownloadErrors, APackageWithMembersThatTheInventoryDoesNotKnowIsAFailure) {
    addPackage(u"TAG"_s, {});
    const auto members = u"select tptag from mt.hvm_kv_task_assets where tptag = 'TAG'"_s;
    script.answers.insert(members, {{u"TAG"_s}});
    EXPECT_EQ(
        download(),
        u"None of the instruments of the download was found in the inventory. The calibrator was not changed."_s);
    EXPECT_EQ(argumentsOf(u"DPC3dnlStart"_s), QStringList());
    expectEnded();
    script.failures = {{members, Error{208, u"Invalid object"_s, u"42S02"_s}}};
    ui.expectReport(208, u"ModuleGlobals,PackageHasMembers"_s);
    EXPECT_EQ(download(), listUnread);
    EXPECT_EQ(argumentsOf(u"DPC3dnlStart"_s), QStringList());
    EXPECT_EQ(writes(), QStringList());
    expectEnded();
}

TEST_F(Fluke74xDownloadErrors, AnAssetNumberWithAQuoteIsReportedAndEndsTheDownload) {
    const auto asset = u"LT-10'COL"_s;
    addPackage(u"TAG"_s, {asset});
    ui.expectReport(1, u"ModuleGlobals,GetCalParams"_s);
    EXPECT_EQ(download(), listUnread);
    EXPECT_FALSE(script.statements.contains(selectParams(asset)));
    EXPECT_EQ(argumentsOf(u"MEM3startTask"_s), QStringList());
    EXPECT_EQ(registeredInstruments(), QStringList());
}

TEST_F(Fluke74xDownloadErrors, AnUnexpectedErrorAtACallIsReportedAndRegistersNothing) {
    addList({transmitter()});
    for (const auto& operation : {u"MEM3clear"_s, u"MEM3startTask"_s, u"STA3setFloatOp"_s,
                                  u"MEM3instrCalTemplate"_s, u"MEM3endTask"_s}) {
        link.onCall = [&](const QString& name) {
            if (name == operation)
                throw makeError(ErrorNumber::fileNotFound);
        };
        ui.expectReport(53, u"Module74xInterface,Fluke74x_download"_s);
        EXPECT_EQ(download(), QString());
        EXPECT_TRUE(ui.hasMetAll()) << operation.toStdString();
        EXPECT_EQ(writes(), QStringList());
        expectEnded();
    }
}

} // namespace kelvane::testing
