#pragma once

#include "simulators/common/failure.h"
#include "simulators/common/stored_parts.h"

#include <QDateTime>
#include <QStringList>

#include <functional>

namespace kelvane::simulators {

// What a technician does with a calibrator that carries tasks out. Whatever can't be kept throws `Failure`.

struct WorkTimes {
    QDateTime now;    ///< of the first run, if it has no moment of its own
    int seconds = 60; ///< from one run to the next
};

/// `tag` is for the complaint.
float requireFloat(double value, const QString& tag);
/// The value at a fraction of the range.
double onScale(const Scale& scale, double fraction);
void checkLength(const QString& text, qsizetype longest, const QString& what);
ClockTime clockTimeOf(const QDateTime& moment);
/// "PT-103: as found, 3 points taken".
QString takenLine(const QString& tag, const QString& run, std::size_t points);

/// Carries the jobs out, each on all tasks of its tag, and puts the runs behind those that are there. `runOf`
/// makes the run of a job and a task, `lineOf` the message about a job and its run. Returns the messages.
/// When anything fails the runs are as they were.
template <class Job, class Contents, class RunOf, class LineOf>
QStringList carryOutJobs(Contents& contents, const std::vector<Job>& jobs, const WorkTimes& work,
                         const RunOf& runOf, const LineOf& lineOf) {
    decltype(contents.runs) runs;
    QStringList lines;
    QDateTime next = work.now;
    for (const Job& job : jobs) {
        const std::size_t before = runs.size();
        for (const auto& task : contents.tasks) {
            if (task.tag != job.tag)
                continue;
            const QDateTime moment = runs.size() == before ? job.moment.value_or(next) : next;
            runs.push_back(runOf(job, task));
            runs.back().time = clockTimeOf(moment);
            next = moment.addSecs(work.seconds);
            lines += lineOf(job, runs.back());
        }
        if (runs.size() == before)
            throw Failure(QStringLiteral("The calibrator holds no task \"%1\".").arg(job.tag));
    }
    contents.runs.insert(contents.runs.end(), runs.begin(), runs.end());
    return lines;
}

} // namespace kelvane::simulators
