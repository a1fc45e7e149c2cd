#pragma once

#include "reports/report_band.h"

#include <QRectF>

QT_FORWARD_DECLARE_CLASS(QPainter)

namespace kelvane {

/// A barcode as filled rectangles.
struct Barcode {
    /// With the blank zone around it that a reader needs.
    QSizeF size;
    QList<QRectF> bars;
};

/// The barcode of a text. No bars when there is no text, or the symbology can't hold it.
Barcode barcodeOf(const QString& text, BarcodeSymbology symbology);

/// Paints the barcode into `place`, in design units: a Code 128 as high as its place, a QR code as a square.
/// Its modules are at most 0.4 mm wide; when they would be too narrow for a reader, the place stays empty.
void paintBarcode(QPainter& painter, const Barcode& barcode, BarcodeSymbology symbology,
                  Qt::Alignment alignment, const QRectF& place);

} // namespace kelvane
