#pragma once

#include "drivers/torquestar/serial_port.h"
#include "platform/settings_store.h"

#include <memory>

class QSerialPort;

namespace kelvane {

/// The real port. COM1 to COM4 are the devices that section "Ports" of the settings store names, otherwise
/// the platform's first four serial devices.
///
/// A poll waits for up to 20 ms when there is nothing new, and returns at once when there is. When the device
/// fails during work the port closes: from then on nothing comes, what is sent is lost, and the exchange ends
/// by its time-outs like one with a line that is cut.
class QtSerialPort final : public SerialPort {
  public:
    explicit QtSerialPort(const SettingsStore& settings);
    ~QtSerialPort() override;
    bool portOpen() const override;
    void setPortOpen(bool open) override;
    void setCommPort(int number) override;
    void setSettings(const QString& settings) override;
    int inBufferCount() override;
    QByteArray input() override;
    void output(const QByteArray& bytes) override;

  private:
    struct Line {
        int baud = 9600;
        char parity = 'N';
        int dataBits = 8;
        int stopBits = 1;
    };

    QString device() const;
    void open();
    void close();
    void listen(int milliseconds);
    void closeOnFailure();

    const SettingsStore& settings_;
    std::unique_ptr<QSerialPort> port_;
    int number_ = 1;
    Line line_;
    int lastCount_ = 0;
};

} // namespace kelvane
