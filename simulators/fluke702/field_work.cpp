#include "simulators/fluke702/field_work.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

namespace {

float requireFloat(double value, const QString& tag) {
    if (!(std::abs(value) <= static_cast<double>(std::numeric_limits<float>::max())))
        throw Failure(u"%1: %2 is more than the calibrator can keep"_s.arg(tag).arg(value));
    return static_cast<float>(value);
}

double onScale(const Scale& scale, double fraction) {
    const double low = static_cast<double>(scale.low);
    return low + fraction * (static_cast<double>(scale.high) - low);
}

void checkLength(const QString& text, qsizetype longest, const QString& what) {
    if (text.size() > longest)
        throw Failure(u"The calibrator takes at most %1 characters of a %2: \"%3\" is longer."_s.arg(
            QString::number(longest), what, text));
}

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

void setMoment(Run& run, const QDateTime& moment) {
    const QDate date = moment.date();
    const QTime time = moment.time();
    run.year = static_cast<qint16>(date.year());
    run.month = static_cast<qint16>(date.month());
    run.day = static_cast<qint16>(date.day());
    run.hour = static_cast<qint16>(time.hour());
    run.minute = static_cast<qint16>(time.minute());
    run.second = static_cast<qint16>(time.second());
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

QStringList carryOut(Memory& memory, const std::vector<Job>& jobs, const FieldWork& work) {
    std::vector<Run> runs;
    QStringList lines;
    QDateTime next = work.now;
    for (const Job& job : jobs) {
        const std::size_t before = runs.size();
        for (const Task& task : memory.contents.tasks) {
            if (task.tag != job.tag)
                continue;
            const QDateTime moment = runs.size() == before ? job.moment.value_or(next) : next;
            runs.push_back(runOf(job, task, memory));
            setMoment(runs.back(), moment);
            next = moment.addSecs(work.seconds);
            lines +=
                u"%1: %2, %3 points taken"_s.arg(job.tag, wordOf(job.kind)).arg(runs.back().entries.size());
        }
        if (runs.size() == before)
            throw Failure(u"The calibrator holds no task \"%1\"."_s.arg(job.tag));
    }
    memory.contents.runs.insert(memory.contents.runs.end(), runs.begin(), runs.end());
    return lines;
}

} // namespace kelvane::simulators::fluke702
