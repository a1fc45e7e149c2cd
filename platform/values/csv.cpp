#include "platform/values/csv.h"

#include "platform/values/numbers.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr QStringView formulaBeginnings = u"=+-@\t\r\n\uFF1D\uFF0B\uFF0D\uFF20";
/// A program that expects the other separator would cut there.
constexpr QStringView quotedCharacters = u",;\t\"\r\n";

} // namespace

QString csvCell(const QString& value, CsvCell kind, const CsvForm& form) {
    if (const auto number = kind == CsvCell::number ? numberOf(value) : std::nullopt)
        return plainText(*number).replace(u'.', form.decimalSign);
    QString cell = value;
    if (!cell.isEmpty() && formulaBeginnings.contains(cell.front()))
        cell.prepend(u'\'');
    const bool isQuoted =
        std::ranges::any_of(cell, [](QChar unit) { return quotedCharacters.contains(unit); });
    return isQuoted ? u'"' + cell.replace(u"\""_s, u"\"\""_s) + u'"' : cell;
}

QString csvLine(const QStringList& cells, const CsvForm& form) {
    return cells.join(form.separator) + u"\r\n"_s;
}

} // namespace kelvane
