#include "simulators/fluke702/settings.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

namespace {

enum class Sensor { None, Thermocouple, Rtd };

struct Mode {
    QStringView name;
    Sensor sensor;
    double most; ///< the ends of a source's scale; 0: anything
};

constexpr Mode sources[] = {
    {u"dcv", Sensor::None, 11},         {u"current", Sensor::None, 0.022}, {u"freq", Sensor::None, 50'000},
    {u"2w_ohms", Sensor::None, 11'000}, {u"2w_rtd", Sensor::Rtd, 0},       {u"tc", Sensor::Thermocouple, 0},
    {u"pressure", Sensor::None, 0},
};
constexpr Mode measures[] = {
    {u"dcv", Sensor::None, 0},        {u"acv", Sensor::None, 0},      {u"current", Sensor::None, 0},
    {u"freq", Sensor::None, 0},       {u"freq_low", Sensor::None, 0}, {u"2w_ohms", Sensor::None, 0},
    {u"2w_rtd", Sensor::Rtd, 0},      {u"3w_rtd", Sensor::Rtd, 0},    {u"4w_rtd", Sensor::Rtd, 0},
    {u"tc", Sensor::Thermocouple, 0}, {u"pressure", Sensor::None, 0},
};

constexpr struct {
    QStringView name;
    Sensor kind;
} sensors[] = {
    {u"rtd_pt100_385", Sensor::Rtd},  {u"rtd_ni120", Sensor::Rtd},      {u"rtd_pt200_385", Sensor::Rtd},
    {u"rtd_pt500_385", Sensor::Rtd},  {u"rtd_pt1000_385", Sensor::Rtd}, {u"rtd_cu10", Sensor::Rtd},
    {u"rtd_pt100_3916", Sensor::Rtd}, {u"rtd_pt100_392", Sensor::Rtd},  {u"tc_e", Sensor::Thermocouple},
    {u"tc_n", Sensor::Thermocouple},  {u"tc_j", Sensor::Thermocouple},  {u"tc_k", Sensor::Thermocouple},
    {u"tc_t", Sensor::Thermocouple},  {u"tc_b", Sensor::Thermocouple},  {u"tc_r", Sensor::Thermocouple},
    {u"tc_s", Sensor::Thermocouple},  {u"tc_c", Sensor::Thermocouple},  {u"tc_l", Sensor::Thermocouple},
    {u"tc_u", Sensor::Thermocouple},
};

/// What needs the same jacks on both sides.
constexpr struct {
    QStringView source;
    QStringView measure;
} apart[] = {
    {u"pressure", u"pressure"}, {u"current", u"current"}, {u"tc", u"tc"},           {u"current", u"2w_rtd"},
    {u"current", u"3w_rtd"},    {u"current", u"4w_rtd"},  {u"current", u"2w_ohms"},
};

template <class Table>
auto* findNamed(const Table& table, QStringView name) {
    const auto* const place = std::find_if(std::begin(table), std::end(table),
                                           [&](const auto& entry) { return entry.name == name; });
    return place == std::end(table) ? nullptr : place;
}

bool isNumber(std::initializer_list<float> values) {
    return std::all_of(values.begin(), values.end(), [](float value) { return std::isfinite(value); });
}

Code setWord(QString& setting, const QString& word, std::initializer_list<QStringView> words) {
    if (std::find(words.begin(), words.end(), word) == words.end())
        return BadArgument;
    setting = word;
    return Done;
}

template <class Table, class OtherTable>
Code checkMode(const Table& table, const OtherTable& other, const QString& modeName,
               const QString& sensorName) {
    const Mode* const mode = findNamed(table, modeName);
    if (mode == nullptr)
        return findNamed(other, modeName) == nullptr ? BadArgument : BadCombination;
    const auto* const sensor = findNamed(sensors, sensorName);
    if (sensor == nullptr && !sensorName.isEmpty())
        return BadArgument;
    if (mode->sensor != Sensor::None && (sensor == nullptr || sensor->kind != mode->sensor))
        return BadCombination;
    return Done;
}

} // namespace

Code setTemperatureUnits(State& state, const QString& units) {
    return setWord(state.temperatureUnits, units, {u"celsius", u"fahrenheit"});
}

Code setColdJunction(State& state, const QString& mode, float temperature) {
    if (!isNumber({temperature}))
        return BadArgument;
    const Code code = setWord(state.coldJunction, mode, {u"measure", u"user"});
    if (code == Done)
        state.coldJunctionTemperature = temperature;
    return code;
}

Code setTemperatureStandard(State& state, const QString& standard) {
    return setWord(state.temperatureStandard, standard, {u"ipts68", u"its90"});
}

Code setPressureUnits(State& state, const QString& units) {
    return setWord(state.pressureUnits, units, {u"psi", u"in_hg", u"in_h2o", u"mm_hg", u"kpa", u"bar"});
}

Code setSource(State& state, const QString& mode, const QString& sensor, float value, float amplitude) {
    const Code code = checkMode(sources, measures, mode, sensor);
    if (code != Done)
        return code;
    if (!isNumber({value, amplitude}))
        return SourceOutOfRange;
    state.sourceMode = mode;
    state.sourceSensor = sensor;
    state.sourceValue = value;
    state.sourceAmplitude = amplitude;
    return Done;
}

Code setMeasure(State& state, const QString& mode, const QString& sensor) {
    const Code code = checkMode(measures, sources, mode, sensor);
    if (code == Done) {
        state.measureMode = mode;
        state.measureSensor = sensor;
    }
    return code;
}

Code setRange(State& state, qint16 automatic, float top) {
    if (automatic != 0 && automatic != 1)
        return BadArgument;
    if (!isNumber({top}))
        return BadRange;
    state.automaticRange = automatic == 1;
    state.range = top;
    return Done;
}

Code setLoopPower(State& state, const QString& power) {
    return setWord(state.loopPower, power, {u"off", u"24v", u"28v"});
}

Code setSourceScale(State& state, float high, float low) {
    if (!isNumber({high, low}))
        return BadArgument;
    const Mode* const mode = findNamed(sources, state.sourceMode);
    const double most = mode == nullptr ? 0 : mode->most * 1.01;
    if (most > 0 && (std::abs(high) > most || std::abs(low) > most))
        return SourceOutOfRange;
    state.source = {high, low};
    return Done;
}

Code setMeasureScale(State& state, float high, float low) {
    if (!isNumber({high, low}))
        return BadArgument;
    state.measured = {high, low};
    return Done;
}

Code setTolerance(State& state, float percent) {
    if (!isNumber({percent}))
        return BadArgument;
    state.tolerance = percent;
    return Done;
}

Code checkCombination(const State& state) {
    const bool parted = std::any_of(std::begin(apart), std::end(apart), [&](const auto& pair) {
        return pair.source == state.sourceMode && pair.measure == state.measureMode;
    });
    return parted || state.sourceMode.isEmpty() || state.measureMode.isEmpty() ? BadCombination : Done;
}

} // namespace kelvane::simulators::fluke702
