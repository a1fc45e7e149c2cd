#pragma once

#include "plots/plot.h"
#include "records/certified_calibration.h"
#include "reports/report_data.h"

namespace kelvane {

/// The errors of a calibration's points in percent of the tolerance, as found and as left; empty when there
/// is no readable line.
Plot certificatePlot(Session& session, const CertifiedCalibration& calibration);

/// A plot as a drawing of a report.
ReportDrawing plotDrawing(Plot plot);

} // namespace kelvane
