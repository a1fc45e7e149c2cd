#include "data/history/instruments.h"

#include "testkit/fixtures.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto registrations = u"select mtag,serial_number,tech,entered_date from mt.hvm_kv_task_inuse"_s;
/// Of the current records.
const auto records = u" left outer join MT.calibration cal on cal.mtag = inv.mtag and cal.c2339 = '1'"_s;
const auto newest =
    u"not exists (select 1 from MT.calibration newer where newer.mtag = inv.mtag and newer.c2339 "
    "= '1' and newer.ctag > cal.ctag)"_s;
/// Of the present places.
const auto places = u" left outer join (select mtag,max(l2801) as l2801 from MT.location where l2815 = '1' "
                    "group by mtag) place on place.mtag = inv.mtag"_s;
const auto beginning = u"select inv.mtag,inv.i4201 from MT.inventory inv"_s;
const auto byAsset = u" order by inv.i4201 asc"_s;

/// A row of an instrument, of which the other columns are null.
Row rowOf(const QString& asset, const std::optional<QString>& due = {},
          const std::optional<QString>& description = {}) {
    return {u"k"_s + asset, asset, description, {}, {}, {}, {}, {}, {}, {}, due, {}};
}

class Instruments : public RecordedSession {
  protected:
    /// The statement that a query sends.
    QString statementOf(const InstrumentQuery& query) {
        script.statements.clear();
        const InstrumentReader reader(session, query);
        return script.statements.value(1);
    }
    QString filtered(const InstrumentFilter& filter) { return statementOf({.filter = filter}); }
    QList<InstrumentSummary> read(const InstrumentQuery& query = {}) {
        InstrumentReader reader(session, query);
        return reader.next(100);
    }
    QStringList assets(const InstrumentQuery& query = {}) {
        QStringList found;
        for (const auto& instrument : read(query))
            found << instrument.asset;
        return found;
    }
    static QString textCondition(const QString& pattern) {
        QStringList parts;
        for (const auto& column :
             {u"inv.i4201"_s, u"inv.i4204"_s, u"inv.i4203"_s, u"place.l2801"_s, u"inv.i4206"_s})
            parts << column + u" like '"_s + pattern + u'\'';
        return u'(' + parts.join(u" or "_s) + u')';
    }
    static QString keysWithText(const QString& pattern, bool isCompared) {
        return u"select inv.mtag,inv.i4201"_s +
               (isCompared ? u",inv.i4204,inv.i4203,place.l2801,inv.i4206"_s : QString()) +
               u" from MT.inventory inv"_s + places + u" where "_s + textCondition(pattern) + byAsset;
    }
    /// The statement for a block of instruments with these keys.
    static QString blockOf(const QStringList& keys) {
        return u"select inv.mtag,inv.i4201,inv.i4204,inv.i4202,inv.i4203,inv.i4206,inv.i4240,cal.c2308,"
               "cal.c2323,cal.c2301,cal.c2303,(select max(l2801) from MT.location where mtag = inv.mtag and "
               "l2815 = '1') from MT.inventory inv"_s +
               records + u" where inv.mtag in ('"_s + keys.join(u"','"_s) + u"') and "_s + newest;
    }
    /// Lets the inventory hold these.
    void hold(const QList<Row>& rows) {
        script.answers[beginning + byAsset] = rows;
        QStringList keys;
        for (const auto& row : rows)
            keys << row[0].value_or(QString());
        script.answers[blockOf(keys)] = rows;
    }
};

} // namespace

TEST_F(Instruments, AreReadByOneStatementABlockBehindRegistrationsAndKeys) {
    hold({rowOf(u"B"_s), rowOf(u"A"_s), rowOf(u"O'C"_s)});
    InstrumentReader reader(session, {});
    reader.next(2);
    reader.next(2);
    EXPECT_EQ(script.statements, (QStringList{registrations, beginning + byAsset, blockOf({u"kB"_s, u"kA"_s}),
                                              blockOf({u"kO''C"_s})}));
}

TEST_F(Instruments, AreFoundByAnAssetNumber) {
    EXPECT_EQ(filtered({.asset = u"O'RING"_s}), beginning + u" where inv.i4201 = 'O''RING'"_s + byAsset);
}

TEST_F(Instruments, AreThoseOfTheSessionsOwner) {
    session.SessionOwner = u"ABC"_s;
    EXPECT_EQ(statementOf({}), QString(beginning + byAsset).replace(u"MT."_s, u"ABC."_s));
}

TEST_F(Instruments, AreOrderedByAColumnWithTheEmptyOnesLast) {
    const auto by = [](const QString& column, const QString& direction) {
        return beginning +
               (column.startsWith(u"cal."_s)     ? records + u" where "_s + newest
                : column.startsWith(u"place."_s) ? places
                                                 : QString()) +
               u" order by case when "_s + column + u" is null then 1 else 0 end,"_s + column + direction +
               u",inv.i4201 asc"_s;
    };
    const struct {
        InstrumentOrder order;
        QString column;
    } rows[] = {
        {InstrumentOrder::description, u"inv.i4204"_s}, {InstrumentOrder::manufacturer, u"inv.i4202"_s},
        {InstrumentOrder::model, u"inv.i4203"_s},       {InstrumentOrder::serial, u"inv.i4206"_s},
        {InstrumentOrder::group, u"inv.i4240"_s},       {InstrumentOrder::location, u"place.l2801"_s},
        {InstrumentOrder::passed, u"cal.c2323"_s},      {InstrumentOrder::lastCalibration, u"cal.c2301"_s},
        {InstrumentOrder::due, u"cal.c2303"_s},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(statementOf({.order = row.order}), by(row.column, u" asc"_s));
        EXPECT_EQ(statementOf({.order = row.order, .isDescending = true}), by(row.column, u" desc"_s));
    }
    EXPECT_EQ(statementOf({.isDescending = true}), beginning + u" order by inv.i4201 desc"_s);
}

TEST_F(Instruments, AreFilteredByDueDatesFromThePresentDay) {
    clock.set(2026, 12, 15, 23, 59, 59);
    EXPECT_EQ(filtered({.dueWithinDays = 30}),
              beginning + records + u" where "_s + newest + u" and cal.c2303 <= '2027-01-14'"_s + byAsset);
    EXPECT_EQ(filtered({.dueWithinDays = 0}),
              beginning + records + u" where "_s + newest + u" and cal.c2303 <= '2026-12-15'"_s + byAsset);
    EXPECT_EQ(filtered({.dueWithinDays = std::numeric_limits<int>::max()}),
              beginning + records + u" where "_s + newest + u" and cal.c2303 <= '9999-12-31'"_s + byAsset);
    EXPECT_EQ(filtered({.dueWithinDays = std::numeric_limits<int>::min()}),
              beginning + records + u" where "_s + newest + u" and cal.c2303 <= '0100-01-01'"_s + byAsset);
    EXPECT_EQ(filtered({.isOverdue = true}),
              beginning + records + u" where "_s + newest + u" and cal.c2303 < '2026-12-15'"_s + byAsset);
}

TEST_F(Instruments, AreFilteredByGroupModelAndDescriptionTogether) {
    EXPECT_EQ(filtered({.group = u"PROD"_s, .model = u"3/4''"_s, .description = u"O'RING"_s}),
              beginning + u" where inv.i4240 = 'PROD' and inv.i4203 = '3/4''''' and inv.i4204 = 'O''RING'"_s +
                  byAsset);
}

TEST_F(Instruments, AreLookedForByAPatternThatNeedsNoEscapes) {
    const struct {
        QString text;
        QString pattern;
        bool isCompared = true;
    } rows[] = {
        {u"PT-101"_s, u"%PT-101%"_s, false},
        {u"50%"_s, u"%50_%"_s},
        {u"a_b"_s, u"%a_b%"_s},
        {u"10'C"_s, u"%10_C%"_s},
        {u"[a]\\"_s, u"%_a__%"_s},
        {u"ÜBER"_s, u"%%BER%"_s},
        {u"5 µm"_s, u"%5 %m%"_s},
        {u"';--"_s, u"%__--%"_s},
        {QString(QChar()), u"%_%"_s},
        {u"\U0001F527 1"_s, u"%%% 1%"_s},
        {u" 0.5"_s, u"% 0.5%"_s, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(filtered({.text = row.text}), keysWithText(row.pattern, row.isCompared))
            << row.text.toStdString();
}

TEST_F(Instruments, ThatTheWidePatternFindsAreComparedExactly) {
    const struct {
        QString text;
        QString pattern;
        QStringList found;
    } rows[] = {
        {u"50% o2"_s, u"%50_ o2%"_s, {u"50% O2"_s, u"C"_s}},
        {u"a_b"_s, u"%a_b%"_s, {u"D"_s}},
        {u"GRÖ"_s, u"%GR%%"_s, {u"C"_s, u"D"_s}},
    };
    const QList<std::pair<QString, QString>> instruments{{u"50% O2"_s, {}},
                                                         {u"500 O2"_s, {}},
                                                         {u"C"_s, u"größe 50% o2"_s},
                                                         {u"D"_s, u"GRÖSSE A_B"_s},
                                                         {u"E"_s, u"AxB"_s}};
    for (const auto& row : rows) {
        QStringList keys;
        for (const auto& asset : row.found)
            keys << u"k"_s + asset;
        auto& answer = script.answers[keysWithText(row.pattern, true)];
        auto& block = script.answers[blockOf(keys)];
        for (const auto& [asset, description] : instruments) {
            answer << Row{u"k"_s + asset, asset, description, {}, {}, {}};
            block.prepend(rowOf(asset, {}, description));
        }
        EXPECT_EQ(assets({.filter = {.text = row.text}}), row.found);
    }
}

TEST_F(Instruments, AreComparedByEachOfTheFiveColumns) {
    const auto keys = keysWithText(u"%x_1%"_s, true);
    for (const int column : {1, 2, 3, 4, 5}) {
        Row key{u"kA"_s, u"A"_s, {}, {}, {}, {}};
        key[column] = u"THE X_1 OF"_s;
        script.answers[keys] = {key};
        EXPECT_EQ(InstrumentReader(session, {.filter = {.text = u"x_1"_s}}).size(), 1) << column;
        key[column] = u"THE X-1 OF"_s;
        script.answers[keys] = {key};
        EXPECT_EQ(InstrumentReader(session, {.filter = {.text = u"x_1"_s}}).size(), 0) << column;
    }
}

TEST_F(Instruments, CarryWhatTheRowSays) {
    hold({{u"1301"_s, u"TW-101  "_s, u"WRENCH"_s, u"STURM"_s, u"CLICK"_s, u"S1"_s, u"PROD"_s, u"AS-FOUND"_s,
           u"N"_s, u"2026-03-01"_s, u"2026-03-02"_s, u"LINE 1"_s}});
    const auto found = read();
    ASSERT_EQ(found.size(), 1);
    const auto& summary = found.first();
    EXPECT_EQ(
        (QStringList{summary.mtag, summary.asset, summary.description, summary.manufacturer, summary.model,
                     summary.serial, summary.group, summary.location, summary.state, summary.passed}),
        (QStringList{u"1301"_s, u"TW-101  "_s, u"WRENCH"_s, u"STURM"_s, u"CLICK"_s, u"S1"_s, u"PROD"_s,
                     u"LINE 1"_s, u"AS-FOUND"_s, u"N"_s}))
        << "the asset number as it is stored";
    EXPECT_EQ(summary.lastCalibration.moment.date, QDate(2026, 3, 1));
    EXPECT_EQ(summary.due.moment.date, QDate(2026, 3, 2));
    EXPECT_EQ(summary.daysLeft, -16);
}

TEST_F(Instruments, CountTheDaysThatAreLeft) {
    clock.set(2026, 3, 18, 23, 59, 59);
    const struct {
        std::optional<QString> due;
        std::optional<qint64> days;
    } rows[] = {
        {u"2026-03-18"_s, 0},
        {u"2026-03-19"_s, 1},
        {u"2026-03-17 00:00:00"_s, -1},
        {u"9999-12-31"_s, 2912366},
        {{}, {}},
        {u""_s, {}},
        {u"never"_s, {}},
        {u"10:00:00"_s, {}},
    };
    for (const auto& row : rows) {
        hold({rowOf(u"A"_s, row.due)});
        const auto found = read();
        ASSERT_EQ(found.size(), 1);
        EXPECT_EQ(found.first().daysLeft, row.days) << row.due.value_or(u"null"_s).toStdString();
        EXPECT_EQ(found.first().due.text, row.due.value_or(QString()));
    }
}

TEST_F(Instruments, AreOutWithTheCalibratorOfTheNewestRegistration) {
    script.answers[registrations] = {{u"kA"_s, u"1"_s, u"jdoe"_s, u"2026-03-01 08:00:00"_s},
                                     {u"kA"_s, u"2"_s, {}, u"2026-03-02 07:00:00.000"_s},
                                     {u"kA"_s, u"3"_s, u"x"_s, {}},
                                     {u"kA"_s, u"4"_s, u"y"_s, u"2026-03-02 06:59:59"_s},
                                     {u"kGONE"_s, u"5"_s, {}, {}},
                                     {{}, u"6"_s, {}, {}}};
    hold({rowOf(u"A"_s), rowOf(u"B"_s)});
    const auto found = read();
    ASSERT_EQ(found.size(), 2);
    QStringList serials;
    for (const auto& out : found[0].out)
        serials << out.serial;
    EXPECT_EQ(serials, (QStringList{u"2"_s, u"4"_s, u"1"_s, u"3"_s}));
    EXPECT_EQ(found[0].out[0].technician, QString());
    EXPECT_EQ(found[0].out[0].since.moment, (Moment{QDate(2026, 3, 2), QTime(7, 0)}));
    EXPECT_TRUE(found[1].out.isEmpty());
}

TEST_F(Instruments, ComeInBlocksInTheOrderOfTheQuery) {
    hold({rowOf(u"A"_s), rowOf(u"B"_s), rowOf(u"C"_s)});
    script.answers[blockOf({u"kA"_s, u"kB"_s})] = {rowOf(u"B"_s), rowOf(u"A"_s)};
    script.answers[blockOf({u"kC"_s})] = {rowOf(u"C"_s)};
    InstrumentReader reader(session, {});
    EXPECT_EQ(reader.size(), 3);
    const auto block = reader.next(2);
    ASSERT_EQ(block.size(), 2);
    EXPECT_EQ(block[0].asset, u"A"_s);
    EXPECT_EQ(block[1].asset, u"B"_s);
    EXPECT_FALSE(reader.isAtEnd());
    EXPECT_EQ(reader.next(0).size(), 0);
    EXPECT_EQ(reader.next(2).size(), 1);
    EXPECT_TRUE(reader.isAtEnd());
    EXPECT_EQ(reader.next(2).size(), 0);
    EXPECT_FALSE(reader.hasFailed());
}

TEST_F(Instruments, AreReadFromAnyPlace) {
    hold({rowOf(u"A"_s), rowOf(u"B"_s), rowOf(u"C"_s)});
    script.answers[blockOf({u"kB"_s, u"kC"_s})] = {rowOf(u"C"_s, {}, u"PUMP"_s), rowOf(u"B"_s)};
    InstrumentReader reader(session, {});
    const auto block = reader.read(1, 100);
    ASSERT_EQ(block.size(), 2);
    EXPECT_EQ(block[0].asset, u"B"_s);
    EXPECT_EQ(block[1].description, u"PUMP"_s);
    EXPECT_EQ(reader.read(3, 10).size(), 0);
    EXPECT_EQ(reader.keyAt(0).mtag, u"kA"_s);
    EXPECT_EQ(reader.keyAt(0).asset, u"A"_s);
}

TEST_F(Instruments, ThatHaveLeftTheChoiceMeanwhileArePassedOver) {
    hold({rowOf(u"A"_s), rowOf(u"B"_s), rowOf(u"C"_s)});
    script.answers[blockOf({u"kA"_s, u"kB"_s, u"kC"_s})] = {rowOf(u"C"_s, {}, u"PUMP"_s),
                                                            rowOf(u"A"_s, {}, u"PUMP"_s)};
    InstrumentReader reader(session, {});
    QStringList walked;
    for (const auto& instrument : reader.next(3))
        walked << instrument.asset;
    EXPECT_EQ(walked, (QStringList{u"A"_s, u"C"_s}));
    const auto block = reader.read(0, 3);
    ASSERT_EQ(block.size(), 3) << "each keeps its place";
    EXPECT_EQ(block[1].asset, u"B"_s);
    EXPECT_EQ(block[1].description, QString());
    EXPECT_EQ(block[2].description, u"PUMP"_s);
}

TEST_F(Instruments, ThatCanNotBeReadAreReported) {
    hold({rowOf(u"A"_s)});
    for (const auto& statement : {registrations, beginning + byAsset}) {
        script.failures = {{statement, {7, u"no such table"_s}}};
        ui.expectReport(7, u"History,instruments"_s);
        InstrumentReader reader(session, {});
        EXPECT_TRUE(reader.hasFailed());
        EXPECT_TRUE(reader.isAtEnd());
        EXPECT_EQ(reader.size(), 0);
        EXPECT_EQ(reader.next(10).size(), 0);
    }
}

TEST_F(Instruments, ThatBreakOffWithinABlockAreReportedOnce) {
    hold({rowOf(u"A"_s), rowOf(u"B"_s), rowOf(u"C"_s)});
    script.answers[blockOf({u"kA"_s, u"kB"_s})] = {rowOf(u"A"_s), rowOf(u"B"_s)};
    script.failures = {{blockOf({u"kC"_s}), {10054, u"Connection lost"_s, u"08S01"_s, true}}};
    session.SessionConnected = true;
    InstrumentReader reader(session, {});
    EXPECT_EQ(reader.next(2).size(), 2);
    ui.expectReport(10054, u"History,instruments"_s);
    EXPECT_EQ(reader.next(2).size(), 0);
    EXPECT_TRUE(reader.hasFailed());
    EXPECT_TRUE(reader.isAtEnd());
    EXPECT_FALSE(session.SessionConnected);
    const auto block = reader.read(1, 2);
    ASSERT_EQ(block.size(), 2);
    EXPECT_EQ(block[1].mtag, u"kC"_s);
    EXPECT_EQ(block[1].asset, u"C"_s) << "key and asset number stay";
}

TEST_F(Instruments, HaveTheValuesOfAColumnToChooseFrom) {
    script.answers[u"select distinct inv.i4240 from MT.inventory inv where inv.i4240 is not null order by "
                   "inv.i4240 asc"_s] = {{u""_s}, {u"LAB"_s}, {u"PROD"_s}};
    EXPECT_EQ(instrumentValues(session, InstrumentOrder::group), (QStringList{u"LAB"_s, u"PROD"_s}));
    script.failures = {
        {u"select distinct inv.i4203 from MT.inventory inv where inv.i4203 is not null order by "
         "inv.i4203 asc"_s,
         {7, u"no such table"_s}}};
    ui.expectReport(7, u"History,values"_s);
    EXPECT_EQ(instrumentValues(session, InstrumentOrder::model), std::nullopt);
}

} // namespace kelvane::testing
