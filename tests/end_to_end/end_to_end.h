#pragma once

#include "drivers/fluke702/dpclnk_library.h"
#include "drivers/fluke74x/dpclnk3_library.h"
#include "platform/database/odbc_connection.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/command_titles.h"
#include "testkit/test_database.h"
#include "tests/end_to_end/connected_workstation.h"
#include "tests/end_to_end/database_trouble.h"
#include "tests/end_to_end/line_clock.h"
#include "tests/simulators/programs.h"
#include "tests/workflow/scripted_screen.h"
#include "workflow/unfinished_results.h"
#include "workflow/upload.h"

#include <functional>

namespace kelvane::testing {

/// The messages that are the same for every calibrator, in the language of the run.
namespace messages {
inline QString downloaded() {
    return text(TextId::downloadSuccessful);
}
inline QString uploaded() {
    return text(TextId::uploadSuccessful);
}
inline QString unknownCalibrator() {
    return text(TextId::calibratorAssetNotFound);
}
inline QString recordExists() {
    return text(TextId::recordAlreadyExists);
}
inline QString connectionLost() {
    return text(TextId::connectionLostAdvice);
}
} // namespace messages

/// A calibration from end to end with one of the calibrators: the demonstration's database, the real drivers
/// and commands, and a scripted operator. jdoe is logged in, nothing is listed.
class EndToEndTest : public ::testing::Test {
  protected:
    /// The calibrator's name and serial number.
    EndToEndTest(const QString& calibrator, QString serial);

    /// The operator presses Download, and sees this message.
    void download(const QString& message = messages::downloaded());

    // The upload step by step: what he meets comes in this order.
    void expectChoice();
    /// He answers the two questions for a record; `meanwhile` happens while he thinks about the last one.
    void expectRecord(const QString& asset, std::function<void()> meanwhile = {});
    /// The box of a record that is there already.
    void expectRefusal();
    void pressUpload(const QString& message = messages::uploaded());

    /// The instruments whose results have no record yet.
    QStringList withoutRecord();
    /// He presses Make Record for each of them; those of which no record was begun ask him for theirs.
    void makeRecords();

    /// He adds an instrument, names a standard and no second one; without a standard no further one is asked
    /// for.
    void list(const QString& asset, const QString& standard);

    /// The rows of a query, columns joined with "|".
    QStringList rows(const QString& query, int columns = 1);
    void execute(const QString& statement) { database.execute(sharedConnection(session), statement); }
    /// The instruments that are registered with the calibrator.
    QStringList registered();
    /// The standards that are in use with an instrument.
    QStringList standardsInUse(const QString& asset);
    /// The records of an instrument's working day: pass mark, number of standards, number of result lines.
    QStringList records(const QString& asset);
    /// No file of the database is damaged; those of a server are its own.
    void expectSoundDatabase();

    /// The login is refused as long as the outage lasts, and works once it is over.
    void logInAgain(DatabaseOutage& outage);

    /// Starts the same command on another workstation, an upload or (with instruments) a download; it kills
    /// itself before the moment of that number, 0 for none.
    std::unique_ptr<QProcess> startCommand(int moment, const QStringList& downloaded = {});

    static const QString& workDay();

    OwnFolder folder;
    LineClock clock;
    ScriptedUserInterface ui;
    TestDatabase database{databaseSettings()};
    simulators::SimulatorFolder simulatorFolder;
    ConnectedWorkstation workplace{ui, clock, database.dsn(), simulatorFolder.link(), openConnections()};
    Session& session = workplace.session;
    HeardPort port{workplace.line, clock};
    DpclnkLibrary link;
    Dpclnk3Library link3;
    /// The communication logs stand in the test's folder.
    Calibrators calibrators{session, {port, link, link3, {}, folder.path()}};
    ScriptedScreen screen;

  private:
    static QHash<QString, QString> databaseSettings();
    QString serial_;
};

} // namespace kelvane::testing
