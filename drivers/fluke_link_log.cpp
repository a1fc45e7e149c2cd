#include "drivers/fluke_link_log.h"

#include "drivers/link_status.h"
#include "drivers/port_state.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane {

QString LinkLog::begin(const QString& missing, const QString& file) const {
    log.readSwitch();
    if (!missing.isEmpty()) {
        log.write(u"no library: "_s + missing);
        log.setOpening({missing});
    } else if (!file.isEmpty()) {
        log.write(u"library "_s + file);
    }
    return missing;
}

void LinkLog::setOpening(const QString& port, qint16 status, const QString& words) const {
    const int number = portNumber(port);
    if (log.isOn())
        log.write(u"port "_s + loggedPort(ports, number));
    auto opening = openingOf(ports, number);
    if (isFatal(status)) {
        const auto reason = words.isEmpty() ? QString::number(status) : words;
        opening.refusal = text(TextId::portNotOpen).arg(port, opening.device, reason);
    }
    log.setOpening(opening);
}

} // namespace kelvane
