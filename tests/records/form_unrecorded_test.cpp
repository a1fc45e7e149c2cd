#include "records/form_unrecorded.h"

#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "testkit/screen_operator.h"
#include "tests/records/looks.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class UnrecordedScreen : public RecordedSession {
  protected:
    UnrecordedScreen() {
        session.SessionDataSource = u"Calibration Data"_s;
        session.SessionConnected = true;
    }

    QString add(const QString& asset, const QString& why = u"the database was lost"_s) {
        return Journal(session).add({.calibrator = u"Fluke 702"_s,
                                     .asset = asset,
                                     .date = u"2026-03-18"_s,
                                     .time = u"09:30:05"_s,
                                     .readings = {u"1: 50 of "_s + asset, u"2: 75"_s},
                                     .why = why});
    }
    void open() {
        form = std::make_unique<FormUnrecorded>(session, QStringList{folder.path()});
        form->resize(900, 500);
        form->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    QTreeWidget& results() { return control<QTreeWidget>(*form, u"ListResults"_s); }
    QString found() { return control<QLabel>(*form, u"LabelFound"_s).text(); }
    QStringList row(int number) {
        QStringList cells;
        for (int column = 0; column < results().columnCount(); ++column)
            cells << results().topLevelItem(number)->text(column);
        return cells;
    }
    QString firstReading() {
        const auto* reading = control<QListWidget>(*form, u"ListReadings"_s).item(0);
        return reading ? reading->text() : QString();
    }
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    std::unique_ptr<FormUnrecorded> form;
};

TEST_F(UnrecordedScreen, TellsThatThereIsNoJournalAndMakesNone) {
    open();
    EXPECT_EQ(found(), text(TextId::unrecordedNoJournal));
    EXPECT_EQ(results().topLevelItemCount(), 0);
    EXPECT_EQ(control<QLabel>(*form, u"LabelJournal"_s).text(),
              u"Journal file: "_s + folder.path() + u'/' + Journal(session).path());
    EXPECT_EQ(files(), QStringList());
}

TEST_F(UnrecordedScreen, ShowsTheResultsWithTheirReadings) {
    add(u"PT-101"_s);
    add(u"PT-102"_s, u"refused"_s);
    open();
    EXPECT_EQ(found(), text(TextId::unrecordedFound).arg(2));
    EXPECT_EQ(row(1),
              (QStringList{u"PT-102"_s, u"2026-03-18 09:30:05"_s, u"Fluke 702"_s, u"jdoe"_s, u"refused"_s}));
    EXPECT_EQ(firstReading(), u"1: 50 of PT-101"_s);
    results().setFocus();
    QTest::keyClick(&results(), Qt::Key_Down);
    EXPECT_EQ(firstReading(), u"1: 50 of PT-102"_s);
    EXPECT_EQ(files(), QStringList{Journal(session).path()}) << "no lock is left, nothing is added";
}

TEST_F(UnrecordedScreen, NoticesWhatTheWorkstationHasDoneMeanwhile) {
    const auto first = add(u"PT-101"_s);
    add(u"PT-102"_s);
    open();
    results().setCurrentItem(results().topLevelItem(1));
    Journal(session).end(first, JournalEnd::done);
    QTest::keyClick(&results(), Qt::Key_F5);
    ASSERT_EQ(results().topLevelItemCount(), 1);
    EXPECT_EQ(firstReading(), u"1: 50 of PT-102"_s) << "the chosen one stays chosen";
    Journal(session).end(Journal(session).unfinished().first().id, JournalEnd::discarded);
    click(control<QPushButton>(*form, u"CommandReadAgain"_s));
    EXPECT_EQ(found(), text(TextId::unrecordedNone));
    EXPECT_EQ(firstReading(), QString());
}

TEST_F(UnrecordedScreen, TellsWhatCanNotBeRead) {
    add(u"PT-101"_s);
    QFile journal(Journal(session).path());
    ASSERT_TRUE(journal.open(QIODevice::Append));
    journal.write("{\"id\":\"torn\nnothing\n");
    journal.close();
    open();
    EXPECT_EQ(found(),
              text(TextId::unrecordedFound).arg(1) + u'\n' + text(TextId::unrecordedUnreadable).arg(2));
}

TEST_F(UnrecordedScreen, DoesNotSayThatAllIsRecordedWhenALineCanNotBeRead) {
    QFile journal(Journal(session).path());
    ASSERT_TRUE(journal.open(QIODevice::Append));
    journal.write("{\"id\":\"torn\n");
    journal.close();
    open();
    EXPECT_EQ(found(), text(TextId::unrecordedUnreadable).arg(1));
}

TEST_F(UnrecordedScreen, KeepsWhatWasReadWhenTheJournalCanNotBeRead) {
    add(u"PT-101"_s);
    open();
    ASSERT_TRUE(QFile::remove(Journal(session).path()));
    ASSERT_TRUE(QDir().mkpath(Journal(session).path()));
    ui.expectReport(75, u"Journal,keptResults"_s);
    form->readAgain();
    EXPECT_EQ(results().topLevelItemCount(), 1);
    EXPECT_EQ(found(), text(TextId::historyNotRead));
}

TEST_F(UnrecordedScreen, AfterLogOutShowsNothing) {
    add(u"PT-101"_s);
    open();
    form->forget();
    EXPECT_EQ(results().topLevelItemCount(), 0);
    EXPECT_EQ(found() + firstReading(), QString());
}

TEST_F(UnrecordedScreen, LooksWholeInEachSizeAndLanguage) {
    add(u"PT-101"_s);
    add(u"PT-102"_s,
        u"a reason that is longer than its column, so that it goes on beyond the window's right edge"_s);
    expectNothingCutOff(u"records-unrecorded"_s, [&] {
        return std::make_unique<FormUnrecorded>(session, QStringList{folder.path()});
    });
}

} // namespace kelvane::testing
