#pragma once

#include <QList>

#include <optional>

namespace kelvane {

struct DayValue {
    double day = 0;
    double value = 0;
};

/// Lines of one slope, each through a group of values, by least squares: value = level of the group + slope *
/// day. With one group it is the usual straight line. What it says of confidence assumes that the values
/// scatter independently, normally and by the same amount around their lines.
class ParallelLines {
  public:
    /// Nothing when the values don't determine a slope and a scatter: as many values as the lines have
    /// unknowns, no group with two days, or values that are not finite.
    static std::optional<ParallelLines> fit(const QList<QList<DayValue>>& groups);

    /// A day.
    double slope() const { return slope_; }
    /// Half the width of the slope's two-sided confidence interval of 95 percent.
    double slopeBound() const;
    /// The standard deviation of the values around their lines.
    double scatter() const { return scatter_; }
    /// Degrees of freedom: values without levels and slope.
    qsizetype freedom() const { return freedom_; }

    double valueAt(qsizetype group, double day) const;
    /// Half the width of the two-sided interval that a further value of a group on a day falls into with 95
    /// percent.
    double predictionBound(qsizetype group, double day) const;

  private:
    struct Group {
        double count = 0;
        double day = 0;
        double value = 0;
    };

    QList<Group> groups_;
    double slope_ = 0;
    double scatter_ = 0;
    /// The squared distances of all days from the middle of their groups.
    double squaredDays_ = 0;
    qsizetype freedom_ = 0;
    /// Of Student's distribution, for 95 percent on two sides.
    double quantile_ = 0;
};

} // namespace kelvane
