#include "app/calibrator_hardware.h"
#include "app/command_line.h"
#include "app/display_check.h"
#include "app/first_start.h"
#include "app/language.h"
#include "app/user_folder.h"
#include "app/workstation_program.h"
#include "platform/database/odbc_connection.h"
#include "platform/reason_log.h"
#include "platform/version.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "ui/repaint.h"
#include "ui/style.h"

#include <QApplication>
#include <QLocale>

#include <clocale>
#include <cstdlib>
#include <optional>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

int run(QApplication& application, const GivenOptions& options, const QString& commandLine) {
    // The application takes the user's locale; database drivers would then write "1234,5".
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setApplicationName(u"KELVANE"_s);
    QApplication::setApplicationVersion(programVersion());
    // Names the entry in the desktop's menu whose windows these are.
    QApplication::setDesktopFileName(u"kelvane"_s);
    const SystemClock clock;
    IniSettingsStore stored(IniSettingsStore::defaultPath());
    setLooks(chosenColors(stored));
    const auto unknownLanguage = chooseLanguage(stored, QLocale::system().uiLanguages());
    translateToolkit(application);
    // Files that the command line names stand in the folder where it was written.
    const auto unreadable = overlayTextsOf(options);
    if (const auto fault = wantsUserFolder(options) ? enterUserFolder() : QString(); !fault.isEmpty())
        return writeAnswer(workstationCommandLine().name, {fault, 1});

    SettingsWithOptions settings(stored, options);
    CalibratorHardware hardware(settings);
    WorkstationProgram program(clock, settings, odbcConnections(repaintWindows), hardware.links(),
                               {
                                   .dataSources = odbcDataSources,
                                   .commandLine = commandLine,
                                   .worksheets = wantsWorksheets(options),
                                   // At once: nothing is unwound, whatever dialog or command is running.
                                   .endProcess = [] { std::_Exit(EXIT_SUCCESS); },
                               });
    for (const auto& line :
         {text(TextId::programStarted).arg(programVersion()), unknownLanguage, unreadable}) {
        if (!line.isEmpty())
            logReason(program.session, line);
    }
    if (odbcDataSources().isEmpty())
        offerFirstStart();
    program.start();
    return QApplication::exec();
}

} // namespace

} // namespace kelvane

int main(int argc, char** argv) {
    using namespace kelvane;

    const auto words = wordsOf(argc, argv);
    GivenOptions options;
    try {
        options = workstationOptions(words.mid(1));
    } catch (const ProgramAnswer& answer) {
        return writeAnswer(workstationCommandLine().name, answer);
    }
    auto check = std::make_optional<DisplayCheck>(workstationCommandLine().name);
    QApplication application(argc, argv);
    check.reset();
    return run(application, options, words.join(u' '));
}
