#include "reports/group_pages.h"

#include "reports/design_unit.h"

#include <QJsonArray>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// Stands for a page's number while the pages are not counted yet: a wide one, so that the true one fits.
const auto unknownPage = u"888"_s;

/// A page header or footer gets at most this part of a page; a higher one is painted smaller.
constexpr double maxEdgeShare = 1.0 / 3;
/// A table's header gets at most this part of what is left.
constexpr double maxHeaderShare = 1.0 / 2;

/// Heights are sums.
constexpr double rounding = 1e-3;

const ReportBand noBand;

QJsonObject numbered(QJsonObject row, qsizetype number) {
    row.insert(u"rowNumber"_s, QString::number(number));
    return row;
}

} // namespace

GroupPages::GroupPages(const ReportLayout& layout, const QJsonObject& group, double height,
                       FieldValues& values, PlainTexts& plainTexts, ReportDrawings drawings)
    : layout_(layout),
      height_(height),
      values_(values),
      plainTexts_(plainTexts),
      drawings_(std::move(drawings)) {
    headerHeight_ = reservedHeight(layout.pageHeader);
    footerHeight_ = reservedHeight(layout.pageFooter);
    beginPage();
    for (const auto& band : layout.groupHeader)
        addBand(band);
    for (const auto& table : layout.tables)
        addTable(table, group.value(table.rows).toArray());
    for (const auto& band : layout.summary)
        addBand(band);
    if (layout.signature)
        addBand(*layout.signature);
}

MeasuredBand GroupPages::measured(const BandRow& source, const QString& page, const QString& pages) {
    values_.setPage(page, pages);
    if (source.row)
        values_.setRow(*source.row);
    else
        values_.clearRow();
    return {*source.band, values_, plainTexts_, drawings_};
}

double GroupPages::reservedHeight(const std::optional<ReportBand>& band) {
    if (!band)
        return 0;
    return std::min(measured({.band = &*band}, unknownPage, unknownPage).height(), height_ * maxEdgeShare);
}

double GroupPages::fullRoom() const {
    return height_ - headerHeight_ - footerHeight_;
}

void GroupPages::beginPage() {
    pages_ << Page();
    top_ = headerHeight_;
}

void GroupPages::ensureRoom(double height) {
    if (top_ > headerHeight_ && top_ + height > height_ - footerHeight_ + rounding)
        beginPage();
}

void GroupPages::put(const BandRow& source, const MeasuredBand& band, double height) {
    pages_.last() << PlacedBand{.source = source, .band = band, .top = top_, .height = height};
    top_ += height;
}

void GroupPages::addBand(const ReportBand& band) {
    const BandRow source{.band = &band};
    const auto measuredBand = measured(source, unknownPage, unknownPage);
    const auto height = std::min(measuredBand.height(), fullRoom());
    ensureRoom(height);
    put(source, measuredBand, height);
}

void GroupPages::addTable(const ReportTable& table, const QJsonArray& rows) {
    const BandRow header{.band = table.header ? &*table.header : &noBand};
    const auto headerBand = measured(header, unknownPage, unknownPage);
    const auto headerHeight = std::min(headerBand.height(), fullRoom() * maxHeaderShare);
    // The page on which the header stands: it goes with the first row, and with the first of each page.
    qsizetype headerPage = -1;
    for (qsizetype index = 0; index < rows.size() + table.emptyRows; ++index) {
        const BandRow row{.band = &table.row, .row = numbered(rows.at(index).toObject(), index + 1)};
        const auto rowBand = measured(row, unknownPage, unknownPage);
        const auto rowHeight = std::min(rowBand.height(), fullRoom() - headerHeight);
        ensureRoom(headerPage == pages_.size() ? rowHeight : headerHeight + rowHeight);
        if (headerPage != pages_.size())
            put(header, headerBand, headerHeight);
        headerPage = pages_.size();
        put(row, rowBand, rowHeight);
    }
}

void GroupPages::paint(QPainter& painter, qsizetype page) {
    const auto number = QString::number(page + 1);
    if (layout_.pageHeader)
        paintEdge(painter, *layout_.pageHeader, number, 0, headerHeight_);
    for (const auto& placed : pages_.at(page)) {
        if (namesPages(*placed.source.band))
            paintBand(painter, measured(placed.source, number, QString::number(count())), placed.top,
                      placed.height);
        else
            paintBand(painter, placed.band, placed.top, placed.height);
    }
    if (layout_.pageFooter)
        paintEdge(painter, *layout_.pageFooter, number, height_ - footerHeight_, footerHeight_);
}

void GroupPages::paintEdge(QPainter& painter, const ReportBand& band, const QString& page, double top,
                           double height) {
    paintBand(painter, measured({.band = &band}, page, QString::number(count())), top, height);
}

void GroupPages::paintBand(QPainter& painter, const MeasuredBand& band, double top, double height) const {
    if (band.height() <= height + rounding) {
        band.paint(painter, {0, top});
        return;
    }
    const auto scale = height / band.height();
    painter.save();
    painter.translate(unitsOfMillimetres(layout_.width) * (1 - scale) / 2, top);
    painter.scale(scale, scale);
    band.paint(painter, {0, 0});
    painter.restore();
}

} // namespace kelvane
