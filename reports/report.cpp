#include "reports/report.h"

#include "reports/design_unit.h"
#include "reports/group_pages.h"
#include "reports/report_error.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QLocale>
#include <QPainter>

#include <algorithm>

namespace kelvane {

namespace {

QPageSize::PageSizeId localPaper() {
    return QLocale::system().measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter
                                                                              : QPageSize::A4;
}

/// Where the bands go on a page of a device. Millimetres.
struct PageArea {
    double left = 0;
    double top = 0;
    double height = 0;
    /// Below 1 when the paper is too narrow for the layout.
    double scale = 1;
};

PageArea pageAreaOf(const QPageLayout& pages, double width) {
    const auto paper = pages.fullRect(QPageLayout::Millimeter).size();
    const auto margins = pages.margins(QPageLayout::Millimeter);
    const auto room = paper.width() - margins.left() - margins.right();
    const auto height = paper.height() - margins.top() - margins.bottom();
    if (!(room > 0 && height >= minPageHeight))
        throw ReportError(text(TextId::reportNotPainted));

    const auto scale = std::min(1.0, room / width);
    // In the middle of the paper, unless its margins are too uneven for that.
    const auto left = std::clamp((paper.width() - width * scale) / 2, margins.left(),
                                 paper.width() - margins.right() - width * scale);
    const auto isFullPage = pages.mode() == QPageLayout::FullPageMode;
    return {.left = isFullPage ? left : left - margins.left(),
            .top = isFullPage ? margins.top() : 0,
            .height = height,
            .scale = scale};
}

void prepare(QPainter& painter, const QPagedPaintDevice& device, const PageArea& area) {
    const auto unit = 1 / unitsPerInch;
    painter.scale(device.logicalDpiX() * unit, device.logicalDpiY() * unit);
    painter.translate(unitsOfMillimetres(area.left), unitsOfMillimetres(area.top));
    painter.scale(area.scale, area.scale);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
}

} // namespace

Report::Report(ReportLayout layout, ReportData data) : layout_(std::move(layout)), data_(std::move(data)) {}

bool Report::paint(QPagedPaintDevice& device, const GroupProgress& onGroup) const {
    const auto area = pageAreaOf(device.pageLayout(), layout_.width);
    const auto pageHeight = unitsOfMillimetres(area.height / area.scale);
    QPainter painter;
    if (!painter.begin(&device))
        throw ReportError(text(TextId::reportNotPainted));
    prepare(painter, device, area);

    FieldValues values(data_.values);
    PlainTexts plainTexts;
    auto isFirst = true;
    for (qsizetype group = 0; group < data_.groupCount(); ++group) {
        if (onGroup && !onGroup(group))
            return false;
        const auto groupValues = data_.group(group);
        values.setGroup(groupValues);
        GroupPages pages(layout_, groupValues, pageHeight, values, plainTexts, data_.drawings(group));
        for (qsizetype page = 0; page < pages.count(); ++page) {
            if (!std::exchange(isFirst, false) && !device.newPage())
                throw ReportError(text(TextId::reportNotPainted));
            pages.paint(painter, page);
        }
    }
    return true;
}

QPageLayout pageLayout(const ReportLayout& layout) {
    return {QPageSize(layout.paper.value_or(localPaper())), layout.orientation, layout.margins,
            QPageLayout::Millimeter};
}

} // namespace kelvane
