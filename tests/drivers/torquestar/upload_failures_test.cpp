#include "tests/drivers/torquestar/upload_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(TorqueUpload, ALinkThatFailsBeforeTheListChangesNothing) {
    addUsed(1, {u"100"_s});
    replies["T0A"] << std::nullopt << QByteArray("t0a!");
    EXPECT_EQ(upload(), timeout);
    EXPECT_EQ(upload(), u"Communications with calibrator failed!"_s);
    replies["T0D"] << std::nullopt;
    EXPECT_EQ(upload(), timeout);
    EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0A"_s, u"T0A"_s, u"T0D"_s}));
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(TorqueUpload, ACalibratorWithoutARecordIsAFailureAndChangesNothing) {
    addUsed(1, {u"100"_s});
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
    addUsed(3, {u"100"_s});
    replies["T1C"] << holdsNothing;
    holdResults({{100}});
    replies["T1C"] << QByteArray("t??\x02");
    EXPECT_EQ(upload(), u"The Following Assets Contained NO DATA:\r\n, W-1, W-3"_s);
    EXPECT_EQ(recordedAssets(), QStringList{u"W-2"_s});
    EXPECT_TRUE(isCleared());
}

TEST_F(TorqueUpload, AllWithoutDataGiveTheirListAndNoRecord) {
    addUsed(1, {u"100"_s});
    replies["T1C"] << holdsNothing;
    EXPECT_EQ(upload(), u"The Following Assets Contained NO DATA:\r\n, W-1"_s);
    EXPECT_EQ(recordedAssets(), QStringList());
    EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0D"_s, u"T1C W-1"_s, u"T2E KVTASK"_s}));
}

TEST_F(TorqueUpload, OnlyAReplyThatBeginsWithTAndEndsInTheMarkMeansNoData) {
    for (const auto& reply : {QByteArray("x1C\x02"), QByteArray("t1C\x02.")}) {
        script.statements.clear();
        addUsed(1, {u"100"_s});
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
    for (const auto& one : cases) {
        peer.heard.clear();
        script.statements.clear();
        replies.clear();
        addUsed(3, {u"50"_s, u"100"_s});
        for (int i = 0; i < 3; ++i)
            holdResults({{50}, {100}});
        replies[one.message].insert(one.good, std::nullopt);
        EXPECT_EQ(upload(), timeout);
        EXPECT_EQ(conversation().last(one.lastOfTalk.size()), one.lastOfTalk);
        EXPECT_EQ(recordedAssets(), QStringList{u"W-1"_s});
        EXPECT_EQ(conversation().count(u"T1J"_s), 1);
        EXPECT_FALSE(isCleared()) << "the registry stays whole";
        EXPECT_FALSE(conversation().contains(u"T2E KVTASK"_s)) << "the round stays";
    }
}

TEST_F(TorqueUpload, TheSelectionBeforeEachResultIsNotLookedAt) {
    addUsed(1, {u"100"_s});
    replies["T1C"] << holdsData << std::nullopt << std::nullopt;
    replies["T1D"] << result(date, time, {100});
    replies["T1J"] << std::nullopt;
    replies["T2E"] << std::nullopt;
    replies["T1F"] << noComment;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recordedAssets(), QStringList{u"W-1"_s});
}

TEST_F(TorqueUpload, ARecordThatIsRefusedIsShownAndItsResultsAreLostAllTheSame) {
    addUsed(2, {u"100"_s});
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
    addUsed(2, {u"50"_s, u"100"_s});
    addPoints(u"W-2"_s, {u"100"_s}, 1);
    addStandards(u"W-2"_s, {u"X-2"_s});
    session.RecordResults[0] = u"left over"_s;
    session.RecordStandards[7] = u"left over"_s;
    holdResults({{50}, {100}});
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(resultLines(),
              (QStringList{u"1 50.0ft/lb PASS"_s, u"2 100.0ft/lb PASS"_s, u"1 100.0ft/lb PASS"_s}));
    EXPECT_EQ(writes().filter(u"insert into mt.standards"_s).size(), 2 + 1);
}

TEST_F(TorqueUpload, FiftyOneStandardsAreCopied) {
    addUsed(1, {u"100"_s});
    QStringList standards;
    while (standards.size() < 51)
        standards << u"S-%1"_s.arg(standards.size());
    addStandards(u"W-1"_s, standards);
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(writes().filter(u"insert into mt.standards"_s).size(), 51);
}

TEST_F(TorqueUpload, TheFiftySecondStandardIsReportedAndNoneIsCopied) {
    addUsed(1, {u"100"_s});
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
    addUsed(1, {u"100"_s});
    session.ResultTemplateLine.clear();
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_TRUE(writes()[3].startsWith(u"insert into mt.calresults (c2501,c2502,mtag,ctag) values ('"_s +
                                       QString(120, u' ') + u'\''));
}

TEST_F(TorqueUpload, ARegistryRowThatIsGoneGivesNoTechnician) {
    addUsed(1, {u"100"_s});
    script.answers.remove(
        u"select serial_number,entered_date,mtag,tech from mt.hvm_kv_task_inuse where serial_number = '12345678' and mtag = 'KW-1'"_s);
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recorded(u"C2307"_s), u"NULL"_s);
}

TEST_F(TorqueUpload, AnotherScreenThatFillsTheAssetListMeanwhileDoesNoHarm) {
    addUsed(3, {u"100"_s});
    for (int i = 0; i < 3; ++i)
        holdResults({{100}});
    peer.reply = [this, inner = peer.reply](const QByteArray& body) {
        if (body == "T1F") {
            session.AssetList.erase();
            session.AssetList[1].asset = u"other"_s;
        }
        return inner(body);
    };
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recordedAssets(), (QStringList{u"W-1"_s, u"W-2"_s, u"W-3"_s}));
}

TEST_F(TorqueUpload, ADatabaseThatIsLostInMidWorkIsReportedAndTheUploadLives) {
    addUsed(1, {u"100"_s});
    holdResults({{100}});
    peer.reply = [this, inner = peer.reply](const QByteArray& body) {
        if (body == "T1F")
            script.lost = true;
        return inner(body);
    };
    for (const auto& routine : {u"GetInUseData"_s, u"GetInUseData"_s, u"CheckAsset"_s})
        ui.expectReport(10054, u"ModuleGlobals,"_s + routine);
    ui.expectReport(10054, u"ModuleGlobals,SourceColumn"_s);
    ui.expectReport(10054, u"ModuleGlobals,SourceColumn"_s);
    ui.expectReport(5, u"ModuleGlobals,calcDueDate"_s); // an empty unit
    ui.expectReport(10054, u"ModuleGlobals,CreateCalRecord"_s);
    ui.expectReport(10054, u"ModuleGlobals,AssetfromSerial"_s);
    ui.expectReport(10054, u"ModuleGlobals,CheckAsset"_s);
    ui.expectReport(10054, u"ModuleGlobals,ClearInUse"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_FALSE(ui.busy);
}

TEST_F(TorqueUpload, StatementsAndLooksForEachToolStayTheSameFromTheFirstToTheFortySeventh) {
    addUsed(47, {u"20"_s, u"60"_s, u"100"_s});
    for (int i = 0; i < 47; ++i)
        holdResults({{20}, {60}, {100}});
    QList<qsizetype> statements;
    QList<int> looks;
    peer.reply = [this, &statements, &looks, inner = peer.reply](const QByteArray& body) {
        if (body == "T1J") {
            statements << script.statements.size();
            looks << port.looks;
        }
        return inner(body);
    };
    EXPECT_EQ(upload(), QString());
    ASSERT_EQ(statements.size(), 47);
    for (int i = 2; i < 47; ++i) {
        EXPECT_EQ(statements[i] - statements[i - 1], statements[1] - statements[0]) << i;
        EXPECT_EQ(looks[i] - looks[i - 1], looks[1] - looks[0]) << i;
    }
}

} // namespace kelvane::testing
