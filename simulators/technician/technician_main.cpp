#include "simulators/common/failure.h"
#include "simulators/technician/calibrator_operations.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

void print(FILE* stream, const QString& text) {
    std::fprintf(stream, "%s\n", text.toLocal8Bit().constData());
}

/// The first is taken for a memory that no other one knows.
std::array<const CalibratorOperations*, 3> calibrators() {
    return {&torqueStarOperations(), &fluke702Operations(), &fluke74xOperations()};
}

QStringList optionNames(const CalibratorOperations& calibrator) {
    QStringList names;
    for (const QCommandLineOption& option : calibrator.options)
        names += option.names();
    return names;
}

/// Some calibrators share options; a parser takes each once.
void addOptions(QCommandLineParser& parser) {
    QStringList added;
    for (const auto* calibrator : calibrators()) {
        for (const QCommandLineOption& option : calibrator->options)
            if (!added.contains(option.names().constFirst()))
                parser.addOption(option);
        added += optionNames(*calibrator);
    }
}

void describe(QCommandLineParser& parser) {
    QStringList planHelps;
    for (const auto* calibrator : calibrators())
        planHelps << calibrator->planHelp();
    parser.setApplicationDescription(
        u"The person in the plant, for a simulated torque calibrator or Fluke 702, 743 or 744: lists what "
        "was downloaded to it,\n"
        "and carries it out. For each test point the results are taken that an upload reads, with the "
        "readings "
        "that you choose.\n"
        "Which calibrator it is, the memory tells. A torque calibrator may be running or not; its results "
        "are replaced by\n"
        "new ones, those of a Fluke are added to. erase leaves the work to be done without its "
        "results.\n\n"
        "  kelvane-technician --memory FILE list\n"
        "  kelvane-technician --memory FILE carry-out --points 20,60,100 --low 0 --high 150 --deviation 0.1\n"
        "  kelvane-technician --memory FILE carry-out --round as-found --deviation 0.1 --technician \"J. "
        "Doe\"\n"
        "  kelvane-technician --memory FILE carry-out --plan PLAN\n"
        "  kelvane-technician --memory FILE erase\n\n"_s +
        planHelps.join(u'\n'));
    parser.addHelpOption();
    parser.addOptions({
        {u"memory"_s, u"The calibrator's memory."_s, u"FILE"_s},
        {u"only"_s, u"This characteristic or task alone; may be given several times."_s, u"NAME"_s},
        {u"deviation"_s,
         u"What the readings are off, in percent of reading (TorqueStar) or of span (Fluke): one for all "
         "or one for each point."_s,
         u"PERCENT,..."_s, u"0"_s},
        {u"date"_s, u"The day of the work, such as 2026-11-21. Default: today."_s, u"DATE"_s},
        {u"time"_s, u"The time of the first result, such as 09:30:00. Default: now."_s, u"TIME"_s},
        {u"interval"_s, u"Seconds from one result, or run of a task, to the next. Default: 60."_s,
         u"SECONDS"_s, u"60"_s},
        {u"plan"_s, u"The plan file, instead of what it says."_s, u"PLAN"_s},
    });
    addOptions(parser);
    parser.addPositionalArgument(u"command"_s, u"list, carry-out or erase"_s);
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
void refuseOptions(const QCommandLineParser& parser, const CalibratorOperations& chosen) {
    for (const auto* other : calibrators())
        for (const QString& name : optionNames(*other))
            if (parser.isSet(name) && !optionNames(chosen).contains(name))
                throw Failure(u"--%1 is for a %2, and this is the memory of another calibrator."_s.arg(
                    name, QString::fromLatin1(other->calibrator)));
}

void run(const QCoreApplication& application) {
    QCommandLineParser parser;
    describe(parser);
    parser.process(application);
    const QString command = parser.positionalArguments().join(u' ');
    if (command != u"list"_s && command != u"carry-out"_s && command != u"erase"_s)
        throw Failure(u"The command is list, carry-out or erase; see --help."_s);
    if (!parser.isSet(u"memory"_s))
        throw Failure(u"--memory is needed; see --help."_s);
    const QString memory = parser.value(u"memory"_s);
    const CalibratorOperations& operations = calibratorOf(memory);
    refuseOptions(parser, operations);
    const QStringList lines = command == u"list"_s    ? operations.list(memory)
                              : command == u"erase"_s ? operations.erase(memory)
                                                      : operations.carryOut(memory, parser);
    for (const QString& line : lines)
        print(stdout, line);
}

} // namespace

} // namespace kelvane::simulators

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"kelvane-technician"_s);
    try {
        kelvane::simulators::run(application);
    } catch (const kelvane::simulators::Failure& failure) {
        kelvane::simulators::print(stderr, u"kelvane-technician: "_s + failure.text());
        return 1;
    }
    return 0;
}
