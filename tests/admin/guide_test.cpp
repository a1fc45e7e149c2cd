#include "admin/commands.h"
#include "tests/admin/admin_server.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString serverAddress = u"postgresql://dba@db.example.org/"_s;
/// Where the page's program is installed.
const QString installation = u"cmake --install "_s;
const QString nightly = u"15 2 * * * backup "_s;

/// The text of the administrator's page.
QString guide() {
    QFile file(QStringLiteral(KELVANE_SOURCES "/docs/administrators-guide.md"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll());
}

/// The lines of its blocks that begin with one of the programs of these tests.
QStringList commandLines() {
    static const QRegularExpression line(u"^ {4,}((?:kelvane-admin|psql|sqlite3|sudo|cmake|15 2) .*)$"_s,
                                         QRegularExpression::MultilineOption);
    QStringList lines;
    for (const auto& match : line.globalMatch(guide()))
        lines << match.captured(1);
    return lines;
}

/// The environment of a shell that finds the built programs.
QProcessEnvironment shellEnvironment() {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"PATH"_s,
                       QCoreApplication::applicationDirPath() + u':' + environment.value(u"PATH"_s));
    return environment;
}

/// Runs a line of the page in a shell without a terminal. Each question is answered with a password.
void expectSuccess(const QString& line, const QProcessEnvironment& environment = shellEnvironment()) {
    QProcess shell;
    shell.setProcessEnvironment(environment);
    shell.setProcessChannelMode(QProcess::MergedChannels);
    shell.start(u"/usr/bin/setsid"_s, {u"--wait"_s, u"/bin/sh"_s, u"-c"_s, line});
    shell.write("a password\na password\n");
    shell.closeWriteChannel();
    ASSERT_TRUE(shell.waitForFinished(120000)) << line.toStdString();
    EXPECT_EQ(shell.exitCode(), 0) << line.toStdString() << "\n" << shell.readAll().toStdString();
}

/// The line that removes the column that a line of the page adds.
QString removal(QString line) {
    return line.replace(QRegularExpression(u"add column (\\w+) .*'"_s), u"drop column \\1'"_s);
}

/// The places of the page, in a folder of the test.
QString inFolder(QString line, const QTemporaryDir& folder) {
    return line.replace(u"/srv/"_s, folder.path() + u'/')
        .replace(u"/etc/odbc.ini"_s, folder.filePath(u"odbc.ini"_s))
        .replace(u"/usr/local"_s, folder.filePath(u"usr"_s))
        .replace(u"build/release"_s, QStringLiteral(KELVANE_BUILD));
}

} // namespace

TEST(AdministratorsGuide, NamesEachCommand) {
    const auto text = commandLines().join(u'\n');
    for (const auto& command : admin::commands())
        EXPECT_TRUE(text.contains(u"kelvane-admin "_s + command.name + u' ')) << command.name.toStdString();
}

TEST(AdministratorsGuide, TheCommandsForAFolderSucceedInTheirOrder) {
    const QTemporaryDir folder;
    int count = 0;
    for (const auto& line : commandLines()) {
        if (line.contains(serverAddress) || line.startsWith(u"sudo "_s))
            continue;
        if (line.contains(u"add column"_s)) {
            const auto file = inFolder(u"/srv/kelvane/database/mt.db"_s, folder);
            expectSuccess(u"sqlite3 %1 'drop index inventory_description'"_s.arg(file));
            expectSuccess(inFolder(removal(line), folder));
        }
        expectSuccess(inFolder(line, folder));
        ++count;
    }
    EXPECT_GE(count, 10);
    for (const auto& command : {u"upgrade"_s, u"check"_s})
        expectSuccess(inFolder(u"kelvane-admin %1 /srv/kelvane/database"_s.arg(command), folder));
    QFile sources(folder.filePath(u"odbc.ini"_s));
    ASSERT_TRUE(sources.open(QIODevice::ReadOnly));
    const auto text = sources.readAll();
    EXPECT_TRUE(text.contains("Driver = SQLite3\n"));
    EXPECT_TRUE(text.contains("SSLmode = verify-full\n"));
    EXPECT_TRUE(text.contains("pqopt = sslrootcert=/etc/ssl/certs/site-ca.pem\n"));
}

namespace {

/// A server on which the page is carried out from the start, by the role that it makes.
class AdministratorsGuideOnAServer : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!server.trouble().isEmpty())
            GTEST_SKIP() << server.trouble().toStdString();
        QFile passwords(folder.filePath(u".pgpass"_s));
        ASSERT_TRUE(passwords.open(QIODevice::WriteOnly));
        passwords.write("*:*:*:*:a password\n");
        passwords.close();
        ASSERT_TRUE(passwords.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner));
    }

    /// A line of the page, for this server and this folder.
    QString here(QString line) const {
        static const QRegularExpression place(QRegularExpression::escape(serverAddress) +
                                              u"([a-z]+)(\\?sslrootcert=[^ ']*)?"_s);
        // Its own quotes around an address, and those that the server's needs.
        line.replace(QRegularExpression(u"'(postgresql:[^ ']*)'"_s), u"\\1"_s);
        for (auto match = place.match(line); match.hasMatch(); match = place.match(line))
            line.replace(match.captured(), u"'%1%2'"_s.arg(server.address(match.captured(1), u"dba"_s),
                                                           match.captured(2).replace(u'?', u'&')));
        line.replace(u"sudo -u postgres "_s,
                     u"env PGHOST='%1' PGUSER=kelvane_admin PGDATABASE=postgres "_s.arg(server.socket()));
        return inFolder(line, folder);
    }
    /// Whoever carries out the page's lines.
    QProcessEnvironment administrator() const {
        auto environment = shellEnvironment();
        environment.insert(u"HOME"_s, folder.path());
        return environment;
    }
    /// Carries out a line as cron does.
    void expectSuccessAtNight(QString line) const {
        QProcessEnvironment environment;
        environment.insert(u"HOME"_s, folder.path());
        environment.insert(u"LOGNAME"_s, u"backup"_s);
        environment.insert(u"SHELL"_s, u"/bin/sh"_s);
        environment.insert(u"PATH"_s, u"/usr/bin:/bin"_s);
        // Time and user come first, and a percent sign is written with a backslash.
        expectSuccess(here(line.remove(0, nightly.size()).replace(u"\\%"_s, u"%"_s)), environment);
    }
    void carryOut(const QString& line) const {
        if (line.startsWith(nightly)) {
            expectSuccessAtNight(line);
            return;
        }
        if (line.contains(u"add column"_s))
            expectSuccess(here(removal(line)), administrator());
        expectSuccess(here(line), administrator());
    }

    QTemporaryDir folder;
    AdminServer server;
};

} // namespace

TEST_F(AdministratorsGuideOnAServer, TheCommandsForAServerSucceedInTheirOrder) {
    int count = 0;
    for (const auto& line : commandLines()) {
        if (!line.contains(serverAddress) && !line.startsWith(u"sudo "_s) && !line.startsWith(installation))
            continue;
        carryOut(line);
        ++count;
    }
    EXPECT_GE(count, 20);
    for (const auto& command : {u"upgrade"_s, u"check"_s})
        carryOut(u"kelvane-admin %1 "_s.arg(command) + serverAddress + u"kelvane"_s);
    EXPECT_EQ(server.psql(u"kelvane"_s, u"show timezone"_s), u"Europe/Berlin"_s);
    EXPECT_FALSE(QDir(folder.filePath(u"copies"_s)).isEmpty()) << "the nightly copy";
    EXPECT_EQ(server.psql(u"postgres"_s, u"select rolsuper from pg_roles where rolname = 'dba'"_s), u"f"_s);
}

TEST_F(AdministratorsGuideOnAServer, TheAdministratorSeesSessionsAndEndsThem) {
    const auto lines = commandLines();
    const auto sessions = lines.filter(u"pg_stat_activity"_s);
    ASSERT_EQ(sessions.size(), 1);
    for (const auto& line : lines.filter(u"sudo -u postgres"_s).filter(u"dba"_s))
        carryOut(line);
    carryOut(lines.filter(u"kelvane-admin make "_s + serverAddress).value(0));
    carryOut(lines.filter(u"cnguyen"_s).filter(serverAddress).value(0));

    QProcess user;
    auto environment = administrator();
    environment.insert(u"PGPASSWORD"_s, u"a password"_s);
    user.setProcessEnvironment(environment);
    user.setProcessChannelMode(QProcess::MergedChannels);
    user.start(u"psql"_s, {u"-XAt"_s, server.address(u"kelvane"_s, u"cnguyen"_s)});
    user.write("select 'here';\n");
    ASSERT_TRUE(user.waitForReadyRead(20000));
    ASSERT_EQ(user.readAll().trimmed(), "here");
    expectSuccess(here(sessions[0]) + u" | grep 'cnguyen .* idle '"_s, administrator());
    expectSuccess(here(u"psql %1kelvane --command=\"select pg_terminate_backend(pid) from pg_stat_activity "
                       "where usename = 'cnguyen'\""_s.arg(serverAddress)),
                  administrator());
    user.write("select 'still';\n");
    user.closeWriteChannel();
    ASSERT_TRUE(user.waitForFinished(20000));
    EXPECT_TRUE(user.readAll().contains("terminating connection")) << "the session has ended";
}

} // namespace kelvane::testing
