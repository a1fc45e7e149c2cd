#include "simulators/common/failure.h"
#include "simulators/torquestar/field_work.h"
#include "simulators/torquestar/listing.h"
#include "simulators/torquestar/memory_file.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

void say(FILE* stream, const QString& text) {
    std::fprintf(stream, "%s\n", text.toLocal8Bit().constData());
}

void describe(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        u"The person in the plant, for a simulated torque calibrator: lists what was downloaded to it, and "
        u"carries it "
        "out. For each test point the results are taken that an upload reads, with the readings that you "
        "choose. The "
        "calibrator may be running or not.\n\n"
        "  kelvane-technician --memory FILE list\n"
        "  kelvane-technician --memory FILE carry-out --points 20,60,100 --low 0 --high 150 --deviation 0.1\n"
        "  kelvane-technician --memory FILE carry-out --plan PLAN\n\n"_s +
        planHelp());
    parser.addHelpOption();
    parser.addOptions({
        {u"memory"_s, u"The calibrator's memory."_s, u"FILE"_s},
        {u"only"_s, u"This characteristic alone; may be given several times."_s, u"NAME"_s},
        {u"points"_s, u"Test points in percent of the range."_s, u"PERCENT,..."_s},
        {u"low"_s, u"The low end of the range. Default: 0."_s, u"TORQUE"_s, u"0"_s},
        {u"high"_s, u"The high end of the range."_s, u"TORQUE"_s},
        {u"deviation"_s,
         u"What the readings are off, in percent of reading: one for all or one for each point."_s,
         u"PERCENT,..."_s, u"0"_s},
        {u"comment"_s, u"What the technician notes."_s, u"TEXT"_s},
        {u"date"_s, u"The day of the work, such as 2026-11-21. Default: today."_s, u"DATE"_s},
        {u"time"_s, u"The time of the first result, such as 09:30:00. Default: now."_s, u"TIME"_s},
        {u"interval"_s, u"Seconds from one result to the next. Default: 60."_s, u"SECONDS"_s, u"60"_s},
        {u"takes"_s, u"How often each point is taken. Default: as often as the characteristic has samples."_s,
         u"N"_s},
        {u"plan"_s, u"The plan file, instead of points, range, deviation and comment."_s, u"PLAN"_s},
    });
    parser.addPositionalArgument(u"command"_s, u"list or carry-out"_s);
}

int countOf(const QCommandLineParser& parser, const QString& name, int high) {
    bool read = false;
    const int number = parser.value(name).toInt(&read);
    if (!read || number < 0 || number > high)
        throw Failure(u"--%1 needs a whole number from 0 to %2."_s.arg(name).arg(high));
    return number;
}

FieldWork workFrom(const QCommandLineParser& parser) {
    const QDateTime now = QDateTime::currentDateTime();
    const QString date = parser.isSet(u"date"_s) ? parser.value(u"date"_s) : now.toString(u"yyyy-MM-dd"_s);
    const QString time = parser.isSet(u"time"_s) ? parser.value(u"time"_s) : now.toString(u"HH:mm:ss"_s);
    FieldWork work;
    work.now = momentOf(date + u' ' + time);
    work.seconds = countOf(parser, u"interval"_s, 86400);
    if (parser.isSet(u"takes"_s))
        work.takes = countOf(parser, u"takes"_s, 200);
    return work;
}

/// The same errand for each characteristic: points of one range.
std::vector<Errand> commonErrands(const QCommandLineParser& parser, const Memory& memory) {
    if (!parser.isSet(u"points"_s) || !parser.isSet(u"high"_s))
        throw Failure(u"carry-out needs --points and --high, or --plan; see --help."_s);
    Errand common;
    const double low = numbersOf(parser.value(u"low"_s), u"--low"_s).front();
    const double high = numbersOf(parser.value(u"high"_s), u"--high"_s).front();
    for (const double percent : numbersOf(parser.value(u"points"_s), u"--points"_s))
        common.nominals.push_back(low + (high - low) * percent / 100);
    common.deviations =
        deviationsFor(common.nominals.size(), numbersOf(parser.value(u"deviation"_s), u"--deviation"_s));
    common.comment = parser.value(u"comment"_s);
    std::vector<Errand> errands;
    for (const Characteristic& characteristic : memory.characteristics) {
        errands.push_back(common);
        errands.back().name = characteristic.name;
    }
    return errands;
}

/// Leaves the errands that `--only` names.
void narrow(std::vector<Errand>& errands, const QStringList& only) {
    for (const QString& name : only)
        if (std::none_of(errands.begin(), errands.end(),
                         [&](const Errand& errand) { return errand.name == name.left(longestName); }))
            throw Failure(
                u"There is nothing to do for \"%1\": it is not among the characteristics."_s.arg(name));
    if (!only.isEmpty())
        std::erase_if(errands, [&](const Errand& errand) {
            return std::none_of(only.begin(), only.end(),
                                [&](const QString& name) { return name.left(longestName) == errand.name; });
        });
}

QStringList carryOutWith(const QCommandLineParser& parser, Memory& memory) {
    for (const QString& name : {u"points"_s, u"low"_s, u"high"_s, u"deviation"_s, u"comment"_s})
        if (parser.isSet(u"plan"_s) && parser.isSet(name))
            throw Failure(u"--%1 and --plan say the same thing twice."_s.arg(name));
    std::vector<Errand> errands =
        parser.isSet(u"plan"_s) ? errandsOf(planAt(parser.value(u"plan"_s))) : commonErrands(parser, memory);
    narrow(errands, parser.values(u"only"_s));
    if (errands.empty())
        throw Failure(u"There is nothing to carry out."_s);
    return carryOut(memory, errands, workFrom(parser));
}

void run(const QCoreApplication& application) {
    QCommandLineParser parser;
    describe(parser);
    parser.process(application);
    const QString command = parser.positionalArguments().join(u' ');
    if (command != u"list"_s && command != u"carry-out"_s)
        throw Failure(u"The command is list or carry-out; see --help."_s);
    if (!parser.isSet(u"memory"_s))
        throw Failure(u"--memory is needed; see --help."_s);
    MemoryFile file(parser.value(u"memory"_s));
    QStringList lines;
    file.use([&](Memory& memory) {
        const bool work = command == u"carry-out"_s;
        lines = work ? carryOutWith(parser, memory) : listing(memory);
        return work;
    });
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
