#include "simulators/technician/calibrator_operations.h"
#include "simulators/technician/options.h"
#include "simulators/torquestar/field_work.h"
#include "simulators/torquestar/listing.h"
#include "simulators/torquestar/memory_file.h"
#include "simulators/torquestar/plan.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

FieldWork fieldWorkFrom(const GivenOptions& options) {
    FieldWork work;
    work.now = momentFrom(options);
    work.seconds = intervalFrom(options);
    if (options.isSet(u"takes"_s))
        work.takes = countOf(options, u"takes"_s, 200);
    return work;
}

/// The same job for each characteristic: points of one range.
std::vector<Job> commonJobs(const GivenOptions& options, const Memory& memory) {
    if (!options.isSet(u"points"_s) || !options.isSet(u"high"_s))
        throw Failure(u"carry-out needs --points and --high, or --plan; see --help."_s);
    Job common;
    const double low = numbersOf(options.value(u"low"_s), u"--low"_s).front();
    const double high = numbersOf(options.value(u"high"_s), u"--high"_s).front();
    for (const double percent : numbersOf(options.value(u"points"_s), u"--points"_s))
        common.nominals.push_back(low + (high - low) * percent / 100);
    common.deviations =
        deviationsFor(common.nominals.size(), numbersOf(options.value(u"deviation"_s), u"--deviation"_s));
    common.comment = options.value(u"comment"_s);
    std::vector<Job> jobs;
    for (const Characteristic& characteristic : memory.characteristics) {
        jobs.push_back(common);
        jobs.back().name = characteristic.name;
    }
    return jobs;
}

QStringList carryOutWith(const GivenOptions& options, Memory& memory) {
    refuseBesidePlan(options, {u"points"_s, u"low"_s, u"high"_s, u"deviation"_s, u"comment"_s});
    std::vector<Job> jobs =
        options.isSet(u"plan"_s) ? jobsOf(planAt(options.value(u"plan"_s))) : commonJobs(options, memory);
    narrow(jobs, &Job::name, options.values(u"only"_s), longestName);
    return carryOut(memory, jobs, fieldWorkFrom(options));
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
        {{u"points"_s, u"PERCENT,..."_s, u"TorqueStar: test points in percent of the range."_s},
         {u"low"_s, u"TORQUE"_s, u"TorqueStar: the low end of the range. Default: 0."_s, false, u"0"_s},
         {u"high"_s, u"TORQUE"_s, u"TorqueStar: the high end of the range."_s},
         {u"comment"_s, u"TEXT"_s, u"TorqueStar: what the technician notes."_s},
         {u"takes"_s, u"N"_s,
          u"TorqueStar: how often each point is taken. Default: as often as the characteristic has samples."_s}},
        planHelp,
        [](const QString& path) { return workOnMemory<MemoryFile>(path, listing); },
        [](const QString& path, const GivenOptions& options) {
            return workOnMemory<MemoryFile>(path,
                                            [&](Memory& memory) { return carryOutWith(options, memory); });
        },
        [](const QString& path) { return workOnMemory<MemoryFile>(path, erase); },
    };
    return operations;
}

} // namespace kelvane::simulators
