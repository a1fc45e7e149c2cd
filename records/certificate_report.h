#pragma once

#include "data/session.h"
#include "records/certificate_settings.h"
#include "records/certified_calibration.h"
#include "reports/report.h"

namespace kelvane {

/// How certificates look, and what the settings say on them.
struct CertificateForm {
    ReportLayout layout;
    CertificateSettings settings;
};

/// Reads the settings and the layout "certificate.rpt": that of the first of these folders that has one,
/// otherwise the one that is installed. The paper is that of the settings where the layout names none. Throws
/// `ReportError` for a layout that can't be read.
CertificateForm readCertificateForm(const Workstation& workstation, const QStringList& folders);

/// The certificate of a calibration.
Report certificateReport(Session& session, const CertifiedCalibration& calibration,
                         const CertificateForm& form);
/// What its window or its file is called.
QString certificateTitle(const Session& session, const CertifiedCalibration& calibration);

/// Writes the certificate as a PDF; the file is there as a whole or stays as it was. Throws `ReportError`
/// with the path and the reason.
void writeCertificate(Session& session, const CertifiedCalibration& calibration, const CertificateForm& form,
                      const QString& path);

} // namespace kelvane
