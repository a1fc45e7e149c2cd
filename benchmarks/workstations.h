#pragma once

#include "benchmarks/bench_database.h"

namespace kelvane::bench {

/// Prints the statements a second that 1, 2, 4 and 8 workstations get from one database, each a process of
/// its own that reads instruments and now and then writes a row, against as many processes with plain ODBC.
void compareWorkstations(const BenchDatabase& database);

/// What such a process does: `way` is "ours" or "plain". Gives its exit code.
int runWorkstation(const QString& way, const QString& connectionString);

} // namespace kelvane::bench
