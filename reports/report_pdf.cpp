#include "reports/report_pdf.h"

#include "platform/whole_file.h"
#include "reports/report_error.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDir>
#include <QPdfWriter>

namespace kelvane {

bool writePdf(const Report& report, const QPageLayout& pages, const QString& title, const QString& path,
              const GroupProgress& onGroup) {
    WholeFile file(path);
    const auto fail = [&] {
        throw ReportError(text(TextId::pdfNotWritten).arg(QDir::toNativeSeparators(path), file.fault()));
    };
    if (!file.open())
        fail();
    {
        QPdfWriter pdf(&file.device());
        pdf.setPdfVersion(QPagedPaintDevice::PdfVersion_A1b);
        pdf.setPageLayout(pages);
        pdf.setTitle(title);
        pdf.setCreator(text(TextId::applicationName));
        if (!report.paint(pdf, onGroup))
            return false; // what is not committed goes
    }
    if (!file.commit())
        fail();
    return true;
}

} // namespace kelvane
