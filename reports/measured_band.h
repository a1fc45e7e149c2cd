#pragma once

#include "reports/barcode.h"
#include "reports/measured_text.h"
#include "reports/report_band.h"
#include "reports/report_data.h"

#include <QHash>

namespace kelvane {

/// The texts without fields of a report, each measured once.
using PlainTexts = QHash<const ReportItem*, std::shared_ptr<const MeasuredText>>;

/// A band with its values, measured: it is as high as its texts need, and what stands below a text that has
/// grown has moved down. A drawing that the group does not have takes no room. All lengths are design units.
/// The band that it was made of must outlive it.
class MeasuredBand {
  public:
    MeasuredBand() = default;
    MeasuredBand(const ReportBand& band, FieldValues& values, PlainTexts& plainTexts,
                 const ReportDrawings& drawings = {});

    double height() const { return height_; }
    void paint(QPainter& painter, QPointF topLeft) const;

  private:
    struct PlacedItem {
        const ReportItem* item = nullptr;
        QRectF place = {};
        std::shared_ptr<const MeasuredText> text = {};
        Barcode barcode = {};
        ReportDrawing drawing = {};
    };
    /// Where a text that has grown pushes down what stands below it.
    struct Growth {
        double below = 0;
        double shift = 0;
    };

    PlacedItem measured(const ReportItem& item, FieldValues& values, PlainTexts& plainTexts,
                        const ReportDrawings& drawings) const;
    void collectGrowths();
    double shifted(double y) const;
    void place(PlacedItem& placed) const;

    double height_ = 0;
    QList<PlacedItem> items_;
    QList<Growth> growths_;
};

/// True when a text of the band names the page or the number of pages.
bool namesPages(const ReportBand& band);

} // namespace kelvane
