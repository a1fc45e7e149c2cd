#include "drivers/line_settings.h"

#include "platform/error_report.h"
#include "platform/values/numbers.h"

namespace kelvane {

QString lineSetting(const Session& session, const CalibratorIdentity& calibrator, QStringView key) {
    return ModuleGlobals::GetRegSetting(session, calibrator.name.toString(), key.toString());
}

LinkLine linkLine(const Session& session, const CalibratorIdentity& calibrator) {
    LinkLine line;
    const auto baudRate = roundToLong(numericValue(lineSetting(session, calibrator, lineKey::baudRate)));
    if (baudRate != 0)
        line.baudRate = baudRate;
    const auto port = lineSetting(session, calibrator, lineKey::port);
    if (!port.isEmpty())
        line.port = port;
    return line;
}

} // namespace kelvane
