// kelvane-endure stress ...    many workstation processes on one database, with everything that can happen,
//                              and a check of what is left (docs/endurance.md)
// kelvane-endure station ...   one of these processes

#include "endurance/station.h"
#include "endurance/stress.h"
#include "platform/program_options.h"

#include <QCoreApplication>

#include <clocale>
#include <random>

using namespace Qt::StringLiterals;

namespace kelvane::endure {

namespace {

Program program() {
    const auto value = u"VALUE"_s;
    return {
        .name = u"kelvane-endure"_s,
        .usage = u"stress --engine=NAME --database=WHERE --work=FOLDER [OPTION]..."_s,
        .description =
            u"Runs many workstation processes on one database, with everything that can happen to them, and "
            "checks\nwhat they leave. \"station\" in the place of \"stress\" is one of these processes; "
            "stress starts it."_s,
        .options =
            {
                {u"engine"_s, u"NAME"_s, u"embedded or shared"_s},
                {u"database"_s, u"WHERE"_s,
                 u"the database that is copied (embedded), or its address (shared)"_s},
                {u"work"_s, u"FOLDER"_s, u"where everything is kept"_s},
                {u"seconds"_s, u"N"_s, u"how long; 60"_s, false, u"60"_s},
                {u"seed"_s, u"N"_s, u"repeats an earlier run"_s},
                {u"stations"_s, u"N"_s, u"how many processes"_s, false, QString::number(maxStations)},
                {u"server"_s, u"FOLDER"_s, u"the folder of the server (shared)"_s},
                {u"scripts"_s, u"FOLDER"_s, u"the scripts of the server (shared)"_s},
                {u"folder"_s, value},
                {u"data-source"_s, value},
                {u"station"_s, value},
                {u"until"_s, value},
                {u"faults"_s},
                {u"finish"_s},
            },
        .maxArguments = 1,
    };
}

int runStation(const GivenOptions& options) {
    Station station({.folder = options.value(u"folder"_s),
                     .dataSource = options.value(u"data-source"_s),
                     .station = options.value(u"station"_s).toInt(),
                     .seed = options.value(u"seed"_s).toULongLong(),
                     .until = options.value(u"until"_s).toLongLong(),
                     .withFaults = options.isSet(u"faults"_s)});
    return options.isSet(u"finish"_s) ? station.finish() : station.run();
}

int runCommandOf(const GivenOptions& options) {
    const auto command = options.arguments.value(0);
    if (command == u"station")
        return runStation(options);
    if (command != u"stress")
        throw usageAnswer(program().name, u"the command is stress or station"_s);
    return runStress({.engine = options.value(u"engine"_s),
                      .database = options.value(u"database"_s),
                      .work = options.value(u"work"_s),
                      .seconds = options.value(u"seconds"_s).toInt(),
                      .seed = options.isSet(u"seed"_s) ? options.value(u"seed"_s).toULongLong()
                                                       : quint64{std::random_device()()},
                      .stations = options.value(u"stations"_s).toInt(),
                      .server = options.value(u"server"_s),
                      .scripts = options.value(u"scripts"_s)});
}

} // namespace

} // namespace kelvane::endure

int main(int count, char* arguments[]) {
    using namespace kelvane;

    const QCoreApplication application(count, arguments);
    std::setlocale(LC_NUMERIC, "C");
    const Program program = endure::program();
    try {
        return endure::runCommandOf(readCommandLine(program, QCoreApplication::arguments().mid(1)));
    } catch (const ProgramAnswer& answer) {
        return writeAnswer(program.name, answer);
    }
}
