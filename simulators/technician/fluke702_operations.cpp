#include "simulators/fluke702/field_work.h"
#include "simulators/fluke702/listing.h"
#include "simulators/fluke702/plan.h"
#include "simulators/technician/calibrator_operations.h"
#include "simulators/technician/options.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace fluke702 {

namespace {

/// The same job for each task.
std::vector<Job> commonJobs(const QCommandLineParser& parser, const Memory& memory) {
    Job common;
    common.kind = kindOf(parser.value(u"round"_s));
    common.deviations = numbersOf(parser.value(u"deviation"_s), u"--deviation"_s);
    common.technician = parser.value(u"technician"_s);
    common.module = parser.value(u"module"_s);
    if (parser.isSet(u"shown"_s))
        common.shown = numbersOf(parser.value(u"shown"_s), u"--shown"_s);
    std::vector<Job> jobs;
    for (const Task& task : memory.contents.tasks) {
        common.tag = task.tag;
        // One job takes all tasks of a tag.
        if (std::find(jobs.begin(), jobs.end(), common) == jobs.end())
            jobs.push_back(common);
    }
    return jobs;
}

QStringList carryOutWith(const QCommandLineParser& parser, Memory& memory) {
    refuseBesidePlan(parser, {u"deviation"_s, u"round"_s, u"technician"_s, u"module"_s, u"shown"_s});
    std::vector<Job> jobs =
        parser.isSet(u"plan"_s) ? jobsOf(planAt(parser.value(u"plan"_s))) : commonJobs(parser, memory);
    narrow(jobs, &Job::tag, parser.values(u"only"_s), longestTag);
    return carryOut(memory, jobs, {momentFrom(parser), intervalFrom(parser)});
}

QStringList erase(Memory& memory) {
    const std::size_t erased = memory.contents.runs.size();
    memory.contents.runs.clear();
    return {u"%1 results erased"_s.arg(erased)};
}

} // namespace

} // namespace fluke702

const CalibratorOperations& fluke702Operations() {
    static const CalibratorOperations operations{
        "Fluke 702",
        fluke702::memoryFormat(),
        {{u"round"_s, u"Fluke 702: as-found or as-left. Default: as-found."_s, u"ROUND"_s},
         {u"technician"_s, u"Fluke 702: who does the work. Default: the calibrator's serial number."_s,
          u"NAME"_s},
         {u"module"_s, u"Fluke 702: the serial number of the pressure module."_s, u"SERIAL"_s},
         {u"shown"_s,
          u"Fluke 702: the error that the calibrator itself shows, in percent of span: one for all or one "
          u"for "
          "each point. Default: the deviation."_s,
          u"PERCENT,..."_s}},
        fluke702::planHelp,
        [](const QString& path) { return workOnMemory<fluke702::MemoryFile>(path, fluke702::listing); },
        [](const QString& path, const QCommandLineParser& parser) {
            return workOnMemory<fluke702::MemoryFile>(
                path, [&](fluke702::Memory& memory) { return fluke702::carryOutWith(parser, memory); });
        },
        [](const QString& path) { return workOnMemory<fluke702::MemoryFile>(path, fluke702::erase); },
    };
    return operations;
}

} // namespace kelvane::simulators
