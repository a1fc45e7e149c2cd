#pragma once

#include "admin/past_instruments.h"
#include "admin/past_random.h"

#include <QDate>

namespace kelvane::admin {

/// The errors of one instrument, calibration after calibration.
class PastErrors {
  public:
    /// `day` is the one that years are counted back from.
    PastErrors(const Behaviour& behaviour, const QDate& day) : behaviour_(behaviour), day_(day) {}

    /// Begins a calibration on that date, the first one of an instrument that was adjusted then.
    void begin(const QDate& date, PastRandom& random);
    /// Adjusts the instrument as well as it can be adjusted.
    void adjust(PastRandom& random);
    /// The error at a test point, which is a fraction of the range: in fractions of its tolerance.
    double at(double point, PastRandom& random) const;

  private:
    Behaviour behaviour_;
    QDate day_;
    QDate date_;
    QDate adjusted_;
    double remainder_ = 0;
    double noise_ = 0;
    double ofCalibration_ = 0;
};

} // namespace kelvane::admin
