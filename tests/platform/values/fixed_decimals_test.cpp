#include "platform/values/numbers.h"
#include "testkit/fixtures.h"

#include <QRandomGenerator>

#include <bit>
#include <cmath>
#include <limits>
#include <string>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr double largest = std::numeric_limits<double>::max();
constexpr double smallest = std::numeric_limits<double>::denorm_min();

// The rule once more, with all digits of a number, by decimal arithmetic.

/// A decimal number: whole digits divided by ten to the power of `scale`.
struct LongNumber {
    std::string digits;
    int scale;
};

enum class Half { even, away };

void multiply(std::string& digits, int factor) {
    int carry = 0;
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        carry += (*digit - '0') * factor;
        *digit = static_cast<char>('0' + carry % 10);
        carry /= 10;
    }
    if (carry > 0)
        digits.insert(0, 1, static_cast<char>('0' + carry));
}

/// Every digit of a value that is not negative.
LongNumber allDigits(double value) {
    int exponent = 0;
    const auto mantissa = static_cast<quint64>(std::ldexp(std::frexp(value, &exponent), 53));
    LongNumber number{std::to_string(mantissa), 0};
    for (exponent -= 53; exponent > 0; --exponent)
        multiply(number.digits, 2);
    // Half of a number is five times the number, a place further down.
    for (; exponent < 0; ++exponent, ++number.scale)
        multiply(number.digits, 5);
    number.digits.erase(0, number.digits.find_first_not_of('0'));
    return number;
}

/// Rounds off the last `count` digits.
void drop(LongNumber& number, int count, Half half) {
    if (count <= 0)
        return;
    const auto places = static_cast<std::size_t>(count);
    if (number.digits.size() <= places)
        number.digits.insert(0, places + 1 - number.digits.size(), '0');
    const auto kept = number.digits.size() - places;
    const auto dropped = number.digits.substr(kept);
    const auto middle = '5' + std::string(places - 1, '0');
    number.digits.resize(kept);
    number.scale -= count;
    const bool isOdd = (number.digits.back() - '0') % 2 != 0;
    if (dropped < middle || (dropped == middle && half == Half::even && !isOdd))
        return;
    auto place = number.digits.find_last_not_of('9');
    if (place == std::string::npos) {
        number.digits.insert(0, 1, '0');
        place = 0;
    }
    ++number.digits[place];
    for (++place; place < number.digits.size(); ++place)
        number.digits[place] = '0';
}

QString longHand(double value, int decimals) {
    auto number = allDigits(std::abs(value));
    drop(number, static_cast<int>(number.digits.size()) - 15, Half::even);
    drop(number, number.scale - decimals, Half::away);
    auto digits = number.digits + std::string(static_cast<std::size_t>(decimals - number.scale), '0');
    const auto behind = static_cast<std::size_t>(decimals);
    if (digits.size() <= behind)
        digits.insert(0, behind + 1 - digits.size(), '0');
    const bool isZero = digits.find_first_not_of('0') == std::string::npos;
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - behind - 1));
    if (decimals > 0)
        digits.insert(digits.size() - behind, 1, '.');
    return (value < 0 && !isZero ? u"-"_s : QString()) + QString::fromStdString(digits);
}

/// Values of the kinds on which a rounding goes wrong.
double valueOfKind(int kind, QRandomGenerator& random) {
    const auto powerOfTen = [&](int last) { return std::pow(10.0, random.bounded(last + 1)); };
    switch (kind) {
    case 0: // as they are measured
        return random.bounded(400.0) - 200;
    case 1: // decimal halves
        return (random.bounded(2000000) + 0.5) / powerOfTen(10);
    case 2: // binary fractions, with halves behind the fifteenth digit
        return static_cast<double>(random.generate64() >> 14 | 1) /
               static_cast<double>(1 << random.bounded(9));
    case 3: // fifteen digits
        return -std::floor(1E14 + random.bounded(9E14)) / powerOfTen(25);
    case 4: // next to a power of ten
        return powerOfTen(16) / powerOfTen(9) * (1 + (random.bounded(9) - 4) * 0x1p-53);
    default: // any size
        return std::ldexp(random.bounded(2.0) - 1, random.bounded(110) - 50);
    }
}

} // namespace

TEST(FixedDecimals, RoundTheFifteenDigitDecimalHalfAwayFromZero) {
    static const struct {
        double value;
        int decimals;
        QString text;
    } rows[] = {
        {2.675, 2, u"2.68"_s},
        {-2.675, 2, u"-2.68"_s},
        {0.005, 2, u"0.01"_s},
        {-0.001, 2, u"0.00"_s},
        {1.1249999999999998, 2, u"1.13"_s},
        {0.5, 0, u"1"_s},
        {0.4, 0, u"0"_s},
        {1234.5, 0, u"1235"_s},
        // no minus on a zero result
        {0, 0, u"0"_s},
        {-0.0, 3, u"0.000"_s},
        {-0.4, 0, u"0"_s},
        {-0.5, 0, u"-1"_s},
        {-0.0049, 2, u"0.00"_s},
        {-0.005, 2, u"-0.01"_s},
        // carries
        {9.995, 2, u"10.00"_s},
        {0.995, 2, u"1.00"_s},
        {99.5, 0, u"100"_s},
        {999.9996, 3, u"1000.000"_s},
        {0.0996, 3, u"0.100"_s},
        {-9.5, 0, u"-10"_s},
        {1.0995, 3, u"1.100"_s},
        // exactly as many digits as the pattern shows
        {1, 9, u"1.000000000"_s},
        {1.5, 1, u"1.5"_s},
        {0.0625, 3, u"0.063"_s},
        {0.04, 1, u"0.0"_s},
        {0.05, 1, u"0.1"_s},
        {0.004, 1, u"0.0"_s},
        {0.09, 0, u"0"_s},
        {123456.789, 1, u"123456.8"_s},
        {0.1, 15, u"0.100000000000000"_s},
        {1.0 / 3, 15, u"0.333333333333333"_s},
        // beyond fifteen digits there are zeros
        {123456789012345678.0, 0, u"123456789012346000"_s},
        {1234567.123456789, 9, u"1234567.123456790"_s},
        {1E15, 2, u"1000000000000000.00"_s},
        {999999999999999.9, 0, u"1000000000000000"_s},
        // the first step alone carries
        {0.9999999999999999, 15, u"1.000000000000000"_s},
        {9.999999999999999, 2, u"10.00"_s},
        // a half behind the fifteenth digit goes to the even neighbour
        {100000000000000.5, 1, u"100000000000000.0"_s},
        {100000000000001.5, 1, u"100000000000002.0"_s},
        {-100000000000002.5, 1, u"-100000000000002.0"_s},
        {4503599627370496.5, 0, u"4503599627370500"_s},
        {0.50000000000000044, 15, u"0.500000000000000"_s}, // just below a half
        {0.50000000000000056, 15, u"0.500000000000001"_s},
        // next to a power of ten
        {std::nextafter(1, 0), 2, u"1.00"_s},
        {std::nextafter(10, 0), 15, u"10.000000000000000"_s},
        {std::nextafter(1000, 0), 0, u"1000"_s},
        {std::nextafter(1000, 2000), 9, u"1000.000000000"_s},
        {std::nextafter(1E15, 0), 0, u"1000000000000000"_s},
        {std::nextafter(1E15, 2E15), 1, u"1000000000000000.0"_s},
        {999999999999999, 1, u"999999999999999.0"_s},
        {std::nextafter(1E-8, 0), 9, u"0.000000010"_s},
        {1E-8, 8, u"0.00000001"_s},
        {1E-8, 7, u"0.0000000"_s},
        {5E-9, 8, u"0.00000001"_s},
        {4.99999999999999E-9, 8, u"0.00000000"_s},
        {4.999999999999999E-9, 8, u"0.00000001"_s},
        {1.5E-10, 9, u"0.000000000"_s},
        {-5E-10, 9, u"-0.000000001"_s},
        // far away
        {std::numeric_limits<double>::min(), 9, u"0.000000000"_s},
        {1E-20, 9, u"0.000000000"_s},
        {-1E-300, 3, u"0.000"_s},
        {smallest, 0, u"0"_s},
        {1E20, 1, u"100000000000000000000.0"_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(fixedDecimals(row.value, row.decimals), row.text)
            << row.value << " with " << row.decimals << " decimals";
}

TEST(FixedDecimals, OfAHugeValueAreItsFifteenDigitsAndZeros) {
    EXPECT_EQ(fixedDecimals(1E300, 2), u'1' + QString(300, u'0') + u".00"_s);
    EXPECT_EQ(fixedDecimals(-largest, 0), u"-179769313486232"_s + QString(294, u'0'));
}

TEST(FixedDecimals, AreThoseOfDecimalArithmetic) {
    QRandomGenerator random(20260318);
    for (int i = 0; i < 3000; ++i) {
        const double value = valueOfKind(i % 6, random);
        const int decimals = random.bounded(16);
        for (const double near : {value, std::nextafter(value, largest), std::nextafter(value, -largest)})
            ASSERT_EQ(fixedDecimals(near, decimals), longHand(near, decimals))
                << std::bit_cast<quint64>(near) << " with " << decimals << " decimals";
    }
}

TEST(FixedDecimals, OfATextThatGetsAUnitAreMovedNowhere) {
    for (const auto& unit : {u"V"_s, u" mA"_s, u" inches of water"_s}) {
        auto text = fixedDecimals(12.5, 2, unit.size());
        const auto* before = text.constData();
        text += unit;
        EXPECT_EQ(text, u"12.50"_s + unit);
        EXPECT_EQ(text.constData(), before);
    }
}

} // namespace kelvane
