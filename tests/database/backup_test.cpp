#include "platform/database/odbc_link.h"
#include "tests/database/databases.h"
#include "tests/database/scripts.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The demonstration database, copied and restored by the scripts.
class Backup : public ::testing::Test {
  protected:
    static Outcome run(const QString& script, const QStringList& arguments) {
        return runScript(sourceFile(u"database/"_s + script), arguments);
    }
    Outcome backUp() const { return run(u"backup.sh"_s, {database.path(), copy()}); }
    Outcome restore() const { return run(u"restore.sh"_s, {copy(), database.path()}); }

    QString copy() const { return folder.filePath(u"it's a copy"_s); }
    /// One value out of a file of a database that is not in use.
    static QString valueIn(const QString& path, const QString& query) {
        OdbcLink link(u"Driver=SQLite3;Database="_s + path, {}, {});
        const auto rows = link.select(query, Rows::all);
        return rows->next() ? rows->value(0).value_or(u"(null)"_s) : QString();
    }
    QString packages() const {
        return valueIn(database.file(u"mt.db"_s), u"select count(*) from hvm_kv_task_packages"_s);
    }
    /// What the folder of the database held before it was restored.
    QStringList backupFolders() const {
        const QFileInfo info(database.path());
        return info.dir().entryList({info.fileName() + u".before-*"_s}, QDir::Dirs);
    }
    void TearDown() override {
        for (const auto& kept : backupFolders())
            QDir(QFileInfo(database.path()).dir().filePath(kept)).removeRecursively();
    }

    DemoDatabase database;
    QTemporaryDir folder;
};

} // namespace

TEST_F(Backup, ACopyHoldsWhatAWorkstationHasJustStoredAndNeedsNoOtherFiles) {
    const auto workstation = database.connect();
    workstation->execute(u"insert into mt.hvm_kv_prompts values ('NEW','stored');commit"_s);
    const auto outcome = backUp();
    EXPECT_EQ(outcome.code, 0) << outcome.output.toStdString();
    EXPECT_EQ(QDir(copy()).entryList(QDir::Files, QDir::Name),
              (QStringList{u"abc.db"_s, u"kelvane.db"_s, u"mt.db"_s, u"std.db"_s, u"sys.db"_s}));
    EXPECT_EQ(valueIn(copy() + u"/mt.db"_s, u"select prompt from hvm_kv_prompts where pname = 'NEW'"_s),
              u"stored"_s);
    struct stat info {};
    ASSERT_EQ(::stat(QFile::encodeName(copy()).constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0700U) << "passwords stand in it";
    workstation->execute(u"delete from mt.hvm_kv_prompts where pname = 'NEW';commit"_s);
}

TEST_F(Backup, TheFilesOfACopyBelongToOneMoment) {
    // Each batch adds one row to two files; a copy that lies between the two would hold more of one.
    const auto workstation = database.connect();
    QProcess script;
    script.start(sourceFile(u"database/backup.sh"_s), {database.path(), copy()});
    int number = 0;
    while (script.state() != QProcess::NotRunning) {
        workstation->execute(
            u"insert into mt.location (mtag) values ('B%1');insert into abc.location (mtag) values ('B%1');commit"_s
                .arg(++number));
        script.waitForFinished(1);
    }
    ASSERT_EQ(script.exitCode(), 0) << script.readAllStandardError().toStdString();
    ASSERT_GT(number, 1);
    const auto query = u"select count(*) from location where mtag like 'B%'"_s;
    EXPECT_EQ(valueIn(copy() + u"/mt.db"_s, query), valueIn(copy() + u"/abc.db"_s, query));
}

TEST_F(Backup, AnExistingCopyIsLeftAlone) {
    ASSERT_TRUE(QDir().mkpath(copy()));
    const auto outcome = backUp();
    EXPECT_NE(outcome.code, 0);
    EXPECT_TRUE(outcome.output.contains(u"exists already"_s));
    EXPECT_TRUE(QDir(copy()).isEmpty());
}

TEST_F(Backup, ADamagedFileMakesNoCopy) {
    QFile damaged(database.file(u"std.db"_s));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
    damaged.write(QByteArray(8192, 'x'));
    damaged.close();
    EXPECT_NE(backUp().code, 0);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

TEST_F(Backup, ACopyIsRestoredAndThePreviousFilesAreKept) {
    const auto before = packages();
    ASSERT_EQ(backUp().code, 0);
    database.connect()->execute(u"delete from mt.hvm_kv_task_packages;commit"_s);
    ASSERT_EQ(packages(), u"0"_s);
    const auto outcome = restore();
    EXPECT_EQ(outcome.code, 0) << outcome.output.toStdString();
    EXPECT_EQ(packages(), before);
    EXPECT_TRUE(database.connect()->isOpen());
    ASSERT_EQ(backupFolders().size(), 1);
    EXPECT_EQ(valueIn(QFileInfo(database.path()).dir().filePath(backupFolders().first()) + u"/mt.db"_s,
                      u"select count(*) from hvm_kv_task_packages"_s),
              u"0"_s);
    EXPECT_EQ(QDir(copy()).entryList(QDir::Files).size(), 5) << "the copy stays";
}

TEST_F(Backup, NothingIsRestoredWhileAWorkstationIsLoggedIn) {
    ASSERT_EQ(backUp().code, 0);
    {
        const auto workstation = database.connect();
        workstation->execute(u"delete from mt.hvm_kv_task_packages;commit"_s);
        const auto outcome = restore();
        EXPECT_NE(outcome.code, 0);
        EXPECT_TRUE(outcome.output.contains(u"is in use"_s)) << outcome.output.toStdString();
        EXPECT_EQ(queryRows(*workstation, u"select count(*) from mt.hvm_kv_task_packages"_s),
                  QStringList{u"0"_s});
        EXPECT_TRUE(backupFolders().isEmpty());
    }
    EXPECT_EQ(QDir(database.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 5);
    EXPECT_EQ(restore().code, 0) << "once it has logged out";
}

TEST_F(Backup, ADatabaseThatIsDamagedCanBeReplaced) {
    const auto before = packages();
    ASSERT_EQ(backUp().code, 0);
    QFile damaged(database.file(u"mt.db"_s));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
    damaged.write(QByteArray(8192, 'x'));
    damaged.close();
    const auto outcome = restore();
    EXPECT_EQ(outcome.code, 0) << outcome.output.toStdString();
    EXPECT_EQ(packages(), before);
}

TEST_F(Backup, AMissingFolderIsMade) {
    ASSERT_EQ(backUp().code, 0);
    const auto target = folder.filePath(u"new"_s);
    EXPECT_EQ(run(u"restore.sh"_s, {copy(), target}).code, 0);
    EXPECT_EQ(QDir(target).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 5);
}

TEST_F(Backup, ACopyThatIsNotWholeOrDamagedChangesNothing) {
    ASSERT_EQ(backUp().code, 0);
    const auto before = packages();
    ASSERT_TRUE(QFile::rename(copy() + u"/sys.db"_s, copy() + u"/kept"_s));
    EXPECT_NE(restore().code, 0);
    ASSERT_TRUE(QFile::rename(copy() + u"/kept"_s, copy() + u"/sys.db"_s));
    QFile damaged(copy() + u"/abc.db"_s);
    ASSERT_TRUE(damaged.open(QIODevice::ReadWrite));
    damaged.seek(4096);
    damaged.write(QByteArray(4096, '\xff'));
    damaged.close();
    const auto outcome = restore();
    EXPECT_NE(outcome.code, 0);
    EXPECT_TRUE(outcome.output.contains(u"abc.db"_s)) << outcome.output.toStdString();
    EXPECT_EQ(packages(), before);
    EXPECT_TRUE(backupFolders().isEmpty());
    EXPECT_EQ(QDir(database.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 5);
}

TEST_F(Backup, AClosedConnectionLeavesAWholeDatabaseInTheFilesAlone) {
    const auto workstation = database.connect();
    workstation->execute(u"insert into mt.hvm_kv_prompts values ('LAST','stored');commit"_s);
    workstation->close();
    EXPECT_EQ(QDir(database.path()).entryList(QDir::Files).size(), 5) << "no write-ahead log is left";
    const EmbeddedDatabase copied(database.path());
    EXPECT_EQ(valueOf(*copied.connect(), u"select prompt from mt.hvm_kv_prompts where pname = 'LAST'"_s),
              u"stored"_s);
}

} // namespace kelvane::testing
