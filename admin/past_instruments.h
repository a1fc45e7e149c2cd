#pragma once

#include <QStringView>

#include <array>
#include <span>

namespace kelvane::admin {

/// How the errors of an instrument go on over the years. One is the tolerance, at the top of the range.
struct Behaviour {
    /// What a year adds, up or down, since the last adjustment.
    double driftPerYear = 0;
    /// The deviation of what differs from one calibration to the next.
    double noise = 0.07;
    /// What an event has added once, so many years ago, and the next adjustment takes away.
    double jump = 0;
    double yearsSinceJump = 0;
    /// What no adjustment takes away.
    double lasting = 0;
};

/// How instruments of a kind are calibrated.
struct WayOfCalibration {
    /// Asset numbers; an empty one is none.
    std::array<QStringView, 2> standards;
    QStringView laboratory;
    QStringView procedure;
    /// A value of the list that the field has.
    QStringView place;
    /// How far what is applied may be off the test point, in fractions of span: a pump is set by hand.
    double applied = 0;
    /// Somebody of another laboratory; empty where one of the technicians does it.
    QStringView technician = {};
};

/// An instrument, or a standard, whose past is made.
struct PastInstrument {
    QStringView asset;
    const WayOfCalibration* way;
    Behaviour behaviour;
    /// Its latest calibration was left out.
    bool isOverdue = false;
};

/// The forty instruments of the demonstration that have a past.
std::span<const PastInstrument> pastInstruments();
/// The standards that these were calibrated with, which are calibrated every year themselves.
std::span<const PastInstrument> pastStandards();

} // namespace kelvane::admin
