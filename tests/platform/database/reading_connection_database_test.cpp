#include "platform/database/reading_connection.h"

#include "testkit/fixtures.h"
#include "testkit/logged_in_session.h"
#include "testkit/test_database.h"
#include "tests/platform/database/small_database.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class ReadingOnDatabase : public ::testing::Test {
  protected:
    QStringList prompts() {
        const auto observer = database.connect();
        return database.rows(*observer, u"select pname from mt.hvm_kv_prompts order by pname"_s);
    }

    /// True when the engine itself has refused to write, for no other reason.
    bool isRefused(const std::function<void()>& action) {
        const auto error = errorOf(action);
        if (!error)
            return false;
        return database.isShared() ? error->sqlState == u"25006"_s : error->number == 8;
    }

    TestDatabase database;
    /// An editor's: what is refused is not for want of rights.
    std::unique_ptr<Connection> connection = database.connect(users::editor);
};

/// What gets past a reader of texts that is deceived.
constexpr QLatin1StringView changes[] = {
    "delete from mt.hvm_kv_prompts"_L1,
    "delete from mt.hvm_kv_prompts;commit"_L1,
    "update mt.hvm_kv_prompts set prompt = 'x';commit"_L1,
    "insert into mt.hvm_kv_prompts (pname,prompt) values ('Z','x');commit"_L1,
};

} // namespace

TEST_F(ReadingOnDatabase, TheEngineRefusesWhatWrites) {
    const auto before = prompts();
    ASSERT_FALSE(before.isEmpty());
    connection->refuseWriting();
    for (const auto& change : changes) {
        SCOPED_TRACE(change.data());
        EXPECT_TRUE(isRefused([&] { connection->execute(change); }));
        EXPECT_EQ(prompts(), before);
    }
    EXPECT_TRUE(isRefused([&] {
        connection->beginTransaction();
        connection->execute(changes[0]);
        connection->commitTransaction();
    }));
    connection->close();
    EXPECT_EQ(prompts(), before);
}

TEST_F(ReadingOnDatabase, QueriesGoOnAsTheyDid) {
    const auto query = u"select inv.mtag,inv.i4201 from mt.inventory inv order by inv.mtag"_s;
    const auto before = database.rows(*connection, query, 2);
    connection->refuseWriting();
    EXPECT_EQ(database.rows(*connection, query, 2), before);
    EXPECT_FALSE(connection->isLost());
}

TEST_F(ReadingOnDatabase, AnotherConnectionAndTheNextOneOfTheSameMayWrite) {
    connection->refuseWriting();
    const auto other = database.connect(users::editor);
    EXPECT_FALSE(errorOf([&] { other->execute(changes[2]); }));
    connection->close();
    connection->open(database.connectionString(), users::editor, u"kelvane"_s);
    EXPECT_FALSE(errorOf([&] { connection->execute(changes[2]); }));
}

TEST_F(ReadingOnDatabase, AConnectionOfAReadingProgramIsOneOfThem) {
    Connection* opened = nullptr;
    const auto reading = readingConnections([&] {
        connection->close();
        opened = connection.get();
        return std::move(connection);
    })();
    reading->open(database.connectionString(), users::editor, u"kelvane"_s);
    EXPECT_TRUE(isRefused([&] { opened->execute(changes[0]); })) << "past what reads the texts";
    reading->close();
    reading->open(database.connectionString(), users::editor, u"kelvane"_s);
    EXPECT_TRUE(isRefused([&] { opened->execute(changes[0]); })) << "after a lost connection, too";
}

} // namespace kelvane::testing
