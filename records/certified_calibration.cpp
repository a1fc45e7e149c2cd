#include "records/certified_calibration.h"

#include "records/calibration_pair.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane {

CertifiedCalibration certifiedCalibration(const InstrumentSummary& instrument,
                                          const QList<CalibrationRecord>& records, qsizetype chosen) {
    const auto pair = pairOf(records, chosen);
    CertifiedCalibration calibration{.instrument = instrument};
    if (pair.asFound)
        calibration.asFound = records[*pair.asFound];
    if (pair.asLeft)
        calibration.asLeft = records[*pair.asLeft];
    return calibration;
}

QString certificateNumber(const Session& session, const CertifiedCalibration& calibration) {
    QStringList records;
    for (const auto& record : {calibration.asFound, calibration.asLeft}) {
        if (record)
            records << record->ctag;
    }
    return session.SessionOwner + u'-' + records.join(u'/');
}

QString certificateDate(const CertifiedCalibration& calibration) {
    const auto& last = calibration.asLeft ? calibration.asLeft : calibration.asFound;
    return last ? dateText(last->date) : QString();
}

QString ofBothRecords(const CertifiedCalibration& calibration,
                      const std::function<QString(const CalibrationRecord& record)>& value) {
    const auto found = calibration.asFound ? value(*calibration.asFound) : QString();
    const auto left = calibration.asLeft ? value(*calibration.asLeft) : QString();
    if (!calibration.asLeft || found == left)
        return found;
    if (!calibration.asFound)
        return left;
    QStringList values;
    if (!found.isEmpty())
        values << asFoundOrLeft(found, false);
    if (!left.isEmpty())
        values << asFoundOrLeft(left, true);
    return values.join(u"; "_s);
}

QString asFoundOrLeft(const QString& value, bool isAsLeft) {
    return u"%1 (%2)"_s.arg(value, text(isAsLeft ? TextId::plotAsLeft : TextId::plotAsFound));
}

} // namespace kelvane
