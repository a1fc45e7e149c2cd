#include "endurance/marks.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::endure {

std::optional<Round> roundOf(const QString& date, const QString& time) {
    const auto day = QDate::fromString(date.left(10), Qt::ISODate);
    const auto moment = QTime::fromString(time.left(8), Qt::ISODate);
    const Round first{0, 0};
    const auto station = day.isValid() ? first.date().daysTo(day) : -1;
    const auto seconds = moment.isValid() ? moment.msecsSinceStartOfDay() / 1000 : -1;
    if (station < 0 || station >= maxStations || seconds <= 0 || seconds % 7 != 0)
        return {};
    return Round{static_cast<int>(station), seconds / 7};
}

QString calibratorAsset(int station) {
    return u"F702-E%1"_s.arg(station);
}

QString calibratorSerial(int station) {
    return u"68400%1"_s.arg(station, 2, 10, QLatin1Char('0'));
}

QString calibratorKey(int station) {
    return u"99%1"_s.arg(station, 2, 10, QLatin1Char('0'));
}

QStringList calibratorInserts() {
    QStringList inserts;
    for (int station = 0; station < maxStations; ++station)
        inserts << u"insert into mt.inventory (mtag,i4201,i4202,i4203,i4204,i4206,i4209,i4228,i4229,i4240) "
                   "values ('%1','%2','FLUKE','702','DOCUMENTING CALIBRATOR','%3','C','YYYY',1,'LAB')"_s.arg(
                       calibratorKey(station), calibratorAsset(station), calibratorSerial(station));
    return inserts;
}

const QStringList& instruments() {
    static const QStringList assets{u"PT-101"_s,  u"PT-102"_s,  u"TIT-202"_s, u"PT-105"_s,  u"PT-107"_s,
                                    u"TIT-201"_s, u"TIT-204"_s, u"TIT-205"_s, u"TIT-206"_s, u"VT-601"_s};
    return assets;
}

const QStringList& editedInstruments() {
    static const QStringList assets{u"TW-101"_s, u"TW-102"_s};
    return assets;
}

int wholeOf(const QString& value) {
    return static_cast<int>(std::floor(value.toDouble()));
}

QString editedName(int which) {
    return u"ENDURE %1"_s.arg(which);
}

} // namespace kelvane::endure
