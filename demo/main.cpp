#include "app/calibrator_hardware.h"
#include "app/language.h"
#include "demo/demonstration.h"
#include "demo/torquestar.h"
#include "platform/database/odbc_connection.h"
#include "platform/installed_files.h"
#include "platform/program_options.h"
#include "ui/style.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLocale>

#include <clocale>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

kelvane::Program program() {
    return {
        .name = u"kelvane-demo"_s,
        .usage = {},
        .description =
            u"Runs a day's work through the workstation's own windows, off screen, and compares every "
            u"record.\n"
            "The current folder holds \"rslt_db.frm\"; the variable ODBCINI names an \"odbc.ini\" with a "
            "new\n"
            "database that has the demonstration data. The status is 0 only when everything is right."_s,
        .options = {},
    };
}

/// Messages of the offscreen platform about invisible windows are left out.
void writeMessage(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.startsWith(u"This plugin does not support"))
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

/// Tells the link library of a simulated calibrator where to keep the memory and its record in the folder.
/// Gives the path of the memory.
QString prepareLink(const QString& folder, const QString& calibrator) {
    const auto path = QDir(folder).filePath(calibrator);
    const QByteArray variables = "KELVANE_" + calibrator.toUpper().toLatin1();
    const auto memory = path + u".json"_s;
    qputenv(variables + "_MEMORY", QFile::encodeName(memory));
    qputenv(variables + "_RECORD", QFile::encodeName(path + u".log"_s));
    return memory;
}

} // namespace

int main(int argc, char** argv) {
    using namespace kelvane;

    try {
        readCommandLine(program(), wordsOf(argc, argv).mid(1));
    } catch (const ProgramAnswer& answer) {
        return writeAnswer(program().name, answer);
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(writeMessage);
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    // The pages show its pictures: they look the same wherever they are taken.
    setLooks(Colors::light);

    const auto folder = QDir::currentPath();
    bool ended = false;
    int outcome = 1;
    try {
        const demo::TorqueStar torqueStar(folder);
        const auto fluke702 = prepareLink(folder, u"fluke702"_s);
        const auto fluke74x = prepareLink(folder, u"fluke74x"_s);
        const SystemClock clock;
        IniSettingsStore settings(QDir(folder).filePath(u"settings.ini"_s));
        settings.setValue(u"Ports"_s, u"COM1"_s, torqueStar.device());
        chooseLanguage(settings, QLocale::system().uiLanguages());
        const auto installed = InstalledFiles().simulatorLibraries();
        CalibratorHardware hardware(settings,
                                    installed.isEmpty() ? InstalledFiles::programFolder() : installed);
        WorkstationProgram program(
            clock, settings, odbcConnections(), hardware.links(),
            {.dataSources = odbcDataSources, .commandLine = {}, .worksheets = true, .endProcess = [&] {
                 ended = true;
             }});
        demo::Demonstration(program, {torqueStar.memory(), fluke702, fluke74x}, folder).run();
        if (!ended)
            throw demo::Difference(u"the program did not end"_s);
        std::puts("\nEvery record, standard and result line is as it has to be.");
        outcome = 0;
    } catch (const demo::Difference& difference) {
        std::printf("\nNOT as it has to be: %s\n", difference.what());
    } catch (const Error& error) {
        std::printf("\nFAILED: %g %s\n", error.number, qPrintable(error.description));
    }
    std::printf("Pictures: %s\n", qPrintable(QDir(folder).filePath(u"pictures"_s)));
    return outcome;
}
