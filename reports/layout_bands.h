#pragma once

#include "reports/layout_file.h"
#include "reports/report_layout.h"

namespace kelvane {

/// What the bands of a layout file refer to.
struct BandContext {
    /// The width of the report.
    double width = 0;
    /// The named fonts; that without a name is the font of all texts that name none.
    QHash<QString, QFont> fonts;
};

/// The font that a node describes; what it leaves out is that of `base`.
QFont fontOf(const LayoutNode& node, const QFont& base);
ReportBand bandOf(const LayoutNode& node, const BandContext& context);
/// One band, or a list of them.
QList<ReportBand> bandsOf(const LayoutNode& node, const BandContext& context);
ReportTable tableOf(const LayoutNode& node, const BandContext& context);

} // namespace kelvane
