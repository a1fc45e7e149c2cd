#pragma once

#include "platform/database/dialect.h"

namespace kelvane {

/// A batch in the words of the shared engine (`batchSteps`). Functions and operators of the dialect that the
/// database itself has stay as they are.
QList<BatchStep> sharedBatch(const QString& batch);

/// A query in the words of the shared engine (`engineQuery`). Where the text asks for no order, the rows come
/// in that of the key, or of the values where it asks for each value once: the server would give them as they
/// lie, and what was changed last lies at the end.
QString sharedQuery(const QString& query, Rows rows);

} // namespace kelvane
