#include "simulators/common/call_faults.h"
#include "simulators/fluke702/codes.h"
#include "simulators/fluke702/memory.h"
#include "simulators/fluke702/operations.h"
#include "simulators/fluke74x/codes.h"
#include "simulators/fluke74x/memory.h"
#include "simulators/fluke74x/operations.h"
#include "simulators/torquestar/memory_file.h"
#include "tests/simulators/message_bytes.h"
#include "tests/simulators/programs.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

QString page() {
    QFile file(QStringLiteral(KELVANE_SIMULATORS_PAGE));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// One calibrator's chapter.
QString textOfChapter(const QString& chapter) {
    return page().section(u"\n## "_s + chapter + u'\n', 1).section(u"\n## "_s, 0, 0);
}

/// Its indented lines.
QStringList examples(const QString& chapter) {
    QStringList lines;
    for (const QString& line : textOfChapter(chapter).split(u'\n'))
        if (line.startsWith(u"    "_s))
            lines += line.trimmed();
    return lines;
}

const QString torqueStar = u"The torque calibrator"_s;
const QString fluke702Chapter = u"The Fluke 702"_s;
const QString fluke74xChapter = u"The Fluke 743 and 744"_s;

/// Starts an example of the page in the simulators.
std::unique_ptr<QProcess> startExample(const QString& example, const SimulatorFolder& simulatorFolder) {
    QStringList words = QProcess::splitCommand(example);
    const QString program = words.takeFirst().section(u'/', -1);
    auto process = std::make_unique<QProcess>();
    process->setWorkingDirectory(simulatorFolder.path(u"."_s));
    process->start(QDir(QCoreApplication::applicationDirPath()).filePath(program), words);
    return process;
}

/// Carries out the technician's commands of a chapter on a memory with two tasks, with the plan of the page.
void tryFlukeCommands(const QString& chapter, const QString& plan, const SimulatorFolder& simulatorFolder) {
    const QStringList lines = examples(chapter);
    simulatorFolder.put(plan, lines.filter(u"; "_s).join(u'\n').toUtf8());
    const QStringList commands = lines.filter(u"kelvane-technician"_s);
    EXPECT_EQ(commands.size(), 4);
    for (const QString& command : commands) {
        const std::unique_ptr<QProcess> process = startExample(command, simulatorFolder);
        const Outcome outcome = outcomeOf(*process);
        EXPECT_EQ(outcome.code, 0) << command.toStdString() << outcome.errors.toStdString();
        EXPECT_TRUE(
            outcome.output.contains(command.endsWith(u"erase"_s) ? u"5 results erased"_s : u"PT-104"_s))
            << command.toStdString() << outcome.output.toStdString();
    }
}

void expectStatus(const QString& chapter, int code) {
    EXPECT_TRUE(
        textOfChapter(chapter).contains(QRegularExpression(u"\n\\|[ 0-9,]*\\b%1\\b[ 0-9,]*\\|"_s.arg(code))))
        << code;
}

} // namespace

TEST(SimulatorsPage, ItsTechnicianCommandsForTorqueDoWhatTheySay) {
    const SimulatorFolder simulatorFolder;
    ASSERT_TRUE(QDir(simulatorFolder.path(u"."_s)).mkpath(u"build/workstation"_s));
    MemoryFile(simulatorFolder.path(u"build/workstation/torquestar.json"_s)).use([](Memory& memory) {
        for (const QString& name : {u"TW-101"_s, u"TW-102"_s}) {
            memory.characteristics.push_back({name, {}, {}, {}});
            EXPECT_EQ(readFields(addMessage({}).sliced(7), memory.characteristics.back().fields),
                      FieldBytes::Read);
        }
        return true;
    });
    const QStringList lines = examples(torqueStar);
    simulatorFolder.put(u"plan.txt"_s, lines.filter(u";"_s).join(u'\n').toUtf8());
    const QStringList commands = lines.filter(u"kelvane-technician"_s);
    EXPECT_EQ(commands.size(), 3);
    for (const QString& command : commands) {
        const std::unique_ptr<QProcess> process = startExample(command, simulatorFolder);
        const Outcome outcome = outcomeOf(*process);
        EXPECT_EQ(outcome.code, 0) << command.toStdString() << outcome.errors.toStdString();
        EXPECT_TRUE(outcome.output.contains(u"TW-102"_s)) << command.toStdString();
        // The readings that the page recommends are those that come over well.
        EXPECT_FALSE(outcome.output.contains(u"note:"_s)) << outcome.output.toStdString();
    }
}

TEST(SimulatorsPage, ItsCalibratorStarts) {
    const SimulatorFolder simulatorFolder;
    const QStringList commands = examples(torqueStar).filter(u"kelvane-torquestar"_s);
    ASSERT_EQ(commands.size(), 1);
    const std::unique_ptr<QProcess> process = startExample(commands.constFirst(), simulatorFolder);
    ASSERT_TRUE(process->waitForReadyRead(20000));
    EXPECT_TRUE(QFileInfo(simulatorFolder.link()).isSymLink());
    process->terminate();
    EXPECT_EQ(outcomeOf(*process).code, 0);
}

TEST(SimulatorsPage, ItsTechnicianCommandsForTheFluke702DoWhatTheySay) {
    const SimulatorFolder simulatorFolder;
    ASSERT_TRUE(QDir(simulatorFolder.path(u"."_s)).mkpath(u"build/workstation"_s));
    fluke702::MemoryFile file(simulatorFolder.path(u"build/workstation/fluke702.json"_s));
    file.use([](fluke702::Memory& memory) {
        memory.contents.strategies = {{u"5 POINT UP"_s, {0, 0.25F, 0.5F, 0.75F, 1}}};
        memory.contents.states = {{}, {}};
        memory.contents.tasks = {{u"PT-103"_s, {}, {}, 1, 1, false, u"PT-103"_s, u"V88103"_s},
                                 {u"PT-104"_s, {}, {}, 1, 2, false, u"PT-104"_s, u"V88104"_s}};
        return true;
    });
    tryFlukeCommands(fluke702Chapter, u"plan702.txt"_s, simulatorFolder);
}

TEST(SimulatorsPage, ItsTechnicianCommandsForTheFluke74xDoWhatTheySay) {
    const SimulatorFolder simulatorFolder;
    ASSERT_TRUE(QDir(simulatorFolder.path(u"."_s)).mkpath(u"build/workstation"_s));
    fluke74x::MemoryFile file(simulatorFolder.path(u"build/workstation/fluke74x.json"_s));
    file.use([](fluke74x::Memory& memory) {
        memory.contents.strategies = {{u"5 POINT UP"_s, {0, 0.25F, 0.5F, 0.75F, 1}}};
        memory.contents.states = {{}, {}};
        memory.contents.tasks = {{u"PT-103"_s, {}, {}, 1, 1, {}, u"PT-103"_s, u"V88103"_s},
                                 {u"PT-104"_s, {}, {}, 1, 2, {}, u"PT-104"_s, u"V88104"_s}};
        return true;
    });
    tryFlukeCommands(fluke74xChapter, u"plan74x.txt"_s, simulatorFolder);
}

TEST(SimulatorsPage, ItsFaultsOfTheFluke702AreTaken) {
    const QString example = examples(fluke702Chapter).filter(u"KELVANE_FLUKE702_FAULTS="_s).value(0);
    CallFaults faults(example.section(u'"', 1, 1), fluke702::operationNames());
    for (const int status : {-1, -1, 2012, -1})
        EXPECT_EQ(faults.take("MEMtemplate").value_or(-1), status);
    EXPECT_EQ(faults.take("DPCdnlStep"), 100);
}

TEST(SimulatorsPage, ItsFaultsOfTheFluke74xAreTaken) {
    const QString example = examples(fluke74xChapter).filter(u"KELVANE_FLUKE74X_FAULTS="_s).value(0);
    CallFaults faults(example.section(u'"', 1, 1), fluke74x::operationNames());
    for (const int status : {-1, -1, 2002, -1})
        EXPECT_EQ(faults.take("MEM3instrCalTemplate").value_or(-1), status);
    EXPECT_EQ(faults.take("DPC3dnlStep"), 100);
}

TEST(SimulatorsPage, NamesEachStatusOfTheFluke702) {
    using namespace fluke702;
    for (const Code code :
         {BadCombination, SourceOutOfRange, BadRange, NoRoom, BadArgument, UnknownId, PromptTooLong,
          BadStrategy, NotOpen, NoAnswer, CantWrite, CantRead, OutOfStep, TooLong, StateInUse, NoTag})
        expectStatus(fluke702Chapter, code);
}

TEST(SimulatorsPage, NamesEachStatusOfTheFluke74x) {
    using namespace fluke74x;
    for (const Code code : {NotFound, NoRoom, TooLong, OutOfStep, BadArgument, NoAnswer, CantWrite, CantRead,
                            NoMaps, NoData, NotOpen, BadSettings})
        expectStatus(fluke74xChapter, code);
}

TEST(SimulatorsPage, NamesEachFault) {
    const QByteArray text = page().toUtf8();
    const Outcome help = runProgram(u"kelvane-torquestar"_s, {u"--help"_s});
    const QString list = help.output.section(u"several may be given.\n"_s, 1).section(u"\n\n"_s, 0, 0);
    const QStringList faults = list.split(u'\n', Qt::SkipEmptyParts);
    EXPECT_GT(faults.size(), 20);
    for (const QString& fault : faults) {
        const QByteArray form = fault.trimmed().section(u' ', 0, 0).toUtf8();
        EXPECT_TRUE(text.contains('`' + form + '`')) << form.toStdString();
    }
}

} // namespace kelvane::simulators
