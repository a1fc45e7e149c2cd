#include "drivers/fluke_judgement.h"

#include "testkit/fixtures.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// An instrument of 0 to 100 V in and out with 3.125 V to either side, and a calibrator that knows 3.125 %.
class JudgedRun : public RecordedSession {
  protected:
    CalRecord record;
    JudgedRun() {
        session.ResultTemplateLine = u"TN$ FVA$           FRE$           TR$"_s;
        instrument.input_type = instrument.output_type = u"V"_s;
        instrument.input_high = instrument.output_high = 100;
        instrument.resolution = 0.001F;
        instrument.pos_units = instrument.neg_units = 3.125F;
        instrument.repetitions = 1;
    }

    QStringList lines() const {
        QStringList found;
        for (const auto& entry : entriesOf(record.RecordResults))
            found << entry.simplified();
        return found;
    }
    void expectBox(bool passed) {
        const auto cause =
            u" This condition is caused by the inability of the calibrator to handle complex error calculations."_s;
        if (passed)
            ui.expectBox(
                u"Instrument: X-1\r\n\r\nthe above listed instrument passed calibration, but the calibrator reported that the instrument was out of tolerance."_s +
                    cause,
                u"Instrument Passed Calibration!"_s, box::warning);
        else
            ui.expectBox(
                u"Instrument: X-1\r\n\r\nThe above listed instrument failed calibration, but the calibrator reported that the instrument was not out of tolerance."_s +
                    cause,
                u"Instrument Failed Calibration!"_s, box::warning);
    }
    /// The boxes after one reading.
    void expectBoxes(double reading, double calibratorError, bool failed, bool passed) {
        RunJudgement run(session, record, instrument, 3.125);
        run.take(0, 50, reading, calibratorError);
        if (failed)
            expectBox(false);
        if (passed)
            expectBox(true);
        run.showDisagreements(u"X-1"_s);
        EXPECT_TRUE(ui.hasMetAll()) << reading << ", " << calibratorError;
    }

    CalParamRecord instrument;
};

TEST_F(JudgedRun, APointWithItsRangesAndTermsInTheirPlaces) {
    instrument.input_low = 20;
    instrument.input_high = 220;
    instrument.output_low = 100;
    instrument.output_high = 500;
    instrument.pos_fs_range_pct = 1;
    instrument.neg_fs_range_pct = 2;
    instrument.pos_span_pct = 3;
    instrument.neg_span_pct = 4;
    instrument.pos_reading_pct = 5;
    instrument.neg_reading_pct = 6;
    instrument.pos_lsd_counts = 1000;
    instrument.neg_lsd_counts = 2000;
    instrument.pos_units = 7;
    instrument.neg_units = 8;
    const auto result = judgePoint(session, instrument, 120, 310, 12);
    EXPECT_DOUBLE_EQ(result.nominal, 300);
    EXPECT_DOUBLE_EQ(result.upper_limit, 300 + 5 + 12 + 15 + 1 + 7);
    EXPECT_DOUBLE_EQ(result.lower_limit, 300 - 10 - 16 - 18 - 2 - 8);
    EXPECT_EQ(result.output_text.trimmed(), u"310.000V"_s);
    EXPECT_EQ(result.result_line.simplified(), u"12 120.000V 310.000V PASS"_s);
}

TEST_F(JudgedRun, FailuresAndMarginalPointsAreCountedAndLinesStored) {
    RunJudgement run(session, record, instrument, 3.125);
    run.take(0, 50, 50, 0);
    EXPECT_TRUE(run.counts().hasPassed());
    run.take(1, 50, 53.125, 0); // on the limit: passes, and is marginal
    run.take(2, 50, 53.126, 3);
    run.take(3, 50, 46, 3);
    run.take(4, 50, 53, 0);
    EXPECT_EQ(run.counts().failures, 2);
    EXPECT_EQ(run.counts().marginals, 2);
    EXPECT_FALSE(run.counts().hasPassed());
    EXPECT_EQ(lines(), (QStringList{u"1 50.000V 50.000V PASS"_s, u"2 50.000V 53.125V PASS"_s,
                                    u"3 50.000V 53.126V FAIL"_s, u"4 50.000V 46.000V FAIL"_s,
                                    u"5 50.000V 53.000V PASS"_s}));
}

TEST_F(JudgedRun, EachPointIsJudgedOnTheMeansOfItsRepetitions) {
    instrument.repetitions = 3;
    RunJudgement run(session, record, instrument, 3.125);
    const double readings[] = {49, 50, 51, 60, 60, 60, 43, 50, 57};
    for (int entry = 0; entry < 9; ++entry)
        run.take(entry, 50 + entry % 3, readings[entry], 100);
    EXPECT_EQ(lines(), (QStringList{u"1 51.000V 50.000V PASS"_s, u"2 51.000V 60.000V FAIL"_s,
                                    u"3 51.000V 50.000V PASS"_s}));
    EXPECT_EQ(run.counts().failures, 1);
}

TEST_F(JudgedRun, APointWithoutAllItsRepetitionsIsNotClosed) {
    instrument.repetitions = 3;
    RunJudgement run(session, record, instrument, 3.125);
    for (int entry = 0; entry < 5; ++entry)
        run.take(entry, 50, 90, 100);
    EXPECT_EQ(lines(), QStringList{u"1 50.000V 90.000V FAIL"_s});
    EXPECT_EQ(run.counts().failures, 1);
}

TEST_F(JudgedRun, MeansAreWorkedOutInSixtyFourBits) {
    instrument.repetitions = 2;
    instrument.input_high = instrument.output_high = 16777216;
    RunJudgement run(session, record, instrument, 3.125);
    run.take(0, 16777216, 16777216, 0);
    run.take(1, 16777215, 16777215, 0); // the mean is no 32-bit number
    EXPECT_EQ(lines(), QStringList{u"1 16777215.500V 16777215.500V PASS"_s});
}

TEST_F(JudgedRun, WithoutRepetitionsAReadingIsADivisionByZero) {
    instrument.repetitions = 0;
    RunJudgement run(session, record, instrument, 3.125);
    try {
        run.take(0, 50, 50, 0);
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_EQ(error.number, 11);
    }
}

TEST_F(JudgedRun, DisagreementIsShownOnExactLimits) {
    const double above = std::nextafter(53.125, 100);
    const double below = std::nextafter(46.875, 0);
    const double more = std::nextafter(3.125, 100);
    // Workstation and calibrator agree.
    expectBoxes(50, 0, false, false);
    expectBoxes(53.125, 3.125, false, false);
    expectBoxes(46.875, -3.125, false, false);
    expectBoxes(above, more, false, false);
    expectBoxes(below, -more, false, false);
    // The calibrator says pass.
    expectBoxes(above, 3.125, true, false);
    expectBoxes(below, -3.125, true, false);
    expectBoxes(above, 0, true, false);
    // The calibrator says fail.
    expectBoxes(53.125, more, false, true);
    expectBoxes(46.875, -more, false, true);
    expectBoxes(50, 1E30, false, true);
}

TEST_F(JudgedRun, DisagreementGoesByTheLimitsBeforeTheyAreRoundedForPrint) {
    instrument.resolution = 0.1F; // prints 46.9 and 53.1
    expectBoxes(53.12, 0, false, false);
    expectBoxes(53.12, 5, false, true);
    expectBoxes(46.88, 0, false, false);
    expectBoxes(46.88, 5, false, true);
}

TEST_F(JudgedRun, AnErrorThatIsNoNumberIsNoDisagreement) {
    expectBoxes(50, std::nan(""), false, false);
    expectBoxes(90, std::nan(""), false, false);
    expectBoxes(50, std::numeric_limits<double>::infinity(), false, true);
}

TEST_F(JudgedRun, BothDisagreementsOfARunAreShownTheFailureFirst) {
    RunJudgement run(session, record, instrument, 3.125);
    run.take(0, 50, 50, 5);
    run.take(1, 50, 60, 0);
    run.take(2, 50, 50, 0);
    expectBox(false);
    expectBox(true);
    run.showDisagreements(u"X-1"_s);
}

TEST_F(JudgedRun, DisagreementUsesEachReadingAndNotTheMeans) {
    instrument.repetitions = 3;
    RunJudgement run(session, record, instrument, 3.125);
    run.take(0, 50, 60, 0);
    run.take(1, 50, 45, 5);
    run.take(2, 50, 45, 5);
    EXPECT_TRUE(run.counts().hasPassed());
    expectBox(false);
    run.showDisagreements(u"X-1"_s);
}

TEST_F(JudgedRun, AValueThatIsNoNumberCantBeJudgedAndNeverPasses) {
    const double values[] = {std::nan(""), std::numeric_limits<double>::infinity(),
                             -std::numeric_limits<double>::infinity()};
    for (const double value : values) {
        for (const bool isReading : {false, true}) {
            RunJudgement run(session, record, instrument, 3.125);
            try {
                run.take(0, isReading ? 50 : value, isReading ? value : 50, 0);
                ADD_FAILURE() << value;
            } catch (const Error& error) {
                EXPECT_EQ(error.number, 6);
            }
        }
    }
    EXPECT_EQ(lines(), QStringList());
}

TEST_F(JudgedRun, AHugeReadingFails) {
    RunJudgement run(session, record, instrument, 3.125);
    run.take(0, 50, double{1E38F}, 100);
    EXPECT_EQ(run.counts().failures, 1);
}

} // namespace kelvane::testing
