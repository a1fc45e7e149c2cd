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

/// The text of the administrator's page.
QString guide() {
    QFile file(QStringLiteral(KELVANE_SOURCES "/docs/administrators-guide.md"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll());
}

/// The lines of its blocks that begin with one of the programs of these tests.
QStringList commandLines() {
    static const QRegularExpression line(u"^ {4,}((?:kelvane-admin|psql|sqlite3|cmake|15 2) .*)$"_s,
                                         QRegularExpression::MultilineOption);
    QStringList lines;
    for (const auto& match : line.globalMatch(guide()))
        lines << match.captured(1);
    return lines;
}

/// Runs a line of the page in a shell that finds the built programs. Each question is answered with a
/// password.
void expectSuccess(const QString& line) {
    QProcess shell;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"PATH"_s,
                       QCoreApplication::applicationDirPath() + u':' + environment.value(u"PATH"_s));
    shell.setProcessEnvironment(environment);
    shell.setProcessChannelMode(QProcess::MergedChannels);
    shell.start(u"sh"_s, {u"-c"_s, line});
    shell.write("a password\n");
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
        if (line.contains(serverAddress))
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

using AdministratorsGuideOnAServer = AdminOnServer;

TEST_F(AdministratorsGuideOnAServer, TheCommandsForAServerSucceedInTheirOrder) {
    static const QRegularExpression database(QRegularExpression::escape(serverAddress) + u"([a-z]+)"_s);
    const QTemporaryDir folder;
    int count = 0;
    for (auto line : commandLines()) {
        if (!line.contains(serverAddress))
            continue;
        // A line of a crontab: time and user come first, a percent sign is written with a backslash.
        line.replace(QRegularExpression(u"^15 2 \\* \\* \\* backup "_s), QString()).replace(u"\\%"_s, u"%"_s);
        for (auto match = database.match(line); match.hasMatch(); match = database.match(line))
            line.replace(match.captured(), u'\'' + server().address(match.captured(1)) + u'\'');
        if (line.contains(u"add column"_s))
            expectSuccess(removal(line));
        expectSuccess(inFolder(line, folder));
        ++count;
    }
    EXPECT_GE(count, 12);
    for (const auto& command : {u"upgrade"_s, u"check"_s})
        expectSuccess(u"kelvane-admin %1 '%2'"_s.arg(command, server().address(u"kelvane"_s)));
    EXPECT_EQ(psql(u"kelvane"_s, u"show timezone"_s), u"Europe/Berlin"_s);
    EXPECT_FALSE(QDir(folder.filePath(u"copies"_s)).isEmpty()) << "the nightly copy";
}

} // namespace kelvane::testing
