#include "platform/database/odbc_connection.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "tests/platform/database/small_database.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class MissingFiles : public ::testing::Test {
  protected:
    /// The next statement of either kind has to find the connection lost, with the file's name, and so has
    /// every one after it.
    void expectLost(const QString& name) {
        const auto error = errorOf([&] { connection->execute(insertNote); });
        ASSERT_TRUE(error) << "a record was reported as stored";
        EXPECT_TRUE(error->connectionLost);
        EXPECT_EQ(error->sqlState, u"08S01"_s);
        EXPECT_EQ(error->description, text(TextId::databaseFileReplaced)
                                          .arg(QFileInfo(database.path()).canonicalFilePath() + u'/' + name));
        EXPECT_TRUE(connection->isLost());
        EXPECT_TRUE(errorOf([&] { connection->select(u"select 1"_s); }).value().connectionLost);
    }

    const QString insertNote = u"insert into mt.readings (note) values ('note');commit"_s;
    SmallDatabase database;
    std::unique_ptr<Connection> connection = database.connect();
};

} // namespace

TEST_F(MissingFiles, ADeletedFileIsNoticedByTheNextStatement) {
    ASSERT_TRUE(QFile::remove(database.file(u"mt.db"_s)));
    expectLost(u"mt.db"_s);
}

TEST_F(MissingFiles, ADeletedFileIsNoticedByTheNextQuery) {
    ASSERT_TRUE(QFile::remove(database.file(u"std.db"_s)));
    EXPECT_TRUE(
        errorOf([&] { connection->select(u"select note from mt.readings"_s); }).value().connectionLost);
    EXPECT_TRUE(connection->isLost());
}

TEST_F(MissingFiles, TheFileOfTheAccountsCountsToo) {
    ASSERT_TRUE(QFile::remove(database.file(u"kelvane.db"_s)));
    expectLost(u"kelvane.db"_s);
}

TEST_F(MissingFiles, ADeletedFolderIsNoticed) {
    const auto path = QFileInfo(database.path()).canonicalFilePath();
    ASSERT_TRUE(QDir(database.path()).removeRecursively());
    const auto error = errorOf([&] { connection->execute(insertNote); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->connectionLost);
    EXPECT_TRUE(error->description.contains(path));
}

TEST_F(MissingFiles, AReplacedFileIsNoticedAndTheNewOneServesTheNextLogin) {
    connection->execute(insertNote);
    const SmallDatabase other;
    ASSERT_TRUE(QFile::rename(database.file(u"mt.db"_s), database.file(u"mt.old"_s)));
    ASSERT_TRUE(QFile::copy(other.file(u"mt.db"_s), database.file(u"mt.db"_s)));
    expectLost(u"mt.db"_s);
    connection->close();
    for (const auto& side : {u"mt.db-wal"_s, u"mt.db-shm"_s})
        QFile::remove(database.file(side));
    connection->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
    EXPECT_EQ(firstColumn(*connection, u"select count(*) from mt.readings"_s), QStringList{u"0"_s});
}

TEST_F(MissingFiles, AFileThatGoesDuringATransactionIsNoticedBeforeItsEnd) {
    connection->beginTransaction();
    connection->execute(insertNote);
    ASSERT_TRUE(QFile::remove(database.file(u"mt.db"_s)));
    EXPECT_TRUE(errorOf([&] { connection->commitTransaction(); }).value().connectionLost);
    EXPECT_TRUE(connection->isLost());
}

TEST_F(MissingFiles, AnUntouchedDatabaseIsNeverLost) {
    ASSERT_TRUE(QFile::rename(database.file(u"mt.db"_s), database.file(u"away"_s)));
    ASSERT_TRUE(QFile::rename(database.file(u"away"_s), database.file(u"mt.db"_s)));
    EXPECT_FALSE(errorOf([&] { connection->execute(insertNote); })) << "it is the same file again";
}

} // namespace kelvane::testing
