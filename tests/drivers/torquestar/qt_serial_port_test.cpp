#include "platform/error.h"
#include "tests/drivers/torquestar/real_port.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

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
    for (const auto& parameters : {u"300,E,7,2"_s, u"600,O,7,1"_s, u"1200,N,8,2"_s, u"2400,E,8,1"_s,
                                   u"4800,N,7,1"_s, u"9600,N,8,1"_s, u"19200,O,5,1"_s}) {
        port.setSettings(parameters);
        port.setPortOpen(true);
        line.write("x");
        EXPECT_EQ(receive(1), "x") << parameters.toStdString();
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

    // It is busy under its own name too.
    settings.setValue(u"Ports"_s, u"COM1"_s, line.device());
    QtSerialPort other(settings);
    EXPECT_THROW(other.setPortOpen(true), Error);
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

TEST_F(RealPort, SaysWhyItIsNotOpened) {
    const auto reason = [this] {
        try {
            open();
        } catch (const Error& error) {
            EXPECT_EQ(error.number, 75);
            return error.description;
        }
        return QString();
    };
    settings.setValue(u"Ports"_s, u"COM1"_s, u"/dev/no such port"_s);
    EXPECT_TRUE(reason().startsWith(u"The port COM1, device \"/dev/no such port\", could not be opened: "_s))
        << reason().toStdString();
    EXPECT_GT(reason().size(), 70) << "with what the system says";
    port.setCommPort(9);
    EXPECT_EQ(reason(), u"The port COM9 could not be opened: there is no such device."_s);
}

TEST_F(RealPort, APollOfASilentLineWaitsAMomentAndUsesLittleProcessorTime) {
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

TEST_F(RealPort, ALineThatVanishesBetweenTwoExchangesClosesWithoutBusyWaiting) {
    open();
    line.vanish();
    const double before = processorSeconds();
    for (int i = 0; i < 500 && port.portOpen(); ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_FALSE(port.portOpen());
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_LT(processorSeconds() - before, 0.3);
}

TEST_F(RealPort, ALineThatKeepsSendingBetweenTwoExchangesDoesNotFillTheMemory) {
    open();
    const QByteArray talk(4000, 'x');
    for (int i = 0; i < 600; ++i) {
        line.write(talk);
        QCoreApplication::processEvents();
    }
    EXPECT_LE(port.inBufferCount(), (1 << 20) + 4096);
    port.setPortOpen(false);
    open();
    EXPECT_EQ(port.inBufferCount(), 0);
}

TEST_F(RealPort, ALineThatTakesNothingDoesNotHoldTheProgram) {
    open();
    QElapsedTimer passed;
    passed.start();
    port.output(QByteArray(1000000, 'x'));
    EXPECT_LT(passed.elapsed(), 10000);
}

} // namespace kelvane::testing
