#pragma once

#include "platform/database/connection.h"

#include <QStringList>

namespace kelvane {

// The dialect of the statements in the words of the embedded engine. What isn't understood stays as it is, so
// that the engine reports any error in it.

/// Statements of a batch that belong together.
struct BatchStep {
    QStringList statements;
    /// All of them or none: the batch said "commit" behind them.
    bool committed = false;
};

/// A batch in steps: cut at ";", a "commit" closing the step before it, comments taken out. A text without
/// any statement is an error, and so is one that holds a statement which is not permitted
/// (`requirePermitted`).
QList<BatchStep> embeddedBatch(const QString& batch);

/// A query; with `Rows::first` the engine is asked for one row only. Several statements in one text stay
/// unchanged. It throws the same errors.
QString embeddedQuery(const QString& query, Rows rows);

} // namespace kelvane
