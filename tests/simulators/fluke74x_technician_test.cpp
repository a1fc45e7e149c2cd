#include "tests/simulators/fluke74x_bench.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

class Fluke74xTechnician : public Fluke74xBench {
  protected:
    Fluke74xTechnician() {
        fillCalibrator();
        keep([](Memory& memory) { memory.contents.runs.clear(); });
    }
    Outcome technician(const QStringList& arguments) const {
        return runProgram(u"kelvane-technician"_s, QStringList{u"--memory"_s, file()} + arguments);
    }
};

TEST_F(Fluke74xTechnician, KnowsTheCalibratorByItsMemory) {
    const Outcome outcome = technician({u"list"_s});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(
        outcome.output.startsWith(u"Fluke 743B, serial number 7112044\nPT-103 (serial number V88103)"_s))
        << outcome.output.toStdString();
}

TEST_F(Fluke74xTechnician, CarriesOutAllTasks) {
    const Outcome outcome =
        technician({u"carry-out"_s, u"--deviation"_s, u"0.2"_s, u"--shown"_s, u"0.5"_s, u"--technician"_s,
                    u"J. Doe"_s, u"--module"_s, u"71204/71391"_s, u"--date"_s, u"2026-11-20"_s, u"--time"_s,
                    u"09:15"_s, u"--interval"_s, u"120"_s});
    EXPECT_EQ(outcome.errors, QString());
    EXPECT_EQ(outcome.output, u"PT-103: run 1, 3 points taken\nLI-401: run 1, 1 points taken\n"_s);
    const std::vector<fluke74x::Run> runs = storedMemory().contents.runs;
    ASSERT_EQ(runs.size(), 2U);
    EXPECT_EQ(runs[0].technician, u"J. Doe"_s);
    EXPECT_EQ(runs[0].sourceModule, u"71204"_s);
    EXPECT_EQ(runs[0].measureModule, u"71391"_s);
    EXPECT_FLOAT_EQ(runs[0].entries[0].reading, 0.004032F);
    EXPECT_EQ(runs[0].entries[0].error, 0.5F);
    EXPECT_EQ(runs[0].time.minute, 15);
    EXPECT_EQ(runs[1].time.minute, 17);
}

TEST_F(Fluke74xTechnician, LeavesATaskWithoutAStrategyAndSaysSo) {
    keep([](Memory& memory) { memory.contents.tasks[0].strategy = 0; });
    EXPECT_EQ(technician({u"carry-out"_s}).output, u"LI-401: run 1, 1 points taken\n"
                                                   "PT-103: no test strategy, can't be carried out\n"_s);
    EXPECT_EQ(storedMemory().contents.runs.size(), 1U);
}

TEST_F(Fluke74xTechnician, FollowsAPlanOnceAndOnceMore) {
    folder_.put(u"plan"_s, "PT-103; as-found; 1; J. Öz; 71204; 2026-11-20 09:15\nPT-103; as-left; 0/4mA\n");
    for (const std::size_t runs : {2U, 4U}) {
        EXPECT_EQ(
            technician({u"carry-out"_s, u"--plan"_s, folder_.path(u"plan"_s)}).output,
            u"PT-103: run %1, 3 points taken\nPT-103: run %2, 1 points taken\n"_s.arg(runs - 1).arg(runs));
        EXPECT_EQ(storedMemory().contents.runs.size(), runs);
    }
    EXPECT_EQ(storedMemory().contents.runs[0].technician, u"J. Öz"_s);
    EXPECT_EQ(storedMemory().contents.runs[1].time.minute, 16);
}

TEST_F(Fluke74xTechnician, EmptiesTheResultsAndKeepsTheTasks) {
    EXPECT_EQ(technician({u"carry-out"_s}).code, 0);
    EXPECT_EQ(technician({u"erase"_s}).output, u"2 results erased\n"_s);
    EXPECT_TRUE(storedMemory().contents.runs.empty());
    EXPECT_EQ(storedMemory().contents.tasks.size(), 2U);
}

TEST_F(Fluke74xTechnician, SaysWhatIsWrongAndChangesNothing) {
    folder_.put(u"plan"_s, "PT-999\n");
    const QString plan = folder_.path(u"plan"_s);
    const Memory before = storedMemory();
    const struct {
        QStringList arguments;
        const char* words;
    } cases[] = {
        {{u"carry-out"_s, u"--points"_s, u"50"_s}, "--points is for a TorqueStar"},
        {{u"carry-out"_s, u"--round"_s, u"found"_s}, "is no round"},
        {{u"carry-out"_s, u"--round"_s, u"as-left"_s}, "as-left needs a run before it"},
        {{u"carry-out"_s, u"--deviation"_s, u"1,2"_s}, "2 deviations for 3 readings"},
        {{u"carry-out"_s, u"--module"_s, u"1/2/3"_s}, "more than the modules"},
        {{u"carry-out"_s, u"--only"_s, u"PT-7"_s}, "There is nothing to do for \"PT-7\"."},
        {{u"carry-out"_s, u"--plan"_s, plan}, "The calibrator holds no task \"PT-999\""},
        {{u"carry-out"_s, u"--plan"_s, plan, u"--module"_s, u"1"_s}, "say the same thing twice"},
    };
    for (const auto& entry : cases) {
        const Outcome outcome = technician(entry.arguments);
        EXPECT_EQ(outcome.code, 1) << entry.words;
        EXPECT_TRUE(outcome.errors.contains(QString::fromLatin1(entry.words)))
            << outcome.errors.toStdString();
        EXPECT_EQ(outcome.output, QString()) << entry.words;
    }
    EXPECT_EQ(storedMemory(), before);
}

TEST_F(Fluke74xTechnician, ManyTechniciansLoseNothing) {
    std::vector<std::unique_ptr<QProcess>> technicians;
    for (int number = 0; number < 8; ++number)
        technicians.push_back(startProgram(
            u"kelvane-technician"_s, {u"--memory"_s, file(), u"carry-out"_s, u"--only"_s, u"PT-103"_s}));
    for (const std::unique_ptr<QProcess>& process : technicians)
        EXPECT_EQ(outcomeOf(*process).code, 0);
    EXPECT_EQ(storedMemory().contents.runs.size(), 8U);
}

} // namespace kelvane::simulators::fluke74x
