#pragma once

#include "platform/database/connection.h"

#include <QDate>
#include <QStringList>

#include <optional>

namespace kelvane::demo {

/// A calibration record as it has to be found in the database.
struct Record {
    QString asset;
    /// Of the calibration, or its beginning: "08:02" for any second of that minute.
    QString time;
    bool passes = true;
    /// Numbers of test points; none where the record does not hold them.
    std::optional<int> failed = 0;
    std::optional<int> marginal = 0;
    QString state = QStringLiteral("FOUND-LEFT");
    QString technician = QStringLiteral("jdoe");
    QString strategy;
    QString comment = {};
    /// Interval to the next calibration: in weeks, or a year.
    int weeks = 0;
    /// By their asset numbers, in the order of these.
    QStringList standards;
    /// The result lines, without the blanks at their ends.
    QStringList lines;
};

/// What the upload of one calibrator has to leave in the database.
struct ExpectedRecords {
    /// All records of the day; of several of one asset the last one is current.
    QList<Record> records;
    QString serial;
    /// The instruments that are still registered with the calibrator of that serial number.
    QStringList registered = {};
};

/// Reads the calibration records of the day back from the database, prints them as a table, and compares them
/// with what has to be there. Throws `Difference` on the first one that differs.
void checkRecords(Connection& connection, const QDate& day, const ExpectedRecords& expected);

} // namespace kelvane::demo
