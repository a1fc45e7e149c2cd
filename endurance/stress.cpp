#include "endurance/stress.h"

#include "data/assets/in_use.h"
#include "endurance/act_log.h"
#include "endurance/checker.h"
#include "endurance/expected_reports.h"
#include "platform/database/odbc_connection.h"
#include "testkit/quiet_operator.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTextStream>
#include <QThread>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::endure {

namespace {

/// A station that says nothing for so long is stuck, and no statement takes so long, in milliseconds.
constexpr qint64 longestSilence = 120'000;
constexpr qint64 longestStatement = 40'000;
/// Of the work folder when something was found.
const auto findingsFile = u"/findings"_s;

qint64 present() {
    return QDateTime::currentMSecsSinceEpoch();
}

/// The leak checker itself crashes now and then at the end of a process that has loaded and left a driver
/// several times, which would look like a crash of the station. The tests look for leaks in what a station
/// runs.
QProcessEnvironment withoutLeakChecker() {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"ASAN_OPTIONS"_s, environment.value(u"ASAN_OPTIONS"_s) + u":detect_leaks=0"_s);
    return environment;
}

/// The processes of one station, one after the other.
struct StationProcess {
    int station = 0;
    QString folder;
    std::unique_ptr<QProcess> process = {};
    int kills = 0;
    bool isKilled = false;
};

class Stress {
  public:
    explicit Stress(const StressOptions& options)
        : options_(options), generator_(options.seed), site_(siteOf(options)) {}

    int run();

  private:
    bool clearWorkFolder();
    bool prepare();
    void start(StationProcess& station, qint64 until, const QStringList& further);
    void watch(StationProcess& station);
    void judgeEnd(const StationProcess& station);
    void disturbAtRandom();
    void finish();
    template <class Work>
    void withDatabase(Work work);
    void check();
    void readLogs();
    void readLog(const StationProcess& station);
    int report();
    void fault(const QString& text);

    StressOptions options_;
    std::mt19937_64 generator_;
    std::unique_ptr<Site> site_;
    std::vector<StationProcess> stations_;
    qint64 started_ = 0;
    qint64 until_ = 0;
    QMap<QString, int> counts_;
    QStringList faults_;
    qint64 statements_ = 0;
    qint64 longest_ = 0;
    QMap<QString, int> reports_;
    SiteRows before_;
    Findings findings_;
};

void Stress::fault(const QString& text) {
    if (faults_.size() < 40)
        faults_ << text;
    ++counts_[u"faults"_s];
}

/// What an earlier run has found stays, under a name with a number.
bool Stress::clearWorkFolder() {
    if (QFile::exists(options_.work + findingsFile)) {
        int number = 1;
        while (QFile::exists(u"%1.%2"_s.arg(options_.work).arg(number)))
            ++number;
        const auto kept = u"%1.%2"_s.arg(options_.work).arg(number);
        if (!QDir().rename(options_.work, kept)) {
            fault(u"%1 can't be renamed to %2"_s.arg(options_.work, kept));
            return false;
        }
        QTextStream(stdout) << "what was found before is kept in " << kept << Qt::endl;
    }
    QDir(options_.work).removeRecursively();
    QDir().mkpath(options_.work);
    return true;
}

bool Stress::prepare() {
    if (!clearWorkFolder())
        return false;
    if (const auto wrong = site_->prepare(); !wrong.isEmpty()) {
        fault(u"the database can't be prepared: "_s + wrong);
        return false;
    }
    for (int station = 0; station < options_.stations; ++station) {
        const QString folder = options_.work + u"/station-%1"_s.arg(station);
        QDir().mkpath(folder);
        QFile::copy(QStringLiteral(KELVANE_RESULT_TEMPLATE), folder + u"/rslt_db.frm"_s);
        stations_.push_back({.station = station, .folder = folder});
    }
    withDatabase([&](Session&, Connection& connection) { before_ = readSiteRows(connection); });
    return faults_.isEmpty();
}

void Stress::start(StationProcess& station, qint64 until, const QStringList& further) {
    station.isKilled = false;
    station.process = std::make_unique<QProcess>();
    station.process->setWorkingDirectory(station.folder);
    station.process->setProcessEnvironment(withoutLeakChecker());
    station.process->setStandardOutputFile(station.folder + u"/output.log"_s, QIODevice::Append);
    station.process->setStandardErrorFile(station.folder + u"/output.log"_s, QIODevice::Append);
    const auto seed = QString::number(generator_() >> 1U);
    station.process->start(QCoreApplication::applicationFilePath(),
                           QStringList{u"station"_s, u"--folder"_s, station.folder, u"--data-source"_s,
                                       QString::fromLatin1(Site::dataSource), u"--station"_s,
                                       QString::number(station.station), u"--seed"_s, seed, u"--until"_s,
                                       QString::number(until)} +
                               further);
    station.process->waitForStarted();
    ++counts_[u"processes"_s];
}

void Stress::judgeEnd(const StationProcess& station) {
    const bool hasCrashed = station.process->exitStatus() == QProcess::CrashExit;
    if (hasCrashed && !station.isKilled)
        fault(u"station %1 has crashed; see its output.log"_s.arg(station.station));
    else if (!hasCrashed && station.process->exitCode() != 0)
        fault(u"station %1 has ended with %2; see its output.log"_s.arg(station.station)
                  .arg(station.process->exitCode()));
}

/// Starts a station again that has ended before its time, and looks whether it is alive.
void Stress::watch(StationProcess& station) {
    if (station.process->state() == QProcess::NotRunning) {
        judgeEnd(station);
        start(station, until_, {u"--faults"_s});
        return;
    }
    const auto silence =
        present() - QFileInfo(ActLog::path(station.folder)).lastModified().toMSecsSinceEpoch();
    if (silence > longestSilence && present() - started_ > longestSilence) {
        fault(u"station %1 is stuck"_s.arg(station.station));
        station.isKilled = true;
        station.process->kill();
        station.process->waitForFinished();
    }
}

void Stress::disturbAtRandom() {
    // Each about once in so many steps of 50 ms.
    constexpr quint64 killEvery = 70;
    constexpr quint64 disturbEvery = 50;
    if (generator_() % killEvery == 0) {
        auto& station = stations_[generator_() % stations_.size()];
        if (station.process->state() == QProcess::Running) {
            station.isKilled = true;
            station.process->kill();
            station.process->waitForFinished();
            ++counts_[u"kills of stations"_s];
        }
    }
    if (generator_() % disturbEvery == 0) {
        const auto done = site_->disturb(generator_);
        if (!done.isEmpty())
            ++counts_[done];
        if (done.startsWith(u"server does not start"))
            fault(done);
    }
}

void Stress::finish() {
    constexpr int finishTime = 300'000;
    for (auto& station : stations_) {
        if (station.process->state() != QProcess::NotRunning &&
            !station.process->waitForFinished(static_cast<int>(longestSilence))) {
            fault(u"station %1 does not end"_s.arg(station.station));
            station.isKilled = true;
            station.process->kill();
            station.process->waitForFinished();
        }
        judgeEnd(station);
    }
    for (auto& station : stations_)
        start(station, present(), {u"--finish"_s});
    for (auto& station : stations_) {
        const bool hasEnded =
            station.process->state() == QProcess::NotRunning || station.process->waitForFinished(finishTime);
        if (!hasEnded || station.process->exitStatus() != QProcess::NormalExit ||
            station.process->exitCode() != 0)
            fault(u"station %1 can't finish (%2)"_s.arg(station.station).arg(station.process->exitCode()));
        station.process->kill();
        station.process->waitForFinished();
    }
}

/// Runs `work` with a connection to the database.
template <class Work>
void Stress::withDatabase(Work work) {
    try {
        testing::QuietOperator nobody;
        SystemClock clock;
        IniSettingsStore settings(options_.work + u"/settings.ini"_s);
        Session session({nobody, clock, settings}, odbcConnections());
        auto& connection = sharedConnection(session);
        connection.open(u"DSN="_s + QLatin1StringView(Site::dataSource), u"MT"_s, u"kelvane"_s);
        work(session, connection);
        connection.close();
    } catch (const Error& error) {
        fault(u"the database can't be read: "_s + error.description);
    }
}

void Stress::check() {
    QFile file(QStringLiteral(KELVANE_RESULT_TEMPLATE));
    if (!file.open(QIODevice::ReadOnly))
        fault(file.fileName() + u": "_s + file.errorString());
    const auto body = QString::fromUtf8(file.readAll()).trimmed().section(u'\n', -1);
    QStringList folders;
    for (const auto& station : stations_)
        folders << station.folder;
    withDatabase([&](Session& session, Connection& connection) {
        ModuleGlobals::ClearSystemTables(session);
        findings_ = Checker(connection, folders, body, before_).check();
    });
    for (const auto& found : findings_.faults)
        fault(found);
    for (const auto& found : site_->faultsOfFiles())
        fault(u"the database is damaged: "_s + found);
}

void Stress::readLog(const StationProcess& station) {
    ReportJudge judge(site_->endsConnections());
    for (const auto& line : ActLog::read(station.folder)) {
        const auto words = line.text.split(u' ');
        if (!judge.explains(line))
            fault(u"station %1, %2 ms after the start, has shown (%3): %4"_s.arg(
                QString::number(station.station), QString::number(line.moment - started_), line.kind,
                line.text));
        if (line.kind == u"end") {
            statements_ += words.value(0).toLongLong();
            longest_ = std::max(longest_, words.value(1).toLongLong());
            ++counts_[u"acts: "_s + words.sliced(3).join(u' ')];
            counts_[u"faults of statements"_s] += words.value(2).toInt();
        } else if (line.kind == u"report") {
            ++reports_[line.text.section(u" / "_s, 0, 0).left(110)];
        } else if (line.kind == u"left") {
            fault(u"station %1 has left %2"_s.arg(station.station).arg(line.text));
        } else if (line.kind == u"login" || line.kind == u"uploaded" || line.kind == u"edited") {
            ++counts_[line.kind];
        }
    }
}

void Stress::readLogs() {
    for (const auto& station : stations_)
        readLog(station);
    if (longest_ > longestStatement)
        fault(u"a statement has taken %1 ms"_s.arg(longest_));
}

int Stress::report() {
    QTextStream out(stdout);
    const double seconds = static_cast<double>(until_ - started_) / 1000;
    out << "engine " << options_.engine << ", seed " << options_.seed << ", " << options_.stations
        << " stations, " << seconds << " s\n";
    out << statements_ << " statements, " << qRound(static_cast<double>(statements_) / seconds)
        << " a second, the longest " << longest_ << " ms; " << findings_.records << " records of uploads, "
        << findings_.worksheets << " of worksheets\n";
    for (auto count = counts_.cbegin(); count != counts_.cend(); ++count)
        out << "  " << count.key() << ": " << count.value() << "\n";
    out << "reports that the stations have shown:\n";
    for (auto report = reports_.cbegin(); report != reports_.cend(); ++report)
        out << "  " << report.value() << " times: " << report.key() << "\n";
    if (faults_.isEmpty()) {
        out << "nothing was found\n";
        return 0;
    }
    out << "FOUND:\n  " << faults_.join(u"\n  ") << "\nkept in " << options_.work << "\n";
    QFile findings(options_.work + findingsFile);
    if (findings.open(QIODevice::WriteOnly))
        findings.write((faults_.join(u'\n') + u'\n').toUtf8());
    site_->keep(options_.work);
    return 1;
}

int Stress::run() {
    QTextStream(stdout) << "seed " << options_.seed << Qt::endl;
    if (!prepare())
        return report();
    started_ = present();
    until_ = started_ + qint64{1000} * options_.seconds;
    for (auto& station : stations_)
        start(station, until_, {u"--faults"_s});
    while (present() < until_) {
        QThread::msleep(50);
        QCoreApplication::processEvents();
        disturbAtRandom();
        for (auto& station : stations_)
            watch(station);
    }
    finish();
    check();
    readLogs();
    const int code = report();
    if (code == 0)
        QDir(options_.work).removeRecursively();
    return code;
}

} // namespace

int runStress(const StressOptions& options) {
    return Stress(options).run();
}

} // namespace kelvane::endure
