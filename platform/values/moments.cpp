#include "platform/values/moments.h"

#include "platform/error.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr qint64 firstYear = 100;
constexpr qint64 lastYear = 9999;
constexpr qint64 secondsOfMinute = 60;
constexpr qint64 secondsOfHour = 60 * secondsOfMinute;
constexpr qint64 secondsOfDay = 24 * secondsOfHour;

constexpr QStringView dayNames[] = {u"Monday", u"Tuesday",  u"Wednesday", u"Thursday",
                                    u"Friday", u"Saturday", u"Sunday"};

QString pad(int value, int digits) {
    return QString::number(value).rightJustified(digits, u'0');
}

struct FormatCode {
    QStringView code;
    QString (*written)(const QDate& date, const QTime& time);
};

constexpr FormatCode formatCodes[] = {
    {u"YYYY", [](const QDate& date, const QTime&) { return pad(date.year(), 4); }},
    {u"MM", [](const QDate& date, const QTime&) { return pad(date.month(), 2); }},
    {u"DD", [](const QDate& date, const QTime&) { return pad(date.day(), 2); }},
    {u"HH", [](const QDate&, const QTime& time) { return pad(time.hour(), 2); }},
    {u"NN", [](const QDate&, const QTime& time) { return pad(time.minute(), 2); }},
    {u"SS", [](const QDate&, const QTime& time) { return pad(time.second(), 2); }},
    {u"dddd", [](const QDate& date, const QTime&) { return dayNames[date.dayOfWeek() - 1].toString(); }},
};

QTime orMidnight(const QTime& time) {
    return time.isValid() ? time : QTime(0, 0);
}

} // namespace

QString formatMoment(const Moment& moment, QStringView format) {
    if (!moment.date.isValid())
        return {};
    const auto time = orMidnight(moment.time);
    QString result;
    while (!format.isEmpty()) {
        const auto* found =
            std::find_if(std::begin(formatCodes), std::end(formatCodes),
                         [&](const FormatCode& candidate) { return format.startsWith(candidate.code); });
        if (found == std::end(formatCodes)) {
            result += format.front();
            format = format.mid(1);
        } else {
            result += found->written(moment.date, time);
            format = format.mid(found->code.size());
        }
    }
    return result;
}

QString shortDate(const QDate& date, QStringView sessionDateFormat) {
    return formatMoment({date, {}}, sessionDateFormat.isEmpty() ? u"MM/DD/YYYY"_s : sessionDateFormat);
}

namespace {

/// What one unit of an interval is: a number of months, or of seconds.
struct Interval {
    QLatin1StringView code;
    int months;
    qint64 seconds;
};

constexpr Interval intervals[] = {
    {"yyyy"_L1, 12, 0},
    {"q"_L1, 3, 0},
    {"m"_L1, 1, 0},
    {"y"_L1, 0, secondsOfDay},
    {"d"_L1, 0, secondsOfDay},
    {"w"_L1, 0, secondsOfDay},
    {"ww"_L1, 0, 7 * secondsOfDay},
    {"h"_L1, 0, secondsOfHour},
    {"n"_L1, 0, secondsOfMinute},
    {"s"_L1, 0, 1},
};

qint64 floorTo(qint64 value, qint64 by) {
    return value / by - (value % by < 0 ? 1 : 0);
}

/// Invalid when the result lies beyond the calendar.
QDate addMonths(const QDate& date, qint64 count) {
    const qint64 months = qint64{date.year()} * 12 + date.month() - 1 + count;
    if (months < firstYear * 12 || months >= (lastYear + 1) * 12)
        return {};
    const int year = static_cast<int>(months / 12);
    const int month = static_cast<int>(months % 12) + 1;
    return {year, month, std::min(date.day(), QDate(year, month, 1).daysInMonth())};
}

} // namespace

Moment addInterval(const QString& unit, double count, const Moment& moment) {
    const auto* interval =
        std::find_if(std::begin(intervals), std::end(intervals), [&](const Interval& candidate) {
            return unit.compare(candidate.code, Qt::CaseInsensitive) == 0;
        });
    if (interval == std::end(intervals) || !moment.date.isValid())
        throw makeError(ErrorNumber::invalidArgument);
    const auto whole = std::trunc(count);
    using Count = std::numeric_limits<qint32>;
    if (!(whole >= Count::min() && whole <= Count::max()))
        throw makeError(ErrorNumber::overflow);
    const auto steps = static_cast<qint64>(whole);

    const auto time = orMidnight(moment.time);
    const auto seconds = time.msecsSinceStartOfDay() / 1000 + steps * interval->seconds;
    const auto days = floorTo(seconds, secondsOfDay);
    const auto date = addMonths(moment.date, steps * interval->months).addDays(days);
    if (!date.isValid() || date.year() < firstYear || date.year() > lastYear)
        throw makeError(ErrorNumber::overflow);
    return {date, QTime(0, 0).addSecs(static_cast<int>(seconds - days * secondsOfDay))};
}

qint64 minutesBetween(const Moment& from, const Moment& to) {
    constexpr int msecsOfMinute = 60000;
    return from.date.daysTo(to.date) * 24 * 60 + to.time.msecsSinceStartOfDay() / msecsOfMinute -
           from.time.msecsSinceStartOfDay() / msecsOfMinute;
}

} // namespace kelvane
