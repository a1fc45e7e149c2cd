#include "app/records_window_program.h"

#include "app/about_box.h"
#include "app/display_check.h"
#include "app/language.h"
#include "app/login.h"
#include "app/records_command_line.h"
#include "app/records_files.h"
#include "app/user_folder.h"
#include "platform/database/odbc_connection.h"
#include "platform/database/reading_connection.h"
#include "platform/database/watched_connection.h"
#include "platform/program_options.h"
#include "platform/reason_log.h"
#include "platform/version.h"
#include "ui/guarded.h"
#include "ui/program_icon.h"
#include "ui/repaint.h"
#include "ui/style.h"

#include <QApplication>
#include <QDir>
#include <QLocale>

#include <clocale>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const auto placeSection = u"RecordsWindow"_s;

} // namespace

RecordsWindowProgram::RecordsWindowProgram(const Clock& clock, SettingsStore& settings,
                                           const ConnectionFactory& connections)
    : session({ui, clock, settings},
              watchedConnections(readingConnections(connections), [this] { noteLoss(); })),
      window(session, {
                          .logIn =
                              [this](const QString& user, const QString& password) {
                                  logInToRead(session, chosenDataSource(session), user, password);
                              },
                          .showAbout = [this](QWidget* over) { openAboutBox(session, over); },
                          .packages = {.connections = connections,
                                       .logIn =
                                           [](Session& writer, const QString& user, const QString& password) {
                                               logInToRead(writer, writer.SessionDataSource, user, password);
                                           }},
                          .workstationFolders = {QDir::currentPath(), userFolder()},
                      }) {}

void RecordsWindowProgram::noteLoss() {
    session.SessionConnected = false;
    window.showSessionState();
}

void RecordsWindowProgram::start() {
    runGuarded(ui, [this] { restorePlace(session, placeSection, window); });
    window.start();
    placeAtStart_ = placeOf(window);
}

void RecordsWindowProgram::storeWindowPlace() {
    runGuarded(ui, [this] {
        if (const auto place = placeOf(window); place != placeAtStart_)
            storePlace(session, placeSection, place);
    });
}

void RecordsWindowProgram::readTemplate() {
    runGuarded(ui, [this] { readNearestTemplate(session, {QDir::currentPath(), userFolder()}); });
}

int runRecordsWindow(int argc, char** argv) {
    auto check = std::make_optional<DisplayCheck>(recordsCommandLine().name);
    QApplication application(argc, argv);
    check.reset();
    // The application takes the user's locale; database drivers would then write "1234,5".
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setApplicationName(u"KELVANE"_s);
    QApplication::setApplicationVersion(programVersion());
    QApplication::setWindowIcon(programIcon());
    // Names the entry in the desktop's menu whose window this is.
    QApplication::setDesktopFileName(u"kelvane-records"_s);
    const SystemClock clock;
    IniSettingsStore settings(IniSettingsStore::defaultPath());
    setLooks(chosenColors(settings));
    const auto unknownLanguage = chooseLanguage(settings, QLocale::system().uiLanguages());
    translateToolkit(application);
    RecordsWindowProgram program(clock, settings, odbcConnections(repaintWindows));
    program.readTemplate();
    if (const auto fault = enterRecordsFolder(); !fault.isEmpty())
        return writeAnswer(recordsCommandLine().name, {fault, 1});
    if (!unknownLanguage.isEmpty())
        logReason(program.session, unknownLanguage);
    program.start();
    const int status = QApplication::exec();
    program.storeWindowPlace();
    return status;
}

} // namespace kelvane
