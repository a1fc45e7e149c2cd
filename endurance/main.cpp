// kelvane-endure stress ...    many workstation processes on one database, with everything that can happen to
// them,
//                              and a check of what is left (docs/endurance.md)
// kelvane-endure station ...   one of these processes

#include "endurance/station.h"
#include "endurance/stress.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <clocale>
#include <cstdio>
#include <random>

using namespace Qt::StringLiterals;

namespace kelvane::endure {

namespace {

/// The options of both commands, each with a value but for the last two.
class Options {
  public:
    explicit Options(const QStringList& arguments) {
        for (const auto& name :
             {u"engine"_s, u"database"_s, u"work"_s, u"seconds"_s, u"seed"_s, u"stations"_s, u"server"_s,
              u"scripts"_s, u"folder"_s, u"data-source"_s, u"station"_s, u"until"_s})
            parser_.addOption({name, {}, u"value"_s});
        parser_.addOptions({{u"faults"_s, {}}, {u"finish"_s, {}}});
        parser_.process(arguments);
    }

    QString command() const { return parser_.positionalArguments().value(0); }
    QString text(const QString& name) const { return parser_.value(name); }
    int number(const QString& name, int otherwise) const {
        return parser_.isSet(name) ? parser_.value(name).toInt() : otherwise;
    }
    bool has(const QString& name) const { return parser_.isSet(name); }

  private:
    QCommandLineParser parser_;
};

int runStation(const Options& options) {
    Station station({.folder = options.text(u"folder"_s),
                     .dataSource = options.text(u"data-source"_s),
                     .station = options.number(u"station"_s, 0),
                     .seed = options.text(u"seed"_s).toULongLong(),
                     .until = options.text(u"until"_s).toLongLong(),
                     .withFaults = options.has(u"faults"_s)});
    return options.has(u"finish"_s) ? station.finish() : station.run();
}

int runCommandOf(const Options& options) {
    if (options.command() == u"station")
        return runStation(options);
    if (options.command() == u"stress")
        return runStress({.engine = options.text(u"engine"_s),
                          .database = options.text(u"database"_s),
                          .work = options.text(u"work"_s),
                          .seconds = options.number(u"seconds"_s, 60),
                          .seed = options.has(u"seed"_s) ? options.text(u"seed"_s).toULongLong()
                                                         : quint64{std::random_device()()},
                          .stations = options.number(u"stations"_s, maxStations),
                          .server = options.text(u"server"_s),
                          .scripts = options.text(u"scripts"_s)});
    std::fputs(
        "usage: kelvane-endure stress --engine embedded|shared --database WHERE --work FOLDER --seconds N "
        "--seed N\n",
        stderr);
    return 2;
}

} // namespace

} // namespace kelvane::endure

int main(int count, char* arguments[]) {
    const QCoreApplication application(count, arguments);
    std::setlocale(LC_NUMERIC, "C");
    return kelvane::endure::runCommandOf(kelvane::endure::Options(QCoreApplication::arguments()));
}
