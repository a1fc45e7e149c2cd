#include "drivers/line_settings.h"

#include "drivers/serial_ports.h"
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
    line.port = linkPort(lineSetting(session, calibrator, lineKey::port));
    return line;
}

QString linkPort(const QString& stored) {
    return stored.isEmpty() ? portName(1) : stored;
}

} // namespace kelvane
