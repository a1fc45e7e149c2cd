#include "platform/values/numbers.h"

#include "platform/error.h"

#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

namespace kelvane {

namespace {

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// A number as collected from a text: what `std::from_chars` reads, sign included.
using Collected = QVarLengthArray<char, 64>;

void append(Collected& number, QChar c) {
    number.append(static_cast<char>(c.unicode()));
}

/// Of a number beyond the range of a double: true when it lies above it, false when it is too close to 0.
bool isTooLarge(const Collected& number) {
    const auto end = number.cend();
    const auto exponent = std::find(number.cbegin(), end, 'e');
    const auto point = std::find(number.cbegin(), exponent, '.');
    const auto first = std::find_if(number.cbegin(), exponent, [](char c) { return c >= '1' && c <= '9'; });
    qint64 shift = 0;
    if (exponent != end && std::from_chars(exponent + 1, end, shift).ec == std::errc::result_out_of_range)
        return exponent[1] != '-';
    return point - first + shift > 0;
}

/// The value of `number`, which is infinite when it is too large and 0 when it is too small for a double.
double valueOf(const Collected& number) {
    double value = 0;
    const auto failure = std::from_chars(number.cbegin(), number.cend(), value).ec;
    if (failure != std::errc::result_out_of_range)
        return value;
    const auto size = isTooLarge(number) ? std::numeric_limits<double>::infinity() : 0.0;
    return number.front() == '-' ? -size : size;
}

/// Walks over the characters of a text that are not skipped.
class Reader {
  public:
    explicit Reader(QStringView text) : text_(text) { skip(); }
    QChar peek() const { return at_ < text_.size() ? text_[at_] : QChar(); }
    void next() {
        ++at_;
        skip();
    }
    qsizetype digitsInto(Collected& number) {
        const auto before = number.size();
        for (; isDigit(peek()); next())
            append(number, peek());
        return number.size() - before;
    }

  private:
    void skip() {
        while (at_ < text_.size() &&
               (text_[at_] == u' ' || text_[at_] == u'\t' || text_[at_] == u'\r' || text_[at_] == u'\n'))
            ++at_;
    }
    QStringView text_;
    qsizetype at_ = 0;
};

/// The powers of ten that a double holds exactly.
constexpr double powersOfTen[] = {1E0,  1E1,  1E2,  1E3,  1E4,  1E5,  1E6,  1E7,  1E8,  1E9,  1E10, 1E11,
                                  1E12, 1E13, 1E14, 1E15, 1E16, 1E17, 1E18, 1E19, 1E20, 1E21, 1E22};
constexpr int lastPower = std::size(powersOfTen) - 1;

/// So many digits of a number count. A double holds each whole number of so many exactly.
constexpr int significantDigits = 15;

/// A decimal number: `digits` divided by ten to the power of `scale`.
struct Decimal {
    bool negative = false;
    quint64 digits = 0;
    int scale = 0;
};

/// Takes apart what `std::to_chars` wrote in its scientific form, such as "-1.25e-07".
Decimal parseScientific(const char* at, const char* end) {
    Decimal decimal;
    decimal.negative = *at == '-';
    bool behindPoint = false;
    for (at += decimal.negative; *at != 'e'; ++at) {
        if (*at == '.') {
            behindPoint = true;
            continue;
        }
        decimal.digits = decimal.digits * 10 + static_cast<quint64>(*at - '0');
        decimal.scale += behindPoint;
    }
    int exponent = 0;
    std::from_chars(at + (at[1] == '+' ? 2 : 1), end, exponent);
    decimal.scale -= exponent;
    return decimal;
}

/// The digits of `value`: so many behind the first as `precision` says, otherwise the fewest that read back
/// to it.
template <class Float, class... Precision>
Decimal digitsOf(Float value, Precision... precision) {
    std::array<char, 32> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::scientific, precision...)
                         .ptr;
    return parseScientific(text.data(), end);
}

/// A value of such a size is multiplied by a power of the table to get its digits.
bool isOfOrdinarySize(double size) {
    return size >= 1E-8 && size < 1E15;
}

/// The first fifteen digits; a half behind the last goes to the even neighbour.
Decimal fifteenDigits(double value) {
    const double size = std::abs(value);
    if (size == 0)
        return {};
    if (!isOfOrdinarySize(size))
        return digitsOf(value, significantDigits - 1);
    int scale = size < 1 ? lastPower : significantDigits - 1;
    while (size * powersOfTen[scale] >= 1E15)
        --scale;
    // The exact product is `product` + `rest`. The rest decides only where the product ends in exactly a
    // half.
    const double product = size * powersOfTen[scale];
    const double rest = std::fma(size, powersOfTen[scale], -product);
    auto digits = static_cast<qint64>(product);
    const double aboveHalf = product - static_cast<double>(digits) - 0.5 + rest;
    if (aboveHalf > 0 || (aboveHalf == 0 && digits % 2 != 0))
        ++digits;
    return {value < 0, static_cast<quint64>(digits), scale};
}

/// Rounds half away from zero to `decimals` digits behind the point.
void round(Decimal& decimal, int decimals) {
    const int dropped = decimal.scale - decimals;
    if (dropped <= 0)
        return;
    if (dropped > significantDigits) {
        decimal.digits = 0;
    } else {
        const auto unit = static_cast<quint64>(powersOfTen[dropped]);
        decimal.digits = (decimal.digits + unit / 2) / unit;
    }
    decimal.scale = decimals;
}

/// Space for a sign, the digits of the largest double, a point and the decimals.
constexpr int maxCharacters = std::numeric_limits<double>::max_exponent10 + 3 + significantDigits;

/// Writes without an exponent, `decimals` digits behind the point, with space for `spare` more characters.
QString writeFixed(const Decimal& decimal, int decimals, qsizetype spare = 0) {
    std::array<char16_t, maxCharacters> characters;
    auto* const end = characters.data() + characters.size();
    auto* begin = end;
    auto left = decimal.digits;
    // From the last place to the first, with zeros where the number has no digits.
    for (int place = -decimals; left != 0 || place <= 0; ++place) {
        if (place == 0 && decimals > 0)
            *--begin = u'.';
        const bool hasDigit = place >= -decimal.scale;
        *--begin = static_cast<char16_t>(u'0' + (hasDigit ? left % 10 : 0));
        left = hasDigit ? left / 10 : left;
    }
    if (decimal.negative && decimal.digits != 0)
        *--begin = u'-';
    QString text(end - begin + spare, Qt::Uninitialized);
    text.resize(end - begin);
    std::copy(begin, end, reinterpret_cast<char16_t*>(text.data()));
    return text;
}

QString writeScientific(const Decimal& decimal) {
    std::array<char, 32> text;
    auto* out = text.data();
    if (decimal.negative)
        *out++ = '-';
    // The first digit moves to the front, and leaves its place to the point.
    const auto end = std::to_chars(out + 1, text.data() + text.size(), decimal.digits).ptr;
    const auto exponent = end - out - 2 - decimal.scale;
    out[0] = out[1];
    out[1] = '.';
    out = end - out == 2 ? out + 1 : end;
    *out++ = 'E';
    *out++ = exponent < 0 ? '-' : '+';
    const auto size = std::abs(exponent);
    if (size < 10)
        *out++ = '0';
    out = std::to_chars(out, text.data() + text.size(), size).ptr;
    return QString::fromLatin1(text.data(), out - text.data());
}

QString nonFiniteText(double value) {
    return std::isnan(value) ? QStringLiteral("nan")
           : value < 0       ? QStringLiteral("-inf")
                             : QStringLiteral("inf");
}

template <class Float>
QString plainTextOf(Float value) {
    if (!std::isfinite(value))
        return nonFiniteText(static_cast<double>(value));
    const auto decimal = digitsOf(value);
    const auto size = std::abs(static_cast<double>(value));
    if (size != 0 && (size < 1E-15 || size >= 1E15))
        return writeScientific(decimal);
    return writeFixed(decimal, std::max(decimal.scale, 0));
}

template <class Whole>
Whole roundTo(double value) {
    const auto rounded = roundHalfEven(value);
    if (!(rounded >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
          rounded <= static_cast<double>(std::numeric_limits<Whole>::max())))
        throw makeError(ErrorNumber::overflow);
    return static_cast<Whole>(rounded);
}

/// The value of an ordinary number: a "-" at most, digits and a point, so few that their quotient by a power
/// of ten is exact but for its one rounding. Nothing for any other text.
std::optional<double> ordinaryNumber(QStringView text) {
    const bool negative = text.startsWith(u'-');
    if (text.size() > significantDigits || text.size() == negative)
        return {};
    qint64 digits = 0;
    qsizetype point = -1;
    for (qsizetype at = negative; at < text.size(); ++at) {
        if (isDigit(text[at]))
            digits = digits * 10 + (text[at].unicode() - u'0');
        else if (text[at] == u'.' && point < 0 && text.size() > negative + 1)
            point = at;
        else
            return {};
    }
    const auto decimals = point < 0 ? 0 : text.size() - 1 - point;
    const double size = static_cast<double>(digits) / powersOfTen[decimals];
    return negative ? -size : size;
}

} // namespace

double numericValue(QStringView text) {
    if (const auto value = ordinaryNumber(text))
        return *value;
    Reader reader(text);
    Collected number;
    if (reader.peek() == u'-')
        number.append('-');
    if (reader.peek() == u'-' || reader.peek() == u'+')
        reader.next();
    auto digits = reader.digitsInto(number);
    if (reader.peek() == u'.') {
        number.append('.');
        reader.next();
        digits += reader.digitsInto(number);
    }
    if (digits == 0)
        return 0;
    const auto mantissa = number.size();
    if (const auto letter = reader.peek().toLower(); letter == u'e' || letter == u'd') {
        reader.next();
        number.append('e');
        if (reader.peek() == u'-')
            number.append('-');
        if (reader.peek() == u'-' || reader.peek() == u'+')
            reader.next();
        if (reader.digitsInto(number) == 0)
            number.resize(mantissa);
    }
    constexpr auto largest = std::numeric_limits<double>::max();
    return std::clamp(valueOf(number), -largest, largest);
}

std::optional<double> numberOf(QStringView text) {
    qsizetype at = 0;
    auto end = text.size();
    while (at < end && text[at] == u' ')
        ++at;
    while (end > at && text[end - 1] == u' ')
        --end;
    const auto here = [&](QStringView characters) { return at < end && characters.contains(text[at]); };

    Collected number;
    if (here(u"-"))
        number.append('-');
    if (here(u"+-"))
        ++at;
    const auto digits = [&] {
        const auto before = number.size();
        for (; at < end && isDigit(text[at]); ++at)
            append(number, text[at]);
        return number.size() - before;
    };
    auto count = digits();
    bool commas = false;
    for (; here(u","); count += digits()) {
        commas = true;
        ++at;
    }
    if (commas && count == 0)
        return {};
    if (here(u".")) {
        number.append('.');
        ++at;
        count += digits();
    }
    if (count == 0)
        return {};
    if (here(u"eE")) {
        number.append('e');
        ++at;
        if (here(u"-"))
            number.append('-');
        if (here(u"+-"))
            ++at;
        if (digits() == 0)
            return {};
    }
    if (at != end)
        return {};
    const auto value = valueOf(number);
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

QString plainText(double value) {
    return plainTextOf(value);
}

QString plainText(float value) {
    return plainTextOf(value);
}

QString plainText(int value) {
    return QString::number(value);
}

QString fixedDecimals(double value, int decimals, qsizetype spare) {
    Q_ASSERT(decimals <= significantDigits);
    if (!std::isfinite(value))
        return nonFiniteText(value);
    auto decimal = fifteenDigits(value);
    round(decimal, decimals);
    return writeFixed(decimal, decimals, spare);
}

qint16 roundToShort(double value) {
    return roundTo<qint16>(value);
}

qint32 roundToLong(double value) {
    return roundTo<qint32>(value);
}

double roundHalfEven(double value) {
    return std::nearbyint(value);
}

float toReal(double value) {
    const auto real = static_cast<float>(value);
    if (std::isinf(real) && std::isfinite(value))
        throw makeError(ErrorNumber::overflow);
    return real;
}

double widenThroughText(float value) {
    if (!std::isfinite(value))
        return static_cast<double>(value);
    std::array<char, 32> text;
    // Without its scientific form a large number would be written with all its digits, not the shortest.
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific).ptr;
    double widened = 0;
    std::from_chars(text.data(), end, widened);
    return widened;
}

} // namespace kelvane
