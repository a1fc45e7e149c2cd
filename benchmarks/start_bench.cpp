// Start to the login screen, time and memory, against a bare Qt window with a menu and a document area. Each
// start is a process of its own: this program starts itself. Usage: bench_start [workstation | bare]

#include "app/calibrator_hardware.h"
#include "app/workstation_program.h"
#include "platform/database/odbc_connection.h"
#include "resources/strings.h"
#include "ui/style.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// What this process holds in memory, in MB.
double residentMegabytes() {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const auto& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.simplified().split(' ').at(1).toDouble() / 1024;
    }
    return 0;
}

void runBare() {
    QMainWindow window;
    window.setCentralWidget(new QMdiArea);
    for (const auto* menu : {"File", "Calibration", "Parameters"})
        window.menuBar()->addMenu(QString::fromLatin1(menu))->addAction(u"Entry"_s);
    window.resize(665, 551);
    window.show();
    QCoreApplication::processEvents();
    std::printf("%f\n", residentMegabytes());
}

void runWorkstation() {
    using namespace kelvane;
    const SystemClock clock;
    IniSettingsStore settings(u"settings.ini"_s);
    setLooks(chosenColors(settings));
    CalibratorHardware hardware(settings);
    WorkstationProgram program(clock, settings, odbcConnections(), hardware.links(),
                               {.dataSources = odbcDataSources, .commandLine = {}, .endProcess = [] {}});
    program.start();
    QCoreApplication::processEvents();
    std::printf("%f\n", residentMegabytes());
}

struct Start {
    double milliseconds;
    double megabytes;
};

Start startOf(const QString& which) {
    QElapsedTimer timer;
    timer.start();
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {which});
    process.waitForReadyRead();
    const auto milliseconds = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    process.waitForFinished();
    return {milliseconds, process.readAllStandardOutput().trimmed().toDouble()};
}

Start medianOf(QList<Start> starts) {
    std::ranges::sort(starts, {}, &Start::milliseconds);
    return starts[starts.size() / 2];
}

void compare() {
    // One after the other in turn, so that a slow moment of the machine meets both.
    constexpr int rounds = 15;
    QList<Start> bare;
    QList<Start> workstation;
    for (int round = 0; round < rounds; ++round) {
        bare << startOf(u"bare"_s);
        workstation << startOf(u"workstation"_s);
    }
    const auto ours = medianOf(workstation);
    const auto least = medianOf(bare);
    std::printf("start to the login screen / a bare window: time %.2f   (%.1f ms against %.1f ms)\n",
                ours.milliseconds / least.milliseconds, ours.milliseconds, least.milliseconds);
    std::printf("start to the login screen / a bare window: memory %.2f   (%.1f MB against %.1f MB)\n",
                ours.megabytes / least.megabytes, ours.megabytes, least.megabytes);
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    if (argc == 1) {
        const QTemporaryDir folder;
        QDir::setCurrent(folder.path());
        QFile ready(u"rslt_db.frm"_s);
        if (ready.open(QIODevice::WriteOnly))
            ready.write("TN$ FN$ FRE$ TR$\n");
        ready.close();
        const QCoreApplication application(argc, argv);
        compare();
        return 0;
    }
    const QApplication application(argc, argv);
    if (qstrcmp(argv[1], "bare") == 0)
        runBare();
    else
        runWorkstation();
    return 0;
}
