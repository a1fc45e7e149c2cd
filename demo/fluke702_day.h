#pragma once

#include "demo/demo_workstation.h"

#include <QDate>

namespace kelvane::demo {

/// Process instruments with a Fluke 702, from the list to the records, in two downloads: what the calibrator
/// measures, and what is read manually. `memory` is the calibrator's, `day` that of the work in the plant.
/// Throws `Difference` on the first deviation.
void runFluke702Day(DemoWorkstation& station, const QString& memory, const QDate& day);

} // namespace kelvane::demo
