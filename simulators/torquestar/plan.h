#pragma once

#include "simulators/common/plan_parts.h"

#include <optional>
#include <vector>

namespace kelvane::simulators {

/// What the technician is to measure on one instrument.
struct Job {
    QString name;                   ///< of the characteristic
    std::vector<double> nominals;   ///< one for each test point
    std::vector<double> deviations; ///< of the readings, in percent; one for each nominal
    QString comment;
    std::optional<QDateTime> from; ///< when the first result is taken; not given: now
};

/// What a plan file looks like, for the help.
QString planHelp();

/// The jobs of a plan file's text. Throws `Failure` with the number of the line that is wrong.
std::vector<Job> jobsOf(const QString& plan);

} // namespace kelvane::simulators
