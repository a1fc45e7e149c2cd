#include "endurance/station.h"

#include "app/login.h"
#include "data/start_up.h"
#include "drivers/fluke74x/dpclnk3_library.h"
#include "drivers/instrument_work.h"
#include "drivers/torquestar/qt_serial_port.h"
#include "endurance/edits.h"
#include "platform/database/odbc_connection.h"
#include "platform/error_report.h"
#include "workflow/unfinished_results.h"

#include <QDir>
#include <QFile>
#include <QThread>

using namespace Qt::StringLiterals;

namespace kelvane::endure {

namespace {

const QString password = u"kelvane"_s;
/// How often a login is tried while the database is out of reach, a second apart.
constexpr int maxLogins = 90;
constexpr qsizetype maxLogSize = 4 * 1024 * 1024;
/// Until a step is known to take more statements.
constexpr int leastLongestStep = 10;

/// The users of the stations: technicians, some of whom edit procedures too.
constexpr QStringView users[maxStations] = {u"jdoe",    u"cnguyen",   u"dsantos", u"cnguyen",
                                            u"dsantos", u"bkowalski", u"cnguyen", u"dsantos"};

/// Statuses that the calibrator's library gives in the place of its own, out of the blue.
constexpr QStringView brokenReplies[] = {u"",
                                         u"",
                                         u"",
                                         u"DPCuplStep+1*1=2012",
                                         u"MEMcalResultEntry+6*1=2020",
                                         u"DPCdnlStep+1*1=2012",
                                         u"MEMtagidInfo+2*1=2030",
                                         u"DPCopen*1=2003"};

} // namespace

const Station::Act Station::acts[] = {
    {"calibrate", 10, 1, Faults::bySteps, &Station::calibrate},
    {"finish results", 4, 1, Faults::bySteps, &Station::finishResults},
    {"log in again", 3, 0, Faults::any, &Station::logInAgain},
    {"leave a record set open", 1, 0, Faults::any, &Station::leaveRecordSetOpen},
    {"enter a worksheet", 5, 1, Faults::any, &Station::enterWorksheet},
    {"edit a strategy", 5, 4, Faults::ofTransaction, &Station::editStrategy},
    {"edit a message", 3, 4, Faults::ofTransaction, &Station::editMessage},
    {"edit parameters", 4, 4, Faults::ofTransaction, &Station::editParameters},
    {"edit a package", 5, 4, Faults::ofTransaction, &Station::editPackage},
};

Station::Station(const StationOptions& options)
    : options_(options),
      generator_(options.seed),
      log_(options.folder),
      operator_(log_),
      settings_(options.folder + u"/settings.ini"_s),
      session_({operator_, clock_, settings_},
               [this] {
                   return std::make_unique<MeasuredConnection>(
                       std::make_unique<testing::FaultyConnection>(odbcConnections()(), fault_), figures_);
               }),
      port_(std::make_unique<QtSerialPort>(settings_)),
      fluke74x_(std::make_unique<Dpclnk3Library>()),
      calibrators_(session_, {*port_, fluke702_, *fluke74x_}),
      memory_(options.folder + u"/fluke702.json"_s) {
    QDir::setCurrent(options.folder);
    qputenv("KELVANE_FLUKE702_MEMORY", QFile::encodeName(memory_));
    settings_.setValue(u"Workstation"_s, u"ODBC"_s, options.dataSource);
    for (const auto& line : ActLog::read(options.folder)) {
        if (line.kind == u"edit")
            edits_ = std::max(edits_, line.text.section(u' ', 0, 0).toInt() / maxStations);
        else if (line.kind == u"longest step")
            longestSteps_[line.text.section(u' ', 1)] = line.text.section(u' ', 0, 0).toInt();
    }
    ModuleGlobals::StartupFunctions(session_, {});
    log_.write(u"start"_s, QString::number(options.seed));
}

Station::~Station() {
    logOut();
}

QString Station::user() const {
    return users[options_.station].toString();
}

void Station::logOut() {
    openRecordSet_.reset();
    endStep();
    disconnectSession(session_);
}

/// False when the database stays out of reach.
bool Station::ensureLogin() {
    if (session_.SessionConnected && !hasLostConnection(session_))
        return true;
    for (int attempt = 0; attempt < maxLogins; ++attempt) {
        logOut();
        try {
            logIn(session_, menu_, user(), password);
            level_ = session_.SessionLevel;
            log_.write(u"login"_s);
            return true;
        } catch (const Error& error) {
            session_.SharedConnection.reset();
            session_.SessionConnected = false;
            log_.write(u"no login"_s, error.description);
        }
        QThread::msleep(1000);
    }
    return false;
}

/// In every third step: any of the statements that it takes is as likely to fail as any other one.
void Station::planFault(const QString& step, Faults faults) {
    if (fault_.lost)
        return; // stays so until the next login
    endStep();
    step_ = step;
    qputenv("KELVANE_FLUKE702_FAULTS", {});
    if (!options_.withFaults || below(3) != 0)
        return;
    using Kind = testing::PlannedFault::Kind;
    constexpr Kind kinds[] = {Kind::refused, Kind::connectionLost, Kind::answerLost};
    fault_.kind = kinds[below(faults == Faults::ofTransaction ? 2 : 3)];
    fault_.failAt = below(std::max(leastLongestStep, longestSteps_.value(step)));
    log_.write(u"planned fault"_s, u"at %1 of %2"_s.arg(QString::number(fault_.failAt), step));
    const auto reply = brokenReplies[below(static_cast<int>(std::size(brokenReplies)))];
    qputenv("KELVANE_FLUKE702_FAULTS", reply.toLatin1());
    if (!reply.isEmpty())
        log_.write(u"broken reply"_s, reply.toString());
}

void Station::endStep() {
    if (!step_.isEmpty() && fault_.count > longestSteps_.value(step_)) {
        longestSteps_[step_] = fault_.count;
        log_.write(u"longest step"_s, QString::number(fault_.count) + u' ' + step_);
    }
    faults_ += fault_.reached ? 1 : 0;
    fault_ = {};
    step_.clear();
}

const Station::Act& Station::chooseAct() {
    int sum = 0;
    for (const auto& act : acts)
        sum += act.leastLevel <= level_ ? act.weight : 0;
    int chosen = below(sum);
    for (const auto& act : acts) {
        chosen -= act.leastLevel <= level_ ? act.weight : 0;
        if (chosen < 0)
            return act;
    }
    return acts[0];
}

void Station::carryOut(const Act& act) {
    const auto name = QString::fromLatin1(act.name);
    log_.write(u"act"_s, name);
    if (act.faults != Faults::bySteps)
        planFault(name, act.faults);
    (this->*act.work)();
    endStep();
    log_.write(u"end"_s,
               u"%1 %2 %3 %4"_s.arg(QString::number(figures_.count), QString::number(figures_.longest),
                                    QString::number(faults_), name));
    figures_ = {};
    faults_ = 0;
    if (QFileInfo(u"errors.log"_s).size() > maxLogSize)
        QFile::remove(u"errors.log"_s);
}

int Station::run() {
    while (QDateTime::currentMSecsSinceEpoch() < options_.until) {
        if (!ensureLogin())
            return 3;
        carryOut(chooseAct());
    }
    log_.write(u"stop"_s);
    return 0;
}

int Station::finish() {
    constexpr int maxAttempts = 5;
    log_.write(u"finishing"_s);
    for (int attempt = 0; attempt < maxAttempts && pendingRound(); ++attempt) {
        if (!ensureLogin())
            return 3;
        upload();
    }
    if (!ensureLogin())
        return 3;
    for (int attempt = 0; attempt < maxAttempts && !unfinishedResults(session_).isEmpty(); ++attempt)
        finishResults();
    for (const auto& result : unfinishedResults(session_))
        log_.write(u"left"_s, result.asset + u' ' + result.date + u' ' + result.why);
    download();
    logInAgain();
    const bool isDone = !pendingRound() && operator_.hasDownloaded;
    log_.write(u"finished"_s, isDone ? u"all"_s : u"not all"_s);
    return isDone ? 0 : 4;
}

void Station::logInAgain() {
    logOut();
    ensureLogin();
}

/// No other station and no process before has used the number.
int Station::beginEdit(const QString& subject, bool removes) {
    const int edit = options_.station + maxStations * ++edits_;
    log_.write(u"edit"_s, Edits::lineOf(edit, removes, subject));
    return edit;
}

void Station::endEdit(int edit, bool isSaved) {
    if (isSaved)
        log_.write(u"edited"_s, QString::number(edit));
}

void Station::finishResults() {
    for (const auto& result : unfinishedResults(session_)) {
        planFault(u"finish a result"_s);
        const auto moment = worksheetMoment(beginEdit(u"moment"_s));
        operator_.answer = [&](const DialogQuestion& question) { return answerMoment(question, moment); };
        const auto outcome = makeRecordOf(session_, result.id);
        log_.write(u"finish"_s, result.asset + u' ' + result.date + u' ' + outcome.message);
    }
    operator_.answer = {};
}

/// The answer to a question for a date or a time; nothing for another one.
std::optional<QString> Station::answerMoment(const DialogQuestion& question, const QDateTime& moment) const {
    if (FieldKind{question.fieldType} == FieldKind::date)
        return formatMoment({moment.date(), moment.time()}, session_.SessionDateFormat);
    if (FieldKind{question.fieldType} == FieldKind::time)
        return moment.toString(u"HH:mm:ss"_s);
    return {};
}

void Station::leaveRecordSetOpen() {
    Routine routine(session_, u"Station,leaveRecordSetOpen"_s);
    routine.run([&] {
        openRecordSet_ = routine.select(u"select i4201 from mt.inventory order by i4201");
        openRecordSet_->next();
    });
}

} // namespace kelvane::endure
