#pragma once

#include "simulators/common/plan_parts.h"
#include "simulators/fluke74x/memory.h"

#include <optional>

namespace kelvane::simulators::fluke74x {

/// A number with what its unit makes of it: 4.01 mA are 0.00401 in the calibrator's unit.
struct Amount {
    double number = 0;
    double factor = 1;

    bool operator==(const Amount&) const = default;
};

/// What was applied at a step, and what was read.
struct Reading {
    Amount applied;
    Amount read;

    bool operator==(const Reading&) const = default;
};

/// The pressure modules of a run by their serial numbers; empty: none.
struct Modules {
    QString any; ///< of each side on which the calibrator works with a pressure
    QString source;
    QString measure;

    bool operator==(const Modules&) const = default;
};

/// One run of a task, as the technician is to carry it out.
struct Job {
    QString tag;
    bool asLeft = false; ///< not the first run of its instrument
    std::vector<double>
        deviations;                ///< of the readings, in percent of span; one for all or one for each point
    std::vector<Reading> readings; ///< a step each, instead of the strategy's points and the deviations
    QString technician;            ///< empty: no name was given
    Modules modules;
    std::optional<QDateTime> moment; ///< not given: one interval behind the run before
    std::vector<double> shown; ///< the error that the calibrator shows, in percent of span; empty: what it is

    bool operator==(const Job&) const = default;
};

/// What a plan file looks like, for the help.
QString planHelp();

/// "71204", or "71204/71391" for the sides of source and measure.
Modules modulesOf(const QString& text);

/// The jobs of a plan file's text. Throws `Failure` with the number of the line that is wrong.
std::vector<Job> jobsOf(const QString& plan);

} // namespace kelvane::simulators::fluke74x
