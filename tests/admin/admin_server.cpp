#include "tests/admin/admin_server.h"

#include "platform/database/odbc_connection.h"

#include <QCoreApplication>
#include <QProcess>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr int patience = 120000; // milliseconds

/// The output of a program that succeeds.
QString outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(patience)) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

std::unique_ptr<AdminServer> suiteServer;

} // namespace

AdminServer::AdminServer() {
    QProcess start;
    start.start(QStringLiteral(KELVANE_SOURCES "/database/postgresql/server.sh"),
                {u"start"_s, folder_.path(), u"--fast"_s});
    if (!start.waitForFinished(patience) || start.exitCode() != 0) {
        trouble_ =
            u"no server can be started: "_s + QString::fromUtf8(start.readAllStandardError()).trimmed();
        return;
    }
    socket_ = QString::fromUtf8(start.readAllStandardOutput()).trimmed();
}

AdminServer::~AdminServer() {
    if (trouble_.isEmpty())
        outputOf(QStringLiteral(KELVANE_SOURCES "/database/postgresql/server.sh"),
                 {u"stop"_s, folder_.path()});
}

QString AdminServer::address(const QString& database, const QString& user) const {
    return u"postgresql://%1@/%2?host=%3"_s.arg(user, database,
                                                QString::fromLatin1(QUrl::toPercentEncoding(socket_)));
}

QString AdminServer::psql(const QString& database, const QString& statement) const {
    return outputOf(u"psql"_s,
                    {u"-XAtq"_s, u"-v"_s, u"ON_ERROR_STOP=1"_s, u"-c"_s, statement, address(database)});
}

QByteArray AdminServer::log() const {
    QFile file(folder_.filePath(u"log"_s));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void AdminOnServer::SetUpTestSuite() {
    suiteServer = std::make_unique<AdminServer>();
    if (suiteServer->trouble().isEmpty())
        expectDone(runAdmin({u"make"_s, suiteServer->address(u"demo"_s), u"--demo"_s}));
}

void AdminOnServer::TearDownTestSuite() {
    suiteServer.reset();
}

const AdminServer& AdminOnServer::server() {
    return *suiteServer;
}

void AdminOnServer::SetUp() {
    if (!server().trouble().isEmpty())
        GTEST_SKIP() << server().trouble().toStdString();
    static int count = 0;
    database_ = u"test%1"_s.arg(++count);
    psql(u"postgres"_s, u"create database %1 template demo"_s.arg(database_));
}

void AdminOnServer::TearDown() {
    if (!database_.isEmpty())
        psql(u"postgres"_s, u"drop database if exists %1 with (force)"_s.arg(database_));
}

QString AdminOnServer::psql(const QString& database, const QString& statement) {
    return server().psql(database, statement);
}

bool AdminOnServer::takesLogin(const QString& user, const QString& password) {
    // A name is never used twice: the driver manager remembers what it has read for some seconds.
    const auto name = u"%1-%2"_s.arg(database_).arg(++sources_);
    const auto section = run(u"data-source"_s, {u"--name="_s + name});
    EXPECT_EQ(section.code, 0) << section.errors.toStdString();
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"odbc.ini"_s));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(section.output.toUtf8());
    file.close();
    qputenv("ODBCINI", QFile::encodeName(file.fileName()));
    try {
        const auto connection = odbcConnections()();
        connection->open(u"DSN="_s + name, user, password);
        return connection->isOpen();
    } catch (const Error&) {
        return false;
    }
}

} // namespace kelvane::testing
