#include "platform/database/odbc_connection.h"
#include "testkit/fixtures.h"
#include "tests/platform/database/failing_odbc.h"
#include "tests/platform/database/small_database.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Runs `action` once without failures, then again and again with the first, the second, ... call failing.
/// `afterwards` checks the result; it gets whether the action threw.
template <class Action, class Afterwards>
void failEachCall(Action action, Afterwards afterwards) {
    failCall(-1);
    action();
    const int count = callCount();
    ASSERT_GT(count, 0);
    for (int n = 0; n < count; ++n) {
        SCOPED_TRACE(n);
        failCall(n);
        const auto error = errorOf(action);
        failCall(-1);
        afterwards(error.has_value());
    }
}

} // namespace

TEST(FailingOdbc, AnOpenFailsWholeAndTheNextOneWorks) {
    const SmallDatabase database;
    auto connection = odbcConnections()();
    int failures = 0;
    failEachCall(
        [&] {
            connection->close();
            connection->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
        },
        [&](bool failed) {
            failures += failed ? 1 : 0;
            EXPECT_EQ(connection->isOpen(), !failed);
            if (failed)
                connection->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
            EXPECT_EQ(firstColumn(*connection, u"select count(*) from std.inventory"_s), QStringList{u"0"_s});
        });
    EXPECT_GT(failures, 20) << "a failing call that goes unnoticed is one that only frees something";
}

TEST(FailingOdbc, AnOpenWithTheWrongPasswordNeverSucceeds) {
    const SmallDatabase database;
    auto connection = odbcConnections()();
    for (int n = 0; n < 60; ++n) {
        failCall(n);
        EXPECT_TRUE(errorOf([&] { connection->open(database.connectionString(), u"jdoe"_s, u"wrong"_s); }))
            << n;
        EXPECT_FALSE(connection->isOpen()) << n;
    }
    failCall(-1);
}

TEST(FailingOdbc, ATransactionIsCarriedOutWholeOrNotAtAll) {
    const SmallDatabase database;
    const auto connection = database.connect();
    failEachCall(
        [&] {
            connection->execute(u"insert into mt.readings (note) values ('a');"
                                "insert into mt.readings (note) values ('b');commit"_s);
        },
        [&](bool failed) {
            // The error of a call that has done its work already leaves a whole transaction, never half of
            // one.
            const auto count =
                firstColumn(*connection, u"select count(*) from mt.readings"_s).constFirst().toInt();
            EXPECT_EQ(count % 2, 0) << "failed: " << failed;
            connection->execute(u"insert into mt.readings (note) values ('c');"
                                "insert into mt.readings (note) values ('d');commit"_s);
        });
}

TEST(FailingOdbc, ADriverThatFailsPermanentlyInATransactionLosesTheConnectionAndNothingHalfDoneStays) {
    const SmallDatabase database;
    const auto connection = database.connect();
    const auto batch =
        u"insert into mt.readings (note) values ('a');insert into mt.readings (note) values ('b');commit"_s;
    failCall(-1);
    connection->execute(batch);
    const int count = callCount();
    int lost = 0;
    for (int n = 0; n < count; ++n) {
        SCOPED_TRACE(n);
        failFrom(n);
        const auto error = errorOf([&] { connection->execute(batch); });
        failCall(-1);
        if (error && error->connectionLost) {
            ++lost;
            EXPECT_TRUE(connection->isLost());
            EXPECT_EQ(errorOf([&] { connection->execute(batch); }).value().number, 3709);
            connection->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
        }
        EXPECT_FALSE(connection->isLost());
        EXPECT_EQ(firstColumn(*connection, u"select count(*) % 2 from mt.readings"_s), QStringList{u"0"_s});
        EXPECT_EQ(firstColumn(*database.connect(), u"select count(*) % 2 from mt.readings"_s),
                  QStringList{u"0"_s});
        EXPECT_FALSE(errorOf([&] { connection->execute(batch); }));
    }
    EXPECT_GT(lost, 0);
}

TEST(FailingOdbc, ATransactionOfSeveralTextsIsCarriedOutWholeOrNotAtAll) {
    const SmallDatabase database;
    const auto connection = database.connect();
    const auto inserts = [&] {
        connection->beginTransaction();
        try {
            connection->execute(u"insert into mt.readings (note) values ('a');commit"_s);
            connection->execute(u"insert into mt.readings (note) values ('b');commit"_s);
            connection->commitTransaction();
        } catch (const Error&) {
            connection->rollBackTransaction();
            throw;
        }
    };
    failEachCall(inserts, [&](bool) {
        ASSERT_FALSE(connection->isLost());
        const auto query = u"select count(*) % 2 from mt.readings"_s;
        EXPECT_EQ(firstColumn(*connection, query), QStringList{u"0"_s});
        EXPECT_EQ(firstColumn(*database.connect(), query), QStringList{u"0"_s});
        EXPECT_FALSE(errorOf(inserts));
    });
}

TEST(FailingOdbc, ATransactionWhoseRollBackFailsPermanentlyLosesTheConnectionAndStoresNothing) {
    const SmallDatabase database;
    const auto connection = database.connect();
    connection->beginTransaction();
    connection->execute(u"insert into mt.readings (note) values ('a');commit"_s);
    failFrom(0);
    EXPECT_TRUE(errorOf([&] { connection->commitTransaction(); }));
    EXPECT_TRUE(errorOf([&] { connection->rollBackTransaction(); }).value().connectionLost);
    failCall(-1);
    EXPECT_TRUE(connection->isLost());
    EXPECT_EQ(errorOf([&] { connection->execute(u"delete from mt.readings;commit"_s); }).value().number,
              3709);
    connection->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
    EXPECT_EQ(firstColumn(*connection, u"select count(*) from mt.readings"_s), QStringList{u"0"_s});
}

TEST(FailingOdbc, AQueryThrowsOrGivesEverything) {
    const SmallDatabase database;
    const auto connection = database.connect();
    const QString note(3000, u'x');
    connection->execute(u"insert into mt.readings (note) values ('1'),('%1'),(null);commit"_s.arg(note));
    QStringList seen;
    const auto query = u"select note from mt.readings order by id"_s;
    const QStringList all{u"1"_s, note, u"(null)"_s};
    failEachCall([&] { seen = firstColumn(*connection, query); },
                 [&](bool failed) {
                     EXPECT_TRUE(failed || seen == all);
                     EXPECT_EQ(firstColumn(*connection, query), all);
                 });
}

} // namespace kelvane::testing
