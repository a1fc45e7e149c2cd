#include "tests/simulators/peer.h"
#include "tests/simulators/programs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <csignal>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

Outcome runCalibrator(const SimulatorFolder& simulatorFolder, const QStringList& more) {
    return runProgram(u"kelvane-torquestar"_s,
                      QStringList{u"--memory"_s, simulatorFolder.memory(), u"--serial"_s, u"48213"_s} + more);
}

} // namespace

TEST(CalibratorProgram, PrintsItsDeviceAndMakesTheLink) {
    const SimulatorFolder simulatorFolder;
    const Calibrator calibrator(simulatorFolder);
    EXPECT_TRUE(calibrator.device().startsWith(u"/dev/pts/"_s));
    EXPECT_EQ(QFile::symLinkTarget(simulatorFolder.link()), calibrator.device());
}

TEST(CalibratorProgram, EndsCleanlyOnEachSignalAndRemovesItsLink) {
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        const SimulatorFolder simulatorFolder;
        Calibrator calibrator(simulatorFolder);
        Peer peer(calibrator.device());
        EXPECT_EQ(peer.exchange("T0A"), "t0A");
        ::kill(static_cast<pid_t>(calibrator.process().processId()), number);
        EXPECT_EQ(outcomeOf(calibrator.process()).code, 0) << number;
        EXPECT_FALSE(QFileInfo(simulatorFolder.link()).isSymLink()) << number;
    }
}

TEST(CalibratorProgram, EndsInTheMiddleOfAReplyToo) {
    const SimulatorFolder simulatorFolder;
    Calibrator calibrator(simulatorFolder, {u"--baud"_s, u"30"_s});
    Peer peer(calibrator.device());
    peer.startLink();
    calibrator.process().terminate();
    EXPECT_EQ(outcomeOf(calibrator.process()).code, 0);
}

TEST(CalibratorProgram, ReplacesAStaleLink) {
    const SimulatorFolder simulatorFolder;
    ASSERT_TRUE(QFile::link(u"/dev/pts/none"_s, simulatorFolder.link()));
    const Calibrator calibrator(simulatorFolder);
    EXPECT_EQ(QFile::symLinkTarget(simulatorFolder.link()), calibrator.device());
}

TEST(CalibratorProgram, LeavesTheLinkOfALaterOne) {
    const SimulatorFolder simulatorFolder;
    auto first = std::make_unique<Calibrator>(simulatorFolder);
    const Calibrator second(simulatorFolder);
    first.reset();
    EXPECT_EQ(QFile::symLinkTarget(simulatorFolder.link()), second.device());
}

TEST(CalibratorProgram, KeepsAFileThatBlocksTheLink) {
    const SimulatorFolder simulatorFolder;
    simulatorFolder.put(u"torquestar"_s, "precious");
    const Outcome outcome = runCalibrator(simulatorFolder, {u"--link"_s, simulatorFolder.link()});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.errors.contains(u"is in the way"_s)) << outcome.errors.toStdString();
    EXPECT_EQ(simulatorFolder.contentOf(u"torquestar"_s), "precious");
}

TEST(CalibratorProgram, RefusesADamagedMemoryBeforeTheFirstLink) {
    const SimulatorFolder simulatorFolder;
    simulatorFolder.put(u"memory.json"_s, "{");
    const Outcome outcome = runCalibrator(simulatorFolder, {});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.output, QString());
    EXPECT_TRUE(outcome.errors.contains(u"is not a calibrator's memory, or is damaged"_s))
        << outcome.errors.toStdString();
    EXPECT_EQ(simulatorFolder.contentOf(u"memory.json"_s), "{");
}

TEST(CalibratorProgram, EndsWithAReasonWhenItsMemoryIsDamagedMeanwhile) {
    const SimulatorFolder simulatorFolder;
    Calibrator calibrator(simulatorFolder);
    simulatorFolder.put(u"memory.json"_s, "{");
    Peer peer(calibrator.device());
    EXPECT_ANY_THROW(peer.exchange("T0A"));
    const Outcome outcome = outcomeOf(calibrator.process());
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.errors.contains(u"damaged"_s)) << outcome.errors.toStdString();
    EXPECT_EQ(simulatorFolder.contentOf(u"memory.json"_s), "{");
}

TEST(CalibratorProgram, SaysWhatIsWrongWithItsArguments) {
    const SimulatorFolder simulatorFolder;
    const struct {
        QStringList arguments;
        const char* words;
    } cases[] = {
        {{u"--serial"_s, u"0"_s}, "--serial needs a whole number"},
        {{u"--serial"_s, u"abc"_s}, "--serial needs a whole number"},
        {{u"--serial"_s, u"2147483648"_s}, "--serial needs a whole number"},
        {{u"--baud"_s, u"0"_s}, "--baud needs a whole number"},
        {{u"--room"_s, u"-1"_s}, "--room needs a whole number"},
        {{u"--acknowledge"_s, u"nak"_s}, "--acknowledge is dle or ack"},
        {{u"--fault"_s, u"sulk"_s}, "\"sulk\" is no fault"},
        {{u"--record"_s, simulatorFolder.path(u"nowhere/record"_s)}, "can't be written"},
        {{u"--link"_s, simulatorFolder.path(u"nowhere/link"_s)}, "can't be made"},
    };
    for (const auto& entry : cases) {
        const Outcome outcome = runCalibrator(simulatorFolder, entry.arguments);
        EXPECT_EQ(outcome.code, 1) << entry.words;
        EXPECT_TRUE(outcome.errors.contains(QString::fromLatin1(entry.words)))
            << outcome.errors.toStdString();
    }
}

TEST(CalibratorProgram, RefusesACommandLineThatItDoesNotUnderstand) {
    const SimulatorFolder simulatorFolder;
    const struct {
        QStringList arguments;
        const char* words;
    } cases[] = {
        {{u"more"_s}, "more is not understood"},
        {{u"--colour"_s}, "unknown option --colour"},
        {{u"--record"_s}, "--record needs a value"},
        {{u"--no-pace=1"_s}, "--no-pace takes no value"},
    };
    for (const auto& entry : cases) {
        const Outcome outcome = runCalibrator(simulatorFolder, entry.arguments);
        EXPECT_EQ(outcome.code, 2) << entry.words;
        EXPECT_EQ(outcome.errors, u"kelvane-torquestar: %1; see kelvane-torquestar --help\n"_s.arg(
                                      QString::fromLatin1(entry.words)));
        EXPECT_EQ(outcome.output, QString());
    }
    EXPECT_EQ(runProgram(u"kelvane-torquestar"_s, {}).code, 2);
}

TEST(CalibratorProgram, ReportsASerialNumberThatTheWorkstationCantRead) {
    const SimulatorFolder simulatorFolder;
    Calibrator calibrator(simulatorFolder, {u"--no-pace"_s, u"--serial"_s, QString::number(0x010A01)});
    calibrator.process().terminate();
    EXPECT_TRUE(outcomeOf(calibrator.process()).errors.startsWith(u"note: serial number 68097 has a byte"_s));
}

TEST(CalibratorProgram, WaitsWithoutUsingTheProcessor) {
    const SimulatorFolder simulatorFolder;
    Calibrator calibrator(simulatorFolder, {u"--baud"_s, u"300"_s});
    Peer peer(calibrator.device());
    peer.exchange("T0A"); // two thirds of a second on this line
    QFile state(u"/proc/%1/stat"_s.arg(calibrator.process().processId()));
    ASSERT_TRUE(state.open(QIODevice::ReadOnly));
    const QByteArrayList parts = state.readAll().split(' ');
    const double seconds =
        (parts.at(13).toDouble() + parts.at(14).toDouble()) / static_cast<double>(::sysconf(_SC_CLK_TCK));
    EXPECT_LT(seconds, 0.3);
}

} // namespace kelvane::simulators
