#include "app/calibrator_hardware.h"
#include "app/command_line.h"
#include "app/language.h"
#include "app/workstation_program.h"
#include "platform/database/odbc_connection.h"
#include "platform/reason_log.h"
#include "ui/repaint.h"

#include <QApplication>
#include <QLocale>

#include <clocale>
#include <cstdlib>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    using namespace kelvane;

    QApplication application(argc, argv);
    // The application takes the user's locale; database drivers would then write "1234,5".
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setApplicationName(u"KELVANE"_s);

    const SystemClock clock;
    IniSettingsStore stored(IniSettingsStore::defaultPath());
    const auto unknownLanguage = chooseLanguage(stored, QLocale::system().uiLanguages());
    translateToolkit(application);
    const auto unreadable = overlayTextsOf(QApplication::arguments());
    SettingsWithPorts settings(stored, portsOf(QApplication::arguments()));
    CalibratorHardware hardware(settings);
    WorkstationProgram program(clock, settings, odbcConnections(repaintWindows), hardware.links(),
                               {
                                   .dataSources = odbcDataSources,
                                   .commandLine = QApplication::arguments().join(u' '),
                                   .worksheets = wantsWorksheets(QApplication::arguments()),
                                   // At once: nothing is unwound, whatever dialog or command is running.
                                   .endProcess = [] { std::_Exit(EXIT_SUCCESS); },
                               });
    for (const auto& reason : {unknownLanguage, unreadable}) {
        if (!reason.isEmpty())
            logReason(program.session, reason);
    }
    program.start();
    return QApplication::exec();
}
