#include "drivers/port_state.h"

#include "drivers/torquestar/logged_serial_port.h"
#include "platform/device_holders.h"
#include "platform/error.h"
#include "tests/drivers/torquestar/real_port.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QProcess>
#include <QScopeGuard>
#include <QSysInfo>

#include <future>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// The real port on a pseudo terminal, and another process that may take it.
class PortOfOthers : public RealPort {
  protected:
    ~PortOfOthers() override { letGo(); }

    /// Another process opens the device and keeps it.
    void take() {
        other.start(u"/bin/sh"_s,
                    {u"-c"_s, u"exec 3<>\"$1\"; echo open; exec sleep 60"_s, u"sh"_s, line.device()});
        ASSERT_TRUE(other.waitForReadyRead(20000)) << other.readAllStandardError().toStdString();
        // The shell becomes the program that sleeps.
        const auto name = [this] {
            QFile file(u"/proc/%1/comm"_s.arg(other.processId()));
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        for (int i = 0; i < 1000 && name() != "sleep\n"; ++i)
            usleep(10000);
    }
    void letGo() {
        other.kill();
        other.waitForFinished(20000);
    }
    QString holder() const { return u"It is in use by sleep (process %1)."_s.arg(other.processId()); }
    QString state(const std::optional<LineOpening>& opening = {}) const {
        return portState(ports, 1, opening);
    }

    /// The lock file that the port makes while it is open.
    QString lockFile() {
        open();
        const auto name = u"/LCK.."_s + QString(line.device()).remove(u"/dev/"_s).replace(u'/', u'_');
        QStringList found;
        for (const auto& lockFolder : {u"/var/lock"_s, u"/run/lock"_s, u"/tmp"_s, u"/var/tmp"_s})
            found += QFileInfo(lockFolder + name).canonicalFilePath();
        port.setPortOpen(false);
        found.removeAll(QString());
        return found.value(0);
    }

    QProcess other;
    QList<SerialDevice> connected{{.path = line.device(), .maker = u"Maker"_s, .serialNumber = u"77"_s}};
    SerialPorts ports{settings, {[this] { return connected; }, folder.path()}};
    CommunicationLog log{session, u"Crane TorqueStar IVc"_s, folder.path()};
};

TEST_F(PortOfOthers, IsHeldByTheProcessThatHasItOpen) {
    EXPECT_EQ(otherHoldersOf(line.device()), QList<DeviceHolder>()) << "this process has it open itself";
    take();
    EXPECT_EQ(otherHoldersOf(line.device()), (QList<DeviceHolder>{{other.processId(), u"sleep"_s}}));
    const auto link = folder.path() + u"/calibrator"_s;
    ASSERT_TRUE(QFile::link(line.device(), link));
    EXPECT_EQ(otherHoldersOf(link).size(), 1) << "whatever it is called";
    letGo();
    EXPECT_EQ(otherHoldersOf(line.device()), QList<DeviceHolder>());
}

TEST_F(PortOfOthers, IsHeldByTheProcessOfItsLockFile) {
    take();
    const auto elsewhere = PseudoTerminal();
    const auto file = u"/tmp/LCK.."_s + QString(elsewhere.device()).remove(u"/dev/"_s).replace(u'/', u'_');
    const auto removal = qScopeGuard([&] { QFile::remove(file); });
    const auto lock = [&](const QByteArray& content) {
        QFile written(file);
        ASSERT_TRUE(written.open(QIODevice::WriteOnly));
        written.write(content);
    };
    lock(QByteArray::number(other.processId()).rightJustified(10) + "\nsleep\nhost\n");
    EXPECT_EQ(otherHoldersOf(elsewhere.device()), (QList<DeviceHolder>{{other.processId(), u"sleep"_s}}));
    lock("4194399\n");
    EXPECT_EQ(otherHoldersOf(elsewhere.device()), QList<DeviceHolder>()) << "its process is gone";
    lock("nonsense");
    EXPECT_EQ(otherHoldersOf(elsewhere.device()), QList<DeviceHolder>());
}

TEST_F(PortOfOthers, IsNotHeldByAPipeInPlaceOfALockFileWhichNobodyWaitsFor) {
    const auto pipe = "/tmp/LCK.." + QFile::encodeName(line.device().sliced(5).replace(u'/', u'_'));
    ASSERT_EQ(::mkfifo(pipe.constData(), 0600), 0);
    const auto removal = qScopeGuard([&] { ::unlink(pipe.constData()); });
    auto holders = std::async(std::launch::async, [this] { return otherHoldersOf(line.device()); });
    const bool ended = holders.wait_for(std::chrono::seconds(20)) == std::future_status::ready;
    EXPECT_TRUE(ended);
    if (!ended)
        ::close(::open(pipe.constData(), O_WRONLY | O_CLOEXEC));
    EXPECT_EQ(holders.get(), QList<DeviceHolder>());
}

TEST_F(PortOfOthers, IsOpenedDespiteTheEmptyLockOfAProgramThatWasKilled) {
    const auto file = lockFile();
    const auto removal = qScopeGuard([&] { QFile::remove(file); });
    QFile lock(file);
    ASSERT_TRUE(lock.open(QIODevice::ReadWrite));
    EXPECT_THROW(open(), Error) << "its program may be about to fill it";
    ASSERT_TRUE(
        lock.setFileTime(QDateTime::currentDateTime().addSecs(-2), QFileDevice::FileModificationTime));
    open();
    EXPECT_TRUE(port.portOpen());
    port.setPortOpen(false);
    EXPECT_FALSE(QFileInfo::exists(file));
}

TEST_F(PortOfOthers, IsNotOpenedWhileALockNamesARunningProcess) {
    const auto file = lockFile();
    const auto removal = qScopeGuard([&] { QFile::remove(file); });
    take();
    QFile lock(file);
    ASSERT_TRUE(lock.open(QIODevice::ReadWrite));
    lock.write(QByteArray::number(other.processId()) + "\nsleep\n" + QSysInfo::machineHostName().toUtf8() +
               '\n');
    ASSERT_TRUE(
        lock.setFileTime(QDateTime::currentDateTime().addSecs(-2), QFileDevice::FileModificationTime));
    lock.close();
    EXPECT_THROW(open(), Error);
    EXPECT_TRUE(QFileInfo::exists(file));
}

TEST_F(PortOfOthers, ThatIsNoDeviceHasNoHolder) {
    folder.write(u"file"_s, "x");
    for (const auto& path : {u"/no such device"_s, folder.path(), folder.path() + u"/file"_s, QString()})
        EXPECT_EQ(otherHoldersOf(path), QList<DeviceHolder>()) << path.toStdString();
}

TEST_F(PortOfOthers, IsDescribedWithItsDeviceItsOpeningAndItsHolder) {
    const auto device = u"COM1 is %1, maker Maker, serial number 77. "_s.arg(line.device());
    EXPECT_EQ(state(), device + u"COM1 (%1) was not opened yet."_s.arg(line.device()));
    EXPECT_EQ(state(LineOpening{}), device + u"COM1 (%1) was opened."_s.arg(line.device()));
    take();
    EXPECT_EQ(state(LineOpening{u"It could not be opened: it is busy."_s}),
              device + u"It could not be opened: it is busy. "_s + holder());
    EXPECT_EQ(portDescription(ports, 1), u"COM1: %1, maker Maker, serial number 77"_s.arg(line.device()));
}

TEST_F(PortOfOthers, WithoutADeviceIsSaidToHaveNone) {
    EXPECT_EQ(portState(ports, 2, {}), u"There is no device for COM2."_s);
    EXPECT_EQ(portDescription(ports, 2), u"COM2: There is no device for COM2."_s);
    settings.setValue(u"Ports"_s, u"COM2"_s, u"0403:6001"_s);
    EXPECT_EQ(portState(ports, 2, LineOpening{u"No."_s}),
              u"0403:6001 matches no device, or more than one. No."_s);
}

TEST_F(PortOfOthers, IsNotSaidToBeOpenOrRefusedByWhatAnotherPortOrDeviceWas) {
    const PseudoTerminal second;
    connected << SerialDevice{.path = second.device()};
    port.setCommPort(1);
    const auto logged = loggedSerialPort(port, log, ports);
    logged->setPortOpen(true);
    EXPECT_TRUE(state(log.opening()).contains(u" was opened."_s));
    const auto secondPort = u"COM2 is %1. COM2 (%1) was not opened yet."_s.arg(second.device());
    EXPECT_EQ(portState(ports, 2, log.opening()), secondPort);
    EXPECT_EQ(portState(ports, 2, openingOf(ports, 1, u"It is busy."_s)), secondPort);
    EXPECT_EQ(portState(ports, 3, openingOf(ports, 1, u"It is busy."_s)), u"There is no device for COM3."_s);
    const auto earlier = log.opening();
    settings.setValue(u"Ports"_s, u"COM1"_s, second.device());
    EXPECT_EQ(state(earlier), u"COM1 is %1. COM1 (%1) was not opened yet."_s.arg(second.device()));
    EXPECT_TRUE(state(LineOpening{u"There is no library."_s}).endsWith(u"There is no library."_s))
        << "what concerns no port concerns each";
}

TEST_F(PortOfOthers, ThatFailsDuringAnExchangeIsLoggedAndNoLongerSaidToBeOpen) {
    for (const auto& isLogged : {u"1"_s, u"0"_s}) {
        PseudoTerminal lost;
        connected = {{.path = lost.device()}};
        settings.setValue(u"Ports"_s, u"COM1"_s, lost.device());
        settings.setValue(logSection, log.calibrator(), isLogged);
        const auto logged = loggedSerialPort(port, log, ports);
        logged->setCommPort(1);
        logged->setPortOpen(true);
        lost.vanish();
        for (int look = 0; look < 100 && logged->portOpen(); ++look)
            logged->inBufferCount();
        EXPECT_EQ(log.opening(), openingOf(ports, 1, u"Communications with calibrator failed!"_s));
        EXPECT_TRUE(state(log.opening()).contains(u"Communications with calibrator failed!"_s));
        logged->setPortOpen(false);
    }
    const auto lines = folder.read(u"crane-torquestar-ivc.log"_s);
    EXPECT_EQ(lines.count(u"lost: the line has closed"_s), 1) << lines.toStdString();
    EXPECT_EQ(lines.count(u'\n'), 2) << lines.toStdString();
}

TEST_F(PortOfOthers, ThatFailsBetweenTwoExchangesIsLoggedBeforeTheNextOpening) {
    settings.setValue(logSection, log.calibrator(), u"1"_s);
    const auto logged = loggedSerialPort(port, log, ports);
    logged->setCommPort(1);
    logged->setPortOpen(true);
    line.vanish();
    for (int i = 0; i < 500 && port.portOpen(); ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    logged->setCommPort(1);
    const auto lines = folder.read(u"crane-torquestar-ivc.log"_s);
    EXPECT_TRUE(lines.endsWith(u"] lost: the line has closed\n"_s)) << lines.toStdString();
}

TEST_F(PortOfOthers, ThatIsTakenIsRefusedWithTheNameOfItsHolder) {
    take();
    // What refuses a second opening is the lock of a serial port, here that of this process.
    QtSerialPort first(settings);
    first.setPortOpen(true);
    const auto logged = loggedSerialPort(port, log, ports);
    logged->setCommPort(1);
    try {
        logged->setPortOpen(true);
        ADD_FAILURE() << "it was opened";
    } catch (const Error& error) {
        EXPECT_EQ(error.number, 75);
        EXPECT_TRUE(error.description.startsWith(
            u"The port COM1, device \"%1\", could not be opened: "_s.arg(line.device())))
            << error.description.toStdString();
        EXPECT_TRUE(error.description.endsWith(holder())) << error.description.toStdString();
    }
    ASSERT_TRUE(log.opening().has_value());
    EXPECT_FALSE(log.opening()->refusal.isEmpty());
    EXPECT_EQ(state(log.opening()).count(holder()), 1);

    first.setPortOpen(false);
    logged->setPortOpen(true);
    EXPECT_TRUE(log.opening()->refusal.isEmpty());
}

TEST_F(PortOfOthers, WithoutRightsSaysSo) {
    EXPECT_TRUE(mayUse(line.device()));
    EXPECT_EQ(deviceObstacles(line.device()), QStringList());
    ASSERT_EQ(::chmod(QFile::encodeName(line.device()).constData(), 0), 0);
    // A superuser may do everything; then another user looks.
    const bool isSuperuser = ::geteuid() == 0;
    if (isSuperuser && ::seteuid(65534) != 0)
        GTEST_SKIP() << "this process can't become another user";
    const auto back = qScopeGuard([&] { EXPECT_EQ(isSuperuser ? ::seteuid(0) : 0, 0); });
    EXPECT_FALSE(mayUse(line.device()));
    const auto sentence = u"This user may not open it. On Debian the members of the group dialout may."_s;
    EXPECT_EQ(deviceObstacles(line.device()), QStringList{sentence});
    EXPECT_TRUE(state().endsWith(sentence)) << state().toStdString();
    EXPECT_EQ(deviceObstacles(u"/no such device"_s), QStringList())
        << "that is missing, which is said elsewhere";
}

} // namespace kelvane::testing
