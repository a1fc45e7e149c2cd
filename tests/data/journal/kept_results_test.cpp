#include "data/journal/kept_results.h"

#include "data/journal/journal_entries.h"
#include "testkit/fixtures.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLockFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class KeptResultsOfAStation : public RecordedSession {
  protected:
    KeptResultsOfAStation() {
        session.SessionDataSource = u"Calibration Data"_s;
        EXPECT_TRUE(QDir(folder.path()).mkpath(u"station"_s));
    }

    /// The workstation writes in its own folder, which is the current one.
    template <class Work>
    void atStation(Work&& work) {
        const auto before = QDir::currentPath();
        ASSERT_TRUE(QDir::setCurrent(station));
        work(Journal(session));
        ASSERT_TRUE(QDir::setCurrent(before));
    }
    QString add(const QString& asset) {
        QString id;
        atStation([&](Journal journal) {
            id = journal.add({.calibrator = u"Fluke 702"_s, .asset = asset, .readings = {u"1: 50"_s}});
        });
        return id;
    }
    void append(const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write(bytes);
    }
    KeptResults read() { return keptResults(session, folders).value_or(KeptResults()); }
    static QStringList assetsOf(const KeptResults& kept) {
        QStringList assets;
        for (const auto& entry : kept.unfinished)
            assets << entry.asset;
        return assets;
    }
    QStringList filesOfStation() const { return QDir(station).entryList(QDir::Files | QDir::Hidden); }

    QString station = folder.path() + u"/station"_s;
    QString path = station + u'/' + Journal::fileName(u"Calibration Data"_s);
    QStringList folders{folder.path(), station};
};

TEST_F(KeptResultsOfAStation, WithoutAJournalAreNoneAndNoneIsMade) {
    const auto kept = read();
    EXPECT_FALSE(kept.exists);
    EXPECT_EQ(kept.path, path);
    EXPECT_EQ(kept.unfinished.size() + kept.unreadable, 0);
    EXPECT_EQ(filesOfStation(), QStringList());
    EXPECT_FALSE(keptResults(session, {}).value_or(KeptResults{.exists = true}).exists);
}

TEST_F(KeptResultsOfAStation, AreThoseThatHaveNotEnded) {
    add(u"PT-101"_s);
    const auto ended = add(u"PT-102"_s);
    const auto explained = add(u"PT-103"_s);
    atStation([&](Journal journal) {
        journal.end(ended, JournalEnd::done);
        journal.explain(explained, u"the disk was full"_s);
    });
    const auto kept = read();
    EXPECT_TRUE(kept.exists);
    EXPECT_EQ(kept.path, path);
    EXPECT_EQ(assetsOf(kept), (QStringList{u"PT-101"_s, u"PT-103"_s}));
    EXPECT_EQ(kept.unfinished.last().why, u"the disk was full"_s);
    EXPECT_EQ(kept.unfinished.last().user, u"jdoe"_s);
    EXPECT_EQ(kept.unreadable, 0);
}

TEST_F(KeptResultsOfAStation, AreReadWhileTheWorkstationWritesAndChangeNothing) {
    add(u"PT-101"_s);
    const auto bytes = folder.read(u"station/"_s + QFileInfo(path).fileName());
    const auto changed = QFileInfo(path).lastModified();
    QLockFile lock(path + u".lock"_s);
    ASSERT_TRUE(lock.tryLock());
    EXPECT_EQ(assetsOf(read()), QStringList{u"PT-101"_s});
    lock.unlock();
    EXPECT_EQ(folder.read(u"station/"_s + QFileInfo(path).fileName()), bytes);
    EXPECT_EQ(QFileInfo(path).lastModified(), changed);
    EXPECT_EQ(filesOfStation(), QStringList{QFileInfo(path).fileName()});
}

TEST_F(KeptResultsOfAStation, OfADamagedJournalAreWhatCanBeReadAndTheRestIsCounted) {
    add(u"PT-101"_s);
    append("{\"id\":\"torn\",\"asset\":\"PT-1\n");
    append("\x00\xff\xfe no line of ours\n[1,2]\n\n  \n");
    append("{\"id\":\"without a beginning\",\"why\":\"late\"}\n");
    append("{\"id\":\"ended long ago\",\"state\":\"done\"}\n");
    add(u"PT-102"_s);
    append("{\"id\":\"half");
    const auto kept = read();
    EXPECT_EQ(assetsOf(kept), (QStringList{u"PT-101"_s, u"PT-102"_s}));
    EXPECT_EQ(kept.unreadable, 5);
}

TEST_F(KeptResultsOfAStation, OfTheFolderOfTheStartComeFirst) {
    add(u"PT-101"_s);
    Journal(session).add({.asset = u"HERE"_s});
    const auto kept = read();
    EXPECT_EQ(assetsOf(kept), QStringList{u"HERE"_s});
    EXPECT_EQ(QFileInfo(kept.path).absolutePath(), folder.path());
}

TEST_F(KeptResultsOfAStation, OfAnotherDataSourceAreNotThere) {
    add(u"PT-101"_s);
    session.SessionDataSource = u"Other"_s;
    EXPECT_FALSE(read().exists);
}

TEST_F(KeptResultsOfAStation, ThatCanNotBeReadAreReportedAndNotTakenForNone) {
    ASSERT_TRUE(QDir().mkpath(path));
    ui.expectReport(75, u"Journal,keptResults"_s);
    EXPECT_FALSE(keptResults(session, folders));
}

TEST(JournalEntriesOfLines, CountTheLinesOfNoEntry) {
    const JournalEntries entries(
        {"{\"id\":\"a\",\"raw\":{}}", "", "nothing", "{\"id\":\"a\",\"state\":\"done\"}"});
    EXPECT_EQ(entries.ids(), QStringList{u"a"_s});
    EXPECT_TRUE(entries.linesOf(u"a"_s).isWhole);
    EXPECT_TRUE(entries.linesOf(u"a"_s).hasEnded);
    EXPECT_EQ(entries.strangeLines(), 1);
    const JournalEntry entry{.asset = u"PT-101"_s, .fields = {{u"C2301"_s, u"x"_s}}};
    EXPECT_EQ(entryOf(u"a"_s, contentOf(entry)).fields, entry.fields);
}

} // namespace kelvane::testing
