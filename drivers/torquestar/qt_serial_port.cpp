#include "drivers/torquestar/qt_serial_port.h"

#include "platform/device_holders.h"
#include "platform/error.h"
#include "platform/system.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QSerialPort>
#include <QStringList>
#include <QThread>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// How long a look waits for the line, in milliseconds.
constexpr int lookTime = 20;
/// So much may wait for a reader between two exchanges; a device that keeps sending must not fill the memory.
constexpr qint64 maxWaiting = 1 << 20;
/// How long sending waits for a line that takes nothing, in milliseconds.
constexpr int sendTime = 2000;

QSerialPort::Parity parityOf(char letter) {
    if (letter == 'E')
        return QSerialPort::EvenParity;
    return letter == 'O' ? QSerialPort::OddParity : QSerialPort::NoParity;
}

/// A pseudo terminal carries plain bytes: it refuses every parity and every number of data bits but 8.
bool isPseudoTerminal(const QString& device) {
    return device.startsWith(u"/dev/pts/");
}

/// Error 75 of a port, with the reason.
Error refusal(const QString& reason) {
    return {static_cast<double>(ErrorNumber::pathFileAccess), reason};
}

/// `name` is how the settings name the device, if they do.
QString missingDevice(const QString& port, const QString& name) {
    const auto reason = text(TextId::portNoSuchDevice).arg(port);
    return name.isEmpty() ? reason : reason + u' ' + text(TextId::portIdentityUnknown).arg(name);
}

} // namespace

QtSerialPort::QtSerialPort(SerialPorts ports)
    : ports_(std::move(ports)), port_(std::make_unique<QSerialPort>()) {
    // Between two exchanges the port stays open, and only the event loop reads it.
    QObject::connect(
        port_.get(), &QSerialPort::errorOccurred, port_.get(), [this] { closeOnFailure(); },
        Qt::QueuedConnection);
    QObject::connect(port_.get(), &QSerialPort::readyRead, port_.get(), [this] {
        if (port_->bytesAvailable() > maxWaiting)
            port_->readAll();
    });
}

QtSerialPort::~QtSerialPort() {
    close();
}

bool QtSerialPort::portOpen() const {
    return port_->isOpen();
}

void QtSerialPort::setPortOpen(bool open) {
    if (open)
        this->open();
    else
        close();
}

void QtSerialPort::setCommPort(int number) {
    number_ = number;
}

void QtSerialPort::setSettings(const QString& settings) {
    const auto parts = settings.split(u',');
    bool isBaud = false;
    const int baud = parts.value(0).toInt(&isBaud);
    const bool sensible = parts.size() == 4 && isBaud && baud > 0 &&
                          QStringList{u"E"_s, u"O"_s, u"N"_s}.contains(parts[1]) &&
                          QStringList{u"5"_s, u"6"_s, u"7"_s, u"8"_s}.contains(parts[2]) &&
                          QStringList{u"1"_s, u"2"_s}.contains(parts[3]);
    if (!sensible)
        throw makeError(ErrorNumber::invalidArgument);
    line_ = {baud, parts[1].front().toLatin1(), parts[2].toInt(), parts[3].toInt()};
}

int QtSerialPort::inBufferCount() {
    listen(0);
    if (port_->bytesAvailable() == lastCount_)
        listen(lookTime);
    lastCount_ = static_cast<int>(port_->bytesAvailable());
    return lastCount_;
}

QByteArray QtSerialPort::input() {
    listen(port_->bytesAvailable() == 0 ? lookTime : 0);
    lastCount_ = 0;
    return port_->isOpen() ? port_->readAll() : QByteArray();
}

void QtSerialPort::output(const QByteArray& bytes) {
    if (!port_->isOpen())
        return;
    port_->clearError();
    port_->write(bytes);
    port_->flush();
    while (port_->bytesToWrite() > 0 && port_->waitForBytesWritten(sendTime)) {
    }
    closeOnFailure();
}

void QtSerialPort::open() {
    if (port_->isOpen())
        throw makeError(ErrorNumber::pathFileAccess);
    const auto name = ports_.path(number_);
    const bool plain = isPseudoTerminal(name);
    port_->setPortName(name);
    port_->setBaudRate(line_.baud);
    port_->setParity(plain ? QSerialPort::NoParity : parityOf(line_.parity));
    port_->setDataBits(plain ? QSerialPort::Data8 : static_cast<QSerialPort::DataBits>(line_.dataBits));
    port_->setStopBits(static_cast<QSerialPort::StopBits>(line_.stopBits));
    port_->setFlowControl(QSerialPort::NoFlowControl);
    const auto port = portName(number_);
    if (name.isEmpty())
        throw refusal(missingDevice(port, ports_.nameOf(number_)));
    removeUnfinishedLocks(name);
    if (!port_->open(QIODevice::ReadWrite))
        throw refusal(text(TextId::portCannotBeOpened).arg(port, name, port_->errorString()));
    port_->clear(QSerialPort::Input);
    listen(0);
    port_->readAll();
    lastCount_ = 0;
}

void QtSerialPort::close() {
    if (!port_->isOpen())
        return;
    // Closing puts the device's former settings back at once, so what was sent has to be gone by then.
    drainSerialPort(qintptr(port_->handle())); // a number or a pointer
    port_->close();
    lastCount_ = 0;
}

/// Takes in what has come, and waits so long for something to come.
void QtSerialPort::listen(int milliseconds) {
    if (!port_->isOpen()) {
        if (milliseconds > 0)
            QThread::msleep(static_cast<unsigned long>(milliseconds));
        return;
    }
    port_->clearError();
    if (!port_->waitForReadyRead(milliseconds))
        closeOnFailure();
}

/// A device that has failed would signal its error without end.
void QtSerialPort::closeOnFailure() {
    const auto error = port_->error();
    if (error != QSerialPort::NoError && error != QSerialPort::TimeoutError) {
        port_->close();
        lastCount_ = 0;
    }
}

} // namespace kelvane
