#include "drivers/fluke_download_item.h"

#include "data/tolerances/unit_class.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

QString wordFor(std::span<const FlukeTaskWords::Word> words, const QString& own, QStringView otherwise) {
    const auto found = std::ranges::find(words, own, &FlukeTaskWords::Word::own);
    return (found == words.end() ? otherwise : found->calibrator).toString();
}

void setSides(FlukeDownloadItem& item, const FlukeTaskWords& words, const CalParamRecord& record) {
    const auto output = words.mode(record.output_type, record.temp_sens_type_out, record.temp_sens_wires_out);
    item.outputMode = output.Mode;
    item.outputSensor = output.Sensor;
    item.outputType = record.output_type;
    item.outputClass = UnitClass(record.output_type);
    item.outputLow = record.output_low;
    item.outputHigh = record.output_high;
    item.outputIndicated = record.output_indicated;

    const auto input = words.mode(record.input_type, record.temp_sens_type_in, record.temp_sens_wires_in);
    item.inputMode = input.Mode;
    item.inputSensor = input.Sensor;
    item.inputType = record.input_type;
    item.inputClass = UnitClass(record.input_type);
    item.inputLow = record.input_low;
    item.inputHigh = record.input_high;
    item.inputIndicated = record.input_indicated;
    item.amplitude = record.freq_ptpamp_in / 2;
    item.tempUnits = input.TempUnits;
}

/// The reference of either side counts when the other side is a temperature; the input's reference counts
/// last.
void setColdJunction(FlukeDownloadItem& item, const FlukeTaskWords& words, const CalParamRecord& record) {
    const auto external = u"EXT"_s;
    item.cjMode = words.measuredJunction.toString();
    item.cjTemp = u"0.0"_s;
    if (record.cj_ref_type_out == external && item.inputClass == 1) {
        item.cjMode = words.givenJunction.toString();
        item.cjTemp = plainText(record.cj_ref_temp_out);
    }
    if (record.cj_ref_type_in == external && item.outputClass == 1) {
        item.cjMode = words.givenJunction.toString();
        item.cjTemp = plainText(record.cj_ref_temp_in);
    }
}

void setConditions(FlukeDownloadItem& item, const FlukeTaskWords& words, const CalParamRecord& record) {
    const bool isOldScale = toUpperCase(record.*words.temperatureScale) == u"IPTS-68";
    item.tempStd = (isOldScale ? words.ipts68 : words.its90).toString();
    item.loopPower = item.outputClass == 3 ? wordFor(words.loops, toUpperCase(record.loop_pwr), words.loopOff)
                                           : words.loopOff.toString();
    if (item.outputClass == 2 || item.inputClass == 2)
        item.pressureUnits =
            wordFor(words.pressures, item.outputClass == 2 ? item.outputType : item.inputType, {});
}

} // namespace

FlukeDownloadItem flukeDownloadItem(const FlukeTaskWords& words, const AssetEntry& entry,
                                    const CalParamRecord& record) {
    FlukeDownloadItem item;
    item.asset = entry.asset;
    item.mtag = entry.mtag;
    item.serial = entry.serial;
    item.tp_name = record.tp_name;
    item.strategyName = toUpperCase(record.tp_name.left(words.strategyNameLength));
    setSides(item, words, record);
    setColdJunction(item, words, record);
    setConditions(item, words, record);
    return item;
}

} // namespace kelvane
