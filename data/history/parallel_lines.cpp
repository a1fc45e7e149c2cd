#include "data/history/parallel_lines.h"

#include <boost/math/distributions/students_t.hpp>

#include <cmath>

namespace kelvane {

namespace {

constexpr double confidence = 0.95;

double studentQuantile(qsizetype freedom) {
    const boost::math::students_t distribution(static_cast<double>(freedom));
    return boost::math::quantile(boost::math::complement(distribution, (1 - confidence) / 2));
}

} // namespace

std::optional<ParallelLines> ParallelLines::fit(const QList<QList<DayValue>>& groups) {
    ParallelLines lines;
    double products = 0;
    qsizetype values = 0;
    qsizetype levels = 0;
    // Both passes take distances from the middle: the days are large numbers.
    for (const auto& group : groups) {
        Group middle;
        for (const auto& at : group) {
            ++middle.count;
            middle.day += (at.day - middle.day) / middle.count;
            middle.value += (at.value - middle.value) / middle.count;
        }
        for (const auto& at : group) {
            lines.squaredDays_ += (at.day - middle.day) * (at.day - middle.day);
            products += (at.day - middle.day) * (at.value - middle.value);
        }
        values += group.size();
        levels += group.isEmpty() ? 0 : 1;
        lines.groups_ << middle;
    }
    lines.freedom_ = values - levels - 1;
    if (lines.freedom_ < 1 || !(lines.squaredDays_ > 0) || !std::isfinite(lines.squaredDays_))
        return {};
    lines.slope_ = products / lines.squaredDays_;

    double squaredRests = 0;
    for (qsizetype group = 0; group < groups.size(); ++group) {
        for (const auto& at : groups[group]) {
            const double rest = at.value - lines.valueAt(group, at.day);
            squaredRests += rest * rest;
        }
    }
    lines.scatter_ = std::sqrt(squaredRests / static_cast<double>(lines.freedom_));
    if (!std::isfinite(lines.slope_) || !std::isfinite(lines.scatter_))
        return {};
    lines.quantile_ = studentQuantile(lines.freedom_);
    return lines;
}

double ParallelLines::slopeBound() const {
    return quantile_ * scatter_ / std::sqrt(squaredDays_);
}

double ParallelLines::valueAt(qsizetype group, double day) const {
    return groups_[group].value + slope_ * (day - groups_[group].day);
}

double ParallelLines::predictionBound(qsizetype group, double day) const {
    const double distance = day - groups_[group].day;
    return quantile_ * scatter_ *
           std::sqrt(1 + 1 / groups_[group].count + distance * distance / squaredDays_);
}

} // namespace kelvane
