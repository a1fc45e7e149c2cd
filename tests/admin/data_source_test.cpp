#include "admin/data_source.h"
#include "admin/failure.h"
#include "platform/database/odbc_connection.h"
#include "tests/admin/admin_program.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using admin::databaseAddress;
using admin::dataSourceSection;

namespace {

bool isRefused(const QString& address, const QString& name = u"Calibration Data"_s) {
    try {
        dataSourceSection(databaseAddress(address), name);
        return false;
    } catch (const admin::Failure&) {
        return true;
    }
}

} // namespace

TEST(DataSource, OfTheEmbeddedEngineNamesTheFileAndTheSafeSettings) {
    const auto outcome = runAdmin({u"data-source"_s, u"/srv/it's here"_s});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.errors, QString());
    EXPECT_EQ(outcome.output, u"[Calibration Data]\n"
                              "Driver = SQLite3\n"
                              "Description = Calibration database of this workstation\n"
                              "Database = /srv/it's here/kelvane.db\n"
                              "BigInt = 1\n"
                              "FKSupport = 1\n"
                              "JournalMode = WAL\n"
                              "SyncPragma = FULL\n"
                              "Timeout = 50\n"
                              "NoCreat = 1\n"_s);
}

TEST(DataSource, OfASocketNeedsNoEncryption) {
    EXPECT_EQ(dataSourceSection(databaseAddress(u"postgresql://ann@/kelvane?host=%2Fsrv%2Frun"_s), u"Test"_s),
              u"[Test]\n"
              "Driver = PostgreSQL Unicode\n"
              "Description = Calibration database of the workstations\n"
              "Servername = /srv/run\n"
              "Port = 5432\n"
              "Database = kelvane\n"
              "SSLmode = disable\n"
              "UseDeclareFetch = 0\n"
              "UseServerSidePrepare = 0\n"
              "CommLog = 0\n"
              "Debug = 0\n"
              "BoolsAsChar = 0\n"
              "LFConversion = 0\n"
              "Protocol = 7.4-0\n"_s);
}

TEST(DataSource, OfAHostVerifiesTheServer) {
    const auto usual =
        dataSourceSection(databaseAddress(u"postgresql://ann@db.example.org/kelvane"_s), u"T"_s);
    EXPECT_TRUE(usual.contains(u"\nServername = db.example.org\n"_s));
    EXPECT_TRUE(usual.contains(u"\nSSLmode = verify-full\n"_s));
    EXPECT_FALSE(usual.contains(u"ann"_s)) << "each user logs in";
    const auto own = dataSourceSection(
        databaseAddress(u"postgresql://h/kelvane?sslmode=verify-ca&sslrootcert=/etc/site.crt"_s), u"T"_s);
    EXPECT_TRUE(own.contains(u"\nSSLmode = verify-ca\n"_s));
    EXPECT_TRUE(own.contains(u"\npqopt = sslrootcert=/etc/site.crt\n"_s));
}

TEST(DataSource, NamesThatTheDriverManagerWouldNotTakeAreRefused) {
    for (const auto& name : {u""_s, u"a]b"_s, u"a;b"_s, u" a"_s, u"a "_s, u"a\nb"_s, u"a=b"_s,
                             u"123456789012345678901234567890ab"_s})
        EXPECT_TRUE(isRefused(u"/srv"_s, name)) << name.toStdString();
    EXPECT_FALSE(isRefused(u"/srv"_s, u"Bay 3, left"_s.remove(u','))) << "blanks within are fine";
    EXPECT_FALSE(isRefused(u"/srv"_s, u"1234567890123456789012345678901"_s));
}

TEST(DataSource, PathsThatTheDriverWouldCutAreRefused) {
    for (const auto& folder : {u"/srv/a;b"_s, u"/srv/{a}"_s, u"/srv/a\nb"_s})
        EXPECT_TRUE(isRefused(folder)) << folder.toStdString();
    EXPECT_FALSE(isRefused(u"/srv/ä b"_s));
}

TEST(DataSource, LeadsTheWorkstationToTheDatabase) {
    const EmbeddedDatabase database(demoDatabase());
    const auto outcome = runAdmin({u"data-source"_s, database.path(), u"--name=By Admin"_s});
    const OwnFolder folder;
    folder.write(u"odbc.ini"_s, outcome.output.toUtf8());
    const auto before = qgetenv("ODBCINI");
    qputenv("ODBCINI", QFile::encodeName(folder.path() + u"/odbc.ini"_s));
    EXPECT_TRUE(odbcDataSources().contains(u"By Admin"_s));
    const auto connection = odbcConnections()();
    connection->open(u"DSN=By Admin"_s, u"jdoe"_s, u"kelvane"_s);
    EXPECT_TRUE(connection->isOpen());
    qputenv("ODBCINI", before);
}

} // namespace kelvane::testing
