#include "reports/report_data.h"

#include <QCborMap>

namespace kelvane {

void ReportData::add(const QJsonObject& group, const ReportDrawings& drawings) {
    if (!drawings.isEmpty())
        drawings_.insert(groups_.size(), drawings);
    groups_ << qCompress(QCborMap::fromJsonObject(group).toCborValue().toCbor());
}

QJsonObject ReportData::group(qsizetype index) const {
    return QCborValue::fromCbor(qUncompress(groups_.at(index))).toMap().toJsonObject();
}

} // namespace kelvane
