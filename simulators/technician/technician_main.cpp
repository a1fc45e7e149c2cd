#include "platform/program_options.h"
#include "simulators/common/failure.h"
#include "simulators/technician/calibrator_operations.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

/// The first is taken for a memory that no other one knows.
std::array<const CalibratorOperations*, 3> calibrators() {
    return {&torqueStarOperations(), &fluke702Operations(), &fluke74xOperations()};
}

bool takes(const CalibratorOperations& calibrator, const QString& name) {
    return std::ranges::any_of(calibrator.options,
                               [&](const ProgramOption& option) { return option.name == name; });
}

QList<ProgramOption> commonOptions() {
    return {
        {u"memory"_s, u"FILE"_s, u"The calibrator's memory."_s, true},
        {u"only"_s, u"NAME"_s, u"This characteristic or task alone; may be given several times."_s},
        {u"deviation"_s, u"PERCENT,..."_s,
         u"What the readings are off, in percent of reading (TorqueStar) or of span (Fluke): one for all "
         "or one for each point."_s,
         false, u"0"_s},
        {u"date"_s, u"DATE"_s, u"The day of the work, such as 2026-11-21. Default: today."_s},
        {u"time"_s, u"TIME"_s, u"The time of the first result, such as 09:30:00. Default: now."_s},
        {u"interval"_s, u"SECONDS"_s,
         u"Seconds from one result, or run of a task, to the next. Default: 60."_s, false, u"60"_s},
        {u"plan"_s, u"PLAN"_s, u"The plan file, instead of what it says."_s},
    };
}

/// Those of all calibrators. What some share stands there once.
QList<ProgramOption> allOptions() {
    auto all = commonOptions();
    for (const auto* calibrator : calibrators()) {
        for (const ProgramOption& option : calibrator->options) {
            if (std::ranges::find(all, option.name, &ProgramOption::name) == all.end())
                all << option;
        }
    }
    return all;
}

Program program() {
    QStringList planHelps;
    for (const auto* calibrator : calibrators())
        planHelps << calibrator->planHelp();
    return {
        .name = u"kelvane-technician"_s,
        .usage = u"--memory=FILE [OPTION]... list|carry-out|erase"_s,
        .description =
            u"The person in the plant, for a simulated torque calibrator or Fluke 702, 743 or 744: lists "
            u"what "
            "was\ndownloaded to it, and carries it out. For each test point the results are taken that an "
            "upload\nreads, with the readings that you choose. Which calibrator it is, the memory tells. A "
            "torque\ncalibrator may be running or not; its results are replaced by new ones, those of a "
            "Fluke "
            "are added\nto. erase leaves the work to be done without its results.\n\n"
            "  kelvane-technician --memory FILE list\n"
            "  kelvane-technician --memory FILE carry-out --points 20,60,100 --low 0 --high 150 --deviation "
            "0.1\n"
            "  kelvane-technician --memory FILE carry-out --round as-found --deviation 0.1 --technician \"J. "
            "Doe\"\n"
            "  kelvane-technician --memory FILE carry-out --plan PLAN\n"
            "  kelvane-technician --memory FILE erase\n\n"_s +
            planHelps.join(u'\n').trimmed(),
        .options = allOptions(),
        .maxArguments = 1,
    };
}

/// Whether it is the memory of that format, by its mark. A damaged file may still bear it.
bool isOfFormat(const QByteArray& text, const QString& format) {
    const QJsonDocument document = QJsonDocument::fromJson(text);
    return document.isNull() ? text.contains(format.toUtf8()) : document[u"format"_s].toString() == format;
}

const CalibratorOperations& calibratorOf(const QString& path) {
    QFile file(path);
    const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const auto all = calibrators();
    const auto* found = std::ranges::find_if(
        all, [&](const auto* calibrator) { return isOfFormat(text, calibrator->memoryFormat); });
    return found == all.end() ? *all.front() : **found;
}

/// Refuses what only other calibrators take.
void refuseOptions(const GivenOptions& options, const CalibratorOperations& chosen) {
    for (const auto* other : calibrators())
        for (const ProgramOption& option : other->options)
            if (options.isSet(option.name) && !takes(chosen, option.name))
                throw Failure(u"--%1 is for a %2, and this is the memory of another calibrator."_s.arg(
                    option.name, QString::fromLatin1(other->calibrator)));
}

QString run(const GivenOptions& options) {
    const QString command = options.arguments.value(0);
    if (command != u"list"_s && command != u"carry-out"_s && command != u"erase"_s)
        throw usageAnswer(program().name, u"the command is list, carry-out or erase"_s);
    const QString memory = options.value(u"memory"_s);
    const CalibratorOperations& operations = calibratorOf(memory);
    refuseOptions(options, operations);
    const QStringList lines = command == u"list"_s    ? operations.list(memory)
                              : command == u"erase"_s ? operations.erase(memory)
                                                      : operations.carryOut(memory, options);
    return lines.isEmpty() ? QString() : lines.join(u'\n') + u'\n';
}

} // namespace

} // namespace kelvane::simulators

int main(int argc, char** argv) {
    using namespace kelvane;

    const QCoreApplication application(argc, argv);
    const Program program = simulators::program();
    try {
        const auto options = readCommandLine(program, QCoreApplication::arguments().mid(1));
        return writeAnswer(program.name, {simulators::run(options)});
    } catch (const ProgramAnswer& answer) {
        return writeAnswer(program.name, answer);
    } catch (const simulators::Failure& failure) {
        return writeAnswer(program.name, {failure.text(), 1});
    }
}
