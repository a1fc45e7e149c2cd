#include "app/records_certificate.h"

#include "data/history/instruments.h"
#include "records/certificate_report.h"
#include "reports/report_error.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// Nothing after an error that was reported.
std::optional<InstrumentSummary> instrumentOf(Session& session, const QString& asset) {
    InstrumentReader reader(session, {.filter = {.asset = asset}});
    const auto found = reader.next(1);
    if (reader.hasFailed())
        return {};
    if (found.isEmpty())
        throw ProgramAnswer{u"there is no asset %1"_s.arg(asset), 1};
    return found.constFirst();
}

/// Where the record stands among those of the instrument: the one that is asked for, or the newest.
qsizetype chosenOf(const QList<CalibrationRecord>& records, const RecordsRequest& request) {
    if (records.isEmpty())
        throw ProgramAnswer{u"%1 has no calibration record"_s.arg(request.asset), 1};
    if (request.record.isEmpty())
        return 0;
    const auto found = std::ranges::find(records, request.record, &CalibrationRecord::ctag);
    if (found == records.cend())
        throw ProgramAnswer{u"%1 has no calibration record %2"_s.arg(request.asset, request.record), 1};
    return found - records.cbegin();
}

} // namespace

bool writeCertificateFile(Session& session, const RecordsRequest& request, const QStringList& folders) {
    const auto instrument = instrumentOf(session, request.asset);
    if (!instrument)
        return false;
    const auto records = calibrationsOf(session, request.asset);
    if (!records)
        return false;
    const auto calibration = certifiedCalibration(*instrument, *records, chosenOf(*records, request));
    try {
        writeCertificate(session, calibration, readCertificateForm(session, folders), request.file);
    } catch (const ReportError& error) {
        throw ProgramAnswer{error.text().simplified(), 1};
    }
    return true;
}

} // namespace kelvane
