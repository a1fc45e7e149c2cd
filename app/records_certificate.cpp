#include "app/records_certificate.h"

#include "data/history/instruments.h"
#include "records/certificate_report.h"
#include "reports/report_error.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The calibration of the record that is asked for, or the last one.
CertifiedCalibration calibrationOf(const Session& session, const InstrumentSummary& instrument,
                                   const QList<CalibrationRecord>& records, const RecordsRequest& request) {
    if (request.record.isEmpty()) {
        const auto last = lastCalibration(session, instrument, records);
        if (!last)
            throw ProgramAnswer{u"%1 has no calibration record"_s.arg(request.asset), 1};
        return *last;
    }
    const auto found = std::ranges::find(records, request.record, &CalibrationRecord::ctag);
    if (found == records.cend())
        throw ProgramAnswer{u"%1 has no calibration record %2"_s.arg(request.asset, request.record), 1};
    return certifiedCalibration(instrument, records, found - records.cbegin());
}

} // namespace

bool writeCertificateFile(Session& session, const RecordsRequest& request, const QStringList& folders) {
    const auto instrument = instrumentNamed(session, request.asset);
    if (instrument.hasFailed)
        return false;
    if (!instrument.found)
        throw ProgramAnswer{u"there is no asset %1"_s.arg(request.asset), 1};
    const auto records = calibrationsOf(session, instrument.found->asset);
    if (!records)
        return false;
    auto calibration = calibrationOf(session, *instrument.found, *records, request);
    if (!readCustomer(session, calibration))
        return false;
    try {
        writeCertificate(session, calibration, readCertificateForm(session, folders), request.file);
    } catch (const ReportError& error) {
        throw ProgramAnswer{error.text().simplified(), 1};
    }
    return true;
}

} // namespace kelvane
