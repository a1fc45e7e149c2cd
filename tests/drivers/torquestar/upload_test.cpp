#include "testkit/shown_in.h"
#include "tests/drivers/torquestar/upload_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(TorqueUpload, OneInstrumentIsReadJudgedRecordedAndTakenOffTheCalibrator) {
    addUsedCalibrator(1, {u"20"_s, u"60"_s, u"100"_s});
    holdResults({{20.1}, {60}, {99}}, "t1Fdone by hand!");
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(conversation(),
              (QStringList{u"T0A"_s, u"T0D"_s, u"T1C W-1"_s, u"T1C W-1"_s, u"T1D"_s, u"T1C W-1"_s, u"T1D"_s,
                           u"T1C W-1"_s, u"T1D"_s, u"T1F"_s, u"T1C W-1"_s, u"T1J"_s, u"T2E KVTASK"_s}));
    EXPECT_EQ(peer.received.last(), "T2EKVTASK=PC\xFF");
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
    addUsedCalibrator(1, {u"100"_s, u"100"_s, u"100"_s, u"50"_s, u"50"_s});
    holdResults({{104.1}, {103}, {95.9}, {51.5}, {50}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recordedValue(u"C2352"_s), u"'2'"_s);
    EXPECT_EQ(recordedValue(u"C2350"_s), u"'2'"_s);
    EXPECT_EQ(recordedValue(u"C2323"_s), u"'N'"_s);
    EXPECT_EQ(recordedValue(u"C2308"_s), u"'AS-FOUND'"_s);
    EXPECT_EQ(resultLines(),
              (QStringList{u"1 104.1ft/lb FAIL"_s, u"2 103.0ft/lb PASS"_s, u"3 95.9ft/lb FAIL"_s,
                           u"4 51.5ft/lb PASS"_s, u"5 50.0ft/lb PASS"_s}));
}

TEST_F(TorqueUpload, CountsStartAnewForEachInstrument) {
    addUsedCalibrator(2, {u"100"_s});
    holdResults({{110}});
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recordedValue(u"C2352"_s, u"W-1"_s), u"'1'"_s);
    EXPECT_EQ(recordedValue(u"C2352"_s, u"W-2"_s), u"'0'"_s);
    EXPECT_EQ(recordedValue(u"C2323"_s, u"W-2"_s), u"'Y'"_s);
    EXPECT_EQ(resultLines(), (QStringList{u"1 110.0ft/lb FAIL"_s, u"1 100.0ft/lb PASS"_s}));
}

TEST_F(TorqueUpload, OnlyAsManySamplesCountAsTheInstrumentHasRepetitions) {
    addUsedCalibrator(1, {u"100"_s}, 3);
    // Each point stands three times in the list, and each entry is read by itself.
    holdResults({{99, 100, 101.5, 500, 500}, {100, 100, 100}, {102, 102, 102, 0, 0}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(resultLines(),
              (QStringList{u"1 100.2ft/lb PASS"_s, u"2 100.0ft/lb PASS"_s, u"3 102.0ft/lb PASS"_s}));
    EXPECT_EQ(conversation().count(u"T1D"_s), 3);
}

TEST_F(TorqueUpload, SamplesThatDidNotComeCountAsZero) {
    addUsedCalibrator(1, {u"100"_s}, 2);
    holdResults({{100}, {}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(resultLines(), (QStringList{u"1 50.0ft/lb FAIL"_s, u"2 0.0ft/lb FAIL"_s}));
}

TEST_F(TorqueUpload, ASampleOfFewerThanFourBytesIsReportedAndMakesNoRecord) {
    addUsedCalibrator(1, {u"100"_s});
    for (const QByteArray& rest : {QByteArray("\x01"), QByteArray("\x01\x02"), QByteArray("\x01\x02\x03")}) {
        script.statements.clear();
        for (int i = 0; i < 2; ++i)
            replies["T1C"] << holdsData;
        replies["T1D"] << result(date, time, {}) + rest;
        replies["T1F"] << noComment;
        ui.expectReport(5, u"ModuleTSInterface,Conv2Double"_s);
        EXPECT_EQ(upload(), QString());
        EXPECT_TRUE(ui.hasMetAll()) << rest.size();
        EXPECT_EQ(resultLines(), QStringList());
        EXPECT_FALSE(conversation().contains(u"T1J"_s));
    }
}

TEST_F(TorqueUpload, AHundredAndOneSamplesAreKeptAndMoreAreOutOfRange) {
    QList<double> samples(101, 100.0);
    samples << 700;
    addUsedCalibrator(1, {u"100"_s}, 101);
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
    addUsedCalibrator(1, {u"100"_s}, 0);
    addPoints(u"W-1"_s, {u"100"_s}, 1);
    holdResults({{100}});
    ui.expectReport(11, u"ModuleTSInterface,TorqueStar_upload"_s);
    EXPECT_EQ(upload(), QString());
}

TEST_F(TorqueUpload, TheNominalInputLiesBetweenTheEndsOfTheRange) {
    addUsedCalibrator(1, {u"50"_s});
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
    EXPECT_EQ(recordedValue(u"C2320"_s), u"'HALF'"_s);
}

TEST_F(TorqueUpload, TheNominalInputIsWorkedOutInSixtyFourBits) {
    addUsedCalibrator(1, {u"50"_s});
    auto tool = wrench();
    tool.repetitions = 1;
    tool.input_low = 0.5F;
    tool.input_high = 16777216; // less a half, it is no 32-bit number
    addInstrument(u"W-1"_s, u"KW-1"_s, tool);
    session.ResultTemplateLine = u"FVA$"_s;
    holdResults({{50}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(resultLines(), QStringList{u"8388608.3ft/lb"_s});
}

TEST_F(TorqueUpload, EachToleranceTermRangeAndUnitHasItsPlaceInTheJudgement) {
    // Half of 20 to 220 in/lb is 120, which 100 to 500 ft/lb make 300.
    addUsedCalibrator(1, {u"50"_s});
    session.ResultTemplateLine = u"FVA$         FRE$         FLL$     FUL$"_s;
    const struct {
        float CalParamRecord::*positive;
        float CalParamRecord::*negative;
        QString limits;
    } terms[] = {
        {&CalParamRecord::pos_fs_range_pct, &CalParamRecord::neg_fs_range_pct, u"285.0 310.0"_s},
        {&CalParamRecord::pos_span_pct, &CalParamRecord::neg_span_pct, u"288.0 308.0"_s},
        {&CalParamRecord::pos_reading_pct, &CalParamRecord::neg_reading_pct, u"291.0 306.0"_s},
        {&CalParamRecord::pos_lsd_counts, &CalParamRecord::neg_lsd_counts, u"299.7 300.2"_s},
        {&CalParamRecord::pos_units, &CalParamRecord::neg_units, u"297.0 302.0"_s},
    };
    for (const auto& term : terms) {
        CalParamRecord tool = wrench();
        tool.repetitions = 1;
        tool.input_type = u"in/lb"_s;
        tool.input_low = 20;
        tool.input_high = 220;
        tool.output_low = 100;
        tool.output_high = 500;
        tool.pos_reading_pct = tool.neg_reading_pct = 0;
        tool.*term.positive = 2;
        tool.*term.negative = 3;
        addInstrument(u"W-1"_s, u"KW-1"_s, tool);
        script.statements.clear();
        holdResults({{300}});
        EXPECT_EQ(upload(), QString());
        EXPECT_EQ(resultLines(), QStringList{u"120.0in/lb 300.0ft/lb "_s + term.limits});
    }
}

TEST_F(TorqueUpload, TheDateAndTimeAreThoseOfTheLastResult) {
    addUsedCalibrator(1, {u"50"_s, u"100"_s});
    for (int i = 0; i < 4; ++i)
        replies["T1C"] << holdsData;
    replies["T1D"] << result(20260317, 101500, {50}) << result(20260319, 235959, {100});
    replies["T1F"] << noComment;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recordedValue(u"C2301"_s), u"'2026-03-19'"_s);
    EXPECT_EQ(recordedValue(u"C2333"_s), u"'23:59:59'"_s);
}

TEST_F(TorqueUpload, WithoutTestPointsTheDateIsEmptyAlsoBehindAnInstrumentThatHasOne) {
    addUsedCalibrator(2, {u"100"_s});
    addPoints(u"W-2"_s, {}, 1);
    holdResults({{100}});
    holdResults({});
    ui.expectReport(13, u"ModuleGlobals,CreateCalRecord"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recordedValue(u"C2301"_s, u"W-1"_s), u"'2026-03-18'"_s);
    EXPECT_EQ(recordedAssets(), QStringList{u"W-1"_s});
    const auto left = Journal(session).unfinished();
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(left[0].fields.value(0), std::pair(u"C2301"_s, QString()));
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
    for (const auto& testCase : cases) {
        script.statements.clear();
        addUsedCalibrator(1, {u"100"_s});
        session.CommandLineFlag = testCase.flag;
        holdResults({{testCase.reading}}, "t1F" + testCase.comment + '.');
        EXPECT_EQ(upload(), QString());
        EXPECT_EQ(recordedValue(u"C2326"_s), testCase.c2326) << "row " << number;
        EXPECT_EQ(recordedValue(u"C2329"_s), testCase.c2329) << "row " << number;
        ++number;
    }
}

TEST_F(TorqueUpload, RemarksAreStoredInTheSameWordsInEveryLanguage) {
    const ShownIn german(u"de"_s);
    addUsedCalibrator(1, {u"100"_s});
    session.CommandLineFlag = true;
    holdResults({{100}}, "t1F.");
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recordedValue(u"C2326"_s), u"'UNIT PASSES PERFORMANCE VERIFICATION'"_s);
    EXPECT_EQ(recordedValue(u"C2329"_s), u"'UNIT WAS RECEIVED IN TOLERANCE'"_s);
}

TEST_F(TorqueUpload, AnEmptyCommentOverwritesADefaultWithTheFlagOffAndLeavesItWithTheFlagOnWhenThereIsOne) {
    addUsedCalibrator(1, {u"100"_s});
    script.answers.insert(script.answers.keys().filter(u"select datacol"_s).first(),
                          {{u"C2301"_s, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}},
                           {u"C2326"_s, {}, u"default"_s, {}, {}, u"default"_s, {}, {}, {}, {}, {}}});
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recordedValue(u"C2326"_s), u"NULL"_s);
    session.CommandLineFlag = true;
    script.statements.clear();
    holdResults({{100}}, "t1Fseen.");
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recordedValue(u"C2326"_s), u"'default'"_s);
}

TEST_F(TorqueUpload, ACommentComesInWindowsBytesWithoutTheLastCharacterOfTheReply) {
    addUsedCalibrator(1, {u"100"_s});
    holdResults({{100}}, "t1F5 \x80 f\xFCr 'Kl\x10ng'\xFF");
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recordedValue(u"C2326"_s), u"'5 € für ''Kl\x10ng'''"_s);
}

TEST_F(TorqueUpload, AReplyToTheCommentOfFewerThanFourCharactersIsAnInvalidArgument) {
    addUsedCalibrator(1, {u"100"_s});
    holdResults({{100}}, "t1F");
    ui.expectReport(5, u"ModuleTSInterface,TorqueStar_upload"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(writes(), QStringList());
}

TEST_F(TorqueUpload, OnlyFieldsOfTheDictionaryAreWrittenAndTheirNamesCompareIgnoringCase) {
    addUsedCalibrator(1, {u"100"_s});
    addDictionary({u"c2301"_s, u"C2340"_s, u"c2307"_s, u"C2399"_s});
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(
        writes().first(),
        u"insert into MT.calibration (c2301,c2307,C2399,mtag,cdsrc) values ('2026-03-18','asmith',NULL,'KW-1','KVN');commit"_s);
}

TEST_F(TorqueUpload, AFullFieldTableIsReadToItsLastRow) {
    addUsedCalibrator(1, {u"100"_s});
    QStringList columns{u"C2301"_s};
    while (columns.size() < 100)
        columns << u"X%1"_s.arg(columns.size());
    addDictionary(columns << u"C2307"_s);
    ASSERT_EQ(columns.size(), 101);
    holdResults({{100}});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(recordedValue(u"C2307"_s), u"'asmith'"_s);
}

} // namespace kelvane::testing
