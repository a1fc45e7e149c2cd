#pragma once

#include "reports/report_layout.h"
#include "testkit/fixtures.h"

namespace kelvane::testing {

inline const QString sheetTitle = QStringLiteral("Calibration Worksheet");

/// Puts a layout of one A4 page a sheet into the folder, in which a report looks for it.
inline void writeSmallLayout(const OwnFolder& folder, const QByteArray& more = {}) {
    folder.write(QStringLiteral("kvwrksht.rpt"),
                 R"({
    "paper": "A4",
    "margins": {"left": 12, "top": 11, "right": 12, "bottom": 10},
    "width": 180,
    "font": {"family": "DejaVu Sans", "size": 9},
)" + more + R"(
    "pageHeader": {"height": 10, "items": [
        {"text": "{{title}} {{asset}} {{printedBy}}", "x": 0, "y": 0, "width": 180}]},
    "tables": [{"rows": "points", "row": {"height": 6, "items": [
        {"text": "{{number}} {{input}} {{lower}} {{upper}}", "x": 0, "y": 0, "width": 180}]}}]
})");
}

} // namespace kelvane::testing
