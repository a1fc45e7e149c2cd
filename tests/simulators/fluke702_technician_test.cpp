#include "simulators/common/plan_parts.h"
#include "tests/simulators/fluke702_bench.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

class Fluke702Technician : public Fluke702Bench {
  protected:
    Fluke702Technician() {
        fillCalibrator();
        keep([](Memory& memory) { memory.contents.runs.clear(); });
    }
    Outcome technician(const QStringList& arguments) const {
        return runProgram(u"kelvane-technician"_s, QStringList{u"--memory"_s, file()} + arguments);
    }
};

TEST_F(Fluke702Technician, KnowsTheCalibratorByItsMemory) {
    const Outcome outcome = technician({u"list"_s});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(
        outcome.output.startsWith(u"Fluke 702, serial number 6841207\nPT-103 (serial number V88103)"_s))
        << outcome.output.toStdString();
}

TEST_F(Fluke702Technician, CarriesOutAllTasks) {
    const Outcome outcome =
        technician({u"carry-out"_s, u"--round"_s, u"as-left"_s, u"--deviation"_s, u"0.2"_s, u"--shown"_s,
                    u"0.5"_s, u"--technician"_s, u"J. Doe"_s, u"--module"_s, u"71204"_s, u"--date"_s,
                    u"2026-11-20"_s, u"--time"_s, u"09:15"_s, u"--interval"_s, u"120"_s});
    EXPECT_EQ(outcome.errors, QString());
    EXPECT_EQ(outcome.output, u"PT-103: as left, 3 points taken\nLI-401: as left, 1 points taken\n"_s);
    const std::vector<fluke702::Run> runs = storedMemory().contents.runs;
    ASSERT_EQ(runs.size(), 2U);
    EXPECT_EQ(runs[0].kind, AsLeft);
    EXPECT_EQ(runs[0].technician, u"J. Doe"_s);
    EXPECT_EQ(runs[0].module, u"71204"_s);
    EXPECT_FLOAT_EQ(runs[0].entries[0].reading, 0.004032F);
    EXPECT_EQ(runs[0].entries[0].error, 0.005F);
    EXPECT_EQ(runs[0].time.minute, 15);
    EXPECT_EQ(runs[1].time.minute, 17);
}

TEST_F(Fluke702Technician, TakesOnlyWhatIsNamed) {
    EXPECT_EQ(technician({u"carry-out"_s, u"--only"_s, u"LI-401"_s}).output,
              u"LI-401: as found, 1 points taken\n"_s);
    EXPECT_EQ(storedMemory().contents.runs.size(), 1U);
    EXPECT_EQ(storedMemory().contents.runs[0].technician, u"6841207"_s);
}

TEST_F(Fluke702Technician, FollowsAPlanOnceAndOnceMore) {
    folder_.put(u"plan"_s, "PT-103; as-found; 1; J. Öz; 71204; 2026-11-20 09:15\nPT-103; as-left; 0.1\n");
    for (const std::size_t runs : {2U, 4U}) {
        EXPECT_EQ(technician({u"carry-out"_s, u"--plan"_s, folder_.path(u"plan"_s)}).output,
                  u"PT-103: as found, 3 points taken\nPT-103: as left, 3 points taken\n"_s);
        EXPECT_EQ(storedMemory().contents.runs.size(), runs);
    }
    EXPECT_EQ(storedMemory().contents.runs[0].technician, u"J. Öz"_s);
    EXPECT_EQ(storedMemory().contents.runs[1].time.minute, 16);
}

TEST_F(Fluke702Technician, EmptiesTheResultsAndKeepsTheTasks) {
    EXPECT_EQ(technician({u"carry-out"_s}).code, 0);
    EXPECT_EQ(technician({u"erase"_s}).output, u"2 results erased\n"_s);
    EXPECT_TRUE(storedMemory().contents.runs.empty());
    EXPECT_EQ(storedMemory().contents.tasks.size(), 2U);
}

TEST_F(Fluke702Technician, SaysWhatIsWrongAndChangesNothing) {
    folder_.put(u"plan"_s, "PT-999\n");
    const QString plan = folder_.path(u"plan"_s);
    const Memory before = storedMemory();
    const struct {
        QStringList arguments;
        const char* words;
    } cases[] = {
        {{u"carry-out"_s, u"--points"_s, u"50"_s}, "--points is for a TorqueStar"},
        {{u"carry-out"_s, u"--low"_s, u"50"_s}, "--low is for a TorqueStar"},
        {{u"list"_s, u"--takes"_s, u"5"_s}, "--takes is for a TorqueStar"},
        {{u"carry-out"_s, u"--round"_s, u"found"_s}, "is no round"},
        {{u"carry-out"_s, u"--deviation"_s, u"x"_s}, "--deviation: \"x\" is no number"},
        {{u"carry-out"_s, u"--deviation"_s, u"1,2"_s}, "2 deviations for 3 readings"},
        {{u"carry-out"_s, u"--shown"_s, u"x"_s}, "--shown: \"x\" is no number"},
        {{u"carry-out"_s, u"--only"_s, u"PT-7"_s}, "There is nothing to do for \"PT-7\"."},
        {{u"carry-out"_s, u"--date"_s, u"2026-13-01"_s}, "is no moment"},
        {{u"carry-out"_s, u"--interval"_s, u"-1"_s}, "--interval needs a whole number"},
        {{u"carry-out"_s, u"--plan"_s, plan}, "The calibrator holds no task \"PT-999\""},
        {{u"carry-out"_s, u"--plan"_s, plan, u"--round"_s, u"as-left"_s}, "say the same thing twice"},
        {{u"carry-out"_s, u"--plan"_s, plan, u"--shown"_s, u"1"_s}, "say the same thing twice"},
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

TEST_F(Fluke702Technician, HasNothingToDoOnAnEmptyCalibrator) {
    ASSERT_EQ(download(), Done);
    const Outcome outcome = technician({u"carry-out"_s});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.errors.contains(u"There is nothing to carry out."_s));
}

TEST_F(Fluke702Technician, RefusesADamagedMemory) {
    const QByteArray half = folder_.contentOf(u"fluke702.json"_s).chopped(30);
    folder_.put(u"fluke702.json"_s, half);
    const Outcome outcome = technician({u"carry-out"_s});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.errors.contains(u"is not a calibrator's memory, or is damaged: at byte"_s))
        << outcome.errors.toStdString();
    EXPECT_EQ(folder_.contentOf(u"fluke702.json"_s), half);
}

TEST_F(Fluke702Technician, ManyTechniciansLoseNothing) {
    std::vector<std::unique_ptr<QProcess>> technicians;
    for (int number = 0; number < 8; ++number)
        technicians.push_back(startProgram(
            u"kelvane-technician"_s, {u"--memory"_s, file(), u"carry-out"_s, u"--only"_s, u"PT-103"_s}));
    for (const std::unique_ptr<QProcess>& process : technicians)
        EXPECT_EQ(outcomeOf(*process).code, 0);
    EXPECT_EQ(storedMemory().contents.runs.size(), 8U);
}

} // namespace kelvane::simulators::fluke702
