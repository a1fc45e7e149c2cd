#include "drivers/port_state.h"

#include "platform/device_holders.h"
#include "platform/error.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QFileInfo>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

QString openingSentence(const QString& port, const QString& device,
                        const std::optional<LineOpening>& opening) {
    if (!opening || !(opening->port.isEmpty() || opening->device == device))
        return text(TextId::portNotTried).arg(port, device);
    return opening->refusal.isEmpty() ? text(TextId::portOpen).arg(port, device) : opening->refusal;
}

} // namespace

QString portDescription(const SerialPorts& ports, int number) {
    const auto describe = [&] {
        try {
            const auto device = ports.device(number);
            return device.path.isEmpty() ? noDeviceReason(ports, number) : deviceDescription(device);
        } catch (const Error& error) {
            return error.description;
        }
    };
    return portName(number) + u": "_s + describe();
}

QString loggedPort(const SerialPorts& ports, int number) {
    const auto describe = [&] {
        try {
            const auto device = ports.device(number);
            if (!device.path.isEmpty())
                return loggedDevice(device);
            return u"no device "_s + ports.nameOf(number);
        } catch (const Error&) {
            return u"the settings can't be read"_s;
        }
    };
    return (portName(number) + u": "_s + describe()).trimmed();
}

QString noDeviceReason(const SerialPorts& ports, int number) {
    const auto name = ports.nameOf(number);
    return name.isEmpty() ? text(TextId::portNoDevice).arg(portName(number))
                          : text(TextId::portIdentityUnknown).arg(name);
}

QStringList deviceObstacles(const QString& device) {
    QStringList sentences;
    if (QFileInfo::exists(device) && !mayUse(device))
        sentences << text(TextId::portNoRights);
    const auto holders = otherHoldersOf(device);
    for (const auto& holder : holders)
        sentences << text(TextId::portHeldBy).arg(holder.program).arg(holder.process);
    return sentences;
}

LineOpening openingOf(const SerialPorts& ports, int number, const QString& refusal) {
    LineOpening opening{.refusal = refusal, .port = portName(number)};
    try {
        opening.device = ports.path(number);
    } catch (const Error&) {
        // The port itself reports them.
    }
    return opening;
}

QString portState(const SerialPorts& ports, int number, const std::optional<LineOpening>& last) {
    const auto port = portName(number);
    const bool isOfPort = last && (last->port.isEmpty() || last->port == port);
    const auto opening = isOfPort ? last : std::nullopt;
    const auto device = ports.device(number);
    QStringList sentences;
    if (device.path.isEmpty()) {
        sentences << noDeviceReason(ports, number);
        if (opening && !opening->refusal.isEmpty())
            sentences << opening->refusal;
        return sentences.join(u' ');
    }
    sentences << text(TextId::portDevice).arg(port, deviceDescription(device));
    sentences << openingSentence(port, device.path, opening);
    return (sentences + deviceObstacles(device.path)).join(u' ');
}

} // namespace kelvane
