#pragma once

#include "reports/report_data.h"
#include "reports/report_layout.h"

#include <QPagedPaintDevice>

#include <functional>

namespace kelvane {

/// Told before each group, counted from 0; false ends the painting early.
using GroupProgress = std::function<bool(qsizetype group)>;

/// Data in a layout: the pages of a report. Each group begins on a new page, and its pages are numbered
/// within it. One group is measured, painted and forgotten, so that memory does not grow with the number of
/// groups.
class Report {
  public:
    Report(ReportLayout layout, ReportData data);

    const ReportLayout& layout() const { return layout_; }
    qsizetype groupCount() const { return data_.groupCount(); }

    /// Paints all pages on the paper of `device`, whatever it is: a printer, a PDF, a preview. When the paper
    /// is too narrow for the layout, everything is painted smaller. False when `onGroup` ended it. Throws
    /// `ReportError` when the device can't be painted on.
    bool paint(QPagedPaintDevice& device, const GroupProgress& onGroup = {}) const;

  private:
    ReportLayout layout_;
    ReportData data_;
};

/// Paper, orientation and margins that the layout asks for.
QPageLayout pageLayout(const ReportLayout& layout);

} // namespace kelvane
