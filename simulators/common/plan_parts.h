#pragma once

#include <QDateTime>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace kelvane::simulators {

/// What technicians' plans are made of, whatever the calibrator. Whatever can't be read throws `Failure`.

/// A list of numbers with commas between; a complaint names `what`.
std::vector<double> numbersOf(const QString& text, const QString& what);
/// One deviation for all readings or one for each; none is 0 for all. Any other count is a failure.
std::vector<double> deviationsFor(std::size_t readings, std::vector<double> deviations);
/// "2026-11-21 09:30:00", seconds may be missing.
QDateTime momentOf(const QString& text);

/// Whether a round is "as-left"; "as-found", or none, is not.
bool isAsLeft(const QString& round);

/// The parts of a plan's line, with semicolons between.
class PlanLine {
  public:
    /// At most as many parts as `form` names; otherwise a failure that shows the form.
    PlanLine(const QString& line, const QString& form);

    QString text(qsizetype place) const { return parts_.value(place).trimmed(); }
    /// None for an empty part.
    std::vector<double> numbers(qsizetype place, const QString& what) const;
    std::optional<QDateTime> moment(qsizetype place) const;
    /// The first part, cut to what the calibrator keeps of a tag. It can't be missing.
    QString tag(qsizetype longest) const;

  private:
    QStringList parts_;
};

/// A plan file's text.
QString planAt(const QString& path);
/// Gives each line that is neither empty nor a comment to `take`; its failures get the line's number.
void readPlan(const QString& plan, const std::function<void(const QString& line)>& take);

} // namespace kelvane::simulators
