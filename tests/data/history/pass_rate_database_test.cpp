#include "data/history/pass_rate.h"

#include "testkit/database_session.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class PassRateOnDatabase : public DatabaseSession {
  protected:
    PassRates read(const QDate& since) {
        const auto rates = passRatesSince(session, since);
        EXPECT_TRUE(rates.has_value());
        return rates.value_or(PassRates());
    }
    QString day(int ahead) const { return clock.now().date().addDays(ahead).toString(u"yyyy-MM-dd"_s); }
    /// As the engine counts them: rows "P100|2|3".
    QStringList counted(const QString& key, const QDate& since) {
        return rows(
            u"select %1,sum(case when c2323 = 'Y' then 1 else 0 end),count(*) from mt.calibration cal join "
            "mt.inventory inv on inv.mtag = cal.mtag where c2308 in ('AS-FOUND','FOUND-LEFT') and c2323 in "
            "('Y','N') and c2301 between '%2' and '%3' group by %1 order by %1"_s.arg(
                key, since.toString(Qt::ISODate), day(0)),
            3);
    }
    static QStringList shown(const QMap<QString, PassRate>& rates) {
        QStringList found;
        for (auto rate = rates.cbegin(); rate != rates.cend(); ++rate)
            found << u"%1|%2|%3"_s.arg(rate.key()).arg(rate->passed).arg(rate->counted());
        return found;
    }
};

} // namespace

TEST_F(PassRateOnDatabase, IsThatOfTheEngine) {
    execute(u"insert into mt.calibration (mtag,c2301,c2308,c2323) values ('1402','%1','AS-FOUND','N')"_s.arg(
        day(-40)));
    execute(u"insert into mt.calibration (mtag,c2301,c2308,c2323) values ('1402','%1','AS-LEFT','Y')"_s.arg(
        day(-40)));
    for (const auto& since : {QDate(2000, 1, 1), clock.now().date().addDays(-365)}) {
        const auto rates = read(since);
        for (const auto& [found, column] :
             {std::pair{rates.byModel, u"inv.i4203"_s}, {rates.byGroup, u"inv.i4240"_s}}) {
            auto expected = counted(column, since);
            expected.sort();
            auto counts = shown(found);
            counts.sort();
            EXPECT_EQ(counts, expected);
            EXPECT_FALSE(found.isEmpty());
        }
        QHash<QString, qint64> byMonth;
        for (const auto& row : counted(u"cal.c2301"_s, since))
            byMonth[row.left(7)] += row.section(u'|', 2).toLongLong();
        for (auto month = rates.byMonth.cbegin(); month != rates.byMonth.cend(); ++month)
            EXPECT_EQ(month->counted(), byMonth.take(month.key())) << month.key().toStdString();
        EXPECT_TRUE(byMonth.isEmpty());
    }
}

TEST_F(PassRateOnDatabase, CountsNullsFutureDaysAndOtherStatesApart) {
    const QDate since(2000, 1, 1);
    const auto before = read(since);
    execute(u"insert into mt.calibration (mtag) values ('1401')"_s);
    execute(u"insert into mt.calibration (mtag,c2301,c2308,c2323) values ('999','%1','AS-FOUND','N')"_s.arg(
        day(-3)));
    for (const auto& values : {u"'%1','FOUND-LEFT','Y'"_s.arg(day(1)), u"'%1','CHECK','Y'"_s.arg(day(-1)),
                               u"'%1',null,'Y'"_s.arg(day(-1)), u"'%1','AS-FOUND',null"_s.arg(day(-1))})
        execute(u"insert into mt.calibration (mtag,c2301,c2308,c2323) values ('1401',%1)"_s.arg(values));
    const auto rates = read(since);
    EXPECT_EQ(rates.undated - before.undated, 1);
    EXPECT_EQ(rates.inFuture - before.inFuture, 1);
    EXPECT_EQ(rates.otherState - before.otherState, 2);
    EXPECT_EQ(rates.otherResult - before.otherResult, 1);
    EXPECT_EQ(rates.all.failed - before.all.failed, 1);
    EXPECT_EQ(rates.byModel.value(QString()).failed - before.byModel.value(QString()).failed, 1);
}

} // namespace kelvane::testing
