#include "drivers/fluke74x/download_item.h"

#include "drivers/fluke74x/base_units.h"
#include "drivers/fluke74x/mode.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::Module74xInterface {

namespace {

/// The word for "mmHg" lacks its first letter, as the calibrator has it.
constexpr FlukeTaskWords::Word pressureWords[] = {
    {u"psi", u"psi"},   {u"psig", u"psi"}, {u"inHg", u"in_hg"}, {u"inH2O", u"in_h2o"},
    {u"mmHg", u"m_hg"}, {u"kPa", u"kpa"},  {u"bar", u"bar"},    {u"mbar", u"bar"},
};

constexpr FlukeTaskWords::Word loopWords[] = {
    {u"OFF", u"Disabled"}, {u"24V", u"Enabled 24V"}, {u"28V", u"Enabled 28V"}};

constexpr FlukeTaskWords words{.mode = get74xmode,
                               .strategyNameLength = 15,
                               .measuredJunction = u"Internal",
                               .givenJunction = u"External",
                               .ipts68 = u"IPTS-68",
                               .its90 = u"ITS-90",
                               .temperatureScale = &CalParamRecord::temp_scale_out,
                               .pressures = pressureWords,
                               .loops = loopWords,
                               .loopOff = u"Disabled"};

/// The classes of units that the calibrator can handle. No unit is of class 7; that of resistances, 9, is
/// missing: a user enters them.
constexpr qint16 handledClasses[] = {1, 2, 3, 4, 5, 7};

bool isHandled(qint16 unitClass) {
    return std::ranges::find(handledClasses, unitClass) != std::end(handledClasses);
}

void scaleToBaseUnit(float& low, float& high, const QString& unit) {
    low = toBaseUnit(baseUnits, low, unit);
    high = toBaseUnit(baseUnits, high, unit);
}

} // namespace

Task74x gatherTask(Session& session, const AssetEntry& entry) {
    return {flukeDownloadItem(words, entry, ModuleGlobals::GetCalParams(session, entry.asset))};
}

void prepareTask(Task74x& task, EnteredSides& entered) {
    if (task.tempUnits.isEmpty())
        task.tempUnits = u"Celsius"_s;
    if (task.pressureUnits.isEmpty())
        task.pressureUnits = u"psi"_s;
    if (!task.outputIndicated)
        scaleToBaseUnit(task.outputLow, task.outputHigh, task.outputType);
    if (!task.inputIndicated)
        scaleToBaseUnit(task.inputLow, task.inputHigh, task.inputType);

    if ((task.outputClass == 2 && task.inputClass == 2) || !isHandled(task.outputClass) ||
        task.outputIndicated)
        entered.measure = true;
    if (!isHandled(task.inputClass) || task.inputIndicated)
        entered.source = true;
    if (entered.measure) {
        task.outputMode = u"DCV"_s;
        task.errorMode = u"UEV Measure"_s;
    }
    if (entered.source) {
        task.inputMode = u"DCV"_s;
        task.errorMode = entered.measure ? u"UEV Measure Source"_s : u"UEV Source"_s;
    }
}

} // namespace kelvane::Module74xInterface
