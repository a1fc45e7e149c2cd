#pragma once

#include "reports/field_text.h"

#include <QFont>
#include <QImage>
#include <QList>
#include <QPointF>

#include <optional>
#include <variant>
#include <vector>

namespace kelvane {

enum class BarcodeSymbology { code128, qrCode };

/// Text with fields. It wraps within its width, so that nothing is cut.
struct TextItem {
    FieldText text;
    /// Without a device: its size is in design units (`reports/design_unit.h`).
    QFont font;
    /// The height of one line, in design units.
    double lineHeight = 0;
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignTop;
};

/// A line of that thickness: across when it has a width, else downwards.
struct LineItem {
    double thickness = 0;
};

/// A frame of lines of that thickness.
struct BoxItem {
    double thickness = 0;
    /// How dark it is filled, from 0 (not at all) to 1 (black).
    double shade = 0;
};

struct BarcodeItem {
    FieldText text;
    BarcodeSymbology symbology = BarcodeSymbology::code128;
    Qt::Alignment alignment = Qt::AlignLeft;
};

/// A picture, as large as its place allows without being distorted.
struct PictureItem {
    QImage picture;
};

/// A picture that is painted when the report is: the group's drawing of that name.
struct DrawingItem {
    QString name;
};

/// Something in a band. Lengths are millimetres, counted from the band's upper left corner.
struct ReportItem {
    double x = 0;
    double y = 0;
    double width = 0;
    /// None: a text grows with its lines, a line or a box reaches the end of its band.
    std::optional<double> height;
    std::variant<TextItem, LineItem, BoxItem, BarcodeItem, PictureItem, DrawingItem> content;
};

/// A strip of the page, as wide as the report, which is never split between pages.
struct ReportBand {
    /// The least height; a band grows with its texts.
    double height = 0;
    std::vector<ReportItem> items;
};

} // namespace kelvane
