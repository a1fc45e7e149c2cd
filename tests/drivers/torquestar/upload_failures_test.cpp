#include "data/journal/journal.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "tests/drivers/torquestar/upload_fixture.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(TorqueUpload, ALinkThatFailsBeforeTheListChangesNothing) {
    addUsedCalibrator(1, {u"100"_s});
    replies["T0A"] << std::nullopt << QByteArray("t0a!");
    EXPECT_EQ(upload(), timeout);
    EXPECT_EQ(upload(), u"Communications with calibrator failed!"_s);
    replies["T0D"] << std::nullopt;
    EXPECT_EQ(upload(), timeout);
    EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0A"_s, u"T0A"_s, u"T0D"_s}));
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(TorqueUpload, ACalibratorWithoutARecordIsAFailureAndChangesNothing) {
    addUsedCalibrator(1, {u"100"_s});
    script.answers.remove(selectSerial(u"12345678"_s));
    EXPECT_EQ(
        upload(),
        u"Asset Number for Calibrator NOT Found In Database! A record for the calibrator must be created before uploading results.\r\n"_s);
    EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0D"_s}));
    EXPECT_EQ(writes(), QStringList());
}

TEST_F(TorqueUpload, WithNothingInUseOnlyTheRoundIsErased) {
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0D"_s, u"T2E KVTASK"_s}));
    EXPECT_TRUE(isCleared());
}

TEST_F(TorqueUpload, AnInstrumentWithoutDataIsNamedAndClearedWithTheOthers) {
    addUsedCalibrator(3, {u"100"_s});
    replies["T1C"] << holdsNothing;
    holdResults({{100}});
    replies["T1C"] << QByteArray("t??\x02");
    EXPECT_EQ(upload(), u"The Following Assets Contained NO DATA:\r\n, W-1, W-3"_s);
    EXPECT_EQ(recordedAssets(), QStringList{u"W-2"_s});
    EXPECT_TRUE(isCleared());
}

TEST_F(TorqueUpload, AllWithoutDataGiveTheirListAndNoRecord) {
    addUsedCalibrator(1, {u"100"_s});
    replies["T1C"] << holdsNothing;
    EXPECT_EQ(upload(), u"The Following Assets Contained NO DATA:\r\n, W-1"_s);
    EXPECT_EQ(recordedAssets(), QStringList());
    EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0D"_s, u"T1C W-1"_s, u"T2E KVTASK"_s}));
}

TEST_F(TorqueUpload, OnlyAReplyThatBeginsWithTAndEndsInTheMarkMeansNoData) {
    for (const auto& reply : {QByteArray("x1C\x02"), QByteArray("t1C\x02.")}) {
        script.statements.clear();
        addUsedCalibrator(1, {u"100"_s});
        replies["T1C"] << reply << holdsData << holdsData;
        replies["T1D"] << result(date, time, {100});
        replies["T1F"] << noComment;
        EXPECT_EQ(upload(), QString());
        EXPECT_EQ(recordedAssets(), QStringList{u"W-1"_s}) << reply.toHex(' ').toStdString();
    }
}

TEST_F(TorqueUpload, TheHourglassShowsFromTheFirstExchangeOn) {
    bool busy = false;
    peer.reply = [this, &busy, inner = peer.reply](const QByteArray& body) {
        busy = busy || (body == "T0A" && ui.busy);
        return inner(body);
    };
    EXPECT_EQ(upload(), QString());
    EXPECT_TRUE(busy);
    EXPECT_FALSE(ui.busy);
}

TEST_F(TorqueUpload, TheListOfThoseWithoutDataShowsTheNamesOnTheCalibrator) {
    addInUse({u"LONG-ASSET-NUMBER-1"_s});
    replies["T1C"] << holdsNothing;
    EXPECT_EQ(upload(), u"The Following Assets Contained NO DATA:\r\n, LONG-ASSET-"_s);
}

TEST_F(TorqueUpload, AFailureHalfWayKeepsWhatIsDoneAndLeavesTheRestAlone) {
    const struct {
        QByteArray message;
        int good;
        QStringList lastOfTalk;
    } cases[] = {
        {"T1C", 4 + 0, {u"T1C W-2"_s}},                     // the first selection of W-2
        {"T1D", 2 + 0, {u"T1C W-2"_s, u"T1D"_s}},           // its first result
        {"T1D", 2 + 1, {u"T1D"_s, u"T1C W-2"_s, u"T1D"_s}}, // its second result
        {"T1F", 1 + 0, {u"T1C W-2"_s, u"T1D"_s, u"T1F"_s}}, // its comment
    };
    for (const auto& testCase : cases) {
        peer.received.clear();
        script.statements.clear();
        replies.clear();
        addUsedCalibrator(3, {u"50"_s, u"100"_s});
        for (int i = 0; i < 3; ++i)
            holdResults({{50}, {100}});
        replies[testCase.message].insert(testCase.good, std::nullopt);
        EXPECT_EQ(upload(), timeout);
        EXPECT_EQ(conversation().last(testCase.lastOfTalk.size()), testCase.lastOfTalk);
        EXPECT_EQ(recordedAssets(), QStringList{u"W-1"_s});
        EXPECT_EQ(conversation().count(u"T1J"_s), 1);
        EXPECT_FALSE(isCleared()) << "the registry stays whole";
        EXPECT_FALSE(conversation().contains(u"T2E KVTASK"_s)) << "the round stays";
    }
}

TEST_F(TorqueUpload, TheStatusOfTheSelectionBeforeEachResultIsIgnored) {
    addUsedCalibrator(1, {u"100"_s});
    replies["T1C"] << holdsData << std::nullopt << std::nullopt;
    replies["T1D"] << result(date, time, {100});
    replies["T1J"] << std::nullopt;
    replies["T2E"] << std::nullopt;
    replies["T1F"] << noComment;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recordedAssets(), QStringList{u"W-1"_s});
}

TEST_F(TorqueUpload, ARecordThatIsRefusedIsShownAndItsResultsAreStillLost) {
    addUsedCalibrator(2, {u"100"_s});
    const auto refusal =
        u"A calibration record for this UUT with the same calibration date and time already exists! Aborting calibration record creation for this UUT."_s;
    script.answers.insert(
        u"select c2301 from MT.calibration where c2301 = '2026-03-18' and c2333 = '09:30:05' and mtag = 'KW-1'"_s,
        {{u"2026-03-18"_s}});
    holdResults({{100}});
    holdResults({{100}});
    ui.expectBox(refusal, u"Calibration Record Creation"_s, box::stop);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recordedAssets(), QStringList{u"W-2"_s});
    EXPECT_EQ(conversation().count(u"T1J"_s), 2);
}

TEST_F(TorqueUpload, ResultsAndStandardsOfTheInstrumentBeforeAreForgotten) {
    addUsedCalibrator(2, {u"50"_s, u"100"_s});
    addPoints(u"W-2"_s, {u"100"_s}, 1);
    addStandards(u"W-2"_s, {u"X-2"_s});
    holdResults({{50}, {100}});
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(resultLines(),
              (QStringList{u"1 50.0ft/lb PASS"_s, u"2 100.0ft/lb PASS"_s, u"1 100.0ft/lb PASS"_s}));
    EXPECT_EQ(writes().filter(u"insert into mt.standards"_s).size(), 2 + 1);
}

TEST_F(TorqueUpload, FiftyOneStandardsAreCopied) {
    addUsedCalibrator(1, {u"100"_s});
    QStringList standards;
    while (standards.size() < 51)
        standards << u"S-%1"_s.arg(standards.size());
    addStandards(u"W-1"_s, standards);
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(writes().filter(u"insert into mt.standards"_s).size(), 51);
}

TEST_F(TorqueUpload, AConnectionLostWhileTheRegistryIsClearedKeepsTheRound) {
    addUsedCalibrator(1, {u"100"_s});
    holdResults({{100}});
    const auto clearing =
        u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = '12345678';commit"_s;
    script.failures[clearing] = Error{10054, u"Connection lost"_s, u"08S01"_s, true};
    ui.expectReport(10054, u"ModuleGlobals,ClearInUse"_s);
    EXPECT_EQ(upload(), text(TextId::connectionLostAdvice));
    EXPECT_TRUE(conversation().filter(u"T2E"_s).isEmpty());
}

TEST_F(TorqueUpload, TheFiftySecondStandardIsReportedAndNoneIsCopied) {
    addUsedCalibrator(1, {u"100"_s});
    QStringList standards;
    while (standards.size() < 52)
        standards << u"S-%1"_s.arg(standards.size());
    addStandards(u"W-1"_s, standards);
    holdResults({{100}});
    ui.expectReport(9, u"ModuleGlobals,GetInUseData"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(writes().filter(u"insert into mt.standards"_s).size(), 0);
    EXPECT_EQ(writes().filter(u"insert into MT.calibration"_s, Qt::CaseInsensitive).size(), 1);
}

TEST_F(TorqueUpload, WithoutATemplateTheLinesAreBlank) {
    addUsedCalibrator(1, {u"100"_s});
    session.ResultTemplateLine.clear();
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_TRUE(writes()[3].startsWith(u"insert into mt.calresults (c2501,c2502,mtag,ctag) values ('"_s +
                                       QString(120, u' ') + u'\''));
}

TEST_F(TorqueUpload, ARegistryRowThatIsGoneGivesNoTechnician) {
    addUsedCalibrator(1, {u"100"_s});
    script.answers.remove(
        u"select serial_number,entered_date,mtag,tech from mt.hvm_kv_task_inuse where serial_number = '12345678' and mtag = 'KW-1'"_s);
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recordedValue(u"C2307"_s), u"NULL"_s);
}

TEST_F(TorqueUpload, ADatabaseThatIsLostDuringTheWorkEndsTheUploadBeforeTheToolIsTakenOff) {
    addUsedCalibrator(1, {u"100"_s});
    holdResults({{100}});
    peer.reply = [this, inner = peer.reply](const QByteArray& body) {
        if (body == "T1F")
            script.lost = true;
        return inner(body);
    };
    for (const auto& routine : {u"GetInUseData"_s, u"GetInUseData"_s})
        ui.expectReport(10054, u"ModuleGlobals,"_s + routine);
    EXPECT_EQ(upload(), text(TextId::connectionLostAdvice));
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_FALSE(ui.busy);
    EXPECT_EQ(conversation().last(), u"T1F"_s) << "nothing is removed";
    const auto left = Journal(session).unfinished();
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(left[0].readings, QStringList{u"1: 100"_s});
    EXPECT_EQ(left[0].date + u' ' + left[0].time, u"2026-03-18 09:30:05"_s);
}

TEST_F(TorqueUpload, AConnectionLostInTheRecordEndsTheUploadBeforeTheToolIsTakenOff) {
    addUsedCalibrator(2, {u"100"_s});
    holdResults({{100}});
    script.failures[selectMtag(u"W-1"_s)] = Error{10054, u"Connection lost"_s, u"08S01"_s, true};
    for (const auto& routine : {u"CheckAsset"_s, u"SourceColumn"_s, u"SourceColumn"_s})
        ui.expectReport(10054, u"ModuleGlobals,"_s + routine);
    ui.expectReport(5, u"ModuleGlobals,calcDueDate"_s); // an empty unit
    EXPECT_EQ(upload(), text(TextId::connectionLostAdvice));
    EXPECT_EQ(recordedAssets(), QStringList());
    EXPECT_FALSE(conversation().contains(u"T1J"_s));
    EXPECT_EQ(Journal(session).unfinished().size(), 1);
}

TEST_F(TorqueUpload, AToolWhosePreparationFailsStaysOnTheCalibratorAndTheNextIsRead) {
    const Error refused{208, u"Invalid object"_s, u"42S02"_s};
    const struct {
        QString statement;
        QString routine;
        int readings;
    } reads[] = {{selectParams(u"W-1"_s), u"GetCalParams"_s, 1},
                 {selectPointList(u"W-1"_s), u"GetTestPointList"_s, 0},
                 {selectInUseData(u"12345678"_s, u"KW-1"_s), u"GetInUseData"_s, 1},
                 {selectStandards(u"W-1"_s), u"GetInUseData"_s, 1}};
    for (const auto& read : reads) {
        SCOPED_TRACE(read.statement.toStdString());
        peer.received.clear();
        script.statements.clear();
        replies.clear();
        addUsedCalibrator(2, {u"100"_s});
        if (read.readings != 0)
            holdResults({{100}});
        else
            replies["T1C"] << holdsData;
        replies["T1C"] << holdsData;
        holdResults({{100}});
        replies["T1C"].removeFirst(); // the one that stays is not selected for its removal
        if (read.readings == 0)
            replies["T1F"].prepend(noComment);
        script.failures = {{read.statement, refused}};
        ui.expectReport(208, u"ModuleGlobals,"_s + read.routine);
        EXPECT_EQ(upload(), QString());
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_EQ(recordedAssets(), QStringList{u"W-2"_s});
        EXPECT_EQ(conversation().count(u"T1J"_s), 1) << "W-2 alone is taken off";
        EXPECT_FALSE(conversation().contains(u"T2E KVTASK"_s));
        EXPECT_FALSE(isCleared()) << "W-1 must come up again";
        const auto left = Journal(session).unfinished();
        ASSERT_FALSE(left.isEmpty());
        EXPECT_EQ(left.last().asset, u"W-1"_s);
        EXPECT_EQ(left.last().readings.size(), read.readings);
    }
}

TEST_F(TorqueUpload, AToolWhoseKeyOrDueDateCantBeReadStaysOnTheCalibrator) {
    const Error refused{208, u"Invalid object"_s, u"42S02"_s};
    const struct {
        QString statement;
        QString routine;
    } reads[] = {{selectMtag(u"W-1"_s), u"CheckAsset"_s},
                 {u"select dayofweek from mt.nonworkdays"_s, u"calcDueDate"_s}};
    for (const auto& read : reads) {
        SCOPED_TRACE(read.statement.toStdString());
        peer.received.clear();
        script.statements.clear();
        addUsedCalibrator(1, {u"100"_s});
        holdResults({{100}});
        replies["T1C"].removeLast(); // it is not selected for its removal
        script.failures = {{read.statement, refused}};
        ui.expectReport(208, u"ModuleGlobals,"_s + read.routine);
        EXPECT_EQ(upload(), QString());
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_EQ(recordedAssets(), QStringList());
        EXPECT_FALSE(conversation().contains(u"T1J"_s));
        EXPECT_FALSE(isCleared());
        EXPECT_FALSE(Journal(session).unfinished().isEmpty());
    }
}

TEST_F(TorqueUpload, AListThatCantBeReadEndsTheUploadBeforeAnythingIsCleared) {
    addUsedCalibrator(1, {u"100"_s});
    script.failures[selectInUse(u"12345678"_s)] = Error{208, u"Invalid object"_s, u"42S02"_s};
    ui.expectReport(208, u"ModuleGlobals,GetAssetsInTaskPackage"_s);
    EXPECT_EQ(
        upload(),
        u"The list of instruments could not be read from the database. Nothing was removed from the calibrator."_s);
    EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0D"_s}));
    EXPECT_EQ(writes(), QStringList());
    script.failures[selectInUse(u"12345678"_s)].connectionLost = true;
    ui.expectReport(208, u"ModuleGlobals,GetAssetsInTaskPackage"_s);
    EXPECT_EQ(upload(), text(TextId::connectionLostAdvice));
}

TEST_F(TorqueUpload, AJournalThatCantBeWrittenEndsTheUploadBeforeTheToolIsTakenOff) {
    addUsedCalibrator(2, {u"100"_s});
    holdResults({{100}});
    ASSERT_TRUE(QDir().mkdir(Journal(session).path()));
    EXPECT_TRUE(upload().startsWith(u"The results of W-1 could not be written to the disk:"_s));
    EXPECT_EQ(recordedAssets(), QStringList());
    EXPECT_EQ(conversation().last(), u"T1F"_s);
    EXPECT_FALSE(isCleared());
}

TEST_F(TorqueUpload, AReportInTheRecordKeepsTheEntryAndTheStepsGoOn) {
    addUsedCalibrator(2, {u"100"_s});
    holdResults({{100}});
    holdResults({{100}});
    script.failures
        [u"select c2301 from MT.calibration where c2301 = '2026-03-18' and c2333 = '09:30:05' and mtag = 'KW-1'"_s] =
        Error{208, u"Invalid object"_s, u"42S02"_s};
    ui.expectReport(208, u"ModuleGlobals,CreateCalRecord"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recordedAssets(), QStringList{u"W-2"_s});
    EXPECT_EQ(conversation().count(u"T1J"_s), 2);
    EXPECT_TRUE(isCleared());
    const auto left = Journal(session).unfinished();
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(left[0].asset, u"W-1"_s);
    EXPECT_TRUE(left[0].prepared);
}

TEST_F(TorqueUpload, TheStatusLineNamesTheToolBeingReadAndIsClearedAtTheEnd) {
    addUsedCalibrator(2, {u"100"_s});
    holdResults({{100}});
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(ui.activities, (QStringList{u"Reading the results of W-1 (1 of 2)"_s,
                                          u"Reading the results of W-2 (2 of 2)"_s, QString()}));
}

TEST_F(TorqueUpload, StatementsAndPollsForEachToolStayTheSameFromTheFirstToTheFortySeventh) {
    addUsedCalibrator(47, {u"20"_s, u"60"_s, u"100"_s});
    for (int i = 0; i < 47; ++i)
        holdResults({{20}, {60}, {100}});
    QList<qsizetype> statements;
    QList<int> polls;
    peer.reply = [this, &statements, &polls, inner = peer.reply](const QByteArray& body) {
        if (body == "T1J") {
            statements << script.statements.size();
            polls << port.polls;
        }
        return inner(body);
    };
    EXPECT_EQ(upload(), QString());
    ASSERT_EQ(statements.size(), 47);
    for (int i = 2; i < 47; ++i) {
        EXPECT_EQ(statements[i] - statements[i - 1], statements[1] - statements[0]) << i;
        EXPECT_EQ(polls[i] - polls[i - 1], polls[1] - polls[0]) << i;
    }
}

} // namespace kelvane::testing
