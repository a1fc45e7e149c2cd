#pragma once

#include "demo/demo_workstation.h"

#include <QDate>

namespace kelvane::demo {

/// Process instruments with a Fluke 702, from the list to the records, in two downloads: what the calibrator
/// measures, and what is read by eye. `memory` is the calibrator's, `day` that of the work in the plant.
/// Throws `Difference` as soon as something is not as it has to be.
void runFluke702Day(DemoWorkstation& station, const QString& memory, const QDate& day);

} // namespace kelvane::demo
