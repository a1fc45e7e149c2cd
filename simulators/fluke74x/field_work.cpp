#include "simulators/fluke74x/field_work.h"

#include "simulators/fluke74x/step_buckets.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

namespace {

/// The scales of a task's two sides.
struct Sides {
    Scale source;
    Scale measure;
    ByHand byHand;
};

struct Step {
    double applied = 0;
    double read = 0;
    double deviation = 0; ///< in percent of span
};

double valueOf(const Amount& amount, bool byHand) {
    return byHand ? amount.number : amount.number * amount.factor;
}

Step stepOf(const Reading& reading, const Sides& sides) {
    const double applied = valueOf(reading.applied, sides.byHand.source);
    const double read = valueOf(reading.read, sides.byHand.measure);
    return {applied, read, (fractionOn(sides.measure, read) - fractionOn(sides.source, applied)) * 100};
}

std::vector<Step> stepsOf(const Job& job, const Strategy& strategy, const Sides& sides) {
    std::vector<Step> steps;
    for (const Reading& reading : job.readings)
        steps.push_back(stepOf(reading, sides));
    if (!steps.empty())
        return steps;
    const std::vector<double> deviations = deviationsFor(strategy.points.size(), job.deviations);
    for (std::size_t point = 0; point < strategy.points.size(); ++point) {
        const double fraction = static_cast<double>(strategy.points[point]);
        steps.push_back({onScale(sides.source, fraction),
                         onScale(sides.measure, fraction + deviations[point] / 100), deviations[point]});
    }
    return steps;
}

std::vector<Entry> entriesOf(const Job& job, const std::vector<Step>& steps) {
    const std::vector<double> shown = deviationsFor(steps.size(), job.shown);
    std::vector<Entry> entries;
    for (std::size_t place = 0; place < steps.size(); ++place) {
        const Step& step = steps[place];
        const double error = job.shown.empty() ? step.deviation : shown[place];
        entries.push_back({requireFloat(step.read, job.tag), requireFloat(step.applied, job.tag),
                           requireFloat(error, job.tag)});
    }
    return entries;
}

/// The module of a side: the one that is named for it, or the one for each side with a pressure.
QString moduleOf(const QString& named, const QString& any, const QString& mode, bool byHand) {
    const bool isPressure = mode == "Pressure"_L1 && !byHand;
    return named.isEmpty() && isPressure ? any : named;
}

void setModules(Run& run, const Modules& modules, const State& state) {
    for (const QString& serial : {modules.any, modules.source, modules.measure})
        checkLength(serial, longestModule, u"pressure module's serial number"_s);
    run.sourceModule = moduleOf(modules.source, modules.any, state.word(u"scMode"), run.byHand.source);
    run.measureModule = moduleOf(modules.measure, modules.any, state.word(u"mcMode"), run.byHand.measure);
}

Run runOf(const Job& job, const Task& task, const Memory& memory) {
    const Strategy* const strategy = byId(memory.contents.strategies, task.strategy);
    if (strategy == nullptr)
        throw Failure(u"%1: the task has no test strategy and can't be carried out"_s.arg(job.tag));
    checkLength(job.technician, longestTechnician, u"technician's name"_s);
    const State& state = *byId(memory.contents.states, task.state);
    Run run;
    run.tag = task.instrument;
    run.serial = task.serial;
    run.technician = job.technician.isEmpty() ? memory.identity.serial : job.technician;
    run.state = task.state;
    run.byHand = task.byHand;
    setModules(run, job.modules, state);
    const Sides sides{sourceScale(state, task.byHand), measureScale(state, task.byHand), task.byHand};
    run.entries = entriesOf(job, stepsOf(job, *strategy, sides));
    return run;
}

/// Counts the runs of an instrument, those that are there and those that come.
class RunCount {
  public:
    explicit RunCount(const std::vector<Run>& runs) {
        for (const Run& run : runs)
            next(run);
    }
    int next(const Run& run) { return ++counts_[{run.tag, run.serial}]; }

  private:
    QHash<std::pair<QString, QString>, int> counts_;
};

} // namespace

QStringList carryOut(Memory& memory, const std::vector<Job>& jobs, const WorkTimes& work) {
    RunCount count(memory.contents.runs);
    return carryOutJobs(
        memory.contents, jobs, work,
        [&](const Job& job, const Task& task) { return runOf(job, task, memory); },
        [&](const Job& job, const Run& run) {
            const int number = count.next(run);
            if (job.asLeft && number == 1)
                throw Failure(u"%1: as-left needs a run before it"_s.arg(job.tag));
            return takenLine(job.tag, u"run %1"_s.arg(number), run.entries.size());
        });
}

} // namespace kelvane::simulators::fluke74x
