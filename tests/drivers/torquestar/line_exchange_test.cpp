#include "drivers/torquestar/protocol.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/line_peer.h"
#include "tests/drivers/torquestar/real_port.h"

#include <QElapsedTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleTSInterface;

namespace {

/// Counts the polls of the real port.
class CountingPort final : public SerialPort {
  public:
    explicit CountingPort(SerialPort& port) : port_(port) {}
    bool portOpen() const override { return port_.portOpen(); }
    void setPortOpen(bool open) override { port_.setPortOpen(open); }
    void setCommPort(int number) override { port_.setCommPort(number); }
    void setSettings(const QString& settings) override { port_.setSettings(settings); }
    int inBufferCount() override {
        ++polls;
        return port_.inBufferCount();
    }
    QByteArray input() override {
        ++polls;
        return port_.input();
    }
    void output(const QByteArray& bytes) override { port_.output(bytes); }

    int polls = 0;

  private:
    SerialPort& port_;
};

/// A clock whose seconds are as long as the test sets them, so that real time-outs are short.
class FastClock final : public Clock {
  public:
    FastClock() { sinceStart_.start(); }
    QDateTime now() const override { return start_.addSecs(sinceStart_.elapsed() / second); }

    qint64 second = 1000; // in milliseconds

  private:
    QDateTime start_{QDate(2026, 3, 18), QTime(9, 30)};
    QElapsedTimer sinceStart_;
};

} // namespace

/// The whole way: the protocol over the real port.
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
    FastClock hasty;
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
    EXPECT_EQ(peer.received, QList<QByteArray>(20, "T0A"));
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
    EXPECT_LT(quickest, 40);
}

TEST_F(ExchangeOnALine, AReplyInSingleBytesIsPutTogether) {
    line.serve([this](const QByteArray& bytes) {
        const auto answer = peer.take(bytes);
        for (const char byte : answer) {
            line.write(QByteArray(1, byte));
            std::this_thread::yield();
        }
        return QByteArray();
    });
    EXPECT_EQ(exchange(), good);
}

TEST_F(ExchangeOnALine, BytesThatArriveBeforeThePortOpensAreDiscarded) {
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
    EXPECT_EQ(driver.TSError,
              text(TextId::lineCommunicationFailed) + u"\r\n"_s + text(TextId::lineNoResponse));
    EXPECT_FALSE(port.portOpen());
}

TEST_F(ExchangeOnALine, ASilentLineIsPolledSeldom) {
    hasty.second = 50;
    ui.expectBox(text(TextId::lineCommunicationFailed) + u"\r\n"_s + text(TextId::linePcCommsAdvice),
                 text(TextId::downloadProcedures), {BoxIcon::warning, BoxButtons::abortRetryIgnore, 2},
                 BoxAnswer::abort);
    QElapsedTimer passed;
    passed.start();
    EXPECT_EQ(exchange(), QByteArray());
    EXPECT_LE(counted.polls, passed.elapsed() / 15 + 1);
}

TEST_F(ExchangeOnALine, EndlessNoiseEndsInTheTimeout) {
    hasty.second = 50;
    // Noise comes in the place of the reply, as soon as it is called for.
    std::atomic<bool> called = false;
    line.serve([&](const QByteArray& bytes) {
        called = called || bytes == hex("06");
        return called ? QByteArray() : peer.take(bytes);
    });
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
    EXPECT_EQ(driver.TSError, text(TextId::lineAcknowledgementTimeout));
}

TEST_F(ExchangeOnALine, ALineThatVanishesDuringAnExchangeEndsTheExchangeByItsTimeouts) {
    hasty.second = 50;
    // Instead of answering the link start, the frame, the call for the reply.
    const QStringList failures{
        text(TextId::lineCommunicationFailed) + u"\r\n"_s + text(TextId::linePcCommsAdvice),
        text(TextId::lineAcknowledgementTimeout), text(TextId::lineAcknowledgementTimeout)};
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
            ui.expectBox(failures[0], text(TextId::downloadProcedures),
                         {BoxIcon::warning, BoxButtons::abortRetryIgnore, 2}, BoxAnswer::abort);
        counted.polls = 0;
        QElapsedTimer passed;
        passed.start();
        const double before = processorSeconds();
        EXPECT_EQ(exchange(), QByteArray());
        EXPECT_EQ(driver.TSError, failures[answered]);
        EXPECT_LT(processorSeconds() - before, 0.3) << answered;
        EXPECT_LE(counted.polls, passed.elapsed() / 15 + 10);
        EXPECT_FALSE(port.portOpen());
        own.rest();
    }
}

TEST_F(ExchangeOnALine, AnUnusablePortIsReportedInOneText) {
    settings.setValue(u"Ports"_s, u"COM1"_s, u"/dev/no such port"_s);
    EXPECT_EQ(exchange(), QByteArray());
    EXPECT_EQ(driver.TSError, text(TextId::lineCannotBeOpened));

    settings.setValue(u"Ports"_s, u"COM1"_s, line.device());
    QtSerialPort other(settings);
    other.setPortOpen(true);
    driver.TSError.clear();
    EXPECT_EQ(exchange(), QByteArray());
    EXPECT_EQ(driver.TSError, text(TextId::lineCannotBeOpened));
}

} // namespace kelvane::testing
