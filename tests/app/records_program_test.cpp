#include "app/records_certificate.h"
#include "app/records_files.h"
#include "testkit/database_session.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr int patience = 60000; // milliseconds

struct Ending {
    int status = -1;
    QString output;
    QString errors;
};

/// kelvane-records on the demonstration database, started in a folder of its own for a user without settings.
class RecordsProgram : public DatabaseSession {
  protected:
    Ending run(const QStringList& words, const QByteArray& input = "kelvane\n",
               const QString& user = u"jdoe"_s) {
        return runProgram(
            words + QStringList{u"--csv"_s, u"--user="_s + user, u"--data-source="_s + database.dsn()},
            input);
    }
    Ending runProgram(const QStringList& words, const QByteArray& input = {},
                      const QString& outputFile = {}) {
        QProcess process;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_STATE_HOME"_s, home.path() + u"/state"_s);
        environment.insert(u"XDG_CONFIG_HOME"_s, home.path() + u"/settings"_s);
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(home.path());
        if (!outputFile.isEmpty())
            process.setStandardOutputFile(outputFile);
        process.start(QCoreApplication::applicationDirPath() + u"/kelvane-records"_s, words);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(patience)) << process.errorString().toStdString();
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
    Ending certificate(const QStringList& words) {
        return runProgram(words + QStringList{u"--user=jdoe"_s, u"--data-source="_s + database.dsn()},
                          "kelvane\n");
    }
    QString pdfText(const QString& file) {
        QProcess reader;
        reader.start(u"pdftotext"_s, {u"-layout"_s, home.filePath(file), u"-"_s});
        EXPECT_TRUE(reader.waitForFinished(patience));
        return QString::fromUtf8(reader.readAllStandardOutput());
    }
    /// The lines of a list behind its titles.
    static QStringList linesOf(const Ending& ending) {
        EXPECT_EQ(ending.status, 0) << ending.errors.toStdString();
        EXPECT_EQ(ending.errors, QString());
        auto lines = ending.output.split(u"\r\n"_s);
        EXPECT_EQ(lines.takeLast(), QString());
        return lines.mid(1);
    }
    static QStringList firstCells(const QStringList& lines) {
        QStringList cells;
        for (const auto& line : lines)
            cells << line.section(u',', 0, 0);
        cells.sort();
        return cells;
    }
    void expectTold(const Ending& ending, int status, const QString& text) {
        EXPECT_EQ(ending.status, status);
        EXPECT_EQ(ending.output, QString());
        EXPECT_EQ(ending.errors.count(u'\n'), 1) << ending.errors.toStdString();
        EXPECT_TRUE(ending.errors.startsWith(u"kelvane-records: "_s + text)) << ending.errors.toStdString();
    }
    QString day(int ahead) const { return clock.now().date().addDays(ahead).toString(u"yyyy-MM-dd"_s); }
    QStringList dueUpTo(int days) {
        return values(
            u"select i4201 from mt.inventory i where exists (select 1 from mt.calibration c where c.mtag = "
            "i.mtag and c2339 = '1' and c2303 <= '%1')"_s.arg(day(days)));
    }
    QTemporaryDir home;
};

} // namespace

TEST_F(RecordsProgram, ListsWhatIsDueAndOverdueByItsDueDate) {
    execute(u"update mt.calibration set c2303 = '%1' where c2339 = '1' and mtag = '1401'"_s.arg(day(30)));
    execute(u"update mt.calibration set c2303 = '%1' where c2339 = '1' and mtag = '1402'"_s.arg(day(31)));
    const auto lines = linesOf(run({u"--due=30"_s}));
    EXPECT_GT(lines.size(), 20);
    EXPECT_EQ(firstCells(lines), dueUpTo(30));
    EXPECT_TRUE(lines.first().contains(u",-15,"_s)) << "the overdue ones come first";
    EXPECT_TRUE(lines.last().startsWith(u"PT-101,"_s)) << lines.last().toStdString();
    const auto expected =
        rows(u"select i4201,i4204,i4202,i4203,i4206,i4240,l2801,c2301,c2308,c2303 from mt.inventory i join "
             "mt.calibration c on c.mtag = i.mtag join mt.location l on l.mtag = i.mtag where i.mtag = "
             "'1401' and "
             "c2339 = '1' and l2815 = '1'"_s,
             10)
            .value(0)
            .split(u'|');
    auto cells = expected;
    cells.insert(9, u"passed"_s);
    EXPECT_EQ(lines.last(), cells.join(u',') + u",30,,,"_s);
}

TEST_F(RecordsProgram, ListsWhatIsOverdueAlone) {
    EXPECT_EQ(firstCells(linesOf(run({u"--overdue"_s}))), dueUpTo(-1));
    EXPECT_EQ(dueUpTo(-1).size(), 2);
}

TEST_F(RecordsProgram, ListsWhatIsOut) {
    const auto lines = linesOf(run({u"--due=36500"_s})).filter(u"PT-103,"_s);
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines.first().endsWith(u",6841207,jdoe,"_s + day(-2))) << lines.first().toStdString();
}

TEST_F(RecordsProgram, ListsWhereAStandardWasUsed) {
    const auto lines = linesOf(run({u"--used=F702-01"_s, u"--since=1990-01-01"_s}));
    EXPECT_EQ(lines, QStringList(rows(
                         u"select i4201 || ',' || i4204 || ',' || c2301 || ',' || c2333 || ',' || c2308 || "
                         "',passed,' || c.ctag from mt.calibration c join mt.inventory i on i.mtag = "
                         "c.mtag where c.ctag in (select ctag from mt.standards where c2430 = '1102')"_s)));
    EXPECT_EQ(lines.size(), 1);
    EXPECT_EQ(linesOf(run({u"--used=F702-01"_s, u"--since"_s, day(0)})).size(), 0);
}

TEST_F(RecordsProgram, ListsTheHistoryOfAnInstrumentWithTheDecimalSignOfTheForm) {
    const auto lines = linesOf(run({u"--history=LT-10'COL"_s, u"--separator=semicolon"_s}));
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines.first().contains(u";21,5;45;"_s)) << lines.first().toStdString();
    const auto history = linesOf(run({u"--history=PT-101"_s}));
    EXPECT_EQ(history.size(), 3);
    EXPECT_TRUE(history.first().contains(u",21.5,45,"_s)) << history.first().toStdString();
}

TEST_F(RecordsProgram, ListsTheStandardsOfARecordAsTheyWereOnThatDay) {
    const auto standards = [&] { return linesOf(run({u"--history=PT-101"_s})).value(0).section(u'"', 1, 1); };
    const auto none = u" (no record by that day)"_s;
    EXPECT_EQ(standards(), u"F702-01"_s + none + u"; PM-100"_s + none) << "they were calibrated later";
    execute(u"insert into mt.calibration (mtag,c2301,c2303,c2323) values ('1102','%1','%2','Y')"_s.arg(
        day(-700), day(9)));
    execute(u"insert into mt.calibration (mtag,c2301,c2303,c2323) values ('1205','%1','%2','Y')"_s.arg(
        day(-700), day(-500)));
    EXPECT_EQ(standards(),
              u"F702-01 (in calibration, due %1); PM-100 (overdue since %2)"_s.arg(day(9), day(-500)));
}

TEST_F(RecordsProgram, OfAUserWhoOnlySendsWorkListsTheSame) {
    const auto words = QStringList{u"--due=3650"_s};
    EXPECT_EQ(linesOf(run(words, "kelvane\n", u"amoreau"_s)), linesOf(run(words)));
    EXPECT_EQ(linesOf(run({u"--history=PT-101"_s}, "kelvane\n", u"amoreau"_s)).size(), 3);
    EXPECT_EQ(linesOf(run({u"--used=F702-01"_s, u"--since=1990-01-01"_s}, "kelvane\n", u"amoreau"_s)).size(),
              1);
}

TEST_F(RecordsProgram, WritesAFileWhereItWasNamed) {
    const auto ending = run({u"--overdue"_s, u"--out=due list.csv"_s});
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.output + ending.errors, QString());
    QFile file(home.filePath(u"due list.csv"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()), run({u"--overdue"_s}).output);
    expectTold(run({u"--overdue"_s, u"--out=nowhere/list.csv"_s}), 1,
               home.path() + u"/nowhere/list.csv can't be"_s);
}

TEST_F(RecordsProgram, TellsOfAnOutputThatCanNotBeWritten) {
    expectTold(
        runProgram({u"--due=3650"_s, u"--csv"_s, u"--user=jdoe"_s, u"--data-source="_s + database.dsn()},
                   "kelvane\n", u"/dev/full"_s),
        1, u"the output can't be written"_s);
}

TEST_F(RecordsProgram, ChangesNeitherTheDatabaseNorTheFolderWhereItIsStarted) {
    execute(
        u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('1','%1','1402',null)"_s
            .arg(daysAgo(400)));
    execute(
        u"insert into mt.hvm_kv_task_packages (taskname,tptag,created_on) values ('OLD','OLD','%1')"_s.arg(
            daysAgo(400)));
    const auto counts = [&] {
        QStringList found;
        for (const auto& table : {u"hvm_kv_task_inuse"_s, u"hvm_kv_task_packages"_s, u"hvm_kv_task_assets"_s,
                                  u"hvm_kv_task_standards_inuse"_s, u"calibration"_s, u"standards"_s})
            found << value(u"select count(*) from mt."_s + table);
        return found;
    };
    const auto before = counts();
    EXPECT_EQ(linesOf(run({u"--overdue"_s})).size(), 2);
    EXPECT_EQ(counts(), before);
    expectTold(run({u"--history=NO"_s}), 1, u"there is no asset NO"_s);
    EXPECT_EQ(QDir(home.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList(u"state"_s));
    EXPECT_EQ(QDir(home.filePath(u"state/kelvane-records"_s)).entryList(QDir::Files), QStringList());
}

TEST_F(RecordsProgram, KeepsItsReportsInAFolderOfItsOwn) {
    execute(u"alter table mt.calibration rename to calibrations"_s);
    expectTold(run({u"--overdue"_s}), 1, u"The following internal error has occurred"_s);
    EXPECT_FALSE(QFile::exists(home.filePath(u"errors.log"_s)));
    QFile log(home.filePath(u"state/kelvane-records/errors.log"_s));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    const auto content = log.readAll();
    EXPECT_TRUE(content.contains("History,instruments") &&
                content.contains("left outer join MT.calibration"));
    EXPECT_FALSE(content.contains("kelvane\n"));
}

TEST_F(RecordsProgram, WritesACertificateWithoutADisplay) {
    EXPECT_TRUE(QFile::copy(QStringLiteral(KELVANE_SOURCES "/database/demo/rslt_db.frm"),
                            home.filePath(u"rslt_db.frm"_s)));
    const auto ending = certificate({u"--certificate=PT-101"_s, u"--out=PT 101.pdf"_s});
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.output + ending.errors, QString());
    const auto ctag = value(u"select max(ctag) from mt.calibration where mtag = '1401' and c2339 = '1'"_s);
    const auto page = pdfText(u"PT 101.pdf"_s);
    for (const auto& words : {u"Calibration Certificate"_s, u"MT-"_s + ctag, u"PT-101"_s, u"not stated"_s,
                              u"psig"_s, u"End of the certificate"_s})
        EXPECT_TRUE(page.contains(words)) << words.toStdString() << '\n' << page.toStdString();
    const auto oldest = value(u"select min(ctag) from mt.calibration where mtag = '1401'"_s);
    EXPECT_EQ(certificate({u"--certificate=PT-101"_s, u"--record="_s + oldest, u"--out=PT 101.pdf"_s}).status,
              0);
    EXPECT_TRUE(pdfText(u"PT 101.pdf"_s).contains(u"MT-"_s + oldest));
}

TEST_F(RecordsProgram, WritesTheCertificateOfANumberThatIsFilledUpWithBlanks) {
    execute(u"update mt.inventory set i4201 = 'PT-101    ' where i4201 = 'PT-101'"_s);
    EXPECT_EQ(certificate({u"--certificate=PT-101"_s, u"--out=a.pdf"_s}).status, 0);
    const auto page = pdfText(u"a.pdf"_s);
    EXPECT_TRUE(page.contains(u"PT-101"_s) && page.contains(u"psig"_s)) << page.toStdString();
}

TEST_F(RecordsProgram, WarnsOfACertificateThatWasWrittenWithoutAResultTemplate) {
    const auto ending = certificate({u"--certificate=PT-101"_s, u"--out=a.pdf"_s});
    expectTold(ending, 0, u"there is no result template (rslt_db.frm): the result lines of PT-101 stand"_s);
    EXPECT_TRUE(pdfText(u"a.pdf"_s).contains(u"End of the certificate"_s));
}

TEST_F(RecordsProgram, TellsWhyThereIsNoCertificate) {
    expectTold(certificate({u"--certificate=NO"_s, u"--out=a.pdf"_s}), 1, u"there is no asset NO"_s);
    expectTold(certificate({u"--certificate=PM-300"_s, u"--out=a.pdf"_s}), 1,
               u"PM-300 has no calibration record"_s);
    expectTold(certificate({u"--certificate=PT-101"_s, u"--record=1"_s, u"--out=a.pdf"_s}), 1,
               u"PT-101 has no calibration record 1"_s);
    expectTold(certificate({u"--certificate=PT-101"_s, u"--out=nowhere/a.pdf"_s}), 1,
               home.path() + u"/nowhere/a.pdf can't be written"_s);
    expectTold(certificate({u"--certificate=PT-101"_s}), 2, u"--out is missing"_s);
    EXPECT_FALSE(QFile::exists(home.filePath(u"a.pdf"_s)));
}

TEST_F(RecordsProgram, TellsTheCauseWhenTheCustomerOfACertificateCanNotBeRead) {
    database.executeElsewhere(u"alter table mt.customers rename column k4601 to name"_s);
    const auto ending = certificate({u"--certificate=PT-101"_s, u"--out=a.pdf"_s});
    expectTold(ending, 1, QString());
    EXPECT_TRUE(ending.errors.contains(u"k4601"_s)) << ending.errors.toStdString();
    EXPECT_FALSE(QFile::exists(home.filePath(u"a.pdf"_s)));
}

TEST_F(RecordsProgram, WithoutAListTellsWhatThereIs) {
    expectTold(runProgram({u"--csv"_s}), 2, u"it lists what is due (--due), what is overdue (--overdue), "_s);
}

TEST_F(RecordsProgram, RefusesALoginInOneSentenceWithoutThePassword) {
    const auto refused = u"the login to "_s + database.dsn() + u" has failed: "_s;
    const auto wrong = run({u"--overdue"_s}, "not the one\n");
    expectTold(wrong, 1, refused);
    EXPECT_FALSE(wrong.errors.contains(u"not the one"_s));
    expectTold(run({u"--overdue"_s}, "kelvane\n", u"nobody"_s), 1, refused);
    expectTold(run({u"--overdue"_s}, "\n"), 1, u"no password was given on the standard input"_s);
    expectTold(run({u"--overdue"_s}, {}), 1, u"no password was given on the standard input"_s);
    expectTold(
        runProgram({u"--overdue"_s, u"--csv"_s, u"--user=jdoe"_s, u"--data-source=none such"_s}, "kelvane\n"),
        1, u"the login to none such has failed: "_s);
}

TEST_F(RecordsProgram, WithoutADataSourceTakesThatOfTheWorkstation) {
    QDir(home.path()).mkdir(u"settings"_s);
    QFile settingsFile(home.filePath(u"settings/KELVANE.ini"_s));
    ASSERT_TRUE(settingsFile.open(QIODevice::WriteOnly));
    settingsFile.write("[Workstation]\nODBC=" + database.dsn().toUtf8() + "\n");
    settingsFile.close();
    EXPECT_EQ(linesOf(runProgram({u"--overdue"_s, u"--csv"_s, u"--user=jdoe"_s}, "kelvane\n")).size(), 2);
    ASSERT_TRUE(settingsFile.open(QIODevice::ReadOnly));
    EXPECT_EQ(settingsFile.readAll(), "[Workstation]\nODBC=" + database.dsn().toUtf8() + "\n");
}

} // namespace kelvane::testing
