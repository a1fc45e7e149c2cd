#pragma once

#include "demo/tools.h"
#include "drivers/fluke702/dpclnk_library.h"
#include "platform/odbc_connection.h"
#include "simulators/torquestar/memory.h"
#include "tests/road/line_clock.h"
#include "tests/road/workplace.h"
#include "tests/simulators/programs.h"
#include "tests/support/embedded_database.h"
#include "tests/workflow/scripted_screen.h"

#include <functional>

namespace kelvane::testing {

/// What the operator is told, to the letter.
namespace told {
inline const QString downloaded = QStringLiteral("Download Successful");
inline const QString uploaded = QStringLiteral("Upload Successful");
inline const QString noPort =
    QStringLiteral("Unable to open communications channel to calibrator! Please check "
                   "communications settings and try again.");
/// The link start was not answered, or the frame not acknowledged rightly.
inline const QString noLink = QStringLiteral(
    "Communications with calibrator failed!\r\nCheck to make sure that \"PC COMMS\" has been "
    "selected (option 8) from the Main Menu and the calibrator is correctly connected and configured.");
inline const QString timeOut = QStringLiteral("Communications Timeout on Command Acknowledgement");
inline const QString noResponse =
    QStringLiteral("Communications with calibrator failed!\r\nCalibrator received "
                   "command but failed to respond.");
inline const QString unknownCalibrator = QStringLiteral(
    "Asset Number for Calibrator NOT Found In Database! A record for the calibrator must be created "
    "before uploading results.");
inline const QString recordExists = QStringLiteral(
    "A calibration record for this UUT with the same calibration date and time already exists! "
    "Aborting calibration record creation for this UUT.");
/// No results for these, by their names on the calibrator.
QString noData(const QStringList& names);
} // namespace told

inline const QString downloadTitle = QStringLiteral("Download Procedures To Calibrator");
inline const QString uploadTitle = QStringLiteral("Upload Test Results From Calibrator");
inline const QString torqueStarName = QStringLiteral("Crane TorqueStar IVc");

/// The whole road: the demonstration's database, the simulated calibrator in a process of its own on a pseudo
/// terminal, the real driver and commands between them, and a scripted operator. jdoe is logged in, nothing
/// is listed, the calibrator (TS-0001, serial number 48213) is on and empty.
class TorqueRoad : public ::testing::Test {
  protected:
    TorqueRoad();

    /// Switches the calibrator on, or off and on; its memory stays.
    void switchOn(const QStringList& faults = {});
    void switchOff() { device_.reset(); }

    /// Puts a tool into the list; the operator names its standard, that of the demonstration when none is
    /// given.
    void list(const QString& asset, const QString& standard = {});
    /// The operator presses Download, and is told this.
    void download(const QString& message = told::downloaded);

    /// The technician takes the demonstration's readings, from 08:00 of the working day on.
    void carryOut(const QStringList& assets);
    /// The same by a plan of its own.
    void carryOutPlan(const QString& plan);
    static QString planFor(const QString& asset);

    /// The operator presses Upload, answers the questions for these records, and is told this.
    void upload(const QStringList& recorded, const QString& message = told::uploaded);
    // The same step by step: what he meets comes in this order.
    void expectChoice();
    /// He answers the two questions for a record; `meanwhile` happens while he thinks about the last one.
    void expectRecord(const QString& asset, std::function<void()> meanwhile = {});
    /// The box of a record that is there already.
    void expectRefusal();
    void pressUpload(const QString& message = told::uploaded);
    /// The box when nobody answers on the line.
    void expectNoLink(BoxAnswer answer = BoxAnswer::abort);

    /// The rows of a query, columns joined with "|".
    QStringList rows(const QString& query, int columns = 1);
    void execute(const QString& statement) { sharedConnection(session).execute(statement); }
    /// The tools that are registered with the calibrator.
    QStringList registered();
    /// The standards that are in use with a tool.
    QStringList standardsInUse(const QString& asset);
    /// The records of a tool's working day: pass mark, number of standards, number of result lines.
    QStringList records(const QString& asset);
    /// The record as it has to be, complete.
    static QStringList wholeRecord(const QString& asset);
    /// Expects each tool to have its one record, complete.
    void expectWhole(const QStringList& assets);

    simulators::Memory held() const;
    /// The names of what the calibrator holds.
    QStringList heldNames() const;
    /// Identifiers of the messages that the calibrator heard since it was switched on.
    QStringList heard() const;

    static const demo::Tool& tool(const QString& asset);
    static const QString& workDay();

    OwnFolder folder;
    LineClock clock;
    ScriptedUserInterface ui;
    EmbeddedDatabase database{QString::fromUtf8(KELVANE_TEST_DATABASE), databaseSettings()};
    simulators::Workshop workshop;
    Workplace workplace{ui, clock, database.dsn(), workshop.link(), odbcConnections()};
    Session& session = workplace.session;
    HeardPort port{workplace.line, clock};
    DpclnkLibrary link;
    Calibrators calibrators{session, {session, port}, {session, link}};
    ScriptedScreen screen;

  private:
    static QHash<QString, QString> databaseSettings();
    std::unique_ptr<simulators::Calibrator> device_;
};

} // namespace kelvane::testing
