#pragma once

#include "benchmarks/site.h"

namespace kelvane::bench {

/// Adds instruments to a database, from "SPEED-100001" on, with ten records each, one a year. Of a hundredth
/// of the instruments each record has eleven result lines and two standards.
void addInstruments(const BenchDatabase& database, int count);

/// An instrument of these whose records have lines and standards.
QString instrumentWithLines();

} // namespace kelvane::bench
