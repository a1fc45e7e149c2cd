#include "simulators/fluke702/field_work.h"
#include "simulators/fluke702/listing.h"
#include "tests/simulators/fluke702_bench.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

namespace {

WorkTimes workAt(const QString& moment, int seconds = 60) {
    return {momentOf(moment), seconds};
}

QString refusalOfPlan(const QString& plan) {
    try {
        jobsOf(plan);
    } catch (const Failure& failure) {
        return failure.text();
    }
    return {};
}

Job jobFor(const QString& tag, std::vector<double> deviations) {
    Job job;
    job.tag = tag;
    job.deviations = std::move(deviations);
    return job;
}

QString refusalOf(Memory& memory, const Job& job) {
    try {
        carryOut(memory, {job}, workAt(u"2026-11-20 09:15"_s));
    } catch (const Failure& failure) {
        return failure.text();
    }
    return {};
}

} // namespace

TEST(Fluke702Plan, ALineIsTagRoundDeviationsTechnicianModuleMomentAndShown) {
    const std::vector<Job> jobs =
        jobsOf(u"# the week's work\r\n\n"
               "PT-103; as-found; 0.1,-0.6, 0.05 ; J. Doe; 71204; 2026-11-20 9:15:30; 0,0,1\n"
               " PT-103 ; as-left ; 0.02\n"
               "A TAG THAT IS CUT AT 29 CHARACTERS;;;;;2026-11-20 9:15\n"
               "LI-401\n"_s);
    ASSERT_EQ(jobs.size(), 4U);
    EXPECT_EQ(jobs[0], (Job{u"PT-103"_s,
                            AsFound,
                            {0.1, -0.6, 0.05},
                            u"J. Doe"_s,
                            u"71204"_s,
                            momentOf(u"2026-11-20 09:15:30"_s),
                            {0, 0, 1}}));
    EXPECT_EQ(jobs[1], (Job{u"PT-103"_s, AsLeft, {0.02}, {}, {}, {}, {}}));
    EXPECT_EQ(jobs[2].tag, u"A TAG THAT IS CUT AT 29 CHARA"_s);
    EXPECT_EQ(jobs[2].moment, momentOf(u"2026-11-20 09:15:00"_s));
    EXPECT_EQ(jobs[3], (Job{u"LI-401"_s, AsFound, {}, {}, {}, {}, {}}));
}

TEST(Fluke702Plan, ALineThatIsWrongIsNamed) {
    const struct {
        const char* plan;
        const char* reason;
    } cases[] = {
        {"A\n; as-found", "line 2 of the plan: the tag is missing"},
        {"A; found", "line 1 of the plan: \"found\" is no round: it is as-found or as-left"},
        {"A; as-left; x", "deviations: \"x\" is no number"},
        {"A; as-left; 1,", "deviations: \"\" is no number"},
        {"A; as-left; inf", "deviations: \"inf\" is no number"},
        {"A;;;;;noon", "\"noon\" is no moment"},
        {"A;;;;;;1;2", "a line is TAG; ROUND"},
        {"A;;;;;;nan", "shown: \"nan\" is no number"},
    };
    for (const auto& entry : cases)
        EXPECT_TRUE(
            refusalOfPlan(QString::fromLatin1(entry.plan)).contains(QString::fromLatin1(entry.reason)))
            << refusalOfPlan(QString::fromLatin1(entry.plan)).toStdString();
}

class Fluke702FieldWork : public Fluke702Bench {
  protected:
    Fluke702FieldWork() {
        fillCalibrator();
        memory_ = storedMemory();
        memory_.contents.runs.clear();
    }
    const std::vector<fluke702::Run>& runs() const { return memory_.contents.runs; }

    Memory memory_;
};

TEST_F(Fluke702FieldWork, AppliesThePointAndReadsItWithTheDeviationOfSpan) {
    const QStringList lines =
        carryOut(memory_, {jobFor(u"PT-103"_s, {0, 0.5, -1})}, workAt(u"2026-11-20 09:15"_s));
    EXPECT_EQ(lines, QStringList{u"PT-103: as found, 3 points taken"_s});
    ASSERT_EQ(runs().size(), 1U);
    const fluke702::Run& run = runs().front();
    ASSERT_EQ(run.entries.size(), 3U);
    const float applied[] = {0, 75, 150};
    const float reading[] = {0.004F, 0.01208F, 0.01984F};
    const float error[] = {0, 0.005F, -0.01F};
    for (std::size_t point = 0; point < 3; ++point) {
        EXPECT_EQ(run.entries[point].applied, applied[point]);
        EXPECT_FLOAT_EQ(run.entries[point].reading, reading[point]);
        EXPECT_EQ(run.entries[point].error, error[point]);
    }
    EXPECT_EQ(run.tag, u"PT-103"_s);
    EXPECT_EQ(run.serial, u"V88103"_s);
    EXPECT_EQ(run.state, 1);
}

TEST_F(Fluke702FieldWork, ADeviationForAllIsEachPointsAndNoneIsZero) {
    carryOut(memory_, {jobFor(u"PT-103"_s, {0.5}), jobFor(u"PT-103"_s, {})}, workAt(u"2026-11-20 09:15"_s));
    for (const Entry& entry : runs()[0].entries)
        EXPECT_EQ(entry.error, 0.005F);
    for (const Entry& entry : runs()[1].entries)
        EXPECT_EQ(entry.error, 0);
}

TEST_F(Fluke702FieldWork, TheCalibratorMayShowAnotherErrorThanItRead) {
    Job job = jobFor(u"PT-103"_s, {2});
    job.shown = {0.1, 0, -0.1};
    carryOut(memory_, {job}, workAt(u"2026-11-20 09:15"_s));
    EXPECT_FLOAT_EQ(runs()[0].entries[0].reading, 0.00432F);
    EXPECT_EQ(runs()[0].entries[0].error, 0.001F);
    EXPECT_EQ(runs()[0].entries[2].error, -0.001F);
}

TEST_F(Fluke702FieldWork, TakesEachPointAsOftenAsTheStrategyHoldsIt) {
    memory_.contents.strategies[0].points = {0, 0, 0, 1, 1, 1};
    carryOut(memory_, {jobFor(u"PT-103"_s, {1, 2, 3, 4, 5, 6})}, workAt(u"2026-11-20 09:15"_s));
    ASSERT_EQ(runs()[0].entries.size(), 6U);
    EXPECT_EQ(runs()[0].entries[2].applied, 0);
    EXPECT_EQ(runs()[0].entries[2].error, 0.03F);
    EXPECT_EQ(runs()[0].entries[3].applied, 150);
}

TEST_F(Fluke702FieldWork, AManualReadingLiesOnTheGivenScale) {
    memory_.contents.states[1].source = {0.02F, 0.004F};
    memory_.contents.states[1].measured = {300, 0};
    carryOut(memory_, {jobFor(u"LI-401"_s, {0.5})}, workAt(u"2026-11-20 09:15"_s));
    EXPECT_FLOAT_EQ(runs()[0].entries[0].applied, 0.0056F);
    EXPECT_FLOAT_EQ(runs()[0].entries[0].reading, 31.5F);
}

TEST_F(Fluke702FieldWork, AFallingScaleFalls) {
    memory_.contents.states[0].measured = {0.004F, 0.02F};
    carryOut(memory_, {jobFor(u"PT-103"_s, {10})}, workAt(u"2026-11-20 09:15"_s));
    EXPECT_FLOAT_EQ(runs()[0].entries[0].reading, 0.0184F);
}

TEST_F(Fluke702FieldWork, RunsAreAddedInTheirOrderEachAnIntervalLater) {
    Job left = jobFor(u"PT-103"_s, {});
    left.kind = AsLeft;
    Job dated = jobFor(u"LI-401"_s, {});
    dated.moment = momentOf(u"2026-12-31 23:59:30"_s);
    const std::vector<Job> jobs{jobFor(u"PT-103"_s, {}), left, dated, jobFor(u"LI-401"_s, {})};
    carryOut(memory_, jobs, workAt(u"2026-11-20 09:15:05"_s, 90));
    carryOut(memory_, {jobFor(u"PT-103"_s, {})}, workAt(u"2027-02-03 04:05:06"_s));
    const struct {
        int kind;
        std::vector<int> moment;
    } expected[] = {{1, {2026, 11, 20, 9, 15, 5}},
                    {2, {2026, 11, 20, 9, 16, 35}},
                    {1, {2026, 12, 31, 23, 59, 30}},
                    {1, {2027, 1, 1, 0, 1, 0}},
                    {1, {2027, 2, 3, 4, 5, 6}}};
    ASSERT_EQ(runs().size(), 5U);
    for (std::size_t place = 0; place < 5; ++place) {
        const fluke702::Run& run = runs()[place];
        EXPECT_EQ(run.kind, expected[place].kind) << place;
        EXPECT_EQ((std::vector<int>{run.time.year, run.time.month, run.time.day, run.time.hour,
                                    run.time.minute, run.time.second}),
                  expected[place].moment)
            << place;
    }
}

TEST_F(Fluke702FieldWork, WithoutANameTheCalibratorGivesItsOwnNumber) {
    Job named = jobFor(u"PT-103"_s, {});
    named.technician = u"J. Öz"_s;
    named.module = u"71204"_s;
    carryOut(memory_, {named, jobFor(u"PT-103"_s, {})}, workAt(u"2026-11-20 09:15"_s));
    EXPECT_EQ(runs()[0].technician, u"J. Öz"_s);
    EXPECT_EQ(runs()[0].module, u"71204"_s);
    EXPECT_EQ(runs()[1].technician, u"6841207"_s);
    EXPECT_EQ(runs()[1].module, QString());
}

TEST_F(Fluke702FieldWork, ATagOfTwoTasksIsCarriedOutOnBoth) {
    memory_.contents.tasks[1].tag = memory_.contents.tasks[1].instrument = u"PT-103"_s;
    carryOut(memory_, {jobFor(u"PT-103"_s, {})}, workAt(u"2026-11-20 09:15"_s));
    ASSERT_EQ(runs().size(), 2U);
    EXPECT_EQ(runs()[0].serial, u"V88103"_s);
    EXPECT_EQ(runs()[1].serial, u"None"_s);
    EXPECT_EQ(runs()[1].time.minute, 16);
}

TEST_F(Fluke702FieldWork, ATemplateWithoutATagGivesRunsWithoutOne) {
    memory_.contents.tasks[0].instrument.clear();
    carryOut(memory_, {jobFor(u"PT-103"_s, {})}, workAt(u"2026-11-20 09:15"_s));
    EXPECT_EQ(runs()[0].tag, QString());
}

TEST_F(Fluke702FieldWork, WhatCantBeDoneLeavesTheMemoryAsItWas) {
    const Memory before = memory_;
    EXPECT_EQ(refusalOf(memory_, jobFor(u"PT-999"_s, {})), u"The calibrator holds no task \"PT-999\"."_s);
    EXPECT_EQ(refusalOf(memory_, jobFor(u"PT-103"_s, {1, 2})), u"2 deviations for 3 readings"_s);
    Job job = jobFor(u"PT-103"_s, {});
    job.shown = {1, 2, 3, 4};
    EXPECT_EQ(refusalOf(memory_, job), u"4 deviations for 3 readings"_s);
    EXPECT_TRUE(
        refusalOf(memory_, jobFor(u"PT-103"_s, {1e300})).endsWith(u"is more than the calibrator can keep"_s));
    job = jobFor(u"PT-103"_s, {});
    job.technician = QString(33, u'T');
    EXPECT_TRUE(refusalOf(memory_, job).startsWith(u"The calibrator takes at most 32 characters"_s));
    job.technician.clear();
    job.module = u"7120471204"_s;
    EXPECT_TRUE(refusalOf(memory_, job).startsWith(u"The calibrator takes at most 9 characters"_s));
    EXPECT_EQ(memory_, before);
}

TEST_F(Fluke702FieldWork, WhatItKeepsComesBackFromTheFileAndGoesUp) {
    carryOut(memory_, {jobFor(u"PT-103"_s, {0.123})}, workAt(u"2026-11-20 09:15"_s));
    keep([&](Memory& memory) { memory = memory_; });
    EXPECT_EQ(storedMemory(), memory_);
    ASSERT_EQ(upload(), Done);
    qint16 entries = 0;
    EXPECT_EQ(library_.MEMcalResult(0, &entries), Done);
    EXPECT_EQ(entries, 3);
}

TEST(Fluke702Listing, AnEmptyCalibratorReportsThatItIsEmpty) {
    EXPECT_EQ(listing({}),
              (QStringList{u"Fluke 702, serial number 6841207"_s, u"The calibrator is empty."_s}));
}

TEST_F(Fluke702FieldWork, TheListShowsTasksPromptsAndRuns) {
    memory_ = storedMemory();
    memory_.contents.prompts[0].text = u"Close the manifold.\r\nVent it."_s;
    EXPECT_EQ(
        listing(memory_),
        (QStringList{
            u"Fluke 702, serial number 6841207"_s,
            u"PT-103 (serial number V88103): 9 POINT UP/DO at 0 50 100 percent"_s,
            u"  source pressure in_h2o 0 to 150, measure current 0.004 to 0.02, loop power 24v, tolerance "
            u"0.25 percent of span"_s,
            u"  before: Close the manifold. Vent it."_s,
            u"  after: Open it."_s,
            u"  as found 2026-11-20 09:15:30 by J. Öz, pressure module 71204"_s,
            u"    applied 0, read 0.0041, error shown 0.00625"_s,
            u"    applied 75, read 0.012, error shown 0"_s,
            u"    applied 150, read 0.02, error shown -1e+38"_s,
            u"  as left 2026-11-20 09:45:00 by J. Öz"_s,
            u"    applied 0, read 0.004, error shown 0"_s,
            u"LI-401 (serial number None): LINEARITY at 10 percent, read by hand"_s,
            u"  source pressure in_h2o 0 to 150, measure current 0.004 to 0.02, loop power 24v, tolerance "
            u"0.25 percent of span"_s,
            u"  no results"_s,
        }));
}

TEST_F(Fluke702FieldWork, TheListShowsSensorsAndUnitsOfTemperature) {
    State& state = memory_.contents.states[0];
    state.sourceMode = u"2w_rtd"_s;
    state.sourceSensor = u"rtd_pt100_385"_s;
    state.temperatureUnits = u"fahrenheit"_s;
    state.measureMode = u"dcv"_s;
    state.loopPower = u"off"_s;
    EXPECT_EQ(listing(memory_)[2], u"  source 2w_rtd rtd_pt100_385 fahrenheit 0 to 150, measure dcv 0.004 to "
                                   "0.02, tolerance 0.25 percent of span"_s);
}

} // namespace kelvane::simulators::fluke702
