#pragma once

#include "workflow/calibrators.h"

#include <QStringList>

namespace kelvane {

/// What an upload has read and nothing has been made of yet, for the list of results without a record.
struct UnfinishedResult {
    /// The entry's name in the journal.
    QString id;
    QString asset;
    /// Calibration date and time as "YYYY-MM-DD HH:NN:SS"; empty where the calibrator gave none.
    QString date;
    QString calibrator;
    /// Why there is no record, in words for the operator.
    QString why;
    /// A line for each test point: the judged line, or the raw values where there is none.
    QStringList readings;
};

/// How an attempt at a record ended.
struct MakeRecordOutcome {
    enum class End {
        /// The record stands whole in the database, and the entry has ended.
        made,
        /// The entry is still unfinished.
        unfinished,
    };
    End end = End::unfinished;
    /// For the operator: what has been made, or why there is no whole record. Never empty.
    QString message;
};

/// The results of the session's data source that have no record yet, oldest first. Asks nothing of the
/// database. An unreadable journal is reported once, and then gives an empty list.
QList<UnfinishedResult> unfinishedResults(Session& session);

/// Makes the record of one of them: completes what had been begun of it, or else judges the raw readings
/// again with the instrument's present parameters and follows the steps of a new record, with its questions.
/// It asks for a date where the entry has none. Nothing is deleted and nothing is written twice. Its errors
/// are reported as everywhere; the outcome's message then says that the result is kept.
MakeRecordOutcome makeRecordOf(Session& session, const QString& id);

/// Ends an entry by the operator's wish; the readings stay in the journal file. False when that could not be
/// written (reported).
bool discardResult(Session& session, const QString& id);

} // namespace kelvane
