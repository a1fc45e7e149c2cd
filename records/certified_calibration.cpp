#include "records/certified_calibration.h"

#include "records/calibration_pair.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

using OfRecord = std::function<QString(const CalibrationRecord& record)>;

QString nameOf(bool isAsLeft) {
    return text(isAsLeft ? TextId::plotAsLeft : TextId::plotAsFound);
}

/// Once what both say, else what each says, with its name, joined.
QString joined(const CertifiedCalibration& calibration, const OfRecord& value, const QString& link,
               QString (*named)(const QString& value, bool isAsLeft)) {
    const auto found = calibration.asFound ? value(*calibration.asFound) : QString();
    const auto left = calibration.asLeft ? value(*calibration.asLeft) : QString();
    if (!calibration.asLeft || found == left)
        return found;
    if (!calibration.asFound)
        return left;
    QStringList values;
    if (!found.isEmpty())
        values << named(found, false);
    if (!left.isEmpty())
        values << named(left, true);
    return values.join(link);
}

} // namespace

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

std::optional<CertifiedCalibration> lastCalibration(const Session& session,
                                                    const InstrumentSummary& instrument,
                                                    QList<CalibrationRecord> records) {
    const auto today = session.clock.moment().date;
    records.removeIf([&](const CalibrationRecord& record) {
        return record.date.hasDate() && record.date.moment.date > today;
    });
    if (records.isEmpty())
        return {};
    return certifiedCalibration(instrument, records, 0);
}

bool readCustomer(Session& session, CertifiedCalibration& calibration) {
    const auto customer = customerOf(session, calibration.instrument.mtag);
    calibration.customer = customer.value_or(QString());
    return customer.has_value();
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

QString ofBothRecords(const CertifiedCalibration& calibration, const OfRecord& value) {
    return joined(calibration, value, u"; "_s, asFoundOrLeft);
}

QString sentencesOfBoth(const CertifiedCalibration& calibration, const OfRecord& value) {
    return joined(calibration, value, u"\n"_s, [](const QString& sentence, bool isAsLeft) {
        return u"%1: %2"_s.arg(nameOf(isAsLeft), sentence);
    });
}

QString asFoundOrLeft(const QString& value, bool isAsLeft) {
    return u"%1 (%2)"_s.arg(value, nameOf(isAsLeft));
}

} // namespace kelvane
