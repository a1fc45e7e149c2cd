#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

namespace kelvane::endure {

inline constexpr int maxStations = 8;

/// A round of calibrations of one station. Its moment is that of no other round, and all of its readings
/// stand at one place of the range that tells the round, too: a line that got into another record shows.
struct Round {
    int station = 0;
    int number = 0; ///< from 1

    QDate date() const { return QDate(2019, 3, 1).addDays(station); } // before all of the site's own
    QTime time() const { return QTime(0, 0).addSecs(number % 12000 * 7); }
    /// Of the range of an instrument's output, from 0 to 1.
    double fraction() const { return (station * 1250 + number % 1250) / 10000.0; }
};

/// The round of a record's moment; nothing for a record that was not made in the run.
std::optional<Round> roundOf(const QString& date, const QString& time);

/// The calibrator of a station: its asset number, serial number and key.
QString calibratorAsset(int station);
QString calibratorSerial(int station);
QString calibratorKey(int station);

/// The statements that put the calibrators of all stations into the inventory.
QStringList calibratorInserts();

/// The instruments that are calibrated, by all stations.
const QStringList& instruments();
/// The instruments whose parameters are edited.
const QStringList& editedInstruments();

/// An edit of something that has several parts: each part carries the edit's number, and the number tells how
/// many parts there are.
inline int partCount(int edit) {
    return 2 + edit % 5;
}
/// The moment of a worksheet: that of no other one, and behind those of all rounds. Sites keep no seconds.
inline QDateTime worksheetMoment(int edit) {
    return QDateTime(QDate(2019, 5, 1), QTime(0, 0)).addSecs(qint64{60} * edit);
}
/// The value of a worksheet's field that carries the number of its entry; the site's own values are lower.
inline int worksheetMark(int edit) {
    return 1000 + edit;
}
/// The whole number that a column of numbers holds.
int wholeOf(const QString& value);
/// The names of what is edited: strategies, messages, packages.
QString editedName(int which);
inline constexpr int editedCount = 3;

} // namespace kelvane::endure
