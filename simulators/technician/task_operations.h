#pragma once

#include "simulators/common/field_work.h"
#include "simulators/common/plan_parts.h"
#include "simulators/technician/calibrator_operations.h"
#include "simulators/technician/options.h"

#include <algorithm>

namespace kelvane::simulators {

/// How a calibrator's tasks are carried out.
template <class Memory, class Job>
struct TaskWork {
    std::vector<Job> (*jobsOf)(const QString& plan);
    QStringList (*carryOut)(Memory& memory, const std::vector<Job>& jobs, const WorkTimes& work);
    /// Takes what `--round` and `--module` say.
    void (*take)(Job& job, const QString& round, const QString& module);
};

/// What the command line says of a run, in the place of a plan.
QList<ProgramOption> taskOptions();

/// The same job for each task that has a test strategy.
template <class Job, class Tasks>
std::vector<Job> jobsForAll(Job common, const Tasks& tasks) {
    std::vector<Job> jobs;
    for (const auto& task : tasks) {
        common.tag = task.tag;
        // One job takes all tasks of a tag.
        if (task.strategy != 0 && std::find(jobs.begin(), jobs.end(), common) == jobs.end())
            jobs.push_back(common);
    }
    return jobs;
}

template <class Tasks>
QStringList linesOfSkipped(const Tasks& tasks) {
    QStringList lines;
    for (const auto& task : tasks)
        if (task.strategy == 0)
            lines += QStringLiteral("%1: no test strategy, can't be carried out").arg(task.tag);
    return lines;
}

template <class Memory, class Job>
QStringList carryOutTasks(const GivenOptions& options, Memory& memory, const TaskWork<Memory, Job>& work) {
    QStringList names;
    for (const ProgramOption& option : taskOptions())
        names << option.name;
    refuseBesidePlan(options, names << QStringLiteral("deviation"));
    const bool isPlanned = options.isSet(QStringLiteral("plan"));
    std::vector<Job> jobs;
    if (isPlanned) {
        jobs = work.jobsOf(planAt(options.value(QStringLiteral("plan"))));
    } else {
        Job common;
        common.deviations =
            numbersOf(options.value(QStringLiteral("deviation")), QStringLiteral("--deviation"));
        common.technician = options.value(QStringLiteral("technician"));
        if (options.isSet(QStringLiteral("shown")))
            common.shown = numbersOf(options.value(QStringLiteral("shown")), QStringLiteral("--shown"));
        work.take(common, options.value(QStringLiteral("round")), options.value(QStringLiteral("module")));
        jobs = jobsForAll(common, memory.contents.tasks);
    }
    narrow(jobs, &Job::tag, options.values(QStringLiteral("only")), longestTag);
    const QStringList skipped = isPlanned ? QStringList() : linesOfSkipped(memory.contents.tasks);
    return work.carryOut(memory, jobs, {momentFrom(options), intervalFrom(options)}) + skipped;
}

template <class Memory>
QStringList eraseRuns(Memory& memory) {
    const std::size_t erased = memory.contents.runs.size();
    memory.contents.runs.clear();
    return {QStringLiteral("%1 results erased").arg(erased)};
}

} // namespace kelvane::simulators
