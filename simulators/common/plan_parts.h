#pragma once

#include <QDateTime>
#include <QString>

#include <functional>
#include <vector>

namespace kelvane::simulators {

/// What technicians' plans are made of, whatever the calibrator. Whatever can't be read throws `Failure`.

/// A list of numbers with commas between; a complaint names `what`.
std::vector<double> numbersOf(const QString& text, const QString& what);
/// One deviation for all readings or one for each; none is 0 for all. Any other count is a failure.
std::vector<double> deviationsFor(std::size_t readings, std::vector<double> deviations);
/// "2026-11-21 09:30:00", seconds may be missing.
QDateTime momentOf(const QString& text);

/// A plan file's text.
QString planAt(const QString& path);
/// Gives each line that is neither empty nor a comment to `take`; its failures get the line's number.
void readPlan(const QString& plan, const std::function<void(const QString& line)>& take);

} // namespace kelvane::simulators
