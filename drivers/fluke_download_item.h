#pragma once

#include "data/assets/assets.h"
#include "data/parameters/cal_params.h"
#include "drivers/fluke_mode.h"

#include <span>

namespace kelvane {

/// The words in which one Fluke calibrator takes an instrument.
struct FlukeTaskWords {
    /// A word of the parameters and the calibrator's word for it.
    struct Word {
        QStringView own;
        QStringView calibrator;
    };

    FlukeMode (*mode)(const QString& units, const QString& sensor, qint16 wires);
    /// How much of a strategy's name the calibrator keeps.
    qsizetype strategyNameLength;
    /// How the cold junction gets its temperature.
    QStringView measuredJunction;
    QStringView givenJunction;
    QStringView ipts68;
    QStringView its90;
    /// The side whose temperature scale counts.
    QString CalParamRecord::*temperatureScale;
    std::span<const Word> pressures;
    /// In capitals; a word without a row is `loopOff`.
    std::span<const Word> loops;
    QStringView loopOff;
};

/// One instrument of a download in the calibrator's terms. "Input" and "output" are the instrument's own: the
/// calibrator sources the one and measures the other.
struct FlukeDownloadItem {
    QString asset;
    QString mtag;
    QString serial;
    QString tp_name;
    /// The strategy's name on the calibrator, upper-cased.
    QString strategyName;
    /// In percent of span.
    double tolerance = 0;
    /// Empty without a temperature. It is the input's: an output in degrees alone leaves it empty.
    QString tempUnits;
    QString cjMode;
    /// The temperature of a cold junction that is given one.
    QString cjTemp;
    QString tempStd;
    float outputLow = 0;
    float outputHigh = 0;
    float inputLow = 0;
    float inputHigh = 0;
    QString outputSensor;
    QString inputSensor;
    QString outputMode;
    QString inputMode;
    /// Empty without a pressure on either side.
    QString pressureUnits;
    QString outputType;
    QString inputType;
    /// Of a frequency that is sourced: half of peak to peak, in millivolts.
    float amplitude = 0;
    qint16 outputClass = 0;
    qint16 inputClass = 0;
    QString loopPower;
    bool outputIndicated = false;
    bool inputIndicated = false;
};

/// Puts an instrument's parameters into the calibrator's words. The tolerance stays empty.
FlukeDownloadItem flukeDownloadItem(const FlukeTaskWords& words, const AssetEntry& entry,
                                    const CalParamRecord& record);

} // namespace kelvane
