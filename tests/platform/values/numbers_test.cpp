#include "platform/values/numbers.h"
#include "testkit/fixtures.h"
#include "tests/platform/errors.h"

#include <QRandomGenerator>

#include <bit>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::errorOf;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double largest = std::numeric_limits<double>::max();
constexpr double smallest = std::numeric_limits<double>::denorm_min();

} // namespace

TEST(NumericValue, ReadsFromTheLeftUntilACharacterFitsNowhere) {
    static const struct {
        QString text;
        double value;
    } rows[] = {
        {u"12abc"_s, 12},
        {u"abc"_s, 0},
        {u""_s, 0},
        {u" 1 0"_s, 10},
        {u"1.5E2x"_s, 150},
        {u"-.5"_s, -0.5},
        {u"1,000"_s, 1},
        {u"1E"_s, 1},
        // blanks, tabs and line ends wherever they stand
        {u"\t- 1\r\n 2 . 5 e \t+ 1"_s, -125},
        {u"1 . 5 E 2 x"_s, 150},
        {u"1\u00a00"_s, 1}, // a no-break space is none of the skipped
        // signs
        {u"+3"_s, 3},
        {u"--3"_s, 0},
        {u"+-3"_s, 0},
        {u"3-"_s, 3},
        {u"-"_s, 0},
        {u"+"_s, 0},
        // points
        {u"."_s, 0},
        {u"-."_s, 0},
        {u"5."_s, 5},
        {u"1.2.3"_s, 1.2},
        {u".5.5"_s, 0.5},
        {u"..5"_s, 0},
        {u",5"_s, 0},
        // exponents
        {u"1e3"_s, 1000},
        {u"1d3"_s, 1000},
        {u"1D-3"_s, 0.001},
        {u"1E+2"_s, 100},
        {u"1E-"_s, 1},
        {u"1E+x"_s, 1},
        {u"1Ex"_s, 1},
        {u"1E5E5"_s, 100000},
        {u"1E1.5"_s, 10},
        {u"E5"_s, 0},
        {u".E5"_s, 0},
        {u"5.E1"_s, 50},
        // things other readers know and this one does not
        {u"0x1F"_s, 0},
        {u"&H1F"_s, 0},
        {u"inf"_s, 0},
        {u"nan"_s, 0},
        {u"1f"_s, 1},
        {u"١٢"_s, 0},
        {u"12١"_s, 12},
        {u"\u22125"_s, 0},
        // limits
        {u"0.1"_s, 0.1},
        {u"9007199254740993"_s, 9007199254740992.0},
        {u"1.7976931348623157E308"_s, largest},
        {u"5e-324"_s, smallest},
        {u"1e-400"_s, 0},
        {u"-1e-400"_s, 0},
        {u"0e999999999999999999999"_s, 0},
        {u"0."_s + QString(400, u'0') + u"1e401"_s, 1},
        {u'1' + QString(400, u'0') + u"e-400"_s, 1},
    };
    for (const auto& row : rows)
        EXPECT_EQ(numericValue(row.text), row.value) << row.text.toStdString();
}

TEST(NumericValue, AValueTooLargeForADoubleIsTheLargestOneOfItsSign) {
    EXPECT_EQ(numericValue(u"1e400"), largest);
    EXPECT_EQ(numericValue(u"-1e400"), -largest);
    EXPECT_EQ(numericValue(u"1e99999999999999999999"), largest);
    EXPECT_EQ(numericValue(QString(5000, u'9')), largest);
    // so that storing it into a smaller type is an overflow, as for any other large number
    EXPECT_EQ(errorOf([] { toReal(numericValue(u"1e400")); }), 6);
}

TEST(NumericValue, TakesAHugeText) {
    EXPECT_EQ(numericValue(u"12"_s + QString(1'000'000, u' ') + u"3"_s), 123);
    EXPECT_EQ(numericValue(u"0."_s + QString(1'000'000, u'3')), 1.0 / 3);
}

TEST(NumericValue, OfDigitsAndAPointIsTheNearestDouble) {
    QRandomGenerator random(20260318);
    for (int i = 0; i < 20000; ++i) {
        auto text = QByteArray::number(random.generate64()).left(random.bounded(1, 20));
        text.insert(random.bounded(text.size() + 1), '.');
        if (random.bounded(4) == 0)
            text.prepend('-');
        ASSERT_EQ(numericValue(QString::fromLatin1(text)), text.toDouble()) << text.toStdString();
    }
}

TEST(NumericValue, OfAnOrdinaryNumberKeepsItsSign) {
    EXPECT_TRUE(std::signbit(numericValue(u"-0.00")));
    EXPECT_FALSE(std::signbit(numericValue(u"0.00")));
    EXPECT_FALSE(std::signbit(numericValue(u"-.")));
    EXPECT_EQ(numericValue(u"123456789012345"), 123456789012345);
    EXPECT_EQ(numericValue(u"-.00000000000001"), -1E-14);
}

TEST(NumberTest, DistinguishesNumbersFromOtherTexts) {
    static const struct {
        QString text;
        std::optional<double> value;
    } rows[] = {
        {u"1,000.5"_s, 1000.5},
        {u"+3"_s, 3},
        {u".5"_s, 0.5},
        {u"5."_s, 5},
        {u"1e3"_s, 1000},
        {u""_s, {}},
        {u"1.2.3"_s, {}},
        {u"12 V"_s, {}},
        {u"1e"_s, {}},
        {u"-"_s, {}},
        {u","_s, {}},
        // blanks stand at the ends only, and are blanks only
        {u"  12  "_s, 12},
        {u"   "_s, {}},
        {u"1 2"_s, {}},
        {u"- 1"_s, {}},
        {u"\t1"_s, {}},
        {u"1\r\n"_s, {}},
        // signs
        {u"-3.25"_s, -3.25},
        {u"3-"_s, {}},
        {u"+-3"_s, {}},
        {u"-+3"_s, {}},
        // commas: among the digits before the point
        {u"1,2,3"_s, 123},
        {u"1,,000"_s, 1000},
        {u"1,000,"_s, 1000},
        {u"1,.5"_s, 1.5},
        {u",5"_s, 5},
        {u",.5"_s, {}},
        {u"1.0,5"_s, {}},
        {u"1e1,0"_s, {}},
        {u"-1,5"_s, -15},
        // points
        {u"."_s, {}},
        {u"+."_s, {}},
        {u".e5"_s, {}},
        {u"5.e1"_s, 50},
        // exponents
        {u"1E+2"_s, 100},
        {u"1E-2"_s, 0.01},
        {u"1E+"_s, {}},
        {u"1d3"_s, {}},
        {u"1D3"_s, {}},
        {u"e5"_s, {}},
        {u"1e1.5"_s, {}},
        {u"1e1e1"_s, {}},
        // no other notation
        {u"0x1F"_s, {}},
        {u"inf"_s, {}},
        {u"nan"_s, {}},
        {u"$5"_s, {}},
        {u"5%"_s, {}},
        {u"(5)"_s, {}},
        {u"١"_s, {}},
        {u"1'000"_s, {}},
        // limits
        {u"1.7976931348623157e308"_s, largest},
        {u"1e309"_s, {}},
        {u"-1e309"_s, {}},
        {u"1e99999999999999999999"_s, {}},
        {u"1e-400"_s, 0},
        {QString(400, u'9'), {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(numberOf(row.text), row.value) << row.text.toStdString();
}

TEST(PlainText, IsTheShortestThatReadsBackToTheSameDouble) {
    static const struct {
        double value;
        QString text;
    } rows[] = {
        {0, u"0"_s},
        {-0.0, u"0"_s},
        {1, u"1"_s},
        {-1, u"-1"_s},
        {10, u"10"_s},
        {100, u"100"_s},
        {1200, u"1200"_s},
        {0.5, u"0.5"_s},
        {-0.5, u"-0.5"_s},
        {0.1, u"0.1"_s},
        {0.1 + 0.2, u"0.30000000000000004"_s},
        {1.0 / 3, u"0.3333333333333333"_s},
        {123.456, u"123.456"_s},
        {1000.5, u"1000.5"_s},
        {0.001, u"0.001"_s},
        {static_cast<double>(0.1F), u"0.10000000149011612"_s},
        // where the exponent begins
        {1E15, u"1E+15"_s},
        {999999999999999, u"999999999999999"_s},
        {999999999999999.9, u"999999999999999.9"_s},
        {100000000000000, u"100000000000000"_s},
        {-1E15, u"-1E+15"_s},
        {1E-15, u"0.000000000000001"_s},
        {1.5E-15, u"0.0000000000000015"_s},
        {9.9E-16, u"9.9E-16"_s},
        {-9.9E-16, u"-9.9E-16"_s},
        {1.5E20, u"1.5E+20"_s},
        {1.25E-20, u"1.25E-20"_s},
        {1E100, u"1E+100"_s},
        {1E-100, u"1E-100"_s},
        {largest, u"1.7976931348623157E+308"_s},
        {smallest, u"5E-324"_s},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(plainText(row.value), row.text);
        EXPECT_EQ(numericValue(row.text), row.value) << row.text.toStdString();
    }
}

TEST(PlainText, OfA32BitNumberIsTheShortestInItsOwnWidth) {
    static const struct {
        float value;
        QString text;
    } rows[] = {
        {0.1F, u"0.1"_s},
        {-0.0F, u"0"_s},
        {1.0F / 3, u"0.33333334"_s},
        {16777216.0F, u"16777216"_s},
        {1E14F, u"100000000000000"_s},
        {1E15F, u"1000000000000000"_s}, // the nearest 32-bit value lies just below 1E15
        {1.5E20F, u"1.5E+20"_s},
        {1E-15F, u"0.000000000000001"_s},
        {9E-16F, u"9E-16"_s},
        {3.4028235E38F, u"3.4028235E+38"_s},
        {1E-45F, u"1E-45"_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(plainText(row.value), row.text);
}

TEST(PlainText, IsReadBackToTheSameValueInEitherWidth) {
    QRandomGenerator random(20260318);
    for (int i = 0; i < 20000; ++i) {
        const auto bits = random.generate64();
        const auto wide = std::bit_cast<double>(bits);
        if (std::isfinite(wide)) {
            ASSERT_EQ(numericValue(plainText(wide)), wide) << plainText(wide).toStdString();
            ASSERT_EQ(numberOf(plainText(wide)), wide) << plainText(wide).toStdString();
        }
        const auto narrow = std::bit_cast<float>(static_cast<quint32>(bits));
        if (std::isfinite(narrow)) {
            ASSERT_EQ(toReal(numericValue(plainText(narrow))), narrow) << plainText(narrow).toStdString();
            ASSERT_EQ(widenThroughText(narrow), numericValue(plainText(narrow)))
                << plainText(narrow).toStdString();
        }
    }
}

TEST(PlainText, OfAWholeNumber) {
    EXPECT_EQ(plainText(0), u"0"_s);
    EXPECT_EQ(plainText(-17), u"-17"_s);
    EXPECT_EQ(plainText(std::numeric_limits<int>::min()), u"-2147483648"_s);
}

TEST(PlainText, OfWhatIsNoNumberDoesNotFail) {
    EXPECT_EQ(plainText(infinity), u"inf"_s);
    EXPECT_EQ(plainText(-infinity), u"-inf"_s);
    EXPECT_EQ(plainText(notANumber), u"nan"_s);
    EXPECT_EQ(plainText(std::numeric_limits<float>::infinity()), u"inf"_s);
    EXPECT_EQ(fixedDecimals(infinity, 2), u"inf"_s);
    EXPECT_EQ(fixedDecimals(-infinity, 2), u"-inf"_s);
    EXPECT_EQ(fixedDecimals(notANumber, 2), u"nan"_s);
}

TEST(Rounding, TakesHalvesToTheEvenNeighbour) {
    static const struct {
        double value;
        int rounded;
    } rows[] = {
        {0.5, 0},  {1.5, 2},    {2.5, 2}, {-1.5, -2}, {-0.5, 0}, {-2.5, -2},     {0.49999999999999994, 0},
        {0.51, 1}, {-0.51, -1}, {3, 3},   {3.5, 4},   {4.5, 4},  {1234.5, 1234},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(roundToShort(row.value), row.rounded) << row.value;
        EXPECT_EQ(roundToLong(row.value), row.rounded) << row.value;
        EXPECT_EQ(roundHalfEven(row.value), row.rounded) << row.value;
    }
}

TEST(Rounding, OutsideTheTypeIsError6) {
    EXPECT_EQ(roundToShort(32767.4), 32767);
    EXPECT_EQ(roundToShort(-32768.5), -32768);
    EXPECT_EQ(roundToLong(2147483647.4), 2147483647);
    EXPECT_EQ(roundToLong(-2147483648.5), std::numeric_limits<qint32>::min());
    for (const double value : {32767.5, -32768.6, 1E10, -1E300, infinity, -infinity, notANumber})
        EXPECT_EQ(errorOf([=] { roundToShort(value); }), 6) << value;
    for (const double value : {2147483647.5, -2147483648.6, 1E10, -1E300, infinity, -infinity, notANumber})
        EXPECT_EQ(errorOf([=] { roundToLong(value); }), 6) << value;
}

TEST(Real, IsTheNearest32BitValueOrError6) {
    EXPECT_EQ(toReal(0.1), 0.1F);
    EXPECT_EQ(toReal(-3), -3.0F);
    EXPECT_EQ(toReal(1E-60), 0.0F);
    EXPECT_EQ(toReal(3.4028234E38), 3.4028234E38F);
    for (const double value : {3.5E38, -3.5E38, largest})
        EXPECT_EQ(errorOf([=] { toReal(value); }), 6) << value;
}

TEST(Real, ByWayOfItsTextIsTheDoubleNearestToIt) {
    EXPECT_EQ(widenThroughText(0.1F), 0.1);
    EXPECT_NE(widenThroughText(0.1F), static_cast<double>(0.1F));
    EXPECT_EQ(widenThroughText(-12.7F), -12.7);
    EXPECT_EQ(widenThroughText(0.0F), 0.0);
    EXPECT_EQ(widenThroughText(264427312.0F), 264427310.0);
    EXPECT_EQ(plainText(264427312.0F), u"264427310"_s);
    EXPECT_EQ(widenThroughText(3.4028235E38F), 3.4028235E38);
    EXPECT_EQ(widenThroughText(1E-45F), 1E-45);
}

} // namespace kelvane
