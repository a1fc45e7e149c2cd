#include "data/records/due_date.h"
#include "testkit/fixtures.h"
#include "tests/data/records/record_statements.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

Moment day(int year, int month, int dayOfMonth, QTime time = QTime(0, 0)) {
    return {QDate(year, month, dayOfMonth), time};
}

} // namespace

class DueDate : public RecordedSession {
  protected:
    void daysOff(const QStringList& days) {
        auto& rows = script.answers[daysOffQuery];
        rows.clear();
        for (const auto& day : days)
            rows << Row{day};
    }
    void holidays(const QStringList& days) {
        auto& rows = script.answers[holidaysQuery];
        rows.clear();
        for (const auto& day : days)
            rows << Row{day};
    }
    Moment due(Moment from, float interval, QString unit) {
        return ModuleGlobals::calcDueDate(session, {}, from, interval, unit);
    }
};

TEST_F(DueDate, AddsTheIntervalByTheCalendar) {
    const struct {
        Moment from;
        float interval;
        QString unit;
        Moment expected;
    } rows[] = {
        {day(2026, 3, 18), 12, u"M"_s, day(2027, 3, 18)},
        {day(2026, 3, 18), 1, u"YYYY"_s, day(2027, 3, 18)},
        {day(2026, 3, 18), 90, u"D"_s, day(2026, 6, 16)},
        {day(2026, 3, 18), 2, u"ww"_s, day(2026, 4, 1)},
        {day(2026, 3, 18), 2, u"q"_s, day(2026, 9, 18)},
        {day(2026, 1, 31), 1, u"m"_s, day(2026, 2, 28)},
        {day(2024, 2, 29), 1, u"yyyy"_s, day(2025, 2, 28)},
        {day(2026, 3, 18), 1.9F, u"M"_s, day(2026, 4, 18)},
        {day(2026, 3, 18), 0, u"D"_s, day(2026, 3, 18)},
        {day(2026, 3, 18), -1, u"M"_s, day(2026, 2, 18)},
        {day(2026, 3, 18, QTime(22, 0)), 3, u"h"_s, day(2026, 3, 19, QTime(1, 0))},
    };
    for (const auto& row : rows)
        EXPECT_EQ(due(row.from, row.interval, row.unit), row.expected)
            << row.interval << row.unit.toStdString();
}

TEST_F(DueDate, VersionFiveReadsNoTable) {
    session.SessionDbVersion = 5;
    EXPECT_EQ(due(day(2026, 3, 14), 1, u"D"_s), day(2026, 3, 15)); // a Sunday
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(DueDate, VersionSixReadsBothTablesInEachPass) {
    EXPECT_EQ(due(day(2026, 3, 17), 1, u"D"_s), day(2026, 3, 18));
    EXPECT_EQ(script.statements, (QStringList{daysOffQuery, holidaysQuery}));
    EXPECT_EQ(script.firstRowOnly, QStringList());
}

TEST_F(DueDate, SundayBecomesFridayWhicheverOrderTheDaysOffHave) {
    const auto sunday = day(2026, 3, 22);
    daysOff({u"Sunday"_s, u"Saturday"_s});
    EXPECT_EQ(due(sunday, 0, u"D"_s), day(2026, 3, 20));
    EXPECT_EQ(script.statements.size(), 4) << "both in the first pass, nothing in the second";

    script.statements.clear();
    daysOff({u"Saturday"_s, u"Sunday"_s});
    EXPECT_EQ(due(sunday, 0, u"D"_s), day(2026, 3, 20));
    EXPECT_EQ(script.statements.size(), 6) << "one in each of two passes, nothing in the third";
}

TEST_F(DueDate, NamesOfDaysCompareInAnyCase) {
    daysOff({u"SUNDAY"_s, u"saturday"_s});
    EXPECT_EQ(due(day(2026, 3, 22), 0, u"D"_s), day(2026, 3, 20));
}

TEST_F(DueDate, NameThatIsNoDayNeverMatches) {
    daysOff({u"Sun"_s, u" Sunday"_s, u"Sonntag"_s, QString()});
    EXPECT_EQ(due(day(2026, 3, 22), 0, u"D"_s), day(2026, 3, 22));
}

TEST_F(DueDate, HolidayBeforeTheWeekendMakesItThursday) {
    daysOff({u"Saturday"_s, u"Sunday"_s});
    holidays({u"2026-03-20"_s});
    EXPECT_EQ(due(day(2026, 3, 22), 0, u"D"_s), day(2026, 3, 19));
}

TEST_F(DueDate, HolidaysInARowFireWithinOnePassWhenTheirOrderIsBackwards) {
    holidays({u"2026-12-26"_s, u"2026-12-25"_s, u"2026-12-24"_s});
    EXPECT_EQ(due(day(2026, 12, 26), 0, u"D"_s), day(2026, 12, 23));
    EXPECT_EQ(script.statements.size(), 4);

    script.statements.clear();
    holidays({u"2026-12-24"_s, u"2026-12-25"_s, u"2026-12-26"_s});
    EXPECT_EQ(due(day(2026, 12, 26), 0, u"D"_s), day(2026, 12, 23));
    EXPECT_EQ(script.statements.size(), 8);
}

TEST_F(DueDate, HolidayGivenAsATimestampOfMidnightCounts) {
    for (const auto& holiday : {u"2026-12-25 00:00:00"_s, u"2026-12-25 00:00:00.000"_s}) {
        holidays({holiday});
        EXPECT_EQ(due(day(2026, 12, 25), 0, u"D"_s), day(2026, 12, 24)) << holiday.toStdString();
    }
}

TEST_F(DueDate, EveryDayOffEndsBehindTheSixtyFirstPass) {
    // Forwards through the week a pass takes one day, since the row of the new day has gone by.
    daysOff(
        {u"Monday"_s, u"Tuesday"_s, u"Wednesday"_s, u"Thursday"_s, u"Friday"_s, u"Saturday"_s, u"Sunday"_s});
    const auto result = due(day(2026, 12, 24), 0, u"D"_s); // a Thursday
    EXPECT_EQ(script.statements.size(), 2 * 61);
    // A Monday loses two days in its pass, as Sunday stands behind it: 61 passes with 10 Mondays, 71 days.
    EXPECT_EQ(result, day(2026, 10, 14));
}

TEST_F(DueDate, AssetOverwritesDateIntervalAndUnit) {
    const auto interval = u"select I4229 from MT.inventory where i4201 = 'PT-1'"_s;
    const auto unit = u"select I4228 from MT.inventory where i4201 = 'PT-1'"_s;
    script.answers[interval] = {{u"6"_s}};
    script.answers[unit] = {{u"M"_s}};
    auto from = day(2001, 1, 1);
    float count = 99;
    QString code = u"D"_s;

    const auto result = ModuleGlobals::calcDueDate(session, u"PT-1"_s, from, count, code);

    EXPECT_EQ(from, day(2026, 3, 18, QTime(9, 30)));
    EXPECT_EQ(count, 6);
    EXPECT_EQ(code, u"M"_s);
    EXPECT_EQ(result, day(2026, 9, 18, QTime(9, 30)));
    EXPECT_EQ(script.statements, (QStringList{interval, typeQuery(u"I4229"_s), unit, typeQuery(u"I4228"_s),
                                              daysOffQuery, holidaysQuery}));
}

TEST_F(DueDate, WithAnAssetAHolidayNeverMatchesBecauseTheMomentHasATimeOfDay) {
    script.answers[u"select I4229 from MT.inventory where i4201 = 'PT-1'"_s] = {{u"0"_s}};
    script.answers[u"select I4228 from MT.inventory where i4201 = 'PT-1'"_s] = {{u"D"_s}};
    holidays({u"2026-03-18"_s});
    Moment from;
    float count = 0;
    QString code;
    EXPECT_EQ(ModuleGlobals::calcDueDate(session, u"PT-1"_s, from, count, code).date, QDate(2026, 3, 18));

    // At midnight sharp it does.
    clock.set(2026, 3, 18);
    EXPECT_EQ(ModuleGlobals::calcDueDate(session, u"PT-1"_s, from, count, code).date, QDate(2026, 3, 17));
}

TEST_F(DueDate, WithAnAssetADayOffStillMatches) {
    script.answers[u"select I4229 from MT.inventory where i4201 = 'PT-1'"_s] = {{u"4"_s}};
    script.answers[u"select I4228 from MT.inventory where i4201 = 'PT-1'"_s] = {{u"D"_s}};
    daysOff({u"Sunday"_s, u"Saturday"_s});
    Moment from;
    float count = 0;
    QString code;
    EXPECT_EQ(ModuleGlobals::calcDueDate(session, u"PT-1"_s, from, count, code).date, QDate(2026, 3, 20));
}

TEST_F(DueDate, IntervalOfAnAssetPassesThrough32Bits) {
    // 16777217 seconds are no 32-bit number: they become 16777216.
    script.answers[u"select I4229 from MT.inventory where i4201 = 'PT-1'"_s] = {{u"16777217"_s}};
    script.answers[u"select I4228 from MT.inventory where i4201 = 'PT-1'"_s] = {{u"s"_s}};
    clock.set(2026, 1, 1);
    Moment from;
    float count = 0;
    QString code;
    const auto result = ModuleGlobals::calcDueDate(session, u"PT-1"_s, from, count, code);
    EXPECT_EQ(count, 16777216);
    EXPECT_EQ(result, day(2026, 7, 14, QTime(4, 20, 16)));
}

/// Each ends in the report and an empty date, with the normal pointer.
class DueDateErrors : public DueDate {
  protected:
    void failing(int number, Moment from, float interval, const QString& unit) {
        ui.expectReport(number, u"ModuleGlobals,calcDueDate"_s);
        EXPECT_TRUE(due(from, interval, unit).isEmpty());
        EXPECT_FALSE(ui.busy);
    }
};

TEST_F(DueDateErrors, UnitThatTheArithmeticDoesNotKnow) {
    for (const auto& unit : {QString(), u"months"_s, u"D "_s, u"J"_s, u"'"_s})
        failing(5, day(2026, 3, 18), 1, unit);
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(DueDateErrors, IntervalOutsideTheCalendar) {
    failing(6, day(2026, 3, 18), 9000, u"YYYY"_s);
    failing(6, day(2026, 3, 18), 1E30F, u"D"_s);
}

TEST_F(DueDateErrors, NoCalibrationDate) {
    failing(5, {}, 1, u"D"_s);
}

TEST_F(DueDateErrors, NullsInTheTables) {
    script.answers[daysOffQuery] = {{std::nullopt}};
    failing(94, day(2026, 3, 18), 1, u"D"_s);
    script.answers[daysOffQuery] = {};
    script.answers[holidaysQuery] = {{std::nullopt}};
    failing(94, day(2026, 3, 18), 1, u"D"_s);
}

TEST_F(DueDateErrors, HolidayThatIsNoDate) {
    holidays({u"Christmas"_s});
    failing(13, day(2026, 3, 18), 1, u"D"_s);
}

TEST_F(DueDateErrors, LostDatabase) {
    script.lost = true;
    failing(10054, day(2026, 3, 18), 1, u"D"_s);
    EXPECT_FALSE(session.SessionConnected);
}

TEST_F(DueDateErrors, AssetWithoutIntervalHasNoUnitEither) {
    Moment from;
    float count = 0;
    QString code;
    ui.expectReport(5, u"ModuleGlobals,calcDueDate"_s);
    EXPECT_TRUE(ModuleGlobals::calcDueDate(session, u"NONE"_s, from, count, code).isEmpty());
    EXPECT_EQ(from.date, QDate(2026, 3, 18)) << "overwritten all the same";
}

} // namespace kelvane::testing
