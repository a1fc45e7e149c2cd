#include "plots/plot_ticks.h"

#include "platform/values/moments.h"
#include "platform/values/numbers.h"

#include <QDate>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr std::array<double, 3> numberSteps = {1, 2, 5};

/// A step of 1, 2 or 5 times ten to the power of `exponent`.
struct NumberStep {
    double digit = 1;
    int exponent = 0;

    /// `count` steps, without the errors of adding them up.
    double times(double count) const {
        const auto power = std::pow(10.0, std::abs(exponent));
        return exponent < 0 ? count * digit / power : count * digit * power;
    }
    NumberStep next() const {
        if (digit < numberSteps.back())
            return {digit < numberSteps[1] ? numberSteps[1] : numberSteps[2], exponent};
        return {numberSteps.front(), exponent + 1};
    }
};

/// The ticks that lie in a range, by their counts of steps.
struct TickCounts {
    double first = 0;
    double last = 0;

    double count() const { return last - first + 1; }
};

TickCounts countsIn(const PlotRange& range, const NumberStep& step) {
    const auto size = step.times(1);
    return {std::ceil(range.least / size - 1e-9), std::floor(range.most / size + 1e-9)};
}

/// How the numbers of an axis are written: all with the same decimals, as a plain number or with an exponent.
struct NumberForm {
    int decimals = 0;
    bool hasExponent = false;

    QString label(double value) const {
        if (!hasExponent)
            return fixedDecimals(value, decimals);
        return value == 0 ? u"0"_s : QString::number(value, 'E', decimals);
    }
};

/// A plain number, unless it would be long and an exponent makes it shorter.
NumberForm formOf(double largest, const NumberStep& step) {
    constexpr int shortDigits = 8;
    constexpr int exponentLength = 4;
    const auto exponent = static_cast<int>(std::floor(std::log10(largest)));
    const auto decimals = std::max(0, -step.exponent);
    const auto plain = std::max(exponent, 0) + 1 + decimals;
    const auto scientific = std::max(exponent - step.exponent, 0);
    if (plain > shortDigits && plain > scientific + 1 + exponentLength)
        return {scientific, true};
    return {decimals, false};
}

enum class DayUnit { day, month, year };

struct DayStep {
    DayUnit unit = DayUnit::day;
    int count = 1;
};

constexpr DayStep daySteps[] = {
    {DayUnit::day, 1},     {DayUnit::day, 2},     {DayUnit::day, 7},     {DayUnit::day, 14},
    {DayUnit::month, 1},   {DayUnit::month, 3},   {DayUnit::month, 6},   {DayUnit::year, 1},
    {DayUnit::year, 2},    {DayUnit::year, 5},    {DayUnit::year, 10},   {DayUnit::year, 20},
    {DayUnit::year, 50},   {DayUnit::year, 100},  {DayUnit::year, 200},  {DayUnit::year, 500},
    {DayUnit::year, 1000}, {DayUnit::year, 2000}, {DayUnit::year, 5000},
};

QDate dateOf(double day) {
    return QDate::fromJulianDay(static_cast<qint64>(std::floor(day)));
}

constexpr int monthsPerYear = 12;

/// Days are counted in steps of days from a Monday on, and months from January of the year 0.
QDate dateOfStep(const DayStep& step, qint64 count) {
    if (step.unit == DayUnit::day)
        return QDate::fromJulianDay(count * step.count);
    const auto months = count * step.count * (step.unit == DayUnit::year ? monthsPerYear : 1);
    return {static_cast<int>(months / monthsPerYear), static_cast<int>(months % monthsPerYear) + 1, 1};
}

qint64 stepBefore(const DayStep& step, const QDate& date) {
    if (step.unit == DayUnit::day)
        return date.toJulianDay() / step.count;
    const auto months =
        step.unit == DayUnit::year ? date.year() : date.year() * monthsPerYear + date.month() - 1;
    return months / step.count;
}

QStringView formatOf(DayUnit unit) {
    switch (unit) {
    case DayUnit::day:
        return u"YYYY-MM-DD";
    case DayUnit::month:
        return u"YYYY-MM";
    case DayUnit::year:
        break;
    }
    return u"YYYY";
}

/// The ticks of one step; those after the one that is too many are left out.
QList<PlotTick> ticksOf(const DayStep& step, const PlotRange& range, int most) {
    QList<PlotTick> ticks;
    const auto first = stepBefore(step, dateOf(range.least));
    for (auto count = first; ticks.size() <= most; ++count) {
        const auto date = dateOfStep(step, count);
        const auto day = static_cast<double>(date.toJulianDay());
        if (day > range.most)
            break;
        if (date.isValid() && day >= range.least) // there is no year 0
            ticks << PlotTick{day, formatMoment({date, {}}, formatOf(step.unit))};
    }
    return ticks;
}

} // namespace

QList<PlotTick> numberTicks(const PlotRange& range, int most) {
    NumberStep step{1, static_cast<int>(std::floor(std::log10(range.size() / most))) - 1};
    while (countsIn(range, step).count() > most)
        step = step.next();
    const auto counts = countsIn(range, step);
    const auto largest = std::max(std::abs(range.least), std::abs(range.most));
    const auto form = formOf(largest, step);
    QList<PlotTick> ticks;
    for (int index = 0; index < static_cast<int>(counts.count()); ++index) {
        const auto value = step.times(counts.first + index);
        ticks << PlotTick{value, form.label(value)};
    }
    return ticks;
}

QList<PlotTick> dayTicks(const PlotRange& range, int most) {
    const auto all = plottedDays();
    const PlotRange shown{std::max(range.least, all.least), std::min(range.most, all.most)};
    if (!(shown.least < shown.most))
        return {};
    for (const auto& step : daySteps) {
        auto ticks = ticksOf(step, shown, most);
        if (ticks.size() <= most)
            return ticks;
    }
    return {};
}

QString plotNumber(double value) {
    constexpr int digits = 10;
    return plainText(QString::number(value, 'g', digits).toDouble());
}

QString plotDay(double day) {
    return formatMoment({dateOf(day), {}}, u"YYYY-MM-DD");
}

PlotRange plottedDays() {
    static const PlotRange days{static_cast<double>(QDate(100, 1, 1).toJulianDay()),
                                static_cast<double>(QDate(9999, 12, 31).toJulianDay())};
    return days;
}

} // namespace kelvane
