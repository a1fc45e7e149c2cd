#include "tests/drivers/torquestar/torque_shop.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleTSInterface;

namespace {

const QString timeout = u"Communications Timeout on Command Acknowledgement"_s;
const QByteArray holdsData = "t1C";
const QByteArray holdsNothing = "t1C\x02";
const QByteArray noComment = "t1F.";
constexpr qint32 date = 20260318;
constexpr qint32 time = 93005;

/// The fields that a site's dictionary may ask for; the upload fills the first ten.
const QStringList allFields{u"C2301"_s, u"C2333"_s, u"C2326"_s, u"C2323"_s, u"C2352"_s,
                            u"C2350"_s, u"C2320"_s, u"C2308"_s, u"C2329"_s, u"C2307"_s,
                            u"C2302"_s, u"C2331"_s, u"C2303"_s};

} // namespace

class TorqueUpload : public TorqueShop {
  protected:
    TorqueUpload() {
        addCalibrator();
        addDictionary(allFields);
        session.ResultTemplateLine = u"TN$ FRE$         TR$"_s;
    }

    QString upload() { return TorqueStar_upload(driver); }

    void addDictionary(const QStringList& columns) {
        QList<Row> rows;
        for (const auto& one : columns)
            rows << Row{one, u"Title"_s, {}, {}, {}, {}, {}, {}, {}, {}, {}};
        script.answers.insert(
            u"select datacol,title,idefault,ireq,sreq,sdefault,scopy,dcopy,validation,datalen,tooltip from mt.customiz where fldnum like '23%' and (suppressed <> 'Y' or fldnum = '2331' or fldnum = '2302' or fldnum = '2308' or fldnum = '2303' or fldnum = '2301' or fldnum = '2307') order by row,nextfld asc"_s,
            rows);
    }

    /// Wrenches "W-1" to "W-n" in use with the calibrator, each with these points (in percent) and samples a
    /// point, sent by "asmith", with the transducer and the calibrator as standards.
    void addUsed(int count, const QStringList& points, qint16 repetitions = 1) {
        QStringList assets;
        for (int i = 1; i <= count; ++i) {
            const auto asset = u"W-%1"_s.arg(i);
            assets << asset;
            auto tool = wrench();
            tool.repetitions = repetitions;
            addInstrument(asset, u'K' + asset, tool);
            addPoints(asset, points, repetitions);
            addStandards(asset, {u"X-1"_s, u"TS-01"_s});
            script.answers.insert(
                u"select serial_number,entered_date,mtag,tech from mt.hvm_kv_task_inuse where serial_number = '12345678' and mtag = 'K"_s +
                    asset + u'\'',
                {{u"12345678"_s, u"2026-03-01 08:00:00"_s, u'K' + asset, u"asmith"_s}});
            script.answers.insert(u"select count(ctag) from MT.calibration where mtag = "_s + mtagOf(asset),
                                  {{u"0"_s}});
            script.answers.insert(u"select I4229 from MT.inventory where i4201 = '"_s + asset + u'\'',
                                  {{u"12"_s}});
            script.answers.insert(u"select I4228 from MT.inventory where i4201 = '"_s + asset + u'\'',
                                  {{u"M"_s}});
        }
        addInUse(assets);
    }

    void addPoints(const QString& asset, const QStringList& points, int repetitions) {
        QList<Row> rows;
        for (const auto& one : points)
            rows << Row{one};
        script.answers.insert(selectPoints(asset) + u" order by test_point_seq asc"_s, rows);
        script.answers.insert(u"select repetitions from mt.hvm_kv_tag_config where mtag = "_s + mtagOf(asset),
                              {{QString::number(repetitions)}});
    }

    /// The calibrator holds one result a point for an instrument, then its comment.
    void holdResults(const QList<QList<double>>& samples, const QByteArray& comment = noComment) {
        for (qsizetype i = 0; i < samples.size() + 2; ++i)
            replies["T1C"] << holdsData;
        for (const auto& one : samples)
            replies["T1D"] << result(date, time, one);
        replies["T1F"] << comment;
    }

    /// The value that the record of an instrument got in a column, out of the insert.
    QString recorded(const QString& column, const QString& asset = u"W-1"_s) const {
        for (const auto& one : writes()) {
            if (!one.startsWith(u"insert into MT.calibration "_s) || !one.contains(u"'K"_s + asset + u"',"_s))
                continue;
            const auto columns = one.section(u'(', 1, 1).section(u')', 0, 0).split(u',');
            const auto values = one.section(u"values ("_s, 1).split(u',');
            return values.value(columns.indexOf(column));
        }
        return u"no record"_s;
    }

    QStringList recordedAssets() const {
        QStringList assets;
        for (const auto& one : writes()) {
            if (one.startsWith(u"insert into MT.calibration "_s))
                assets << one.section(u"'K"_s, 1).section(u'\'', 0, 0);
        }
        return assets;
    }

    QStringList resultLines() const {
        QStringList lines;
        for (const auto& one : writes()) {
            if (one.startsWith(u"insert into mt.calresults "_s))
                lines << one.section(u'\'', 1, 1).simplified();
        }
        return lines;
    }

    bool isCleared() const {
        return writes().contains(
            u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = '12345678';commit"_s);
    }
};

TEST_F(TorqueUpload, OneInstrumentIsReadJudgedRecordedAndTakenOffTheCalibrator) {
    addUsed(1, {u"20"_s, u"60"_s, u"100"_s});
    holdResults({{20.1}, {60}, {99}}, "t1Fdone by hand!");
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(conversation(),
              (QStringList{u"T0A"_s, u"T0D"_s, u"T1C W-1"_s, u"T1C W-1"_s, u"T1D"_s, u"T1C W-1"_s, u"T1D"_s,
                           u"T1C W-1"_s, u"T1D"_s, u"T1F"_s, u"T1C W-1"_s, u"T1J"_s, u"T2E KVTASK"_s}));
    EXPECT_EQ(peer.heard.last(), "T2EKVTASK=PC\xFF");
    const auto record = u"(select ctag from MT.calibration where mtag = 'KW-1' and c2339 = 1)"_s;
    const auto line = [](const QString& text) { return text.leftJustified(120); };
    const QStringList expected{
        u"insert into MT.calibration (C2301,C2333,C2326,C2323,C2352,C2350,C2320,C2308,C2329,C2307,C2302,C2331,C2303,mtag,cdsrc) values ('2026-03-18','09:30:05','done by hand','Y','0','0','TORQUE 20-60-100','FOUND-LEFT',NULL,'asmith','12','M','03/18/2027','KW-1','KVN');commit"_s,
        u"insert into mt.standards (c2430,mtag,ctag) values ("_s + mtagOf(u"X-1"_s) + u",'KW-1',"_s + record +
            u");commit"_s,
        u"insert into mt.standards (c2430,mtag,ctag) values ("_s + mtagOf(u"TS-01"_s) + u",'KW-1',"_s +
            record + u");commit"_s,
        u"insert into mt.calresults (c2501,c2502,mtag,ctag) values ('"_s + line(u"  1  20.1ft/lb   PASS"_s) +
            u"','0','KW-1',"_s + record + u");commit"_s,
        u"insert into mt.calresults (c2501,c2502,mtag,ctag) values ('"_s + line(u"  2  60.0ft/lb   PASS"_s) +
            u"','1','KW-1',"_s + record + u");commit"_s,
        u"insert into mt.calresults (c2501,c2502,mtag,ctag) values ('"_s + line(u"  3  99.0ft/lb   PASS"_s) +
            u"','2','KW-1',"_s + record + u");commit"_s,
        u"update MT.inventory set I4224 = NULL where i4201 = 'W-1';commit"_s,
        u"update MT.inventory set I4225 = NULL where i4201 = 'W-1';commit"_s,
        u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = '12345678';commit"_s,
        u"delete from mt.hvm_kv_task_standards_inuse where entered_date < now(*) - 30 or standard_mtag = '900';commit"_s,
    };
    EXPECT_EQ(writes(), expected);
    EXPECT_EQ(ui.events.first(), u"busy"_s);
    EXPECT_EQ(ui.events.last(), u"normal"_s);
}

TEST_F(TorqueUpload, FailuresAndMarginalPointsAreCounted) {
    // At 100 ft/lb the limits are 96 and 104; at 50 they are 48 and 52.
    addUsed(1, {u"100"_s, u"100"_s, u"100"_s, u"50"_s, u"50"_s});
    holdResults({{104.1}, {103}, {95.9}, {51.5}, {50}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recorded(u"C2352"_s), u"'2'"_s);
    EXPECT_EQ(recorded(u"C2350"_s), u"'2'"_s);
    EXPECT_EQ(recorded(u"C2323"_s), u"'N'"_s);
    EXPECT_EQ(recorded(u"C2308"_s), u"'AS-FOUND'"_s);
    EXPECT_EQ(resultLines(),
              (QStringList{u"1 104.1ft/lb FAIL"_s, u"2 103.0ft/lb PASS"_s, u"3 95.9ft/lb FAIL"_s,
                           u"4 51.5ft/lb PASS"_s, u"5 50.0ft/lb PASS"_s}));
}

TEST_F(TorqueUpload, CountsStartAnewForEachInstrument) {
    addUsed(2, {u"100"_s});
    holdResults({{110}});
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recorded(u"C2352"_s, u"W-1"_s), u"'1'"_s);
    EXPECT_EQ(recorded(u"C2352"_s, u"W-2"_s), u"'0'"_s);
    EXPECT_EQ(recorded(u"C2323"_s, u"W-2"_s), u"'Y'"_s);
    EXPECT_EQ(resultLines(), (QStringList{u"1 110.0ft/lb FAIL"_s, u"1 100.0ft/lb PASS"_s}));
}

TEST_F(TorqueUpload, OnlyAsManySamplesCountAsTheInstrumentHasRepetitions) {
    addUsed(1, {u"100"_s}, 3);
    // Each point stands three times in the list, and each entry is read by itself.
    holdResults({{99, 100, 101.5, 500, 500}, {100, 100, 100}, {102, 102, 102, 0, 0}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(resultLines(),
              (QStringList{u"1 100.2ft/lb PASS"_s, u"2 100.0ft/lb PASS"_s, u"3 102.0ft/lb PASS"_s}));
    EXPECT_EQ(conversation().count(u"T1D"_s), 3);
}

TEST_F(TorqueUpload, SamplesThatDidNotComeCountAsZero) {
    addUsed(1, {u"100"_s}, 2);
    holdResults({{100}, {}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(resultLines(), (QStringList{u"1 50.0ft/lb FAIL"_s, u"2 0.0ft/lb FAIL"_s}));
}

TEST_F(TorqueUpload, ASampleOfFewerThanFourBytesIsReportedAndCountsAsZero) {
    addUsed(1, {u"100"_s});
    for (int i = 0; i < 3; ++i)
        replies["T1C"] << holdsData;
    replies["T1D"] << result(date, time, {}) + "\x01\x02\x03";
    replies["T1F"] << noComment;
    ui.expectReport(5, u"ModuleTSInterface,Conv2Double"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(resultLines(), QStringList{u"1 0.0ft/lb FAIL"_s});
}

TEST_F(TorqueUpload, AHundredAndOneSamplesAreKeptAndMoreAreOutOfRange) {
    QList<double> samples(101, 100.0);
    samples << 700;
    addUsed(1, {u"100"_s}, 101);
    addPoints(u"W-1"_s, {u"100"_s}, 1);
    holdResults({samples});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(resultLines(), QStringList{u"1 100.0ft/lb PASS"_s});

    auto tool = wrench();
    tool.repetitions = 102;
    addInstrument(u"W-1"_s, u"KW-1"_s, tool);
    script.statements.clear();
    holdResults({samples});
    ui.expectReport(9, u"ModuleTSInterface,TorqueStar_upload"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(writes(), QStringList());
    EXPECT_EQ(ui.events.last(), u"normal"_s);
}

TEST_F(TorqueUpload, NoRepetitionsAtAllAreADivisionByZero) {
    addUsed(1, {u"100"_s}, 0);
    addPoints(u"W-1"_s, {u"100"_s}, 1);
    holdResults({{100}});
    ui.expectReport(11, u"ModuleTSInterface,TorqueStar_upload"_s);
    EXPECT_EQ(upload(), QString());
}

TEST_F(TorqueUpload, TheNominalInputLiesBetweenTheEndsOfTheRange) {
    addUsed(1, {u"50"_s});
    auto tool = wrench();
    tool.repetitions = 1;
    tool.input_low = 20;
    tool.output_low = 20;
    tool.tp_name = u"HALF"_s;
    addInstrument(u"W-1"_s, u"KW-1"_s, tool);
    session.ResultTemplateLine = u"FVA$          FN$"_s;
    holdResults({{60}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(resultLines(), QStringList{u"60.0ft/lb 60.0ft/lb"_s});
    EXPECT_EQ(recorded(u"C2320"_s), u"'HALF'"_s);
}

TEST_F(TorqueUpload, TheDateAndTimeAreThoseOfTheLastResult) {
    addUsed(1, {u"50"_s, u"100"_s});
    for (int i = 0; i < 4; ++i)
        replies["T1C"] << holdsData;
    replies["T1D"] << result(20260317, 101500, {50}) << result(20260319, 235959, {100});
    replies["T1F"] << noComment;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recorded(u"C2301"_s), u"'2026-03-19'"_s);
    EXPECT_EQ(recorded(u"C2333"_s), u"'23:59:59'"_s);
}

TEST_F(TorqueUpload, RemarksFollowTheCommandLineFlagTheCommentAndTheFailures) {
    const auto verified = u"'UNIT PASSES PERFORMANCE VERIFICATION'"_s;
    const auto received = u"'UNIT WAS RECEIVED IN TOLERANCE'"_s;
    const auto none = u"NULL"_s;
    const struct {
        bool flag;
        QByteArray comment;
        double reading;
        QString c2326, c2329;
    } cases[] = {
        {false, "", 100, none, none},
        {false, "seen", 100, u"'seen'"_s, none},
        {false, "seen", 200, u"'seen'"_s, none},
        {true, "", 100, verified, received},
        {true, "", 200, verified, none},
        {true, "seen", 100, none, received},
        {true, "seen", 200, none, none},
    };
    int number = 0;
    for (const auto& one : cases) {
        script.statements.clear();
        addUsed(1, {u"100"_s});
        session.CommandLineFlag = one.flag;
        holdResults({{one.reading}}, "t1F" + one.comment + '.');
        EXPECT_EQ(upload(), QString());
        EXPECT_EQ(recorded(u"C2326"_s), one.c2326) << "row " << number;
        EXPECT_EQ(recorded(u"C2329"_s), one.c2329) << "row " << number;
        ++number;
    }
}

TEST_F(TorqueUpload, AnEmptyCommentOverwritesADefaultWithTheFlagOffAndLeavesItWithTheFlagOnWhenThereIsOne) {
    addUsed(1, {u"100"_s});
    script.answers.insert(script.answers.keys().filter(u"select datacol"_s).first(),
                          {{u"C2301"_s, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}},
                           {u"C2326"_s, {}, u"default"_s, {}, {}, u"default"_s, {}, {}, {}, {}, {}}});
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recorded(u"C2326"_s), u"NULL"_s);
    session.CommandLineFlag = true;
    script.statements.clear();
    holdResults({{100}}, "t1Fseen.");
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recorded(u"C2326"_s), u"'default'"_s);
}

TEST_F(TorqueUpload, ACommentComesInWindowsBytesWithoutTheLastCharacterOfTheReply) {
    addUsed(1, {u"100"_s});
    holdResults({{100}}, "t1F5 \x80 f\xFCr 'Kl\x10ng'\xFF");
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recorded(u"C2326"_s), u"'5 € für ''Kl\x10ng'''"_s);
}

TEST_F(TorqueUpload, AReplyToTheCommentOfFewerThanFourCharactersIsAnInvalidArgument) {
    addUsed(1, {u"100"_s});
    holdResults({{100}}, "t1F");
    ui.expectReport(5, u"ModuleTSInterface,TorqueStar_upload"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(writes(), QStringList());
}

TEST_F(TorqueUpload, OnlyFieldsOfTheDictionaryAreWrittenAndTheirNamesCompareIgnoringCase) {
    addUsed(1, {u"100"_s});
    addDictionary({u"c2301"_s, u"C2340"_s, u"c2307"_s, u"C2399"_s});
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(
        writes().first(),
        u"insert into MT.calibration (c2301,c2307,C2399,mtag,cdsrc) values ('2026-03-18','asmith',NULL,'KW-1','KVN');commit"_s);
}

TEST_F(TorqueUpload, AFullFieldTableIsReadToItsLastRow) {
    addUsed(1, {u"100"_s});
    QStringList columns{u"C2301"_s};
    while (columns.size() < 100)
        columns << u"X%1"_s.arg(columns.size());
    addDictionary(columns << u"C2307"_s);
    ASSERT_EQ(columns.size(), 101);
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recorded(u"C2307"_s), u"'asmith'"_s);
}

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
    addStandards(u"W-2"_s, {u"TS-01"_s});
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
