#pragma once

#include "reports/report.h"

namespace kelvane {

/// Writes a report with that title as a PDF that can be kept for years (PDF/A-1b). A file of that name is
/// replaced when all is written, and stays as it is when that fails or when `onGroup` ends it. False when
/// `onGroup` ended it. Throws `ReportError` with the path and the system's reason.
bool writePdf(const Report& report, const QPageLayout& pages, const QString& title, const QString& path,
              const GroupProgress& onGroup = {});

} // namespace kelvane
