#include "platform/values/csv.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr CsvForm commas{u',', u'.'};
constexpr CsvForm semicolons{u';', u','};

} // namespace

TEST(Csv, TextsAreQuotedWhereTheyWouldEndTheirCell) {
    const struct {
        QString text;
        QString cell;
    } rows[] = {
        {u""_s, u""_s},
        {u"PT-101"_s, u"PT-101"_s},
        {u"LT-10'COL"_s, u"LT-10'COL"_s},
        {u"a,b"_s, u"\"a,b\""_s},
        {u"a;b"_s, u"\"a;b\""_s},
        {u"a\tb"_s, u"\"a\tb\""_s},
        {u"3/4\" pipe"_s, u"\"3/4\"\" pipe\""_s},
        {u"\""_s, u"\"\"\"\""_s},
        {u"two\r\nlines"_s, u"\"two\r\nlines\""_s},
        {u"ÄÖ 溫度"_s, u"ÄÖ 溫度"_s},
    };
    for (const auto& form : {commas, semicolons}) {
        for (const auto& row : rows)
            EXPECT_EQ(csvCell(row.text, CsvCell::text, form), row.cell) << row.text.toStdString();
    }
}

TEST(Csv, ATextNeverBecomesAFormula) {
    const struct {
        QString text;
        QString cell;
    } rows[] = {
        {u"=1+1"_s, u"'=1+1"_s},
        {u"+49 30"_s, u"'+49 30"_s},
        {u"-12"_s, u"'-12"_s},
        {u"@SUM(A1)"_s, u"'@SUM(A1)"_s},
        {u"=a,\"b\""_s, u"\"'=a,\"\"b\"\"\""_s},
        {u"\t=1"_s, u"\"'\t=1\""_s},
        {u"\r=1"_s, u"\"'\r=1\""_s},
        {u"\uFF1D1"_s, u"'\uFF1D1"_s},
        {u"a=1"_s, u"a=1"_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(csvCell(row.text, CsvCell::text, commas), row.cell) << row.text.toStdString();
}

TEST(Csv, NumbersHaveTheDecimalSignOfTheForm) {
    EXPECT_EQ(csvCell(u"-21.5"_s, CsvCell::number, commas), u"-21.5"_s);
    EXPECT_EQ(csvCell(u"-21.5"_s, CsvCell::number, semicolons), u"-21,5"_s);
    EXPECT_EQ(csvCell(u"45"_s, CsvCell::number, semicolons), u"45"_s);
    EXPECT_EQ(csvCell(u"45.0"_s, CsvCell::number, semicolons), u"45"_s);
    EXPECT_EQ(csvCell(u"0.50"_s, CsvCell::number, commas), u"0.5"_s);
    EXPECT_EQ(csvCell({}, CsvCell::number, semicolons), QString());
}

TEST(Csv, WhatIsNoNumberIsATextInAColumnOfNumbersToo) {
    EXPECT_EQ(csvCell(u"=1"_s, CsvCell::number, commas), u"'=1"_s);
    EXPECT_EQ(csvCell(u"-a.b"_s, CsvCell::number, semicolons), u"'-a.b"_s);
}

TEST(Csv, LinesEndAsTheFormatWantsIt) {
    EXPECT_EQ(csvLine({u"a"_s, {}, u"b"_s}, commas), u"a,,b\r\n"_s);
    EXPECT_EQ(csvLine({u"a"_s, {}, u"b"_s}, semicolons), u"a;;b\r\n"_s);
}

} // namespace kelvane::testing
