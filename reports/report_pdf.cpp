#include "reports/report_pdf.h"

#include "reports/report_error.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDir>
#include <QPdfWriter>
#include <QSaveFile>

namespace kelvane {

bool writePdf(const Report& report, const QPageLayout& pages, const QString& title, const QString& path,
              const GroupProgress& onGroup) {
    QSaveFile file(path);
    const auto fail = [&] {
        throw ReportError(
            text(TextId::pdfNotWritten).arg(QDir::toNativeSeparators(path), file.errorString()));
    };
    if (!file.open(QIODevice::WriteOnly))
        fail();
    {
        QPdfWriter pdf(&file);
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
