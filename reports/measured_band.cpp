#include "reports/measured_band.h"

#include "reports/design_unit.h"

#include <QPainter>

#include <algorithm>

namespace kelvane {

namespace {

/// Smaller letters help nobody: from here on a text grows, although its layout gives it a height.
constexpr int minPixelSize = unitsOfPoints(3);

template <typename Content>
const Content* contentOf(const ReportItem& item) {
    return std::get_if<Content>(&item.content);
}

/// The height that the layout gives to an item; that of a text without one is a line.
double givenHeight(const ReportItem& item) {
    if (item.height)
        return unitsOfMillimetres(*item.height);
    const auto* text = contentOf<TextItem>(item);
    return text ? text->lineHeight : 0;
}

/// A text of a given height is set smaller when it would not fit.
std::shared_ptr<const MeasuredText> fittedText(const ReportItem& item, const QString& text) {
    const auto& content = std::get<TextItem>(item.content);
    const auto width = unitsOfMillimetres(item.width);
    auto font = content.font;
    auto measured = std::make_shared<const MeasuredText>(text, font, content.alignment, width);
    while (item.height && measured->height() > givenHeight(item) && font.pixelSize() > minPixelSize) {
        font.setPixelSize(std::max(minPixelSize, font.pixelSize() * 9 / 10));
        measured = std::make_shared<const MeasuredText>(text, font, content.alignment, width);
    }
    return measured;
}

std::shared_ptr<const MeasuredText> measuredText(const ReportItem& item, FieldValues& values,
                                                 PlainTexts& plainTexts) {
    const auto& pattern = std::get<TextItem>(item.content).text;
    if (!pattern.isPlain()) {
        const auto text = pattern.filled(values);
        return text.isEmpty() ? nullptr : fittedText(item, text);
    }
    auto& text = plainTexts[&item];
    if (!text)
        text = fittedText(item, pattern.filled(values));
    return text;
}

QPen penOf(double thickness) {
    return {Qt::black, unitsOfMillimetres(thickness), Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin};
}

QColor grey(double shade) {
    const auto level = qRound(255 * (1 - shade));
    return {level, level, level};
}

void paintBox(QPainter& painter, const BoxItem& box, const QRectF& place) {
    if (box.shade > 0)
        painter.fillRect(place, grey(box.shade));
    painter.setPen(penOf(box.thickness));
    painter.drawRect(place);
}

void paintPicture(QPainter& painter, const QImage& picture, const QRectF& place) {
    const auto size = QSizeF(picture.size()).scaled(place.size(), Qt::KeepAspectRatio);
    painter.drawImage(QRectF(place.topLeft(), size), picture);
}

} // namespace

MeasuredBand::MeasuredBand(const ReportBand& band, FieldValues& values, PlainTexts& plainTexts,
                           const ReportDrawings& drawings) {
    auto given = unitsOfMillimetres(band.height);
    items_.reserve(std::ssize(band.items));
    for (const auto& item : band.items) {
        items_ << measured(item, values, plainTexts, drawings);
        if (!contentOf<DrawingItem>(item) || items_.constLast().drawing)
            given = std::max(given, unitsOfMillimetres(item.y) + givenHeight(item));
    }
    collectGrowths();
    height_ = shifted(given);
    for (auto& placed : items_)
        place(placed);
}

MeasuredBand::PlacedItem MeasuredBand::measured(const ReportItem& item, FieldValues& values,
                                                PlainTexts& plainTexts,
                                                const ReportDrawings& drawings) const {
    PlacedItem placed{.item = &item};
    if (contentOf<TextItem>(item))
        placed.text = measuredText(item, values, plainTexts);
    else if (const auto* barcode = contentOf<BarcodeItem>(item))
        placed.barcode = barcodeOf(barcode->text.filled(values), barcode->symbology);
    else if (const auto* drawing = contentOf<DrawingItem>(item))
        placed.drawing = drawings.value(drawing->name);
    return placed;
}

void MeasuredBand::collectGrowths() {
    QList<const PlacedItem*> grown;
    for (const auto& placed : items_) {
        if (placed.text && placed.text->height() > givenHeight(*placed.item))
            grown << &placed;
    }
    std::ranges::stable_sort(grown, {}, [](const PlacedItem* placed) { return placed->item->y; });
    for (const auto* placed : grown) {
        const auto top = unitsOfMillimetres(placed->item->y);
        const auto given = givenHeight(*placed->item);
        // Lines may stand a little closer than the font asks for.
        growths_ << Growth{.below = top + given / 2,
                           .shift = shifted(top) - top + placed->text->height() - given};
    }
}

double MeasuredBand::shifted(double y) const {
    double shift = 0;
    for (const auto& growth : growths_) {
        if (growth.below <= y)
            shift = std::max(shift, growth.shift);
    }
    return y + shift;
}

void MeasuredBand::place(PlacedItem& placed) const {
    const auto& item = *placed.item;
    const auto top = shifted(unitsOfMillimetres(item.y));
    auto bottom = item.height ? top + unitsOfMillimetres(*item.height) : top;
    if (placed.text)
        bottom = std::max(bottom, top + placed.text->height());
    else if (!item.height && (contentOf<BoxItem>(item) || (contentOf<LineItem>(item) && item.width <= 0)))
        bottom = height_;
    const auto left = unitsOfMillimetres(item.x);
    placed.place = QRectF(QPointF(left, top), QPointF(left + unitsOfMillimetres(item.width), bottom));
}

void MeasuredBand::paint(QPainter& painter, QPointF topLeft) const {
    for (const auto& placed : items_) {
        const auto place = placed.place.translated(topLeft);
        if (placed.text) {
            painter.setPen(Qt::black);
            placed.text->paint(painter, place);
        } else if (const auto* line = contentOf<LineItem>(*placed.item)) {
            painter.setPen(penOf(line->thickness));
            painter.drawLine(place.topLeft(), place.bottomRight());
        } else if (const auto* box = contentOf<BoxItem>(*placed.item)) {
            paintBox(painter, *box, place);
        } else if (const auto* barcode = contentOf<BarcodeItem>(*placed.item)) {
            paintBarcode(painter, placed.barcode, barcode->symbology, barcode->alignment, place);
        } else if (const auto* picture = contentOf<PictureItem>(*placed.item)) {
            paintPicture(painter, picture->picture, place);
        } else if (placed.drawing) {
            painter.save();
            placed.drawing(painter, place);
            painter.restore();
        }
    }
}

bool namesPages(const ReportBand& band) {
    return std::ranges::any_of(band.items, [](const ReportItem& item) {
        const auto* text = contentOf<TextItem>(item);
        const auto* barcode = contentOf<BarcodeItem>(item);
        return (text && text->text.namesPages()) || (barcode && barcode->text.namesPages());
    });
}

} // namespace kelvane
