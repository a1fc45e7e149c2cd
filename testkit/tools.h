#pragma once

#include "testkit/records.h"

namespace kelvane::demo {

/// A torque tool of the demonstration: the standard to name for it, what the technician reads, and what has
/// to be found in the database afterwards.
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

/// When all tools were carried out and uploaded.
ExpectedRecords recordsAfterTools();

} // namespace kelvane::demo
