#include "tests/drivers/fluke702/upload_fixture.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(FlukeUpload, ThreeRepetitionsGiveLinesOfMeansAndDisagreementOfEachReading) {
    configure(u"1401"_s, u"repetitions = 3"_s);
    store(u"PT-101"_s, {at(0, 1), at(0, 2), at(3, 3), at(50, 49), at(50, 55), at(50, 46), at(100, 99),
                        at(100, 100), at(100, 101)});
    expectDisagreement(false); // 55 and 46 are out, and the calibrator has not seen it
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 0"_s});
    EXPECT_EQ(lines(), (QStringList{u"1 1.000V 2.000V PASS"_s, u"2 50.000V 50.000V PASS"_s,
                                    u"3 100.000V 100.000V PASS"_s}));
    EXPECT_EQ(link.callsOf(u"MEMcalResultEntry"_s).size(), 9 * 7);
}

TEST_F(FlukeUpload, WithoutRepetitionsARecordHasNoPoints) {
    configure(u"1401"_s, u"repetitions = 0"_s);
    addBadRun();
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 0"_s});
    EXPECT_EQ(lines(), QStringList());
    EXPECT_EQ(link.callsOf(u"MEMcalResultEntry"_s), QStringList());
}

TEST_F(FlukeUpload, AStrategyThatIsGoneGivesARecordWithoutPoints) {
    execute(u"delete from mt.hvm_kv_proc_points where tp_name = 'ROUND'"_s);
    addBadRun();
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 0"_s});
    EXPECT_EQ(lines(), QStringList());
}

TEST_F(FlukeUpload, EntriesThatTheLibraryDoesNotWriteCountAsZero) {
    store(u"PT-101"_s, {at(0, 0), at(50, 50)});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(lines(), (QStringList{u"1 0.000V 0.000V PASS"_s, u"2 50.000V 50.000V PASS"_s,
                                    u"3 0.000V 0.000V PASS"_s}));
}

TEST_F(FlukeUpload, MoreEntriesThanPointsAreLeftAlone) {
    store(u"PT-101"_s, {at(0, 0), at(50, 50), at(100, 100), at(100, 0)});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(lines().size(), 3);
    EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 0"_s});
}

TEST_F(FlukeUpload, DisagreementsAreShownAfterTheRecordOnExactLimits) {
    // Limits of 3.125 at 50; the calibrator's own limit is 3.125 % of span.
    const float above = std::nextafter(53.125F, 100.0F);
    const float more = std::nextafter(0.03125F, 1.0F);
    const struct {
        float reading;
        float error;
        bool saysPass;
        bool saysFail;
        QString verdict;
    } rows[] = {
        {50, 0, false, false, u"FOUND-LEFT Y 0 0"_s},
        {53.125F, 0.03125F, false, false, u"FOUND-LEFT Y 0 1"_s},
        {46.875F, -0.03125F, false, false, u"FOUND-LEFT Y 0 0"_s},
        {53.125F, more, false, true, u"FOUND-LEFT Y 0 1"_s},
        {46.875F, -more, false, true, u"FOUND-LEFT Y 0 0"_s},
        {above, 0.03125F, true, false, u"AS-FOUND N 1 0"_s},
        {40, -0.03125F, true, false, u"AS-FOUND N 1 0"_s},
        {above, more, false, false, u"AS-FOUND N 1 0"_s},
    };
    qint16 minute = 0;
    for (const auto& row : rows) {
        link.runs.clear();
        store(u"PT-101"_s, {at(0, 0), at(50, row.reading, row.error), at(100, 100)}).minute = ++minute;
        if (row.saysPass)
            expectDisagreement(false);
        if (row.saysFail)
            expectDisagreement(true);
        EXPECT_EQ(upload(), QString());
        EXPECT_EQ(verdicts().last(), row.verdict) << "row " << minute;
    }
}

TEST_F(FlukeUpload, TheCalibratorsErrorIsWidenedBeforeItIsCompared) {
    // 10 % as a fraction in 32 bits lies above 10 % in 64.
    configure(u"1401"_s, u"neg_units = 10, pos_units = 10"_s);
    store(u"PT-101"_s, {at(0, 0), at(50, 60, 0.1F), at(100, 100)});
    expectDisagreement(true);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 1"_s});
}

TEST_F(FlukeUpload, BothDisagreementsInOneRun) {
    store(u"PT-101"_s, {at(0, 0, 0.5F), at(50, 60), at(100, 100)});
    addGoodRun(u"PT-102"_s);
    expectDisagreement(false);
    expectDisagreement(true);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), (QStringList{u"AS-FOUND N 1 0"_s, u"FOUND-LEFT Y 0 0"_s}));
}

TEST_F(FlukeUpload, AnInstrumentOfMilliampsComesBackFromAmps) {
    // PT-103 of the demonstration: 0 to 150 inH2O, 4 to 20 mA, 0.25 % of span, nine points up and down.
    QList<ResultEntry> entries;
    for (const float percent : {0.0F, 25.0F, 50.0F, 75.0F, 100.0F, 75.0F, 50.0F, 25.0F, 0.0F})
        entries << at(1.5F * percent, (4 + 0.16F * percent) / 1000);
    store(u"PT-103"_s, entries);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList{u"FOUND-LEFT Y 0 0"_s});
    EXPECT_EQ(lines()[5], u"6 112.500inH2O 16.000mA PASS"_s);
}

TEST_F(FlukeUpload, FrequenciesInKilohertzDoNotComeBackAlthoughTheyWentDownScaled) {
    configure(u"1401"_s, u"input_type = 'KHz', output_type = 'mbar'"_s);
    store(u"PT-101"_s, {at(0, 0), at(50000, 0.05F), at(100, 100)});
    expectDisagreement(false);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(lines()[1], u"2 50000.000KHz 0.050mbar FAIL"_s);
}

TEST_F(FlukeUpload, ReadingsThatAreNoNumbersAreReportedAndTheNextRunIsRead) {
    const float values[] = {std::nanf(""), std::numeric_limits<float>::infinity(),
                            -std::numeric_limits<float>::infinity()};
    qint16 hour = 9;
    for (const float value : values) {
        link.runs.clear();
        store(u"PT-101"_s, {at(0, value), at(50, 50), at(100, 100)}).hour = hour;
        addGoodRun(u"PT-102"_s).hour = hour++;
        ui.expectReport(6, routine);
        EXPECT_EQ(upload(), QString());
    }
    EXPECT_EQ(records(u"mtag"_s), QStringList(3, u"1402"_s))
        << "nothing that could not be judged is recorded";
    const auto left = Journal(session).unfinished();
    ASSERT_EQ(left.size(), 3);
    EXPECT_EQ(left[0].readings[0], u"1: applied 0, read nan (in the calibrator's units)"_s);
    EXPECT_EQ(left[2].readings[0], u"1: applied 0, read -inf (in the calibrator's units)"_s);
    EXPECT_EQ(left[2].date + u' ' + left[2].time, u"2026-03-18 11:00:30"_s);
}

TEST_F(FlukeUpload, AnOverrangeReadingFailsAndOneThatCantBeScaledIsReported) {
    store(u"PT-101"_s, {at(0, 1E38F, 9), at(50, 50), at(100, 100)});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList{u"AS-FOUND N 1 0"_s});
    configure(u"1401"_s, u"output_type = 'mV'"_s);
    link.runs[0].minute = 30;
    ui.expectReport(6, routine);
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts().size(), 1);
}

TEST_F(FlukeUpload, ACalibratorErrorThatIsNoNumberIsNoDisagreement) {
    store(u"PT-101"_s, {at(0, 0, std::nanf("")), at(50, 60, std::nanf("")), at(100, 100)});
    EXPECT_EQ(upload(), QString());
    EXPECT_EQ(verdicts(), QStringList{u"AS-FOUND N 1 0"_s});
}

} // namespace kelvane::testing
