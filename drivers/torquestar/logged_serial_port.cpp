#include "drivers/torquestar/logged_serial_port.h"

#include "drivers/port_state.h"
#include "platform/error.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QStringList>

#include <iterator>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The names of the characters below the blank.
constexpr QStringView controlNames[] = {u"NUL", u"SOH", u"STX", u"ETX", u"EOT", u"ENQ", u"ACK", u"BEL",
                                        u"BS",  u"HT",  u"LF",  u"VT",  u"FF",  u"CR",  u"SO",  u"SI",
                                        u"DLE", u"DC1", u"DC2", u"DC3", u"DC4", u"NAK", u"SYN", u"ETB",
                                        u"CAN", u"EM",  u"SUB", u"ESC", u"FS",  u"GS",  u"RS",  u"US"};
static_assert(std::size(controlNames) == 32);

QString hexadecimal(uchar byte) {
    return QString::number(byte, 16).rightJustified(2, u'0').toUpper();
}

QString readable(uchar byte) {
    if (byte < ' ')
        return u'<' + controlNames[byte].toString() + u'>';
    return byte <= '~' ? QString(QLatin1Char(static_cast<char>(byte))) : u'<' + hexadecimal(byte) + u'>';
}

class LoggedSerialPort final : public SerialPort {
  public:
    LoggedSerialPort(SerialPort& real, CommunicationLog& log, const SerialPorts& ports)
        : real_(real), log_(log), ports_(ports) {}

    bool portOpen() const override { return real_.portOpen(); }
    void setPortOpen(bool open) override;
    void setCommPort(int number) override;
    void setSettings(const QString& settings) override;
    int inBufferCount() override;
    QByteArray input() override;
    void output(const QByteArray& bytes) override;

  private:
    void open();
    /// Says so when the line has closed by itself since the last look.
    void noteLoss();

    SerialPort& real_;
    CommunicationLog& log_;
    const SerialPorts& ports_;
    int number_ = 1;
    QString settings_;
    /// As far as the log has said.
    bool open_ = false;
    LineOpening opening_;
};

void LoggedSerialPort::setPortOpen(bool open) {
    if (open) {
        this->open();
        return;
    }
    real_.setPortOpen(false);
    if (open_)
        log_.write(u"closed"_s);
    open_ = false;
}

void LoggedSerialPort::open() {
    const auto port = log_.isOn() ? loggedPort(ports_, number_) + u"; "_s + settings_ : QString();
    opening_ = openingOf(ports_, number_);
    try {
        real_.setPortOpen(true);
    } catch (Error error) {
        opening_.refusal = error.description;
        log_.setOpening(opening_);
        const auto reasons = QStringList(error.description) + deviceObstacles(opening_.device);
        error.description = reasons.join(u' ');
        log_.write(u"not opened "_s + port + u": "_s + error.description);
        throw error;
    }
    open_ = true;
    log_.setOpening(opening_);
    log_.write(u"opened "_s + port);
}

void LoggedSerialPort::setCommPort(int number) {
    log_.readSwitch();
    noteLoss();
    number_ = number;
    real_.setCommPort(number);
}

void LoggedSerialPort::setSettings(const QString& settings) {
    settings_ = settings;
    try {
        real_.setSettings(settings);
    } catch (const Error&) {
        log_.write(u"settings "_s + settings + u" refused"_s);
        throw;
    }
}

int LoggedSerialPort::inBufferCount() {
    const int count = real_.inBufferCount();
    noteLoss();
    return count;
}

QByteArray LoggedSerialPort::input() {
    const auto bytes = real_.input();
    if (log_.isOn() && !bytes.isEmpty())
        log_.write(u"received "_s + loggedBytes(bytes));
    noteLoss();
    return bytes;
}

void LoggedSerialPort::output(const QByteArray& bytes) {
    if (log_.isOn())
        log_.write((real_.portOpen() ? u"sent "_s : u"not sent "_s) + loggedBytes(bytes));
    real_.output(bytes);
    noteLoss();
}

void LoggedSerialPort::noteLoss() {
    if (!open_ || real_.portOpen())
        return;
    open_ = false;
    log_.write(u"lost: the line has closed"_s);
    opening_.refusal = text(TextId::lineCommunicationFailed);
    log_.setOpening(opening_);
}

} // namespace

std::unique_ptr<SerialPort> loggedSerialPort(SerialPort& real, CommunicationLog& log,
                                             const SerialPorts& ports) {
    return std::make_unique<LoggedSerialPort>(real, log, ports);
}

QString loggedBytes(const QByteArray& bytes) {
    QStringList digits;
    QString words;
    for (const char byte : bytes) {
        digits << hexadecimal(static_cast<uchar>(byte));
        words += readable(static_cast<uchar>(byte));
    }
    return digits.join(u' ') + u" | "_s + words;
}

} // namespace kelvane
