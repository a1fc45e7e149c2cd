#include "drivers/fluke_mode.h"

#include <algorithm>

namespace kelvane {

FlukeMode flukeMode(const FlukeWords& words, const QString& units, const QString& sensor, qint16 wires) {
    FlukeMode mode;
    const auto word =
        std::find_if(words.modes.begin(), words.modes.end(), [&](const FlukeWords::Mode& candidate) {
            return candidate.quantity == flukeQuantity(units);
        });
    if (word == words.modes.end())
        return mode;
    if (word->quantity != FlukeQuantity::temperature) {
        mode.Mode = word->word.toString();
        return mode;
    }
    mode.TempUnits = (units == u"C" ? words.celsius : words.fahrenheit).toString();
    const auto row =
        std::find_if(words.sensors.begin(), words.sensors.end(),
                     [&](const FlukeWords::Sensor& candidate) { return candidate.name == sensor; });
    if (row == words.sensors.end())
        return mode;
    mode.Sensor = row->word.toString();
    mode.Mode = row->name.startsWith(u"RTD") ? words.resistanceThermometer(wires) : word->word.toString();
    return mode;
}

} // namespace kelvane
