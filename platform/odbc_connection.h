#pragma once

#include "platform/connection.h"
#include "platform/engine_adapter.h"

namespace kelvane {

/// The factory of real connections over ODBC; the engine adapter is chosen from what the driver says of
/// itself.
ConnectionFactory odbcConnections();

/// The names of the data sources that the ODBC driver manager knows, in its order; empty when it gives no
/// environment.
QStringList odbcDataSources();

} // namespace kelvane
