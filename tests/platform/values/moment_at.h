#pragma once

#include "platform/values/moments.h"

#include <ostream>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QDate& date, std::ostream* out) {
    *out << date.toString(Qt::ISODate).toStdString();
}
QT_END_NAMESPACE

namespace kelvane {

inline void PrintTo(const Moment& moment, std::ostream* out) {
    *out << moment.date.toString(Qt::ISODate).toStdString() << ' '
         << moment.time.toString(QStringLiteral("HH:mm:ss.zzz")).toStdString();
}

namespace testing {

inline Moment at(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return {QDate(year, month, day), QTime(hour, minute, second)};
}

} // namespace testing
} // namespace kelvane
