#include "data/history/instruments.h"

#include "testkit/database_session.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class InstrumentsOnDatabase : public DatabaseSession {
  protected:
    QList<InstrumentSummary> read(const InstrumentQuery& query = {}) {
        InstrumentReader reader(session, query);
        QList<InstrumentSummary> all;
        while (!reader.isAtEnd())
            all << reader.next(7);
        EXPECT_FALSE(reader.hasFailed());
        return all;
    }
    QStringList assets(const InstrumentQuery& query) {
        QStringList found;
        for (const auto& instrument : read(query))
            found << instrument.asset;
        return found;
    }
    QStringList sorted(QStringList list) {
        list.sort();
        return list;
    }
    InstrumentSummary instrument(const QString& asset) {
        for (const auto& found : read()) {
            if (found.asset == asset)
                return found;
        }
        ADD_FAILURE() << asset.toStdString();
        return {};
    }
    QString day(int ahead = 0) const { return clock.now().date().addDays(ahead).toString(u"yyyy-MM-dd"_s); }
    /// The engine's own days between today and a date column.
    QString daysTo(const QString& column) const {
        return database.isShared() ? u"(%1 - date '%2')"_s.arg(column, day())
                                   : u"cast(julianday(%1) - julianday('%2') as integer)"_s.arg(column, day());
    }
    void setCurrent(const QString& asset, const QString& change) {
        execute(u"update mt.calibration set "_s + change +
                u" where c2339 = '1' and mtag = (select mtag from mt.inventory where i4201 = '"_s + asset +
                u"')"_s);
    }
    static QString shown(const QString& value) { return value.isEmpty() ? u"(null)"_s : value; }
};

} // namespace

TEST_F(InstrumentsOnDatabase, AreThoseOfTheInventoryWithTheirCurrentRecords) {
    const auto current = [](const QString& column) {
        return u"(select "_s + column + u" from mt.calibration c where c.mtag = i.mtag and c2339 = '1')"_s;
    };
    const auto expected =
        rows(u"select i.i4201,i4204,i4202,i4203,i4206,i4240,(select l2801 from mt.location l where l.mtag = "
             u"i.mtag "
             "and l2815 = '1'),"_s +
                 current(u"c2301"_s) + u',' + current(u"c2308"_s) + u',' + current(u"c2323"_s) + u',' +
                 current(u"c2303"_s) + u',' + current(daysTo(u"c2303"_s)) + u" from mt.inventory i"_s,
             12);
    QStringList found;
    for (const auto& summary : read()) {
        const auto days = summary.daysLeft ? QString::number(*summary.daysLeft) : QString();
        QStringList cells;
        for (const auto& value :
             {summary.asset, summary.description, summary.manufacturer, summary.model, summary.serial,
              summary.group, summary.location, summary.lastCalibration.text, summary.state, summary.passed,
              summary.due.text, days})
            cells << shown(value);
        found << cells.join(u'|');
    }
    EXPECT_GT(found.size(), 70);
    EXPECT_EQ(sorted(found), sorted(expected));
}

TEST_F(InstrumentsOnDatabase, AreOutWithTheirCalibrator) {
    const auto expected =
        rows(u"select i4201,serial_number,tech from mt.hvm_kv_task_inuse u join mt.inventory i on "
             "i.mtag = u.mtag"_s,
             3);
    QStringList found;
    for (const auto& summary : read()) {
        for (const auto& out : summary.out) {
            found << QStringList{summary.asset, out.serial, out.technician}.join(u'|');
            EXPECT_EQ(out.since.moment.date, clock.now().date().addDays(-2));
        }
    }
    EXPECT_EQ(found.size(), 2);
    EXPECT_EQ(sorted(found), sorted(expected));
}

TEST_F(InstrumentsOnDatabase, AreOrderedOnEachEngineAlikeWithTheEmptyOnesLast) {
    setCurrent(u"PT-101"_s, u"c2303 = '2001-01-02'"_s);
    setCurrent(u"PT-102"_s, u"c2303 = null"_s);
    setCurrent(u"PT-104"_s, u"c2303 = '2199-01-02'"_s);
    const auto ascending = assets({.order = InstrumentOrder::due});
    const auto descending = assets({.order = InstrumentOrder::due, .isDescending = true});
    const auto without = sorted(values(u"select i4201 from mt.inventory where mtag not in (select mtag from "
                                       "mt.calibration where c2339 = '1' and c2303 is not null)"_s));
    EXPECT_EQ(ascending.first(), u"PT-101"_s);
    EXPECT_EQ(descending.first(), u"PT-104"_s);
    EXPECT_TRUE(without.contains(u"PT-102"_s));
    EXPECT_EQ(sorted(ascending.last(without.size())), without);
    EXPECT_EQ(sorted(descending.last(without.size())), without);
    EXPECT_EQ(ascending.last(without.size()), descending.last(without.size()));
}

TEST_F(InstrumentsOnDatabase, CanBeOrderedByEachColumn) {
    const auto count = read().size();
    for (int order = 0; order <= static_cast<int>(InstrumentOrder::due); ++order) {
        for (const bool isDescending : {false, true})
            EXPECT_EQ(read({{}, static_cast<InstrumentOrder>(order), isDescending}).size(), count) << order;
    }
}

TEST_F(InstrumentsOnDatabase, DueWithinDaysAreThoseOfTheEnginesOwnCount) {
    setCurrent(u"PT-101"_s, u"c2303 = '%1'"_s.arg(day(30)));
    setCurrent(u"PT-102"_s, u"c2303 = '%1'"_s.arg(day(31)));
    setCurrent(u"PT-103"_s, u"c2303 = '%1'"_s.arg(day(0)));
    setCurrent(u"PT-104"_s, u"c2303 = '%1'"_s.arg(day(-1)));
    const auto expected = [&](const QString& condition) {
        return sorted(
            values(u"select i4201 from mt.inventory join mt.calibration c on c.mtag = inventory.mtag "
                   "where c2339 = '1' and "_s +
                   daysTo(u"c2303"_s) + condition));
    };
    const auto due = sorted(assets({.filter = {.dueWithinDays = 30}}));
    EXPECT_EQ(due, expected(u" <= 30"_s));
    EXPECT_TRUE(due.contains(u"PT-101"_s) && due.contains(u"PT-104"_s) && !due.contains(u"PT-102"_s));
    const auto overdue = sorted(assets({.filter = {.isOverdue = true}}));
    EXPECT_EQ(overdue, expected(u" < 0"_s));
    EXPECT_TRUE(overdue.contains(u"PT-104"_s) && !overdue.contains(u"PT-103"_s));
}

TEST_F(InstrumentsOnDatabase, AreFoundByWhatIsTypedCharacterByCharacter) {
    execute(u"update mt.inventory set i4204 = 'GAUGE 100% O2_N2 [a]\\b' where i4201 = 'PG-801'"_s);
    execute(u"update mt.inventory set i4204 = 'Prüfgerät ÄÖÜ' where i4201 = 'AN-805'"_s);
    const struct {
        QString text;
        QStringList assets;
    } rows[] = {
        {u"10'col"_s, {u"LT-10'COL"_s}},
        {u"100% o2_n2"_s, {u"PG-801"_s}},
        {u"100_ o2"_s, {}},
        {u"[A]\\B"_s, {u"PG-801"_s}},
        {u"prÜFGERÄT äöü"_s, {u"AN-805"_s}},
        {u"condensate"_s, {u"LT-10'COL"_s}},
        {u"assembly line"_s, {u"TW-101"_s}},
        {u"tool crib"_s, {}},
        {u"hydra 5"_s, {u"HW-701"_s}},
        {u"s60701"_s, {u"HW-701"_s}},
        {u"' or '1' = '1"_s, {}},
        {u"%%%%"_s, {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(assets({.filter = {.text = row.text}}), row.assets) << row.text.toStdString();
}

TEST_F(InstrumentsOnDatabase, AreFilteredByGroupModelAndDescription) {
    EXPECT_EQ(sorted(assets({.filter = {.group = u"UTIL"_s}})),
              values(u"select i4201 from mt.inventory where i4240 = 'UTIL'"_s));
    EXPECT_EQ(assets({.filter = {.model = u"CLICK 250F"_s}}), (QStringList{u"TW-101"_s, u"TW-111"_s}));
    EXPECT_EQ(
        assets({.filter = {.text = u"4"_s, .group = u"PROD"_s, .description = u"LOOP INDICATOR"_s}}).size(),
        4);
}

TEST_F(InstrumentsOnDatabase, WithDoubleRowsAreListedOnce) {
    const auto count = read().size();
    execute(u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('7112044','%1',"
            "'1403',null)"_s.arg(daysAgo(1)));
    execute(u"insert into mt.location (mtag,l2801,l2815) values ('1301','BENCH 9','1')"_s);
    EXPECT_EQ(read().size(), count);
    EXPECT_EQ(instrument(u"TW-101"_s).location, u"BENCH 9"_s);
    const auto out = instrument(u"PT-103"_s).out;
    ASSERT_EQ(out.size(), 2);
    EXPECT_EQ(out[0].serial, u"7112044"_s);
    EXPECT_EQ(out[0].technician, QString());
    EXPECT_EQ(out[1].serial, u"6841207"_s);
}

TEST_F(InstrumentsOnDatabase, WithoutARecordOrWithNothingButNullsAreListed) {
    const auto never = instrument(u"PM-300"_s);
    EXPECT_EQ(never.lastCalibration.text + never.due.text + never.passed + never.state, QString());
    EXPECT_FALSE(never.daysLeft);
    setCurrent(u"PT-101"_s, u"c2301 = null, c2303 = null, c2308 = null, c2323 = null"_s);
    execute(
        u"update mt.inventory set i4202 = null, i4203 = null, i4204 = null, i4206 = null, i4240 = null where "
        "i4201 = 'PT-101'"_s);
    const auto empty = instrument(u"PT-101"_s);
    EXPECT_EQ(empty.description + empty.model + empty.group + empty.due.text, QString());
    EXPECT_FALSE(empty.daysLeft);
    setCurrent(u"PT-102"_s, u"c2301 = '%1', c2303 = '%2'"_s.arg(day(10), day(4000)));
    EXPECT_EQ(instrument(u"PT-102"_s).daysLeft, 4000);
}

TEST_F(InstrumentsOnDatabase, OfAnotherOwnerAreItsOwn) {
    logIn(users::editorOfAbc);
    EXPECT_EQ(sorted(assets({})), values(u"select i4201 from abc.inventory"_s));
}

} // namespace kelvane::testing
