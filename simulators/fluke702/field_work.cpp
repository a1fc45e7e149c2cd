#include "simulators/fluke702/field_work.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

namespace {

std::vector<Entry> entriesOf(const Job& job, const Strategy& strategy, const State& state) {
    const std::size_t points = strategy.points.size();
    const std::vector<double> deviations = deviationsFor(points, job.deviations);
    const std::vector<double> shown = job.shown.empty() ? deviations : deviationsFor(points, job.shown);
    std::vector<Entry> entries;
    for (std::size_t point = 0; point < points; ++point) {
        const double fraction = static_cast<double>(strategy.points[point]);
        const double reading = onScale(state.measured, fraction + deviations[point] / 100);
        entries.push_back({requireFloat(reading, job.tag),
                           requireFloat(onScale(state.source, fraction), job.tag),
                           requireFloat(shown[point] / 100, job.tag)});
    }
    return entries;
}

Run runOf(const Job& job, const Task& task, const Memory& memory) {
    checkLength(job.technician, longestTechnician, u"technician's name"_s);
    checkLength(job.module, longestModule, u"pressure module's serial number"_s);
    Run run;
    run.kind = job.kind;
    run.tag = task.instrument;
    run.serial = task.serial;
    run.technician = job.technician.isEmpty() ? memory.identity.serial : job.technician;
    run.module = job.module;
    run.state = task.state;
    const Contents& contents = memory.contents;
    run.entries =
        entriesOf(job, *byId(contents.strategies, task.strategy), *byId(contents.states, task.state));
    return run;
}

} // namespace

QStringList carryOut(Memory& memory, const std::vector<Job>& jobs, const WorkTimes& work) {
    return carryOutJobs(
        memory.contents, jobs, work,
        [&](const Job& job, const Task& task) { return runOf(job, task, memory); },
        [](const Job& job, const Run& run) {
            return takenLine(job.tag, wordOf(job.kind), run.entries.size());
        });
}

} // namespace kelvane::simulators::fluke702
