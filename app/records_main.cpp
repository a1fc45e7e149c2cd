#include "app/language.h"
#include "app/login.h"
#include "app/records_certificate.h"
#include "app/records_files.h"
#include "app/records_list.h"
#include "app/records_window_program.h"
#include "app/user_folder.h"
#include "platform/database/odbc_connection.h"
#include "platform/database/reading_connection.h"
#include "platform/password.h"
#include "platform/silent_user_interface.h"
#include "platform/terminal.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QLoggingCategory>

#include <clocale>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr qsizetype longestPassword = 511; // bytes

/// Keeps the first line of what a routine reports, for the standard error.
class ReportKeeper final : public SilentUserInterface {
  public:
    BoxAnswer messageBox(const QString& text, const QString&, BoxStyle) override {
        if (report.isEmpty())
            report = text.section(u"\r\n"_s, 0, 0).simplified(); // servers write several lines
        return BoxAnswer::ok;
    }
    QString askOneField(const DialogQuestion&) override { return cancelled; }

    QString report;
};

Password askPassword(const QString& user) {
    auto line = readSecretLine(u"Password of %1: "_s.arg(user), longestPassword);
    if (!line || line->isEmpty())
        throw ProgramAnswer{u"no password was given on the standard input"_s, 1};
    return Password(std::move(*line));
}

void logIn(Session& session, const RecordsRequest& request) {
    const auto dataSource = request.dataSource.isEmpty() ? chosenDataSource(session) : request.dataSource;
    const auto password = askPassword(request.user);
    try {
        logInToRead(session, dataSource, request.user, QString::fromUtf8(password.utf8()));
    } catch (const Error& error) {
        throw ProgramAnswer{
            u"the login to %1 has failed: %2"_s.arg(dataSource, error.description.simplified()), 1};
    }
}

/// Writes what is asked for. `start` is the folder in which the program was started.
void run(const RecordsRequest& request, const QString& start) {
    const SystemClock clock;
    IniSettingsStore settings(IniSettingsStore::defaultPath());
    ReportKeeper operatorInterface;
    Session session({operatorInterface, clock, settings}, readingConnections(odbcConnections()));
    logIn(session, request);
    if (request.list == RecordsRequest::List::certificate) {
        chooseLanguage(settings, QLocale::system().uiLanguages());
        const QStringList folders{start, userFolder()};
        readNearestTemplate(session, folders);
        if (!writeCertificateFile(session, request, folders))
            throw ProgramAnswer{operatorInterface.report, 1};
        // The page says so, too, but nobody may look at it for months.
        if (session.ResultTemplateLine.isEmpty())
            writeAnswer(recordsCommandLine().name,
                        {u"there is no result template (rslt_db.frm): the result lines of %1 stand on the "
                         "certificate as they are stored"_s.arg(request.asset),
                         1});
        return;
    }
    const auto list = listAsCsv(session, request);
    closeConnection(session);
    if (!list)
        throw ProgramAnswer{operatorInterface.report, 1};
    writeList(request, *list);
}

/// A certificate needs letters and no window: it is painted without a display, as at night.
std::unique_ptr<QCoreApplication> applicationFor(const RecordsRequest& request, int& argc, char** argv) {
    if (request.list != RecordsRequest::List::certificate)
        return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // A job without a session would be told of its missing folders each time.
    QLoggingCategory::setFilterRules(u"default.warning=false"_s);
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

} // namespace kelvane

int main(int argc, char** argv) {
    using namespace kelvane;

    openStandardStreams();
    const auto program = recordsCommandLine().name;
    try {
        const auto words = wordsOf(argc, argv).mid(1);
        if (words.isEmpty())
            return runRecordsWindow(argc, argv);
        auto request = recordsRequest(words);
        const auto application = applicationFor(request, argc, argv);
        // The application takes the user's locale; database drivers would then write "1234,5".
        std::setlocale(LC_NUMERIC, "C");
        // A file that the command line names stands in the folder where it was written.
        if (!request.file.isEmpty())
            request.file = QFileInfo(request.file).absoluteFilePath();
        const auto start = QDir::currentPath();
        if (const auto fault = enterRecordsFolder(); !fault.isEmpty())
            return writeAnswer(program, {fault, 1});
        run(request, start);
        return 0;
    } catch (const ProgramAnswer& answer) {
        return writeAnswer(program, answer);
    } catch (const Error& error) {
        return writeAnswer(program, {error.description.simplified(), 1});
    }
}
