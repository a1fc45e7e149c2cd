#pragma once

#include "testkit/records.h"

namespace kelvane::demo {

/// Where a Fluke, which knows one tolerance for the whole range, judges a run otherwise than the workstation.
enum class Disagreement { none, calibratorPassedIt, calibratorFailedIt };

/// An instrument that is carried out once with a Fluke.
struct FieldRun {
    /// In percent of span, a reading each.
    QString deviations;
    /// Serial number of the pressure module, if there is one.
    QString module = {};
    /// Named when the instrument is listed; only one that the calibrator can't read asks for it.
    QString standard = {};
    Disagreement disagreement = Disagreement::none;
    /// The time of day at which the calibrator stored it, where its record has another one.
    QString storedAt = {};
    Record record;
};

/// What is carried out with one calibrator.
struct CalibratorRuns {
    /// Of the calibrator.
    QString asset;
    QString serial;
    /// What it measures by itself, in one download.
    QList<FieldRun> measured;
    /// What is read manually, a download each. They don't go into one with the others: whatever follows an
    /// instrument that is read manually counts as read manually too.
    QList<QList<FieldRun>> manual;
};

/// The line of the technician's plan for a run.
QString planLine(const FieldRun& run, const QDate& day);

/// The box that shows a disagreement to the operator.
QString disagreementTitle(const FieldRun& run);
QString disagreementText(const FieldRun& run);

/// The assets of runs, each once, in their order.
QStringList assetsOf(const QList<FieldRun>& runs);

/// When `runs`, the only ones of the day besides `earlier`, were carried out and uploaded with the calibrator
/// of that serial number.
ExpectedRecords recordsAfterRuns(const QString& serial, const QList<FieldRun>& runs,
                                 const QList<FieldRun>& earlier = {});

} // namespace kelvane::demo
