#include "simulators/common/failure.h"
#include "simulators/fluke702/memory.h"
#include "simulators/fluke702/plan.h"
#include "simulators/technician/calibrator_operations.h"
#include "simulators/torquestar/plan.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

void say(FILE* stream, const QString& text) {
    std::fprintf(stream, "%s\n", text.toLocal8Bit().constData());
}

void describe(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        u"The person in the plant, for a simulated torque calibrator or Fluke 702: lists what was downloaded "
        "to it, and\n"
        "carries it out. For each test point the results are taken that an upload reads, with the readings "
        "that you choose.\n"
        "Which calibrator it is, the memory tells. A torque calibrator may be running or not; its results "
        "are replaced by\n"
        "new ones, those of a Fluke 702 are added to. erase leaves the work to be done without its "
        "results.\n\n"
        "  kelvane-technician --memory FILE list\n"
        "  kelvane-technician --memory FILE carry-out --points 20,60,100 --low 0 --high 150 --deviation 0.1\n"
        "  kelvane-technician --memory FILE carry-out --round as-found --deviation 0.1 --technician \"J. "
        "Doe\"\n"
        "  kelvane-technician --memory FILE carry-out --plan PLAN\n"
        "  kelvane-technician --memory FILE erase\n\n"_s +
        planHelp() + u'\n' + fluke702::planHelp());
    parser.addHelpOption();
    parser.addOptions({
        {u"memory"_s, u"The calibrator's memory."_s, u"FILE"_s},
        {u"only"_s, u"This characteristic or task alone; may be given several times."_s, u"NAME"_s},
        {u"deviation"_s,
         u"What the readings are off, in percent of reading (TorqueStar) or of span (Fluke 702): one for all "
         "or one for each point."_s,
         u"PERCENT,..."_s, u"0"_s},
        {u"date"_s, u"The day of the work, such as 2026-11-21. Default: today."_s, u"DATE"_s},
        {u"time"_s, u"The time of the first result, such as 09:30:00. Default: now."_s, u"TIME"_s},
        {u"interval"_s, u"Seconds from one result, or run of a task, to the next. Default: 60."_s,
         u"SECONDS"_s, u"60"_s},
        {u"plan"_s, u"The plan file, instead of what it says."_s, u"PLAN"_s},
        {u"points"_s, u"TorqueStar: test points in percent of the range."_s, u"PERCENT,..."_s},
        {u"low"_s, u"TorqueStar: the low end of the range. Default: 0."_s, u"TORQUE"_s, u"0"_s},
        {u"high"_s, u"TorqueStar: the high end of the range."_s, u"TORQUE"_s},
        {u"comment"_s, u"TorqueStar: what the technician notes."_s, u"TEXT"_s},
        {u"takes"_s,
         u"TorqueStar: how often each point is taken. Default: as often as the characteristic has samples."_s,
         u"N"_s},
        {u"round"_s, u"Fluke 702: as-found or as-left. Default: as-found."_s, u"ROUND"_s},
        {u"technician"_s, u"Fluke 702: who does the work. Default: the calibrator's serial number."_s,
         u"NAME"_s},
        {u"module"_s, u"Fluke 702: the serial number of the pressure module."_s, u"SERIAL"_s},
        {u"shown"_s,
         u"Fluke 702: the error that the calibrator itself shows, in percent of span: one for all or one for "
         "each point. Default: the deviation."_s,
         u"PERCENT,..."_s},
    });
    parser.addPositionalArgument(u"command"_s, u"list, carry-out or erase"_s);
}

/// Which calibrator's memory it is, by its mark. A damaged file may still bear it.
bool isOfFluke702(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray text = file.readAll();
    const QJsonDocument document = QJsonDocument::fromJson(text);
    return document.isNull() ? text.contains(fluke702::memoryFormat().toUtf8())
                             : document[u"format"_s].toString() == fluke702::memoryFormat();
}

void refuseOptions(const QCommandLineParser& parser, const CalibratorOperations& other) {
    for (const QString& name : other.options)
        if (parser.isSet(name))
            throw Failure(u"--%1 is for a %2, and this is the memory of another calibrator."_s.arg(
                name, QString::fromLatin1(other.calibrator)));
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
    const bool process = isOfFluke702(memory);
    const CalibratorOperations& operations = process ? fluke702Operations() : torqueStarOperations();
    refuseOptions(parser, process ? torqueStarOperations() : fluke702Operations());
    const QStringList lines = command == u"list"_s    ? operations.list(memory)
                              : command == u"erase"_s ? operations.erase(memory)
                                                      : operations.carryOut(memory, parser);
    for (const QString& line : lines)
        say(stdout, line);
}

} // namespace

} // namespace kelvane::simulators

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"kelvane-technician"_s);
    try {
        kelvane::simulators::run(application);
    } catch (const kelvane::simulators::Failure& failure) {
        kelvane::simulators::say(stderr, u"kelvane-technician: "_s + failure.text());
        return 1;
    }
    return 0;
}
