#include "testkit/embedded_database.h"

#include "platform/database/embedded_dialect.h"
#include "platform/database/odbc_connection.h"
#include "platform/database/odbc_link.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The data sources of this program, all in one file: the driver manager reads it when a connection opens.
void addDataSource(const QString& section) {
    static const QTemporaryDir folder;
    const auto path = folder.filePath(u"odbc.ini"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write(section.toUtf8());
    qputenv("ODBCINI", QFile::encodeName(path));
}

class OpenConnection final : public OdbcConnection {
  public:
    DriverLink& driver() { return link(); }
};

/// The driver below the connection when the adapter would refuse the statement; null otherwise.
DriverLink* driverFor(Connection& connection, const QString& statement) {
    auto* open = dynamic_cast<OpenConnection*>(&connection);
    if (!open)
        return nullptr;
    try {
        embeddedBatch(statement);
        return nullptr;
    } catch (const Error&) {
        return &open->driver();
    }
}

} // namespace

QString demoDatabase() {
    return qEnvironmentVariable("KELVANE_DEMO_DATABASE", QString::fromUtf8(KELVANE_TEST_DATABASE));
}

EmbeddedDatabase::EmbeddedDatabase(const QString& filesFrom, const QHash<QString, QString>& settings) {
    const QDir from(filesFrom);
    const auto names = filesFrom.isEmpty() ? QStringList() : from.entryList({u"*.db"_s}, QDir::Files);
    for (const auto& name : names)
        EXPECT_TRUE(QFile::copy(from.filePath(name), file(name))) << name.toStdString();

    // A name is never used twice: the driver manager remembers what it has read for some seconds.
    static int count = 0;
    dsn_ = u"test-%1-%2"_s.arg(QCoreApplication::applicationPid()).arg(++count);
    QHash<QString, QString> all{{u"Driver"_s, u"SQLite3"_s},  {u"Database"_s, file(u"kelvane.db"_s)},
                                {u"BigInt"_s, u"1"_s},        {u"FKSupport"_s, u"1"_s},
                                {u"JournalMode"_s, u"WAL"_s}, {u"SyncPragma"_s, u"FULL"_s},
                                {u"Timeout"_s, u"5000"_s},    {u"NoCreat"_s, u"1"_s}};
    all.insert(settings);
    auto section = u"[%1]\n"_s.arg(dsn_);
    for (auto setting = all.cbegin(); setting != all.cend(); ++setting)
        section += setting.key() + u" = "_s + setting.value() + u'\n';
    addDataSource(section);
}

std::unique_ptr<Connection> EmbeddedDatabase::connect(const QString& user, const QString& password) const {
    auto connection = openConnections()();
    connection->open(connectionString(), user, password);
    return connection;
}

ConnectionFactory openConnections() {
    return [] { return std::make_unique<OpenConnection>(); };
}

void executeAnything(Connection& connection, const QString& statement) {
    if (auto* driver = driverFor(connection, statement))
        driver->execute(statement);
    else
        connection.execute(statement);
}

QStringList queryRows(Connection& connection, const QString& query, int columns) {
    auto* driver = driverFor(connection, query);
    QStringList found;
    for (const auto rows = driver ? driver->select(query, Rows::all) : connection.select(query);
         rows->next();) {
        QStringList row;
        for (int column = 0; column < columns; ++column)
            row << rows->value(column).value_or(u"(null)"_s);
        found << row.join(u'|');
    }
    return found;
}

} // namespace kelvane::testing
