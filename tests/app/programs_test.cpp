#include "app/display_check.h"
#include "testkit/fixtures.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QProcess>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr int patience = 60000; // milliseconds

const QStringList programs{u"kelvane"_s,           u"kelvane-admin"_s,   u"kelvane-demo"_s,
                           u"kelvane-endure"_s,    u"kelvane-records"_s, u"kelvane-technician"_s,
                           u"kelvane-torquestar"_s};

/// How a program has ended.
struct Ending {
    int status = -1;
    QString output;
    QString errors;
};

/// Neither a display nor a choice of the platform.
QProcessEnvironment withoutDisplay() {
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const auto& name : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s})
        environment.remove(name);
    return environment;
}

QString pathOf(const QString& program) {
    return QCoreApplication::applicationDirPath() + u'/' + program;
}

Ending run(const QString& program, const QStringList& words,
           const QProcessEnvironment& environment = withoutDisplay()) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(pathOf(program), words);
    EXPECT_TRUE(process.waitForFinished(patience)) << program.toStdString();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << program.toStdString();
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

void expectOneSentence(const Ending& ending, const QString& program) {
    EXPECT_EQ(ending.output, QString());
    EXPECT_EQ(ending.errors.count(u'\n'), 1) << ending.errors.toStdString();
    EXPECT_TRUE(ending.errors.startsWith(program + u": "_s)) << ending.errors.toStdString();
}

QString sourceFile(const QString& path) {
    return QStringLiteral(KELVANE_SOURCES) + u'/' + path;
}

/// What bash says of a line in which the functions of the tree's scripts are known.
QString shellOutput(const QString& line) {
    QProcess bash;
    bash.start(u"bash"_s, {u"-euc"_s, u". \"$1\"; "_s + line, u"bash"_s, sourceFile(u"tools/setup.sh"_s)});
    EXPECT_TRUE(bash.waitForFinished(patience));
    EXPECT_EQ(bash.readAllStandardError(), "");
    return QString::fromUtf8(bash.readAllStandardOutput());
}

/// The workstation, started in a folder of its own and without a window on a display.
class StartedWorkstation : public ::testing::Test {
  protected:
    ~StartedWorkstation() override {
        process.kill();
        process.waitForFinished(patience);
    }
    void start(const QStringList& words) {
        auto environment = withoutDisplay();
        environment.insert(u"XDG_DATA_HOME"_s, folder.path() + u"/data"_s);
        environment.insert(u"XDG_CONFIG_HOME"_s, folder.path() + u"/settings"_s);
        environment.insert(u"ODBCINI"_s, folder.path() + u"/odbc.ini"_s);
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(folder.path());
        process.start(pathOf(u"kelvane"_s), QStringList{u"-platform"_s, u"offscreen"_s} + words);
    }
    /// A data source that is known, whatever it leads to.
    void nameDataSource() {
        folder.write(u"odbc.ini"_s, "[Calibration Data]\nDriver = SQLite3\nDatabase = none\n");
    }
    /// The first line of an error log, once it is there.
    QString firstLineOf(const QString& path) {
        QFile log(folder.path() + u'/' + path);
        const QDeadlineTimer deadline(patience);
        while (!deadline.hasExpired() && process.state() != QProcess::NotRunning) {
            if (log.isOpen() || log.open(QIODevice::ReadOnly)) {
                const auto line = log.peek(1000);
                if (line.contains('\n'))
                    return QString::fromUtf8(line.left(line.indexOf('\n'))).trimmed();
            }
            process.waitForFinished(20);
        }
        ADD_FAILURE() << "no line: " << process.readAllStandardError().toStdString();
        return {};
    }

    OwnFolder folder;
    QProcess process;
};

} // namespace

TEST(Programs, AnswerHelpAndVersionWithoutADisplay) {
    for (const auto& program : programs) {
        SCOPED_TRACE(program.toStdString());
        const auto help = run(program, {u"--help"_s});
        EXPECT_EQ(help.status, 0);
        EXPECT_TRUE(help.output.startsWith(u"Usage: "_s + program)) << help.output.toStdString();
        EXPECT_TRUE(help.output.contains(u"\n  --help"_s));
        EXPECT_TRUE(help.output.contains(u"\n  --version"_s));
        EXPECT_EQ(help.errors, QString());

        const auto version = run(program, {u"--version"_s});
        EXPECT_EQ(version.status, 0);
        EXPECT_EQ(version.output, program + u" "_s + QStringLiteral(KELVANE_PROJECT_VERSION) + u'\n');
        EXPECT_EQ(version.errors, QString());
    }
}

TEST(Programs, RefuseAnUnknownOptionInOneSentence) {
    for (const auto& program : programs) {
        SCOPED_TRACE(program.toStdString());
        const auto ending = run(program, {u"--colour"_s});
        EXPECT_EQ(ending.status, 2);
        expectOneSentence(ending, program);
        EXPECT_EQ(ending.errors, program + u": unknown option --colour; see "_s + program + u" --help\n"_s);
    }
}

TEST(Programs, WithAWindowSayInOneSentenceThatThereIsNoDisplay) {
    for (const auto& program : {u"kelvane"_s, u"kelvane-records"_s}) {
        const auto ending = run(program, {});
        EXPECT_EQ(ending.status, 1);
        expectOneSentence(ending, program);
        EXPECT_TRUE(ending.errors.contains(u"there is no display"_s)) << ending.errors.toStdString();
    }
}

TEST(Programs, TheWorkstationNamesADisplayThatCanNotBeOpened) {
    auto environment = withoutDisplay();
    environment.insert(u"DISPLAY"_s, u"/nowhere:0"_s);
    const auto ending = run(u"kelvane"_s, {u"KFDJ"_s}, environment);
    EXPECT_EQ(ending.status, 1);
    expectOneSentence(ending, u"kelvane"_s);
    EXPECT_TRUE(ending.errors.contains(u"the display /nowhere:0 can't be opened"_s))
        << ending.errors.toStdString();
}

TEST(Programs, TheWorkstationNamesAPlatformThatIsNotThere) {
    const auto ending = run(u"kelvane"_s, {u"-platform"_s, u"nowhere"_s});
    EXPECT_EQ(ending.status, 1);
    expectOneSentence(ending, u"kelvane"_s);
    EXPECT_TRUE(ending.errors.contains(u"no window can be opened: "_s) &&
                ending.errors.contains(u"\"nowhere\""_s))
        << ending.errors.toStdString();
}

TEST(DisplayCheck, WritesOtherMessagesWhenItIsOver) {
    ::testing::internal::CaptureStderr();
    {
        const DisplayCheck check(u"kelvane"_s);
        qWarning("a warning of the toolkit");
        EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
        ::testing::internal::CaptureStderr();
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "a warning of the toolkit\n");
}

TEST(TreeScripts, AnswerHelpAndDoNothingElse) {
    for (const auto& script : {u"run"_s, u"test"_s, u"bench"_s, u"endure"_s}) {
        QProcess process;
        process.start(sourceFile(script), {u"--help"_s});
        ASSERT_TRUE(process.waitForFinished(patience));
        EXPECT_EQ(process.exitCode(), 0);
        const auto lines = QString::fromUtf8(process.readAllStandardOutput()).split(u'\n');
        EXPECT_TRUE(lines[0].startsWith(u"Usage: ./"_s + script)) << lines[0].toStdString();
        EXPECT_GT(lines.size(), 3);
        EXPECT_EQ(process.readAllStandardError(), "");
    }
}

TEST(TreeScripts, RefuseWhatTheyDoNotUnderstand) {
    for (const auto& script : {u"run"_s, u"bench"_s, u"endure"_s}) {
        QProcess process;
        process.start(sourceFile(script), {u"--colour"_s});
        ASSERT_TRUE(process.waitForFinished(patience));
        EXPECT_EQ(process.exitCode(), 2);
        EXPECT_EQ(QString::fromUtf8(process.readAllStandardError()),
                  u"%1: --colour is not understood; see ./%1 --help\n"_s.arg(script));
        EXPECT_EQ(process.readAllStandardOutput(), "");
    }
}

TEST(TreeScripts, ALongBuildShowsAFewLinesWhereThereIsNoTerminal) {
    EXPECT_EQ(shellOutput(u"for i in $(seq 1 400); do echo \"[$i/400] Building\"; done | show_progress"_s),
              u"  10 %\n  20 %\n  30 %\n  40 %\n  50 %\n  60 %\n  70 %\n  80 %\n  90 %\n  100 %\n"_s);
    EXPECT_EQ(shellOutput(u"printf '[1/2] a\\n[2/2] b\\nninja: done\\n' | show_progress"_s), QString());
}

TEST_F(StartedWorkstation, EntersItsVersionIntoTheErrorLog) {
    start({u"--worksheets"_s, u"xKFDJx"_s});
    static const QRegularExpression line(
        uR"(^\[\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\] Kelvane %1 has started\.$)"_s.arg(
            QRegularExpression::escape(QStringLiteral(KELVANE_PROJECT_VERSION))));
    const auto written = firstLineOf(u"errors.log"_s);
    EXPECT_TRUE(line.match(written).hasMatch()) << written.toStdString();
}

TEST_F(StartedWorkstation, WithADataSourceStartsWithoutAQuestion) {
    nameDataSource();
    start({});
    // The start-up has begun when it misses the file of the site.
    const QDeadlineTimer deadline(patience);
    bool hasBegun = false;
    while (!hasBegun && !deadline.hasExpired() && !process.waitForFinished(20))
        hasBegun = QFile::exists(u"errors.log"_s) &&
                   folder.read(u"errors.log"_s).contains(u"ModuleGlobals,StartupFunctions"_s);
    EXPECT_TRUE(hasBegun);
}

TEST_F(StartedWorkstation, WithTheFoldersOfTheUserWorksInThem) {
    start({u"--user-folders"_s});
    EXPECT_TRUE(firstLineOf(u"data/kelvane/errors.log"_s).contains(u"has started"_s));
    EXPECT_FALSE(QFile::exists(folder.path() + u"/errors.log"_s));
}

TEST_F(StartedWorkstation, WithoutAPlaceForTheFoldersOfTheUserSaysSo) {
    folder.write(u"data"_s, "a file");
    start({u"--user-folders"_s});
    ASSERT_TRUE(process.waitForFinished(patience));
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(QString::fromUtf8(process.readAllStandardError()),
              u"kelvane: the folder %1/data/kelvane can't be made\n"_s.arg(folder.path()));
}

} // namespace kelvane::testing
