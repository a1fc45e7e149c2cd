#include "drivers/fluke702/task_values.h"

#include "drivers/fluke702/base_units.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::Module702Interface {

namespace {

using Item = Download702Item;

/// A pair of input and output that the calibrator can't serve at once, and what it takes away besides.
struct HandReading {
    bool (*applies)(const Item& item);
    bool clearsSensor;
    bool clearsLoop;
};

constexpr HandReading handReadings[] = {
    {[](const Item& item) { return item.outputClass == 2 && item.inputClass == 2; }, true, false},
    {[](const Item& item) { return item.outputClass == 3 && item.inputClass == 3; }, true, true},
    {[](const Item& item) {
         return item.outputMode == u"tc" && item.inputMode == u"tc" && item.outputClass == 1 &&
                item.inputClass == 1;
     },
     true, true},
    {[](const Item& item) {
         return item.inputMode == u"current" && item.inputClass == 3 && item.outputClass == 1 &&
                item.outputMode.endsWith(u"rtd");
     },
     true, true},
    {[](const Item& item) { return item.outputClass == 9 && item.inputClass == 3; }, true, true},
    {[](const Item& item) { return item.outputMode.isEmpty() || item.outputIndicated; }, false, false},
};

/// The calibrator shows a voltage prompt, at which the reading is entered.
void readByHand(Item& item, const HandReading& pair) {
    if (pair.clearsSensor)
        item.outputSensor.clear();
    if (pair.clearsLoop)
        item.loopPower = u"off"_s;
    item.outputMode = u"dcv"_s;
    item.outputClass = 4;
}

void scaleOutput(Item& item) {
    for (auto* end : {&item.outputLow, &item.outputHigh}) {
        if (item.outputMode == u"acv")
            *end = std::abs(*end);
        *end = toBaseUnit(baseUnits, *end, item.outputType);
    }
}

void scaleInput(Item& item) {
    if (item.inputMode == u"acv")
        return;
    for (auto* end : {&item.inputLow, &item.inputHigh})
        *end = toBaseUnit(baseUnits, *end, item.inputType);
}

} // namespace

void prepareTaskValues(Download702Item& item, CarriedValues& carried) {
    const float outputTop = item.outputHigh;
    if (item.tempUnits.isEmpty())
        item.tempUnits = u"celsius"_s;
    if (item.pressureUnits.isEmpty())
        item.pressureUnits = u"psi"_s;
    if (item.inputMode.endsWith(u"rtd"))
        item.inputMode = u"2w_rtd"_s; // a sensor is always simulated on two wires

    for (const auto& pair : handReadings) {
        if (pair.applies(item)) {
            carried.manual = true;
            readByHand(item, pair);
        }
    }
    if (!carried.manual)
        scaleOutput(item);
    scaleInput(item);
    if (item.inputClass == 5) {
        // The number of the output's top, taken as one in the input's unit.
        carried.sourceValue = toBaseUnit(baseUnits, outputTop, item.inputType);
        carried.sourceAmplitude = item.amplitude / 1000;
    }
    if (item.outputMode == u"freq" && (item.outputLow < 20 || item.outputHigh < 20))
        item.outputMode = u"freq_low"_s;
}

} // namespace kelvane::Module702Interface
