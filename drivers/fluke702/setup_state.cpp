#include "drivers/fluke702/setup_state.h"

#include "platform/values/numbers.h"

namespace kelvane::Module702Interface {

namespace {

bool setSignals(Dpclnk& link, StatusRule& rule, const Download702Item& item, const CarriedValues& carried) {
    return rule.passes(link.STAsetTempUnits(item.tempUnits)) &&
           rule.passes(link.STAsetTref(item.cjMode, toReal(numericValue(item.cjTemp)))) &&
           rule.passes(link.STAsetTempStd(item.tempStd)) &&
           rule.passes(link.STAsetPresUnits(item.pressureUnits)) &&
           rule.passes(link.STAsetOutput(item.inputMode, item.inputSensor, carried.sourceValue,
                                         carried.sourceAmplitude)) &&
           rule.passes(link.STAsetInput(item.outputMode, item.outputSensor));
}

/// Temperatures and frequencies have no range. Pressure has the module's own, whatever the library says.
bool setRange(Dpclnk& link, StatusRule& rule, const Download702Item& item, bool manual) {
    if (!manual && (item.outputClass == 5 || item.outputClass == 1))
        return true;
    if (item.outputClass == 2) {
        link.STAsetInputRange(1, 0);
        return true;
    }
    const float top = manual ? 300.0F : toReal(double{item.outputHigh} * 1.1);
    return rule.passes(link.STAsetInputRange(0, top));
}

} // namespace

bool saveSetupState(Dpclnk& link, StatusRule& rule, Download702Item& item, const CarriedValues& carried) {
    link.STAinit();
    return setSignals(link, rule, item, carried) && setRange(link, rule, item, carried.manual) &&
           rule.passes(link.STAsetLoopPower(item.loopPower)) &&
           rule.passes(link.STAsetOutputScale(item.inputHigh, item.inputLow)) &&
           rule.passes(link.STAsetInputScale(item.outputHigh, item.outputLow)) &&
           rule.passes(link.STAsetTestTolerance(toReal(item.tolerance))) &&
           rule.passes(link.STAsave(item.stateId));
}

} // namespace kelvane::Module702Interface
