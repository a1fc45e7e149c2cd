#include "platform/database/watched_connection.h"

#include "testkit/fixtures.h"
#include "tests/platform/errors.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// A record set that fails where a test says.
class FailingRows final : public RecordSet {
  public:
    explicit FailingRows(bool failsAtNext) : failsAtNext_(failsAtNext) {}
    bool next() override {
        if (failsAtNext_)
            throw lost();
        return true;
    }
    std::optional<QString> value(int) override { throw lost(); }

  private:
    static Error lost() { return {10054, u"Connection lost"_s, u"08S01"_s, true}; }
    bool failsAtNext_;
};

/// A connection whose every step fails with that error, and whose record sets fail when they are read.
class FailingConnection final : public Connection {
  public:
    explicit FailingConnection(Error error) : error_(std::move(error)) {}
    void open(const QString&, const QString&, const QString&) override { throw error_; }
    void close() override { closed = true; }
    bool isOpen() const override { return true; }
    bool isLost() const override { return error_.connectionLost; }
    qint64 execute(const QString&) override { throw error_; }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows) override {
        if (statement.isEmpty())
            throw error_;
        return std::make_unique<FailingRows>(statement == u"at next"_s);
    }
    void beginTransaction() override { throw error_; }
    void commitTransaction() override { throw error_; }
    void rollBackTransaction() override { throw error_; }
    void lock(const QString&) override { throw error_; }
    void unlock(const QString&) override { throw error_; }
    void refuseWriting() override { throw error_; }

    static inline bool closed = false;

  private:
    Error error_;
};

using Step = void (*)(Connection&);
const Step steps[] = {
    [](Connection& connection) { connection.open({}, {}, {}); },
    [](Connection& connection) { connection.execute({}); },
    [](Connection& connection) { connection.select({}); },
    [](Connection& connection) { connection.beginTransaction(); },
    [](Connection& connection) { connection.commitTransaction(); },
    [](Connection& connection) { connection.rollBackTransaction(); },
    [](Connection& connection) { connection.lock({}); },
    [](Connection& connection) { connection.unlock({}); },
    [](Connection& connection) { connection.refuseWriting(); },
};

class WatchedConnections : public ::testing::Test {
  protected:
    std::unique_ptr<Connection> connectionFailingWith(const Error& error) {
        return watchedConnections([error] { return std::make_unique<FailingConnection>(error); },
                                  [this] { ++losses; })();
    }
    int losses = 0;
};

} // namespace

TEST_F(WatchedConnections, TellOfALossInEachStepAndPassTheFailureOn) {
    const auto connection = connectionFailingWith({10054, u"Connection lost"_s, u"08S01"_s, true});
    int expected = 0;
    for (const auto step : steps) {
        EXPECT_EQ(errorOf([&] { step(*connection); }), 10054);
        EXPECT_EQ(losses, ++expected);
    }
    EXPECT_TRUE(connection->isLost());
    EXPECT_TRUE(connection->isOpen());
}

TEST_F(WatchedConnections, SayNothingOfOtherFailures) {
    const auto connection = connectionFailingWith({208, u"no such table"_s, u"42S02"_s});
    for (const auto step : steps)
        EXPECT_EQ(errorOf([&] { step(*connection); }), 208);
    EXPECT_EQ(losses, 0);
    EXPECT_FALSE(connection->isLost());
}

TEST_F(WatchedConnections, TellOfALossWhileARecordSetIsReadAlsoBehindTheEndOfTheConnection) {
    auto connection = connectionFailingWith({208, u"no such table"_s});
    const auto atNext = connection->select(u"at next"_s);
    const auto atValue = connection->select(u"at value"_s);
    EXPECT_EQ(errorOf([&] { atNext->next(); }), 10054);
    EXPECT_EQ(losses, 1);
    connection.reset();
    EXPECT_TRUE(atValue->next());
    EXPECT_EQ(errorOf([&] { atValue->value(0); }), 10054);
    EXPECT_EQ(losses, 2);
}

TEST_F(WatchedConnections, CloseTheRealOne) {
    FailingConnection::closed = false;
    connectionFailingWith({1, u"error"_s})->close();
    EXPECT_TRUE(FailingConnection::closed);
    EXPECT_EQ(losses, 0);
}

} // namespace kelvane::testing
