#pragma once

#include "platform/database/dialect.h"

namespace kelvane {

/// A batch in the words of the embedded engine (`batchSteps`).
QList<BatchStep> embeddedBatch(const QString& batch);

/// A query in the words of the embedded engine (`engineQuery`).
QString embeddedQuery(const QString& query, Rows rows);

} // namespace kelvane
