#include "simulators/common/field_work.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

float requireFloat(double value, const QString& tag) {
    if (!(std::abs(value) <= static_cast<double>(std::numeric_limits<float>::max())))
        throw Failure(u"%1: %2 is more than the calibrator can keep"_s.arg(tag).arg(value));
    return static_cast<float>(value);
}

double onScale(const Scale& scale, double fraction) {
    const double low = static_cast<double>(scale.low);
    return low + fraction * (static_cast<double>(scale.high) - low);
}

void checkLength(const QString& text, qsizetype longest, const QString& what) {
    if (text.size() > longest)
        throw Failure(u"The calibrator takes at most %1 characters of a %2: \"%3\" is longer."_s.arg(
            QString::number(longest), what, text));
}

ClockTime clockTimeOf(const QDateTime& moment) {
    const QDate date = moment.date();
    const QTime time = moment.time();
    return {static_cast<qint16>(date.year()),   static_cast<qint16>(date.month()),
            static_cast<qint16>(date.day()),    static_cast<qint16>(time.hour()),
            static_cast<qint16>(time.minute()), static_cast<qint16>(time.second())};
}

QString takenLine(const QString& tag, const QString& run, std::size_t points) {
    return u"%1: %2, %3 points taken"_s.arg(tag, run).arg(points);
}

} // namespace kelvane::simulators
