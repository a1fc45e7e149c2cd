#pragma once

#include "platform/database/connection.h"
#include "platform/database/sql_text.h"

#include <QStringList>

namespace kelvane {

// The dialect of the statements in the words of an engine of ours. What isn't understood stays as it is, so
// that the engine reports any error in it.

/// Statements of a batch that belong together.
struct BatchStep {
    QStringList statements;
    /// All of them or none: the batch said "commit" behind them.
    bool committed = false;
};

/// What an engine has of its own.
struct EngineDialect {
    /// Throws error 5 for a statement that no routine sends.
    void (*requirePermitted)(TokenSpan statement);
    /// Puts the engine's words in place of the dialect's in one statement.
    void (*rewrite)(TokenSpan statement, TextEdits& edits);
    /// What the engine wants behind a query without an order of its own; null for nothing.
    QString (*orderOf)(TokenSpan query) = nullptr;
};

/// A batch in steps: cut at ";", a "commit" closing the step before it, comments taken out, owners resolved.
/// A text without any statement is an error, and so is one that holds a statement which is not permitted.
QList<BatchStep> batchSteps(const QString& batch, const EngineDialect& dialect);

/// A query in the engine's words; with `Rows::first` the engine is asked for one row only. Several statements
/// in one text stay unchanged. It throws the same errors.
QString engineQuery(const QString& query, Rows rows, const EngineDialect& dialect);

/// Whether the tokens from `at` on are "now(*)": the place behind it, or 0.
std::size_t behindPresentMoment(TokenSpan statement, std::size_t at);

/// From the first token to the last one.
QStringView textFrom(const Token& first, const Token& last);

} // namespace kelvane
