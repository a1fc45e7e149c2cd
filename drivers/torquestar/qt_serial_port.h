#pragma once

#include "drivers/serial_ports.h"
#include "drivers/torquestar/serial_port.h"

#include <memory>

class QSerialPort;

namespace kelvane {

/// The real port, on the devices of `SerialPorts`.
///
/// A poll waits for up to 20 ms when there is nothing new, and returns at once when there is. When the device
/// fails during work the port closes: from then on nothing comes, what is sent is lost, and the exchange ends
/// by its time-outs like one with a line that is cut.
class QtSerialPort final : public SerialPort {
  public:
    explicit QtSerialPort(SerialPorts ports);
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

    void open();
    void close();
    void listen(int milliseconds);
    void closeOnFailure();

    SerialPorts ports_;
    std::unique_ptr<QSerialPort> port_;
    int number_ = 1;
    Line line_;
    int lastCount_ = 0;
};

} // namespace kelvane
