#pragma once

#include "data/history/stored_values.h"
#include "data/session.h"

#include <QList>
#include <QStringList>

namespace kelvane {

/// What a standard's own records say of it at the moment of a calibration.
enum class StandardState {
    /// Its due moment had not come yet; a due date without a time means noon.
    inCalibration,
    overdue,
    /// It had not passed its own calibration.
    notPassed,
    /// The record that was current then has no readable due date.
    withoutDueDate,
    /// It had no record yet, or the calibration itself has no readable date.
    withoutRecord,
};

/// A standard that a calibration was carried out with.
struct UsedStandard {
    QString mtag = {};
    /// As it is stored, with blanks at its end where the column has a fixed width. Empty, as all that follows
    /// from the inventory, when that does not hold the standard any more.
    QString asset = {};
    QString description = {};
    QString serial = {};
    StandardState state = StandardState::withoutRecord;
    /// Of the standard's record that was current then: its owner and number, such as "STD-1401", and its
    /// laboratory.
    QString record = {};
    QString laboratory = {};
    StoredMoment calibrated = {};
    StoredMoment due = {};
};

/// Which run of an event a record holds, by the state that is written into it.
enum class CalibrationRun { asFound, asLeft, foundLeft, other };

/// The run of a stored state, in any case of its letters.
CalibrationRun calibrationRunOf(const QString& state);

/// A calibration record. What it does not say is empty; numbers are texts as they are stored.
struct CalibrationRecord {
    QString ctag = {};
    StoredMoment date = {};
    StoredMoment time = {};
    StoredMoment due = {};
    StoredMoment dueTime = {};
    /// "AS-FOUND", "FOUND-LEFT" or "AS-LEFT"; other programs may write another text.
    QString state = {};
    CalibrationRun run = CalibrationRun::other;
    /// "Y" or "N".
    QString passed = {};
    QString technician = {};
    QString laboratory = {};
    QString procedure = {};
    QString strategy = {};
    QString place = {};
    QString workOrder = {};
    QString externalTemperature = {};
    QString ambientTemperature = {};
    QString humidity = {};
    QString remarks = {};
    QString furtherRemarks = {};
    QString marginalPoints = {};
    QString failedPoints = {};
    /// What wrote the record: "KVN" for this system.
    QString source = {};
    /// In the order of their asset numbers.
    QList<UsedStandard> standards = {};
    /// The result lines as they are stored, in the order of their numbers.
    QStringList lines = {};
};

/// The records of an instrument, by its asset number as it is stored, the newest first; those without a date
/// last, and of one moment, or of a day where one has no time, the one that was made last first. None for an
/// instrument that is not in the inventory; nothing after an error, which is reported as
/// "History,calibrations".
///
/// Standards of owner MT are looked up there. Other owners keep a row for each standard that stands in STD:
/// its records are those of STD, and those of the owner itself where STD does not know it. A calibration
/// without a time counts as one of noon.
std::optional<QList<CalibrationRecord>> calibrationsOf(Session& session, const QString& asset);

} // namespace kelvane
