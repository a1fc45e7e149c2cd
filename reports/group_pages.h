#pragma once

#include "reports/measured_band.h"
#include "reports/report_layout.h"

namespace kelvane {

/// The pages of one group: its bands measured and placed. All lengths are design units. Layout, values and
/// plain texts must outlive it; values and drawings are those of the report and of the group.
class GroupPages {
  public:
    /// `height` is that of a page between its margins.
    GroupPages(const ReportLayout& layout, const QJsonObject& group, double height, FieldValues& values,
               PlainTexts& plainTexts, ReportDrawings drawings = {});

    qsizetype count() const { return pages_.size(); }
    /// Paints a page, counted from 0, with its upper left corner at the painter's origin.
    void paint(QPainter& painter, qsizetype page);

  private:
    /// A band of the layout, and the row of a table that it shows.
    struct BandRow {
        const ReportBand* band = nullptr;
        std::optional<QJsonObject> row = {};
    };
    struct PlacedBand {
        BandRow source;
        MeasuredBand band;
        double top = 0;
        /// The place that the band has; a higher one is painted smaller.
        double height = 0;
    };
    using Page = QList<PlacedBand>;

    MeasuredBand measured(const BandRow& source, const QString& page, const QString& pages);
    double reservedHeight(const std::optional<ReportBand>& band);
    /// What a page has between its header and its footer.
    double fullRoom() const;
    void beginPage();
    /// Begins a page unless this one has so much room left, or has nothing on it.
    void ensureRoom(double height);
    void put(const BandRow& source, const MeasuredBand& band, double height);
    void addBand(const ReportBand& band);
    void addTable(const ReportTable& table, const QJsonArray& rows);
    void paintEdge(QPainter& painter, const ReportBand& band, const QString& page, double top, double height);
    void paintBand(QPainter& painter, const MeasuredBand& band, double top, double height) const;

    const ReportLayout& layout_;
    double height_;
    FieldValues& values_;
    PlainTexts& plainTexts_;
    ReportDrawings drawings_;
    double headerHeight_ = 0;
    double footerHeight_ = 0;
    /// Where the next band of the last page goes.
    double top_ = 0;
    QList<Page> pages_;
};

} // namespace kelvane
