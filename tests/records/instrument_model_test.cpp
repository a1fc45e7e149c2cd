#include "records/instrument_model.h"

#include "resources/text_id.h"
#include "testkit/shown_in.h"
#include "tests/records/made_up_instruments.h"
#include "tests/records/reading_session.h"

#include <QColor>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

int columnOf(TextId title) {
    const auto columns = shownInstrumentColumns();
    for (std::size_t column = 0; column < columns.size(); ++column) {
        if (columns[column].title == title)
            return static_cast<int>(column);
    }
    ADD_FAILURE() << text(title).toStdString();
    return 0;
}

QString shown(const InstrumentModel& model, int row, TextId title) {
    return model.data(model.index(row, columnOf(title)), Qt::DisplayRole).toString();
}

} // namespace

class InstrumentsAsTheyComeIntoSight : public MadeUpSession {
  protected:
    InstrumentModel model{session};
};

TEST_F(InstrumentsAsTheyComeIntoSight, AreReadInBlocks) {
    inventory.instruments = 450;
    model.ask({});
    EXPECT_EQ(model.rowCount(), 450);
    EXPECT_EQ(inventory.rowsRead, 200) << "no more than what can be seen";
    EXPECT_EQ(shown(model, 199, TextId::listAsset), u"I-00199"_s);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    EXPECT_EQ(shown(model, 449, TextId::listAsset), u"I-00449"_s) << "told at once";
    EXPECT_EQ(inventory.rowsRead, 200) << "nothing is read while the list is painted";
    ASSERT_TRUE(changed.wait());
    EXPECT_EQ(inventory.rowsRead, 250);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 400);
    EXPECT_EQ(changed[0][1].toModelIndex().row(), 449);
    EXPECT_EQ(shown(model, 449, TextId::listAsset), u"I-00449"_s);
    QTest::qWait(10);
    EXPECT_EQ(inventory.blocks.size(), 2);
    EXPECT_EQ(inventory.queries.size(), 1);
}

TEST_F(InstrumentsAsTheyComeIntoSight, AreNotReadWhereAQuickHandScrollsPast) {
    inventory.instruments = 50'000;
    model.ask({});
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    for (int row = 0; row < model.rowCount(); row += 100)
        shown(model, row, TextId::listDue);
    ASSERT_TRUE(changed.wait());
    QTest::qWait(10);
    EXPECT_EQ(inventory.blocks.size(), 3) << "the first one, and what is in sight at last";
    EXPECT_EQ(changed.constLast()[1].toModelIndex().row(), 49'999);
}

TEST_F(InstrumentsAsTheyComeIntoSight, AreReadAgainWhenTheyWereOutOfSightForLong) {
    inventory.instruments = 10'000;
    model.ask({});
    for (int row = 200; row < model.rowCount(); row += 200)
        EXPECT_EQ(model.instrument(row).asset, shown(model, row, TextId::listAsset));
    EXPECT_EQ(inventory.blocks.size(), 50);
    model.instrument(9'999);
    EXPECT_EQ(inventory.blocks.size(), 50);
    model.instrument(0);
    EXPECT_EQ(inventory.blocks.size(), 51) << "not all are kept";
}

TEST_F(InstrumentsAsTheyComeIntoSight, AreForgottenByTheNextQuery) {
    inventory.instruments = 300;
    model.ask({});
    inventory.instruments = 3;
    model.ask({.filter = {.isOverdue = true}, .order = InstrumentOrder::due, .isDescending = true});
    EXPECT_EQ(model.rowCount(), 3);
    ASSERT_EQ(inventory.queries.size(), 2);
    EXPECT_TRUE(inventory.queries[1].contains(u"c2303 < "_s));
    EXPECT_TRUE(inventory.queries[1].contains(u"cal.c2303 desc"_s));
}

TEST_F(InstrumentsAsTheyComeIntoSight, StayWhenTheConnectionIsLostWhichIsTold) {
    inventory.instruments = 850;
    inventory.failAt = 250;
    inventory.isLoss = true;
    model.ask({});
    model.instrument(849);
    QSignalSpy read(&model, &InstrumentModel::read);
    ui.expectReport(10054, u"History,instruments"_s);
    shown(model, 250, TextId::listDue);
    ASSERT_TRUE(read.wait());
    EXPECT_TRUE(model.hasFailed());
    EXPECT_EQ(read.size(), 1);
    EXPECT_EQ(model.rowCount(), 850);
    const auto blocks = inventory.blocks.size();
    EXPECT_EQ(model.instrument(199).mtag, u"199"_s);
    EXPECT_EQ(model.instrument(300).asset, u"I-00300"_s) << "key and asset number stay";
    EXPECT_EQ(model.instrument(700).asset, u"I-00700"_s);
    QTest::qWait(10);
    EXPECT_EQ(inventory.blocks.size(), blocks) << "no second report of the same loss";
}

TEST_F(InstrumentsAsTheyComeIntoSight, AreNoneWhenTheQueryFails) {
    inventory.instruments = 450;
    model.ask({});
    inventory.isBroken = true;
    ui.expectReport(10054, u"History,instruments"_s);
    model.ask({.order = InstrumentOrder::model});
    EXPECT_EQ(model.rowCount(), 0) << "those of the query before are not those of this one";
    EXPECT_TRUE(model.hasFailed());
}

TEST_F(InstrumentsAsTheyComeIntoSight, ComeFromOneQueryAtATime) {
    inventory.instruments = 10;
    inventory.failAt = 5;
    ui.expectReport(10054, u"History,instruments"_s);
    // The user goes on typing while the report of the first query is on the screen.
    ui.onBox = [&] {
        inventory.failAt = -1;
        model.ask({.filter = {.text = u"I-0000"_s}});
        EXPECT_EQ(inventory.queries.size(), 1) << "the second one waits";
    };
    model.ask({});
    EXPECT_EQ(inventory.queries.size(), 2);
    EXPECT_EQ(model.rowCount(), 10);
    EXPECT_FALSE(model.hasFailed());
    EXPECT_EQ(model.query().filter.text, u"I-0000"_s);
}

TEST_F(InstrumentsAsTheyComeIntoSight, MayBeForgottenWhileTheErrorOfABlockIsOnTheScreen) {
    inventory.instruments = 450;
    inventory.failAt = 250;
    model.ask({});
    ui.expectReport(10054, u"History,instruments"_s);
    ui.onBox = [&] { model.clear(); };
    EXPECT_EQ(model.instrument(250).mtag, QString());
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_FALSE(model.hasFailed());
}

TEST(InstrumentColumns, AreThoseOfTheListInItsOrder) {
    const auto columns = shownInstrumentColumns();
    ASSERT_EQ(columns.size(), instrumentColumns().size());
    for (std::size_t column = 0; column < columns.size(); ++column)
        EXPECT_EQ(columns[column].title, instrumentColumns()[column].title) << column;
}

TEST(DaysLeft, AreSaidInWords) {
    const std::pair<qint64, QString> cases[] = {{-400, u"overdue for 400 days"_s},
                                                {-1, u"overdue for 1 day"_s},
                                                {0, u"due today"_s},
                                                {1, u"1 day"_s},
                                                {30, u"30 days"_s},
                                                {36500, u"36500 days"_s}};
    for (const auto& [days, words] : cases)
        EXPECT_EQ(daysLeftText(days), words);
    const ShownIn german(u"de"_s);
    EXPECT_EQ(daysLeftText(-1), u"seit 1 Tag überfällig"_s);
}

class InstrumentsOnDatabase : public ReadingSession {
  protected:
    void ask(const InstrumentQuery& query = {}) {
        model.ask(query);
        EXPECT_FALSE(model.hasFailed());
    }
    int rowOf(const QString& asset) {
        for (int row = 0; row < model.rowCount(); ++row) {
            if (model.instrument(row).asset == asset)
                return row;
        }
        ADD_FAILURE() << asset.toStdString();
        return 0;
    }
    QStringList assets() {
        QStringList found;
        for (int row = 0; row < model.rowCount(); ++row)
            found << model.instrument(row).asset;
        return found;
    }
    QVariant color(const QString& asset, TextId title) {
        return model.data(model.index(rowOf(asset), columnOf(title)), Qt::ForegroundRole);
    }

    InstrumentModel model{session};
};

TEST_F(InstrumentsOnDatabase, ShowWhatTheDatabaseSays) {
    ask();
    EXPECT_EQ(QString::number(model.rowCount()), value(u"select count(*) from mt.inventory"_s));
    const auto asset = u"PT-101"_s;
    const auto of = [&](const QString& column) {
        return value(u"select "_s + column + u" from mt.inventory where i4201 = 'PT-101'"_s);
    };
    const int row = rowOf(asset);
    EXPECT_EQ(shown(model, row, TextId::packageDescription), of(u"i4204"_s));
    EXPECT_EQ(shown(model, row, TextId::packageModel), of(u"i4203"_s));
    EXPECT_EQ(shown(model, row, TextId::listSerialNumber), of(u"i4206"_s));
}

TEST_F(InstrumentsOnDatabase, AreOrderedByTheDatabase) {
    for (const bool isDescending : {false, true}) {
        ask({.order = InstrumentOrder::description, .isDescending = isDescending});
        QStringList found;
        for (int row = 0; row < model.rowCount(); ++row)
            found << shown(model, row, TextId::packageDescription);
        found.removeAll(QString());
        EXPECT_GT(found.size(), 50);
        auto sorted = found;
        std::ranges::stable_sort(sorted);
        if (isDescending)
            std::ranges::reverse(sorted);
        EXPECT_EQ(found, sorted);
    }
}

TEST_F(InstrumentsOnDatabase, AreFilteredByEveryCharacterAsItStands) {
    write(u"update mt.inventory set i4204 = 'O''RING 50%_A' where i4201 = 'PT-101'"_s);
    const std::pair<QString, bool> cases[] = {{u"o'r"_s, true},  {u"50%"_s, true},  {u"%_a"_s, true},
                                              {u"''"_s, false},  {u"5_%"_s, false}, {u"O%50"_s, false},
                                              {u"G 50"_s, true}, {u"\\"_s, false}};
    for (const auto& [typed, isFound] : cases) {
        ask({.filter = {.text = typed}});
        EXPECT_EQ(assets().contains(u"PT-101"_s), isFound) << typed.toStdString();
    }
}

TEST_F(InstrumentsOnDatabase, WithoutADueDateHaveNoDays) {
    setCurrent(u"PT-101"_s, u"c2301 = null, c2303 = null"_s);
    ask();
    for (const auto title : {TextId::listLastCalibration, TextId::listDue, TextId::listDaysLeft}) {
        EXPECT_EQ(shown(model, rowOf(u"PT-101"_s), title), QString());
        EXPECT_FALSE(color(u"PT-101"_s, title).isValid());
    }
    ask({.filter = {.isOverdue = true}});
    EXPECT_FALSE(assets().contains(u"PT-101"_s));
}

TEST_F(InstrumentsOnDatabase, AreColouredAndWordedByTheirDays) {
    struct Case {
        int days;
        QString words;
    };
    QColor overdue;
    QColor near;
    for (const auto& test : {Case{-1, u"overdue for 1 day"_s},
                             {-500, u"overdue for 500 days"_s},
                             {0, u"due today"_s},
                             {30, u"30 days"_s},
                             {31, u"31 days"_s},
                             {7300, u"7300 days"_s}}) {
        setCurrent(u"PT-101"_s, u"c2303 = '%1'"_s.arg(day(test.days)));
        ask();
        EXPECT_EQ(shown(model, rowOf(u"PT-101"_s), TextId::listDue), day(test.days));
        EXPECT_EQ(shown(model, rowOf(u"PT-101"_s), TextId::listDaysLeft), test.words);
        const auto found = color(u"PT-101"_s, TextId::listDaysLeft);
        if (test.days < 0)
            overdue = found.value<QColor>();
        else if (test.days <= 30)
            near = found.value<QColor>();
        else
            EXPECT_FALSE(found.isValid()) << test.days;
    }
    EXPECT_TRUE(overdue.isValid());
    EXPECT_TRUE(near.isValid());
    EXPECT_NE(overdue, near);
}

TEST_F(InstrumentsOnDatabase, SayTheirResultInWordsAndInColour) {
    setCurrent(u"PT-101"_s, u"c2323 = 'N'"_s);
    setCurrent(u"TW-101"_s, u"c2323 = 'Y'"_s);
    ask();
    EXPECT_EQ(shown(model, rowOf(u"PT-101"_s), TextId::listResult), text(TextId::resultFailed));
    EXPECT_TRUE(color(u"PT-101"_s, TextId::listResult).isValid());
    EXPECT_EQ(shown(model, rowOf(u"TW-101"_s), TextId::listResult), text(TextId::resultPassed));
    EXPECT_FALSE(color(u"TW-101"_s, TextId::listResult).isValid());
}

} // namespace kelvane::testing
