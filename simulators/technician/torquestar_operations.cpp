#include "simulators/technician/calibrator_operations.h"
#include "simulators/technician/options.h"
#include "simulators/torquestar/field_work.h"
#include "simulators/torquestar/listing.h"
#include "simulators/torquestar/memory_file.h"
#include "simulators/torquestar/plan.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

FieldWork fieldWorkFrom(const QCommandLineParser& parser) {
    FieldWork work;
    work.now = momentFrom(parser);
    work.seconds = intervalFrom(parser);
    if (parser.isSet(u"takes"_s))
        work.takes = countOf(parser, u"takes"_s, 200);
    return work;
}

/// The same job for each characteristic: points of one range.
std::vector<Job> commonJobs(const QCommandLineParser& parser, const Memory& memory) {
    if (!parser.isSet(u"points"_s) || !parser.isSet(u"high"_s))
        throw Failure(u"carry-out needs --points and --high, or --plan; see --help."_s);
    Job common;
    const double low = numbersOf(parser.value(u"low"_s), u"--low"_s).front();
    const double high = numbersOf(parser.value(u"high"_s), u"--high"_s).front();
    for (const double percent : numbersOf(parser.value(u"points"_s), u"--points"_s))
        common.nominals.push_back(low + (high - low) * percent / 100);
    common.deviations =
        deviationsFor(common.nominals.size(), numbersOf(parser.value(u"deviation"_s), u"--deviation"_s));
    common.comment = parser.value(u"comment"_s);
    std::vector<Job> jobs;
    for (const Characteristic& characteristic : memory.characteristics) {
        jobs.push_back(common);
        jobs.back().name = characteristic.name;
    }
    return jobs;
}

QStringList carryOutWith(const QCommandLineParser& parser, Memory& memory) {
    refuseBesidePlan(parser, {u"points"_s, u"low"_s, u"high"_s, u"deviation"_s, u"comment"_s});
    std::vector<Job> jobs =
        parser.isSet(u"plan"_s) ? jobsOf(planAt(parser.value(u"plan"_s))) : commonJobs(parser, memory);
    narrow(jobs, &Job::name, parser.values(u"only"_s), longestName);
    return carryOut(memory, jobs, fieldWorkFrom(parser));
}

QStringList erase(Memory& memory) {
    std::size_t erased = 0;
    for (Characteristic& characteristic : memory.characteristics) {
        erased += characteristic.results.size();
        characteristic.results.clear();
        characteristic.comment.clear();
    }
    return {u"%1 results erased"_s.arg(erased)};
}

} // namespace

const CalibratorOperations& torqueStarOperations() {
    static const CalibratorOperations operations{
        "TorqueStar",
        memoryFormat(),
        {{u"points"_s, u"TorqueStar: test points in percent of the range."_s, u"PERCENT,..."_s},
         {u"low"_s, u"TorqueStar: the low end of the range. Default: 0."_s, u"TORQUE"_s, u"0"_s},
         {u"high"_s, u"TorqueStar: the high end of the range."_s, u"TORQUE"_s},
         {u"comment"_s, u"TorqueStar: what the technician notes."_s, u"TEXT"_s},
         {u"takes"_s,
          u"TorqueStar: how often each point is taken. Default: as often as the characteristic has samples."_s,
          u"N"_s}},
        planHelp,
        [](const QString& path) { return workOnMemory<MemoryFile>(path, listing); },
        [](const QString& path, const QCommandLineParser& parser) {
            return workOnMemory<MemoryFile>(path,
                                            [&](Memory& memory) { return carryOutWith(parser, memory); });
        },
        [](const QString& path) { return workOnMemory<MemoryFile>(path, erase); },
    };
    return operations;
}

} // namespace kelvane::simulators
