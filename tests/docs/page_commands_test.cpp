#include "simulators/fluke702/memory.h"
#include "simulators/torquestar/memory_file.h"
#include "testkit/embedded_database.h"
#include "testkit/fixtures.h"
#include "tests/docs/pages.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QRegularExpression>

#include <algorithm>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString readme = u"README.md"_s;
const QString records = u"docs/records.md"_s;
const QString security = u"docs/SECURITY.md"_s;
const QString workstations = u"docs/workstations.md"_s;
const QString techniciansGuide = u"docs/technicians-guide.md"_s;
const QStringList pages{readme, records, security, workstations, techniciansGuide};

/// What a test can't run, by the beginning of its lines.
struct Unrunnable {
    QString beginning;
    QString reason;
};

const QList<Unrunnable>& unrunnables() {
    static const QString packages =
        u"./run package installs and removes the packages in a root of their own"_s;
    static const QString machine = u"it changes the machine"_s;
    static const QString builds = u"it builds, or runs the tests themselves"_s;
    static const QList<Unrunnable> list{
        {u"sudo apt install "_s, packages},
        {u"apt-get install "_s, packages},
        {u"dpkg-query "_s, packages},
        {u"adduser "_s, machine},
        {u"sudo ldconfig"_s, machine},
        {u"sudo cp libdpclnk.so "_s, u"the libraries belong to the makers of the calibrators"_s},
        {u"cat >/etc/postgresql/"_s, machine},
        {u"echo 'hostssl "_s, machine},
        {u"systemctl "_s, machine},
        {u"ls /dev/serial/by-id"_s, u"it needs a serial adapter"_s},
        {u"./run"_s, builds},
        {u"./test"_s, builds},
        {u"./endure"_s, builds},
    };
    return list;
}

/// The lines of the administrator's page, whose blocks are indented; texts of files are left out.
QStringList administratorsLines() {
    static const QRegularExpression line(u"^ {4,}(\\S.*)$"_s, QRegularExpression::MultilineOption);
    QStringList lines;
    bool isFile = false;
    for (const auto& match : line.globalMatch(textOfPage(u"docs/administrators-guide.md"_s))) {
        if (!isFile)
            lines << match.captured(1);
        isFile = match.captured(1).endsWith(u"<<END") || (isFile && match.captured(1) != u"END");
    }
    return lines;
}

bool isUnrunnable(const QString& line) {
    return std::ranges::any_of(unrunnables(),
                               [&](const auto& kind) { return line.startsWith(kind.beginning); });
}

/// A line that starts the workstation, and not only asks it something.
bool startsWorkstation(const QString& line) {
    const auto words = line.split(u' ');
    return words.first() == u"kelvane"_s && !words.contains(u"--help"_s) && !words.contains(u"--version"_s);
}

/// A calibrator on a line goes on until it is ended.
bool startsCalibrator(const QString& line) {
    return line.startsWith(u"kelvane-torquestar "_s);
}

/// How a line in a shell has ended. Output and errors stand in one text, as on a terminal.
struct ShellOutcome {
    int code = -1;
    QString output;
};

} // namespace

/// Runs the lines of a page in their order, for a user whose home is a folder of the test.
class PageCommands : public ::testing::Test {
  protected:
    ~PageCommands() override {
        for (const auto& calibrator : calibrators_) {
            calibrator->terminate();
            EXPECT_TRUE(calibrator->waitForFinished());
        }
    }
    QString inHome(const QString& path) const { return home_.filePath(path); }

    /// A simulated Fluke 702 that holds PT-101, in a file of the home.
    void loadCalibrator(const QString& path) const {
        ASSERT_TRUE(QFileInfo(inHome(path)).dir().mkpath(u"."_s));
        simulators::fluke702::MemoryFile(inHome(path)).use([](simulators::fluke702::Memory& memory) {
            memory.contents.strategies = {{u"5 POINT UP"_s, {0, 0.25F, 0.5F, 0.75F, 1}}};
            memory.contents.states = {{}};
            memory.contents.tasks = {{u"PT-101"_s, {}, {}, 1, 1, false, u"PT-101"_s, u"R88101"_s}};
            return true;
        });
    }
    /// A simulated torque calibrator that holds TW-101, in a file of the home.
    void loadTorqueCalibrator(const QString& path) const {
        simulators::MemoryFile(inHome(path)).use([](simulators::Memory& memory) {
            simulators::Characteristic wrench{
                .name = u"TW-101"_s, .fields = {}, .comment = {}, .results = {}};
            wrench.fields[simulators::Samples] = 1;
            memory.characteristics = {wrench};
            return true;
        });
    }
    /// A database with the demonstration data, in a folder of the home.
    void makeDatabase(const QString& path) {
        ASSERT_TRUE(QFileInfo(inHome(path)).dir().mkpath(u"."_s));
        ASSERT_EQ(run(u"cp -r '%1' '%2'"_s.arg(demoDatabase(), inHome(path))).code, 0);
    }

    ShellOutcome run(const QString& line) {
        QProcess shell;
        start(shell, line);
        if (!shell.waitForFinished(120000))
            return {-1, shell.errorString()};
        const int code = shell.exitStatus() == QProcess::NormalExit ? shell.exitCode() : -1;
        return {code, QString::fromUtf8(shell.readAll())};
    }
    /// Starts a calibrator for the rest of the page, and waits until it has told its device.
    void startCalibrator(const QString& line) {
        calibrators_.push_back(std::make_unique<QProcess>());
        auto& calibrator = *calibrators_.back();
        start(calibrator, u"exec "_s + line);
        ASSERT_TRUE(calibrator.waitForReadyRead()) << line.toStdString();
        const auto device = QString::fromUtf8(calibrator.readAll()).trimmed();
        EXPECT_TRUE(QFile::exists(device)) << device.toStdString();
    }
    void start(QProcess& shell, const QString& line) const {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"HOME"_s, home_.path());
        environment.insert(u"ODBCINI"_s, inHome(u"odbc.ini"_s));
        // Without a display the workstation ends when it has understood its command line.
        environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
        for (const auto& variable : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"XDG_CONFIG_HOME"_s,
                                     u"XDG_DATA_HOME"_s, u"XDG_STATE_HOME"_s})
            environment.remove(variable);
        environment.insert(u"PATH"_s,
                           QCoreApplication::applicationDirPath() + u':' + environment.value(u"PATH"_s));
        shell.setProcessEnvironment(environment);
        shell.setProcessChannelMode(QProcess::MergedChannels);
        shell.setWorkingDirectory(home_.path());
        shell.setStandardInputFile(QProcess::nullDevice());
        shell.start(u"bash"_s, {u"-o"_s, u"pipefail"_s, u"-c"_s, line});
    }
    /// The line with the places of this build and of the home in the place of the machine's.
    QString inPlace(QString line) const {
        return line.replace(u"/srv/"_s, home_.path() + u'/')
            .replace(u"sudo tee -a /etc/"_s, u"tee -a "_s + home_.path() + u'/')
            .replace(u"/usr/share/kelvane/database/"_s, QStringLiteral(KELVANE_SOURCES "/database/"))
            .replace(u"/usr/share/kelvane/layouts/"_s, QStringLiteral(KELVANE_SOURCES "/resources/layouts/"))
            .replace(u"build/release/bin/"_s, QString());
    }
    /// Everything that the lines of a page print.
    QString expectCommands(const QString& page) {
        QString output;
        const auto lines = shellLines(page);
        EXPECT_FALSE(lines.isEmpty()) << page.toStdString();
        for (const auto& line : lines) {
            if (isUnrunnable(line))
                continue;
            if (startsCalibrator(line)) {
                startCalibrator(inPlace(line));
                continue;
            }
            const auto outcome = run(inPlace(line));
            EXPECT_EQ(outcome.code, startsWorkstation(line) ? 1 : 0)
                << page.toStdString() << ": " << line.toStdString() << "\n"
                << outcome.output.toStdString();
            output += outcome.output;
        }
        return output;
    }

  private:
    QTemporaryDir home_;
    std::vector<std::unique_ptr<QProcess>> calibrators_;
};

TEST_F(PageCommands, OfTheReadmeSucceed) {
    loadCalibrator(u"build/workstation/fluke702.json"_s);
    EXPECT_TRUE(expectCommands(readme).contains(u"PT-101"_s));
}

TEST_F(PageCommands, OfTheRecordsPageList) {
    makeDatabase(u"kelvane/database"_s);
    ASSERT_EQ(
        run(u"kelvane-admin data-source kelvane/database >odbc.ini; echo kelvane >.kelvane-password"_s).code,
        0);
    const auto output = expectCommands(records);
    for (const auto& part :
         {u"Asset,Description,"_s, u",PRESSURE TRANSMITTER,"_s, u"PT-101,"_s, u";IN-HOUSE;"_s})
        EXPECT_TRUE(output.contains(part)) << part.toStdString();
    EXPECT_TRUE(QFile::exists(inHome(u"overdue.csv"_s)));
}

TEST_F(PageCommands, OfTheSecurityPageSucceed) {
    makeDatabase(u"kelvane/database"_s);
    EXPECT_TRUE(expectCommands(security).contains(u"jdoe"_s));
}

TEST_F(PageCommands, OfTheWorkstationsPageSucceed) {
    const auto output = expectCommands(workstations);
    EXPECT_TRUE(output.contains(u"[Calibration Data]"_s)) << "the driver manager knows the data source";
    EXPECT_TRUE(QFile::exists(inHome(u"kelvane/site/rslt_db.frm"_s)));
    EXPECT_TRUE(QFile::exists(inHome(u".local/share/kelvane/kvwrksht.rpt"_s)));
}

TEST_F(PageCommands, OfTheTechniciansGuideCarryOutAndShowARecord) {
    loadCalibrator(u".local/share/kelvane/fluke702.json"_s);
    loadTorqueCalibrator(u".local/share/kelvane/torquestar.json"_s);
    const auto database = u".local/share/kelvane/database"_s;
    makeDatabase(database);
    const auto insertion =
        u"insert into calresults (c2501, c2502, mtag, ctag) select 'a judged point', '0', mtag, ctag "
        "from calibration order by ctag desc limit 1"_s;
    ASSERT_EQ(run(u"sqlite3 '%1/mt.db' \"%2\""_s.arg(inHome(database), insertion)).code, 0);
    const auto output = expectCommands(techniciansGuide);
    EXPECT_TRUE(output.contains(u"PT-101"_s)) << output.toStdString();
    EXPECT_TRUE(output.contains(u"TW-101: 3 results taken"_s)) << output.toStdString();
    EXPECT_TRUE(output.contains(u"instrument = "_s)) << output.toStdString();
    EXPECT_TRUE(output.contains(u"a judged point"_s)) << output.toStdString();
}

TEST(PageLines, WhatATestCantRunHasItsReasonAndStandsOnAPage) {
    auto lines = administratorsLines();
    for (const auto& page : pages)
        lines += shellLines(page);
    for (const auto& kind : unrunnables()) {
        EXPECT_FALSE(kind.reason.isEmpty());
        EXPECT_TRUE(std::ranges::any_of(lines, [&](const QString& line) {
            return line.startsWith(kind.beginning);
        })) << kind.beginning.toStdString();
    }
}

TEST(PageLines, TheScriptsOfTheReadmeAreThere) {
    int count = 0;
    for (const auto& line : shellLines(readme)) {
        if (!line.startsWith(u"./"))
            continue;
        const QFileInfo script(QStringLiteral(KELVANE_SOURCES "/") + line.section(u' ', 0, 0));
        EXPECT_TRUE(script.isExecutable()) << line.toStdString();
        ++count;
    }
    EXPECT_GE(count, 4);
}

/// What begins with one of these is run by the tests of the administrator's page.
TEST(PageLines, OfTheAdministratorsGuideAreRunOrHaveAReason) {
    static const QRegularExpression isRun(u"^(kelvane-admin|psql|sqlite3|sudo -u postgres|cmake|15 2) "_s);
    const auto lines = administratorsLines();
    EXPECT_GT(lines.size(), 20);
    for (const auto& line : lines)
        EXPECT_TRUE(isUnrunnable(line) || line.contains(isRun)) << line.toStdString();
}

} // namespace kelvane::testing
