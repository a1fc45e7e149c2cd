#pragma once

#include "drivers/fluke_quantity.h"

#include <QString>

#include <span>

namespace kelvane {

/// A side of an instrument (its input or its output) in a calibrator's words.
struct FlukeMode {
    /// Empty when units or sensor are not known.
    QString Mode;
    /// Empty for anything but temperature.
    QString Sensor;
    /// Empty for anything but temperature.
    QString TempUnits;
};

/// The words of one calibrator.
struct FlukeWords {
    struct Sensor {
        /// Resistance thermometers begin with "RTD"; all others are thermocouples.
        QStringView name;
        QStringView word;
    };
    struct Mode {
        FlukeQuantity quantity;
        QStringView word;
    };

    QStringView celsius;
    QStringView fahrenheit;
    std::span<const Sensor> sensors;
    /// The mode of each quantity; that of temperature is a thermocouple's.
    std::span<const Mode> modes;
    /// The mode of a resistance thermometer on so many wires.
    QString (*resistanceThermometer)(qint16 wires);
};

/// The mode for a unit text and, for temperatures, a sensor's name and its number of wires. Texts are
/// compared exactly.
FlukeMode flukeMode(const FlukeWords& words, const QString& units, const QString& sensor, qint16 wires);

} // namespace kelvane
