#include "procedures/predefined_points.h"

#include "resources/strings.h"
#include "resources/text_id.h"

namespace kelvane {

namespace {

/// A row by the id of its text, and its points with a blank between. A quarter and three quarters carry no
/// decimals: the points are stored as they stand here.
struct PredefinedRow {
    TextId text;
    QStringView points;
};

constexpr PredefinedRow table[] = {
    {TextId::predefinedNone, u""},
    {TextId::predefinedOnePointFull, u"100.00"},
    {TextId::predefinedOnePointZero, u"0.00"},
    {TextId::predefinedTwoUp, u"0.00 100.00"},
    {TextId::predefinedTwoDown, u"100.00 0.00"},
    {TextId::predefinedThreeUp, u"0.00 50.00 100.00"},
    {TextId::predefinedThreeDown, u"100.00 50.00 0.00"},
    {TextId::predefinedThreeUpDown, u"0.00 50.00 100.00 50.00 0.00"},
    {TextId::predefinedFiveUp, u"0.00 25 50.00 75 100.00"},
    {TextId::predefinedFiveDown, u"100.00 75 50.00 25 0.00"},
    {TextId::predefinedFiveUpDown, u"0.00 25 50.00 75 100.00 75 50.00 25 0.00"},
    {TextId::predefinedElevenUp, u"0.00 10.00 20.00 30.00 40.00 50.00 60.00 70.00 80.00 90.00 100.00"},
    {TextId::predefinedElevenDown, u"100.00 90.00 80.00 70.00 60.00 50.00 40.00 30.00 20.00 10.00 0.00"},
    {TextId::predefinedElevenUpDown, u"0.00 10.00 20.00 30.00 40.00 50.00 60.00 70.00 80.00 90.00 100.00 "
                                     "90.00 80.00 70.00 60.00 50.00 40.00 30.00 20.00 10.00 0.00"},
};

} // namespace

QStringList predefinedRows() {
    QStringList rows;
    for (const auto& row : table)
        rows << text(row.text);
    return rows;
}

QStringList predefinedPoints(int row) {
    if (row < 0 || row >= static_cast<int>(std::size(table)))
        return {};
    return table[row].points.toString().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace kelvane
