#pragma once

#include "data/session.h"

namespace kelvane::Module702Interface {

/// One instrument of a download in the calibrator's words. "Input" and "output" are the instrument's own: the
/// calibrator sources the one and measures the other.
struct Download702Item {
    QString asset;
    QString mtag;
    QString serial;
    QString tp_name;
    /// The strategy's name on the calibrator: at most 13 characters, upper-cased.
    QString strategyName;
    /// Given by the library; 0 for an instrument whose points make no strategy.
    qint32 strategyId = 0;
    qint32 stateId = 0;
    /// In percent of span.
    double tolerance = 0;
    /// "celsius", "fahrenheit" or empty. It is the input's: an output in degrees alone leaves it empty.
    QString tempUnits;
    /// "measure" or "user"; with "user" the cold junction has the temperature `cjTemp`.
    QString cjMode;
    QString cjTemp;
    /// "ipts68" or "its90".
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
    /// "off", "24v" or "28v".
    QString loopPower;
    bool outputIndicated = false;
};

/// Reads an instrument's parameters and puts them into the calibrator's words. What the library gives and the
/// tolerance stay empty.
Download702Item gatherItem(Session& session, const AssetEntry& entry);

} // namespace kelvane::Module702Interface
