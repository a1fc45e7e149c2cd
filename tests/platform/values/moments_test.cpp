#include "testkit/fixtures.h"
#include "tests/platform/errors.h"
#include "tests/platform/values/moment_at.h"

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::at;
using testing::errorOf;

TEST(FormatMoment, WritesEachCodePadded) {
    const auto moment = at(2026, 3, 8, 9, 5, 7);
    static const struct {
        QStringView format;
        QString text;
    } rows[] = {
        {u"MM/DD/YYYY", u"03/08/2026"_s},
        {u"DD/MM/YYYY", u"08/03/2026"_s},
        {u"YYYY/MM/DD", u"2026/03/08"_s},
        {u"YYYY-MM-DD HH:NN:SS", u"2026-03-08 09:05:07"_s},
        {u"HH:NN", u"09:05"_s},
        {u"dddd", u"Sunday"_s},
        {u"[dddd] YYYY", u"[Sunday] 2026"_s},
        {u"dd.mm", u"dd.mm"_s}, // codes count in their own case only
        {u"", u""_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(formatMoment(moment, row.format), row.text);
}

TEST(FormatMoment, WritesYearsOfThreeDigitsWithFour) {
    EXPECT_EQ(formatMoment(at(100, 1, 1), u"MM/DD/YYYY"), u"01/01/0100"_s);
    EXPECT_EQ(formatMoment(at(9999, 12, 31, 23, 59, 59), u"YYYYMMDDHHNNSS"), u"99991231235959"_s);
}

TEST(FormatMoment, KnowsEveryDayByItsEnglishName) {
    const QStringList names{u"Monday"_s, u"Tuesday"_s,  u"Wednesday"_s, u"Thursday"_s,
                            u"Friday"_s, u"Saturday"_s, u"Sunday"_s};
    for (int day = 0; day < 7; ++day)
        EXPECT_EQ(formatMoment(at(2026, 3, 16 + day), u"dddd"), names[day]);
}

TEST(FormatMoment, OfNoDateIsEmptyAndOfNoTimeIsMidnight) {
    EXPECT_EQ(formatMoment({}, u"YYYY-MM-DD"), u""_s);
    EXPECT_EQ(formatMoment({{}, QTime(9, 30)}, u"HH:NN"), u""_s);
    EXPECT_EQ(formatMoment({QDate(2026, 3, 8), {}}, u"DD HH:NN:SS"), u"08 00:00:00"_s);
}

TEST(ShortDate, IsTheSessionsFormatOrMonthFirst) {
    const QDate date(2026, 3, 8);
    EXPECT_EQ(shortDate(date, u""), u"03/08/2026"_s);
    EXPECT_EQ(shortDate(date, u"MM/DD/YYYY"), u"03/08/2026"_s);
    EXPECT_EQ(shortDate(date, u"DD/MM/YYYY"), u"08/03/2026"_s);
    EXPECT_EQ(shortDate(date, u"YYYY/MM/DD"), u"2026/03/08"_s);
    EXPECT_EQ(shortDate({}, u"MM/DD/YYYY"), u""_s);
}

TEST(ShortDate, IsReadBackAsTheSameDate) {
    for (const QStringView format : {u"", u"MM/DD/YYYY", u"DD/MM/YYYY", u"YYYY/MM/DD"}) {
        for (auto date = QDate(2027, 12, 25); date < QDate(2029, 1, 5); date = date.addDays(1)) {
            const auto read = momentOf(shortDate(date, format), format);
            ASSERT_TRUE(read) << shortDate(date, format).toStdString();
            EXPECT_EQ(read->date, date);
        }
    }
}

TEST(DateTest, ReadsNumericDatesInTheOrderOfTheSession) {
    static const struct {
        QStringView text;
        QStringView format;
        QDate date;
    } rows[] = {
        // year first when the first group has four digits, whatever the session's order
        {u"2026-11-21", u"", {2026, 11, 21}},
        {u"2026/11/21", u"DD/MM/YYYY", {2026, 11, 21}},
        {u"2026.1.2", u"DD/MM/YYYY", {2026, 1, 2}},
        {u"0100-01-01", u"", {100, 1, 1}},
        {u"9999-12-31", u"", {9999, 12, 31}},
        {u"2026-21-11", u"", {}}, // the place of the year gives the order of month and day
        // otherwise the session's order; month first when that is empty or begins with the year
        {u"03/04/2026", u"", {2026, 3, 4}},
        {u"03/04/2026", u"MM/DD/YYYY", {2026, 3, 4}},
        {u"03/04/2026", u"DD/MM/YYYY", {2026, 4, 3}},
        {u"03/04/2026", u"YYYY/MM/DD", {2026, 3, 4}},
        {u"3-4-2026", u"MM/DD/YYYY", {2026, 3, 4}},
        {u"3.4.2026", u"DD/MM/YYYY", {2026, 4, 3}},
        // swapped when only that makes a valid date
        {u"21/11/2026", u"MM/DD/YYYY", {2026, 11, 21}},
        {u"11/21/2026", u"DD/MM/YYYY", {2026, 11, 21}},
        {u"13/13/2026", u"MM/DD/YYYY", {}},
        {u"2/30/2026", u"MM/DD/YYYY", {}},
        {u"30/2/2026", u"MM/DD/YYYY", {}},
        // two digits of a year
        {u"1/2/00", u"", {2000, 1, 2}},
        {u"1/2/29", u"", {2029, 1, 2}},
        {u"1/2/30", u"", {1930, 1, 2}},
        {u"1/2/99", u"", {1999, 1, 2}},
        {u"26-11-21", u"YYYY/MM/DD", {2021, 11, 26}},
        {u"1/2/100", u"", {}},
        {u"1/2/999", u"", {}},
        {u"1/2/0100", u"", {100, 1, 2}},
        {u"1/2/099", u"", {}},
        {u"1/2/0099", u"", {}},
        {u"0026-01-02", u"", {}},
        {u"100-01-02", u"", {}},
        {u"1/2/6", u"", {}},
        {u"1/2/12026", u"", {}},
        {u"12026-01-02", u"", {}},
        // leap years and month ends
        {u"2/29/2024", u"", {2024, 2, 29}},
        {u"2/29/2025", u"", {}},
        {u"2/29/1900", u"", {}},
        {u"2/29/2000", u"", {2000, 2, 29}},
        {u"29/2/2000", u"MM/DD/YYYY", {2000, 2, 29}},
        {u"4/31/2026", u"", {}},
        {u"4/30/2026", u"", {2026, 4, 30}},
        {u"0/1/2026", u"", {}},
        {u"1/0/2026", u"", {}},
        // blanks at both ends, and nowhere else
        {u"  11/21/2026  ", u"", {2026, 11, 21}},
        {u"11 / 21 / 2026", u"", {}},
        {u"\t11/21/2026", u"", {}},
        // no dates
        {u"", u"", {}},
        {u"   ", u"", {}},
        {u"2026", u"", {}},
        {u"45000", u"", {}},
        {u"20261121", u"", {}},
        {u"11.21", u"", {}},
        {u"1.5", u"", {}},
        {u"11/21", u"", {}},
        {u"11/21/", u"", {}},
        {u"/11/2026", u"", {}},
        {u"11//2026", u"", {}},
        {u"11/21/2026/1", u"", {}},
        {u"11/21/2026x", u"", {}},
        {u"11/21-2026", u"", {}},
        {u"011/21/2026", u"", {}},
        {u"-11/21/2026", u"", {}},
        {u"11,21,2026", u"", {}},
        {u"١/٢/٢٠٢٦", u"", {}},
        {u"today", u"", {}},
        {u"11/21/2026' or '1'='1", u"", {}},
    };
    for (const auto& row : rows) {
        const auto read = momentOf(row.text, row.format);
        ASSERT_EQ(read.has_value(), row.date.isValid()) << row.text.toString().toStdString();
        if (read) {
            EXPECT_EQ(*read, (Moment{row.date, QTime(0, 0)})) << row.text.toString().toStdString();
        }
    }
}

TEST(DateTest, ReadsMonthNamesAndTheirFirstThreeLetters) {
    static const struct {
        QStringView text;
        QDate date;
    } rows[] = {
        {u"21 Nov 2026", {2026, 11, 21}},
        {u"21-Nov-2026", {2026, 11, 21}},
        {u"Nov 21, 2026", {2026, 11, 21}},
        {u"November 21 2026", {2026, 11, 21}},
        {u"November 21, 2026", {2026, 11, 21}},
        {u"Nov 21 2026", {2026, 11, 21}},
        {u"21 November 2026", {2026, 11, 21}},
        {u"1-May-2026", {2026, 5, 1}},
        {u" 01 May 2026 ", {2026, 5, 1}},
        {u"21 nov 2026", {2026, 11, 21}},
        {u"21-NOV-2026", {2026, 11, 21}},
        {u"21-Nov-26", {2026, 11, 21}},
        {u"21-Nov-926", {}},
        {u"Nov 21, 202", {}},
        {u"Nov 21, 30", {1930, 11, 21}},
        {u"29 Feb 2024", {2024, 2, 29}},
        {u"29 Feb 2023", {}},
        {u"31 June 2026", {}},
        {u"21 Nov", {}},
        {u"Nov 2026", {}},
        {u"Nov 21,", {}},
        {u"Nov", {}},
        {u"21 Novem 2026", {}},
        {u"21 No 2026", {}},
        {u"21 Mär 2026", {}},
        {u"21 Mai 2026", {}},
        {u"21-Nov 2026", {}},
        {u"21 Nov-2026", {}},
        {u"21Nov2026", {}},
        {u"2026 Nov 21", {}},
        {u"121 Nov 2026", {}},
        {u"Nov 21 2026 Nov", {}},
        {u"Saturday 21 Nov 2026", {}},
    };
    for (const auto& row : rows) {
        const auto read = momentOf(row.text, u"MM/DD/YYYY");
        ASSERT_EQ(read.has_value(), row.date.isValid()) << row.text.toString().toStdString();
        if (read) {
            EXPECT_EQ(read->date, row.date) << row.text.toString().toStdString();
        }
    }
}

TEST(DateTest, KnowsEveryMonth) {
    const QStringList names{u"January"_s,   u"February"_s, u"March"_s,    u"April"_s,
                            u"May"_s,       u"June"_s,     u"July"_s,     u"August"_s,
                            u"September"_s, u"October"_s,  u"November"_s, u"December"_s};
    for (int month = 1; month <= 12; ++month) {
        for (const auto& name : {names[month - 1], names[month - 1].left(3)}) {
            const auto read = momentOf(u"7 "_s + name + u" 2026"_s, u"");
            ASSERT_TRUE(read) << name.toStdString();
            EXPECT_EQ(read->date, QDate(2026, month, 7));
        }
    }
}

TEST(DateTest, ReadsTimesAsMomentsWithoutADate) {
    static const struct {
        QStringView text;
        QTime time;
    } rows[] = {
        {u"0:00", {0, 0}},
        {u"9:05", {9, 5}},
        {u"09:05", {9, 5}},
        {u"23:59:59", {23, 59, 59}},
        {u" 9:05:30 ", {9, 5, 30}},
        {u"12:00 AM", {0, 0}},
        {u"12:30 am", {0, 30}},
        {u"1:00 AM", {1, 0}},
        {u"11:59 Am", {11, 59}},
        {u"12:00 PM", {12, 0}},
        {u"12:30:15 pM", {12, 30, 15}},
        {u"1:00 PM", {13, 0}},
        {u"11:59:59PM", {23, 59, 59}},
        {u"24:00", {}},
        {u"23:60", {}},
        {u"23:59:60", {}},
        {u"0:30 AM", {}},
        {u"13:00 PM", {}},
        {u"9 PM", {}},
        {u"9:5", {}},
        {u"9:005", {}},
        {u"9:05:3", {}},
        {u"9:05:", {}},
        {u"9:", {}},
        {u":05", {}},
        {u"009:05", {}},
        {u"-9:05", {}},
        {u"9:05 XM", {}},
        {u"9:05 AMX", {}},
        {u"9:05 P", {}},
        {u"9:05:30.5", {}},
        {u"9.05", {}},
        {u"9:05 11/21/2026", {}},
    };
    for (const auto& row : rows) {
        const auto read = momentOf(row.text, u"");
        ASSERT_EQ(read.has_value(), row.time.isValid()) << row.text.toString().toStdString();
        if (read) {
            EXPECT_EQ(*read, (Moment{QDate(), row.time})) << row.text.toString().toStdString();
        }
    }
}

TEST(DateTest, ReadsADateABlankAndATime) {
    static const struct {
        QStringView text;
        std::optional<Moment> moment;
    } rows[] = {
        {u"2026-11-21 09:30:00", at(2026, 11, 21, 9, 30)},
        {u"11/21/2026 9:30 PM", at(2026, 11, 21, 21, 30)},
        {u"Nov 21, 2026 23:59:59", at(2026, 11, 21, 23, 59, 59)},
        {u"21-Nov-2026 0:00", at(2026, 11, 21)},
        {u"2026-11-21 24:00", {}},
        {u"2026-11-31 9:30", {}},
        {u"2026-11-21T09:30:00", {}},
        {u"2026-11-2109:30", {}},
        {u"2026-11-21  09:30", {}},
        {u"2026-11-21 09:30 x", {}},
        {u"2026-11-21 x", {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(momentOf(row.text, u""), row.moment) << row.text.toString().toStdString();
}

TEST(DateTest, TakesAHugeText) {
    EXPECT_FALSE(momentOf(QString(1'000'000, u'1'), u""));
    EXPECT_FALSE(momentOf(QString(1'000'000, u'N') + u" 1, 2026"_s, u""));
    EXPECT_TRUE(momentOf(QString(1'000'000, u' ') + u"2026-11-21"_s, u""));
}

TEST(RequireMoment, OfATextThatIsNoneIsError13) {
    EXPECT_EQ(requireMoment(u"11/21/2026", u""), at(2026, 11, 21));
    EXPECT_EQ(errorOf([] { requireMoment(u"45000", u""); }), 13);
    EXPECT_EQ(errorOf([] { requireMoment(u"", u""); }), 13);
}

TEST(Dated, IsAMomentWithADateOrError13) {
    EXPECT_EQ(requireDatePart(at(2026, 3, 18, 9, 30)), at(2026, 3, 18, 9, 30));
    EXPECT_EQ(errorOf([] { requireDatePart({{}, QTime(9, 30)}); }), 13);
    EXPECT_EQ(errorOf([] { requireDatePart({}); }), 13);
}

} // namespace kelvane
