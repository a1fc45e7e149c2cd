#include "data/journal/journal.h"

#include "testkit/fixtures.h"
#include "tests/platform/errors.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QThread>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

JournalEntry entryFor(const QString& asset) {
    return {.driver = u"fluke702"_s,
            .calibrator = u"Fluke 702"_s,
            .serial = u"6841207"_s,
            .asset = asset,
            .mtag = u"1401"_s,
            .date = u"2026-03-18"_s,
            .time = u"09:30:05"_s,
            .raw = {{"points"_L1, u"74 31"_s}},
            .readings = {u"1: 50"_s, u"2: \"100\" \u00b0C"_s},
            .prepared = true,
            .lines = {u"  1  50 PASS"_s, u"  2 100 FAIL"_s},
            .fields = {{u"C2301"_s, u"2026-03-18"_s}, {u"C2326"_s, u"line\nend"_s}},
            .standards = {u"F702-01"_s},
            .why = u"because"_s};
}

QStringList assetsOf(const QList<JournalEntry>& entries) {
    QStringList assets;
    for (const auto& entry : entries)
        assets << entry.asset;
    return assets;
}

} // namespace

class ResultJournal : public RecordedSession {
  protected:
    ResultJournal() { session.SessionDataSource = u"Calibration Data"_s; }

    Journal journal() const {
        Journal opened(session);
        opened.rotationSize = rotationSize;
        return opened;
    }
    QString path() const { return folder.path() + u'/' + journal().path(); }
    QByteArray bytes() const {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void put(const QByteArray& content) const { folder.write(journal().path(), content); }
    QStringList unfinished() const { return assetsOf(journal().unfinished()); }

    qint64 rotationSize = 4 * 1024 * 1024;
};

TEST_F(ResultJournal, EntryComesBackWholeWithMomentUserAndOwner) {
    const auto id = journal().add(entryFor(u"PT-101"_s));
    const auto entry = journal().find(id);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->moment, u"2026-03-18 09:30:00"_s);
    EXPECT_EQ(entry->user, u"jdoe"_s);
    EXPECT_EQ(entry->owner, u"MT"_s);
    const auto written = entryFor(u"PT-101"_s);
    for (const auto text :
         {&JournalEntry::driver, &JournalEntry::calibrator, &JournalEntry::serial, &JournalEntry::asset,
          &JournalEntry::mtag, &JournalEntry::date, &JournalEntry::time, &JournalEntry::why})
        EXPECT_EQ((*entry).*text, written.*text);
    EXPECT_EQ(entry->raw, written.raw);
    EXPECT_EQ(entry->readings, written.readings);
    EXPECT_EQ(entry->lines, written.lines);
    EXPECT_EQ(entry->fields, written.fields);
    EXPECT_EQ(entry->standards, written.standards);
    EXPECT_TRUE(entry->prepared);
    EXPECT_EQ(bytes().count('\n'), 1) << "one line";
}

TEST_F(ResultJournal, TheBeginningOfARecordIsNotedWithItsMoment) {
    const auto id = journal().add(entryFor(u"PT-101"_s));
    EXPECT_FALSE(journal().find(id)->begun);
    journal().setBegun(id, u"2026-03-19"_s, u"10:00:00"_s);
    EXPECT_TRUE(journal().find(id)->begun);
    EXPECT_EQ(journal().find(id)->date, u"2026-03-19"_s);
    EXPECT_EQ(journal().find(id)->time, u"10:00:00"_s);
    auto again = *journal().find(id);
    again.begun = false;
    journal().replace(again);
    EXPECT_FALSE(journal().find(id)->begun);
}

TEST_F(ResultJournal, WithoutAFileThereIsNothing) {
    EXPECT_EQ(unfinished(), QStringList());
    EXPECT_FALSE(QFileInfo::exists(path()));
}

TEST_F(ResultJournal, EachEndTakesItsEntryOffTheUnfinishedOnes) {
    const auto done = journal().add(entryFor(u"A"_s));
    const auto refused = journal().add(entryFor(u"B"_s));
    const auto discarded = journal().add(entryFor(u"C"_s));
    journal().add(entryFor(u"D"_s));
    journal().end(done, JournalEnd::done);
    journal().end(refused, JournalEnd::refused, u"There is one already."_s);
    journal().end(discarded, JournalEnd::discarded);
    EXPECT_EQ(unfinished(), QStringList{u"D"_s});
    EXPECT_FALSE(journal().find(done));
    const auto text = QString::fromUtf8(bytes());
    EXPECT_TRUE(text.contains(u"\"state\":\"refused\""_s));
    EXPECT_TRUE(text.contains(u"There is one already."_s));
    EXPECT_TRUE(text.contains(u"\"ended\":\"2026-03-18 09:30:00\""_s));
    EXPECT_TRUE(text.contains(u"\"endedBy\":\"jdoe\""_s));
}

TEST_F(ResultJournal, LaterLinesChangeAnEntryUntilItHasEnded) {
    const auto id = journal().add(entryFor(u"PT-101"_s));
    journal().explain(id, u"the disk was full"_s);
    journal().setDate(id, u"2026-03-19"_s, u"10:00:00"_s);
    EXPECT_EQ(journal().find(id)->why, u"the disk was full"_s);
    EXPECT_EQ(journal().find(id)->date, u"2026-03-19"_s);
    EXPECT_EQ(journal().find(id)->time, u"10:00:00"_s);
    EXPECT_EQ(journal().find(id)->lines.size(), 2);
    auto changed = *journal().find(id);
    changed.lines = {u"only"_s};
    journal().replace(changed);
    EXPECT_EQ(journal().find(id)->lines, QStringList{u"only"_s});
    journal().end(id, JournalEnd::done);
    journal().explain(id, u"too late"_s);
    EXPECT_EQ(unfinished(), QStringList());
}

#ifdef Q_OS_UNIX
TEST_F(ResultJournal, TheFileBelongsToItsOwnerAloneFromItsCreationOn) {
    const auto before = umask(0);
    journal().add(entryFor(u"A"_s));
    umask(before);
    struct stat status {};
    ASSERT_EQ(stat(QFile::encodeName(path()).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(ResultJournal, ARewrittenFileBelongsToItsOwnerAlone) {
    rotationSize = 1;
    const auto before = umask(0);
    const auto id = journal().add(entryFor(u"A"_s));
    journal().add(entryFor(u"B"_s));
    journal().end(id, JournalEnd::done);
    umask(before);
    EXPECT_FALSE(bytes().contains("\"A\"")) << "it has been rewritten";
    struct stat status {};
    ASSERT_EQ(stat(QFile::encodeName(path()).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}
#endif

TEST_F(ResultJournal, ATornLastLineIsPassedOverAndEndedBeforeTheNext) {
    journal().add(entryFor(u"A"_s));
    const auto whole = bytes();
    for (const qsizetype length : {qsizetype{1}, whole.size() / 2, whole.size() - 1}) {
        // All but the line end is a whole line.
        const QStringList torn =
            length == whole.size() - 1 ? QStringList{u"A"_s, u"A"_s} : QStringList{u"A"_s};
        auto second = whole;
        second.replace("\"id\":\"", "\"id\":\"x");
        put(whole + second.left(length + (length == whole.size() - 1 ? 1 : 0)));
        EXPECT_EQ(unfinished(), torn) << length;
        journal().add(entryFor(u"B"_s));
        EXPECT_EQ(unfinished(), torn + QStringList{u"B"_s}) << length;
    }
}

TEST_F(ResultJournal, ForeignLinesAndKeysAreLeftAlone) {
    const auto id = journal().add(entryFor(u"A"_s));
    const auto foreign = QByteArray("{\"colour\":\"green\",\"id\":\"") + id.toUtf8() + "\",\"lines\":7}\n" +
                         "[1,2]\nnot json\n\n{\"id\":5}\n{\"id\":\"nobody\",\"state\":\"done\"}\n\xff\xfe\n";
    put(bytes() + foreign);
    EXPECT_EQ(unfinished(), QStringList{u"A"_s});
    rotationSize = 1;
    const auto ended = journal().add(entryFor(u"B"_s));
    journal().end(ended, JournalEnd::done);
    EXPECT_TRUE(bytes().contains("\"colour\":\"green\"")) << "an unfinished entry keeps all its lines";
    EXPECT_TRUE(bytes().contains("not json\n"));
}

TEST_F(ResultJournal, AnEntryOfAnOlderProgramMayHaveBegunItsRecord) {
    put(R"({"id":"a","asset":"PT-1","raw":{},"state":"unfinished"})"
        "\n"
        R"({"id":"b","asset":"PT-2","raw":{},"begun":false,"state":"unfinished"})"
        "\n");
    const auto entries = journal().unfinished();
    ASSERT_EQ(entries.size(), 2);
    EXPECT_TRUE(entries[0].begun);
    EXPECT_FALSE(entries[1].begun);
}

TEST_F(ResultJournal, WordsOfAnEndInsideAnEntryEndNeitherItNorAnother) {
    const auto ended = journal().add(entryFor(u"A"_s));
    journal().end(ended, JournalEnd::done);
    auto entry = entryFor(u"B"_s);
    entry.raw = {{"ended"_L1, u"never"_s}, {"state"_L1, u"done"_s}};
    entry.why = u"\"ended\":\"never\", \"id\":\""_s + ended + u'"';
    journal().add(entry);
    put(bytes() + "{ \"id\": \"spaced\", \"asset\": \"C\", \"raw\": {}, \"state\": \"unfinished\" }\n"
                  "{\"asset\":\"D\",\"ended\":\"never\",\"id\":\"D\",\"raw\":{},\"state\":\"unfinished\"}\n"
                  "{\"ended\":\"now\",\"state\":\"done\"}\n");
    EXPECT_EQ(unfinished(), (QStringList{u"B"_s, u"C"_s, u"D"_s}));
    put(bytes() + "{ \"id\": \"spaced\", \"state\": \"done\" }\n");
    EXPECT_EQ(unfinished(), (QStringList{u"B"_s, u"D"_s}));
}

TEST_F(ResultJournal, RotationDropsOldEndedEntriesAndNeverAnUnfinishedOne) {
    rotationSize = 20000;
    QStringList left;
    for (int i = 0; i < 200; ++i) {
        const auto asset = u"PT-%1"_s.arg(i);
        const auto id = journal().add(entryFor(asset));
        if (i % 10 == 0)
            left << asset;
        else
            journal().end(id, JournalEnd::done);
    }
    EXPECT_EQ(unfinished(), left);
    EXPECT_LT(bytes().size(), 2 * rotationSize + 20 * 1000);
    EXPECT_TRUE(bytes().contains("\"PT-199\"")) << "the newest that have ended are still there";
    EXPECT_FALSE(bytes().contains("\"PT-1\""));
    EXPECT_FALSE(QFileInfo::exists(path() + u".new"_s));
}

TEST_F(ResultJournal, NoTwoDataSourcesShareAFile) {
    const QStringList names{u"Lab"_s,           u"lab"_s,
                            u"Lab "_s,          u"La/b"_s,
                            u"La_b"_s,          u"La\\b"_s,
                            u"../Lab"_s,        u".."_s,
                            QString(),          u"Labor f\u00fcr Druck"_s,
                            u"Lab\0x"_s,        u"CON"_s,
                            u"Lab;x"_s,         u"Lab\n"_s,
                            u"*?<>|\":"_s,      QString(1000, u'L'),
                            QString(1001, u'L')};
    QStringList files;
    for (const auto& name : names) {
        const auto file = Journal::fileName(name);
        EXPECT_FALSE(files.contains(file, Qt::CaseInsensitive)) << name.toStdString();
        EXPECT_EQ(QFileInfo(file).fileName(), file) << "in the working folder";
        EXPECT_LT(file.size(), 100);
        files << file;
        session.SessionDataSource = name;
        journal().add(entryFor(name + u'!'));
        EXPECT_EQ(unfinished(), QStringList{name + u'!'});
    }
}

TEST_F(ResultJournal, AFolderInItsPlaceIsError75WithTheName) {
    ASSERT_TRUE(QDir().mkdir(journal().path()));
    EXPECT_EQ(errorOf([&] { journal().add(entryFor(u"A"_s)); }), 75);
    EXPECT_EQ(errorOf([&] { journal().unfinished(); }), 75);
    try {
        journal().add(entryFor(u"A"_s));
    } catch (const Error& error) {
        EXPECT_TRUE(error.description.contains(journal().path()));
    }
}

#ifdef Q_OS_UNIX
/// Carries out `body` in a process of its own; its result is the process's.
int inChild(const std::function<int()>& body) {
    const auto child = fork();
    if (child == 0)
        _exit(body());
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(ResultJournal, AFullDiskLeavesTheFileAsItWas) {
    journal().add(entryFor(u"A"_s));
    const auto before = bytes();
    const int error = inChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const auto limit = static_cast<rlim_t>(before.size() + 100);
        const rlimit limits{limit, limit};
        setrlimit(RLIMIT_FSIZE, &limits);
        return static_cast<int>(errorOf([&] { journal().add(entryFor(u"B"_s)); }));
    });
    EXPECT_EQ(error, 75);
    EXPECT_EQ(bytes(), before);
    journal().add(entryFor(u"C"_s));
    EXPECT_EQ(unfinished(), (QStringList{u"A"_s, u"C"_s}));
}

TEST_F(ResultJournal, TwoProcessesThatAppendAndRotateLoseNothingToEachOther) {
    rotationSize = 30000;
    const auto work = [this](const QString& name) {
        for (int i = 0; i < 60; ++i) {
            const auto id = journal().add(entryFor(name + QString::number(i)));
            if (i % 3 != 0)
                journal().end(id, JournalEnd::done);
        }
        return 0;
    };
    const auto child = fork();
    if (child == 0)
        _exit(work(u"child"_s));
    work(u"own"_s);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_EQ(status, 0);
    auto expected = QStringList();
    for (int i = 0; i < 60; i += 3)
        expected << u"child%1"_s.arg(i) << u"own%1"_s.arg(i);
    auto found = unfinished();
    expected.sort();
    found.sort();
    EXPECT_EQ(found, expected);
}

TEST_F(ResultJournal, AWriterThatWasKilledWhileItHeldTheLockIsNotWaitedFor) {
    const auto child = fork();
    if (child == 0) {
        QLockFile lock(journal().path() + u".lock"_s);
        lock.lock();
        raise(SIGKILL);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    journal().add(entryFor(u"A"_s));
    EXPECT_EQ(unfinished(), QStringList{u"A"_s});
}
#endif

} // namespace kelvane::testing
