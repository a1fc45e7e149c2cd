#include "records/certificate_report.h"

#include "records/certificate_data.h"
#include "records/report_parts.h"
#include "reports/report_pdf.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

std::optional<QPageSize::PageSizeId> paperOf(const QString& name) {
    if (name.isEmpty())
        return {};
    return name == u"A4" ? QPageSize::A4 : QPageSize::Letter;
}

} // namespace

CertificateForm readCertificateForm(const Workstation& workstation, const QStringList& folders) {
    CertificateForm form{.layout = readLayout(siteLayout(u"certificate.rpt"_s, folders)),
                         .settings = certificateSettings(workstation)};
    if (!form.layout.paper)
        form.layout.paper = paperOf(form.settings.paper);
    return form;
}

Report certificateReport(Session& session, const CertifiedCalibration& calibration,
                         const CertificateForm& form) {
    ReportData data;
    data.values = certificateLabels();
    data.add(certificateValues(session, calibration, form.settings));
    return {form.layout, std::move(data)};
}

QString certificateTitle(const Session& session, const CertifiedCalibration& calibration) {
    return text(TextId::certificateTitle) + u' ' + certificateNumber(session, calibration);
}

void writeCertificate(Session& session, const CertifiedCalibration& calibration, const CertificateForm& form,
                      const QString& path) {
    const auto report = certificateReport(session, calibration, form);
    writePdf(report, pageLayout(report.layout()), certificateTitle(session, calibration), path);
}

} // namespace kelvane
