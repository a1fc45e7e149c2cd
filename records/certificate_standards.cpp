#include "records/certificate_standards.h"

#include "records/lists.h"
#include "records/report_parts.h"

#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// Day, number and laboratory of its last calibration before, to trace it by.
QString calibrationOf(const UsedStandard& standard) {
    QStringList lines{dateText(standard.calibrated), standard.record, standard.laboratory};
    lines.removeAll(QString());
    return lines.join(u'\n');
}

QJsonObject rowOf(const UsedStandard& standard) {
    return {{"standard"_L1, standardText(standard)},
            {"description"_L1, stated(standard.description)},
            {"serial"_L1, stated(standard.serial)},
            {"calibrated"_L1, stated(calibrationOf(standard))}};
}

QList<QJsonObject> rowsOf(const std::optional<CalibrationRecord>& record) {
    QList<QJsonObject> rows;
    for (const auto& standard : record ? record->standards : QList<UsedStandard>()) {
        const auto row = rowOf(standard);
        if (!rows.contains(row))
            rows << row;
    }
    return rows;
}

QJsonObject marked(QJsonObject row, bool isAsLeft) {
    row["standard"_L1] = asFoundOrLeft(row["standard"_L1].toString(), isAsLeft);
    return row;
}

} // namespace

QJsonArray standardRows(const CertifiedCalibration& calibration) {
    const auto found = rowsOf(calibration.asFound);
    const auto left = rowsOf(calibration.asLeft);
    const bool areBoth = calibration.asFound && calibration.asLeft;
    QJsonArray rows;
    for (const auto& row : found)
        rows << (areBoth && !left.contains(row) ? marked(row, false) : row);
    for (const auto& row : left) {
        if (!found.contains(row))
            rows << (areBoth ? marked(row, true) : row);
    }
    if (rows.isEmpty())
        rows << QJsonObject{{"standard"_L1, text(TextId::notStated)}};
    return rows;
}

} // namespace kelvane
