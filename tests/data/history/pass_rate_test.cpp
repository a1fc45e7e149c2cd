#include "data/history/pass_rate.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto statement =
    u"select cal.c2301,cal.c2308,cal.c2323,inv.i4203,inv.i4240 from MT.calibration cal left outer join "
    "MT.inventory inv on inv.mtag = cal.mtag where cal.c2301 >= '2025-03-18' or cal.c2301 is null"_s;

class PassRateOfRows : public RecordedSession {
  protected:
    PassRates read(const QList<Row>& rows) {
        script.answers[statement] = rows;
        const auto rates = passRatesSince(session, QDate(2025, 3, 18));
        EXPECT_TRUE(rates.has_value());
        return rates.value_or(PassRates());
    }
    static Row row(const std::optional<QString>& date, const std::optional<QString>& state,
                   const std::optional<QString>& passed, const std::optional<QString>& model = u"P100"_s,
                   const std::optional<QString>& group = u"PROD"_s) {
        return {date, state, passed, model, group};
    }
    /// As "P100 2/3, P300 0/1".
    static QString shown(const QMap<QString, PassRate>& rates) {
        QStringList words;
        for (auto rate = rates.cbegin(); rate != rates.cend(); ++rate)
            words << u"%1 %2/%3"_s.arg(rate.key()).arg(rate->passed).arg(rate->counted());
        return words.join(u", "_s);
    }
};

} // namespace

TEST_F(PassRateOfRows, IsReadByOneStatement) {
    read({});
    EXPECT_EQ(script.statements, QStringList(statement));
}

TEST_F(PassRateOfRows, IsThatOfTheSessionsOwner) {
    session.SessionOwner = u"ABC"_s;
    passRatesSince(session, QDate(2025, 3, 18));
    EXPECT_EQ(script.statements, QStringList(QString(statement).replace(u"MT."_s, u"ABC."_s)));
}

TEST_F(PassRateOfRows, CountsRecordsAsFoundByMonthModelAndGroup) {
    const auto rates = read({row(u"2025-11-02"_s, u"FOUND-LEFT"_s, u"Y"_s),
                             row(u"2025-11-30"_s, u"AS-FOUND"_s, u"N"_s, u"P300"_s),
                             row(u"2025-11-30"_s, u"AS-LEFT"_s, u"Y"_s, u"P300"_s),
                             row(u"2026-02-01"_s, u"found-left"_s, u"Y"_s, u"P100"_s, u"UTIL"_s),
                             row(u"2026-03-18"_s, u"AS-FOUND  "_s, u"N "_s)});
    EXPECT_EQ(shown(rates.byMonth), u"2025-11 1/2, 2025-12 0/0, 2026-01 0/0, 2026-02 1/1, 2026-03 0/1"_s);
    EXPECT_EQ(shown(rates.byModel), u"P100 2/3, P300 0/1"_s);
    EXPECT_EQ(shown(rates.byGroup), u"PROD 1/3, UTIL 1/1"_s);
    EXPECT_EQ(rates.since, QDate(2025, 3, 18));
    EXPECT_EQ(rates.until, QDate(2026, 3, 18));
    EXPECT_EQ(rates.all.passed, 2);
    EXPECT_EQ(rates.all.failed, 2);
    EXPECT_EQ(rates.undated + rates.inFuture + rates.otherState + rates.otherResult, 0);
}

TEST_F(PassRateOfRows, HasInstrumentsWithoutModelOrGroupUnderNone) {
    const auto rates = read({row(u"2025-11-02"_s, u"FOUND-LEFT"_s, u"Y"_s, {}, {}),
                             row(u"2025-11-02"_s, u"FOUND-LEFT"_s, u"N"_s, u" "_s, u""_s)});
    EXPECT_EQ(shown(rates.byModel), u" 1/2"_s);
    EXPECT_EQ(shown(rates.byGroup), u" 1/2"_s);
}

TEST_F(PassRateOfRows, CountsApartWhatIsNoRecordAsFoundOfThatTime) {
    const auto rates = read({row({}, u"FOUND-LEFT"_s, u"Y"_s), row(u"someday"_s, u"FOUND-LEFT"_s, u"N"_s),
                             row(u"10:00:00"_s, {}, {}), row(u"2026-03-19"_s, u"AS-FOUND"_s, u"N"_s),
                             row(u"2026-01-01"_s, u"CHECK"_s, u"N"_s), row(u"2026-01-01"_s, {}, u"Y"_s),
                             row(u"2026-01-01"_s, u"AS-FOUND"_s, {}),
                             row(u"2026-01-01"_s, u"AS-FOUND"_s, u"?"_s), row({}, u"AS-LEFT"_s, u"Y"_s)});
    EXPECT_EQ(rates.undated, 3);
    EXPECT_EQ(rates.inFuture, 1);
    EXPECT_EQ(rates.otherState, 2);
    EXPECT_EQ(rates.otherResult, 2);
    EXPECT_EQ(rates.all.counted(), 0);
    EXPECT_TRUE(rates.byMonth.isEmpty() && rates.byModel.isEmpty() && rates.byGroup.isEmpty());
}

TEST_F(PassRateOfRows, LeavesOutWhatTheEngineTakesForLater) {
    EXPECT_EQ(read({row(u"2025-03-17"_s, u"FOUND-LEFT"_s, u"Y"_s)}).all.counted(), 0);
    EXPECT_EQ(read({row(u"2025-03-18"_s, u"FOUND-LEFT"_s, u"Y"_s)}).all.counted(), 1);
}

TEST_F(PassRateOfRows, OfNothingIsZero) {
    EXPECT_EQ(PassRate().percent(), 0);
    EXPECT_DOUBLE_EQ((PassRate{1, 2}).percent(), 100.0 / 3);
}

TEST_F(PassRateOfRows, IsNotThereAfterAnError) {
    script.failures = {{statement, {7, u"no such table"_s}}};
    ui.expectReport(7, u"History,passRates"_s);
    EXPECT_FALSE(passRatesSince(session, QDate(2025, 3, 18)).has_value());
}

} // namespace kelvane::testing
