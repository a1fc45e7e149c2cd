#pragma once

#include "platform/program_options.h"
#include "simulators/common/failure.h"

#include <QDateTime>

#include <vector>

namespace kelvane::simulators {

// What the command line says, whatever the calibrator. Everything throws `Failure` with what is wrong.

/// A whole number from 0.
int countOf(const GivenOptions& options, const QString& name, int high);
/// The moment of `--date` and `--time`; what isn't given is now.
QDateTime momentFrom(const GivenOptions& options);
/// The seconds of `--interval`.
int intervalFrom(const GivenOptions& options);
/// Refuses options that a plan says itself.
void refuseBesidePlan(const GivenOptions& options, const QStringList& names);

/// Leaves the jobs whose name is one of `--only`, cut to what the calibrator keeps of a name.
template <class Job>
void narrow(std::vector<Job>& jobs, QString Job::*name, QStringList only, qsizetype longest) {
    for (QString& kept : only)
        kept = kept.left(longest);
    QStringList missing = only;
    for (const Job& job : jobs)
        missing.removeAll(job.*name);
    if (!missing.isEmpty())
        throw Failure(QStringLiteral("There is nothing to do for \"%1\".").arg(missing.constFirst()));
    if (!only.isEmpty())
        std::erase_if(jobs, [&](const Job& job) { return !only.contains(job.*name); });
    if (jobs.empty())
        throw Failure(QStringLiteral("There is nothing to carry out."));
}

} // namespace kelvane::simulators
