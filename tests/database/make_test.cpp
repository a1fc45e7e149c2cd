#include "tests/database/databases.h"
#include "tests/database/scripts.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// A folder in which databases are made by the script, or by a copy of it that has been tampered with.
class MakeScript : public ::testing::Test {
  protected:
    Outcome run(const QStringList& arguments,
                const QString& script = sourceFile(u"database/make.sh"_s)) const {
        return runScript(script, arguments, environment);
    }

    QString path(const QString& name) const { return folder.filePath(name); }

    QStringList entries(const QString& name = u"."_s) const {
        return QDir(path(name)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    /// A copy of the scripts, in which one has a faulty line at its end.
    QString faultyCopy(const QString& faultyScript) const {
        const auto copy = path(u"scripts"_s);
        QProcess::execute(u"cp"_s, {u"-r"_s, sourceFile(u"database"_s), copy});
        QFile script(copy + u'/' + faultyScript);
        EXPECT_TRUE(script.open(QIODevice::Append));
        script.write("\ninsert into no_such_table values (1);\n");
        return copy + u"/make.sh"_s;
    }

    QTemporaryDir folder;
    ScriptEnvironment environment{QProcessEnvironment::systemEnvironment(), folder.path()};
};

QStringList lines(const QString& text) {
    auto all = text.split(u'\n');
    all.sort();
    return all;
}

uint modeOf(const QString& path) {
    struct stat entry {};
    EXPECT_EQ(stat(QFile::encodeName(path).constData(), &entry), 0) << path.toStdString();
    return entry.st_mode & 0777U;
}

} // namespace

TEST_F(MakeScript, MakesOneFileForEachOwner) {
    const auto outcome = run({path(u"new"_s)});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.output, QString());
    EXPECT_EQ(entries(u"new"_s), databaseFiles);
    EXPECT_EQ(entries(), QStringList{u"new"_s}) << "nothing else is left beside it";
}

TEST_F(MakeScript, FilesAreReadableByTheirOwnerAlone) {
    ASSERT_EQ(run({path(u"new"_s), u"--demo"_s}).code, 0);
    EXPECT_EQ(modeOf(path(u"new"_s)), 0700U);
    for (const auto& file : databaseFiles)
        EXPECT_EQ(modeOf(path(u"new/"_s + file)), 0600U) << file.toStdString();
}

TEST_F(MakeScript, EveryFileKeepsAWriteAheadLog) {
    ASSERT_EQ(run({path(u"new"_s)}).code, 0);
    for (const auto& file : databaseFiles)
        EXPECT_EQ(sqlite(path(u"new/"_s + file), u"pragma journal_mode"_s), u"wal"_s) << file.toStdString();
}

TEST_F(MakeScript, WithoutDataThereAreOnlyTheSettings) {
    ASSERT_EQ(run({path(u"new"_s)}).code, 0);
    const auto made = path(u"new"_s);
    EXPECT_EQ(sqlite(made + u"/kelvane.db"_s, u"select count(*) from accounts"_s), u"0"_s);
    EXPECT_EQ(sqlite(made + u"/mt.db"_s, u"select count(*) from inventory"_s), u"0"_s);
    EXPECT_EQ(sqlite(made + u"/mt.db"_s, u"select * from dbconfig"_s), u"0|6|0|0|0|4|ABCDE|1"_s);
    EXPECT_EQ(sqlite(made + u"/mt.db"_s, u"select * from hvm_kv_sysconfig"_s), u"N|N"_s);
}

TEST_F(MakeScript, ASecondRunChangesNothing) {
    for (const auto& options : {QStringList{}, QStringList{u"--demo"_s}}) {
        const auto made = path(u"made"_s + options.join(QString()));
        ASSERT_EQ(run(QStringList{made} + options).code, 0);
        const auto before = contentOf(made);
        EXPECT_EQ(run(QStringList{made} + options).code, 0);
        EXPECT_EQ(contentOf(made), before);
        EXPECT_EQ(entries(QFileInfo(made).fileName()), databaseFiles);
    }
}

TEST_F(MakeScript, ASecondRunKeepsWhatWasChangedSince) {
    const auto made = path(u"made"_s);
    ASSERT_EQ(run({made, u"--demo"_s}).code, 0);
    sqlite(made + u"/mt.db"_s,
           u"delete from inventory where i4201 = 'TW-101'; update dbconfig set procedit = 5"_s);
    const auto before = contentOf(made);
    const auto outcome = run({made, u"--demo"_s});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.output.contains(u"its data is left as it is"_s)) << outcome.output.toStdString();
    EXPECT_EQ(contentOf(made), before);
}

TEST_F(MakeScript, AFurtherRunAddsTablesThatAreMissing) {
    const auto made = path(u"made"_s);
    ASSERT_EQ(run({made, u"--demo"_s}).code, 0);
    const auto before = contentOf(made);
    sqlite(made + u"/mt.db"_s, u"drop index inventory_serial; drop trigger calibration_marks_new"_s);
    ASSERT_NE(contentOf(made), before);
    EXPECT_EQ(run({made}).code, 0);
    // A dump lists things in the order in which they were made.
    EXPECT_EQ(lines(contentOf(made)), lines(before));
}

TEST_F(MakeScript, RunsFromAnyFolderAndTakesAnyFolderName) {
    for (const auto& name : {u"plain"_s, u"with blank"_s, u"with 'quote'"_s, u"with \"quotes\""_s,
                             u"prüfen; $HOME"_s, u"deep/er/still"_s, u"slash/"_s}) {
        environment.workingFolder = folder.path();
        EXPECT_EQ(run({name, u"--demo"_s}).code, 0) << name.toStdString();
        EXPECT_EQ(entries(name), databaseFiles) << name.toStdString();
        environment.workingFolder = u"/"_s;
        EXPECT_EQ(run({u"--demo"_s, path(name)}).code, 0) << name.toStdString();
    }
}

TEST_F(MakeScript, AnEmptyFolderIsFilled) {
    QDir(folder.path()).mkdir(u"there"_s);
    EXPECT_EQ(run({path(u"there"_s)}).code, 0);
    EXPECT_EQ(entries(u"there"_s), databaseFiles);
    EXPECT_EQ(modeOf(path(u"there"_s)), 0700U);
    EXPECT_EQ(entries(), QStringList{u"there"_s});
}

TEST_F(MakeScript, AFolderWithSomeOfTheFilesIsLeftAlone) {
    ASSERT_EQ(run({path(u"made"_s), u"--demo"_s}).code, 0);
    QFile::remove(path(u"made/kelvane.db"_s));
    const auto before = sqlite(path(u"made"_s) + u"/mt.db"_s, u".dump"_s);
    const auto outcome = run({path(u"made"_s), u"--demo"_s});
    EXPECT_NE(outcome.code, 0);
    EXPECT_TRUE(outcome.output.contains(u"nothing was changed"_s)) << outcome.output.toStdString();
    EXPECT_EQ(sqlite(path(u"made"_s) + u"/mt.db"_s, u".dump"_s), before);
    EXPECT_FALSE(QFile::exists(path(u"made/kelvane.db"_s)));
}

TEST_F(MakeScript, AFaultInAnyScriptLeavesNoNewDatabase) {
    for (const auto& script :
         {u"embedded/0001-accounts.sql"_s, u"embedded/0002-inventory-and-records.owner.sql"_s,
          u"embedded/0006-catalogue.sql"_s, u"demo/10_accounts.sql"_s, u"demo/90_packages.sql"_s}) {
        const auto outcome = run({path(u"new"_s), u"--demo"_s}, faultyCopy(script));
        EXPECT_NE(outcome.code, 0) << script.toStdString();
        EXPECT_TRUE(outcome.output.contains(script)) << outcome.output.toStdString();
        EXPECT_TRUE(outcome.output.contains(u"no_such_table"_s)) << outcome.output.toStdString();
        EXPECT_EQ(entries(), QStringList{u"scripts"_s});
        QDir(path(u"scripts"_s)).removeRecursively();
    }
}

TEST_F(MakeScript, AFaultLeavesAnExistingDatabaseAsItWas) {
    const auto made = path(u"made"_s);
    ASSERT_EQ(run({made, u"--demo"_s}).code, 0);
    sqlite(made + u"/mt.db"_s, u"drop table hvm_kv_sysconfig"_s);
    const auto before = contentOf(made);
    EXPECT_NE(run({made}, faultyCopy(u"embedded/0004-kelvane.sql"_s)).code, 0);
    EXPECT_EQ(contentOf(made), before) << "the table that the script made before its fault is gone again";
}

TEST_F(MakeScript, ADamagedFileIsNamed) {
    ASSERT_EQ(run({path(u"made"_s)}).code, 0);
    QFile damaged(path(u"made/std.db"_s));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write(QByteArray(8192, 'x'));
    damaged.close();
    const auto outcome = run({path(u"made"_s)});
    EXPECT_NE(outcome.code, 0);
    EXPECT_TRUE(outcome.output.contains(u"std.db"_s)) << outcome.output.toStdString();
}

TEST_F(MakeScript, AMissingEngineProgramIsAClearMessage) {
    environment.variables.insert(u"PATH"_s, path(u"nowhere"_s));
    const auto outcome = run({path(u"new"_s)});
    EXPECT_NE(outcome.code, 0);
    EXPECT_EQ(outcome.output, u"make.sh: the program sqlite3 is missing (Debian package \"sqlite3\")\n"_s);
    EXPECT_TRUE(entries().isEmpty());
}

TEST_F(MakeScript, UserSettingsOfTheEngineProgramDoNotCount) {
    QFile settings(path(u".sqliterc"_s));
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write("create table stray (a);\n.bail off\n");
    settings.close();
    environment.variables.insert(u"HOME"_s, folder.path());
    ASSERT_EQ(run({path(u"new"_s)}).code, 0);
    EXPECT_EQ(
        sqlite(path(u"new"_s) + u"/mt.db"_s, u"select count(*) from sqlite_master where name = 'stray'"_s),
        u"0"_s);
}

TEST_F(MakeScript, WrongArgumentsAreReportedAndChangeNothing) {
    for (const auto& arguments : {QStringList{}, QStringList{u"--demo"_s}, QStringList{u"one"_s, u"two"_s},
                                  QStringList{u"one"_s, u"--other"_s}}) {
        const auto outcome = run(arguments);
        EXPECT_NE(outcome.code, 0) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(outcome.output.startsWith(u"make.sh: "_s)) << outcome.output.toStdString();
        EXPECT_TRUE(entries().isEmpty());
    }
}

TEST_F(MakeScript, TheDaysOfTheDataAreCountedFromTheGivenDay) {
    const auto made = path(u"made"_s);
    const auto outcome = run({made, u"--demo"_s, u"--day=2028-02-29"_s});
    ASSERT_EQ(outcome.code, 0) << outcome.output.toStdString();
    EXPECT_EQ(sqlite(made + u"/mt.db"_s, u"select min(holiday), max(holiday) from holidays"_s),
              u"2028-01-01|2038-12-26"_s);
    EXPECT_EQ(sqlite(made + u"/mt.db"_s, u"select distinct date(entered_date) from hvm_kv_task_inuse"_s),
              u"2028-02-27"_s);
    EXPECT_EQ(sqlite(made + u"/mt.db"_s, u"select distinct i4225 from inventory where i4225 is not null"_s),
              u"2028-02-26"_s);
    EXPECT_EQ(sqlite(made + u"/mt.db"_s, u"select max(c2303) from calibration where cdsrc = 'KVN'"_s),
              u"2028-03-20"_s);
}

TEST_F(MakeScript, ADayThatIsNoneIsRefused) {
    for (const auto& day : {u"2027-02-29"_s, u"2027-13-01"_s, u"tomorrow"_s, u"27-01-01"_s, u""_s}) {
        EXPECT_EQ(run({path(u"made"_s), u"--demo"_s, u"--day="_s + day}).code, 1) << day.toStdString();
        EXPECT_FALSE(QFileInfo::exists(path(u"made"_s))) << day.toStdString();
    }
}

TEST_F(MakeScript, AFolderThatCannotBeMadeIsAFailure) {
    QFile file(path(u"file"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_NE(run({path(u"file/new"_s)}).code, 0);
    EXPECT_EQ(entries(), QStringList{u"file"_s});
}

TEST_F(MakeScript, TwoRunsAtOnceGiveOneWholeDatabase) {
    std::array<QProcess, 2> both;
    for (auto& process : both)
        process.start(sourceFile(u"database/make.sh"_s), {path(u"new"_s), u"--demo"_s});
    for (auto& process : both)
        ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_TRUE(both[0].exitCode() == 0 || both[1].exitCode() == 0);
    EXPECT_EQ(entries(), QStringList{u"new"_s});
    EXPECT_EQ(entries(u"new"_s), databaseFiles);
    EXPECT_EQ(sqlite(path(u"new"_s) + u"/kelvane.db"_s, u"select count(*) from accounts"_s), u"10"_s);
}

} // namespace kelvane::testing
