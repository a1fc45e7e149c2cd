#include "app/records_list.h"

#include "app/login.h"
#include "platform/database/reading_connection.h"
#include "testkit/database_session.h"
#include "testkit/quiet_operator.h"
#include "tests/platform/errors.h"
#include "tests/platform/full_disk.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The lists over a connection that only reads, with a login that nothing was filled in for.
class RecordsListOnDatabase : public ::testing::Test {
  protected:
    RecordsListOnDatabase() : session({ui, clock, settings}, readingConnections(openConnections())) {}

    QString listOf(const RecordsRequest& request) {
        const auto list = listAsCsv(session, request);
        EXPECT_TRUE(list.has_value());
        return QString::fromUtf8(list.value_or(QByteArray()));
    }
    QString refusalOf(const RecordsRequest& request) {
        try {
            listAsCsv(session, request);
            return {};
        } catch (const ProgramAnswer& answer) {
            EXPECT_EQ(answer.status, 1);
            return answer.text;
        }
    }

    OwnFolder folder;
    SystemClock clock;
    MemorySettings settings;
    QuietOperator ui;
    TestDatabase database;
    Session session;
};

class RecordsFile : public ::testing::Test {
  protected:
    QString refusalOf(const QByteArray& list) {
        try {
            writeList({.file = path}, list);
            return {};
        } catch (const ProgramAnswer& answer) {
            EXPECT_EQ(answer.status, 1);
            return answer.text;
        }
    }

    OwnFolder folder;
    QString path = folder.path() + u"/a list.csv"_s;
};

} // namespace

TEST_F(RecordsListOnDatabase, LogsInWithoutWritingAnything) {
    logInToRead(session, database.dsn(), u" jdoe "_s, u" kelvane "_s);
    EXPECT_EQ(session.SessionUser, u"jdoe"_s);
    EXPECT_EQ(session.SessionOwner, u"MT"_s);
    EXPECT_EQ(session.SessionDataSource, database.dsn());
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_EQ(session.SessionPassword, QString());
    EXPECT_EQ(settings.writes, QStringList());
    EXPECT_EQ(errorOf([&] { sharedConnection(session).execute(u"delete from mt.hvm_kv_task_inuse"_s); }),
              3027);
}

TEST_F(RecordsListOnDatabase, RefusesAWrongPassword) {
    EXPECT_NE(errorOf([&] { logInToRead(session, database.dsn(), u"jdoe"_s, u"wrong"_s); }), 0);
    EXPECT_FALSE(session.SessionConnected);
}

TEST_F(RecordsListOnDatabase, RefusesAnAssetThatTheInventoryDoesNotKnow) {
    logInToRead(session, database.dsn(), u"jdoe"_s, u"kelvane"_s);
    EXPECT_EQ(refusalOf({.list = RecordsRequest::List::history, .asset = u"O'NO"_s}),
              u"there is no asset O'NO"_s);
    EXPECT_EQ(refusalOf({.list = RecordsRequest::List::used, .asset = u"NO"_s}), u"there is no asset NO"_s);
    EXPECT_EQ(refusalOf({.list = RecordsRequest::List::history, .asset = u"LT-10'COL"_s}), QString());
}

TEST_F(RecordsListOnDatabase, FindsANumberThatIsFilledUpWithBlanksAndListsItWithoutThem) {
    database.executeElsewhere(u"update mt.inventory set i4201 = 'PT-101   ' where i4201 = 'PT-101'"_s);
    database.executeElsewhere(u"update mt.inventory set i4201 = 'F702-01   ' where i4201 = 'F702-01'"_s);
    logInToRead(session, database.dsn(), u"jdoe"_s, u"kelvane"_s);
    EXPECT_EQ(listOf({.list = RecordsRequest::List::history, .asset = u"PT-101"_s}).count(u"\r\n"_s), 4);
    const auto uses =
        listOf({.list = RecordsRequest::List::used, .asset = u"F702-01"_s, .since = QDate(1990, 1, 1)});
    EXPECT_TRUE(uses.contains(u"\r\nPT-101,"_s)) << uses.toStdString();
    const auto due = listOf({.list = RecordsRequest::List::due, .days = 36500});
    EXPECT_TRUE(due.contains(u"\r\nPT-101,"_s)) << due.toStdString();
}

TEST_F(RecordsListOnDatabase, OfAnInstrumentWithoutARecordHasTitlesAlone) {
    logInToRead(session, database.dsn(), u"jdoe"_s, u"kelvane"_s);
    const auto list = listOf({.list = RecordsRequest::List::history, .asset = u"PM-300"_s});
    EXPECT_TRUE(list.startsWith(u"Record,Date,Time,"_s));
    EXPECT_EQ(list.count(u"\r\n"_s), 1);
}

TEST_F(RecordsListOnDatabase, ThatBreaksOffIsNone) {
    logInToRead(session, database.dsn(), u"jdoe"_s, u"kelvane"_s);
    sharedConnection(session).close();
    for (const auto list :
         {RecordsRequest::List::due, RecordsRequest::List::used, RecordsRequest::List::history})
        EXPECT_FALSE(listAsCsv(session, {.list = list, .asset = u"PT-101"_s, .since = QDate(2020, 1, 1)}));
    EXPECT_EQ(ui.reportedErrors.size(), 3);
}

TEST_F(RecordsFile, IsWrittenAsAWhole) {
    EXPECT_EQ(refusalOf("a,b\r\n"), QString());
    EXPECT_EQ(folder.read(u"a list.csv"_s), u"a,b\r\n"_s);
    EXPECT_EQ(refusalOf("c\r\n"), QString());
    EXPECT_EQ(folder.read(u"a list.csv"_s), u"c\r\n"_s);
}

TEST_F(RecordsFile, OnAFullDiskStaysAsItWas) {
    if (!FullDisk::isPossible)
        GTEST_SKIP();
    folder.write(u"a list.csv"_s, "before");
    QString refusal;
    {
        const FullDisk disk(100);
        refusal = refusalOf(QByteArray(100000, 'x'));
    }
    EXPECT_TRUE(refusal.startsWith(path + u" can't be written: "_s)) << refusal.toStdString();
    EXPECT_EQ(folder.read(u"a list.csv"_s), u"before"_s);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList(u"a list.csv"_s));
}

TEST_F(RecordsFile, InAFolderThatIsNotThereIsToldWithItsName) {
    path = folder.path() + u"/nowhere/list.csv"_s;
    const auto refusal = refusalOf("a");
    EXPECT_TRUE(refusal.startsWith(path + u" can't be written: "_s)) << refusal.toStdString();
}

} // namespace kelvane::testing
