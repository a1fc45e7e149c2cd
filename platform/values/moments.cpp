#include "platform/values/moments.h"

#include "platform/error.h"

#include <algorithm>
#include <array>
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

constexpr QStringView monthNames[] = {u"January",   u"February", u"March",    u"April",
                                      u"May",       u"June",     u"July",     u"August",
                                      u"September", u"October",  u"November", u"December"};

/// Takes pieces off the front of a text; what does not fit stays.
class Pieces {
  public:
    explicit Pieces(QStringView text) : rest(text) {}

    /// The run of digits at the front.
    QStringView digits() {
        return run([](QChar c) { return c >= u'0' && c <= u'9'; });
    }
    /// The run of Latin letters at the front.
    QStringView letters() {
        return run([](QChar c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'); });
    }
    bool take(QStringView expected) {
        if (!rest.startsWith(expected))
            return false;
        rest = rest.mid(expected.size());
        return true;
    }
    QChar takeOneOf(QStringView characters) {
        if (rest.isEmpty() || !characters.contains(rest.front()))
            return {};
        const auto taken = rest.front();
        rest = rest.mid(1);
        return taken;
    }

    QStringView rest;

  private:
    template <class Test>
    QStringView run(Test test) {
        qsizetype size = 0;
        while (size < rest.size() && test(rest[size]))
            ++size;
        const auto taken = rest.left(size);
        rest = rest.mid(size);
        return taken;
    }
};

bool isTwoDigits(QStringView digits) {
    return digits.size() == 1 || digits.size() == 2;
}

/// The year that two or four digits mean; 0, which is no year of the calendar, for others.
int yearOf(QStringView digits) {
    if (digits.size() != 2 && digits.size() != 4)
        return 0;
    const int year = digits.toInt();
    return digits.size() == 4 ? year : fullYear(year);
}

QDate dateOf(QStringView year, int month, QStringView day) {
    const int ofCalendar = yearOf(year);
    return ofCalendar >= 100 && isTwoDigits(day) ? QDate(ofCalendar, month, day.toInt()) : QDate();
}

QDate dateOf(QStringView year, QStringView month, QStringView day) {
    return isTwoDigits(month) ? dateOf(year, month.toInt(), day) : QDate();
}

/// "2026-11-21", "11/21/2026", "21.11.26"
QDate numericDate(Pieces& pieces, QStringView sessionDateFormat) {
    const auto first = pieces.digits();
    const auto between = pieces.takeOneOf(u"-/.");
    const auto second = pieces.digits();
    if (between.isNull() || pieces.takeOneOf(QStringView(&between, 1)).isNull())
        return {};
    const auto third = pieces.digits();
    if (first.size() == 4)
        return dateOf(first, second, third);
    const auto monthFirst = dateOf(third, first, second);
    const auto dayFirst = dateOf(third, second, first);
    const bool preferDay = sessionDateFormat.startsWith(u'D');
    const auto& preferred = preferDay ? dayFirst : monthFirst;
    return preferred.isValid() ? preferred : preferDay ? monthFirst : dayFirst;
}

/// The number of a month by its name or its first three letters, in any case; 0 for no month.
int monthOf(QStringView name) {
    for (int month = 1; month <= 12; ++month) {
        const auto& full = monthNames[month - 1];
        if (name.compare(full, Qt::CaseInsensitive) == 0 ||
            name.compare(full.left(3), Qt::CaseInsensitive) == 0)
            return month;
    }
    return 0;
}

/// "21 Nov 2026", "21-Nov-2026", "Nov 21, 2026", "November 21 2026"
QDate dateWithMonthName(Pieces& pieces) {
    const auto leading = pieces.digits();
    if (!leading.isEmpty()) {
        const auto between = pieces.takeOneOf(u" -");
        const int month = monthOf(pieces.letters());
        if (between.isNull() || month == 0 || pieces.takeOneOf(QStringView(&between, 1)).isNull())
            return {};
        return dateOf(pieces.digits(), month, leading);
    }
    const int month = monthOf(pieces.letters());
    if (month == 0 || !pieces.take(u" "))
        return {};
    const auto day = pieces.digits();
    pieces.take(u",");
    if (!pieces.take(u" "))
        return {};
    return dateOf(pieces.digits(), month, day);
}

/// "9:05", "21:05:30", "9:05 PM"
QTime timeOf(Pieces& pieces) {
    const auto hours = pieces.digits();
    if (!isTwoDigits(hours) || !pieces.take(u":"))
        return {};
    const auto minutes = pieces.digits();
    const bool hasSeconds = pieces.take(u":");
    const auto seconds = hasSeconds ? pieces.digits() : QStringView(u"00");
    if (minutes.size() != 2 || seconds.size() != 2)
        return {};
    int hour = hours.toInt();
    if (!pieces.rest.isEmpty()) {
        pieces.take(u" ");
        const auto half = pieces.letters();
        const bool isMorning = half.compare(u"AM", Qt::CaseInsensitive) == 0;
        const bool isEvening = half.compare(u"PM", Qt::CaseInsensitive) == 0;
        if (!(isMorning || isEvening) || hour < 1 || hour > 12)
            return {};
        hour = hour % 12 + (isEvening ? 12 : 0);
    }
    return {hour, minutes.toInt(), seconds.toInt()};
}

} // namespace

int fullYear(int twoDigits) {
    return twoDigits + (twoDigits < 30 ? 2000 : 1900);
}

std::optional<Moment> momentOf(QStringView text, QStringView sessionDateFormat) {
    while (text.startsWith(u' '))
        text = text.mid(1);
    while (text.endsWith(u' '))
        text.chop(1);

    Pieces pieces(text);
    if (const auto time = timeOf(pieces); time.isValid() && pieces.rest.isEmpty())
        return Moment{{}, time};
    pieces.rest = text;
    auto date = numericDate(pieces, sessionDateFormat);
    if (!date.isValid()) {
        pieces.rest = text;
        date = dateWithMonthName(pieces);
    }
    if (!date.isValid())
        return {};
    if (pieces.rest.isEmpty())
        return Moment{date, QTime(0, 0)};
    if (!pieces.take(u" "))
        return {};
    const auto time = timeOf(pieces);
    if (!pieces.rest.isEmpty() || !time.isValid())
        return {};
    return Moment{date, time};
}

Moment requireMoment(QStringView text, QStringView sessionDateFormat) {
    const auto moment = momentOf(text, sessionDateFormat);
    if (!moment)
        throw makeError(ErrorNumber::typeMismatch);
    return *moment;
}

Moment requireDatePart(const Moment& moment) {
    if (!moment.date.isValid())
        throw makeError(ErrorNumber::typeMismatch);
    return moment;
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
