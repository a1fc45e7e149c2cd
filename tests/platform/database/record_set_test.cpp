#include "testkit/fixtures.h"
#include "tests/platform/database/small_database.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class RecordSets : public ::testing::Test {
  protected:
    SmallDatabase database;
    std::unique_ptr<Connection> connection = database.connect();

    void note(const QString& text) {
        connection->execute(u"insert into mt.readings (note) values ('"_s +
                            QString(text).replace(u"'"_s, u"''"_s) + u"');commit"_s);
    }
    std::optional<QString> lastNote() {
        const auto rows = connection->select(u"select note from mt.readings order by id desc"_s, Rows::first);
        return rows->next() ? rows->value(0) : std::nullopt;
    }
};

} // namespace

TEST_F(RecordSets, GiveTextOrNull) {
    const auto rows = connection->select(u"select 1, 1.5, 'x', null, '', 0.1, -7, 1e20, 123456789012"_s);
    ASSERT_TRUE(rows->next());
    const QList<std::optional<QString>> wanted{u"1"_s,   u"1.5"_s, u"x"_s,       std::nullopt,     u""_s,
                                               u"0.1"_s, u"-7"_s,  u"1.0e+20"_s, u"123456789012"_s};
    for (int column = 0; column < wanted.size(); ++column)
        EXPECT_EQ(rows->value(column), wanted[column]) << column;
    EXPECT_FALSE(rows->next());
    EXPECT_FALSE(rows->next()) << "behind the last row there is none, however often one asks";
}

TEST_F(RecordSets, GiveTheSameValueWhenAskedAgain) {
    const auto rows = connection->select(u"select 'a', 'b' union all select 'c', null"_s);
    ASSERT_TRUE(rows->next());
    EXPECT_EQ(rows->value(0), u"a"_s);
    EXPECT_EQ(rows->value(0), u"a"_s);
    EXPECT_EQ(rows->value(1), u"b"_s);
    ASSERT_TRUE(rows->next());
    EXPECT_EQ(rows->value(1), std::nullopt);
    EXPECT_EQ(rows->value(1), std::nullopt);
}

TEST_F(RecordSets, WithoutARowAnswerWithError3021) {
    const auto rows = connection->select(u"select 1 where 0"_s);
    EXPECT_EQ(errorOf([&] { rows->value(0); }).value().number, 3021);
    EXPECT_FALSE(rows->next());
    EXPECT_EQ(errorOf([&] { rows->value(0); }).value().number, 3021);
}

TEST_F(RecordSets, KnowTheirColumns) {
    const auto rows = connection->select(u"select 1"_s);
    ASSERT_TRUE(rows->next());
    EXPECT_EQ(errorOf([&] { rows->value(1); }).value().number, 9);
    EXPECT_EQ(errorOf([&] { rows->value(-1); }).value().number, 9);
}

TEST_F(RecordSets, OfAStatementWithoutRowsAreEmpty) {
    const auto rows = connection->select(u"delete from mt.readings"_s);
    EXPECT_FALSE(rows->next());
}

TEST_F(RecordSets, KeepTextsOfEveryLengthAndAlphabet) {
    QStringList texts{u""_s,
                      u"it's"_s,
                      u"größe 温度 Ж"_s,
                      u"\U0001F527 wrench \U0001F527"_s,
                      u"a\tb\r\nc"_s,
                      u"{d '2020-01-01'} {x}"_s,
                      u"?:x@y$z;--/*"_s,
                      u" blanks "_s,
                      u"50% \\ \"\""_s};
    for (const int length : {254, 255, 256, 257, 510, 511, 512, 513, 1022, 1023, 1024, 5000, 100000}) {
        texts << QString(length, u'x') << QString(length, u'温') << u"\U0001F527"_s.repeated(length)
              << u'a' + u"\U0001F527"_s.repeated(length);
    }
    for (const auto& text : texts) {
        note(text);
        const auto back = lastNote();
        ASSERT_TRUE(back);
        EXPECT_TRUE(*back == text) << text.left(40).toStdString() << " of length " << text.size()
                                   << " came back with " << back->size() << ": "
                                   << back->left(40).toStdString();
    }
}

TEST_F(RecordSets, SurviveWritesAndCommitsOnTheSameConnection) {
    for (int i = 0; i < 50; ++i)
        note(QString::number(i));
    const auto rows = connection->select(u"select id, note from mt.readings order by id"_s);
    QStringList seen;
    while (rows->next()) {
        const auto id = rows->value(0).value();
        connection->execute(u"delete from mt.readings where id = "_s + id + u";commit"_s);
        connection->execute(u"insert into mt.unique_notes values ('"_s + id +
                            u"');delete from mt.readings where id = "_s + id + u";commit"_s);
        EXPECT_TRUE(errorOf([&] { connection->execute(u"bogus"_s); }));
        seen << rows->value(1).value();
    }
    EXPECT_EQ(seen.size(), 50);
    EXPECT_EQ(seen.last(), u"49"_s);
    EXPECT_EQ(firstColumn(*connection, u"select count(*) from mt.readings"_s), QStringList{u"0"_s});
}

TEST_F(RecordSets, MayBeOpenManyAtATime) {
    std::vector<std::unique_ptr<RecordSet>> open;
    for (int i = 0; i < 40; ++i)
        open.push_back(connection->select(u"select %1 union all select %2"_s.arg(i).arg(100 + i)));
    for (int i = 0; i < 40; ++i) {
        ASSERT_TRUE(open[static_cast<std::size_t>(i)]->next());
        EXPECT_EQ(open[static_cast<std::size_t>(i)]->value(0), QString::number(i));
    }
    open.erase(open.begin() + 10, open.begin() + 30);
    for (const auto& rows : open)
        EXPECT_TRUE(rows->next());
}

TEST_F(RecordSets, AnswerWithError3709OnceTheConnectionIsClosed) {
    const auto begun = connection->select(u"select 1 union all select 2"_s);
    const auto fresh = connection->select(u"select 1"_s);
    ASSERT_TRUE(begun->next());
    connection->close();
    EXPECT_EQ(errorOf([&] { begun->value(0); }).value().number, 3709);
    EXPECT_EQ(errorOf([&] { begun->next(); }).value().number, 3709);
    EXPECT_EQ(errorOf([&] { fresh->next(); }).value().number, 3709);
}

TEST_F(RecordSets, MayOutliveTheConnection) {
    auto rows = connection->select(u"select 1"_s);
    connection.reset();
    EXPECT_EQ(errorOf([&] { rows->next(); }).value().number, 3709);
    rows.reset();
}

TEST_F(RecordSets, OfTheFirstRowHoldOneRow) {
    for (int i = 0; i < 3; ++i)
        note(QString::number(i));
    const auto rows = connection->select(u"select note from mt.readings order by id"_s, Rows::first);
    ASSERT_TRUE(rows->next());
    EXPECT_EQ(rows->value(0), u"0"_s);
    EXPECT_FALSE(rows->next());
}

} // namespace kelvane::testing
