#include "records/certificate_report.h"

#include "records/certificate_data.h"
#include "records/certificate_plot.h"
#include "records/report_parts.h"
#include "reports/report_pdf.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QJsonArray>

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
    auto values = certificateValues(session, calibration, form.settings);
    ReportDrawings drawings;
    if (auto plot = certificatePlot(session, calibration); !plot.isEmpty()) {
        values["plots"_L1] = QJsonArray{QJsonObject()};
        drawings.insert(u"errors"_s, plotDrawing(std::move(plot)));
    }
    data.add(values, drawings);
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
