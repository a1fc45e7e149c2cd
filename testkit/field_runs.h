#pragma once

#include "testkit/records.h"

namespace kelvane::demo {

/// Where a Fluke 702, which knows one tolerance for the whole range, judges a run otherwise than the
/// workstation.
enum class Disagreement { none, calibratorPassedIt, calibratorFailedIt };

/// An instrument that is carried out once with a Fluke 702.
struct FieldRun {
    /// In percent of span, a reading each.
    QString deviations;
    /// Serial number of the pressure module, if there is one.
    QString module = {};
    Disagreement disagreement = Disagreement::none;
    Record record;
};

/// The runs that the calibrator measures, and those that are read manually. The two don't go into one
/// download: whatever follows an instrument that is read manually counts as read manually too.
const QList<FieldRun>& measuredRuns();
const QList<FieldRun>& manualRuns();

/// The line of the technician's plan for a run.
QString planLine(const FieldRun& run, const QDate& day);

/// The box that shows a disagreement to the operator.
QString disagreementTitle(const FieldRun& run);
QString disagreementText(const FieldRun& run);

/// The assets of runs, each once, in their order.
QStringList assetsOf(const QList<FieldRun>& runs);

/// When `runs`, the only ones of the day besides `earlier`, were carried out and uploaded.
ExpectedRecords recordsAfterRuns(const QList<FieldRun>& runs, const QList<FieldRun>& earlier = {});

} // namespace kelvane::demo
