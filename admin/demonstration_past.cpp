#include "admin/demonstration_past.h"

#include "admin/failure.h"
#include "admin/past_days.h"
#include "admin/past_records.h"
#include "data/records/field_dictionary.h"
#include "data/records/record_columns.h"
#include "data/routine.h"
#include "data/session_values.h"
#include "data/start_up.h"
#include "platform/database/odbc_connection.h"
#include "platform/installed_files.h"
#include "platform/values/numbers.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::admin {

namespace {

// The folder's name is no part of the connection string: it could hold what cuts it.
const QString connectionString = u"Driver=SQLite3;Database=kelvane.db;BigInt=1;FKSupport=1;NoCreat=1"_s;
/// A user of the demonstration who makes records, with the password that all of them have.
const QString user = u"cnguyen"_s;
const QString userPassword = u"kelvane"_s;

/// What is made is the same whoever makes it.
class NoSettings final : public SettingsStore {
  public:
    QString value(const QString&, const QString&) const override { return {}; }
    void setValue(const QString&, const QString&, const QString&) override {}
};

/// The present folder for the time of a block.
class PresentFolder {
  public:
    explicit PresentFolder(const QString& folder) : before_(QDir::currentPath()) {
        if (!QDir::setCurrent(folder))
            throw Failure{u"%1 can't be opened"_s.arg(folder)};
    }
    ~PresentFolder() { QDir::setCurrent(before_); }
    PresentFolder(const PresentFolder&) = delete;
    PresentFolder& operator=(const PresentFolder&) = delete;

  private:
    QString before_;
};

void readTemplate(Session& session) {
    const PresentFolder demonstration(InstalledFiles().databaseScripts() + u"/demo"_s);
    ModuleGlobals::StartupFunctions(session, {});
}

void logIn(Session& session) {
    sharedConnection(session).open(connectionString, user, userPassword);
    session.SessionConnected = true;
    session.SessionUser = user;
    readSessionValues(session, user);
}

void requireWithoutRecords(Session& session, const QString& asset) {
    if (!ModuleGlobals::FirstCal(session, asset))
        throw Failure{u"%1 has records already"_s.arg(asset)};
}

/// Empty for an instrument that the inventory doesn't have.
QString monthsOf(Session& session, const QString& asset) {
    if (ModuleGlobals::SourceColumn(session, u"I4228"_s, asset) != u"M")
        return {};
    return ModuleGlobals::SourceColumn(session, u"I4229"_s, asset);
}

QList<PastInterval> intervalsOf(Session& session, std::span<const PastInstrument> instruments) {
    QList<PastInterval> intervals;
    for (const auto& instrument : instruments) {
        const auto asset = instrument.asset.toString();
        const auto months = static_cast<int>(numericValue(monthsOf(session, asset)));
        if (months <= 0)
            throw Failure{u"%1 is missing, or has no interval in months"_s.arg(asset)};
        requireWithoutRecords(session, asset);
        intervals << PastInterval{&instrument, months};
    }
    return intervals;
}

} // namespace

void makeDemonstrationPast(const QString& folder, const QDate& day, const RecordsMade& made) {
    PastOperator ui;
    PastClock clock;
    NoSettings settings;
    Session session({ui, clock, settings}, odbcConnections());
    const auto place = QDir(folder).absolutePath();
    readTemplate(session);
    const PresentFolder database(place);
    if (!ui.faults.isEmpty())
        throw Failure{ui.faults.join(u"; "_s)};
    clock.set({day, QTime(0, 0)});
    logIn(session);
    const auto instruments = intervalsOf(session, pastInstruments());
    const auto calibrations = calibrationsBefore(day, instruments, intervalsOf(session, pastStandards()));
    Transaction transaction(session);
    PastRecords records(session, clock, ui, day);
    qsizetype count = 0;
    for (const auto& calibration : calibrations) {
        records.add(calibration);
        made(++count, calibrations.size());
    }
    transaction.commit();
    closeConnection(session);
}

} // namespace kelvane::admin
