#include "drivers/torquestar/logged_serial_port.h"

#include "drivers/port_state.h"
#include "drivers/torquestar/protocol.h"
#include "platform/error.h"
#include "testkit/fixtures.h"
#include "testkit/line_peer.h"
#include "testkit/shown_in.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class LoggedLine : public RecordedSession {
  protected:
    LoggedLine() { switchLog(u"1"_s); }

    void switchLog(const QString& value) { settings.setValue(logSection, log.calibrator(), value); }
    void open() {
        line->setCommPort(1);
        line->setSettings(u"9600,N,8,1"_s);
        line->setPortOpen(true);
    }
    /// The words of the lines since the last look, without date, time and calibrator.
    QStringList logged() {
        QStringList words;
        for (const auto& entry : folder.read(u"crane-torquestar-ivc.log"_s).split(u'\n', Qt::SkipEmptyParts))
            words << entry.section(u"] "_s, 1);
        const auto fresh = words.mid(seen_);
        seen_ = words.size();
        return fresh;
    }

    ScriptedSerialPort real;
    CommunicationLog log{session, u"Crane TorqueStar IVc"_s, folder.path()};
    QList<SerialDevice> connected{
        {.path = u"/dev/ttyUSB0"_s, .maker = u"FTDI"_s, .serialNumber = u"A50285BI"_s}};
    SerialPorts ports{settings, {[this] { return connected; }, folder.path()}};
    std::unique_ptr<SerialPort> line = loggedSerialPort(real, log, ports);

  private:
    qsizetype seen_ = 0;
};

TEST_F(LoggedLine, ShowsBytesInHexadecimalDigitsAndAsText) {
    const struct {
        QByteArray bytes;
        QString shown;
    } rows[] = {
        {"", u" | "_s},
        {QByteArray("\x10\x04\x02"), u"10 04 02 | <DLE><EOT><STX>"_s},
        {QByteArray("T0A\x10\x03g\xbf"), u"54 30 41 10 03 67 BF | T0A<DLE><ETX>g<BF>"_s},
        {QByteArray("\0\x1f ~\x7f\xff", 6), u"00 1F 20 7E 7F FF | <NUL><US> ~<7F><FF>"_s},
        {QByteArray("\r\n"), u"0D 0A | <CR><LF>"_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(loggedBytes(row.bytes), row.shown);
}

TEST_F(LoggedLine, LogsOpeningWhatComesAndGoesAndClosing) {
    open();
    line->output("\x10\x04\x02");
    real.feed({"\x10"});
    while (line->inBufferCount() == 0) {
    }
    EXPECT_EQ(line->input(), "\x10");
    EXPECT_EQ(line->input(), QByteArray());
    EXPECT_TRUE(line->portOpen());
    line->setPortOpen(false);
    EXPECT_EQ(logged(),
              (QStringList{u"opened COM1: /dev/ttyUSB0, maker FTDI, serial number A50285BI; 9600,N,8,1"_s,
                           u"sent 10 04 02 | <DLE><EOT><STX>"_s, u"received 10 | <DLE>"_s, u"closed"_s}));
    EXPECT_EQ(real.log,
              (QStringList{u"port 1"_s, u"settings 9600,N,8,1"_s, u"open"_s, u"10 04 02"_s, u"close"_s}));
}

TEST_F(LoggedLine, LogsWhyItIsNotOpenedAndWhichSettingsMakeNoSense) {
    real.refuseOpening = true;
    EXPECT_THROW(open(), Error);
    const auto lines = logged();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines.first().startsWith(
        u"not opened COM1: /dev/ttyUSB0, maker FTDI, serial number A50285BI; 9600,N,8,1: "_s));
    ASSERT_TRUE(log.opening().has_value());
    EXPECT_FALSE(log.opening()->refusal.isEmpty());
    real.refuseOpening = false;
    open();
    EXPECT_TRUE(log.opening()->refusal.isEmpty());
}

TEST_F(LoggedLine, HasTheSameWordsInEveryLanguage) {
    const ShownIn german(u"de"_s);
    open();
    line->setPortOpen(false);
    EXPECT_EQ(logged(),
              (QStringList{u"opened COM1: /dev/ttyUSB0, maker FTDI, serial number A50285BI; 9600,N,8,1"_s,
                           u"closed"_s}));
    EXPECT_THROW(line->setSettings(u"9600,,8,1"_s), Error);
    EXPECT_EQ(logged(), QStringList{u"settings 9600,,8,1 refused"_s});
    EXPECT_EQ(loggedPort(ports, 2), u"COM2: no device"_s);
    settings.setValue(u"Ports"_s, u"COM2"_s, u"0403:6001"_s);
    EXPECT_EQ(loggedPort(ports, 2), u"COM2: no device 0403:6001"_s);
    EXPECT_EQ(portDescription(ports, 3), u"COM3: Für COM3 gibt es kein Gerät."_s) << "what a user reads";
}

TEST_F(LoggedLine, ThatCanNotBeOpenedSaysSoThoughThePortsCanNotBeRead) {
    class Unreadable final : public SettingsStore {
        QString value(const QString&, const QString&) const override { throw Error{5, u"unreadable"_s}; }
        void setValue(const QString&, const QString&, const QString&) override {}
    } unreadable;
    const SerialPorts unknown(unreadable);
    real.refuseOpening = true;
    line = loggedSerialPort(real, log, unknown);
    line->setCommPort(1);
    try {
        line->setPortOpen(true);
        ADD_FAILURE() << "it was opened";
    } catch (const Error& error) {
        EXPECT_EQ(error.number, 75) << "the port's own error";
    }
    const auto lines = logged();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines.first().startsWith(u"not opened COM1: the settings can't be read; "_s));
    EXPECT_EQ(log.opening()->device, QString());
}

TEST_F(LoggedLine, IsUntouchedWithTheLogOff) {
    switchLog(u"0"_s);
    open();
    line->output("abc");
    real.feed({"def"});
    while (line->inBufferCount() == 0) {
    }
    EXPECT_EQ(line->input(), "def");
    line->setPortOpen(false);
    EXPECT_EQ(logged(), QStringList());
    EXPECT_EQ(real.sent, QList<QByteArray>{"abc"});
    EXPECT_TRUE(log.opening().has_value()) << "how it was opened is known in any case";
}

TEST_F(LoggedLine, TakesOverTheSwitchWithTheNextExchange) {
    switchLog(u"0"_s);
    open();
    switchLog(u"1"_s);
    line->output("a");
    EXPECT_EQ(logged(), QStringList());
    line->setPortOpen(false);
    open();
    line->output("b");
    EXPECT_EQ(logged().last(), u"sent 62 | b"_s);
    switchLog(u"0"_s);
    line->output("c");
    EXPECT_EQ(logged(), QStringList{u"sent 63 | c"_s});
    line->setPortOpen(false);
    open();
    EXPECT_EQ(logged(), QStringList{u"closed"_s});
}

TEST_F(LoggedLine, CarriesAWholeExchangeWhoseBytesAreAllInTheLog) {
    TorqueStar driver{session, *line};
    LinePeer peer;
    peer.reply = [](const QByteArray& body) { return "t" + body.mid(1); };
    peer.attachTo(real);
    EXPECT_EQ(ModuleTSInterface::ProcessMessageProtocol(driver, "T0A"), "t0A");
    const auto lines = logged();
    QStringList sent;
    for (const auto& entry : lines) {
        if (entry.startsWith(u"sent "_s))
            sent << entry.mid(5).section(u" | "_s, 0, 0).remove(u' ').toLower();
    }
    QStringList expected;
    for (const auto& bytes : std::as_const(real.sent))
        expected << QString::fromLatin1(bytes.toHex());
    EXPECT_EQ(sent, expected);
    EXPECT_EQ(lines.first().section(u' ', 0, 0), u"opened"_s);
    const auto reply = u"received "_s + loggedBytes(makeFrame("t0A"));
    EXPECT_TRUE(lines.contains(reply)) << lines.join(u'\n').toStdString();
}

} // namespace kelvane::testing
