#pragma once

#include <QString>

namespace kelvane::Module702Interface {

/// A side of an instrument (its input or its output) in the calibrator's words.
struct Mode702 {
    /// Empty when units or sensor are not known.
    QString Mode;
    /// Empty for anything but temperature.
    QString Sensor;
    /// "celsius" or "fahrenheit"; empty for anything but temperature.
    QString TempUnits;
};

/// The calibrator's mode for a unit text and, for temperatures, a sensor's name and its number of wires.
Mode702 get702mode(const QString& units, const QString& sensor, qint16 wires);

} // namespace kelvane::Module702Interface
