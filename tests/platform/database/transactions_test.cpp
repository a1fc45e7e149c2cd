#include "platform/database/odbc_connection.h"
#include "testkit/fixtures.h"
#include "tests/platform/database/recorded_link.h"
#include "tests/platform/database/small_database.h"

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class Transactions : public ::testing::Test {
  protected:
    void add(const QString& note) {
        connection->execute(u"insert into mt.unique_notes values ('"_s + note + u"');commit"_s);
    }
    QStringList notes(Connection& from) {
        return firstColumn(from, u"select note from mt.unique_notes order by note"_s);
    }
    QStringList notes() { return notes(*connection); }
    /// What another workstation sees, in a process of its own.
    int countInAnotherProcess() {
        const auto child = ::fork();
        if (child == 0) {
            // What is open here belongs to the parent.
            const auto own = odbcConnections()();
            own->open(u"Driver=SQLite3;Database="_s + database.file(u"kelvane.db"_s), u"jdoe"_s,
                      u"kelvane"_s);
            const auto count =
                firstColumn(*own, u"select count(*) from mt.unique_notes"_s).constFirst().toInt();
            ::_exit(count);
        }
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status));
        return WEXITSTATUS(status);
    }

    SmallDatabase database;
    std::unique_ptr<Connection> connection = database.connect();
};

} // namespace

TEST_F(Transactions, TakeEffectTogetherAtTheirEnd) {
    connection->beginTransaction();
    add(u"a"_s);
    connection->execute(
        u"insert into std.inventory (mtag) values ('1');insert into mt.unique_notes values ('b');commit"_s);
    EXPECT_EQ(notes(), (QStringList{u"a"_s, u"b"_s})) << "the workstation sees its own changes";
    const auto second = database.connect();
    EXPECT_EQ(notes(*second), QStringList());
    EXPECT_EQ(countInAnotherProcess(), 0);
    connection->commitTransaction();
    EXPECT_EQ(notes(*second), (QStringList{u"a"_s, u"b"_s}));
    EXPECT_EQ(firstColumn(*second, u"select mtag from std.inventory"_s), QStringList{u"1"_s});
    EXPECT_EQ(countInAnotherProcess(), 2);
}

TEST_F(Transactions, ThatAreRolledBackLeaveNothing) {
    connection->beginTransaction();
    add(u"a"_s);
    connection->execute(u"delete from mt.unique_notes;delete from std.inventory;commit"_s);
    add(u"b"_s);
    connection->rollBackTransaction();
    EXPECT_EQ(notes(), QStringList());
    add(u"c"_s);
    EXPECT_EQ(notes(*database.connect()), QStringList{u"c"_s})
        << "afterwards each statement commits by itself again";
}

TEST_F(Transactions, WithARefusedInsertLeaveWhatWasStored) {
    add(u"kept"_s);
    connection->execute(u"insert into mt.readings (note,value) values ('kept',1);commit"_s);
    connection->beginTransaction();
    connection->execute(u"delete from mt.readings;commit"_s);
    connection->execute(u"insert into mt.readings (note,value) values ('new',2);commit"_s);
    EXPECT_EQ(
        errorOf([&] { connection->execute(u"insert into mt.readings (value) values ('abc');commit"_s); })
            .value()
            .number,
        19);
    connection->rollBackTransaction();
    EXPECT_EQ(firstColumn(*database.connect(), u"select note from mt.readings"_s), QStringList{u"kept"_s});
    EXPECT_FALSE(connection->isLost());
}

TEST_F(Transactions, DoNotNestAndTheOuterOneGoesOn) {
    connection->beginTransaction();
    add(u"a"_s);
    EXPECT_TRUE(errorOf([&] { connection->beginTransaction(); }));
    add(u"b"_s);
    EXPECT_EQ(notes(*database.connect()), QStringList());
    connection->commitTransaction();
    EXPECT_EQ(notes(*database.connect()), (QStringList{u"a"_s, u"b"_s}));
}

TEST_F(Transactions, LeaveOpenRecordSetsReadable) {
    for (const auto& note : {u"1"_s, u"2"_s, u"3"_s})
        add(note);
    const auto rows = connection->select(u"select note from mt.unique_notes order by note"_s);
    ASSERT_TRUE(rows->next());
    connection->beginTransaction();
    add(u"4"_s);
    ASSERT_TRUE(rows->next());
    EXPECT_EQ(rows->value(0), u"2"_s);
    const auto within = connection->select(u"select note from mt.unique_notes order by note desc"_s);
    ASSERT_TRUE(within->next());
    connection->rollBackTransaction();
    ASSERT_TRUE(rows->next());
    EXPECT_EQ(rows->value(0), u"3"_s);
    EXPECT_EQ(within->value(0), u"4"_s);
    EXPECT_TRUE(within->next());
    connection->beginTransaction();
    connection->commitTransaction();
    EXPECT_EQ(within->value(0), u"3"_s);
    EXPECT_FALSE(rows->next());
}

TEST_F(Transactions, EndWithTheConnection) {
    connection->beginTransaction();
    add(u"a"_s);
    connection->close();
    connection->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
    EXPECT_EQ(notes(), QStringList());
    add(u"b"_s);
    EXPECT_EQ(notes(*database.connect()), QStringList{u"b"_s});
}

TEST_F(Transactions, KeepOtherWorkstationsFromWritingButNotFromReading) {
    add(u"a"_s);
    const auto second = database.connect();
    connection->beginTransaction();
    EXPECT_EQ(notes(*second), QStringList{u"a"_s});
    EXPECT_EQ(errorOf([&] { second->execute(u"delete from mt.unique_notes;commit"_s); }).value().number, 5);
    connection->rollBackTransaction();
    second->execute(u"delete from mt.unique_notes;commit"_s);
    EXPECT_EQ(notes(), QStringList());
}

TEST(TransactionsOfTheAdapter, WhoseCommitFailsAreRolledBackAndOverThen) {
    RecordedLink link;
    const auto adapter = engineAdapterFor(u"SQLite"_s);
    adapter->beginTransaction(link);
    adapter->execute(link, u"delete from mt.a;delete from mt.b;commit"_s);
    link.failures.insert(u"commit"_s, Error{13, u"disk full"_s, u"HY000"_s});
    EXPECT_EQ(errorOf([&] { adapter->commitTransaction(link); }).value().number, 13);
    adapter->rollBackTransaction(link);
    link.failures.clear();
    adapter->execute(link, u"delete from mt.a;delete from mt.b;commit"_s);
    EXPECT_EQ(link.statements,
              (QStringList{u"begin immediate"_s, u"delete from mt.a"_s, u"delete from mt.b"_s, u"commit"_s,
                           u"rollback"_s, u"begin immediate"_s, u"delete from mt.a"_s, u"delete from mt.b"_s,
                           u"commit"_s}));
}

TEST(TransactionsOfTheAdapter, ThatCanNotBeRolledBackLoseTheConnection) {
    RecordedLink link;
    const auto adapter = engineAdapterFor(u"SQLite"_s);
    adapter->beginTransaction(link);
    link.failures.insert(u"rollback"_s, Error{10, u"disk gone"_s, u"HY000"_s});
    EXPECT_TRUE(errorOf([&] { adapter->rollBackTransaction(link); }).value().connectionLost);

    // The engine has rolled back by itself already.
    adapter->beginTransaction(link);
    link.failures.insert(u"rollback"_s, Error{1, u"no transaction is active"_s, u"HY000"_s});
    EXPECT_FALSE(errorOf([&] { adapter->rollBackTransaction(link); }));
}

TEST(TransactionsOfTheAdapter, OfAnotherEngineKeepTheCommitsOfTheTexts) {
    RecordedLink link;
    const auto adapter = engineAdapterFor(u"Adaptive Server Anywhere"_s);
    adapter->beginTransaction(link);
    adapter->execute(link, u"delete from mt.a;commit"_s);
    adapter->commitTransaction(link);
    adapter->rollBackTransaction(link);
    EXPECT_EQ(link.statements, QStringList{u"delete from mt.a;commit"_s});
}

} // namespace kelvane::testing
