#include "testkit/sheets.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

QString number(double value, int decimals, const QString& unit) {
    return QString::number(value, 'f', decimals) + u' ' + unit;
}

QJsonObject pointOf(int index, int points) {
    const auto percent = points > 1 ? 100.0 * index / (points - 1) : 0;
    const auto output = 4 + 16 * percent / 100;
    return {{u"number"_s, QString::number(index + 1)},
            {u"percent"_s, QString::number(percent, 'f', 1)},
            {u"input"_s, number(percent * 2, 2, u"psig"_s)},
            {u"output"_s, number(output, 4, u"mA"_s)},
            {u"lower"_s, number(output - 0.04, 4, u"mA"_s)},
            {u"upper"_s, number(output + 0.04, 4, u"mA"_s)},
            {u"tolerance"_s, u"0.0400 mA"_s}};
}

} // namespace

QJsonObject sheetReport() {
    return {{u"title"_s, u"Calibration Worksheet"_s},
            {u"printed"_s, u"03/18/2026 09:30"_s},
            {u"printedBy"_s, u"jdoe"_s}};
}

QJsonObject sheetOf(const QString& asset, int points) {
    QJsonArray pointList;
    for (int index = 0; index < points; ++index)
        pointList << pointOf(index, points);
    return {
        {u"asset"_s, asset},
        {u"manufacturer"_s, u"Northfield Instruments"_s},
        {u"model"_s, u"NP-300"_s},
        {u"description"_s, u"Pressure transmitter, feed water pump A"_s},
        {u"serial"_s, u"9984-221 B"_s},
        {u"location"_s, u"Boiler house, level 2, rack 14"_s},
        {u"lastCalibration"_s, u"03/17/2025"_s},
        {u"due"_s, u"03/17/2026"_s},
        {u"input"_s, u"0 to 200 psig"_s},
        {u"output"_s, u"4 to 20 mA"_s},
        {u"strategy"_s, u"UP AND DOWN"_s},
        {u"tolerance"_s, u"0.25 % of span"_s},
        {u"points"_s, pointList},
        {u"messagesBefore"_s,
         QJsonArray{QJsonObject{{u"name"_s, u"ISOLATE"_s},
                                {u"text"_s, u"Isolate the transmitter at its manifold."_s}}}},
        {u"messagesAfter"_s,
         QJsonArray{QJsonObject{{u"name"_s, u"RETURN"_s}, {u"text"_s, u"Open the manifold again."_s}}}},
        {u"fields"_s,
         QJsonArray{
             QJsonObject{{u"title"_s, u"Calibrated by"_s}, {u"value"_s, u"jdoe"_s}, {u"required"_s, u"Y"_s}},
             QJsonObject{{u"title"_s, u"Work order"_s}, {u"value"_s, QString()}}}},
        {u"standards"_s, QJsonArray{QJsonObject{{u"asset"_s, u"STD-7"_s},
                                                {u"description"_s, u"Deadweight tester"_s},
                                                {u"serial"_s, u"DW-118"_s},
                                                {u"due"_s, u"11/30/2026"_s}}}},
    };
}

} // namespace kelvane::testing
