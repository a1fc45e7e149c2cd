#include "platform/database/odbc_connection.h"
#include "platform/database/odbc_link.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "tests/platform/database/small_database.h"

#include <QDir>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The error of an open that has to fail and to leave the connection closed.
Error openError(const EmbeddedDatabase& database) {
    const auto connection = odbcConnections()();
    const auto error =
        errorOf([&] { connection->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s); });
    EXPECT_TRUE(error) << "the open succeeded";
    EXPECT_FALSE(connection->isOpen());
    EXPECT_FALSE(connection->isLost());
    return error.value_or(Error{});
}

void overwrite(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
}

} // namespace

TEST(Open, AttachesEveryOwnerUnderTheNameOfItsFile) {
    const SmallDatabase database;
    const auto connection = database.connect();
    connection->execute(u"insert into ABC.inventory (mtag,i4201) values ('1','A-1');commit"_s);
    EXPECT_EQ(firstColumn(*connection, u"select i4201 from abc.inventory"_s), QStringList{u"A-1"_s});
    EXPECT_EQ(firstColumn(*connection, u"select count(*) from Mt.inventory"_s), QStringList{u"0"_s});
}

TEST(Open, RefusesAWrongPasswordAndAnUnknownNameInTheSameWords) {
    const SmallDatabase database;
    for (const auto& [user, password] : {std::pair{u"jdoe"_s, u"wrong"_s},
                                         {u"nobody"_s, u"kelvane"_s},
                                         {u"jdoe"_s, u""_s},
                                         {u""_s, u""_s},
                                         {u"damaged"_s, u"not a hash"_s},
                                         {u"none"_s, u""_s},
                                         {u"jdoe' or 1=1 --"_s, u"kelvane"_s},
                                         {u"jdoe"_s, u"kelvane\0"_s},
                                         {u"jdoe"_s, u"kelvane;PWD=kelvane"_s},
                                         {u"jdoe"_s, u"}kelvane{"_s}}) {
        const auto connection = odbcConnections()();
        const auto error = errorOf([&] { connection->open(database.connectionString(), user, password); });
        ASSERT_TRUE(error) << user.toStdString();
        EXPECT_EQ(error->description, text(TextId::loginOrPasswordInvalid));
        EXPECT_EQ(error->sqlState, u"28000"_s);
        EXPECT_FALSE(connection->isOpen());
    }
}

TEST(Open, TakesNamesInAnyCaseAndPasswordsInAnyAlphabet) {
    const SmallDatabase database;
    for (const auto& [user, password] : {std::pair{u"JDOE"_s, u"kelvane"_s},
                                         {u"Jürgen"_s, u"pässwörd"_s},
                                         {u"o'hara"_s, u"it's"_s},
                                         {u"braces"_s, u"{a}b}};c"_s}})
        EXPECT_TRUE(database.EmbeddedDatabase::connect(user, password)->isOpen()) << user.toStdString();
}

TEST(Open, OfAnOpenConnectionIsError3705) {
    const SmallDatabase database;
    const auto connection = database.connect();
    const auto error =
        errorOf([&] { connection->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number, 3705);
    EXPECT_TRUE(connection->isOpen());
    EXPECT_EQ(firstColumn(*connection, u"select 1"_s), QStringList{u"1"_s});
}

TEST(Open, WorksAgainAfterACloseAndAfterAFailedOpen) {
    const SmallDatabase database;
    const auto connection = database.connect();
    connection->close();
    connection->close();
    EXPECT_FALSE(connection->isOpen());
    EXPECT_TRUE(errorOf([&] { connection->open(database.connectionString(), u"jdoe"_s, u"wrong"_s); }));
    connection->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
    EXPECT_TRUE(connection->isOpen());
}

TEST(Open, AClosedConnectionAnswersWithError3709) {
    const auto connection = odbcConnections()();
    EXPECT_FALSE(connection->isOpen());
    EXPECT_FALSE(connection->isLost());
    EXPECT_EQ(errorOf([&] { connection->execute(u"delete from t"_s); }).value().number, 3709);
    EXPECT_EQ(errorOf([&] { connection->select(u"select 1"_s); }).value().number, 3709);
}

TEST(Open, OfAnUnknownDataSourceNamesItAndKeepsTheDriverManagersState) {
    const auto connection = odbcConnections()();
    const auto error = errorOf([&] { connection->open(u"DSN=no such source"_s, u"jdoe"_s, u"secret"_s); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->sqlState, u"IM002"_s);
    EXPECT_TRUE(error->description.contains(u"DSN=no such source"_s)) << error->description.toStdString();
    EXPECT_FALSE(error->description.contains(u"secret"_s));
}

TEST(Open, OfAnOverlongConnectionStringIsAnError) {
    const auto connection = odbcConnections()();
    EXPECT_TRUE(errorOf([&] { connection->open(u"DSN=x"_s, u"jdoe"_s, QString(70000, u'x')); }));
}

TEST(Open, OfADriverThatIsNotInstalledIsAnError) {
    const EmbeddedDatabase database(QString(), {{u"Driver"_s, u"/no/such/driver.so"_s}});
    EXPECT_TRUE(openError(database).description.contains(u"driver.so"_s));
}

TEST(Open, DoesNotMakeAMissingFile) {
    const EmbeddedDatabase database{QString()};
    EXPECT_EQ(openError(database).number, 14);
    EXPECT_TRUE(QDir(database.path()).isEmpty());
}

TEST(Open, OfAFileThatIsNoDatabaseIsAnErrorThatNamesIt) {
    for (const auto& name : {u"kelvane.db"_s, u"mt.db"_s}) {
        const SmallDatabase database;
        for (const auto& side : {u"-wal"_s, u"-shm"_s})
            QFile::remove(database.file(name) + side);
        overwrite(database.file(name), QByteArray(8192, 'x'));
        const auto error = openError(database);
        EXPECT_EQ(error.number, 26);
        EXPECT_TRUE(error.description.contains(name)) << error.description.toStdString();
    }
}

TEST(Open, OfADamagedSchemaIsAnErrorThatNamesTheFile) {
    const SmallDatabase database;
    for (const auto& side : {u"-wal"_s, u"-shm"_s})
        QFile::remove(database.file(u"mt.db"_s) + side);
    QFile file(database.file(u"mt.db"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.seek(100); // the first page's own head, behind the file's
    file.write(QByteArray(2000, '\xff'));
    file.close();
    const auto error = openError(database);
    EXPECT_EQ(error.number, 11);
    EXPECT_TRUE(error.description.contains(u"mt.db"_s)) << error.description.toStdString();
}

TEST(Open, OfADatabaseWithoutAccountsIsAnErrorThatNamesTheFile) {
    const EmbeddedDatabase database{QString()};
    makeFile(database.file(u"kelvane.db"_s), {u"create table other (x)"_s});
    EXPECT_EQ(openError(database).description,
              text(TextId::fileIsNoCalibrationDatabase)
                  .arg(QFileInfo(database.file(u"kelvane.db"_s)).canonicalFilePath()));
}

TEST(Open, OfAnEmptyFileIsAnError) {
    const EmbeddedDatabase database{QString()};
    overwrite(database.file(u"kelvane.db"_s), {});
    EXPECT_EQ(openError(database).number, 26);
}

TEST(Open, OfAFileThatAnotherHoldsLockedIsError5AfterTheTimeOut) {
    for (const auto& name : {u"kelvane.db"_s, u"mt.db"_s}) {
        const SmallDatabase database({{u"Timeout"_s, u"50"_s}});
        OdbcLink other(u"Driver=SQLite3;Database="_s + database.file(name), {}, {});
        other.execute(u"pragma locking_mode = exclusive"_s);
        other.execute(u"begin exclusive"_s);
        other.execute(u"create table held (x)"_s);
        const auto error = openError(database);
        EXPECT_EQ(error.number, 5) << error.description.toStdString();
        EXPECT_TRUE(error.description.contains(name)) << error.description.toStdString();
    }
}

TEST(Open, OfAReadOnlyFileIsAnErrorThatNamesIt) {
    // The system's own administrator may write everything, so an ordinary user tries.
    constexpr uid_t nobody = 65534;
    const SmallDatabase database;
    const auto path = QFile::encodeName(database.path());
    ASSERT_EQ(::chmod(path.constData(), 0777), 0);
    for (const auto& entry : QDir(database.path()).entryInfoList(QDir::Files))
        ASSERT_EQ(::chmod(QFile::encodeName(entry.filePath()).constData(), 0666), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(database.file(u"mt.db"_s)).constData(), 0444), 0);
    const auto child = ::fork();
    if (child == 0) {
        if (::getuid() == 0 && ::setuid(nobody) != 0)
            ::_exit(100);
        const auto connection = odbcConnections()();
        const auto error = errorOf([&] {
            connection->open(u"Driver=SQLite3;Database="_s + database.file(u"kelvane.db"_s), u"jdoe"_s,
                             u"kelvane"_s);
        });
        const bool named = error && error->number == 8 && error->description.contains(u"mt.db"_s);
        if (error && !named)
            fprintf(stderr, "%s\n", qPrintable(error->description));
        ::_exit(!error ? 1 : named ? 0 : 2);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST(Open, TakesTenOwnersAndNoMore) {
    const SmallDatabase database; // three owners
    for (int more = 4; more <= 10; ++more)
        makeFile(database.file(u"owner%1.db"_s.arg(more)), {u"create table inventory (mtag text)"_s});
    EXPECT_EQ(firstColumn(*database.connect(), u"select count(*) from owner10.inventory"_s),
              QStringList{u"0"_s});
    makeFile(database.file(u"owner11.db"_s), {u"create table inventory (mtag text)"_s});
    EXPECT_EQ(
        openError(database).description,
        text(TextId::tooManyOwnerDatabases).arg(QFileInfo(database.path()).canonicalFilePath(), u"10"_s));
}

TEST(Open, WorksInAFolderWithQuotesBlanksAndSignsInItsName) {
    const SmallDatabase from;
    const EmbeddedDatabase outer{QString()};
    const auto folder = outer.file(u"it's a \"folder\" #1 50%25 ä?b&c"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    for (const auto& name : {u"kelvane.db"_s, u"mt.db"_s})
        ASSERT_TRUE(QFile::copy(from.file(name), folder + u'/' + name));
    ASSERT_TRUE(QFile::copy(from.file(u"std.db"_s), folder + u"/o'ner \"x\".db"_s));
    const EmbeddedDatabase database(QString(), {{u"Database"_s, folder + u"/kelvane.db"_s}});
    const auto connection = database.connect(u"jdoe"_s, u"kelvane"_s);
    connection->execute(u"insert into mt.inventory (mtag) values ('1');commit"_s);
    EXPECT_EQ(firstColumn(*connection, u"select count(*) from \"o'ner \"\"x\"\"\".inventory"_s),
              QStringList{u"0"_s});
}

TEST(Open, LeavesEveryFileDurableAndChecked) {
    const SmallDatabase database({{u"SyncPragma"_s, u"OFF"_s}, {u"FKSupport"_s, u"0"_s}});
    const auto connection = database.connect();
    for (const auto& schema : {u"main"_s, u"abc"_s, u"mt"_s, u"std"_s}) {
        EXPECT_EQ(firstColumn(*connection, u"pragma "_s + schema + u".synchronous"_s), QStringList{u"2"_s});
        EXPECT_EQ(firstColumn(*connection, u"pragma "_s + schema + u".journal_mode"_s),
                  QStringList{u"wal"_s});
    }
    EXPECT_EQ(firstColumn(*connection, u"pragma foreign_keys"_s), QStringList{u"1"_s});
}

} // namespace kelvane::testing
