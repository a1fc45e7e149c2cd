#pragma once

#include "drivers/torquestar/serial_port.h"
#include "platform/settings_store.h"

#include <memory>

class QSerialPort;

namespace kelvane {

/// The real port. COM1 to COM4 are the devices that section "Ports" of the settings store names, otherwise
/// the platform's first four serial devices.
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
    QString deviceOf(int number) const;
    void listen();

    const SettingsStore& settings_;
    std::unique_ptr<QSerialPort> port_;
    int number_ = 1;
    qint64 lastCount_ = 0;
};

} // namespace kelvane
