#include "data/parameters/cal_params.h"
#include "data/routine.h"
#include "data/tolerances/checked_arithmetic.h"
#include "data/tolerances/tolerances.h"
#include "platform/values/numbers.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

/// An instrument's input range and tolerance terms, all widened.
struct Instrument {
    explicit Instrument(const CalParamRecord& record)
        : high(record.input_high),
          low(record.input_low),
          resolution(widenThroughText(record.resolution)),
          negative{record.neg_fs_range_pct, record.neg_span_pct, record.neg_reading_pct,
                   record.neg_lsd_counts * resolution + record.neg_units},
          positive{record.pos_fs_range_pct, record.pos_span_pct, record.pos_reading_pct,
                   record.pos_lsd_counts * resolution + record.pos_units} {}

    /// The terms of one side; `fixed` is what does not depend on the range: units and counts.
    struct Terms {
        double fs;
        double span;
        double reading;
        double fixed;
    };

    double pointAt(double percent) const { return low + percent / 100 * (high - low); }

    double high;
    double low;
    double resolution;
    Terms negative;
    Terms positive;
};

/// The tolerances of both sides at one test point, as fractions.
struct Tolerances {
    double negative;
    double positive;
};

/// The negative side refers its span, units and counts to the top of the range, where the positive side
/// refers them to full scale. The two differ for a range that reaches further below zero than above it.
Tolerances fullScaleTolerances(const Instrument& instrument, double percent) {
    const double high = instrument.high;
    const double full_scale = std::abs(high) > std::abs(instrument.low) ? high : instrument.low;
    const double point = instrument.pointAt(percent);
    const auto side = [&](const Instrument::Terms& terms, double reference) {
        return finite(terms.fs / 100 + divide(terms.span * (high - instrument.low) / 100, reference) +
                      divide(terms.reading / 100 * point, full_scale) + divide(terms.fixed, reference));
    };
    return {side(instrument.negative, high), side(instrument.positive, full_scale)};
}

Tolerances spanTolerances(const Instrument& instrument, double percent) {
    const double high = instrument.high;
    const double span = high == instrument.low ? high : high - instrument.low;
    const double point = instrument.pointAt(percent);
    const auto side = [&](const Instrument::Terms& terms) {
        return finite(terms.span / 100 + divide(terms.fs / 100 * high, span) +
                      divide(terms.reading / 100 * point, span) + divide(terms.fixed, span));
    };
    return {side(instrument.negative), side(instrument.positive)};
}

/// What the minima begin with, and stay at for a strategy without points.
constexpr double noTolerance = 100000;

/// The smallest tolerance over all points of the instrument's strategy and both sides, in percent.
double tightest(Session& session, const QString& name, const QString& asset,
                Tolerances (*tolerancesAt)(const Instrument&, double percent)) {
    double result = 0;
    Routine routine(session, name);
    routine.run([&] {
        const BusyPointer busy(session.ui);
        const Instrument instrument(GetCalParams(session, asset));
        Tolerances smallest{noTolerance, noTolerance};
        const auto points = routine.select(selectTestPointPct(session, asset));
        while (points->next()) {
            const auto here = tolerancesAt(instrument, numericValue(notNull(points->value(0))));
            smallest.negative = std::min(smallest.negative, here.negative);
            smallest.positive = std::min(smallest.positive, here.positive);
        }
        result = std::min(smallest.negative, smallest.positive) * 100;
    });
    return result;
}

} // namespace

double TranslateFSTestTolSingle(Session& session, const QString& asset) {
    return tightest(session, u"ModuleGlobals,TranslateFSTestTolSingle"_s, asset, fullScaleTolerances);
}

double TranslateSpanTestTolSingle(Session& session, const QString& asset) {
    return tightest(session, u"ModuleGlobals,TranslateSpanTestTolSingle"_s, asset, spanTolerances);
}

} // namespace kelvane::ModuleGlobals
