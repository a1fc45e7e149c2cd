#include "simulators/fluke74x/field_work.h"

#include "simulators/fluke74x/listing.h"
#include "tests/simulators/fluke74x_bench.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

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

Job jobFor(const QString& tag, std::vector<double> deviations = {}) {
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

TEST(Fluke74xPlan, ALineIsTagRoundReadingsTechnicianModulesMomentAndShown) {
    const std::vector<Job> jobs =
        jobsOf(u"# the week's work\r\n\n"
               "PT-103; as-found; 0.1,-0.6, 0.05 ; J. Doe; 71204; 2026-11-20 9:15:30; 0,0,1\n"
               " PT-103 ; as-left ; 0/4.01mA, 75 inH2O / 1.2e1 mA;; 71204 / 71391\n"
               "A TAG THAT IS CUT AT 29 CHARACTERS;;;;/71391;2026-11-20 9:15\n"
               "LI-401\n"_s);
    ASSERT_EQ(jobs.size(), 4U);
    EXPECT_EQ(jobs[0], (Job{u"PT-103"_s,
                            false,
                            {0.1, -0.6, 0.05},
                            {},
                            u"J. Doe"_s,
                            {u"71204"_s, {}, {}},
                            momentOf(u"2026-11-20 09:15:30"_s),
                            {0, 0, 1}}));
    EXPECT_EQ(jobs[1], (Job{u"PT-103"_s,
                            true,
                            {},
                            {{{0, 1}, {4.01, 1e-3}}, {{75, 1}, {12, 1e-3}}},
                            {},
                            {{}, u"71204"_s, u"71391"_s},
                            {},
                            {}}));
    EXPECT_EQ(jobs[2].tag, u"A TAG THAT IS CUT AT 29 CHARA"_s);
    EXPECT_EQ(jobs[2].modules, (Modules{{}, {}, u"71391"_s}));
    EXPECT_EQ(jobs[3], jobFor(u"LI-401"_s));
}

TEST(Fluke74xPlan, AUnitSaysWhatAReadingIsInTheCalibratorsUnit) {
    const struct {
        const char* unit;
        double factor;
    } cases[] = {{"", 1},        {"V", 1},     {"mV", 1e-3}, {"uV", 1e-6}, {"mVAC", 1e-3},
                 {"A", 1},       {"mA", 1e-3}, {"uA", 1e-6}, {"Ohms", 1},  {"KOhms", 1e3},
                 {"Mohms", 1e6}, {"Hz", 1},    {"KHz", 1e3}, {"MHz", 1e6}, {"bar", 1},
                 {"mbar", 1e-3}, {"psi", 1},   {"inH2O", 1}, {"C", 1},     {"%", 1}};
    for (const auto& entry : cases)
        EXPECT_EQ(jobsOf(u"A;;-1.5%1/2"_s.arg(QString::fromLatin1(entry.unit)))[0].readings,
                  (std::vector<Reading>{{{-1.5, entry.factor}, {2, 1}}}))
            << entry.unit;
}

TEST(Fluke74xPlan, ALineThatIsWrongIsNamed) {
    const struct {
        const char* plan;
        const char* reason;
    } cases[] = {
        {"A\n; as-found", "line 2 of the plan: the tag is missing"},
        {"A; found", "line 1 of the plan: \"found\" is no round: it is as-found or as-left"},
        {"A; as-left; x", "deviations: \"x\" is no number"},
        {"A; as-left; 1/2, 3", "readings: \"3\" is not APPLIED/READ"},
        {"A; as-left; 1/2/3", "readings: \"1/2/3\" is not APPLIED/READ"},
        {"A; as-left; 1/", "readings: \"\" is no number with its unit"},
        {"A; as-left; 1/mA", "readings: \"mA\" is no number with its unit"},
        {"A; as-left; 1/2 mA x", "readings: \"2 mA x\" is no number with its unit"},
        {"A; as-left; 1/1.2.3", "readings: \"1.2.3\" is no number"},
        {"A;;;;1/2/3", "more than the modules of source and measurement"},
        {"A;;;;;noon", "\"noon\" is no moment"},
        {"A;;;;;;1;2", "a line is TAG; ROUND"},
        {"A;;;;;;nan", "shown: \"nan\" is no number"},
    };
    for (const auto& entry : cases)
        EXPECT_TRUE(
            refusalOfPlan(QString::fromLatin1(entry.plan)).contains(QString::fromLatin1(entry.reason)))
            << refusalOfPlan(QString::fromLatin1(entry.plan)).toStdString();
}

class Fluke74xFieldWork : public Fluke74xBench {
  protected:
    Fluke74xFieldWork() {
        fillCalibrator();
        memory_ = storedMemory();
        memory_.contents.runs.clear();
    }
    const std::vector<fluke74x::Run>& runs() const { return memory_.contents.runs; }
    void carryOutPlan(const QString& plan) { carryOut(memory_, jobsOf(plan), workAt(u"2026-11-20 09:15"_s)); }

    Memory memory_;
};

TEST_F(Fluke74xFieldWork, AppliesThePointAndReadsItWithTheDeviationOfSpan) {
    const QStringList lines =
        carryOut(memory_, {jobFor(u"PT-103"_s, {0, 0.5, -1})}, workAt(u"2026-11-20 09:15"_s));
    EXPECT_EQ(lines, QStringList{u"PT-103: run 1, 3 points taken"_s});
    ASSERT_EQ(runs().size(), 1U);
    const fluke74x::Run& run = runs().front();
    ASSERT_EQ(run.entries.size(), 3U);
    const float applied[] = {0, 75, 150};
    const float reading[] = {0.004F, 0.01208F, 0.01984F};
    const float error[] = {0, 0.5F, -1};
    for (std::size_t point = 0; point < 3; ++point) {
        EXPECT_EQ(run.entries[point].applied, applied[point]);
        EXPECT_FLOAT_EQ(run.entries[point].reading, reading[point]);
        EXPECT_EQ(run.entries[point].error, error[point]) << "in percent of span";
    }
    EXPECT_EQ(run.tag, u"PT-103"_s);
    EXPECT_EQ(run.serial, u"V88103"_s);
    EXPECT_EQ(run.state, 1);
}

TEST_F(Fluke74xFieldWork, ReadingsAreStepsInTheCalibratorsUnits) {
    carryOutPlan(u"PT-103;; 0/4mA, 75inH2O/12.16mA, 75/11.84mA, 150/0.02"_s);
    const std::vector<Entry>& entries = runs().at(0).entries;
    ASSERT_EQ(entries.size(), 4U) << "as many as the plan has, not as the strategy";
    EXPECT_FLOAT_EQ(entries[1].applied, 75);
    EXPECT_FLOAT_EQ(entries[1].reading, 0.01216F);
    EXPECT_NEAR(entries[0].error, 0, 1e-5);
    EXPECT_NEAR(entries[1].error, 1, 1e-5);
    EXPECT_NEAR(entries[2].error, -1, 1e-5);
    EXPECT_NEAR(entries[3].error, 0, 1e-5);
}

TEST_F(Fluke74xFieldWork, AReadingByHandIsKeptAsItIsWritten) {
    carryOutPlan(u"LI-401;; 75mbar/160mA"_s);
    EXPECT_EQ(runs()[0].byHand, (ByHand{true, false}));
    EXPECT_FLOAT_EQ(runs()[0].entries[0].applied, 0.075F);
    EXPECT_FLOAT_EQ(runs()[0].entries[0].reading, 160);
}

TEST_F(Fluke74xFieldWork, AnEntryByHandLiesOnTheCustomScale) {
    EXPECT_EQ(memory_.contents.states[1].set(u"mUutFS"_s, 1.0F), Done);
    carryOut(memory_, {jobFor(u"LI-401"_s, {0.5})}, workAt(u"2026-11-20 09:15"_s));
    EXPECT_FLOAT_EQ(runs()[0].entries[0].applied, 15);
    EXPECT_FLOAT_EQ(runs()[0].entries[0].reading, 31.5F);
    State& state = memory_.contents.states[1];
    EXPECT_EQ(state.set(u"sCustomZero"_s, -50.0F), Done);
    EXPECT_EQ(state.set(u"sCustomFS"_s, 50.0F), Done);
    memory_.contents.tasks[1].byHand = {true, true};
    carryOut(memory_, {jobFor(u"LI-401"_s)}, workAt(u"2026-11-20 09:15"_s));
    EXPECT_FLOAT_EQ(runs()[1].entries[0].applied, -40);
}

TEST_F(Fluke74xFieldWork, TakesEachPointAsOftenAsTheStrategyHoldsIt) {
    memory_.contents.strategies[0].points = {0, 0, 0, 1, 1, 1};
    carryOut(memory_, {jobFor(u"PT-103"_s, {1, 2, 3, 4, 5, 6})}, workAt(u"2026-11-20 09:15"_s));
    ASSERT_EQ(runs()[0].entries.size(), 6U);
    EXPECT_EQ(runs()[0].entries[2].applied, 0);
    EXPECT_EQ(runs()[0].entries[2].error, 3);
    EXPECT_EQ(runs()[0].entries[3].applied, 150);
}

TEST_F(Fluke74xFieldWork, TheCalibratorMayShowAnotherErrorThanItRead) {
    carryOutPlan(u"PT-103;; 2;;;; 0.1, 0, -0.1\nPT-103;; 0/4mA, 75/13mA;;;; 0.5"_s);
    EXPECT_FLOAT_EQ(runs()[0].entries[0].reading, 0.00432F);
    EXPECT_EQ(runs()[0].entries[0].error, 0.1F);
    EXPECT_EQ(runs()[0].entries[2].error, -0.1F);
    EXPECT_EQ(runs()[1].entries[1].error, 0.5F);
}

TEST_F(Fluke74xFieldWork, AScaleWithoutASpanShowsNoError) {
    EXPECT_EQ(memory_.contents.states[0].set(u"mUutFS"_s, 0.004F), Done);
    EXPECT_EQ(memory_.contents.states[0].set(u"sUutFS"_s, 0.0F), Done);
    carryOutPlan(u"PT-103;; 5/5"_s);
    EXPECT_EQ(runs()[0].entries[0].error, 0);
}

TEST_F(Fluke74xFieldWork, AModuleServesTheSideThatIsAPressure) {
    carryOutPlan(u"PT-103;;;; 71204\nPT-103;;;; 71204/71391\nPT-103;;;; /71391\nPT-103"_s);
    const struct {
        QString source;
        QString measure;
    } expected[] = {{u"71204"_s, {}}, {u"71204"_s, u"71391"_s}, {{}, u"71391"_s}, {{}, {}}};
    for (std::size_t place = 0; place < 4; ++place) {
        EXPECT_EQ(runs()[place].sourceModule, expected[place].source) << place;
        EXPECT_EQ(runs()[place].measureModule, expected[place].measure) << place;
    }
    EXPECT_EQ(memory_.contents.states[0].set(u"scMode"_s, Word{u"DCV"_s}), Done);
    carryOutPlan(u"PT-103;;;; 71204"_s);
    EXPECT_EQ(runs()[4].sourceModule, QString()) << "no side is one";
    EXPECT_EQ(memory_.contents.states[0].set(u"mcMode"_s, Word{u"Pressure"_s}), Done);
    carryOutPlan(u"PT-103;;;; 71204"_s);
    EXPECT_EQ(runs()[5].measureModule, u"71204"_s);
}

TEST_F(Fluke74xFieldWork, RunsAreAddedInTheirOrderEachAnIntervalLater) {
    Job left = jobFor(u"PT-103"_s);
    left.asLeft = true;
    Job dated = jobFor(u"LI-401"_s);
    dated.moment = momentOf(u"2026-12-31 23:59:30"_s);
    const QStringList lines = carryOut(memory_, {jobFor(u"PT-103"_s), left, dated, jobFor(u"LI-401"_s)},
                                       workAt(u"2026-11-20 09:15:05"_s, 90));
    EXPECT_EQ(lines, (QStringList{u"PT-103: run 1, 3 points taken"_s, u"PT-103: run 2, 3 points taken"_s,
                                  u"LI-401: run 1, 1 points taken"_s, u"LI-401: run 2, 1 points taken"_s}));
    EXPECT_EQ(carryOut(memory_, {left}, workAt(u"2027-02-03 04:05:06"_s)),
              QStringList{u"PT-103: run 3, 3 points taken"_s});
    const ClockTime expected[] = {{2026, 11, 20, 9, 15, 5},
                                  {2026, 11, 20, 9, 16, 35},
                                  {2026, 12, 31, 23, 59, 30},
                                  {2027, 1, 1, 0, 1, 0},
                                  {2027, 2, 3, 4, 5, 6}};
    ASSERT_EQ(runs().size(), 5U);
    for (std::size_t place = 0; place < 5; ++place)
        EXPECT_EQ(runs()[place].time, expected[place]) << place;
}

TEST_F(Fluke74xFieldWork, AsLeftNeedsARunBeforeIt) {
    const Memory before = memory_;
    Job left = jobFor(u"PT-103"_s);
    left.asLeft = true;
    EXPECT_EQ(refusalOf(memory_, left), u"PT-103: as-left needs a run before it"_s);
    EXPECT_EQ(memory_, before);
}

TEST_F(Fluke74xFieldWork, ATaskWithoutAStrategyCantBeCarriedOut) {
    memory_.contents.tasks[0].strategy = 0;
    const Memory before = memory_;
    EXPECT_EQ(refusalOf(memory_, jobFor(u"PT-103"_s)),
              u"PT-103: the task has no test strategy and can't be carried out"_s);
    EXPECT_EQ(memory_, before);
    EXPECT_EQ(listing(memory_)[1],
              u"PT-103 (serial number V88103): no test strategy, can't be carried out"_s);
}

TEST_F(Fluke74xFieldWork, WithoutANameTheCalibratorGivesItsOwnNumber) {
    carryOutPlan(u"PT-103;;; J. Öz\nPT-103"_s);
    EXPECT_EQ(runs()[0].technician, u"J. Öz"_s);
    EXPECT_EQ(runs()[1].technician, u"7112044"_s);
}

TEST_F(Fluke74xFieldWork, ATagOfTwoTasksIsCarriedOutOnBoth) {
    memory_.contents.tasks[1].tag = memory_.contents.tasks[1].instrument = u"PT-103"_s;
    carryOutPlan(u"PT-103"_s);
    ASSERT_EQ(runs().size(), 2U);
    EXPECT_EQ(runs()[0].serial, u"V88103"_s);
    EXPECT_EQ(runs()[1].serial, u"None"_s);
    EXPECT_EQ(runs()[1].time.minute, 16);
}

TEST_F(Fluke74xFieldWork, WhatCantBeDoneLeavesTheMemoryAsItWas) {
    const Memory before = memory_;
    EXPECT_EQ(refusalOf(memory_, jobFor(u"PT-999"_s)), u"The calibrator holds no task \"PT-999\"."_s);
    EXPECT_EQ(refusalOf(memory_, jobFor(u"PT-103"_s, {1, 2})), u"2 deviations for 3 readings"_s);
    Job job = jobFor(u"PT-103"_s);
    job.shown = {1, 2, 3, 4};
    EXPECT_EQ(refusalOf(memory_, job), u"4 deviations for 3 readings"_s);
    EXPECT_TRUE(
        refusalOf(memory_, jobFor(u"PT-103"_s, {1e300})).endsWith(u"is more than the calibrator can keep"_s));
    job = jobFor(u"PT-103"_s);
    job.technician = QString(33, u'T');
    EXPECT_TRUE(refusalOf(memory_, job).startsWith(u"The calibrator takes at most 32 characters"_s));
    job.technician.clear();
    job.modules.measure = QString(33, u'7');
    EXPECT_TRUE(refusalOf(memory_, job).startsWith(u"The calibrator takes at most 32 characters"_s));
    EXPECT_EQ(memory_, before);
}

TEST_F(Fluke74xFieldWork, SeveralRunsOfAnInstrumentAreOneGroup) {
    carryOutPlan(u"PT-103; as-found; 1\nLI-401\nPT-103; as-left; 0/4mA, 75/12mA"_s);
    keep([&](Memory& memory) { memory = memory_; });
    EXPECT_EQ(storedMemory(), memory_);
    ASSERT_EQ(upload(), Done);
    qint32 groups = 0;
    qint32 atoms = 0;
    EXPECT_EQ(library_.MEM3ngroups(2, &groups), Done);
    EXPECT_EQ(groups, 2);
    EXPECT_EQ(library_.MEM3natoms(2, 0, &atoms), Done);
    EXPECT_EQ(atoms, 3 + 3 + 2 + 3);
}

TEST(Fluke74xListing, AnEmptyCalibratorReportsThatItIsEmpty) {
    EXPECT_EQ(listing({}),
              (QStringList{u"Fluke 743B, serial number 7112044"_s, u"The calibrator is empty."_s}));
}

TEST_F(Fluke74xFieldWork, TheListShowsTasksPromptsAndRuns) {
    memory_ = storedMemory();
    memory_.contents.prompts[0].text = u"Close the manifold.\r\nVent it."_s;
    EXPECT_EQ(listing(memory_),
              (QStringList{
                  u"Fluke 743B, serial number 7112044"_s,
                  u"PT-103 (serial number V88103): 9 POINT UP/DOWN at 0 50 100 percent"_s,
                  u"  source Pressure in_h2o 0 to 150, measure Current 0.004 to 0.02, loop power Enabled "
                  u"24V, tolerance 0.25 percent of span"_s,
                  u"  before: Close the manifold. Vent it."_s,
                  u"  after: Open it."_s,
                  u"  run 1: 2026-11-20 09:15:30 by J. Öz, source module 71204"_s,
                  u"    applied 0, read 0.0041, error shown 0.625"_s,
                  u"    applied 75, read 0.012, error shown 0"_s,
                  u"    applied 150, read 0.02, error shown -1e+38"_s,
                  u"  run 2: 2026-11-20 09:45:00 by J. Öz"_s,
                  u"    applied 0, read 0.004, error shown 0"_s,
                  u"LI-401 (serial number None): LINEARITY at 10 percent"_s,
                  u"  source Pressure in_h2o 0 to 150, measure by hand 0 to 300 gal/min, loop power Enabled "
                  u"24V, tolerance 0.25 percent of span"_s,
                  u"  no results"_s,
              }));
}

TEST_F(Fluke74xFieldWork, TheListShowsSensorsAndUnitsOfTemperature) {
    State& state = memory_.contents.states[0];
    EXPECT_EQ(state.set(u"scMode"_s, Word{u"3 Wire RTD"_s}), Done);
    EXPECT_EQ(state.set(u"sRtdType"_s, Word{u"Cu10 (427)"_s}), Done);
    EXPECT_EQ(state.set(u"defaultTemp"_s, Unit{u"Fahrenheit"_s}), Done);
    EXPECT_EQ(state.set(u"mcMode"_s, Word{u"TC"_s}), Done);
    EXPECT_EQ(state.set(u"loop"_s, Word{u"Disabled"_s}), Done);
    EXPECT_EQ(listing(memory_)[2], u"  source 3 Wire RTD Cu10 (427) Fahrenheit 0 to 150, measure TC K "
                                   "Fahrenheit 0.004 to 0.02, tolerance 0.25 percent of span"_s);
}

} // namespace kelvane::simulators::fluke74x
