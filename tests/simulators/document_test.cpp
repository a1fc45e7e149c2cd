#include "simulators/torquestar/memory_file.h"
#include "tests/simulators/message_bytes.h"
#include "tests/simulators/programs.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

/// The indented lines of the page.
QStringList examples() {
    QFile page(QStringLiteral(KELVANE_SIMULATORS_PAGE));
    if (!page.open(QIODevice::ReadOnly))
        return {};
    QStringList lines;
    for (const QString& line : QString::fromUtf8(page.readAll()).split(u'\n'))
        if (line.startsWith(u"    "_s))
            lines += line.trimmed();
    return lines;
}

/// Starts an example of the page in the workshop.
std::unique_ptr<QProcess> startExample(const QString& example, const Workshop& workshop) {
    QStringList words = QProcess::splitCommand(example);
    const QString program = words.takeFirst().section(u'/', -1);
    auto process = std::make_unique<QProcess>();
    process->setWorkingDirectory(workshop.path(u"."_s));
    process->start(QDir(QCoreApplication::applicationDirPath()).filePath(program), words);
    return process;
}

} // namespace

TEST(SimulatorsPage, ItsTechnicianCommandsDoWhatTheySay) {
    const Workshop workshop;
    ASSERT_TRUE(QDir(workshop.path(u"."_s)).mkpath(u"build/workstation"_s));
    MemoryFile(workshop.path(u"build/workstation/torquestar.json"_s)).use([](Memory& memory) {
        for (const QString& name : {u"TW-101"_s, u"TW-102"_s}) {
            memory.characteristics.push_back({name, {}, {}, {}});
            EXPECT_EQ(readFields(addMessage({}).sliced(7), memory.characteristics.back().fields),
                      FieldBytes::Read);
        }
        return true;
    });
    const QStringList lines = examples();
    workshop.put(u"plan.txt"_s, lines.filter(u";"_s).join(u'\n').toUtf8());
    const QStringList commands = lines.filter(u"kelvane-technician"_s);
    EXPECT_EQ(commands.size(), 3);
    for (const QString& command : commands) {
        const std::unique_ptr<QProcess> process = startExample(command, workshop);
        const Outcome outcome = outcomeOf(*process);
        EXPECT_EQ(outcome.code, 0) << command.toStdString() << outcome.errors.toStdString();
        EXPECT_TRUE(outcome.output.contains(u"TW-102"_s)) << command.toStdString();
        // The readings that the page recommends are those that come over well.
        EXPECT_FALSE(outcome.output.contains(u"note:"_s)) << outcome.output.toStdString();
    }
}

TEST(SimulatorsPage, ItsCalibratorStarts) {
    const Workshop workshop;
    const QStringList commands = examples().filter(u"kelvane-torquestar"_s);
    ASSERT_EQ(commands.size(), 1);
    const std::unique_ptr<QProcess> process = startExample(commands.constFirst(), workshop);
    ASSERT_TRUE(process->waitForReadyRead(20000));
    EXPECT_TRUE(QFileInfo(workshop.link()).isSymLink());
    process->terminate();
    EXPECT_EQ(outcomeOf(*process).code, 0);
}

TEST(SimulatorsPage, NamesEachFault) {
    QFile page(QStringLiteral(KELVANE_SIMULATORS_PAGE));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QByteArray text = page.readAll();
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
