#pragma once

#include "reports/report_band.h"

#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>

#include <optional>

namespace kelvane {

/// The least height between the margins of a page. Millimetres.
constexpr double minPageHeight = 40;

/// A table of a report: a list of the group, row by row.
struct ReportTable {
    /// The name of the list.
    QString rows;
    /// Rows without values, after those of the list, to be filled in by hand.
    int emptyRows = 0;
    /// Stands above the first row, and again on each page on which the table goes on.
    std::optional<ReportBand> header;
    ReportBand row;
};

/// How a report looks, as its layout file says. All lengths are millimetres.
struct ReportLayout {
    /// None: the paper that the machine's locale asks for.
    std::optional<QPageSize::PageSizeId> paper;
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    QMarginsF margins;
    /// The width of all bands; they stand in the middle of the paper.
    double width = 0;

    /// At the top of each page.
    std::optional<ReportBand> pageHeader;
    /// Once, where the group begins.
    QList<ReportBand> groupHeader;
    QList<ReportTable> tables;
    /// Once, after the tables.
    QList<ReportBand> summary;
    /// Once, at the end of the group.
    std::optional<ReportBand> signature;
    /// At the foot of each page.
    std::optional<ReportBand> pageFooter;
};

/// Reads a layout file: JSON, in which comments may stand. `docs/report-layouts.md` has all of its keys.
/// Throws `ReportError` with the file's name and the line for whatever is wrong in it, so that a layout that
/// was read can be painted.
ReportLayout readLayout(const QString& path);

} // namespace kelvane
