#include "reports/report_data.h"

#include <QCborMap>

namespace kelvane {

void ReportData::add(const QJsonObject& group) {
    groups_ << qCompress(QCborMap::fromJsonObject(group).toCborValue().toCbor());
}

QJsonObject ReportData::group(qsizetype index) const {
    return QCborValue::fromCbor(qUncompress(groups_.at(index))).toMap().toJsonObject();
}

} // namespace kelvane
