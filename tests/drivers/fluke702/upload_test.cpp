#include "testkit/fluke_fixture.h"
#include "testkit/overheard_connection.h"
#include "tests/drivers/fluke702/upload_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(FlukeUpload, ARunBecomesARecordWithItsFieldsStandardsAndLines) {
    auto& run = store(u"PT-101"_s, {at(0, 0.5F), at(50, 52.5F, 0.025F), at(100, 100)});
    run.month = 4;
    run.hour = 23;
    run.minute = 59;
    run.second = 58;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(
        records(u"mtag || '|' || cdsrc || '|' || c2301 || '|' || c2333 || '|' || c2323 || '|' || c2352 || "
                "'|' || c2320 || '|' || c2308 || '|' || c2307 || '|' || c2350"_s),
        QStringList{u"1401|KVN|2026-04-18|23:59:58|Y|0|ROUND|FOUND-LEFT|Joe Doe|1"_s});
    EXPECT_EQ(lines(), (QStringList{u"1 0.000V 0.500V PASS"_s, u"2 50.000V 52.500V PASS MARGINAL"_s,
                                    u"3 100.000V 100.000V PASS"_s}));
    EXPECT_EQ(standards(), QStringList{u"1102"_s});
    EXPECT_EQ(ui.events.first(), u"busy"_s);
    EXPECT_EQ(ui.events.last(), u"normal"_s);
}

TEST_F(FlukeUpload, CallsAndStatementsComeInTheirOrder) {
    QStringList received;
    const QRegularExpression others(
        u"customiz|syscolumn|count\\(ctag\\)|I422|worksheetfields|C2309|hvm_kv_tag_config,"_s);
    session.SharedConnection = std::make_unique<OverheardConnection>(std::move(session.SharedConnection),
                                                                     [&](const QString& statement) {
                                                                         if (!statement.contains(others))
                                                                             received << statement;
                                                                     });
    link.onCall = [&](const QString& name) {
        if (!name.startsWith(u"DPC"_s))
            received << link.calls.last();
    };
    execute(u"delete from mt.hvm_kv_proc_points where tp_name = 'ROUND' and test_point_pct <> 50"_s);
    received.clear();
    store(u"PT-101"_s, {at(50, 50)}).pressureModule = u"71204"_s;
    EXPECT_EQ(upload(), QString());
    const auto mtag = u"(select mtag from MT.inventory where i4201 = 'PT-101')"_s;
    const auto strategy =
        u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = (select tp_name from "
        "mt.hvm_kv_tag_config where mtag = "_s +
        mtag + u')';
    QStringList expected{
        u"MEMclear()"_s,
        u"select i4201 from MT.inventory where i4206 = '6841207'"_s,
        u"MEMstats()"_s,
        u"MEMrDir(0)"_s,
        u"MEMasflInfo(0)"_s,
        u"MEMbaseState(0)"_s,
        u"MEMtagidInfo(0)"_s,
        u"MEMcalResult(0)"_s,
        u"select repetitions from mt.hvm_kv_tag_config where mtag = "_s + mtag,
        strategy + u" order by test_point_seq asc"_s,
        strategy,
    };
    expected += QStringList(7, u"MEMcalResultEntry(0, 0)"_s);
    expected += QStringList{
        u"select serial_number,entered_date,mtag,tech from mt.hvm_kv_task_inuse where serial_number = "
        "'6841207' and mtag = '1401'"_s,
        u"select i4201 from MT.inventory where i4206 = '6841207'"_s,
        u"STAgetPressure()"_s,
        u"select i4201 from MT.inventory where i4206 = '71204'"_s,
        u"select i4201 from MT.inventory where mtag in (select standard_mtag from "
        "mt.hvm_kv_task_standards_inuse where mtag = "_s +
            mtag + u')',
        u"select mtag from MT.inventory where i4201 = 'PT-101'"_s, // the record is made
    };
    EXPECT_EQ(received.first(expected.size()), expected);
}

/// The same upload on a recorded database, whose writing statements are compared exactly.
class FlukeUploadWrites : public FlukeFixture {
  protected:
    FlukeUploadWrites() {
        session.ResultTemplateLine = u"TN$ FRE$         TR$"_s;
        addCalibrator();
        addEquipment(u"PM-1"_s, u"901"_s, u"71204"_s);
        auto record = transmitter();
        record.repetitions = 1;
        record.tp_name = u"TWO"_s;
        addInstrument(u"PT-1"_s, record);
        addPoints(u"PT-1"_s, {u"0"_s, u"100"_s}, 1);
        addStandards(u"PT-1"_s, {u"DMM-1"_s});
        addHistory(u"PT-1"_s);
        addDictionary({u"C2301"_s, u"C2333"_s, u"C2323"_s, u"C2352"_s, u"C2350"_s, u"C2320"_s, u"C2308"_s,
                       u"C2307"_s, u"C2302"_s, u"C2331"_s, u"C2303"_s, u"C2326"_s});
        StoredRun run;
        run.tag = u"PT-1"_s;
        run.serial = u"None"_s;
        run.technician = link.serial;
        run.pressureModule = u"71204"_s;
        run.entries = {{0.004F, 0, 0}, {0.021F, 100, 0.0625F}};
        link.runs << run;
        addInUseData(link.serial, u"PT-1"_s, u"asmith"_s);
    }
};

TEST_F(FlukeUploadWrites, TheRecordItsStandardsAndItsLinesAreWrittenExactly) {
    EXPECT_EQ(Module702Interface::Fluke702_upload(driver), QString());
    const auto record = u"(select ctag from MT.calibration where mtag = 'KPT-1' and c2339 = 1)"_s;
    const auto standard = [&](const QString& asset) {
        return u"insert into mt.standards (c2430,mtag,ctag) values ("_s + mtagOf(asset) + u",'KPT-1',"_s +
               record + u");commit"_s;
    };
    const auto line = [&](const QString& text, int number) {
        return u"insert into mt.calresults (c2501,c2502,mtag,ctag) values ('%1','%2','KPT-1',"_s.arg(
                   text.leftJustified(120), QString::number(number)) +
               record + u");commit"_s;
    };
    const QStringList expected{
        u"insert into MT.calibration (C2301,C2333,C2323,C2352,C2350,C2320,C2308,C2307,C2302,C2331,C2303,C2326,mtag,cdsrc) values ('2026-03-18','08:15:30','N','1','0','TWO','AS-FOUND','asmith','12','M','03/18/2026',NULL,'KPT-1','KVN');commit"_s,
        standard(u"F-702"_s),
        standard(u"PM-1"_s),
        standard(u"DMM-1"_s),
        line(u"  1  4.00mA      PASS"_s, 0),
        line(u"  2  21.00mA     FAIL"_s, 1),
        u"update MT.inventory set I4224 = NULL where i4201 = 'PT-1';commit"_s,
        u"update MT.inventory set I4225 = NULL where i4201 = 'PT-1';commit"_s,
    };
    EXPECT_EQ(writes(), expected);
}

TEST_F(FlukeUpload, WithoutALibraryNothingElseHappens) {
    link.reasonMissing = u"no library"_s;
    addGoodRun();
    EXPECT_EQ(upload(), u"no library"_s);
    EXPECT_EQ(link.calls, QStringList());
    EXPECT_EQ(ui.events, QStringList());
}

TEST_F(FlukeUpload, EachRunIsReadByItsOwnIndex) {
    addGoodRun();
    addGoodRun(u"PT-102"_s);
    EXPECT_EQ(upload(), QString());
    const auto ofBoth = [](const QString& operation) {
        return QStringList{operation + u"(0)"_s, operation + u"(1)"_s};
    };
    for (const auto& operation : {u"MEMrDir"_s, u"MEMasflInfo"_s, u"MEMbaseState"_s, u"MEMcalResult"_s})
        EXPECT_EQ(link.callsOf(operation), ofBoth(operation));
    EXPECT_EQ(link.callsOf(u"MEMtagidInfo"_s).last(), u"MEMtagidInfo(1)"_s);
    EXPECT_EQ(link.callsOf(u"MEMcalResultEntry"_s).last(), u"MEMcalResultEntry(1, 2)"_s);
}

TEST_F(FlukeUpload, AnEmptyCalibratorIsASuccess) {
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList());
    EXPECT_EQ(link.calls.last(), u"MEMstats()"_s);
}

TEST_F(FlukeUpload, AnAsFoundRunThatFailsAndTheAsLeftRunThatFollows) {
    addBadRun();
    addGoodRun(u"PT-101"_s, 2);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), (QStringList{u"AS-FOUND N 1 0"_s, u"AS-LEFT Y 0 0"_s}));
    EXPECT_EQ(records(u"c2339"_s), (QStringList{u"(null)"_s, u"1"_s})) << "the later one is current";
}

TEST_F(FlukeUpload, TheRoundFollowsFromKindVerdictAndLaterRuns) {
    // What is stored: kind of the run, whether it passes, tag and kind of a later one; its round.
    const struct {
        qint16 kind;
        bool passes;
        QString later;
        qint16 laterKind;
        QString round;
    } rows[] = {
        {1, true, {}, 0, u"FOUND-LEFT"_s},
        {1, false, {}, 0, u"AS-FOUND"_s},
        {2, true, {}, 0, u"AS-LEFT"_s},
        {2, false, {}, 0, u"AS-LEFT"_s},
        {1, true, u"PT-101"_s, 2, u"AS-FOUND"_s},
        {1, false, u"PT-101"_s, 2, u"AS-FOUND"_s},
        {1, true, u"PT-101"_s, 1, u"AS-FOUND"_s},
        {2, true, u"PT-101"_s, 2, u"AS-LEFT"_s},
        {1, true, u"pt-101"_s, 3, u"AS-FOUND"_s},
        {1, true, u" PT-101 "_s, 0, u"AS-FOUND"_s},
        {1, true, u"PT-102"_s, 2, u"FOUND-LEFT"_s},
        {1, true, u"PT-1011"_s, 0, u"FOUND-LEFT"_s},
        {1, false, u"PT-102"_s, 2, u"AS-FOUND"_s},
        {1, true, u""_s, 2, u"FOUND-LEFT"_s},
    };
    qint16 minute = 0;
    for (const auto& row : rows) {
        link.runs.clear();
        auto& run = row.passes ? addGoodRun(u"PT-101"_s, row.kind) : addBadRun(u"PT-101"_s, row.kind);
        run.minute = ++minute;
        if (!row.later.isNull()) {
            auto& later = addGoodRun(row.later, row.laterKind);
            later.hour = 20;
            later.minute = minute;
        }
        const auto before = verdicts().size();
        EXPECT_EQ(upload(), QString());
        EXPECT_EQ(verdicts().value(before).section(u' ', 0, 0), row.round) << "row " << minute;
    }
}

TEST_F(FlukeUpload, AnEarlierRunOfTheSameTagIsNoLaterOne) {
    addGoodRun(u"PT-101"_s, 2);
    addGoodRun(u"PT-102"_s);
    addGoodRun(u"PT-101"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), (QStringList{u"AS-LEFT Y 0 0"_s, u"FOUND-LEFT Y 0 0"_s, u"FOUND-LEFT Y 0 0"_s}));
}

TEST_F(FlukeUpload, TheSearchForALaterRunEndsAtTheFirstAndIgnoresTheStatus) {
    addGoodRun();
    addGoodRun(u"PT-102"_s);
    addGoodRun(u"PT-101"_s, 2);
    addGoodRun(u"PT-101"_s, 2);
    link.answer(u"MEMtagidInfo"_s, 2014, 2);
    link.answer(u"MEMtagidInfo"_s, 2014, 3);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts().first(), u"AS-FOUND Y 0 0"_s);
    EXPECT_EQ(link.callsOf(u"MEMtagidInfo"_s).first(4),
              (QStringList{u"MEMtagidInfo(0)"_s, u"MEMtagidInfo(1)"_s, u"MEMtagidInfo(2)"_s,
                           u"MEMtagidInfo(1)"_s}));
}

TEST_F(FlukeUpload, OnlyKindsOneAndTwoBecomeRecords) {
    for (const qint16 kind : {qint16{-32768}, qint16{-1}, qint16{0}, qint16{3}, qint16{32767}})
        addGoodRun(u"PT-101"_s, kind);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList());
    EXPECT_EQ(link.callsOf(u"MEMasflInfo"_s), QStringList());
    addGoodRun(u"PT-101"_s, 1);
    addGoodRun(u"PT-101"_s, 2);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts().size(), 2);
}

TEST_F(FlukeUpload, ARunWithADateOfZeroOrBelowIsSkippedSilently) {
    for (const auto part : {&StoredRun::month, &StoredRun::day, &StoredRun::year}) {
        addGoodRun().*part = 0;
        addGoodRun().*part = -1;
    }
    auto& none = addGoodRun();
    none.month = none.day = none.year = 0;
    addGoodRun(u"PT-102"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1402"_s});
}

TEST_F(FlukeUpload, AKindThatFirstReadsZeroIsFetchedAgain) {
    addGoodRun().kind = 0;
    link.onCall = [&](const QString& name) {
        if (name == u"MEMrDir")
            link.runs[0].kind = 2;
    };
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList{u"AS-LEFT Y 0 0"_s});
    EXPECT_EQ(link.callsOf(u"MEMrDir"_s).size(), 2);
}

TEST_F(FlukeUpload, ARunAtMidnightKeepsItsTime) {
    auto& run = addGoodRun();
    run.hour = run.minute = run.second = 0;
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"c2333"_s), QStringList{u"00:00:00"_s});
    EXPECT_EQ(link.callsOf(u"MEMrDir"_s).size(), 4);
}

TEST_F(FlukeUpload, TheMonthIsTheMonthWhateverTheSessionWritesFirst) {
    int minute = 0;
    for (const auto& format : {u"MM/DD/YYYY"_s, u"DD/MM/YYYY"_s, u"YYYY/MM/DD"_s, QString()}) {
        session.SessionDateFormat = format;
        link.runs.clear();
        auto& run = addGoodRun();
        run.month = 3;
        run.day = 4;
        run.minute = static_cast<qint16>(++minute);
        EXPECT_EQ(upload(), QString());
        EXPECT_EQ(records(u"c2301"_s).last(), u"2026-03-04"_s) << format.toStdString();
    }
}

TEST_F(FlukeUpload, TheDateOfARunWithoutAKindIsIgnored) {
    for (const qint16 kind : {qint16{0}, qint16{-1}}) {
        auto& odd = addGoodRun(u"PT-101"_s, kind);
        odd.month = 2;
        odd.day = 30;
    }
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList());
}

TEST_F(FlukeUpload, LinesOfARunWithMorePointsAreForgottenInTheNext) {
    addStrategy(u"ONE"_s, {50});
    configure(u"1402"_s, u"tp_name = 'ONE'"_s);
    addGoodRun();
    store(u"PT-102"_s, {at(50, 50)});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(lines(), (QStringList{u"1 0.000V 0.000V PASS"_s, u"2 50.000V 50.000V PASS"_s,
                                    u"3 100.000V 100.000V PASS"_s, u"1 50.000V 50.000V PASS"_s}));
}

TEST_F(FlukeUpload, ADateThatDoesNotExistIsReportedAndTheNextRunIsRead) {
    addGoodRun();
    auto& odd = addGoodRun();
    odd.month = 2;
    odd.day = 30;
    addGoodRun();
    ui.expectReport(13, routine);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts().size(), 2) << "of the two others";
    const auto left = Journal(session).unfinished();
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(left[0].date + left[0].time, QString());
    EXPECT_EQ(left[0].readings.size(), 3);
    EXPECT_EQ(left[0].readings[1], u"2: applied 50, read 50 (in the calibrator's units)"_s);
}

TEST_F(FlukeUpload, ADateThatDoesNotExistIsReportedForARunOfAnotherKindToo) {
    auto& odd = addGoodRun(u"PT-101"_s, 3);
    odd.day = 32;
    ui.expectReport(13, routine);
    EXPECT_EQ(upload(), QString());
    link.runs.clear();
    addGoodRun().hour = 24;
    ui.expectReport(13, routine);
    EXPECT_EQ(upload(), QString());
}

TEST_F(FlukeUpload, TheSecondUploadCreatesNothingTwice) {
    addBadRun();
    addGoodRun(u"PT-102"_s);
    EXPECT_EQ(upload(), QString());
    const auto made = verdicts();
    const auto linesMade = lines();
    EXPECT_EQ(made.size(), 2);
    expectRefusal();
    expectRefusal();
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), made);
    EXPECT_EQ(lines(), linesMade);
    EXPECT_EQ(standards().size(), 2);
}

TEST_F(FlukeUpload, ARefusedRecordShowsNoDisagreementAndLeavesNothingToTheNext) {
    store(u"PT-101"_s, {at(0, 0, 0.5F), at(50, 60), at(100, 100)});
    expectDisagreement(false);
    expectDisagreement(true);
    EXPECT_EQ(upload(), QString());
    addGoodRun(u"PT-102"_s);
    expectRefusal();
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), (QStringList{u"AS-FOUND N 1 0"_s, u"FOUND-LEFT Y 0 0"_s}));
    EXPECT_EQ(lines().size(), 6);
}

TEST_F(FlukeUpload, AnUnknownTagMakesNoRecord) {
    addGoodRun(u"NOBODY"_s);
    addGoodRun(u"PT-102"_s);
    ui.expectReport(5, u"ModuleGlobals,calcDueDate"_s);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1402"_s});
    EXPECT_EQ(Journal(session).unfinished().size(), 1);
    EXPECT_EQ(lines().size(), 3) << "those of PT-102";
    EXPECT_EQ(link.callsOf(u"MEMcalResultEntry"_s).size(), 3 * 7);
}

TEST_F(FlukeUpload, SixtyRunsOfOneTagAreRead) {
    for (int i = 0; i < 60; ++i)
        addGoodRun(u"PT-101"_s, i == 0 ? 1 : 2);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts().size(), 60);
    EXPECT_EQ(verdicts().first(), u"AS-FOUND Y 0 0"_s);
}

} // namespace kelvane::testing
