#pragma once

#include "platform/database/connection.h"

#include <QStringList>

namespace kelvane::testing {

/// Connections that let `queryRows` and `executeAnything` pass by their adapter.
ConnectionFactory openConnections();

/// Carries out a statement of a test, permitted to routines or not.
void executeAnything(Connection& connection, const QString& statement);
/// All rows of a query, permitted to routines or not, the first columns of each joined with "|"; a null is
/// "(null)".
QStringList queryRows(Connection& connection, const QString& query, int columns = 1);

} // namespace kelvane::testing
