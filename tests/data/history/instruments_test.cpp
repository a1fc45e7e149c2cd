#include "data/history/instruments.h"

#include "testkit/fixtures.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto registrations = u"select mtag,serial_number,tech,entered_date from mt.hvm_kv_task_inuse"_s;
const auto beginning =
    u"select inv.mtag,inv.i4201,inv.i4204,inv.i4202,inv.i4203,inv.i4206,inv.i4240,place.l2801,cal.c2308,"
    "cal.c2323,cal.c2301,cal.c2303 from MT.inventory inv left outer join (select mtag,max(ctag) as ctag from "
    "MT.calibration where c2339 = '1' group by mtag) marked on marked.mtag = inv.mtag left outer join "
    "MT.calibration cal on cal.ctag = marked.ctag left outer join (select mtag,max(l2801) as l2801 from "
    "MT.location where l2815 = '1' group by mtag) place on place.mtag = inv.mtag"_s;
const auto byAsset = u" order by inv.i4201 asc"_s;

/// A row of an instrument, of which the other columns are null.
Row rowOf(const QString& asset, const std::optional<QString>& due = {},
          const std::optional<QString>& description = {}) {
    return {u"k"_s + asset, asset, description, {}, {}, {}, {}, {}, {}, {}, {}, due};
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
    QString textCondition(const QString& pattern) {
        QStringList parts;
        for (const auto& column :
             {u"inv.i4201"_s, u"inv.i4204"_s, u"inv.i4203"_s, u"place.l2801"_s, u"inv.i4206"_s})
            parts << column + u" like '"_s + pattern + u'\'';
        return beginning + u" where ("_s + parts.join(u" or "_s) + u')' + byAsset;
    }
};

} // namespace

TEST_F(Instruments, AreFoundByAnAssetNumber) {
    EXPECT_EQ(filtered({.asset = u"O'RING"_s}), beginning + u" where inv.i4201 = 'O''RING'"_s + byAsset);
}

TEST_F(Instruments, AreReadByOneStatementBehindTheRegistrations) {
    read();
    EXPECT_EQ(script.statements, (QStringList{registrations, beginning + byAsset}));
}

TEST_F(Instruments, AreThoseOfTheSessionsOwner) {
    session.SessionOwner = u"ABC"_s;
    EXPECT_EQ(statementOf({}), QString(beginning + byAsset).replace(u"MT."_s, u"ABC."_s));
}

TEST_F(Instruments, AreOrderedByAColumnWithTheEmptyOnesLast) {
    const auto by = [](const QString& column, const QString& direction) {
        return beginning + u" order by case when "_s + column + u" is null then 1 else 0 end,"_s + column +
               direction + u",inv.i4201 asc"_s;
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
    EXPECT_EQ(filtered({.dueWithinDays = 30}), beginning + u" where cal.c2303 <= '2027-01-14'"_s + byAsset);
    EXPECT_EQ(filtered({.dueWithinDays = 0}), beginning + u" where cal.c2303 <= '2026-12-15'"_s + byAsset);
    EXPECT_EQ(filtered({.dueWithinDays = std::numeric_limits<int>::max()}),
              beginning + u" where cal.c2303 <= '9999-12-31'"_s + byAsset);
    EXPECT_EQ(filtered({.dueWithinDays = std::numeric_limits<int>::min()}),
              beginning + u" where cal.c2303 <= '0100-01-01'"_s + byAsset);
    EXPECT_EQ(filtered({.isOverdue = true}), beginning + u" where cal.c2303 < '2026-12-15'"_s + byAsset);
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
    } rows[] = {
        {u"PT-101"_s, u"%PT-101%"_s},     {u"50%"_s, u"%50_%"_s},    {u"a_b"_s, u"%a_b%"_s},
        {u"10'C"_s, u"%10_C%"_s},         {u"[a]\\"_s, u"%_a__%"_s}, {u"ÜBER"_s, u"%%BER%"_s},
        {u"5 µm"_s, u"%5 %m%"_s},         {u"';--"_s, u"%__--%"_s},  {QString(QChar()), u"%_%"_s},
        {u"\U0001F527 1"_s, u"%%% 1%"_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(filtered({.text = row.text}), textCondition(row.pattern)) << row.text.toStdString();
}

TEST_F(Instruments, ThatTheWidePatternFindsAreComparedExactly) {
    const auto find = [&](const QString& text, const QString& pattern) {
        script.answers[textCondition(pattern)] = {
            rowOf(u"50% O2"_s), rowOf(u"500 O2"_s), rowOf(u"C"_s, {}, u"größe 50% o2"_s),
            rowOf(u"D"_s, {}, u"GRÖSSE A_B"_s), rowOf(u"E"_s, {}, u"AxB"_s)};
        return assets({.filter = {.text = text}});
    };
    EXPECT_EQ(find(u"50% o2"_s, u"%50_ o2%"_s), (QStringList{u"50% O2"_s, u"C"_s}));
    EXPECT_EQ(find(u"a_b"_s, u"%a_b%"_s), QStringList(u"D"_s));
    EXPECT_EQ(find(u"GRÖ"_s, u"%GR%%"_s), (QStringList{u"C"_s, u"D"_s}));
}

TEST_F(Instruments, AreFoundByEachOfTheFiveColumns) {
    const auto statement = textCondition(u"%x-1%"_s);
    for (const int column : {1, 2, 4, 5, 7}) {
        auto row = rowOf(u"A"_s);
        row[column] = u"THE X-1 OF"_s;
        script.answers[statement] = {row};
        EXPECT_EQ(read({.filter = {.text = u"x-1"_s}}).size(), 1) << column;
    }
    auto row = rowOf(u"A"_s);
    row[3] = row[6] = u"X-1"_s;
    script.answers[statement] = {row};
    EXPECT_EQ(read({.filter = {.text = u"x-1"_s}}).size(), 0);
}

TEST_F(Instruments, CarryWhatTheRowSays) {
    script.answers[beginning + byAsset] = {{u"1301"_s, u"TW-101  "_s, u"WRENCH"_s, u"STURM"_s, u"CLICK"_s,
                                            u"S1"_s, u"PROD"_s, u"LINE 1"_s, u"AS-FOUND"_s, u"N"_s,
                                            u"2026-03-01"_s, u"2026-03-02"_s}};
    const auto found = read();
    ASSERT_EQ(found.size(), 1);
    const auto& summary = found.first();
    EXPECT_EQ(
        (QStringList{summary.mtag, summary.asset, summary.description, summary.manufacturer, summary.model,
                     summary.serial, summary.group, summary.location, summary.state, summary.passed}),
        (QStringList{u"1301"_s, u"TW-101"_s, u"WRENCH"_s, u"STURM"_s, u"CLICK"_s, u"S1"_s, u"PROD"_s,
                     u"LINE 1"_s, u"AS-FOUND"_s, u"N"_s}));
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
        script.answers[beginning + byAsset] = {rowOf(u"A"_s, row.due)};
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
    script.answers[beginning + byAsset] = {rowOf(u"A"_s), rowOf(u"B"_s)};
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

TEST_F(Instruments, ComeInBlocks) {
    script.answers[beginning + byAsset] = {rowOf(u"A"_s), rowOf(u"B"_s), rowOf(u"C"_s)};
    InstrumentReader reader(session, {});
    EXPECT_EQ(reader.next(2).size(), 2);
    EXPECT_FALSE(reader.isAtEnd());
    EXPECT_EQ(reader.next(0).size(), 0);
    EXPECT_EQ(reader.next(2).size(), 1);
    EXPECT_TRUE(reader.isAtEnd());
    EXPECT_EQ(reader.next(2).size(), 0);
    EXPECT_FALSE(reader.hasFailed());
}

TEST_F(Instruments, ThatCanNotBeReadAreReported) {
    for (const auto& statement : {registrations, beginning + byAsset}) {
        script.failures = {{statement, {7, u"no such table"_s}}};
        ui.expectReport(7, u"History,instruments"_s);
        InstrumentReader reader(session, {});
        EXPECT_TRUE(reader.hasFailed());
        EXPECT_TRUE(reader.isAtEnd());
        EXPECT_EQ(reader.next(10).size(), 0);
    }
}

TEST_F(Instruments, ThatBreakOffBetweenTwoRowsAreReportedAndKeptSoFar) {
    // The second row lacks its columns, as when the connection is lost.
    class BreakingRows final : public RecordSet {
      public:
        bool next() override {
            if (++at_ == 2)
                throw Error{10054, u"Connection lost"_s, u"08S01"_s, true};
            return true;
        }
        std::optional<QString> value(int) override { return u"A"_s; }

      private:
        int at_ = 0;
    };
    class BreakingConnection final : public Connection {
      public:
        void open(const QString&, const QString&, const QString&) override {}
        void close() override {}
        bool isOpen() const override { return true; }
        bool isLost() const override { return false; }
        qint64 execute(const QString&) override { return 0; }
        std::unique_ptr<RecordSet> select(const QString& statement, Rows) override {
            if (statement == registrations)
                return RecordingConnection(script_).select(statement, Rows::all);
            return std::make_unique<BreakingRows>();
        }
        void beginTransaction() override {}
        void commitTransaction() override {}
        void rollBackTransaction() override {}
        void lock(const QString&) override {}
        void unlock(const QString&) override {}

      private:
        RecordingConnection::Script script_;
    };
    session.SharedConnection = std::make_unique<BreakingConnection>();
    session.SessionConnected = true;
    InstrumentReader reader(session, {});
    ui.expectReport(10054, u"History,instruments"_s);
    EXPECT_EQ(reader.next(10).size(), 1);
    EXPECT_TRUE(reader.hasFailed());
    EXPECT_TRUE(reader.isAtEnd());
    EXPECT_FALSE(session.SessionConnected);
}

} // namespace kelvane::testing
