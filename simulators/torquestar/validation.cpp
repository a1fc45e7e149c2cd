#include "simulators/torquestar/validation.h"

namespace kelvane::simulators {

namespace {

// Newton metres of one unit: in/oz, in/lb, ft/lb, N/cm, N/m, Kg/cm, Kg/m, Klb/ft, KN/m.
constexpr std::array<double, 9> newtonMetres = {0.00706155, 0.112985, 1.35582, 0.01,  1.0,
                                                0.0980665,  9.80665,  1355.82, 1000.0};
// A display of six digits can't show a span in a unit more than this many times larger or smaller.
constexpr double widestUnitRatio = 10000.0;
// A transducer takes a quarter more than its span.
constexpr double overload = 1.25;
// The lowest torque is at least a fifth of the highest; one ten-thousandth is left to rounding on each side.
constexpr qint64 rangeOfTorque = 5;
constexpr qint64 roundingOfRange = 6;

bool serial(const Fields& fields) {
    return fields[TransducerType] == serialTransducer;
}

bool isOutside(const Fields& fields, Field field, qint32 low, qint32 high) {
    const std::optional<qint32>& value = fields.at(field);
    return value && (*value < low || *value > high);
}

bool differs(const Fields& fields, Field field, qint32 fixed) {
    return isOutside(fields, field, fixed, fixed);
}

/// A field that means one thing for a Serial transducer and another for the rest.
struct Range {
    qint32 low;
    qint32 high;
};

bool isOutsideIfSerial(bool serialMeant, const Fields& fields, Field field, Range range) {
    return serial(fields) == serialMeant && isOutside(fields, field, range.low, range.high);
}

/// How many display units one unit of span makes; empty when either did not come.
std::optional<double> displayUnitsInUnitOfSpan(const Fields& fields) {
    if (!fields[UnitsOfSpan] || !fields[UnitsOfDisplay])
        return {};
    const auto factor = [](qint32 code) { return newtonMetres.at(static_cast<std::size_t>(code - 1)); };
    return factor(*fields[UnitsOfSpan]) / factor(*fields[UnitsOfDisplay]);
}

bool unitsIncompatible(const Fields& fields) {
    const std::optional<double> ratio = displayUnitsInUnitOfSpan(fields);
    return ratio && (*ratio > widestUnitRatio || *ratio < 1 / widestUnitRatio);
}

bool maximumOutOfRange(const Fields& fields) {
    const qint32 maximum = fields[MaximumTorque].value_or(0);
    const std::optional<double> ratio = displayUnitsInUnitOfSpan(fields);
    return maximum <= 0 || (ratio && fields[Span] && maximum > *fields[Span] * *ratio * overload);
}

bool minimumOutOfRange(const Fields& fields) {
    const qint64 maximum = fields[MaximumTorque].value_or(0);
    const qint64 minimum = fields[MinimumTorque].value_or(0);
    return minimum < 0 || minimum > maximum || minimum * rangeOfTorque + roundingOfRange < maximum;
}

bool isAboveMaximum(const Fields& fields, Field field) {
    return isOutside(fields, field, 0, fields[MaximumTorque].value_or(0));
}

struct Rule {
    int code;
    bool (*broken)(const Fields& fields);
};

using F = const Fields&;

// In the order of the fields; a rule may rely on those before it.
constexpr Rule rules[] = {
    {2, [](F f) { return isOutside(f, Samples, 1, 200); }},
    {3, [](F f) { return isOutside(f, Subgroups, 1, 99); }},
    {4, [](F f) { return isOutside(f, TransducerNumber, 1, 99); }},
    {5, [](F f) { return isOutside(f, TransducerType, 1, 4); }},
    {28, [](F f) { return isOutside(f, Span, 1, 2'000'000'000); }},
    {6,
     [](F f) {
         return isOutsideIfSerial(true, f, SerialFormat, {1, 4});
     }},
    {6,
     [](F f) {
         return isOutsideIfSerial(false, f, SerialFormat, {0, 0});
     }},
    {8, [](F f) { return isOutside(f, UnitsOfSpan, 1, 9); }},
    {7,
     [](F f) {
         return isOutsideIfSerial(true, f, BaudRate, {1, 7});
     }},
    {7,
     [](F f) {
         return isOutsideIfSerial(false, f, BaudRate, {0, 0});
     }},
    {9,
     [](F f) {
         return isOutsideIfSerial(true, f, CycleEnd, {7, 8});
     }},
    {10,
     [](F f) {
         return isOutsideIfSerial(false, f, CycleEnd, {1, 7});
     }},
    {11,
     [](F f) {
         return isOutsideIfSerial(true, f, MeasureMode, {1, 2});
     }},
    {12,
     [](F f) {
         return isOutsideIfSerial(false, f, MeasureMode, {0, 2});
     }},
    {13,
     [](F f) {
         return isOutsideIfSerial(true, f, FrequencyResponse, {1, 3});
     }},
    {14,
     [](F f) {
         return isOutsideIfSerial(false, f, FrequencyResponse, {0, 16});
     }},
    {15, [](F f) { return isOutside(f, UnitsOfDisplay, 1, 9); }},
    {16, unitsIncompatible},
    {17,
     [](F f) {
         return isOutsideIfSerial(true, f, Direction, {0, 0});
     }},
    {17,
     [](F f) {
         return isOutsideIfSerial(false, f, Direction, {1, 2});
     }},
    {18, maximumOutOfRange},
    {19, minimumOutOfRange},
    {20, [](F f) { return isAboveMaximum(f, ThresholdTorque); }},
    {21, [](F f) { return isAboveMaximum(f, ClickDipThreshold); }},
    {commentOutOfRange, [](F f) { return isOutside(f, CommentCharacter, ' ', 0xFE); }},
    {23, [](F f) { return differs(f, Secondary, 0); }},
    {24, [](F f) { return differs(f, MaximumSecondary, 0); }},
    {25, [](F f) { return differs(f, MinimumSecondary, 0); }},
    {unknownError, [](F f) { return differs(f, FixedWord, 0); }},
    {26, [](F f) { return isOutside(f, MillivoltsPerVolt, 1, 100'000); }},
    {unknownError, [](F f) { return differs(f, BridgeResistance, 350); }},
    {unknownError, [](F f) { return differs(f, FixedNumber, 12345); }},
};

} // namespace

std::optional<int> firstFault(const Fields& fields) {
    for (const Rule& rule : rules)
        if (rule.broken(fields))
            return rule.code;
    return {};
}

} // namespace kelvane::simulators
