#include "platform/database/reading_connection.h"

#include "testkit/fixtures.h"
#include "tests/platform/errors.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class Reading : public ::testing::Test {
  protected:
    RecordingConnection::Script script;
    std::unique_ptr<Connection> connection =
        readingConnections([this] { return std::make_unique<RecordingConnection>(script); })();

    double refusalOf(const QString& statement) {
        return errorOf([&] { connection->select(statement); });
    }
};

using Step = void (*)(Connection&);
constexpr Step writingSteps[] = {
    [](Connection& connection) { connection.execute(u"delete from mt.prompts;commit"_s); },
    [](Connection& connection) { connection.execute(u"select mtag from mt.inventory"_s); },
    [](Connection& connection) { connection.beginTransaction(); },
    [](Connection& connection) { connection.commitTransaction(); },
    [](Connection& connection) { connection.rollBackTransaction(); },
    [](Connection& connection) { connection.lock(u"1301"_s); },
    [](Connection& connection) { connection.unlock(u"1301"_s); },
};

} // namespace

TEST_F(Reading, RefusesWhateverWritesCommitsOrLocks) {
    for (const auto step : writingSteps)
        EXPECT_EQ(errorOf([&] { step(*connection); }), 3027);
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(script.transactions, QStringList());
}

TEST_F(Reading, TellsInPlainWordsWhatItRefuses) {
    try {
        connection->execute(u"delete from mt.prompts"_s);
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.description, u"This program only reads the database; nothing was written."_s);
        EXPECT_FALSE(error.connectionLost);
    }
}

TEST_F(Reading, PassesQueriesOnAsTheyAre) {
    const QStringList queries{
        u"select mtag from MT.inventory where i4201 = 'a; delete from b -- \"c''s\"'"_s,
        u"SELECT count(*) from mt.standards"_s,
        u"select a.set,\"update\",b.delete from mt.a where c in (select d from mt.e)"_s,
        u"select updated,inserted from mt.settings"_s,
    };
    for (const auto& query : queries)
        EXPECT_EQ(refusalOf(query), 0) << query.toStdString();
    EXPECT_EQ(script.statements, queries);
}

TEST_F(Reading, RefusesTextsThatAreNoSingleQuery) {
    const QStringList refused{
        QString(),
        u" "_s,
        u"-- select 1"_s,
        u"delete from mt.prompts"_s,
        u"insert into mt.a select 1"_s,
        u"update mt.a set b = 1"_s,
        u"with a as (delete from mt.b returning c) select c from a"_s,
        u"select 1;delete from mt.a"_s,
        u"select 1;"_s,
        u"select 1;commit"_s,
        u"select a into mt.b from mt.c"_s,
        u"select a from mt.b for update"_s,
        u"select a from mt.b for share"_s,
        u"select a from (update mt.b set c = 1) as d"_s,
        u"select a from (delete from mt.b) as d"_s,
        u"select 'never closed"_s,
        u"select 1 /* hidden */"_s,
        u"select 1 -- hidden"_s,
        u"(select 1)"_s,
        u"call a()"_s,
        u"pragma writable_schema = on"_s,
        u"explain select 1"_s,
    };
    for (const auto& statement : refused)
        EXPECT_EQ(refusalOf(statement), 5) << statement.toStdString();
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(Reading, OpensClosesAndKnowsItsState) {
    connection->close();
    EXPECT_FALSE(connection->isOpen());
    connection->open(u"DSN=a"_s, u"jdoe"_s, u"b"_s);
    EXPECT_TRUE(connection->isOpen());
    EXPECT_EQ(script.opened, (QStringList{u"DSN=a"_s, u"jdoe"_s, u"b"_s}));
    script.lost = true;
    EXPECT_TRUE(connection->isLost());
}

TEST_F(Reading, AsksTheEngineToRefuseWritingWheneverItOpens) {
    connection->close();
    connection->open(u"DSN=a"_s, u"jdoe"_s, u"b"_s);
    EXPECT_EQ(script.transactions, QStringList(u"refuse writing"_s));
    script.lost = true;
    connection->open(u"DSN=a"_s, u"jdoe"_s, u"b"_s);
    EXPECT_EQ(script.transactions.size(), 2);
}

TEST_F(Reading, IsNotOpenWhenTheEngineCanNotRefuseWriting) {
    connection->close();
    script.failures = {{u"refuse writing"_s, {42, u"no"_s, u"HY000"_s}}};
    EXPECT_EQ(errorOf([&] { connection->open(u"DSN=a"_s, u"jdoe"_s, u"b"_s); }), 42);
    EXPECT_FALSE(connection->isOpen());
}

TEST_F(Reading, AsksForNoMoreRowsThanItsReader) {
    connection->select(u"select 1"_s, Rows::first);
    EXPECT_EQ(script.firstRowOnly, QStringList(u"select 1"_s));
}

} // namespace kelvane::testing
