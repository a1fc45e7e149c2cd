#include "drivers/torquestar/protocol.h"
#include "drivers/torquestar/qt_serial_port.h"
#include "platform/error.h"
#include "resources/strings.h"
#include "tests/drivers/torquestar/line_peer.h"
#include "tests/drivers/torquestar/pseudo_terminal.h"
#include "tests/support/fixtures.h"

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <ctime>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleTSInterface;

namespace {

/// Counts the looks at the real port.
class CountingPort final : public SerialPort {
  public:
    explicit CountingPort(SerialPort& port) : port_(port) {}
    bool portOpen() const override { return port_.portOpen(); }
    void setPortOpen(bool open) override { port_.setPortOpen(open); }
    void setCommPort(int number) override { port_.setCommPort(number); }
    void setSettings(const QString& settings) override { port_.setSettings(settings); }
    int inBufferCount() override {
        ++looks;
        return port_.inBufferCount();
    }
    QByteArray input() override {
        ++looks;
        return port_.input();
    }
    void output(const QByteArray& bytes) override { port_.output(bytes); }

    int looks = 0;

  private:
    SerialPort& port_;
};

/// A clock on which a second lasts 20 ms, so that real time-outs are short.
class HastyClock final : public Clock {
  public:
    HastyClock() { sinceStart_.start(); }
    QDateTime now() const override { return start_.addSecs(sinceStart_.elapsed() / 20); }

  private:
    QDateTime start_{QDate(2026, 3, 18), QTime(9, 30)};
    QElapsedTimer sinceStart_;
};

double processorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

} // namespace

class RealPort : public RecordedSession {
  protected:
    RealPort() { settings.setValue(u"Ports"_s, u"COM1"_s, line.device()); }

    void open() {
        port.setSettings(u"9600,N,8,1"_s);
        port.setPortOpen(true);
    }

    /// All that comes, up to so many bytes.
    QByteArray receive(qsizetype count) {
        QByteArray bytes;
        for (int i = 0; i < 500 && bytes.size() < count; ++i)
            bytes += port.input();
        return bytes;
    }

    PseudoTerminal line;
    QtSerialPort port{settings};
};

TEST_F(RealPort, CarriesEveryByteBothWays) {
    QByteArray all;
    for (int i = 0; i < 256; ++i)
        all += static_cast<char>(i);
    open();
    port.output(all);
    EXPECT_EQ(line.read(256), all);
    line.write(all);
    EXPECT_EQ(receive(256), all);
}

TEST_F(RealPort, CountsWhatIsWaitingUntilItIsTaken) {
    open();
    EXPECT_EQ(port.inBufferCount(), 0);
    line.write("abc");
    int count = 0;
    for (int i = 0; i < 500 && count < 3; ++i)
        count = port.inBufferCount();
    EXPECT_EQ(count, 3);
    EXPECT_EQ(port.inBufferCount(), 3);
    EXPECT_EQ(port.input(), "abc");
    EXPECT_EQ(port.inBufferCount(), 0);
    EXPECT_EQ(port.input(), QByteArray());
}

TEST_F(RealPort, OpeningDiscardsWhatIsWaiting) {
    open();
    line.write("stale");
    while (port.inBufferCount() < 5) {
    }
    line.write("and more");
    port.setPortOpen(false);
    port.setPortOpen(true);
    EXPECT_EQ(port.inBufferCount(), 0);
    line.write("fresh");
    EXPECT_EQ(receive(5), "fresh");
}

TEST_F(RealPort, OpensAndClosesAgainAndAgain) {
    for (int i = 0; i < 50; ++i) {
        EXPECT_FALSE(port.portOpen());
        open();
        EXPECT_TRUE(port.portOpen());
        line.write("x");
        EXPECT_EQ(receive(1), "x");
        port.setPortOpen(false);
    }
    port.setPortOpen(false); // closing a closed port is nothing
}

TEST_F(RealPort, RefusesSettingsThatMakeNoSense) {
    for (const auto& nonsense :
         {u""_s, u"9600"_s, u"9600,,8,1"_s, u"9600,N,8"_s, u"9600,N,8,1,1"_s, u",N,8,1"_s, u"fast,N,8,1"_s,
          u"0,N,8,1"_s, u"-300,N,8,1"_s, u"9600,X,8,1"_s, u"9600,NN,8,1"_s, u"9600,N,9,1"_s, u"9600,N,,1"_s,
          u"9600,N,8,3"_s, u"9600,N,8,"_s, u"99999999999,N,8,1"_s}) {
        try {
            port.setSettings(nonsense);
            ADD_FAILURE() << nonsense.toStdString();
        } catch (const Error& error) {
            EXPECT_EQ(error.number, 5) << nonsense.toStdString();
        }
    }
}

TEST_F(RealPort, APseudoTerminalOpensWithEverySetting) {
    for (const auto& one : {u"300,E,7,2"_s, u"600,O,7,1"_s, u"1200,N,8,2"_s, u"2400,E,8,1"_s, u"4800,N,7,1"_s,
                            u"9600,N,8,1"_s, u"19200,O,5,1"_s}) {
        port.setSettings(one);
        port.setPortOpen(true);
        line.write("x");
        EXPECT_EQ(receive(1), "x") << one.toStdString();
        port.setPortOpen(false);
    }
}

TEST_F(RealPort, TheSettingsStoreNamesTheDeviceOfEachOfFourPorts) {
    settings.values.clear();
    for (int number = 1; number <= 4; ++number) {
        settings.setValue(u"Ports"_s, u"COM%1"_s.arg(number), line.device());
        port.setCommPort(number);
        EXPECT_NO_THROW(open()) << number;
        port.setPortOpen(false);
        settings.values.clear();
    }
    for (const int number : {-1, 0, 5, 9}) {
        settings.setValue(u"Ports"_s, u"COM%1"_s.arg(number), line.device());
        port.setCommPort(number);
        EXPECT_THROW(open(), Error) << number;
        EXPECT_FALSE(port.portOpen());
    }
}

TEST_F(RealPort, ADeviceMayBeNamedByALink) {
    const auto link = folder.path() + u"/calibrator"_s;
    ASSERT_TRUE(QFile::link(line.device(), link));
    settings.setValue(u"Ports"_s, u"COM1"_s, link);
    port.setSettings(u"9600,E,7,1"_s);
    EXPECT_NO_THROW(port.setPortOpen(true));
}

TEST_F(RealPort, APortThatIsMissingBusyOrNoPortIsNotOpened) {
    QtSerialPort other(settings);
    other.setPortOpen(true);
    EXPECT_THROW(open(), Error) << "busy";
    other.setPortOpen(false);
    EXPECT_NO_THROW(open()) << "free again";
    EXPECT_THROW(port.setPortOpen(true), Error) << "open already";
    port.setPortOpen(false);

    folder.write(u"file"_s, "no port");
    for (const auto& device : {u"/dev/no such port"_s, folder.path(), folder.path() + u"/file"_s}) {
        settings.setValue(u"Ports"_s, u"COM1"_s, device);
        EXPECT_THROW(open(), Error) << device.toStdString();
        EXPECT_FALSE(port.portOpen());
    }
}

TEST_F(RealPort, ALookAtASilentLineWaitsAMomentAndBurnsNoCore) {
    open();
    for (const bool closed : {false, true}) {
        if (closed)
            line.vanish();
        QElapsedTimer passed;
        passed.start();
        const double before = processorSeconds();
        for (int i = 0; i < 15; ++i) {
            EXPECT_EQ(port.inBufferCount(), 0);
            EXPECT_EQ(port.input(), QByteArray());
        }
        EXPECT_GE(passed.elapsed(), 29 * 18) << "a look that finds nothing waits for the line";
        EXPECT_LT(processorSeconds() - before, 0.15);
        EXPECT_EQ(port.portOpen(), !closed);
    }
}

TEST_F(RealPort, BytesThatAreThereAreGivenAtOnce) {
    open();
    qint64 quickest = 1000;
    for (int i = 0; i < 20; ++i) {
        line.write("abc");
        QElapsedTimer passed;
        passed.start();
        while (port.inBufferCount() < 3) {
        }
        EXPECT_EQ(port.input(), "abc");
        quickest = std::min(quickest, passed.elapsed());
    }
    EXPECT_LT(quickest, 10);
}

TEST_F(RealPort, AVanishedLineClosesAndWhatIsSentGoesNowhere) {
    open();
    line.vanish();
    port.output("into the void");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(port.inBufferCount(), 0);
    EXPECT_FALSE(port.portOpen());
    port.output("again");
    EXPECT_EQ(port.input(), QByteArray());
    EXPECT_THROW(port.setPortOpen(true), Error);
    port.setPortOpen(false);
}

TEST_F(RealPort, ALineThatTakesNothingDoesNotHoldTheProgram) {
    open();
    QElapsedTimer passed;
    passed.start();
    port.output(QByteArray(1000000, 'x'));
    EXPECT_LT(passed.elapsed(), 10000);
}

/// The whole way: the protocol over the real port, with seconds of 20 ms.
class ExchangeOnALine : public RealPort {
  protected:
    ExchangeOnALine() {
        peer.reply = [](const QByteArray& body) { return 't' + body.sliced(1) + "\x10\x02\xFFreply"; };
    }

    ~ExchangeOnALine() override { line.rest(); }

    void serve() {
        line.serve([this](const QByteArray& bytes) { return peer.take(bytes); });
    }
    QByteArray exchange() { return ProcessMessageProtocol(driver, "T0A"); }

    const QByteArray good = "t0A\x10\x02\xFFreply";
    LinePeer peer;
    HastyClock hasty;
    Session quick{Workstation{ui, hasty, settings}, {}};
    CountingPort counted{port};
    TorqueStar driver{quick, counted};
};

TEST_F(ExchangeOnALine, ReopensThePortForEachExchange) {
    serve();
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(exchange(), good);
        EXPECT_EQ(driver.TSError, QString());
    }
    line.rest();
    EXPECT_EQ(peer.heard, QList<QByteArray>(20, "T0A"));
}

TEST_F(ExchangeOnALine, AddsNoDelayOfItsOwn) {
    serve();
    qint64 quickest = 1000;
    for (int i = 0; i < 20; ++i) {
        QElapsedTimer passed;
        passed.start();
        EXPECT_EQ(exchange(), good);
        quickest = std::min(quickest, passed.elapsed());
    }
    // Three waits of a polling port would be 60 ms.
    EXPECT_LT(quickest, 20);
}

TEST_F(ExchangeOnALine, AReplyInSingleBytesIsPutTogether) {
    line.serve([this](const QByteArray& bytes) {
        const auto answer = peer.take(bytes);
        for (const char one : answer) {
            line.write(QByteArray(1, one));
            std::this_thread::yield();
        }
        return QByteArray();
    });
    EXPECT_EQ(exchange(), good);
}

TEST_F(ExchangeOnALine, ALineThatBabblesIsDiscardedWhenThePortOpens) {
    line.write("old noise");
    serve();
    EXPECT_EQ(exchange(), good);
}

TEST_F(ExchangeOnALine, ABadReplyFails) {
    peer.fault = [](QByteArray frame) {
        frame[1] = 'X';
        return frame;
    };
    serve();
    EXPECT_EQ(exchange(), QByteArray());
    EXPECT_EQ(driver.TSError, text(1047) + u"\r\n"_s + text(1052));
    EXPECT_FALSE(port.portOpen());
}

TEST_F(ExchangeOnALine, ASilentLineIsPolledSeldom) {
    ui.expectBox(text(1047) + u"\r\n"_s + text(1048), text(105),
                 {BoxIcon::warning, BoxButtons::abortRetryIgnore, 2}, BoxAnswer::abort);
    QElapsedTimer passed;
    passed.start();
    EXPECT_EQ(exchange(), QByteArray());
    EXPECT_LE(counted.looks, passed.elapsed() / 15 + 1);
}

TEST_F(ExchangeOnALine, EndlessNoiseEndsInTheTimeout) {
    std::atomic<bool> called = false;
    peer.fault = [&](const QByteArray&) {
        called = true;
        return QByteArray();
    };
    serve();
    std::atomic<bool> over = false;
    std::thread babbler([&] {
        while (!over) {
            if (called)
                line.write(QByteArray(500, '\x55'));
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    });
    EXPECT_EQ(exchange(), QByteArray());
    over = true;
    babbler.join();
    EXPECT_EQ(driver.TSError, text(1051));
}

TEST_F(ExchangeOnALine, ALineThatVanishesInMidTalkEndsTheExchangeByItsTimeouts) {
    // Instead of answering the link start, the frame, the call for the reply.
    const QStringList failures{text(1047) + u"\r\n"_s + text(1048), text(1051), text(1051)};
    for (int answered = 0; answered < 3; ++answered) {
        PseudoTerminal own;
        LinePeer far;
        far.reply = peer.reply;
        int taken = 0;
        own.serve([&](const QByteArray& bytes) {
            if (taken++ < answered)
                return far.take(bytes);
            own.vanish();
            return QByteArray();
        });
        settings.setValue(u"Ports"_s, u"COM1"_s, own.device());
        if (answered == 0)
            ui.expectBox(failures[0], text(105), {BoxIcon::warning, BoxButtons::abortRetryIgnore, 2},
                         BoxAnswer::abort);
        counted.looks = 0;
        QElapsedTimer passed;
        passed.start();
        const double before = processorSeconds();
        EXPECT_EQ(exchange(), QByteArray());
        EXPECT_EQ(driver.TSError, failures[answered]);
        EXPECT_LT(processorSeconds() - before, 0.3) << answered;
        EXPECT_LE(counted.looks, passed.elapsed() / 15 + 10);
        EXPECT_FALSE(port.portOpen());
        own.rest();
    }
}

TEST_F(ExchangeOnALine, AnUnusablePortIsToldInOneText) {
    settings.setValue(u"Ports"_s, u"COM1"_s, u"/dev/no such port"_s);
    EXPECT_EQ(exchange(), QByteArray());
    EXPECT_EQ(driver.TSError, text(1046));

    settings.setValue(u"Ports"_s, u"COM1"_s, line.device());
    QtSerialPort other(settings);
    other.setPortOpen(true);
    driver.TSError.clear();
    EXPECT_EQ(exchange(), QByteArray());
    EXPECT_EQ(driver.TSError, text(1046));
}

} // namespace kelvane::testing
