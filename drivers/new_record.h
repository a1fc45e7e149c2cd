#pragma once

#include "data/records/cal_record.h"
#include "drivers/judgement.h"

#include <optional>
#include <span>

namespace kelvane {

/// A value for a column of the new record; without one the column stays unchanged.
struct FieldValue {
    QStringView column;
    std::optional<QString> value;
};

/// Puts the values into the rows of `CalFieldTable` that the site's dictionary has for their columns.
void fillFields(CalRecord& record, std::span<const FieldValue> values);

/// What every upload says of a calibration, besides its points.
struct CalibrationValues {
    /// "YYYY-MM-DD" and "HH:NN:SS".
    QString date;
    QString time;
    /// Which calibration of the instrument it is, such as "AS-FOUND".
    QString round;
    QString technician;
};

/// Puts these, the verdict and the counts of the points into the fields of the record.
void fillFields(CalRecord& record, const CalParamRecord& instrument, const PointCounts& counts,
                const CalibrationValues& values);

/// The standards in use with an instrument.
struct StandardsInUse {
    /// After an error as far as they were read.
    QStringList assets;
    /// False after an error: a record gets none of them.
    bool areComplete = false;
};

/// Reads the standards in use with the instrument. More than can be listed are reported, and that report does
/// not count as a failed preparation.
StandardsInUse standardsInUse(Session& session, const QString& asset);

/// Puts the standards in use with the instrument into the record, from `row` on, or none of them after an
/// error; gives their number.
int takeStandardsInUse(Session& session, CalRecord& record, const QString& asset, int row);

} // namespace kelvane
