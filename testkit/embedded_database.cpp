#include "testkit/embedded_database.h"

#include "testkit/data_source.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

QString demoDatabase() {
    return qEnvironmentVariable("KELVANE_DEMO_DATABASE", QString::fromUtf8(KELVANE_TEST_DATABASE));
}

EmbeddedDatabase::EmbeddedDatabase(const QString& filesFrom, const QHash<QString, QString>& settings) {
    const QDir from(filesFrom);
    const auto names = filesFrom.isEmpty() ? QStringList() : from.entryList({u"*.db"_s}, QDir::Files);
    for (const auto& name : names)
        EXPECT_TRUE(QFile::copy(from.filePath(name), file(name))) << name.toStdString();

    QHash<QString, QString> all{{u"Driver"_s, u"SQLite3"_s},  {u"Database"_s, file(u"kelvane.db"_s)},
                                {u"BigInt"_s, u"1"_s},        {u"FKSupport"_s, u"1"_s},
                                {u"JournalMode"_s, u"WAL"_s}, {u"SyncPragma"_s, u"FULL"_s},
                                {u"Timeout"_s, u"5000"_s},    {u"NoCreat"_s, u"1"_s}};
    all.insert(settings);
    dsn_ = addDataSource(all);
}

std::unique_ptr<Connection> EmbeddedDatabase::connect(const QString& user, const QString& password) const {
    auto connection = openConnections()();
    connection->open(connectionString(), user, password);
    return connection;
}

} // namespace kelvane::testing
