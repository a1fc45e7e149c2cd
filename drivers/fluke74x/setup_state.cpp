#include "drivers/fluke74x/setup_state.h"

#include "drivers/fluke74x/buckets.h"
#include "platform/values/numbers.h"

using namespace Qt::StringLiterals;

namespace kelvane::Module74xInterface {

namespace {

using Status = Dpclnk3::Status;

template <auto word>
Status setMapped(Dpclnk3& link, const QString& name, const Task74x& task) {
    return link.STA3setMappedOp(root, name, task.*word);
}

Status setOn(Dpclnk3& link, const QString& name, const Task74x&) {
    return link.STA3setMappedOp(root, name, u"On"_s);
}

Status setLinear(Dpclnk3& link, const QString& name, const Task74x&) {
    return link.STA3setMappedOp(root, name, u"Linear"_s);
}

template <auto unit>
Status setUnit(Dpclnk3& link, const QString& name, const Task74x& task) {
    return link.STA3setUnitOp(root, name, task.*unit);
}

template <auto value>
Status setFloat(Dpclnk3& link, const QString& name, const Task74x& task) {
    return link.STA3setFloatOp(root, name, task.*value);
}

template <int value>
Status setFloatTo(Dpclnk3& link, const QString& name, const Task74x&) {
    return link.STA3setFloatOp(root, name, value);
}

template <int value>
Status setIntegerTo(Dpclnk3& link, const QString& name, const Task74x&) {
    return link.STA3setIntOp(root, name, value);
}

Status setTolerance(Dpclnk3& link, const QString& name, const Task74x& task) {
    return link.STA3setFloatOp(root, name, toReal(task.tolerance));
}

using Condition = bool (*)(const Task74x& task, const EnteredSides& entered);

bool always(const Task74x&, const EnteredSides&) {
    return true;
}

template <auto mode>
bool isThermocouple(const Task74x& task, const EnteredSides&) {
    return task.*mode == u"TC";
}

template <auto mode>
bool isResistanceThermometer(const Task74x& task, const EnteredSides&) {
    return (task.*mode).endsWith(u"RTD"_s);
}

template <auto mode>
bool isTemperature(const Task74x& task, const EnteredSides& entered) {
    return isThermocouple<mode>(task, entered) || isResistanceThermometer<mode>(task, entered);
}

template <bool EnteredSides::*side, bool isEntered>
bool isSide(const Task74x&, const EnteredSides& entered) {
    return entered.*side == isEntered;
}

constexpr Condition measures = isSide<&EnteredSides::measure, false>;
constexpr Condition entersMeasure = isSide<&EnteredSides::measure, true>;
constexpr Condition sources = isSide<&EnteredSides::source, false>;
constexpr Condition entersSource = isSide<&EnteredSides::source, true>;

/// An item of the setup state. A side whose values a user enters is a channel of 0 to 10 V in the
/// instrument's own scale and unit.
struct StateItem {
    QStringView name;
    Status (*set)(Dpclnk3& link, const QString& name, const Task74x& task);
    Condition applies = always;
};

constexpr StateItem stateItems[] = {
    {u"mcMode", setMapped<&Task74x::outputMode>},
    {u"scMode", setMapped<&Task74x::inputMode>},
    {u"loop", setMapped<&Task74x::loopPower>},
    {u"tempstd", setMapped<&Task74x::tempStd>},
    {u"mTcType", setMapped<&Task74x::outputSensor>, isThermocouple<&Task74x::outputMode>},
    {u"sTcType", setMapped<&Task74x::inputSensor>, isThermocouple<&Task74x::inputMode>},
    {u"mRtdType", setMapped<&Task74x::outputSensor>, isResistanceThermometer<&Task74x::outputMode>},
    {u"sRtdType", setMapped<&Task74x::inputSensor>, isResistanceThermometer<&Task74x::inputMode>},
    {u"mcTref", setMapped<&Task74x::cjMode>, isTemperature<&Task74x::outputMode>},
    {u"scTref", setMapped<&Task74x::cjMode>, isTemperature<&Task74x::inputMode>},
    {u"defaultPres", setUnit<&Task74x::pressureUnits>},
    {u"defaultTemp", setUnit<&Task74x::tempUnits>},
    {u"mcDamping", setOn},
    {u"scDamping", setOn},

    {u"mUutZero", setFloat<&Task74x::outputLow>, measures},
    {u"mUutFS", setFloat<&Task74x::outputHigh>, measures},
    {u"mCustomZero", setFloat<&Task74x::outputLow>, entersMeasure},
    {u"mUutZero", setFloat<&Task74x::outputLow>, entersMeasure},
    {u"mZero", setFloatTo<0>, entersMeasure},
    {u"mCustomFS", setFloat<&Task74x::outputHigh>, entersMeasure},
    {u"mUutFS", setFloat<&Task74x::outputHigh>, entersMeasure},
    {u"mFS", setFloatTo<10>, entersMeasure},
    {u"mCustomUnit", setUnit<&Task74x::outputType>, entersMeasure},
    {u"mcScale", setLinear, entersMeasure},
    {u"mcRangeLocked", setIntegerTo<1>, entersMeasure},
    {u"mcRange", setFloatTo<10>, entersMeasure},

    {u"sUutZero", setFloat<&Task74x::inputLow>, sources},
    {u"sUutFS", setFloat<&Task74x::inputHigh>, sources},
    {u"sCustomZero", setFloat<&Task74x::inputLow>, entersSource},
    {u"sUutZero", setFloat<&Task74x::inputLow>, entersSource},
    {u"sZero", setFloatTo<0>, entersSource},
    {u"sCustomFS", setFloat<&Task74x::inputHigh>, entersSource},
    {u"sUutFS", setFloat<&Task74x::inputHigh>, entersSource},
    {u"sFS", setFloatTo<10>, entersSource},
    {u"sCustomUnit", setUnit<&Task74x::inputType>, entersSource},
    {u"scScale", setLinear, entersSource},

    {u"tol", setTolerance},
    {u"cError", setMapped<&Task74x::errorMode>},
};

} // namespace

bool listStateItems(Dpclnk3& link, StatusRule& rule, const Task74x& task, const EnteredSides& entered) {
    if (!rule.passes(link.STA3beginOps()) || !rule.passes(link.STA3initOp()))
        return false;
    for (const auto& item : stateItems) {
        if (item.applies(task, entered) && !rule.passes(item.set(link, item.name.toString(), task)))
            return false;
    }
    return true;
}

bool saveState(Dpclnk3& link, StatusRule& rule, Dpclnk3::State& state) {
    return rule.passes(link.STA3evalOp()) && rule.passes(link.STA3saveOps(state)) &&
           rule.passes(link.STA3freeOps());
}

} // namespace kelvane::Module74xInterface
