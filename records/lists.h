#pragma once

#include "data/history/calibrations.h"
#include "data/history/instruments.h"
#include "data/history/standard_use.h"
#include "platform/values/csv.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <span>

namespace kelvane {

/// A column of a list: its title, and what it shows of a row.
template <class Row>
struct ListColumn {
    TextId title;
    CsvCell kind;
    QString (*value)(const Row& row);
};

/// A standard by its asset number, with what it was at the day of a calibration.
QString standardText(const UsedStandard& standard);

std::span<const ListColumn<InstrumentSummary>> instrumentColumns();
std::span<const ListColumn<CalibrationRecord>> calibrationColumns();
std::span<const ListColumn<StandardUse>> standardUseColumns();

/// What the column of that title has of a record; empty for a title that no column has.
QString calibrationText(const CalibrationRecord& record, TextId title);
/// A record in one line: date, time, state and result.
QString recordCaption(const CalibrationRecord& record);

/// The titles of a list as its first line.
template <class Row>
QString csvTitles(std::span<const ListColumn<Row>> columns, const CsvForm& form) {
    QStringList cells;
    for (const auto& column : columns)
        cells << csvCell(text(column.title), CsvCell::text, form);
    return csvLine(cells, form);
}

/// A row of a list as a line.
template <class Row>
QString csvRow(std::span<const ListColumn<Row>> columns, const Row& row, const CsvForm& form) {
    QStringList cells;
    for (const auto& column : columns)
        cells << csvCell(column.value(row), column.kind, form);
    return csvLine(cells, form);
}

/// A whole list, its titles first.
template <class Row>
QString csvOf(std::span<const ListColumn<Row>> columns, const QList<Row>& rows, const CsvForm& form) {
    auto csv = csvTitles(columns, form);
    for (const auto& row : rows)
        csv += csvRow(columns, row, form);
    return csv;
}

} // namespace kelvane
