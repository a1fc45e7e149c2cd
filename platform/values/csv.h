#pragma once

#include <QString>
#include <QStringList>

namespace kelvane {

/// The two signs in which spreadsheets of different countries differ.
struct CsvForm {
    QChar separator = u',';
    QChar decimalSign = u'.';
};

/// What a cell holds. A text that is no number is written as a text in either case.
enum class CsvCell { text, number };

/// A cell of a comma separated list (RFC 4180): a text with a separator of either form, a quote or a line end
/// stands between quotes, its own quotes doubled. A number is plain, however its engine
/// writes it, with the form's decimal sign. A text that a
/// spreadsheet would take for a formula, because it begins with "=", "+", "-" or "@" (as wide characters,
/// too), a tab or a line end, gets an apostrophe in front.
QString csvCell(const QString& value, CsvCell kind, const CsvForm& form);

/// A line of cells with its end (CR LF).
QString csvLine(const QStringList& cells, const CsvForm& form);

} // namespace kelvane
