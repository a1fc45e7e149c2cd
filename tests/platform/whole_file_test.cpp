#include "platform/whole_file.h"

#include "testkit/fixtures.h"
#include "tests/platform/full_disk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

#include <thread>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class WholeFiles : public ::testing::Test {
  protected:
    QStringList files() const {
        return QDir(folder.path()).entryList(QDir::Files | QDir::System, QDir::Name);
    }

    OwnFolder folder;
    QString path = folder.path() + u"/list.csv"_s;
};

TEST_F(WholeFiles, ReplaceWhatStoodThere) {
    folder.write(u"list.csv"_s, "an older and longer list");
    EXPECT_EQ(writeWholeFile(path, "new"), QString());
    EXPECT_EQ(folder.read(u"list.csv"_s), u"new"_s);
    EXPECT_EQ(writeWholeFile(path, {}), QString());
    EXPECT_EQ(folder.read(u"list.csv"_s), QString());
    EXPECT_EQ(files(), QStringList(u"list.csv"_s));
}

TEST_F(WholeFiles, LeaveWhatStoodThereUntilTheyAreCommitted) {
    folder.write(u"list.csv"_s, "old");
    {
        WholeFile file(path);
        ASSERT_TRUE(file.open());
        EXPECT_TRUE(file.write("new"));
        EXPECT_EQ(folder.read(u"list.csv"_s), u"old"_s);
    }
    EXPECT_EQ(folder.read(u"list.csv"_s), u"old"_s);
    EXPECT_EQ(files(), QStringList(u"list.csv"_s));
}

TEST_F(WholeFiles, OnAFullDiskLeaveWhatStoodThereAndSayWhy) {
    if (!FullDisk::isPossible)
        GTEST_SKIP() << "no limit of a file's size on this system";
    folder.write(u"list.csv"_s, "old");
    // Within a buffer of the toolkit, at its end, and beyond it.
    for (const qsizetype size : {1, 100, 16383, 16384, 16385, 40000}) {
        QString fault;
        {
            const FullDisk full(static_cast<unsigned>(size) - 1);
            fault = writeWholeFile(path, QByteArray(size, 'x'));
        }
        EXPECT_NE(fault, QString()) << size;
        EXPECT_EQ(folder.read(u"list.csv"_s), u"old"_s) << size;
        EXPECT_EQ(files(), QStringList(u"list.csv"_s)) << size;
    }
}

TEST_F(WholeFiles, InAFolderThatIsMissingOrInThePlaceOfAFolderAreRefused) {
    EXPECT_EQ(writeWholeFile(folder.path() + u"/gone/list.csv"_s, "new"), u"No such file or directory"_s);
    EXPECT_NE(writeWholeFile(folder.path(), "new"), QString());
    EXPECT_TRUE(QFileInfo(folder.path()).isDir());
}

TEST_F(WholeFiles, OfALinkReplaceTheFileThatItNames) {
    folder.write(u"real.csv"_s, "old");
    ASSERT_TRUE(QFile::link(folder.path() + u"/real.csv"_s, path));
    EXPECT_EQ(writeWholeFile(path, "new"), QString());
    EXPECT_TRUE(QFileInfo(path).isSymLink());
    EXPECT_EQ(folder.read(u"real.csv"_s), u"new"_s);
}

#ifdef Q_OS_UNIX
TEST_F(WholeFiles, IntoAPipeReachItsReaderAndLeaveIt) {
    ASSERT_EQ(::mkfifo(path.toLocal8Bit().constData(), 0600), 0);
    const QByteArray content(100'000, 'x');
    QByteArray received;
    std::thread reader([&] {
        QFile pipe(path);
        if (pipe.open(QIODevice::ReadOnly))
            received = pipe.readAll();
    });
    EXPECT_EQ(writeWholeFile(path, content), QString());
    reader.join();
    EXPECT_EQ(received, content);
    struct stat kind {};
    ASSERT_EQ(::stat(path.toLocal8Bit().constData(), &kind), 0);
    EXPECT_TRUE(S_ISFIFO(kind.st_mode));
}
#endif

} // namespace kelvane::testing
