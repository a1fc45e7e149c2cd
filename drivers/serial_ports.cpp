#include "drivers/serial_ports.h"

#include "platform/values/numbers.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDir>
#include <QFileInfo>
#include <QSerialPortInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr int maxPort = 4;

QString hexadecimal(quint16 id) {
    return QString::number(id, 16).rightJustified(4, u'0');
}

QString describe(const SerialDevice& device, const QString& maker, const QString& serialNumber) {
    QStringList parts{device.path};
    if (!device.maker.isEmpty())
        parts << maker.arg(device.maker);
    if (!device.product.isEmpty())
        parts << device.product;
    if (!device.serialNumber.isEmpty())
        parts << serialNumber.arg(device.serialNumber);
    return parts.join(u", "_s);
}

/// The device itself where a link names it, so that its lock is the same under every name.
QString followLinks(const QString& device) {
    const auto target = QFileInfo(device).canonicalFilePath();
    return target.isEmpty() ? device : target;
}

/// What begins with a colon is no path here, but one inside the program for the toolkit.
bool isPath(const QString& name) {
    return QDir::isAbsolutePath(name) && !name.startsWith(u':');
}

bool hasName(const SerialDevice& device, const QString& name) {
    if (device.path == name || QFileInfo(device.path).fileName() == name)
        return true;
    if (!device.serialNumber.isEmpty() && device.serialNumber == name)
        return true;
    return !device.ids.isEmpty() &&
           (device.ids.compare(name, Qt::CaseInsensitive) == 0 ||
            (device.ids + u':' + device.serialNumber).compare(name, Qt::CaseInsensitive) == 0);
}

} // namespace

QList<SerialDevice> connectedSerialDevices() {
    QList<SerialDevice> devices;
    const auto ports = QSerialPortInfo::availablePorts();
    for (const auto& port : ports) {
        const bool hasIds = port.hasVendorIdentifier() && port.hasProductIdentifier();
        devices << SerialDevice{.path = port.systemLocation(),
                                .maker = port.manufacturer(),
                                .product = port.description(),
                                .serialNumber = port.serialNumber(),
                                .ids = hasIds ? hexadecimal(port.vendorIdentifier()) + u':' +
                                                    hexadecimal(port.productIdentifier())
                                              : QString()};
    }
    return devices;
}

QStringList portNames() {
    QStringList names;
    for (int number = 1; number <= maxPort; ++number)
        names << portName(number);
    return names;
}

QString portName(int number) {
    return u"COM%1"_s.arg(number);
}

int portNumber(const QString& name) {
    return static_cast<int>(numericValue(name.right(1)));
}

QString SerialPorts::nameOf(int number) const {
    return settings_.value(u"Ports"_s, portName(number));
}

QString SerialPorts::path(int number) const {
    const auto name = number < 1 || number > maxPort ? QString() : nameOf(number);
    return isPath(name) ? followLinks(name) : device(number).path;
}

SerialDevice SerialPorts::device(int number) const {
    if (number < 1 || number > maxPort)
        return {};
    const auto name = nameOf(number);
    return name.isEmpty() ? sources_.list().value(number - 1) : find(name);
}

SerialDevice SerialPorts::find(const QString& name) const {
    const auto devices = sources_.list();
    const auto link = sources_.namesFolder + u'/' + name;
    if (isPath(name) || QFileInfo::exists(link)) {
        const auto path = followLinks(isPath(name) ? name : link);
        const auto known = std::ranges::find(devices, path, &SerialDevice::path);
        return known == devices.cend() ? SerialDevice{.path = path} : *known;
    }
    const auto isMeant = [&](const SerialDevice& device) { return hasName(device, name); };
    const auto found = std::ranges::find_if(devices, isMeant);
    if (found == devices.cend()) {
        // The system does not list each device that it has.
        const auto path = u"/dev/"_s + name;
        return QFileInfo::exists(path) ? SerialDevice{.path = followLinks(path)} : SerialDevice{};
    }
    // Of two alike none is taken: it could be another calibrator's.
    return std::ranges::count_if(devices, isMeant) == 1 ? *found : SerialDevice{};
}

QString deviceDescription(const SerialDevice& device) {
    return describe(device, text(TextId::portMaker), text(TextId::portSerialNumber));
}

QString loggedDevice(const SerialDevice& device) {
    return describe(device, u"maker %1"_s, u"serial number %1"_s);
}

} // namespace kelvane
