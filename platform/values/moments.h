#pragma once

#include <QDate>
#include <QString>
#include <QTime>

#include <optional>

namespace kelvane {

/// A date and time of the wall clock, in whole seconds, years 100 to 9999, without a time zone. An empty
/// moment has neither date nor time; a time alone has no date.
struct Moment {
    QDate date = {};
    QTime time = {};

    bool isEmpty() const { return !date.isValid() && !time.isValid(); }
    friend bool operator==(const Moment&, const Moment&) = default;
};

/// Writes `moment` by a format of "YYYY", "MM", "DD", "HH", "NN", "SS" and "dddd" (full English day name);
/// other characters stand for themselves. An empty format or a moment that lacks its date gives an empty
/// text; a missing time counts as midnight.
QString formatMoment(const Moment& moment, QStringView format);

/// The date test, and reading a text as a date, a time, or a date, a blank and a time. `sessionDateFormat`
/// settles the order of day and month. Nothing when the text is none of them: a number by itself, an empty
/// text, a date that does not exist. A date alone is its midnight (time 00:00:00), a time alone has no date.
std::optional<Moment> momentOf(QStringView text, QStringView sessionDateFormat);

/// The same, for a text that has to be one: error 13 otherwise.
Moment requireMoment(QStringView text, QStringView sessionDateFormat);

/// `moment`, when it has a date; error 13 for a time alone and for an empty moment.
Moment requireDatePart(const Moment& moment);

/// The full year of a two-digit one: 2000 to 2029, 1930 to 1999.
int fullYear(int twoDigits);

/// The short date form of the workstation: `sessionDateFormat`, or "MM/DD/YYYY" when that is empty, so that
/// `momentOf` reads it back as the same date.
QString shortDate(const QDate& date, QStringView sessionDateFormat);

/// `moment` plus `count` (cut to a whole number) units: "yyyy", "q", "m", "y"/"d"/"w" days, "ww", "h", "n",
/// "s", in any case. Years, quarters and months keep the day of the month or take the last day of a shorter
/// one. Any other unit and a moment without a date are error 5; a result beyond the calendar and a count that
/// no date can take are error 6.
Moment addInterval(const QString& unit, double count, const Moment& moment);

/// Whole minutes from `from` to `to`, seconds left out on both sides (the change of the minute counts).
qint64 minutesBetween(const Moment& from, const Moment& to);

} // namespace kelvane
