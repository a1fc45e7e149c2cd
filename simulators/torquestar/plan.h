#pragma once

#include <QDateTime>
#include <QString>

#include <optional>
#include <vector>

namespace kelvane::simulators {

/// What the technician is to measure on one instrument.
struct Errand {
    QString name;                   ///< of the characteristic
    std::vector<double> nominals;   ///< one for each test point
    std::vector<double> deviations; ///< of the readings, in percent; one for each nominal
    QString comment;
    std::optional<QDateTime> from; ///< when the first result is taken; not given: now
};

/// What a plan file looks like, for the help.
QString planHelp();

/// A list of numbers with commas between. Throws `Failure` naming `what` when it is none.
std::vector<double> numbersOf(const QString& text, const QString& what);
/// One deviation for all nominals or one for each; none is 0 for all. Throws `Failure` on any other count.
std::vector<double> deviationsFor(const std::vector<double>& nominals, std::vector<double> deviations);
/// "2026-11-21 09:30:00", seconds may be missing. Throws `Failure`.
QDateTime momentOf(const QString& text);

/// The errands of a plan file's text. Throws `Failure` with the number of the line that is wrong.
std::vector<Errand> errandsOf(const QString& plan);

} // namespace kelvane::simulators
