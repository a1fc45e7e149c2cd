#include "platform/database/odbc_link.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "tests/platform/database/small_database.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class Statements : public ::testing::Test {
  protected:
    SmallDatabase database{{{u"Timeout"_s, u"50"_s}}};
    std::unique_ptr<Connection> connection = database.connect();

    std::optional<Error> failure(const QString& statement) {
        return errorOf([&] { connection->execute(statement); });
    }
    QString count(const QString& table) {
        return firstColumn(*connection, u"select count(*) from "_s + table).constFirst();
    }
    /// After whatever went wrong the connection has to go on.
    void expectAlive() {
        EXPECT_TRUE(connection->isOpen());
        EXPECT_FALSE(connection->isLost());
        EXPECT_EQ(firstColumn(*connection, u"select 'alive'"_s), QStringList{u"alive"_s});
    }
};

} // namespace

TEST_F(Statements, KeepTheDriversNumberStateAndText) {
    const auto error = failure(u"delete from mt.missing;commit"_s);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number, 1);
    EXPECT_EQ(error->sqlState, u"HY000"_s);
    EXPECT_TRUE(error->description.contains(u"no such table: mt.missing"_s))
        << error->description.toStdString();
    EXPECT_FALSE(error->connectionLost);
    expectAlive();
}

TEST_F(Statements, WithAParameterMarkerAreRefused) {
    for (const auto& statement :
         {u"select ?"_s, u"insert into mt.readings (note) values (?);commit"_s,
          u"select * from mt.readings where id = :id"_s, u"select 'x?' where 1 = ?"_s}) {
        EXPECT_TRUE(failure(statement)) << statement.toStdString();
        EXPECT_TRUE(errorOf([&] { connection->select(statement); })) << statement.toStdString();
    }
    expectAlive();
}

TEST_F(Statements, MayHoldQuestionMarksInTextsNamesAndComments) {
    EXPECT_EQ(firstColumn(*connection, u"select 'what?' -- why?"_s), QStringList{u"what?"_s});
    EXPECT_EQ(firstColumn(*connection, u"/* ? */ select \"a?\" from (select 1 as \"a?\")"_s),
              QStringList{u"1"_s});
}

TEST_F(Statements, WithACharacterOfCode0AreRefusedWhole) {
    connection->execute(u"insert into mt.readings (note) values ('keep');commit"_s);
    const auto error = failure(u"delete from mt.readings\0 where note = 'other';commit"_s);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->description, text(TextId::statementCharacterInvalid));
    EXPECT_EQ(count(u"mt.readings"_s), u"1"_s);
    expectAlive();
}

TEST_F(Statements, OfNothingAreRefused) {
    for (const auto& statement : {u""_s, u"   "_s, u";"_s, u"-- nothing"_s}) {
        EXPECT_EQ(failure(statement).value().description, text(TextId::statementEmpty))
            << statement.toStdString();
        EXPECT_EQ(errorOf([&] { connection->select(statement); }).value().description,
                  text(TextId::statementEmpty));
    }
    EXPECT_FALSE(failure(u"commit"_s)) << "with nothing to commit there is nothing to do";
    expectAlive();
}

TEST_F(Statements, OfAMegabyteRun) {
    const auto note = QString(1'000'000, u'y');
    connection->execute(u"insert into mt.readings (note) values ('"_s + note + u"');commit"_s);
    EXPECT_TRUE(firstColumn(*connection, u"select note from mt.readings"_s) == QStringList{note});
    EXPECT_TRUE(failure(QString(1'000'000, u'('))) << "a megabyte of parentheses";
    EXPECT_TRUE(failure(u"select abc.t.x,"_s.repeated(70'000))) << "a megabyte of columns";
    expectAlive();
}

TEST_F(Statements, WithALoneSurrogateAreRefused) {
    for (const auto& note :
         {QString(QChar(0xd83d)), QString(QChar(0xdd27)), u"a"_s + QChar(0xd83d) + u"b"_s}) {
        const auto error = failure(u"insert into mt.readings (note) values ('"_s + note + u"');commit"_s);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->description, text(TextId::statementCharacterInvalid));
    }
    EXPECT_EQ(count(u"mt.readings"_s), u"0"_s);
    expectAlive();
}

TEST_F(Statements, OfATransactionHappenTogetherOrNotAtAll) {
    connection->execute(u"insert into mt.unique_notes values ('x');commit"_s);
    const auto error = failure(
        u"insert into mt.unique_notes values ('y');insert into mt.unique_notes values ('x');commit"_s);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number, 19);
    EXPECT_EQ(count(u"mt.unique_notes"_s), u"1"_s);
    EXPECT_TRUE(failure(u"insert into mt.unique_notes values ('y');bogus;commit"_s));
    EXPECT_EQ(count(u"mt.unique_notes"_s), u"1"_s);
    connection->execute(
        u"insert into mt.unique_notes values ('y');insert into std.inventory (mtag) values ('1');commit"_s);
    EXPECT_EQ(count(u"mt.unique_notes"_s), u"2"_s);
    expectAlive();
}

TEST_F(Statements, WithoutCommitStayAsFarAsTheyCame) {
    EXPECT_TRUE(
        failure(u"insert into mt.unique_notes values ('x');insert into mt.unique_notes values ('x')"_s));
    EXPECT_EQ(firstColumn(*database.connect(), u"select count(*) from mt.unique_notes"_s),
              QStringList{u"1"_s});
}

TEST_F(Statements, OfAWrongTypeAreRefusedByTypedColumns) {
    EXPECT_EQ(failure(u"insert into mt.readings (value) values ('abc');commit"_s).value().number, 19);
    EXPECT_FALSE(failure(u"insert into mt.readings (value) values ('12.5');commit"_s));
    expectAlive();
}

TEST_F(Statements, ThatMeetAnotherWorkstationsLockAreError5AfterTheTimeOut) {
    OdbcLink other(u"Driver=SQLite3;Database="_s + database.file(u"mt.db"_s), {}, {});
    other.execute(u"begin immediate"_s);
    other.execute(u"insert into readings (note) values ('other')"_s);
    EXPECT_EQ(failure(u"insert into mt.readings (note) values ('ours');commit"_s).value().number, 5);
    EXPECT_EQ(failure(u"delete from mt.readings;delete from mt.unique_notes;commit"_s).value().number, 5);
    EXPECT_EQ(count(u"mt.readings"_s), u"0"_s) << "reading goes on";
    other.execute(u"rollback"_s);
    EXPECT_FALSE(failure(u"insert into mt.readings (note) values ('ours');commit"_s));
    EXPECT_EQ(count(u"mt.readings"_s), u"1"_s);
    expectAlive();
}

TEST_F(Statements, ThatFindTheDiskFullAreError13AndLeaveNothingHalfDone) {
    executeAnything(*connection, u"pragma mt.max_page_count = 1"_s); // as many as there are
    const auto big = QString(50'000, u'z');
    EXPECT_EQ(failure(u"insert into mt.readings (note) values ('"_s + big + u"');commit"_s).value().number,
              13);
    EXPECT_EQ(
        failure(
            u"insert into mt.readings (note) values ('small');insert into mt.readings (note) values ('"_s +
            big + u"');commit"_s)
            .value()
            .number,
        13);
    EXPECT_EQ(count(u"mt.readings"_s), u"0"_s);
    executeAnything(*connection, u"pragma mt.max_page_count = 100000"_s);
    EXPECT_FALSE(failure(u"insert into mt.readings (note) values ('"_s + big + u"');commit"_s));
    expectAlive();
}

TEST_F(Statements, FindTheConnectionLostWhenTheFileIsDestroyedAndOpenAgainOnceItIsBack) {
    connection->execute(u"insert into mt.readings (note) values ('kept');commit"_s);
    connection->close();
    QFile file(database.file(u"mt.db"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const auto content = file.readAll();
    connection->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);

    ASSERT_TRUE(file.resize(0));
    file.seek(0);
    file.write(QByteArray(content.size(), 'x'));
    file.flush();
    const auto reading = errorOf([&] { firstColumn(*connection, u"select note from mt.readings"_s); });
    ASSERT_TRUE(reading);
    EXPECT_TRUE(reading->connectionLost) << reading->number << ' ' << reading->description.toStdString();
    EXPECT_TRUE(connection->isLost());
    EXPECT_TRUE(connection->isOpen());

    const auto next = failure(u"insert into mt.readings (note) values ('lost');commit"_s);
    ASSERT_TRUE(next);
    EXPECT_EQ(next->number, 3709);
    EXPECT_TRUE(next->connectionLost);
    EXPECT_TRUE(errorOf([&] { connection->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s); }));
    EXPECT_FALSE(connection->isOpen());

    file.seek(0);
    file.write(content);
    file.flush();
    connection->open(database.connectionString(), u"jdoe"_s, u"kelvane"_s);
    EXPECT_EQ(firstColumn(*connection, u"select note from mt.readings"_s), QStringList{u"kept"_s});
    expectAlive();
}

TEST_F(Statements, OfALostConnectionMayLeaveRecordSetsBehind) {
    const auto rows = connection->select(u"select 1 union all select 2"_s);
    ASSERT_TRUE(rows->next());
    QFile file(database.file(u"mt.db"_s));
    for (const auto& side : {u"-wal"_s, u"-shm"_s})
        QFile::remove(file.fileName() + side);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(QByteArray(8192, 'x'));
    file.close();
    EXPECT_TRUE(errorOf([&] { firstColumn(*connection, u"select note from mt.readings"_s); }));
    EXPECT_EQ(rows->value(0), u"1"_s) << "what has been read already stays";
    connection.reset();
    EXPECT_EQ(errorOf([&] { rows->next(); }).value().number, 3709);
}

TEST_F(Statements, OfDaysCountInLocalTime) {
    const auto moment = [&](const QString& expression) {
        return QDateTime::fromString(firstColumn(*connection, u"select "_s + expression).constFirst(),
                                     u"yyyy-MM-dd HH:mm:ss"_s);
    };
    const auto before = QDateTime::currentDateTime().addSecs(-1);
    const auto now = moment(u"now(*)"_s);
    EXPECT_TRUE(now >= before && now <= QDateTime::currentDateTime()) << now.toString().toStdString();
    EXPECT_EQ(moment(u"now(*) - 30"_s).date(), now.date().addDays(-30));
    EXPECT_EQ(firstColumn(*connection, u"select date(now(*))"_s).constFirst().size(), 10);
    connection->execute(u"insert into mt.readings (note) values (now(*) - 31);commit"_s);
    EXPECT_EQ(firstColumn(*connection, u"select count(*) from mt.readings where note < now(*) - 30"_s),
              QStringList{u"1"_s});
    EXPECT_EQ(firstColumn(*connection, u"select count(*) from mt.readings where note < now(*) - 32"_s),
              QStringList{u"0"_s});
}

TEST_F(Statements, FindPlacesFromOneOnAndZeroForNone) {
    EXPECT_EQ(firstColumn(*connection, u"select locate('ABC','C') union all select locate('ABC','X')"_s),
              (QStringList{u"3"_s, u"0"_s}));
    EXPECT_EQ(firstColumn(*connection, u"select isnull(null,'x')"_s), QStringList{u"x"_s});
}

TEST_F(Statements, OfAGroupOwnerReadTheDueDatesOfTheStandardsOwner) {
    for (const auto& statement : {u"insert into abc.inventory values ('7','TOOL','B')"_s,
                                  u"insert into std.inventory values ('9','STD-1','A')"_s,
                                  u"insert into std.calibration values (1,'9','2026-01-31','08:00:00',1)"_s,
                                  u"insert into abc.calibration values (1,'9','1999-01-01','00:00:00',1)"_s,
                                  u"insert into std.calibration values (2,'7','1999-01-01','00:00:00',1)"_s})
        connection->execute(statement + u";commit"_s);
    const auto rows = connection->select(
        u"select i4209,(select c2303 from STD.calibration where c2339 = 1 and STD.calibration.mtag = "
        "ABC.inventory.mtag),(select c2334 from STD.calibration where c2339 = 1 and STD.calibration.mtag = "
        "ABC.inventory.mtag),(select i4209 trace from ABC.inventory where i4201 = 'TOOL') from STD.inventory "
        "where "
        "i4201 = 'STD-1'"_s,
        Rows::first);
    ASSERT_TRUE(rows->next());
    const QStringList wanted{u"A"_s, u"2026-01-31"_s, u"08:00:00"_s, u"B"_s};
    for (int column = 0; column < 4; ++column)
        EXPECT_EQ(rows->value(column), wanted[column]) << column;
}

TEST_F(Statements, OfTheFirstRowDoNotPayForTheRest) {
    executeAnything(*connection, u"create table mt.points (tp_name text, pct real)"_s);
    const auto fill = u"with recursive n(i) as (select 1 union all select i + 1 from n where i < %1) "
                      "insert into mt.points select 'strategy ' || i, i from n"_s;
    connection->execute(u"insert into mt.inventory values ('7','TOOL','B');commit"_s);
    const auto quickest = [&] {
        qint64 best = std::numeric_limits<qint64>::max();
        for (int i = 0; i < 20; ++i) {
            QElapsedTimer timer;
            timer.start();
            const auto rows = connection->select(
                u"select i4201 from mt.inventory, mt.points where i4201 = 'TOOL'"_s, Rows::first);
            EXPECT_TRUE(rows->next());
            best = std::min(best, timer.nsecsElapsed());
        }
        return best;
    };
    connection->execute(fill.arg(20));
    const auto few = quickest();
    connection->execute(fill.arg(20'000));
    EXPECT_LT(quickest(), 5 * few) << "all 20,000 rows take some hundred times as long";
}

TEST_F(Statements, GiveTheNumberOfChangedRows) {
    EXPECT_EQ(connection->execute(u"insert into mt.readings (note) values ('a'),('a'),('b');commit"_s), 3);
    EXPECT_EQ(connection->execute(u"update mt.readings set note = 'c' where note = 'a';commit"_s), 2);
    EXPECT_EQ(connection->execute(u"update mt.readings set note = 'c' where note = 'none';commit"_s), 0);
    EXPECT_EQ(connection->execute(u"delete from mt.readings where note = 'b'"_s), 1);
    // All statements of a batch together, also within a transaction.
    const auto batch = u"delete from mt.readings where note = 'c';insert into mt.readings (note) values "
                       "('d');commit"_s;
    EXPECT_EQ(connection->execute(batch), 3);
    connection->beginTransaction();
    EXPECT_EQ(connection->execute(u"update mt.readings set note = 'e' where note = 'd';commit"_s), 1);
    EXPECT_EQ(connection->execute(batch), 1);
    connection->rollBackTransaction();
}

} // namespace kelvane::testing
