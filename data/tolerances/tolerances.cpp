#include "data/tolerances/tolerances.h"

#include "data/parameters/cal_params.h"
#include "data/routine.h"
#include "data/tolerances/checked_arithmetic.h"
#include "data/tolerances/result_lines.h"
#include "platform/values/numbers.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

/// How a number is shown at a resolution: so many decimals, or rounded to a step of 10, 100, ….
struct NumberFormat {
    QStringView digits;
    int decimals;
    int step;
};

constexpr NumberFormat numberFormats[] = {
    {u"0.1", 1, 1},         {u"0.01", 2, 1},      {u"0.001", 3, 1},       {u"0.0001", 4, 1},
    {u"0.00001", 5, 1},     {u"0.000001", 6, 1},  {u"0.0000001", 7, 1},   {u"0.00000001", 8, 1},
    {u"0.000000001", 9, 1}, {u"1", 0, 1},         {u"10", 0, 10},         {u"100", 0, 100},
    {u"1000", 0, 1000},     {u"10000", 0, 10000}, {u"100000", 0, 100000},
};

/// The five tolerance terms of one side, widened.
struct Terms {
    double fs;
    double span;
    double reading;
    double lsd;
    double units;
};

/// The output range, widened, and the resolution as it is printed.
struct OutputRange {
    double high;
    double low;
    double resolution;
};

constexpr double upperSide = 1;
constexpr double lowerSide = -1;

double nominalOf(double input, float input_low, float input_high, const OutputRange& range) {
    const double low = input_low;
    const double high = input_high;
    if (finite(std::abs(toReal(high - low))) == 0)
        return finite(input);
    return finite((input - low) / (high - low) * (range.high - range.low) + range.low);
}

double limitOf(double nominal, double side, const Terms& terms, const OutputRange& range) {
    return finite(nominal + side * (terms.fs / 100 * range.high) +
                  side * ((range.high - range.low) * terms.span / 100) +
                  side * (terms.reading / 100 * nominal) + side * (terms.lsd * range.resolution) +
                  side * terms.units);
}

/// The number that `text` shows in front of its unit.
float roundedValue(QStringView text, QStringView unit = {}) {
    return toReal(numericValue(text.chopped(unit.size())));
}

double toleranceAt(const ErrorResult& result, double output) {
    const double above = finite(output - result.lower_limit);
    const double below = finite(result.upper_limit - output);
    return finite(above <= below ? result.nominal - result.lower_limit : result.upper_limit - result.nominal);
}

/// The most characters that the report line puts in front of a text.
constexpr qsizetype maxPadding = 2;

constexpr double firstPercentNotShown = 501;

/// As a rule the shown percentage is that of the rounded, printed figures; only where these fall together is
/// it that of the exact ones.
void judgePercent(ErrorResult& result, double output) {
    const bool low = output <= result.nominal;
    const double limit = low ? result.lower_limit : result.upper_limit;
    const float limit_rounded = low ? result.lower_rounded : result.upper_rounded;
    const double half_width = finite(low ? result.nominal - limit : limit - result.nominal);

    if (half_width != 0)
        result.percent = finite(result.error / half_width * 100);
    if (std::abs(result.percent) >= firstPercentNotShown) {
        result.percent_text = u">500"_s;
        return;
    }
    if (result.nominal_rounded == 0 && limit_rounded == 0 && limit == 0) {
        result.percent_text = u"0"_s;
        return;
    }
    double percent = 0;
    if (result.nominal_rounded == limit_rounded) {
        percent = finite(divide(result.error, half_width) * 100);
    } else {
        const float width_rounded =
            finite(low ? result.nominal_rounded - limit_rounded : limit_rounded - result.nominal_rounded);
        percent = finite(divide(result.error_rounded, width_rounded) * 100.0F);
    }
    result.percent_text = fixedDecimals(low ? std::abs(percent) : percent, 0, maxPadding);
}

/// Uses the signed percentage: a reading below the nominal never gets an advice.
QString adviceFor(double percent) {
    if (percent > 100)
        return u"NOTIFY USER"_s;
    return percent >= 70 ? u"MARGINAL"_s : QString();
}

/// The format that the exact text of `digits` picks; null for any other text.
const NumberFormat* formatOf(QStringView digits) {
    const auto* end = std::end(numberFormats);
    const auto* found = std::find_if(std::begin(numberFormats), end,
                                     [&](const NumberFormat& format) { return format.digits == digits; });
    return found == end ? nullptr : found;
}

/// `value` in a format, with `unit` behind it; without a format the unit alone.
QString formatValue(Session& session, double value, const NumberFormat* format, QStringView unit = {}) {
    QString text;
    Routine routine(session, u"ModuleGlobals,DecimalFormat"_s);
    routine.run([&] {
        if (!format)
            return;
        const double stepped = format->step == 1 ? value : roundHalfEven(value / format->step) * format->step;
        text = fixedDecimals(finite(stepped), format->decimals, unit.size() + maxPadding);
    });
    text += unit;
    return text;
}

} // namespace

QString DecimalFormat(Session& session, double value, const QString& digits) {
    return formatValue(session, value, formatOf(digits));
}

namespace {

/// What a test point is judged against.
struct PointRules {
    float input_low;
    float input_high;
    OutputRange range;
    const NumberFormat* format;
    const QString& input_units;
    const QString& output_units;
    Terms positive;
    Terms negative;
    float resolution;
};

void fillNominal(Session& session, ErrorResult& result, double input, const PointRules& rules) {
    result.nominal = nominalOf(input, rules.input_low, rules.input_high, rules.range);
    result.nominal_text = formatValue(session, result.nominal, rules.format, rules.output_units);
    result.nominal_rounded = roundedValue(result.nominal_text, rules.output_units);
}

/// The text of the input, and both limits around the nominal output.
void fillLimits(Session& session, ErrorResult& result, double input, const PointRules& rules) {
    result.input_text = formatValue(session, finite(input), rules.format, rules.input_units);
    auto range = rules.range;
    range.resolution = widenThroughText(rules.resolution);
    result.upper_limit = limitOf(result.nominal, upperSide, rules.positive, range);
    result.upper_text = formatValue(session, result.upper_limit, rules.format);
    result.upper_rounded = roundedValue(result.upper_text);
    result.lower_limit = limitOf(result.nominal, lowerSide, rules.negative, range);
    result.lower_text = formatValue(session, result.lower_limit, rules.format);
    result.lower_rounded = roundedValue(result.lower_text);
}

} // namespace

ErrorResult ErrorCalculation(Session& session, double input, double output, float input_low, float input_high,
                             float output_high, float output_low, const QString& digits,
                             const QString& input_units, const QString& output_units, float pos_fs,
                             float pos_span, float pos_reading, float pos_lsd, float pos_units, float neg_fs,
                             float neg_span, float neg_reading, float neg_lsd, float neg_units,
                             float resolution, qint16 line) {
    ErrorResult result;
    const PointRules rules{input_low,
                           input_high,
                           {output_high, output_low, 0},
                           formatOf(digits),
                           input_units,
                           output_units,
                           {pos_fs, pos_span, pos_reading, pos_lsd, pos_units},
                           {neg_fs, neg_span, neg_reading, neg_lsd, neg_units},
                           resolution};
    Routine routine(session, u"ModuleGlobals,ErrorCalculation"_s);
    routine.run([&] {
        fillNominal(session, result, input, rules);
        result.output_text = formatValue(session, finite(output), rules.format, output_units);
        fillLimits(session, result, input, rules);

        result.error = finite(output - result.nominal);
        auto error_text = formatValue(session, result.error, rules.format, output_units);
        result.error_rounded = roundedValue(error_text, output_units);
        result.error_text = std::move(error_text);
        result.tolerance_text = formatValue(session, toleranceAt(result, output), rules.format, output_units);

        judgePercent(result, output);
        const bool within = output <= result.upper_limit && output >= result.lower_limit;
        result.verdict = within ? u"PASS"_s : u"FAIL"_s;
        result.advice = adviceFor(result.percent);

        auto number = plainText(int{line});
        QString units;
        result.result_line =
            ResultLine(session, number, result.nominal_text, result.input_text, result.output_text,
                       result.tolerance_text, result.error_text, result.percent_text, units, result.advice,
                       result.lower_text, result.upper_text, result.verdict);
    });
    return result;
}

double inputAt(const CalParamRecord& instrument, double fraction) {
    const double low = instrument.input_low;
    return (instrument.input_high - low) * fraction + low;
}

ErrorResult expectedResult(Session& session, const CalParamRecord& instrument, double input) {
    ErrorResult result;
    Routine routine(session, u"ModuleGlobals,expectedResult"_s);
    routine.run([&] {
        const auto& r = instrument;
        const PointRules rules{
            r.input_low,
            r.input_high,
            {r.output_high, r.output_low, 0},
            formatOf(plainText(r.resolution)),
            r.input_type,
            r.output_type,
            {r.pos_fs_range_pct, r.pos_span_pct, r.pos_reading_pct, r.pos_lsd_counts, r.pos_units},
            {r.neg_fs_range_pct, r.neg_span_pct, r.neg_reading_pct, r.neg_lsd_counts, r.neg_units},
            r.resolution};
        fillNominal(session, result, input, rules);
        fillLimits(session, result, input, rules);
        result.tolerance_text =
            formatValue(session, toleranceAt(result, result.nominal), rules.format, r.output_type);
    });
    return result;
}

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
