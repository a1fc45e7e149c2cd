#include "editors/predefined_points.h"

#include "resources/strings.h"

namespace kelvane {

namespace {

/// A row by the id of its text, and its points with a blank between. A quarter and three quarters carry no
/// decimals: the points are stored as they stand here.
struct PredefinedRow {
    int text;
    QStringView points;
};

constexpr PredefinedRow table[] = {
    {1185, u""},
    {1186, u"100.00"},
    {1187, u"0.00"},
    {1188, u"0.00 100.00"},
    {1189, u"100.00 0.00"},
    {1190, u"0.00 50.00 100.00"},
    {1191, u"100.00 50.00 0.00"},
    {1192, u"0.00 50.00 100.00 50.00 0.00"},
    {1193, u"0.00 25 50.00 75 100.00"},
    {1194, u"100.00 75 50.00 25 0.00"},
    {1195, u"0.00 25 50.00 75 100.00 75 50.00 25 0.00"},
    {1196, u"0.00 10.00 20.00 30.00 40.00 50.00 60.00 70.00 80.00 90.00 100.00"},
    {1197, u"100.00 90.00 80.00 70.00 60.00 50.00 40.00 30.00 20.00 10.00 0.00"},
    {1198, u"0.00 10.00 20.00 30.00 40.00 50.00 60.00 70.00 80.00 90.00 100.00 "
           "90.00 80.00 70.00 60.00 50.00 40.00 30.00 20.00 10.00 0.00"},
};

} // namespace

QStringList predefinedRows() {
    QStringList rows;
    for (const auto& one : table)
        rows << text(one.text);
    return rows;
}

QStringList predefinedPoints(int row) {
    if (row < 0 || row >= static_cast<int>(std::size(table)))
        return {};
    return table[row].points.toString().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace kelvane
