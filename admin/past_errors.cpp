#include "admin/past_errors.h"

#include <algorithm>

namespace kelvane::admin {

namespace {

constexpr double daysOfYear = 365.25;
/// What an adjustment leaves.
constexpr double finest = 0.12;
constexpr double steadiest = 0.07;
/// How much of the error is the same over the range; the rest grows towards its top.
constexpr double shareOfZero = 0.35;
/// How much of the noise all points of a calibration have in common.
constexpr double commonNoise = 0.6;
constexpr double ownNoise = 0.8;

} // namespace

void PastErrors::begin(const QDate& date, PastRandom& random) {
    date_ = date;
    if (adjusted_.isNull())
        adjust(random);
    noise_ = behaviour_.noise;
    ofCalibration_ = noise_ * commonNoise * random.deviation();
}

void PastErrors::adjust(PastRandom& random) {
    adjusted_ = date_;
    remainder_ = random.between(-finest, finest);
    // Whoever adjusts goes on until the readings stand still.
    noise_ = std::min(noise_, steadiest);
    ofCalibration_ = 0;
}

double PastErrors::at(double point, PastRandom& random) const {
    const double years = static_cast<double>(adjusted_.daysTo(date_)) / daysOfYear;
    const auto jumped = day_.addDays(-qRound(behaviour_.yearsSinceJump * daysOfYear));
    const bool hasJumped = adjusted_ < jumped && jumped <= date_;
    const double whole =
        remainder_ + behaviour_.lasting + behaviour_.driftPerYear * years + (hasJumped ? behaviour_.jump : 0);
    return whole * (shareOfZero + (1 - shareOfZero) * point) + ofCalibration_ +
           noise_ * ownNoise * random.deviation();
}

} // namespace kelvane::admin
