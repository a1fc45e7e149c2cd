#include "platform/followed_file.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

class Followed : public ::testing::Test {
  protected:
    void append(const QByteArray& bytes) {
        QFile writer(path);
        ASSERT_TRUE(writer.open(QIODevice::Append));
        writer.write(bytes);
    }

    testing::OwnFolder folder;
    const QString path = folder.path() + u"/log"_s;
    FollowedFile file{path, 1000};
    const QByteArray omission = "…\n";
};

} // namespace

TEST_F(Followed, GivesWhatIsThereAndThenWhatComes) {
    EXPECT_EQ(file.readNew(), QByteArray()) << "there is no file yet";
    append("a\nb\n");
    EXPECT_EQ(file.readNew(), "a\nb\n");
    EXPECT_EQ(file.readNew(), QByteArray());
    append("c\n");
    EXPECT_EQ(file.readNew(), "c\n");
}

TEST_F(Followed, GivesALineWhenItIsWhole) {
    append("a\nbeg");
    EXPECT_EQ(file.readNew(), "a\n");
    append("un");
    EXPECT_EQ(file.readNew(), QByteArray());
    append(" and ended\nnext\n");
    EXPECT_EQ(file.readNew(), "begun and ended\nnext\n");
}

TEST_F(Followed, IsReadToItsEndWhenAnotherTakesItsPlace) {
    append("a\n");
    EXPECT_EQ(file.readNew(), "a\n");
    append("b\n");
    ASSERT_TRUE(QFile::rename(path, path + u".1"_s));
    EXPECT_EQ(file.readNew(), "b\n") << "while there is no new one";
    append("c\n");
    EXPECT_EQ(file.readNew(), "c\n");
    append("d\n");
    ASSERT_TRUE(QFile::rename(path + u".1"_s, path + u".2"_s));
    ASSERT_TRUE(QFile::rename(path, path + u".1"_s));
    append("e\n");
    EXPECT_EQ(file.readNew(), "d\ne\n");
}

TEST_F(Followed, MarksThePlaceOfAFileThatCameAndWentBetweenTwoLooks) {
    append("a\n");
    EXPECT_EQ(file.readNew(), "a\n");
    append("b\n");
    ASSERT_TRUE(QFile::rename(path, path + u".2"_s));
    append("c\n");
    ASSERT_TRUE(QFile::rename(path, path + u".1"_s));
    append("d\n");
    EXPECT_EQ(file.readNew(), "b\n" + omission + "d\n");
    append("e\n");
    EXPECT_EQ(file.readNew(), "e\n");
}

TEST_F(Followed, IsReadFromTheBeginningWhenItWasCutShort) {
    append("a long line\n");
    EXPECT_EQ(file.readNew(), "a long line\n");
    ASSERT_TRUE(QFile::resize(path, 0));
    append("b\n");
    EXPECT_EQ(file.readNew(), "b\n");
}

TEST_F(Followed, GivesOnlyTheLastLinesOfALargeOne) {
    QByteArray lines;
    for (int i = 1000; i < 2000; ++i)
        lines += "line " + QByteArray::number(i) + '\n';
    append(lines);
    const auto marked = file.readNew();
    EXPECT_TRUE(marked.startsWith(omission)) << "the place of the others";
    const auto first = marked.sliced(omission.size());
    EXPECT_LE(first.size(), 1000);
    EXPECT_GT(first.size(), 900);
    EXPECT_TRUE(lines.endsWith('\n' + first));
    append("rest of a line that is passed over " + QByteArray(2000, 'x') + "\n" + lines);
    const auto second = file.readNew();
    EXPECT_LE(second.size(), 1000 + omission.size());
    EXPECT_TRUE(second.startsWith(omission + "line "));
    EXPECT_TRUE(second.endsWith("line 1999\n"));
}

} // namespace kelvane
