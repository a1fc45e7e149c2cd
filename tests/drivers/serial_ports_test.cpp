#include "drivers/serial_ports.h"

#include "testkit/fixtures.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class SerialPortsOfSettings : public ::testing::Test {
  protected:
    static SerialDevice adapter(const QString& path, const QString& serialNumber) {
        return {.path = path,
                .maker = u"FTDI"_s,
                .product = u"FT232R USB UART"_s,
                .serialNumber = serialNumber,
                .ids = u"0403:6001"_s};
    }
    void name(const QString& device) { settings.setValue(u"Ports"_s, u"COM2"_s, device); }
    QString found() const {
        EXPECT_EQ(ports.device(2).path, ports.path(2));
        return ports.path(2);
    }

    OwnFolder folder;
    MemorySettings settings;
    QList<SerialDevice> connected{{.path = u"/dev/ttyS0"_s},
                                  adapter(u"/dev/ttyUSB0"_s, u"A50285BI"_s),
                                  {.path = u"/dev/ttyUSB1"_s,
                                   .maker = u"Prolific"_s,
                                   .product = u"USB-Serial Controller"_s,
                                   .ids = u"067b:2303"_s}};
    SerialPorts ports{settings, {[this] { return connected; }, folder.path()}};
};

TEST_F(SerialPortsOfSettings, AreTheFirstFourDevicesWithoutASetting) {
    connected << SerialDevice{.path = u"/dev/ttyUSB2"_s} << SerialDevice{.path = u"/dev/ttyUSB3"_s};
    const QString expected[] = {{}, u"/dev/ttyS0"_s, u"/dev/ttyUSB0"_s, u"/dev/ttyUSB1"_s, u"/dev/ttyUSB2"_s,
                                {}};
    for (int number = 0; number < 6; ++number) {
        EXPECT_EQ(ports.path(number), expected[number]) << number;
        EXPECT_EQ(ports.device(number).path, expected[number]) << number;
    }
    EXPECT_EQ(ports.device(2), connected[1]);
    connected.clear();
    EXPECT_EQ(ports.path(1), QString());
}

TEST_F(SerialPortsOfSettings, TakeADeviceByWhatItIs) {
    const struct {
        QString name;
        QString path;
    } rows[] = {
        {u"/dev/ttyUSB1"_s, u"/dev/ttyUSB1"_s},
        {u"/dev/no such device"_s, u"/dev/no such device"_s},
        {u"ttyUSB1"_s, u"/dev/ttyUSB1"_s},
        {u"A50285BI"_s, u"/dev/ttyUSB0"_s},
        {u"0403:6001"_s, u"/dev/ttyUSB0"_s},
        {u"067B:2303"_s, u"/dev/ttyUSB1"_s},
        {u"0403:6001:A50285BI"_s, u"/dev/ttyUSB0"_s},
        {u"0403:6001:A50285BJ"_s, {}},
        {u"0403:6002"_s, {}},
        {u"0403"_s, {}},
        {u"A50285"_s, {}},
        {u"FTDI"_s, {}},
        {u":"_s, {}},
        {u"null"_s, u"/dev/null"_s},
    };
    for (const auto& row : rows) {
        name(row.name);
        EXPECT_EQ(found(), row.path) << row.name.toStdString();
        EXPECT_EQ(ports.nameOf(2), row.name);
    }
}

TEST_F(SerialPortsOfSettings, FindTheDeviceAgainOnAnotherSocket) {
    name(u"A50285BI"_s);
    EXPECT_EQ(found(), u"/dev/ttyUSB0"_s);
    connected = {adapter(u"/dev/ttyUSB0"_s, u"B0000001"_s), adapter(u"/dev/ttyUSB7"_s, u"A50285BI"_s)};
    EXPECT_EQ(found(), u"/dev/ttyUSB7"_s);
    connected.removeLast();
    EXPECT_EQ(found(), QString()) << "it is not connected";
}

TEST_F(SerialPortsOfSettings, TakeNoneOfTwoThatAreAlike) {
    connected << adapter(u"/dev/ttyUSB2"_s, u"A50285BI"_s) << adapter(u"/dev/ttyUSB3"_s, u"B0000001"_s);
    for (const auto& ambiguous : {u"A50285BI"_s, u"0403:6001"_s, u"0403:6001:A50285BI"_s}) {
        name(ambiguous);
        EXPECT_EQ(found(), QString()) << ambiguous.toStdString();
    }
    name(u"0403:6001:B0000001"_s);
    EXPECT_EQ(found(), u"/dev/ttyUSB3"_s);
}

TEST_F(SerialPortsOfSettings, FollowTheLinkThatIsNamedAfterTheDevice) {
    folder.write(u"ttyUSB9"_s, {});
    const auto device = QDir(folder.path()).canonicalPath() + u"/ttyUSB9"_s;
    ASSERT_TRUE(QFile::link(device, folder.path() + u"/usb-FTDI_FT232R_USB_UART_A50285BI-if00-port0"_s));
    name(u"usb-FTDI_FT232R_USB_UART_A50285BI-if00-port0"_s);
    EXPECT_EQ(found(), device);
    name(folder.path() + u"/usb-FTDI_FT232R_USB_UART_A50285BI-if00-port0"_s);
    EXPECT_EQ(found(), device);
    connected << adapter(device, u"C0000001"_s);
    EXPECT_EQ(ports.device(2).serialNumber, u"C0000001"_s);
}

TEST_F(SerialPortsOfSettings, DescribeADeviceAsFarAsItIsKnown) {
    EXPECT_EQ(deviceDescription(connected[0]), u"/dev/ttyS0"_s);
    EXPECT_EQ(deviceDescription(connected[1]),
              u"/dev/ttyUSB0, maker FTDI, FT232R USB UART, serial number A50285BI"_s);
    EXPECT_EQ(deviceDescription(connected[2]), u"/dev/ttyUSB1, maker Prolific, USB-Serial Controller"_s);
}

TEST(SerialPortNames, AreThoseOfFourPortsAndEndInTheirNumber) {
    EXPECT_EQ(portNames(), (QStringList{u"COM1"_s, u"COM2"_s, u"COM3"_s, u"COM4"_s}));
    EXPECT_EQ(portName(9), u"COM9"_s);
    for (const auto& [name, number] : {std::pair{u"COM3"_s, 3}, {u"COM"_s, 0}, {u""_s, 0}, {u"COM12"_s, 2}})
        EXPECT_EQ(portNumber(name), number) << name.toStdString();
}

TEST(ConnectedSerialDevices, HaveAPath) {
    for (const auto& device : connectedSerialDevices())
        EXPECT_FALSE(device.path.isEmpty());
}

} // namespace kelvane::testing
