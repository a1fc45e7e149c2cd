#pragma once

#include "simulators/common/plan_parts.h"
#include "simulators/fluke702/memory.h"

#include <optional>

namespace kelvane::simulators::fluke702 {

/// One run of a task, as the technician is to carry it out.
struct Job {
    QString tag;
    Kind kind = AsFound;
    std::vector<double>
        deviations;     ///< of the readings, in percent of span; one for all or one for each point
    QString technician; ///< empty: no name was given
    QString module;     ///< serial number of the pressure module; empty: none
    std::optional<QDateTime> moment; ///< not given: one interval behind the run before
    std::vector<double>
        shown; ///< the error that the calibrator shows, in percent of span; empty: the deviation

    bool operator==(const Job&) const = default;
};

/// What a plan file looks like, for the help.
QString planHelp();

/// "as-found" or "as-left"; empty is as found. Throws `Failure`.
Kind kindOf(const QString& word);
QString wordOf(qint16 kind);

/// The jobs of a plan file's text. Throws `Failure` with the number of the line that is wrong.
std::vector<Job> jobsOf(const QString& plan);

} // namespace kelvane::simulators::fluke702
