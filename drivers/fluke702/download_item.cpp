#include "drivers/fluke702/download_item.h"

#include "data/parameters/cal_params.h"
#include "data/tolerances/unit_class.h"
#include "drivers/fluke702/mode.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"

#include <span>

using namespace Qt::StringLiterals;

namespace kelvane::Module702Interface {

namespace {

/// A word of the parameters and the calibrator's word for it.
struct Word {
    QStringView own;
    QStringView calibrator;
};

constexpr Word pressureWords[] = {
    {u"psi", u"psi"},    {u"psig", u"psi"}, {u"inHg", u"in_hg"}, {u"inH2O", u"in_h2o"},
    {u"mmHg", u"mm_hg"}, {u"kPa", u"kpa"},  {u"bar", u"bar"},    {u"mbar", u"bar"},
};

constexpr Word loopWords[] = {{u"OFF", u"off"}, {u"24V", u"24v"}, {u"28V", u"28v"}};

QString wordFor(std::span<const Word> words, const QString& own, QStringView otherwise) {
    for (const auto& word : words) {
        if (word.own == own)
            return word.calibrator.toString();
    }
    return otherwise.toString();
}

void setSides(Download702Item& item, const CalParamRecord& record) {
    const auto output = get702mode(record.output_type, record.temp_sens_type_out, record.temp_sens_wires_out);
    item.outputMode = output.Mode;
    item.outputSensor = output.Sensor;
    item.outputType = record.output_type;
    item.outputClass = UnitClass(record.output_type);
    item.outputLow = record.output_low;
    item.outputHigh = record.output_high;
    item.outputIndicated = record.output_indicated;

    const auto input = get702mode(record.input_type, record.temp_sens_type_in, record.temp_sens_wires_in);
    item.inputMode = input.Mode;
    item.inputSensor = input.Sensor;
    item.inputType = record.input_type;
    item.inputClass = UnitClass(record.input_type);
    item.inputLow = record.input_low;
    item.inputHigh = record.input_high;
    item.amplitude = record.freq_ptpamp_in / 2;
    item.tempUnits = input.TempUnits;
}

/// The reference of either side counts when the other side is a temperature; the input's reference counts
/// last.
void setColdJunction(Download702Item& item, const CalParamRecord& record) {
    const auto external = u"EXT"_s;
    item.cjMode = u"measure"_s;
    item.cjTemp = u"0.0"_s;
    if (record.cj_ref_type_out == external && item.inputClass == 1) {
        item.cjMode = u"user"_s;
        item.cjTemp = plainText(record.cj_ref_temp_out);
    }
    if (record.cj_ref_type_in == external && item.outputClass == 1) {
        item.cjMode = u"user"_s;
        item.cjTemp = plainText(record.cj_ref_temp_in);
    }
}

void setEnvironment(Download702Item& item, const CalParamRecord& record) {
    item.tempStd = upperCased(record.temp_scale_in) == u"IPTS-68" ? u"ipts68"_s : u"its90"_s;
    item.loopPower =
        item.outputClass == 3 ? wordFor(loopWords, upperCased(record.loop_pwr), u"off") : u"off"_s;
    if (item.outputClass == 2 || item.inputClass == 2)
        item.pressureUnits =
            wordFor(pressureWords, item.outputClass == 2 ? item.outputType : item.inputType, {});
}

} // namespace

Download702Item gatherItem(Session& session, const AssetEntry& entry) {
    const auto record = ModuleGlobals::GetCalParams(session, entry.asset);
    Download702Item item;
    item.asset = entry.asset;
    item.mtag = entry.mtag;
    item.serial = entry.serial;
    item.tp_name = record.tp_name;
    item.strategyName = upperCased(record.tp_name.left(13));
    setSides(item, record);
    setColdJunction(item, record);
    setEnvironment(item, record);
    return item;
}

} // namespace kelvane::Module702Interface
