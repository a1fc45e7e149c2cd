#pragma once

#include "demo/demo_workstation.h"

#include <QDate>

namespace kelvane::demo {

/// Process instruments with a Fluke 743, from the list to the records, in three downloads: what the
/// calibrator measures, what is read manually, and what is applied manually. `memory` is the calibrator's,
/// `day` that of the work in the plant. Throws `Difference` on the first deviation.
void runFluke74xDay(DemoWorkstation& station, const QString& memory, const QDate& day);

} // namespace kelvane::demo
