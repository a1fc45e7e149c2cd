#pragma once

#include "demo/demo_workstation.h"

namespace kelvane::demo {

/// Work on paper: the sheets of five instruments are printed into a PDF in `folder`, and what came back of
/// one of them from the plant, on `day`, is entered and checked. Throws `Difference` on the first deviation.
void runPaperDay(DemoWorkstation& station, const QString& folder, const QDate& day);

} // namespace kelvane::demo
