#include "testkit/shared_database.h"

#include "platform/database/odbc_link.h"
#include "testkit/data_source.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The role that the system's user who has started the server may be without a password.
const QString administrator = u"kelvane_admin"_s;

int databases = 0;

QString serverFolder() {
    return qEnvironmentVariable("KELVANE_TEST_SERVER");
}

QString readServerFile(const QString& name) {
    QFile file(QDir(serverFolder()).filePath(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

QString addDataSourceFor(const QString& database) {
    return addDataSource({{u"Driver"_s, u"PostgreSQL Unicode"_s},
                          {u"Servername"_s, readServerFile(u"socket"_s)},
                          {u"Port"_s, u"5432"_s},
                          {u"Database"_s, database},
                          {u"UseDeclareFetch"_s, u"0"_s},
                          {u"UseServerSidePrepare"_s, u"0"_s},
                          {u"CommLog"_s, u"0"_s},
                          {u"Debug"_s, u"0"_s},
                          {u"BoolsAsChar"_s, u"0"_s},
                          {u"LFConversion"_s, u"0"_s},
                          {u"Protocol"_s, u"7.4-0"_s},
                          {u"SSLmode"_s, u"disable"_s}});
}

/// Makes and drops databases. A connection for each statement: one that stays would not survive a server that
/// a test has stopped.
void administrate(const QString& statement) {
    static QHash<QString, QString> sources;
    auto& dsn = sources[serverFolder()];
    if (dsn.isEmpty())
        dsn = addDataSourceFor(u"postgres"_s);
    OdbcLink(u"DSN="_s + dsn, administrator, {}).execute(statement);
}

} // namespace

bool usesSharedEngine() {
    return qEnvironmentVariable("KELVANE_TEST_ENGINE") == u"shared";
}

QString missingServer() {
    if (!readServerFile(u"socket"_s).isEmpty())
        return {};
    const auto reason = readServerFile(u"missing"_s);
    return reason.isEmpty() ? u"no server was started"_s : reason;
}

void runServerScript(const QString& script, const QStringList& arguments) {
    QProcess process;
    process.start(script, arguments);
    EXPECT_TRUE(process.waitForFinished(300000)) << script.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
}

SharedDatabase::SharedDatabase(const QString& source)
    : name_(u"kelvane_test_%1_%2"_s.arg(QCoreApplication::applicationPid()).arg(++databases)),
      dsn_(addDataSourceFor(name_)) {
    // Copying files takes half of the time that writing the pages to the log takes.
    administrate(u"create database %1 template kelvane_template_%2 strategy file_copy"_s.arg(name_, source));
    // The one thing that is not copied.
    administrate(
        u"revoke all on database %1 from public;grant connect on database %1 to kelvane_login"_s.arg(name_));
}

SharedDatabase::~SharedDatabase() {
    owner_.reset();
    try {
        administrate(u"drop database %1 with (force)"_s.arg(name_));
    } catch (const Error& error) {
        ADD_FAILURE() << "the database of the test stays: " << error.description.toStdString();
    }
}

std::unique_ptr<Connection> SharedDatabase::connect(const QString& user, const QString& password) const {
    auto connection = openConnections()();
    connection->open(connectionString(), user, password);
    return connection;
}

Connection& SharedDatabase::owner() const {
    if (!owner_)
        owner_ = connect(administrator, {});
    return *owner_;
}

std::unique_ptr<DriverLink> SharedDatabase::driver() const {
    return std::make_unique<OdbcLink>(connectionString(), administrator, QString());
}

void SharedDatabase::refuseConnections() const {
    administrate(u"alter database %1 allow_connections false"_s.arg(name_));
    owner_.reset();
    administrate(
        u"select pg_terminate_backend(pid, 10000) from pg_stat_activity where datname = '%1'"_s.arg(name_));
}

void SharedDatabase::allowConnections() const {
    administrate(u"alter database %1 allow_connections true"_s.arg(name_));
}

void SharedDatabase::endConnections() const {
    queryRows(owner(), u"select pg_terminate_backend(pid, 10000) from pg_stat_activity where datname = "
                       "current_database() and pid <> pg_backend_pid()"_s);
}

void SharedDatabase::crashServer() const {
    owner_.reset();
    const auto script = QStringLiteral(KELVANE_SERVER_SCRIPT);
    runServerScript(script, {u"stop"_s, serverFolder(), u"--immediate"_s});
    runServerScript(script, {u"start"_s, serverFolder()});
}

int SharedDatabase::count() {
    return databases;
}

} // namespace kelvane::testing
