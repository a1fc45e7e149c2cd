#pragma once

#include "platform/connection.h"

#include <QDate>
#include <QStringList>

namespace kelvane::demo {

/// A tool of the demonstration: the standard to name for it, what the technician reads, and what has to be
/// found in the database afterwards.
struct Tool {
    QString asset;
    QString standard;
    /// A line of the technician's plan, behind the asset: nominals; deviations in percent of reading.
    QString plan;
    QString comment;
    bool passes;
    /// Hours and minutes of the last result.
    QString lastResult;
    int failed;
    int marginal;
    /// The result lines, without the blanks at their ends.
    QStringList lines;
};

const QList<Tool>& tools();

/// Reads the calibration records of the day back from the database, prints them as a table, and compares them
/// with what has to be there. Throws `Difference` on the first one that differs.
void checkRecords(Connection& connection, const QDate& day);

} // namespace kelvane::demo
