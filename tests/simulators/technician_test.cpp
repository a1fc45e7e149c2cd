#include "simulators/torquestar/memory_file.h"
#include "tests/simulators/message_bytes.h"
#include "tests/simulators/peer.h"
#include "tests/simulators/programs.h"

#include <QFile>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

class TechnicianProgram : public ::testing::Test {
  protected:
    Outcome technician(const QStringList& arguments) {
        return runProgram(u"kelvane-technician"_s, QStringList{u"--memory"_s, folder_.memory()} + arguments);
    }

    void download(const QStringList& names) {
        MemoryFile(folder_.memory()).use([&](Memory& memory) {
            for (const QString& name : names) {
                memory.characteristics.push_back({name, {}, {}, {}});
                EXPECT_EQ(readFields(addMessage({}).sliced(7), memory.characteristics.back().fields),
                          FieldBytes::Read);
            }
            return true;
        });
    }

    Memory storedMemory() {
        Memory kept;
        MemoryFile(folder_.memory()).use([&](Memory& memory) {
            kept = memory;
            return false;
        });
        return kept;
    }

    std::size_t resultsOf(const QString& name) { return storedMemory().find(name)->results.size(); }

    SimulatorFolder folder_;
    const QStringList points_{u"carry-out"_s, u"--points"_s, u"50,60,100"_s, u"--high"_s, u"100"_s};
};

TEST_F(TechnicianProgram, CarriesOutWhatARunningCalibratorHolds) {
    const Calibrator calibrator(folder_);
    Peer peer(calibrator.device());
    EXPECT_EQ(peer.exchange(addMessage("TW-1")), "t1A");
    EXPECT_EQ(peer.exchange("T1C" + wireName("TW-1")), hex("74 31 43 02"));
    const Outcome outcome = technician(
        points_ + QStringList{u"--deviation"_s, u"0.1,-0.2,0"_s, u"--comment"_s, u"as found"_s, u"--date"_s,
                              u"2026-11-20"_s, u"--time"_s, u"09:15"_s, u"--takes"_s, u"1"_s});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.output, u"TW-1: 3 results taken\n"_s);
    EXPECT_EQ(outcome.errors, QString());
    EXPECT_EQ(peer.exchange("T1C" + wireName("TW-1")), "t1C");
    EXPECT_EQ(peer.exchange("T1D"),
              hex("74 31 44 01 35 29 00 00 01 65 6C") + scaled(50.05) + scaled(50.05) + scaled(50.05));
    EXPECT_EQ(peer.exchange("T1F"), "t1Fas found" + hex("FF"));
}

TEST_F(TechnicianProgram, ListsWhatTheCalibratorHolds) {
    EXPECT_EQ(technician({u"list"_s}).output, u"The calibrator is empty.\n"_s);
    download({u"TW-1"_s});
    const Outcome outcome = technician({u"list"_s});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.output.startsWith(u"TW-1: 3 samples, Peak, Right\n"_s))
        << outcome.output.toStdString();
}

TEST_F(TechnicianProgram, TakesOnlyWhatIsNamed) {
    download({u"TW-1"_s, u"TW-2"_s, u"TW-345678901"_s.left(11)});
    EXPECT_EQ(technician(points_ + QStringList{u"--only"_s, u"TW-2"_s, u"--only"_s, u"TW-3456789012"_s}).code,
              0);
    EXPECT_EQ(resultsOf(u"TW-1"_s), 0U);
    EXPECT_EQ(resultsOf(u"TW-2"_s), 9U);
    EXPECT_EQ(resultsOf(u"TW-34567890"_s), 9U);
}

TEST_F(TechnicianProgram, FollowsAPlan) {
    download({u"TW-1"_s, u"TW-2"_s});
    folder_.put(u"plan"_s, "TW-2; 50; 0.1; Prüfer: Öz; 2026-11-20 09:15\n");
    EXPECT_EQ(technician({u"carry-out"_s, u"--plan"_s, folder_.path(u"plan"_s)}).code, 0);
    const Memory memory = storedMemory();
    EXPECT_TRUE(memory.characteristics[0].results.empty());
    EXPECT_EQ(memory.characteristics[1].comment, u"Prüfer: Öz"_s);
    EXPECT_EQ(memory.characteristics[1].results.front(), (Result{20261120, 91500, {500500, 500500, 500500}}));
}

TEST_F(TechnicianProgram, SaysWhatIsWrongAndChangesNothing) {
    download({u"TW-1"_s});
    folder_.put(u"plan"_s, "TW-9; 50\n");
    const Memory before = storedMemory();
    const struct {
        QStringList arguments;
        const char* words;
    } cases[] = {
        {{u"carry-out"_s}, "carry-out needs --points and --high, or --plan"},
        {{u"carry-out"_s, u"--points"_s, u"50"_s}, "carry-out needs --points and --high, or --plan"},
        {{u"carry-out"_s, u"--points"_s, u"5;0"_s, u"--high"_s, u"1"_s}, "--points: \"5;0\" is no number"},
        {{u"carry-out"_s, u"--points"_s, u"50"_s, u"--high"_s, u"x"_s}, "--high: \"x\" is no number"},
        {points_ + QStringList{u"--deviation"_s, u"1,2"_s}, "2 deviations for 3 readings"},
        {points_ + QStringList{u"--only"_s, u"TW-7"_s}, "There is nothing to do for \"TW-7\"."},
        {points_ + QStringList{u"--date"_s, u"2026-13-01"_s}, "is no moment"},
        {points_ + QStringList{u"--time"_s, u"noon"_s}, "is no moment"},
        {points_ + QStringList{u"--interval"_s, u"-1"_s}, "--interval needs a whole number from 0"},
        {points_ + QStringList{u"--takes"_s, u"201"_s}, "--takes needs a whole number from 0 to 200"},
        {points_ + QStringList{u"--plan"_s, folder_.path(u"plan"_s)}, "say the same thing twice"},
        {{u"carry-out"_s, u"--plan"_s, folder_.path(u"plan"_s)},
         "The calibrator holds no characteristic \"TW-9\""},
        {{u"carry-out"_s, u"--plan"_s, folder_.path(u"none"_s)}, "can't be read"},
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

TEST_F(TechnicianProgram, RefusesACommandLineThatItDoesNotUnderstand) {
    const struct {
        QStringList arguments;
        const char* words;
    } cases[] = {
        {{}, "the command is list, carry-out or erase"},
        {{u"dance"_s}, "the command is list, carry-out or erase"},
        {{u"list"_s, u"carry-out"_s}, "carry-out is not understood"},
        {{u"list"_s, u"--loud"_s}, "unknown option --loud"},
    };
    for (const auto& entry : cases) {
        const Outcome outcome = technician(entry.arguments);
        EXPECT_EQ(outcome.code, 2) << entry.words;
        EXPECT_EQ(outcome.errors, u"kelvane-technician: %1; see kelvane-technician --help\n"_s.arg(
                                      QString::fromLatin1(entry.words)));
        EXPECT_EQ(outcome.output, QString()) << entry.words;
    }
    EXPECT_EQ(runProgram(u"kelvane-technician"_s, {u"list"_s}).errors,
              u"kelvane-technician: --memory is missing; see kelvane-technician --help\n"_s);
}

TEST_F(TechnicianProgram, HasNothingToDoOnAnEmptyCalibrator) {
    const Outcome outcome = technician(points_);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.errors.contains(u"nothing to carry out"_s));
    EXPECT_EQ(technician({u"erase"_s}).output, u"0 results erased\n"_s);
    EXPECT_FALSE(QFile::exists(folder_.memory()));
}

TEST_F(TechnicianProgram, ErasesTheResultsAndKeepsTheWork) {
    download({u"TW-1"_s, u"TW-2"_s});
    EXPECT_EQ(technician(points_ + QStringList{u"--comment"_s, u"as found"_s}).code, 0);
    EXPECT_EQ(technician({u"erase"_s}).output, u"18 results erased\n"_s);
    const Memory memory = storedMemory();
    ASSERT_EQ(memory.characteristics.size(), 2U);
    EXPECT_TRUE(memory.characteristics[0].results.empty());
    EXPECT_EQ(memory.characteristics[0].comment, QString());
}

TEST_F(TechnicianProgram, RefusesWhatIsForAnotherCalibrator) {
    download({u"TW-1"_s});
    for (const QString& option : {u"--round"_s, u"--technician"_s, u"--module"_s, u"--shown"_s}) {
        const Outcome outcome = technician(points_ + QStringList{option, u"1"_s});
        EXPECT_EQ(outcome.code, 1);
        EXPECT_TRUE(outcome.errors.contains(option + u" is for a Fluke 702"_s))
            << outcome.errors.toStdString();
    }
    EXPECT_EQ(resultsOf(u"TW-1"_s), 0U);
}

TEST_F(TechnicianProgram, RefusesADamagedMemory) {
    folder_.put(u"memory.json"_s, "{");
    const Outcome outcome = technician(points_);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.errors.contains(u"damaged"_s));
    EXPECT_EQ(folder_.contentOf(u"memory.json"_s), "{");
}

TEST_F(TechnicianProgram, WaitsWhileAnotherProcessLocksTheMemory) {
    download({u"TW-1"_s});
    const int lock = ::open(QFile::encodeName(folder_.path(u"memory.json.lock"_s)), O_RDWR | O_CLOEXEC);
    ASSERT_GE(lock, 0);
    ASSERT_EQ(::flock(lock, LOCK_EX), 0);
    const auto process =
        startProgram(u"kelvane-technician"_s, QStringList{u"--memory"_s, folder_.memory()} + points_);
    EXPECT_FALSE(process->waitForFinished(300));
    ::close(lock);
    EXPECT_EQ(outcomeOf(*process).code, 0);
    EXPECT_EQ(resultsOf(u"TW-1"_s), 9U);
}

TEST_F(TechnicianProgram, ManyTechniciansAndACalibratorLoseNothing) {
    QStringList names;
    for (int number = 0; number < 8; ++number)
        names += u"TW-%1"_s.arg(number);
    download(names);
    const Calibrator calibrator(folder_);
    Peer peer(calibrator.device());
    std::vector<std::unique_ptr<QProcess>> technicians;
    for (const QString& name : names) {
        technicians.push_back(
            startProgram(u"kelvane-technician"_s, QStringList{u"--memory"_s, folder_.memory()} + points_ +
                                                      QStringList{u"--only"_s, name}));
        EXPECT_EQ(peer.exchange(addMessage("NEW-" + name.toLatin1())), "t1A");
    }
    for (const std::unique_ptr<QProcess>& process : technicians)
        EXPECT_EQ(outcomeOf(*process).code, 0);
    EXPECT_EQ(storedMemory().characteristics.size(), 16U);
    for (const QString& name : names)
        EXPECT_EQ(resultsOf(name), 9U) << name.toStdString();
}

} // namespace kelvane::simulators
