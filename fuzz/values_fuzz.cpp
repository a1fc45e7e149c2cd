// Numbers, dates and texts: what is written reads back, order is kept, and no text is too odd to be read.

#include "fuzz/input.h"
#include "platform/error.h"
#include "platform/values/moments.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using namespace kelvane;
using namespace kelvane::fuzz;

namespace {

constexpr QStringView dateFormats[] = {u"MM/DD/YYYY", u"DD/MM/YYYY", u"YYYY/MM/DD", u""};

void checkNumberText(const QString& text) {
    const auto value = numericValue(text);
    require(std::isfinite(value), "the value of a text is a number");
    if (const auto number = numberOf(text))
        require(*number == numericValue(QString(text).remove(u',')), "both readings of a number agree");
}

/// `low` is not above `high`.
void checkRounding(double low, double high, int decimals) {
    const auto lower = fixedDecimals(low, decimals);
    const auto higher = fixedDecimals(high, decimals);
    require(numericValue(lower) <= numericValue(higher), "rounding keeps the order");
    const auto point = lower.indexOf(u'.');
    require(decimals == 0 ? point < 0 : lower.size() - point - 1 == decimals, "so many decimals are written");
    require(!lower.startsWith(u"-0") || numericValue(lower) != 0, "there is no minus zero");
}

void checkNumber(double value) {
    if (!std::isfinite(value))
        return;
    require(numberOf(plainText(value)) == value, "a number reads back as it was written");
    require(numericValue(plainText(value)) == value, "by the other reading, too");
    try {
        const auto whole = roundToLong(value);
        require(std::abs(whole - value) <= 0.5, "the nearest whole number is near");
    } catch (const Error&) {
        require(value > 2147483647.0 || value < -2147483648.0, "only what is too large overflows");
    }
    try {
        const auto real = toReal(value);
        require(static_cast<float>(widenThroughText(real)) == real, "a widened number narrows to the same");
        require(static_cast<float>(numericValue(plainText(real))) == real, "a narrow number reads back");
    } catch (const Error&) {
        require(std::abs(value) > static_cast<double>(std::numeric_limits<float>::max()),
                "only what is too large does not fit");
    }
}

void checkMoment(const QString& text) {
    for (const auto format : dateFormats) {
        const auto moment = momentOf(text, format);
        if (!moment)
            continue;
        require(moment->time.isValid(), "a moment has a time");
        if (!moment->date.isValid())
            continue;
        require(momentOf(formatMoment(*moment, u"YYYY-MM-DD HH:NN:SS"), format) == moment,
                "a moment reads back as it was written");
        require(momentOf(shortDate(moment->date, format), format)->date == moment->date,
                "a date reads back in the form of its session");
    }
}

Moment someMoment(Input& input) {
    return {QDate(100, 1, 1).addDays(input.number(0, 3615900)), QTime(0, 0).addSecs(input.number(0, 86399))};
}

/// Nothing when the result lies beyond the calendar.
std::optional<Moment> added(const QString& unit, double count, const Moment& moment) {
    try {
        return addInterval(unit, count, moment);
    } catch (const Error&) {
        return {};
    }
}

bool isBefore(const Moment& left, const Moment& right) {
    return std::pair(left.date, left.time) < std::pair(right.date, right.time);
}

void checkIntervals(Input& input) {
    constexpr QStringView units[] = {u"yyyy", u"q", u"m", u"y", u"d", u"w", u"ww", u"h", u"n", u"s"};
    const auto unit = units[input.byte() % std::size(units)].toString();
    auto earlier = someMoment(input);
    auto later = someMoment(input);
    if (isBefore(later, earlier))
        std::swap(earlier, later);
    const auto count = input.number(-200000, 200000);
    const auto first = added(unit, count, earlier);
    const auto second = added(unit, count, later);
    require(!first || !second || !isBefore(*second, *first), "an interval keeps the order of moments");
    const auto longer = added(unit, count + 1, earlier);
    require(!first || !longer || !isBefore(*longer, *first), "a longer interval ends no earlier");
    if (!first)
        return;
    const bool isFixed = unit != u"yyyy" && unit != u"q" && unit != u"m";
    require(!isFixed || added(unit, -count, *first) == earlier, "a fixed interval leads back");
    require((minutesBetween(earlier, *first) >= 0) == !isBefore(*first, earlier) ||
                minutesBetween(earlier, *first) == 0,
            "the minutes between have their sign");
}

void checkTexts(const QString& text, const QByteArray& bytes) {
    require(toCalibratorBytes(fromCalibratorBytes(bytes)) == bytes, "a calibrator's bytes come back");
    require(characterCount(toUpperCase(text)) == characterCount(text), "capitals keep the positions");
    require(characterCount(toLowerCase(text)) == characterCount(text), "small letters keep the positions");
    require(toUpperCase(toUpperCase(text)) == toUpperCase(text), "capitals have no capitals");
    const auto count = characterCount(text);
    require(unitsOfCharacters(text, count) == text.size(), "all characters are all of the text");
    const auto trimmed = trimBlanks(text);
    require(!trimmed.startsWith(u' ') && !trimmed.endsWith(u' ') && text.contains(trimmed), "blanks are cut");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const auto text = input.text();
    const auto bytes = input.field();
    checkNumberText(text);
    checkMoment(text);
    checkTexts(text, bytes);
    const auto one = input.real();
    const auto other = input.real();
    checkNumber(one);
    checkNumber(numericValue(text));
    if (std::isfinite(one) && std::isfinite(other))
        checkRounding(std::min(one, other), std::max(one, other), input.byte() % 16);
    checkIntervals(input);
    return 0;
}
