#include "platform/database/lock_wait.h"

#include "platform/database/engine_adapter.h"
#include "platform/database/odbc_connection.h"
#include "platform/database/odbc_link.h"
#include "testkit/fixtures.h"
#include "tests/platform/database/recorded_link.h"
#include "tests/platform/database/small_database.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class LockWait : public ::testing::Test {
  protected:
    RecordedLink link;
    int waited = 0;
    std::unique_ptr<EngineAdapter> adapter = engineAdapterFor(u"SQLite"_s, [this] { ++waited; });
};

} // namespace

TEST_F(LockWait, AStatementIsTriedAgainUntilItGetsThrough) {
    link.busyTimes = 3;
    adapter->execute(link, u"delete from mt.a;commit"_s);
    EXPECT_EQ(link.statements, QStringList(4, u"delete from mt.a"_s));
    EXPECT_EQ(waited, 3);
}

TEST_F(LockWait, AQueryIsTriedAgainToo) {
    link.busyTimes = 1;
    EXPECT_TRUE(adapter->select(link, u"select 1"_s, Rows::all));
    EXPECT_EQ(link.statements.size(), 2);
}

TEST_F(LockWait, ABatchAndATransactionWaitAtTheirBeginning) {
    link.busyTimes = 1;
    adapter->execute(link, u"delete from mt.a;delete from mt.b;commit"_s);
    EXPECT_EQ(link.statements, (QStringList{u"begin immediate"_s, u"begin immediate"_s, u"delete from mt.a"_s,
                                            u"delete from mt.b"_s, u"commit"_s}));
    link.statements.clear();
    link.busyTimes = 2;
    adapter->beginTransaction(link);
    EXPECT_EQ(link.statements, QStringList(3, u"begin immediate"_s));
    EXPECT_EQ(waited, 3);
}

TEST_F(LockWait, ABatchThatHasBegunIsRolledBackAndNotTriedAgain) {
    link.failures.insert(u"delete from mt.b"_s, RecordedLink::lockedError());
    const auto error =
        errorOf([&] { adapter->execute(link, u"delete from mt.a;delete from mt.b;commit"_s); });
    EXPECT_EQ(error.value().number, 5);
    EXPECT_EQ(link.statements, (QStringList{u"begin immediate"_s, u"delete from mt.a"_s,
                                            u"delete from mt.b"_s, u"rollback"_s}));
    EXPECT_EQ(waited, 0);
}

TEST_F(LockWait, NothingButALockIsWaitedFor) {
    for (const auto& failure :
         {Error{19, u"constraint"_s, u"HY000"_s}, Error{6, u"table locked"_s, u"HY000"_s},
          Error{5, u"an error of the program itself"_s}}) {
        link.statements.clear();
        link.failures.insert(u"delete from mt.a"_s, failure);
        EXPECT_TRUE(errorOf([&] { adapter->execute(link, u"delete from mt.a;commit"_s); }));
        EXPECT_EQ(link.statements.size(), 1) << failure.description.toStdString();
    }
    EXPECT_EQ(waited, 0);
}

TEST_F(LockWait, OfARealLockTakesFiveSecondsInAllWhateverTheDataSourceSays) {
    const SmallDatabase database({{u"Timeout"_s, u"5000"_s}});
    int waits = 0;
    const auto connection = odbcConnections([&] { ++waits; })();
    connection->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
    OdbcLink other(u"Driver=SQLite3;Database="_s + database.file(u"mt.db"_s), {}, {});
    other.execute(u"begin immediate"_s);
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(errorOf([&] { connection->execute(u"delete from mt.readings;commit"_s); }).value().number, 5);
    EXPECT_GE(timer.elapsed(), 5000);
    EXPECT_LT(timer.elapsed(), 7000);
    EXPECT_GE(waits, 10) << "often enough to keep the window painted";
}

TEST_F(LockWait, EndsWithTheLockAndTheStatementIsCarriedOutOnce) {
    const SmallDatabase database;
    OdbcLink other(u"Driver=SQLite3;Database="_s + database.file(u"mt.db"_s), {}, {});
    int waits = 0;
    const auto connection = odbcConnections([&] {
        if (++waits == 3)
            other.execute(u"rollback"_s);
    })();
    connection->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
    other.execute(u"begin immediate"_s);
    connection->execute(u"insert into mt.readings (note) values ('ours');commit"_s);
    EXPECT_EQ(waits, 3);
    EXPECT_EQ(firstColumn(*connection, u"select note from mt.readings"_s), QStringList{u"ours"_s});
}

} // namespace kelvane::testing
