#include "platform/database/shared_adapter.h"

#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "tests/platform/database/recorded_link.h"
#include "tests/platform/database/small_database.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto twoDeletes = u"delete from mt.a;delete from mt.b;commit"_s;

Error lockNotAvailable() {
    return {1, u"canceling statement due to lock timeout"_s, u"55P03"_s};
}

const QStringList transactionBegin{
    u"begin;set local lock_timeout to 5000"_s,
    u"select pg_advisory_xact_lock(hashtextextended('kelvane transaction',0))"_s};

class SharedEngine : public ::testing::Test {
  protected:
    RecordedLink link;
    int waited = 0;
    SharedAdapter adapter{[this] {
        ++waited;
        link.failures.clear(); // the lock is free again
    }};
};

} // namespace

TEST_F(SharedEngine, KeepsItsDriverFromReadingPieceByPieceFromSavepointsAndFromALog) {
    EXPECT_EQ(adapter.driverSettings(),
              u";UseDeclareFetch=0;UseServerSidePrepare=0;CommLog=0;Debug=0;BoolsAsChar=0;LFConversion=0"
              ";Protocol=7.4-0;KeepaliveTime=30;KeepaliveInterval=10"_s);
}

TEST_F(SharedEngine, SetsItsSessionAndLooksForTheDatabase) {
    adapter.prepareSession(link, u"jdoe"_s, u"secret"_s);
    ASSERT_EQ(link.statements.size(), 2);
    EXPECT_TRUE(link.statements[0].startsWith(u"set search_path to dialect,pg_catalog,pg_temp;"_s));
    EXPECT_EQ(link.statements[1], u"select max(number) from kelvane.upgrades"_s);
}

TEST_F(SharedEngine, SaysThatTheServersDatabaseIsAnotherOne) {
    const auto query = u"select max(number) from kelvane.upgrades"_s;
    for (const auto& state : {u"3F000"_s, u"42P01"_s, u"42501"_s}) {
        link.failures = {{query, {1, u"it is not there"_s, state}}};
        const auto error = errorOf([&] { adapter.prepareSession(link, u"jdoe"_s, u"secret"_s); });
        EXPECT_EQ(error.value().description, text(TextId::serverHasNoDatabase).arg(u"it is not there"_s));
    }
    link.failures = {{query, {1, u"connection gone"_s, u"08S01"_s}}};
    const auto error = errorOf([&] { adapter.prepareSession(link, u"jdoe"_s, u"secret"_s); });
    EXPECT_EQ(error.value().description, u"connection gone"_s);
}

TEST_F(SharedEngine, ASingleStatementIsSentWithoutItsCommit) {
    link.changedRows = {{u"delete from mt.a where d < present_moment() - 90"_s, 3}};
    EXPECT_EQ(adapter.execute(link, u"delete from mt.a where d < now(*) - 90;commit"_s), 3);
    EXPECT_EQ(link.statements, QStringList{u"delete from mt.a where d < present_moment() - 90"_s});
}

TEST_F(SharedEngine, SeveralStatementsWithCommitAreOneText) {
    EXPECT_EQ(adapter.execute(link, twoDeletes), -1) << "the driver counts the first one's rows only";
    EXPECT_EQ(link.statements, QStringList{u"delete from mt.a;delete from mt.b"_s});
}

TEST_F(SharedEngine, SeveralStatementsWithoutCommitAreSentOneByOneUpToTheFirstFailure) {
    link.failAt = 1;
    EXPECT_TRUE(errorOf([&] { adapter.execute(link, u"delete from a;bogus;delete from b"_s); }));
    EXPECT_EQ(link.statements, (QStringList{u"delete from a"_s, u"bogus"_s}));
}

TEST_F(SharedEngine, ACommitAloneSendsNothing) {
    EXPECT_EQ(adapter.execute(link, u"commit"_s), 0);
    EXPECT_TRUE(link.statements.isEmpty());
}

TEST_F(SharedEngine, AStatementWaitsForALockOfAnotherWorkstation) {
    link.failures = {{u"delete from mt.a"_s, lockNotAvailable()}};
    adapter.execute(link, u"delete from mt.a;commit"_s);
    EXPECT_EQ(link.statements, QStringList(2, u"delete from mt.a"_s));
    EXPECT_EQ(waited, 1);
}

TEST_F(SharedEngine, NothingButALockIsWaitedFor) {
    link.failures = {{u"delete from mt.a"_s, {1, u"syntax error"_s, u"42601"_s}}};
    EXPECT_EQ(errorOf([&] { adapter.execute(link, u"delete from mt.a"_s); }).value().sqlState, u"42601"_s);
    EXPECT_EQ(waited, 0);
}

TEST_F(SharedEngine, WithinATransactionTheServerWaits) {
    adapter.beginTransaction(link);
    EXPECT_EQ(link.statements, transactionBegin);
    link.failures = {{u"delete from mt.a"_s, lockNotAvailable()}};
    const auto error = errorOf([&] { adapter.execute(link, u"delete from mt.a;commit"_s); });
    EXPECT_EQ(error.value().description,
              text(TextId::lockedByAnotherWorkstation).arg(u"canceling statement due to lock timeout"_s));
    EXPECT_EQ(waited, 0);
}

TEST_F(SharedEngine, ATransactionWithAFailedStatementIsNeverCommitted) {
    adapter.beginTransaction(link);
    adapter.execute(link, u"delete from mt.a;commit"_s);
    link.failures = {{u"bogus"_s, {1, u"syntax error"_s, u"42601"_s}}};
    EXPECT_TRUE(errorOf([&] { adapter.execute(link, u"bogus"_s); }));
    link.statements.clear();
    EXPECT_EQ(errorOf([&] { adapter.commitTransaction(link); }).value().description,
              text(TextId::transactionHasFailed));
    EXPECT_TRUE(link.statements.isEmpty());
    adapter.rollBackTransaction(link);
    adapter.beginTransaction(link);
    adapter.commitTransaction(link);
    EXPECT_EQ(link.statements, QStringList{u"rollback"_s} + transactionBegin + QStringList{u"commit"_s});
}

TEST_F(SharedEngine, ATransactionThatWaitsForAnotherOneInVainIsRolledBack) {
    link.failures = {{transactionBegin.last(), lockNotAvailable()}};
    const auto error = errorOf([&] { adapter.beginTransaction(link); });
    EXPECT_EQ(error.value().description,
              text(TextId::lockedByAnotherWorkstation).arg(u"canceling statement due to lock timeout"_s));
    EXPECT_EQ(link.statements, transactionBegin + QStringList{u"rollback"_s});
    EXPECT_EQ(waited, 0) << "the server waits";
}

TEST_F(SharedEngine, ASecondTransactionWithinOneIsRefused) {
    adapter.beginTransaction(link);
    EXPECT_EQ(errorOf([&] { adapter.beginTransaction(link); }).value().number, 1);
    adapter.commitTransaction(link);
    EXPECT_EQ(link.statements, transactionBegin + QStringList{u"commit"_s});
}

TEST_F(SharedEngine, NamesTheColumnOfAValueThatTheServerOnlyQuotes) {
    const auto insert = u"insert into mt.a (b,c) values ('1','x')"_s;
    const auto refused = u"invalid input syntax for type integer: \"x\""_s;
    link.failures = {{insert, {1, refused, u"22P02"_s}}};
    EXPECT_EQ(errorOf([&] { adapter.execute(link, insert + u";commit"_s); }).value().description,
              u"c: "_s + refused);
    link.failures = {{insert, {1, refused, u"42501"_s}}};
    EXPECT_EQ(errorOf([&] { adapter.execute(link, insert + u";commit"_s); }).value().description, refused);
}

TEST_F(SharedEngine, ATransactionThatCantBeRolledBackLosesTheConnection) {
    adapter.beginTransaction(link);
    link.failures = {{u"rollback"_s, {1, u"no answer"_s, u"HY000"_s}}};
    EXPECT_TRUE(errorOf([&] { adapter.rollBackTransaction(link); }).value().connectionLost);
}

TEST_F(SharedEngine, KnowsWhichErrorsMeanThatTheConnectionIsGone) {
    struct Case {
        double native;
        QString state;
        bool lost;
    };
    const Case cases[] = {
        {1, u"57P01"_s, true},  {1, u"57P02"_s, true},  {1, u"57P03"_s, true},   {1, u"57P05"_s, true},
        {1, u"25P03"_s, true},  {35, u"HY000"_s, true}, {1, u"57014"_s, false},  {1, u"55P03"_s, false},
        {1, u"42601"_s, false}, {1, u"25P02"_s, false}, {26, u"HY000"_s, false},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(adapter.isConnectionLoss({testCase.native, {}, testCase.state}), testCase.lost)
            << testCase.native << ' ' << testCase.state.toStdString();
}

TEST_F(SharedEngine, SettingsOfAKnownDriverCountFromTheFirstConnectionOn) {
    EXPECT_EQ(settingsOfDriver(u"PostgreSQL Unicode"_s), adapter.driverSettings());
    EXPECT_EQ(settingsOfDriver(u"Server /usr/lib/odbc/psqlodbcw.so"_s), adapter.driverSettings());
    EXPECT_EQ(settingsOfDriver(u"SQLite3"_s), engineAdapterFor(u"SQLite"_s)->driverSettings());
    EXPECT_EQ(settingsOfDriver(u"Adaptive Server"_s), QString());
    EXPECT_EQ(settingsOfDriver({}), QString());
}

} // namespace kelvane::testing
