#include "platform/database/embedded_locks.h"

#include "platform/database/odbc_connection.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "tests/platform/database/small_database.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString name = u"mt.1301"_s;

/// Another name with the same byte.
QString nameThatCollides() {
    const auto place = EmbeddedLocks::byteOf(name);
    for (int number = 0;; ++number) {
        const auto candidate = u"mt.x%1"_s.arg(number);
        if (EmbeddedLocks::byteOf(candidate) == place)
            return candidate;
    }
}

/// Two workstations of one process; `waiting` runs while one of them waits.
class Locks : public ::testing::Test {
  protected:
    std::unique_ptr<Connection> connect() {
        auto connection = odbcConnections([this] {
            ++waits;
            if (waiting)
                waiting();
        })();
        connection->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
        return connection;
    }
    /// Expects that the second workstation gets the lock, and without waiting.
    void expectFree(const QString& lock = name) {
        waits = 0;
        EXPECT_FALSE(errorOf([&] { second->lock(lock); }));
        EXPECT_EQ(waits, 0);
        second->unlock(lock);
    }
    QString lockFile() const { return database.file(u"kelvane.lock"_s); }

    SmallDatabase database;
    std::function<void()> waiting;
    int waits = 0;
    std::unique_ptr<Connection> first = connect();
    std::unique_ptr<Connection> second = connect();
};

} // namespace

TEST_F(Locks, OneConnectionHasItAndTheOtherWaitsUntilItIsGivenBack) {
    first->lock(name);
    waiting = [&] {
        if (waits == 5)
            first->unlock(name);
    };
    EXPECT_FALSE(errorOf([&] { second->lock(name); }));
    EXPECT_EQ(waits, 5);
    second->unlock(name);
}

TEST_F(Locks, TheWaitEndsAfterFiveSecondsAndKeepsTheWindowPainted) {
    first->lock(name);
    QElapsedTimer timer;
    timer.start();
    const auto error = errorOf([&] { second->lock(name); });
    EXPECT_GE(timer.elapsed(), 4900);
    EXPECT_LT(timer.elapsed(), 7000);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number, 70);
    EXPECT_EQ(error->description, text(TextId::lockHeldElsewhere).arg(name));
    EXPECT_FALSE(error->connectionLost);
    EXPECT_GE(waits, 100);
    EXPECT_FALSE(second->isLost());
    first->unlock(name);
    expectFree();
}

TEST_F(Locks, OtherNamesDoNotWait) {
    first->lock(name);
    expectFree(u"mt.1302"_s);
    expectFree(u"abc.1301"_s);
}

TEST_F(Locks, StatementsOfOtherWorkstationsDoNotWait) {
    first->lock(name);
    second->execute(u"insert into mt.readings (note) values ('note');commit"_s);
    EXPECT_EQ(waits, 0);
}

TEST_F(Locks, NamesThatShareAByteWaitForEachOther) {
    const auto other = nameThatCollides();
    first->lock(other);
    waiting = [&] { first->unlock(other); };
    second->lock(name);
    EXPECT_EQ(waits, 1);
    second->unlock(name);
}

TEST_F(Locks, NamesThatShareAByteDoNotKeepTheirOwnWorkstationOut) {
    const auto other = nameThatCollides();
    first->lock(name);
    EXPECT_FALSE(errorOf([&] { first->lock(other); }));
    EXPECT_EQ(waits, 0);
    first->unlock(other);
    waiting = [&] { first->unlock(name); };
    second->lock(name);
    EXPECT_EQ(waits, 1) << "the first lock stayed when the second one went";
    second->unlock(name);
}

TEST_F(Locks, ALockThatIsTakenTwiceIsGivenBackTwice) {
    first->lock(name);
    first->lock(name);
    first->unlock(name);
    waiting = [&] { first->unlock(name); };
    second->lock(name);
    EXPECT_EQ(waits, 1);
    second->unlock(name);
    second->unlock(name); // does nothing
    expectFree();
}

TEST_F(Locks, EndWithTheConnection) {
    first->lock(name);
    first->close();
    expectFree();
    first->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
    first->lock(name);
    first.reset();
    expectFree();
}

TEST_F(Locks, EndWithAProcessThatIsKilled) {
    // The child makes its own connection: what it inherits it would share.
    first.reset();
    second.reset();
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const auto child = ::fork();
    if (child == 0) {
        const auto connection = database.connect();
        connection->lock(name);
        connection->execute(u"insert into mt.readings (note) values ('of the child');commit"_s);
        [[maybe_unused]] const auto written = ::write(ready[1], "x", 1);
        while (true)
            ::pause();
    }
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    ::close(ready[0]);
    ::close(ready[1]);
    second = connect();
    waiting = [&] {
        if (waits != 3)
            return;
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
    };
    EXPECT_FALSE(errorOf([&] { second->lock(name); }));
    EXPECT_EQ(waits, 3);
    EXPECT_EQ(firstColumn(*second, u"select note from mt.readings"_s), QStringList{u"of the child"_s});
    second->unlock(name);
}

TEST_F(Locks, TheirFileIsEmptyAndOpenToThoseWhoMayUseTheDatabase) {
    const auto rights =
        QFile::Permissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup);
    ASSERT_TRUE(QFile::setPermissions(database.file(u"kelvane.db"_s), rights));
    EXPECT_FALSE(QFile::exists(lockFile())) << "nobody has recorded anything yet";
    first->lock(name);
    EXPECT_EQ(QFileInfo(lockFile()).size(), 0);
    for (const auto right : {QFile::ReadOwner, QFile::WriteOwner, QFile::ReadGroup, QFile::WriteGroup})
        EXPECT_TRUE(QFile::permissions(lockFile()).testFlag(right));
    EXPECT_FALSE(QFile::permissions(lockFile()).testFlag(QFile::ReadOther));
}

TEST_F(Locks, AFileThatCanNotBeMadeIsAClearError) {
    ASSERT_TRUE(QDir().mkdir(lockFile()));
    const auto error = errorOf([&] { first->lock(name); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number, 75);
    EXPECT_TRUE(error->description.startsWith(u"The lock file \""_s));
    EXPECT_TRUE(error->description.contains(u"kelvane.lock\" cannot be made or used: "_s));
    EXPECT_FALSE(first->isLost());
    ASSERT_TRUE(QDir().rmdir(lockFile()));
    EXPECT_FALSE(errorOf([&] { first->lock(name); })) << "it can be made now";
}

TEST_F(Locks, WithoutItsFileThereIsNoStatementUnderALockAnyMore) {
    first->lock(name);
    ASSERT_TRUE(QFile::remove(lockFile()));
    expectFree(); // in a new file
    const auto error =
        errorOf([&] { first->execute(u"insert into mt.readings (note) values ('note');commit"_s); });
    ASSERT_TRUE(error) << "two workstations would write at once";
    EXPECT_TRUE(error->connectionLost);
    EXPECT_TRUE(error->description.contains(u"kelvane.lock"_s));
    EXPECT_FALSE(errorOf([&] { first->unlock(name); }));
    first->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
    first->lock(name);
}

TEST_F(Locks, ADatabaseThatGoesWhileOneWaitsEndsTheWait) {
    first->lock(name);
    waiting = [&] {
        if (waits == 2)
            QFile::remove(database.file(u"mt.db"_s));
    };
    const auto error = errorOf([&] { second->lock(name); });
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->connectionLost);
    EXPECT_EQ(waits, 2);
    EXPECT_FALSE(errorOf([&] { first->unlock(name); })) << "also where the database has gone";
}

TEST_F(Locks, ThereIsNoneWithoutAConnection) {
    first->close();
    EXPECT_EQ(errorOf([&] { first->lock(name); }).value().number, 3709);
}

} // namespace kelvane::testing
