#include "platform/database/odbc_connection.h"
#include "testkit/fixtures.h"
#include "tests/platform/database/small_database.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// A file of data sources, known to the driver manager as long as this lives.
class DataSources : public ::testing::Test {
  protected:
    void SetUp() override { qputenv("ODBCINI", folder.filePath(u"odbc.ini"_s).toUtf8()); }
    void TearDown() override { qputenv("ODBCINI", before); }
    void write(const QString& content) {
        QFile file(folder.filePath(u"odbc.ini"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content.toUtf8());
    }

    QByteArray before = qgetenv("ODBCINI");
    QTemporaryDir folder;
};

} // namespace

TEST_F(DataSources, AreListedInTheDriverManagersOrder) {
    write(
        u"[Zeta]\nDriver = SQLite3\n[Calibration Data]\nDriver = SQLite3\n[Prüfdaten 温]\nDriver = SQLite3\n"_s);
    const auto names = odbcDataSources();
    const auto first = names.indexOf(u"Zeta"_s);
    ASSERT_GE(first, 0) << names.join(u", "_s).toStdString();
    EXPECT_EQ(names.mid(first, 3), (QStringList{u"Zeta"_s, u"Calibration Data"_s, u"Prüfdaten 温"_s}));
}

TEST_F(DataSources, WithALongNameAreCutToTheBufferForNames) {
    write(u"[a name that is quite a bit longer than thirty-one characters]\nDriver = SQLite3\n"_s);
    EXPECT_TRUE(odbcDataSources().contains(u"a name that is quite a bit long"_s));
}

TEST_F(DataSources, ThatTheFileLacksAreNone) {
    EXPECT_FALSE(odbcDataSources().contains(u"Zeta"_s));
}

TEST_F(DataSources, OfOtherAlphabetsOpenByTheNameThatIsListed) {
    const SmallDatabase database;
    qputenv("ODBCINI", folder.filePath(u"odbc.ini"_s).toUtf8());
    write(u"[Prüfstand Ж]\nDriver = SQLite3\nDatabase = %1\nNoCreat = 1\n"_s.arg(
        database.file(u"kelvane.db"_s)));
    ASSERT_TRUE(odbcDataSources().contains(u"Prüfstand Ж"_s));
    const auto connection = odbcConnections()();
    connection->open(u"DSN=Prüfstand Ж"_s, u"jdoe"_s, u"kelvane"_s);
    EXPECT_TRUE(connection->isOpen());
}

} // namespace kelvane::testing
