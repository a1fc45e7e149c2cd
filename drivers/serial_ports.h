#pragma once

#include "platform/settings_store.h"

#include <QList>
#include <QStringList>

#include <functional>

namespace kelvane {

/// A serial device, as far as the system knows it.
struct SerialDevice {
    /// Such as "/dev/ttyUSB0"; empty: there is none.
    QString path = {};
    QString maker = {};
    QString product = {};
    QString serialNumber = {};
    /// Vendor and product as the bus numbers them, such as "0403:6001".
    QString ids = {};
    friend bool operator==(const SerialDevice&, const SerialDevice&) = default;
};

/// The serial devices of this computer, in the system's order.
QList<SerialDevice> connectedSerialDevices();

/// What the devices are known by.
struct SerialDeviceSources {
    std::function<QList<SerialDevice>()> list = connectedSerialDevices;
    /// Holds links to the devices, which are named after what they are.
    QString namesFolder = QStringLiteral("/dev/serial/by-id");
};

/// The ports' names, "COM1" to "COM4".
QStringList portNames();
/// The name of a port by its number, such as "COM1".
QString portName(int number);
/// The number that a port's name ends in, such as 1 for "COM1".
int portNumber(const QString& name);

/// The ports COM1 to COM4: the devices that section "Ports" of the settings store names, otherwise the first
/// four serial devices of the computer. A device is named by its path, or by what it is: its serial number,
/// its name in /dev/serial/by-id, or "vendor:product" or "vendor:product:serial" as the bus numbers them.
/// Then it is found again on another socket. Each look asks the system anew.
class SerialPorts {
  public:
    SerialPorts(const SettingsStore& settings, SerialDeviceSources sources = {})
        : settings_(settings), sources_(std::move(sources)) {}

    /// The path of the device of port COM`number`; empty when there is none. One that is named by its path is
    /// not looked for.
    QString path(int number) const;
    /// The device itself; one without a path when there is none.
    SerialDevice device(int number) const;
    /// What the settings name it by; empty when they don't.
    QString nameOf(int number) const;

  private:
    SerialDevice find(const QString& name) const;

    const SettingsStore& settings_;
    SerialDeviceSources sources_;
};

/// What a device is, for a user: path, maker, product and serial number, as far as they are known.
QString deviceDescription(const SerialDevice& device);
/// The same in the words of a log, which are alike in every language.
QString loggedDevice(const SerialDevice& device);

} // namespace kelvane
