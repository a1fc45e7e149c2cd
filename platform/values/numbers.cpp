#include "platform/values/numbers.h"

#include "platform/error.h"

#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
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

/// Of a number outside the range of a double: true when it lies above it, false when it is too close to 0.
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

/// A decimal number d.ddd times ten to the power of `exponent`.
struct Decimal {
    bool negative = false;
    int exponent = 0;
    int count = 0;
    std::array<char, 20> digits{};

    char digit(int place) const { return place >= 0 && place < count ? digits[std::size_t(place)] : '0'; }
};

/// Takes apart what `std::to_chars` wrote in its scientific form, such as "-1.25e-07".
Decimal takenApart(const char* at, const char* end) {
    Decimal decimal;
    if (*at == '-') {
        decimal.negative = true;
        ++at;
    }
    for (; *at != 'e'; ++at) {
        if (*at != '.')
            decimal.digits[std::size_t(decimal.count++)] = *at;
    }
    ++at;
    if (*at == '+')
        ++at;
    std::from_chars(at, end, decimal.exponent);
    return decimal;
}

template <class Float>
Decimal shortestDigits(Float value) {
    std::array<char, 32> written;
    const auto end =
        std::to_chars(written.data(), written.data() + written.size(), value, std::chars_format::scientific)
            .ptr;
    return takenApart(written.data(), end);
}

constexpr int significantDigits = 15;

Decimal fifteenDigits(double value) {
    std::array<char, 32> written;
    const auto end = std::to_chars(written.data(), written.data() + written.size(), value,
                                   std::chars_format::scientific, significantDigits - 1)
                         .ptr;
    return takenApart(written.data(), end);
}

/// Rounds half away from zero to the first `kept` digits.
void round(Decimal& decimal, int kept) {
    if (kept >= decimal.count)
        return;
    const bool up = decimal.digit(kept) >= '5';
    decimal.count = std::max(kept, 0);
    if (!up)
        return;
    int place = decimal.count - 1;
    while (place >= 0 && decimal.digit(place) == '9')
        --place;
    if (place < 0) {
        decimal.digits[0] = '1';
        decimal.count = 1;
        ++decimal.exponent;
    } else {
        ++decimal.digits[std::size_t(place)];
        decimal.count = place + 1;
    }
}

bool isZero(const Decimal& decimal) {
    return std::all_of(decimal.digits.cbegin(), decimal.digits.cbegin() + decimal.count,
                       [](char digit) { return digit == '0'; });
}

/// Writes without an exponent, `decimals` digits behind the point.
QString written(const Decimal& decimal, int decimals) {
    const bool negative = decimal.negative && !isZero(decimal);
    const int whole = std::max(decimal.exponent, 0) + 1;
    QString result(negative + whole + (decimals > 0 ? decimals + 1 : 0), Qt::Uninitialized);
    auto* out = reinterpret_cast<char16_t*>(result.data());
    if (negative)
        *out++ = u'-';
    int place = std::min(decimal.exponent, 0);
    for (int i = 0; i < whole; ++i)
        *out++ = static_cast<char16_t>(decimal.digit(place++));
    if (decimals > 0)
        *out++ = u'.';
    for (int i = 0; i < decimals; ++i)
        *out++ = static_cast<char16_t>(decimal.digit(place++));
    return result;
}

QString withExponent(const Decimal& decimal) {
    std::array<char, 32> text;
    auto* out = text.data();
    if (decimal.negative)
        *out++ = '-';
    *out++ = decimal.digit(0);
    if (decimal.count > 1)
        *out++ = '.';
    for (int place = 1; place < decimal.count; ++place)
        *out++ = decimal.digit(place);
    *out++ = 'E';
    *out++ = decimal.exponent < 0 ? '-' : '+';
    const int size = std::abs(decimal.exponent);
    if (size < 10)
        *out++ = '0';
    out = std::to_chars(out, text.data() + text.size(), size).ptr;
    return QString::fromLatin1(text.data(), out - text.data());
}

QString notFinite(double value) {
    return std::isnan(value) ? QStringLiteral("nan")
           : value < 0       ? QStringLiteral("-inf")
                             : QStringLiteral("inf");
}

template <class Float>
QString plainTextOf(Float value) {
    if (!std::isfinite(value))
        return notFinite(static_cast<double>(value));
    const auto decimal = shortestDigits(value);
    const auto size = std::abs(static_cast<double>(value));
    if (size != 0 && (size < 1E-15 || size >= 1E15))
        return withExponent(decimal);
    return written(decimal, isZero(decimal) ? 0 : std::max(decimal.count - 1 - decimal.exponent, 0));
}

template <class Whole>
Whole roundedTo(double value) {
    const auto rounded = roundedHalfEven(value);
    if (!(rounded >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
          rounded <= static_cast<double>(std::numeric_limits<Whole>::max())))
        throw makeError(ErrorNumber::overflow);
    return static_cast<Whole>(rounded);
}

} // namespace

double numericValue(QStringView text) {
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

QString fixedDecimals(double value, int decimals) {
    if (!std::isfinite(value))
        return notFinite(value);
    auto decimal = fifteenDigits(value);
    round(decimal, decimal.exponent + 1 + decimals);
    return written(decimal, decimals);
}

qint16 roundedToShort(double value) {
    return roundedTo<qint16>(value);
}

qint32 roundedToLong(double value) {
    return roundedTo<qint32>(value);
}

double roundedHalfEven(double value) {
    return std::nearbyint(value);
}

float toReal(double value) {
    const auto real = static_cast<float>(value);
    if (std::isinf(real) && std::isfinite(value))
        throw makeError(ErrorNumber::overflow);
    return real;
}

double viaText(float value) {
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
