#pragma once

#include "data/tolerances/tolerances.h"

namespace kelvane::testing {

/// The tolerance terms of one side.
struct Terms {
    float fs;
    float span;
    float reading;
    float lsd;
    float units;
};

/// A test point and its instrument, in the order in which the calculation takes them.
struct Point {
    double input;
    double output;
    float input_low;
    float input_high;
    float output_high;
    float output_low;
    QString digits;
    QString input_units;
    QString output_units;
    float resolution;
    Terms pos{};
    Terms neg{};
};

inline ErrorResult calculate(Session& session, const Point& p, qint16 line = 1) {
    return ModuleGlobals::ErrorCalculation(
        session, p.input, p.output, p.input_low, p.input_high, p.output_high, p.output_low, p.digits,
        p.input_units, p.output_units, p.pos.fs, p.pos.span, p.pos.reading, p.pos.lsd, p.pos.units, p.neg.fs,
        p.neg.span, p.neg.reading, p.neg.lsd, p.neg.units, p.resolution, line);
}

} // namespace kelvane::testing
